#include "MeterVolt.h"
#include "DialArt.h"
#include <svgobj.h>

CMeterVolt::CMeterVolt(CSVGObj *owner) : CMeter(owner)
{
    // The range is no part of the stream; the host keeps it with the object.
    keepValue(QStringLiteral("grade"), &grade, 0, 1);
}

CMeterVolt::~CMeterVolt() = default;

QString CMeterVolt::getSVG()
{
    static const QString svg = DialArt::meterSvg(
        {214.447, 209.564, 30, 10, 5, {{0, "0"}, {10, "5"}, {20, "10"}, {30, "15"}},
         {{10, "1"}, {20, "2"}, {30, "3"}}, "V", {"t-", "t3", "t15"}});
    return svg;
}

int CMeterVolt::getSVGType() { return 404; }

void CMeterVolt::GetSettingArray(QJsonArray &array)
{
    if (m_pOwner)
        appendRangeItems(array, grade, QStringLiteral("IDS_PHYSICAL_VOLT_METER_GRADE1"),
                         QStringLiteral("IDS_PHYSICAL_VOLT_METER_GRADE2"), 3.0, 15.0);
}

// Posts on the ammeter's scale, not the voltmeter's: hosts rely on the figures as they are.
void CMeterVolt::angelChangedByControl(double angle) { postRangeReading(angle, grade == 0 ? 0.6 : 3.0); }

bool CMeterVolt::SetSettingArray(QMap<QString, QString> &values, bool, bool)
{
    if (applyGradeSetting(values, grade))
        return true;
    double reading = 0;
    // Typed values are read in single precision.
    if (typedReading(values, true, reading))
        setTypedReading(reading, grade == 0 ? 3.0 : 15.0);
    return true;
}

bool CMeterVolt::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CMeter::SetAttribute(id, in, bRecord, bUndo);
    keepGrade(id, grade, savedGrade);
    return r;
}
