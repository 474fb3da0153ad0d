#include "ShownValues.h"
#include <svgbase.h>

namespace ShownValues {

void postChanged(const Texts &before, const Texts &now)
{
    Texts changed;
    for (const auto &value : now)
        if (!before.contains(value))
            changed.append(value);
    if (!changed.isEmpty())
        CSVGBase::postSettings(changed);
}

} // namespace ShownValues
