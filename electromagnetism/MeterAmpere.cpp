#include "MeterAmpere.h"
#include "DialArt.h"
#include <svgobj.h>

namespace {
constexpr double kRange[] = {0.6, 3.0};
} // namespace

CMeterAmpere::CMeterAmpere(CSVGObj *owner) : CMeter(owner)
{
    // The range is no part of the stream; the host keeps it with the object.
    keepValue(QStringLiteral("grade"), &grade, 0, 1);
}

CMeterAmpere::~CMeterAmpere() = default;

QString CMeterAmpere::getSVG()
{
    static const QString svg = DialArt::meterSvg(
        {214.566, 209.681, 30, 10, 5, {{0, "0"}, {10, "1"}, {20, "2"}, {30, "3"}},
         {{10, "0.2"}, {20, "0.4"}, {30, "0.6"}}, "A", {"t-", "t0.6", "t3"}});
    return svg;
}

int CMeterAmpere::getSVGType() { return 403; }

void CMeterAmpere::GetSettingArray(QJsonArray &array)
{
    if (m_pOwner)
        appendRangeItems(array, grade, QStringLiteral("IDS_PHYSICAL_CURRENT_METER_GRADE1"),
                         QStringLiteral("IDS_PHYSICAL_CURRENT_METER_GRADE2"), kRange[0], kRange[1]);
}

void CMeterAmpere::angelChangedByControl(double angle) { postRangeReading(angle, kRange[grade == 0 ? 0 : 1]); }

bool CMeterAmpere::SetSettingArray(QMap<QString, QString> &values, bool, bool)
{
    if (applyGradeSetting(values, grade))
        return true;
    double reading = 0;
    if (typedReading(values, false, reading))
        setTypedReading(reading, kRange[grade == 0 ? 0 : 1]);
    return true;
}

bool CMeterAmpere::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CMeter::SetAttribute(id, in, bRecord, bUndo);
    keepGrade(id, grade, savedGrade);
    return r;
}
