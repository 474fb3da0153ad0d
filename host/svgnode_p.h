#pragma once
// What the host's node files share and no one else sees: the attribute names looked up
// on every drag step, and the readers and writers of the texts nodes keep.
#include "svgnode.h"
#include <QColor>
#include <QTransform>

namespace SvgNodeDetail {

extern const QString kId;
extern const QString kStyle;
extern const QString kTransform;
extern const QString kRotateAngle;
extern const QString kRotateX;
extern const QString kRotateY;

// Attribute names are looked up on every step of a drag; most candidates differ in
// length, which is checked here without a call into QtCore.
inline bool sameName(const QString &a, const QString &b)
{
    const int n = a.size();
    if (a.constData() == b.constData())
        return n == b.size();
    if (n != b.size())
        return false;
    const QChar *x = a.constData(), *y = b.constData();
    for (int i = 0; i < n; ++i)
        if (x[i] != y[i])
            return false;
    return true;
}

QVector<QSvgNode::Attr> parseStyle(const QString &s);
QString writeStyle(const QVector<QSvgNode::Attr> &style);
QTransform parseTransform(const QString &text);
QColor parsePaintColor(const QString &v);
// Reads one number at p (sign, digits, fraction, exponent) and moves p past it; with a
// null end, stops at a null character.
bool readNumber(const QChar *&p, const QChar *end, double &value);

} // namespace SvgNodeDetail
