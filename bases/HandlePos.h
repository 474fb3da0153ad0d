#pragma once
// A handle whose place the panel shows as a percentage of its travel ("idPosValue"):
// reading and moving it, the percentage, the panel input, and the place a typed
// percentage stands for. The apparatus keep their own guard and call these.
#include <QMap>
#include <QPointF>
#include <QString>
#include <cstddef>

class CSVGBase;
class QJsonArray;

namespace HandlePos {

enum Axis { X, Y };

// The handle's x or y attribute; 0 when the template has no such handle.
double get(const CSVGBase &obj, int index, Axis axis);
// Writes pos into the handle and hands the move to updateSVG as a final drag by
// (pos - old), with `guard` set meanwhile so that the move does not echo to the panel.
// A missing handle, or a pos that is no number or lies past the extent every drawing
// keeps within, changes nothing.
void set(CSVGBase &obj, int index, Axis axis, double pos, bool &guard);
// (pos - lo) * 100 / (hi - lo), truncated; 0 for an empty range. A value within
// rounding error of a whole number counts as that number: a typed 29 reads back 29.
int percentOf(double pos, double lo, double hi);
// pos as a percentage of the handle's travel between its bounds along axis.
int percent(CSVGBase &obj, int index, Axis axis, double pos);
// Appends the panel's input "idPosValue" (int, 0 to 100) showing p.
void appendInput(CSVGBase &obj, QJsonArray &array, const QString &label, int p);
// How a typed percentage is read.
enum Reading {
    Integer,     // an integer, taken as it is, past 0..100 too; other text is refused
    IntOrZero,   // as QString::toInt reads it: text that is no integer reads 0
    Decimal,     // a decimal, rounded, held to 0..100; text that is no number is refused
};
// The place a panel "idPosValue" asks for: the value (taken from the other end when
// mirrored) as a percentage of the handle's travel. False when the map has no such
// key, the template no such handle, or the text is refused.
bool target(CSVGBase &obj, const QMap<QString, QString> &values, int index, Axis axis, bool mirrored, double &pos,
            Reading reading = Integer);

// One panel percentage driven by one handle along one axis (a length, a thickness, a
// radius), for apparatus that show several: slot i of posChangedByControl(int),
// getControlPos(int) and setControlPos(int, double). The quantity's range is the handle's
// travel; it grows with the handle's coordinate, or against it when `mirrored` (a top
// edge dragged up thickens a board).
struct Slot {
    int handle;
    Axis axis;
    const char *key;    // "idLength"
    const char *label;  // "IDS_PHYSICSOBJ_LENGTH"
    bool mirrored;
};
// The quantity as a percentage of its range at handle place pos, truncated.
int percent(CSVGBase &obj, const Slot &slot, double pos);
int percent(CSVGBase &obj, const Slot &slot);
// Appends the panel's input for the slot (int, 0 to 100).
void appendInput(CSVGBase &obj, QJsonArray &array, const Slot &slot);
// The handle place the panel value of slot.key asks for, read as a Decimal.
bool target(CSVGBase &obj, const QMap<QString, QString> &values, const Slot &slot, double &pos);
// Posts the slot's percentage to the panel.
void post(CSVGBase &obj, const Slot &slot);
// Moves the slot's handle to pos, held to its travel (see set).
void setWithin(CSVGBase &obj, const Slot &slot, double pos, bool &guard);

// An apparatus's slots by index, as posChangedByControl(int) and its siblings take them;
// an index past them does nothing (reads 0).
struct Slots {
    const Slot *first;
    int count;
    template <std::size_t N>
    Slots(const Slot (&s)[N]) : first(s), count(int(N)) {}
    const Slot *at(int i) const { return i >= 0 && i < count ? first + i : nullptr; }
};
void post(CSVGBase &obj, Slots all, int index);
double get(const CSVGBase &obj, Slots all, int index);
void setWithin(CSVGBase &obj, Slots all, int index, double pos, bool &guard);
// Moves every slot's handle to the place its typed percentage asks for.
void setTyped(CSVGBase &obj, const QMap<QString, QString> &values, Slots all, bool &guard);

// A handle that turns about a pivot (a bar's end, an arrow's tip, a needle's point).
// Angles are degrees anticlockwise from the positive x axis with y up on screen, in
// (-180, 180], as a mathematics lesson counts them.
struct Polar {
    double angle = 0;     // 0 when the handle sits on the pivot
    double distance = 0;
};
// Where the handle's centre stands, seen from the pivot.
Polar polar(const CSVGBase &obj, int index, QPointF pivot);
// Puts the handle's centre at that angle and distance from the pivot (no updateSVG).
void placeAt(CSVGBase &obj, int index, QPointF pivot, const Polar &where);
// The end of a bar turning about pivot, as the handle stands: its direction held to
// [minAngle, maxAngle] and its distance to [minDistance, maxDistance]. A handle on the
// pivot points at minAngle or 0, whichever lies in the range.
Polar heldPolar(const CSVGBase &obj, int index, QPointF pivot, double minAngle, double maxAngle, double minDistance,
                double maxDistance);
// The handle's top-left that puts its centre at `where` from pivot: for moveTo.
QPointF topLeftAt(const CSVGBase &obj, int index, QPointF pivot, const Polar &where);

// Puts the handle back on the bar's end at `where`, unless it stands there already to
// within rounding, and returns where it now stands seen from pivot. Drawing from that,
// not from `where`, draws a reopened object, whose handle is read back, the same. An
// angle or distance within rounding of a whole number reads as that number.
Polar putBack(CSVGBase &obj, int index, QPointF pivot, const Polar &where);

// A number typed into the panel under key: read as a decimal, rounded when `whole`, held
// to lo..hi. False when the key is missing or the text is no finite number.
bool typedNumber(const QMap<QString, QString> &values, const QString &key, double lo, double hi, bool whole, double &v);

// The handle's centre, the point it marks; (0, 0) when there is no such handle.
QPointF centre(const CSVGBase &obj, int index);
// Puts the handle's centre on p (no updateSVG): for handles the code places.
void placeCentre(CSVGBase &obj, int index, QPointF p);
// Moves the handle's top-left to pos on both axes and hands the move to updateSVG as
// a final drag, with `guard` set meanwhile; nothing for a place past the extent.
void moveTo(CSVGBase &obj, int index, QPointF pos, bool &guard);

// A tip handle that sets a direction and a length (a force arrow, a velocity, a needle's
// point): where the handle stands seen from the pivot, its distance held to [lo, hi].
// A handle on the pivot has no direction of its own and keeps `keepAngle`.
Polar tip(const CSVGBase &obj, int index, QPointF pivot, double lo, double hi, double keepAngle);
// An angle as the panel shows it: whole degrees, halves away from zero, in (-180, 180].
int shownDegrees(double angle);
// A typed angle: a number held to [-180, 180] and rounded to whole degrees (-180 reads
// 180); false for text that is no number.
bool typedDegrees(const QString &text, int &degrees);
// Inputs under other keys ("idLength", "idWidth") and handles turned to a typed angle.

// Appends an input like appendInput's under another key.
void appendInput(CSVGBase &obj, QJsonArray &array, const QString &key, const QString &label, int p);
// The same as target for a percentage typed under another key.
bool target(CSVGBase &obj, const QMap<QString, QString> &values, const QString &key, int index, Axis axis, bool mirrored,
            double &pos, Reading reading = Decimal);
// Turns the handle to `angle` about the pivot at the distance it stands at, and hands
// the move to updateSVG as a final drag, with `guard` set meanwhile (a typed angle).
void turnTo(CSVGBase &obj, int index, QPointF pivot, double angle, bool &guard);
// A handle's place pos along axis as an exact share of its travel, 0 to 100 (a slider
// saved to the last bit); 0 for a missing handle or an empty travel.
double exactPercent(CSVGBase &obj, int index, Axis axis, double pos);

} // namespace HandlePos
