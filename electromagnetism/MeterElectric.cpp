#include "MeterElectric.h"
#include "DialArt.h"
#include <svgobj.h>

CMeterElectric::CMeterElectric(CSVGObj *owner) : CMeter(owner) { startMode = 1; }

CMeterElectric::~CMeterElectric() = default;

QString CMeterElectric::getSVG()
{
    static const QString svg = DialArt::meterSvg(
        {214.139, 209.372, 60, 10, 5,
         {{0, "-30"}, {10, "-20"}, {20, "-10"}, {30, "0"}, {40, "10"}, {50, "20"}, {60, "30"}}, {}, "G", {"t-", "t+"}});
    return svg;
}

int CMeterElectric::getSVGType() { return 405; }

// The panel shows 0.0 for every reading left of the middle; kept as hosts know it.
void CMeterElectric::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    double reading = scaleFraction(getAngle()) * 60 - 30;
    if (reading < 0.1)
        reading = 0;
    array.append(valueItem(reading, 1, QStringLiteral("-30"), QStringLiteral("30")));
}

void CMeterElectric::angelChangedByControl(double angle)
{
    postSetting(QStringLiteral("idMeterValue"), readingText(scaleFraction(angle) * 60 - 30, 2));
}

bool CMeterElectric::SetSettingArray(QMap<QString, QString> &values, bool, bool)
{
    double typed = 0;
    // No number (NaN, infinity, text) is no reading: the pointer stays.
    if (typedReading(values, true, typed))
        setTypedAngle((typed + 30) * (maxAngle - minAngle) / 60 + minAngle);
    return true;
}
