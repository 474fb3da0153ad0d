#pragma once
// Hands one value to SetAttribute(id, ...) through a stream, as the panel and the
// state replay do, so that the attribute's own undo, playback and redraw run.
#include <QByteArray>
#include <QColor>
#include <QDataStream>
#include <QString>
#include <svgbase.h>

namespace AttrValue {

template <typename T>
bool apply(CSVGBase &obj, int id, const T &value, bool bRecord, bool bUndo)
{
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << value;
    }
    QDataStream in(bytes);
    return obj.SetAttribute(id, in, bRecord, bUndo);
}

// A colour as the panel's colour picker sends it: "#rrggbb" or a colour name.
inline bool applyColour(CSVGBase &obj, int id, const QString &text, bool bRecord, bool bUndo)
{
    QColor c;
    c.setNamedColor(text);
    return apply(obj, id, c, bRecord, bUndo);
}

} // namespace AttrValue
