#pragma once
// The pole colours of the magnets: attribute 5101 paints the north pole (red by
// default), 5102 the south pole (blue), and 5100 chooses which way round they are.
#include "Attribute.h"

namespace Poles {

enum { kDirection = 5100, kNorth = 5101, kSouth = 5102 };

// The two colour entries of the table, with their property ids and defaults.
void addColours(QMap<int, DATA_MAP_STRUCT> &table);
// Fills the named north and south parts with the table's colours. They are painted by
// the table, so the host's colour leaves them alone.
void paint(QSvgTinyDocument *doc, const QMap<int, DATA_MAP_STRUCT> &table, const char *north, const char *south);

} // namespace Poles
