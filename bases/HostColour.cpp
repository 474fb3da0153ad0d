#include "HostColour.h"
#include <svgbase.h>

namespace HostColour {

void paintsOnly(CSVGBase &obj, const QStringList &ids)
{
    QSvgTinyDocument *doc = obj.document();
    if (!doc)
        return;
    SvgTree::forEach(doc, [&](QSvgNode *n) {
        if (n == doc || n->type() == QSvgNode::Group || n->nodeId().startsWith(QLatin1String("control_")))
            return;
        bool body = false;
        for (const QSvgNode *p = n; p && p != doc && !body; p = p->parent())
            body = ids.contains(p->nodeId());
        n->setFillEnabled(body);
        n->setStrokeEnabled(body);
    });
}

} // namespace HostColour
