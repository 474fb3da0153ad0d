#pragma once
// Shared helpers for the suites: make apparatus, stream them, compare documents.
#include "docdiff.h"
#include <QByteArray>
#include <QDataStream>
#include <QJsonArray>
#include <QRegularExpression>
#include <cmath>
#include <framework.h>
#include <gtest/gtest.h>
#include <memory>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

struct ObjDeleter {
    void operator()(CWBPhysicalObject *o) const { if (o) o->Release(); }
};
using ObjPtr = std::unique_ptr<CWBPhysicalObject, ObjDeleter>;

inline ObjPtr makeObject(int type, bool defaultSize = false)
{
    return ObjPtr(createObject_physical(0, type, defaultSize));
}

inline QByteArray saveBytes(CSVGBase *c)
{
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);
    c->save(out);
    return b;
}

// Loads into a fresh container of the same type; status tells whether the stream was whole.
inline ObjPtr loadBytes(int type, const QByteArray &b, QDataStream::Status *status = nullptr)
{
    ObjPtr o = makeObject(type);
    QDataStream in(b);
    o->content()->load(in);
    if (status)
        *status = in.status();
    return o;
}

inline QString svgText(CSVGBase *c) { return QString::fromUtf8(c->document()->toSvg()); }

// Documents equal up to numbers that differ by at most tol.
inline ::testing::AssertionResult sameDocument(const QString &a, const QString &b, double tol = 1e-9)
{
    const DocDiff d = compareDocuments(a, b, tol);
    if (d.kind == DocDiff::Structure)
        return ::testing::AssertionFailure() << "documents differ in structure:\n" << a.toStdString() << "\n---\n" << b.toStdString();
    if (d.kind == DocDiff::Number)
        return ::testing::AssertionFailure() << "number " << d.index << " differs: " << d.a << " vs " << d.b;
    return ::testing::AssertionSuccess();
}

inline QJsonArray settingsOf(CSVGBase *c)
{
    QJsonArray a;
    c->GetSettingArray(a);
    return a;
}

inline QSvgNode *node(CSVGBase *c, const char *id) { return c->document()->namedNode(QLatin1String(id)); }

inline QPointF drag(CSVGBase *c, const char *handle, double dx, double dy, bool final = true)
{
    return c->moveControlPoint(node(c, handle), QPointF(dx, dy), final);
}

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString &s, std::ostream *os) { *os << '"' << s.toStdString() << '"'; }
QT_END_NAMESPACE
