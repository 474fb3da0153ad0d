#pragma once
// Which shapes of a drawing the host colours (5002, 5005) may repaint. Artwork drawn in
// its own colours (gradients aside, which the host leaves alone) opts out, so that the
// host colour paints only the parts it names: a holder's base, a coil's wire.
#include <initializer_list>
#include <svgtinydocument.h>

namespace HostPaint {

inline void only(QSvgTinyDocument *doc, std::initializer_list<const char *> ids)
{
    if (!doc)
        return;
    SvgTree::forEach(doc, [&](QSvgNode *n) {
        switch (n->type()) {
        case QSvgNode::Rect: case QSvgNode::Line: case QSvgNode::Path: case QSvgNode::Polygon:
        case QSvgNode::Polyline: case QSvgNode::Ellipse: case QSvgNode::Circle:
            break;
        default:
            return;
        }
        const QString id = n->nodeId();
        for (const char *keep : ids)
            if (id == QLatin1String(keep))
                return;
        n->setFillEnabled(false);
        n->setStrokeEnabled(false);
    });
}

} // namespace HostPaint
