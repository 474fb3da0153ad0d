#pragma once
// Artwork shared by the dial meters: case, face, scale arc with ticks, figures and
// unit letter as outlined paths, terminals. Only the pointer and its handle are live.
#include <QString>
#include <QVector>

namespace DialArt {

struct Figure {
    int division;      // tick index the figure stands at
    const char *glyph; // key of the outlined text
};

struct Dial {
    double width, height;     // drawing size
    int divisions;            // ticks from one end of the arc to the other, minus one
    int majorEvery, midEvery; // long and middle ticks
    QVector<Figure> outer;    // figures outside the arc
    QVector<Figure> inner;    // figures inside the ticks (second range; its zero is the outer one)
    const char *unit;         // glyph key of the unit letter, or null
    QVector<const char *> terminals; // glyph keys of the terminal labels, left to right
};

QString meterSvg(const Dial &dial);

} // namespace DialArt
