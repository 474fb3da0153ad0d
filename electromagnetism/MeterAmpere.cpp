#include "MeterAmpere.h"
#include "DialArt.h"
#include <svgobj.h>

namespace {
constexpr double kRange[] = {0.6, 3.0};
} // namespace

CMeterAmpere::CMeterAmpere(CSVGObj *owner) : CMeter(owner) {}

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
    if (!m_pOwner)
        return;
    array.append(gradeItem(grade, QStringLiteral("IDS_PHYSICAL_CURRENT_METER_GRADE1"),
                           QStringLiteral("IDS_PHYSICAL_CURRENT_METER_GRADE2")));
    double reading = scaleFraction(getAngle()) * (grade == 0 ? 0.6 : 3.0);
    if (reading < 0.01)
        reading = 0;
    array.append(valueItem(reading, 2, QStringLiteral("0"), grade == 0 ? QStringLiteral("0.6") : QStringLiteral("3")));
}

void CMeterAmpere::angelChangedByControl(double angle)
{
    double reading = scaleFraction(angle) * (grade == 0 ? 0.6 : 3.0);
    if (reading < 0.01)
        reading = 0;
    postSetting(QStringLiteral("idMeterValue"), readingText(reading, 2));
}

bool CMeterAmpere::SetSettingArray(QMap<QString, QString> &values, bool, bool)
{
    const auto g = values.constFind(QStringLiteral("idMeterGrade"));
    if (g != values.cend()) {
        changeGrade(grade, g->toInt(nullptr, 10));
        return true;
    }
    const auto v = values.constFind(QStringLiteral("idMeterValue"));
    if (v != values.cend())
        setTypedAngle(v->toDouble() * (maxAngle - minAngle) / kRange[grade == 0 ? 0 : 1] + minAngle);
    return true;
}

bool CMeterAmpere::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CMeter::SetAttribute(id, in, bRecord, bUndo);
    if (id == ATTR_CAPTURE)
        savedGrade = grade;
    else if (id == ATTR_RESTORE)
        grade = savedGrade;
    return r;
}
