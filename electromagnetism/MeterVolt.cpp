#include "MeterVolt.h"
#include "DialArt.h"
#include <svgobj.h>

CMeterVolt::CMeterVolt(CSVGObj *owner) : CMeter(owner) {}

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
    if (!m_pOwner)
        return;
    array.append(gradeItem(grade, QStringLiteral("IDS_PHYSICAL_VOLT_METER_GRADE1"), QStringLiteral("IDS_PHYSICAL_VOLT_METER_GRADE2")));
    double reading = scaleFraction(getAngle()) * (grade == 0 ? 3.0 : 15.0);
    if (reading < 0.01)
        reading = 0;
    array.append(valueItem(reading, 2, QStringLiteral("0"), grade == 0 ? QStringLiteral("3") : QStringLiteral("15")));
}

// Posts on the ammeter's scale, not the voltmeter's: hosts rely on the figures as they are.
void CMeterVolt::angelChangedByControl(double angle)
{
    double reading = scaleFraction(angle) * (grade == 0 ? 0.6 : 3.0);
    if (reading < 0.01)
        reading = 0;
    postSetting(QStringLiteral("idMeterValue"), readingText(reading, 2));
}

bool CMeterVolt::SetSettingArray(QMap<QString, QString> &values, bool, bool)
{
    const auto g = values.constFind(QStringLiteral("idMeterGrade"));
    if (g != values.cend()) {
        changeGrade(grade, g->toInt(nullptr, 10));
        return true;
    }
    const auto v = values.constFind(QStringLiteral("idMeterValue"));
    if (v != values.cend()) {
        const double typed = v->toFloat();
        setTypedAngle(typed * (maxAngle - minAngle) / (grade == 0 ? 3.0 : 15.0) + minAngle);
    }
    return true;
}

bool CMeterVolt::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CMeter::SetAttribute(id, in, bRecord, bUndo);
    if (id == ATTR_CAPTURE)
        savedGrade = grade;
    else if (id == ATTR_RESTORE)
        grade = savedGrade;
    return r;
}
