#pragma once
// Which parts of a drawing the host's colour (attribute 5002) paints. An instrument's
// scale, pointer, liquid or glass carry meaning in their own colours; only its body
// (a case, a foot, a board) should take the colour a teacher picks.
#include <QStringList>

class CSVGBase;

namespace HostColour {

// Every shape of the drawing opts out of the host's colour except the nodes named (and
// what lies inside them). Copies made later of a shape keep its choice.
void paintsOnly(CSVGBase &obj, const QStringList &ids);

} // namespace HostColour
