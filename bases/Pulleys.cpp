#include "Pulleys.h"
#include <cmath>
#include <svgnode.h>

namespace Pulleys {

namespace {

using SvgNumbers::format;

const char *const kRopeStyle = "fill=\"none\" stroke=\"#8A6A3C\" stroke-width=\"2.4\" stroke-linecap=\"round\""
                               " vector-effect=\"none\"";

} // namespace

QString defsSvg()
{
    return QStringLiteral(
        "<radialGradient id=\"pl_rim\" cx=\"0.42\" cy=\"0.38\" r=\"0.65\">"
        "<stop offset=\"0\" stop-color=\"#E8ECEF\"/><stop offset=\"0.7\" stop-color=\"#A9B2BA\"/>"
        "<stop offset=\"1\" stop-color=\"#6B757F\"/></radialGradient>\n"
        "<linearGradient id=\"pl_strap\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#5E6770\"/><stop offset=\"0.45\" stop-color=\"#C9D0D6\"/>"
        "<stop offset=\"1\" stop-color=\"#56606A\"/></linearGradient>\n"
        "<linearGradient id=\"pl_wood\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#D9B57E\"/><stop offset=\"1\" stop-color=\"#B08850\"/></linearGradient>\n");
}

QString wheelSvg(const QString &id, double cx, double cy, double r)
{
    // Rim, groove, a web with four holes, hub and axle: a cast pulley seen face on.
    const double hole = r * 0.2, at = r * 0.52;
    QString holes;
    for (int k = 0; k < 4; ++k) {
        const double a = k * 3.141592653589793 / 2 + 0.785398163397448;
        holes += QStringLiteral("<circle cx=\"%1\" cy=\"%2\" r=\"%3\" fill=\"#59636D\" fill-opacity=\"0.55\"/>")
                     .arg(format(cx + at * std::cos(a)), format(cy + at * std::sin(a)), format(hole));
    }
    return QStringLiteral("<g id=\"%1\">"
                          "<circle cx=\"%2\" cy=\"%3\" r=\"%4\" fill=\"url(#pl_rim)\" stroke=\"#4A5560\" stroke-width=\"1.2\""
                          " vector-effect=\"none\"/>"
                          "<circle cx=\"%2\" cy=\"%3\" r=\"%5\" fill=\"none\" stroke=\"#4A5560\" stroke-width=\"0.8\""
                          " stroke-opacity=\"0.7\" vector-effect=\"none\"/>"
                          "%6"
                          "<circle cx=\"%2\" cy=\"%3\" r=\"%7\" fill=\"#C9D0D6\" stroke=\"#4A5560\" stroke-width=\"0.8\""
                          " vector-effect=\"none\"/>"
                          "<circle cx=\"%2\" cy=\"%3\" r=\"2.2\" fill=\"#3A434C\"/>"
                          "</g>\n")
        .arg(id, format(cx), format(cy), format(r), format(r - 3), holes, format(std::max(3.5, r * 0.25)));
}

QString ceilingSvg(const QString &id, double x1, double x2)
{
    QString hatch;
    for (double x = x1 + 4; x < x2; x += 8)
        hatch += QStringLiteral("M%1,0 L%2,-6 ").arg(format(x), format(x + 6));
    return QStringLiteral("<g id=\"%1\">"
                          "<path d=\"%2\" fill=\"none\" stroke=\"#7A5A2E\" stroke-width=\"1\" vector-effect=\"none\"/>"
                          "<rect x=\"%3\" y=\"0\" width=\"%4\" height=\"10\" fill=\"url(#pl_wood)\" stroke=\"#7A5A2E\""
                          " stroke-width=\"1\" vector-effect=\"none\"/>"
                          "</g>\n")
        .arg(id, hatch.trimmed(), format(x1), format(x2 - x1));
}

QString bracketSvg(const QString &id, double cx, double topY, double axleY)
{
    return QStringLiteral("<g id=\"%1\">"
                          "<rect x=\"%2\" y=\"%3\" width=\"14\" height=\"7\" rx=\"1.5\" ry=\"1.5\" fill=\"url(#pl_strap)\""
                          " stroke=\"#4A5560\" stroke-width=\"0.8\" vector-effect=\"none\"/>"
                          "<rect x=\"%4\" y=\"%5\" width=\"4\" height=\"7\" fill=\"url(#pl_strap)\" stroke=\"#4A5560\""
                          " stroke-width=\"0.6\" vector-effect=\"none\"/>"
                          "<path d=\"M%6,%7 H%8 L%9,%10 A7,7 0 0 1 %11,%10 Z\" fill=\"url(#pl_strap)\" stroke=\"#4A5560\""
                          " stroke-width=\"0.8\" stroke-linejoin=\"round\" vector-effect=\"none\"/>"
                          "</g>\n")
        .arg(id, format(cx - 7), format(topY), format(cx - 2), format(topY + 7), format(cx - 5), format(topY + 14), format(cx + 5), format(cx + 7))
        .arg(format(axleY), format(cx - 7));
}

QString strapSvg(double cx, double axleY, double bottomY)
{
    return QStringLiteral("<path d=\"M%1,%2 A7,7 0 0 1 %3,%2 L%4,%5 H%6 Z\" fill=\"url(#pl_strap)\" stroke=\"#4A5560\""
                          " stroke-width=\"0.8\" stroke-linejoin=\"round\" vector-effect=\"none\"/>"
                          "<circle cx=\"%7\" cy=\"%2\" r=\"3\" fill=\"#3A434C\" stroke=\"#C9D0D6\" stroke-width=\"0.6\""
                          " vector-effect=\"none\"/>")
        .arg(format(cx - 7), format(axleY), format(cx + 7), format(cx + 5), format(bottomY), format(cx - 5), format(cx));
}

QString hookPath(double x, double y)
{
    // A short shank, then the bend opening to the left.
    return QStringLiteral("M%1,%2 V%3 A5,5 0 1 1 %4,%5 V%6")
        .arg(format(x), format(y), format(y + 11), format(x - 10), format(y + 11), format(y + 8));
}

QString ropeSvg(const QString &id, QPointF a, QPointF b)
{
    return QStringLiteral("<line id=\"%1\" x1=\"%2\" y1=\"%3\" x2=\"%4\" y2=\"%5\" %6/>\n")
        .arg(id, format(a.x()), format(a.y()), format(b.x()), format(b.y()), QLatin1String(kRopeStyle));
}

QString lapSvg(const QString &id, double cx, double cy, double r, bool over)
{
    return QStringLiteral("<path id=\"%1\" d=\"M%2,%3 A%4,%4 0 0 %5 %6,%3\" %7/>\n")
        .arg(id, format(cx - r), format(cy), format(r), over ? QStringLiteral("1") : QStringLiteral("0"), format(cx + r),
             QLatin1String(kRopeStyle));
}

void setLine(QSvgNode *line, QPointF a, QPointF b)
{
    if (!line)
        return;
    static const QString x1 = QStringLiteral("x1"), y1 = QStringLiteral("y1"), x2 = QStringLiteral("x2"),
                         y2 = QStringLiteral("y2");
    line->setNumAttribute(x1, a.x());
    line->setNumAttribute(y1, a.y());
    line->setNumAttribute(x2, b.x());
    line->setNumAttribute(y2, b.y());
}

void centreOn(QSvgNode *handle, QPointF p)
{
    if (!handle)
        return;
    const QRectF box = handle->rect();
    handle->setNumAttribute(QStringLiteral("x"), p.x() - box.width() / 2);
    handle->setNumAttribute(QStringLiteral("y"), p.y() - box.height() / 2);
}

} // namespace Pulleys
