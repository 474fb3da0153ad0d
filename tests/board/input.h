#pragma once
// Mouse input for the board's tests: a press, moves with the button held, a release.
#include <QApplication>
#include <QMouseEvent>
#include <QSettings>
#include <QtTest>

inline void press(QWidget *w, const QPointF &p, Qt::KeyboardModifiers mods = {})
{
    QTest::mousePress(w, Qt::LeftButton, mods, p.toPoint());
}
inline void release(QWidget *w, const QPointF &p, Qt::KeyboardModifiers mods = {})
{
    QTest::mouseRelease(w, Qt::LeftButton, mods, p.toPoint());
}
inline void moveTo(QWidget *w, const QPointF &p, Qt::KeyboardModifiers mods = {})
{
    // QTest's own move carries no button; a drag needs the left one held.
    QMouseEvent e(QEvent::MouseMove, p, w->mapToGlobal(p.toPoint()), Qt::NoButton, Qt::LeftButton, mods);
    QApplication::sendEvent(w, &e);
}
inline void drag(QWidget *w, const QPointF &from, const QPointF &to, int steps = 8, Qt::KeyboardModifiers mods = {})
{
    press(w, from, mods);
    for (int i = 1; i <= steps; ++i)
        moveTo(w, from + (to - from) * i / steps, mods);
    release(w, to, mods);
}

// The board remembers things between runs; a test run keeps them out of the user's.
inline void keepSettingsIn(const QString &dir)
{
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, dir);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, dir);
}
