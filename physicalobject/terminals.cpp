// Where wires attach to each apparatus: the free ends of a symbol's leads and the
// binding posts of real apparatus, in the units of the type's template. A host maps
// them through the document's view box and the item's transform, as it does handles.
#include "physicalobject.h"

namespace {

struct TerminalRow {
    int type;
    int count;
    QPointF points[4];
};

const TerminalRow kTerminals[] = {
    // switch: the tops of its two binding posts
    {400, 2, {{24, 82}, {194, 82}}},
    // knob: where its outer ring meets the horizontal through the centre
    {401, 2, {{8, 39}, {70, 39}}},
    // bulb in its holder: the two screw tops on the socket
    {402, 2, {{26, 125}, {94, 125}}},
    // meters: the binding posts along the bottom, negative first
    {403, 3, {{52, 189}, {107, 189}, {162, 189}}},
    {404, 3, {{52, 189}, {107, 189}, {162, 189}}},
    {405, 2, {{70, 189}, {144, 189}}},
    {406, 2, {{70, 189}, {144, 189}}},
    // sliding rheostat: the posts at the tube's ends, then at the bar's ends
    {407, 4, {{31, 92}, {249, 92}, {31, 21}, {249, 21}}},
    // circuit symbols: the outer ends of their leads
    {700, 2, {{2.132, 14.182}, {26.015, 14.182}}},
    {701, 2, {{1.251, 12.228}, {46.314, 12.228}}},
    {702, 3, {{0, 14.156}, {60, 8.265}, {60, 19.75}}},
    {703, 2, {{0, 9}, {60, 9}}},
    {704, 2, {{0, 15.981}, {78, 15.981}}},
    {705, 2, {{17, 64}, {33, 64}}},
    {706, 2, {{0, 15}, {43, 15}}},
    {707, 2, {{0, 15.5}, {43, 15.5}}},
    {708, 2, {{0, 15.5}, {45, 15.5}}},
    {709, 2, {{0, 15.5}, {45, 15.5}}},
    {710, 2, {{1.5, 10.25}, {70.25, 10.25}}},
    // rheostat symbol: the resistor's leads and the slider's lead
    {711, 3, {{1.5, 26.25}, {70.25, 26.25}, {70.25, 5}}},
    {712, 1, {{10, 0}}},
    {713, 2, {{1.5, 14.25}, {47.906, 14.25}}},
    // speaker: the two corners of its back
    {714, 2, {{2, 14}, {2, 26}}},
};

} // namespace

const QPointF *physical_Terminals(int typeId, int *count)
{
    for (const TerminalRow &r : kTerminals) {
        if (r.type == typeId) {
            if (count)
                *count = r.count;
            return r.points;
        }
    }
    if (count)
        *count = 0;
    return nullptr;
}
