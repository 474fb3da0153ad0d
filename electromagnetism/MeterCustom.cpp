#include "MeterCustom.h"
#include "DialArt.h"
#include <svgobj.h>

CMeterCustom::CMeterCustom(CSVGObj *owner) : CMeter(owner) {}

CMeterCustom::~CMeterCustom() = default;

QString CMeterCustom::getSVG()
{
    static const QString svg = DialArt::meterSvg(
        {212.713, 207.87, 30, 5, 0,
         {{0, "0"}, {5, "1"}, {10, "2"}, {15, "3"}, {20, "4"}, {25, "5"}, {30, "6"}}, {}, nullptr, {"t-", "t+"}});
    return svg;
}

int CMeterCustom::getSVGType() { return 406; }

void CMeterCustom::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    double reading = scaleFraction(getAngle()) * 6;
    if (reading < 0.1)
        reading = 0;
    array.append(valueItem(reading, 1, QStringLiteral("0"), QStringLiteral("6")));
}

void CMeterCustom::angelChangedByControl(double angle)
{
    postSetting(QStringLiteral("idMeterValue"), readingText(scaleFraction(angle) * 6, 2));
}

bool CMeterCustom::SetSettingArray(QMap<QString, QString> &values, bool, bool)
{
    double typed = 0;
    if (typedReading(values, true, typed))
        setTypedAngle(typed * (maxAngle - minAngle) / 6 + minAngle);
    return true;
}
