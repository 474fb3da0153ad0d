// The view's annotation tools: the pen (with tablet pressure), the text box and the
// arrow's end. Each finished mark is one undo step.
#include "Annotations.h"
#include "BoardView.h"
#include "Page.h"
#include "Strings.h"
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTabletEvent>
#include <cmath>
#include <framework.h>

namespace {
QString T(const char *key) { return Strings::text(QLatin1String(key)); }
} // namespace

void BoardView::setMarkStyle(int kind, const QColor &color, double size)
{
    if (color.isValid())
        m_markColor = color;
    if (kind > 0 && kind < 4)
        m_markSize[kind] = size;
}

void BoardView::styleMark(Annotation *mark) const
{
    if (m_markColor.isValid())
        mark->setColor(m_markColor);
    if (m_markSize[mark->kind()] > 0)
        mark->setSize(m_markSize[mark->kind()]);
}

void BoardView::addMark(Annotation *mark, const QString &key)
{
    mark->setZValue(m_page->topZ() + 1);
    GetFramework()->pushUndo(new AddItemsCmd(m_page, {mark}, Strings::text(key)));
    setSelection({mark}, mark);
}

void BoardView::beginInk(const QPointF &scenePos, double pressure)
{
    m_ink = static_cast<InkStroke *>(Annotation::create(Annotation::Ink));
    styleMark(m_ink);
    m_ink->setPos(scenePos);
    m_ink->setZValue(m_page->topZ() + 1);
    m_ink->addPoint(QPointF(0, 0), pressure);
    m_page->addItem(m_ink);
    m_mode = Mode::Ink;
}

void BoardView::addInk(const QPointF &scenePos, double pressure)
{
    if (!m_ink)
        return;
    const QPointF p = scenePos - m_ink->pos();
    const QVector<InkStroke::Point> &pts = m_ink->points();
    // Points closer than half a screen pixel add nothing to the stroke.
    if (!pts.isEmpty()) {
        const QPointF d = (p - pts.last().at) * zoom();
        if (std::hypot(d.x(), d.y()) < 0.5)
            return;
    }
    if (pts.size() < Annotation::kMaxPoints)
        m_ink->addPoint(p, pressure);
}

void BoardView::finishInk()
{
    InkStroke *ink = m_ink;
    m_ink = nullptr;
    m_mode = Mode::None;
    if (!ink)
        return;
    m_page->removeItem(ink);
    // A tap leaves a dot.
    if (ink->points().size() == 1)
        ink->addPoint(ink->points().first().at + QPointF(0.01, 0), ink->points().first().pressure);
    addMark(ink, QStringLiteral("BOARD_CMD_INK"));
}

void BoardView::tabletEvent(QTabletEvent *event)
{
    if (m_tool != PenTool) {
        event->ignore(); // the mouse event that follows does the work
        return;
    }
    const QPointF scenePos = mapToScene(event->posF().toPoint());
    const double pressure = event->pressure() > 0 ? event->pressure() : 0.5;
    switch (event->type()) {
    case QEvent::TabletPress:
        m_tabletInk = true;
        beginInk(scenePos, pressure);
        break;
    case QEvent::TabletMove:
        if (m_tabletInk)
            addInk(scenePos, pressure);
        break;
    case QEvent::TabletRelease:
        if (m_tabletInk)
            finishInk();
        m_tabletInk = false;
        break;
    default:
        break;
    }
    event->accept();
}

void BoardView::beginText(const QPointF &scenePos, TextNote *editing)
{
    if (m_editor)
        finishText(true);
    m_editing = editing;
    m_editorScene = scenePos;
    auto *editor = new QPlainTextEdit(viewport());
    editor->setObjectName(QStringLiteral("textEditor"));
    TextNote styled;
    styleMark(&styled);
    QFont f = editing ? editing->font() : styled.font();
    f.setPixelSize(qMax(6, int(std::lround(f.pixelSize() * zoom() * (editing ? editing->scale() : 1)))));
    editor->setFont(f);
    editor->setFrameShape(QFrame::Box);
    editor->setLineWrapMode(QPlainTextEdit::NoWrap);
    editor->setPlaceholderText(T("BOARD_TEXT_HINT"));
    if (editing) {
        editor->setPlainText(editing->text());
        editing->setVisible(false);
    }
    const QPoint at = mapFromScene(scenePos);
    editor->setGeometry(at.x(), at.y(), qMax(240, int(f.pixelSize() * 12)), qMax(48, int(f.pixelSize() * 3.2)));
    editor->installEventFilter(this);
    editor->show();
    editor->setFocus();
    m_editor = editor;
}

void BoardView::finishText(bool commit)
{
    QPlainTextEdit *editor = m_editor;
    if (!editor)
        return;
    m_editor = nullptr;
    TextNote *editing = m_editing;
    m_editing = nullptr;
    const QString text = editor->toPlainText().left(Annotation::kMaxText);
    editor->removeEventFilter(this);
    editor->hide();
    editor->deleteLater();
    const bool empty = text.trimmed().isEmpty();
    if (editing) {
        editing->setVisible(true);
        if (!commit || text == editing->text())
            return;
        if (empty) {
            setSelection({});
            GetFramework()->pushUndo(new RemoveItemsCmd(m_page, {editing}, T("BOARD_CMD_DELETE").arg(T("BOARD_MARK_TEXT"))));
            return;
        }
        const QByteArray from = editing->data();
        editing->setText(text);
        GetFramework()->pushUndo(new MarkDataCmd(editing, from, editing->data(), T("BOARD_CMD_EDIT").arg(T("BOARD_MARK_TEXT"))));
        return;
    }
    if (!commit || empty)
        return;
    auto *note = static_cast<TextNote *>(Annotation::create(Annotation::Text));
    styleMark(note);
    note->setText(text);
    note->setPos(m_editorScene);
    addMark(note, QStringLiteral("BOARD_CMD_TEXT"));
}

bool BoardView::eventFilter(QObject *watched, QEvent *event)
{
    if (m_editor && watched == m_editor) {
        if (event->type() == QEvent::KeyPress) {
            auto *key = static_cast<QKeyEvent *>(event);
            if (key->key() == Qt::Key_Escape) {
                finishText(false);
                setFocus();
                return true;
            }
            if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) && (key->modifiers() & Qt::ControlModifier)) {
                finishText(true);
                setFocus();
                return true;
            }
        } else if (event->type() == QEvent::FocusOut) {
            finishText(true);
        }
    }
    return QGraphicsView::eventFilter(watched, event);
}
