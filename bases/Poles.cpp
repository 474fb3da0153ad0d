#include "Poles.h"

namespace Poles {

void addColours(QMap<int, DATA_MAP_STRUCT> &table)
{
    DATA_MAP_STRUCT n;
    n.propId = 1102;
    n.dataType = 3;
    n.name = QStringLiteral("IDS_SVG_PHYSICAL_NORTH_COLOR");
    n.color = QColor(0xE5, 0x39, 0x35);
    table.insert(kNorth, n);
    DATA_MAP_STRUCT s = n;
    s.propId = 1103;
    s.name = QStringLiteral("IDS_SVG_PHYSICAL_SOUTH_COLOR");
    s.color = QColor(0x1E, 0x63, 0xD6);
    table.insert(kSouth, s);
}

void paint(QSvgTinyDocument *doc, const QMap<int, DATA_MAP_STRUCT> &table, const char *north, const char *south)
{
    if (!doc)
        return;
    const std::pair<const char *, int> parts[] = {{north, kNorth}, {south, kSouth}};
    for (const auto &p : parts) {
        QSvgNode *n = doc->namedNode(QLatin1String(p.first));
        const auto it = table.constFind(p.second);
        if (!n || it == table.cend())
            continue;
        n->setFillEnabled(false);
        n->setFillColor(it->color);
    }
}

} // namespace Poles
