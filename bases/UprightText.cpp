#include "UprightText.h"
#include <QFontMetricsF>
#include <cmath>
#include <svgnode.h>

namespace UprightText {

void placeBeyond(QSvgNode *text, QPointF point, QPointF dir, double gap)
{
    if (!text || text->type() != QSvgNode::Text)
        return;
    const QFontMetricsF fm(static_cast<QSvgText *>(text)->font());
    const double w = fm.horizontalAdvance(QSvgText::drawnText(text->text()));
    // Figures and capitals fill the cap height; that is the box a reader sees.
    const double h = fm.capHeight();
    // How far the box's centre must stand from the point for its near side to be `gap` off.
    const double reach = gap + std::fabs(dir.x()) * w / 2 + std::fabs(dir.y()) * h / 2;
    const QPointF centre = point + dir * reach;
    if (!std::isfinite(centre.x()) || !std::isfinite(centre.y()))
        return;
    text->setNumAttribute(QStringLiteral("x"), centre.x());
    text->setNumAttribute(QStringLiteral("y"), centre.y() + h / 2);
}

} // namespace UprightText
