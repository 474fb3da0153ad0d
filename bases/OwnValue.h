#pragma once
// A panel value an apparatus keeps itself, with no attribute table behind it (a
// bulb's switch, a slider's place): its change makes the undo command and the
// playback record under its property id, as an attribute's change does, before the
// apparatus stores it. Inside the host's edit path both become parts of its one step.
#include <svgbase.h>
#include <svgbaseundocmd.h>

namespace OwnValue {

inline void noteChange(CSVGBase &obj, int propId, bool before, bool after, bool bRecord, bool bUndo)
{
    if (bUndo) {
        auto *cmd = new CSVGBaseUndoCmd(&obj, propId, nullptr, true);
        cmd->setBool(before, after);
        obj.addUndoRedo(cmd);
    }
    if (bRecord)
        obj.RecordBool(after, propId);
}

inline void noteChange(CSVGBase &obj, int propId, int before, int after, bool bRecord, bool bUndo)
{
    if (bUndo) {
        auto *cmd = new CSVGBaseUndoCmd(&obj, propId, nullptr, true);
        cmd->setInt(before, after);
        obj.addUndoRedo(cmd);
    }
    if (bRecord)
        obj.RecordInt(after, propId);
}

// A switch as the panel sends it: exactly "true" turns it on.
inline bool switchText(const QString &text) { return text == QLatin1String("true"); }

} // namespace OwnValue
