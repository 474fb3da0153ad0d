#include "Calibration.h"
#include "bases/HandlePos.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kUnitAttr = 5100;
constexpr double kCalibrationTop = 0, kWidth = 50, kCalibrationMinLength = 60, kCalibrationMaxLength = 1000;
constexpr double kMargin = 5, kCalibrationPitch = 4;
constexpr double kMinor = 8, kMedium = 12, kLong = 17;

const HandlePos::Slot kCalibrationSlots[] = {{0, HandlePos::Y, "idPosValue", "IDS_PHYSICSOBJ_LENGTH", false}};

double tickLength(int i) { return i % 10 == 0 ? kLong : i % 5 == 0 ? kMedium : kMinor; }

} // namespace

Calibration::Calibration(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
}

Calibration::~Calibration() = default;

QString Calibration::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"51px\" height=\"215px\""
        " viewBox=\"-0.5 -0.5 51 215\">\n"
        "<defs>\n"
        "<linearGradient id=\"cb_face\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\"/><stop offset=\"0.7\" stop-color=\"#F7F5EE\"/>"
        "<stop offset=\"1\" stop-color=\"#E4E1D6\"/></linearGradient>\n"
        "</defs>\n"
        "<rect id=\"strip\" x=\"0\" y=\"0\" width=\"50\" height=\"210\" rx=\"1.5\" ry=\"1.5\" fill=\"url(#cb_face)\""
        " stroke=\"#4A5560\" stroke-width=\"1\" vector-effect=\"non-scaling-stroke\"/>\n"
        "<line id=\"edge\" x1=\"0.8\" y1=\"1\" x2=\"0.8\" y2=\"209\" stroke=\"#FFFFFF\" stroke-width=\"1\"/>\n"
        "<line id=\"line_1\" x1=\"0\" y1=\"5\" x2=\"17\" y2=\"5\" stroke=\"#1A1A1A\" stroke-width=\"0.8\""
        " vector-effect=\"non-scaling-stroke\"/>\n"
        "<text id=\"text_0\" x=\"20\" y=\"9\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"11\""
        " fill=\"#1A1A1A\">0</text>\n"
        "<text id=\"unit\" x=\"47\" y=\"206\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"10\""
        " font-style=\"italic\" text-anchor=\"end\" fill=\"#3A434C\">cm</text>\n"
        "<rect id=\"control_1\" x=\"20.5\" y=\"205.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " y_from=\"55.5\" y_to=\"995.5\"/>\n"
        "</svg>\n");
}

int Calibration::getSVGType() { return 111; }

void Calibration::ResetAtrribute() { addAttribute(kUnitAttr, 1101, 1, QStringLiteral("IDS_SVG_PHYSICAL_UNIT"), 1); }

QByteArray Calibration::GetComboboxData()
{
    return comboData({QStringLiteral("IDS_SVG_PHYSICAL_UNIT_NONE"), QStringLiteral("IDS_SVG_PHYSICAL_UNIT_CM"),
                      QStringLiteral("IDS_SVG_PHYSICAL_UNIT_N")});
}

void Calibration::SVGInit(bool, bool)
{
    if (!m_pDocument)
        return;
    for (const char *id : {"edge", "line_1"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setStrokeEnabled(false);
    m_nTicks = 0;
    layout();
    UpdateCombobox(false);
    Resize(false);
}

void Calibration::layout()
{
    if (!m_pDocument || m_controlNodes.isEmpty())
        return;
    const double y = HandlePos::centre(*this, 0).y() - kCalibrationTop;
    m_dLength = std::isfinite(y) ? std::max(kCalibrationMinLength, std::min(kCalibrationMaxLength, y)) : kCalibrationMinLength;
    const int ticks = int(std::floor((m_dLength - 2 * kMargin) / kCalibrationPitch)) + 1;
    // Ticks stand where their index puts them whatever the length: only those a step
    // adds need placing, and a step that adds or removes none touches no series.
    if (ticks != m_nTicks) {
        const QVector<QSvgNode *> lines = Series::fit(*this, QStringLiteral("line"), ticks);
        for (int i = std::max(1, std::min(m_nTicks, int(lines.size()))); i < lines.size(); ++i) {
            const double at = kCalibrationTop + kMargin + i * kCalibrationPitch;
            lines[i]->setNumAttribute(QStringLiteral("y1"), at);
            lines[i]->setNumAttribute(QStringLiteral("y2"), at);
            lines[i]->setNumAttribute(QStringLiteral("x2"), tickLength(i));
            lines[i]->setStrokeEnabled(false);
        }
        const int numbers = (ticks - 1) / 10 + 1, before = (std::max(m_nTicks, 1) - 1) / 10 + 1;
        if (numbers != before || m_nTicks == 0) {
            const QVector<QSvgNode *> texts = Series::fit(*this, QStringLiteral("text"), numbers, 0, 10);
            for (int j = m_nTicks == 0 ? 0 : std::min(before, int(texts.size())); j < texts.size(); ++j) {
                texts[j]->setNumAttribute(QStringLiteral("y"), kCalibrationTop + kMargin + j * 10 * kCalibrationPitch + 4);
                texts[j]->setText(QString::number(j));
            }
        }
        m_nTicks = ticks;
    }
    if (QSvgNode *strip = m_pDocument->namedNode(QStringLiteral("strip")))
        strip->setNumAttribute(QStringLiteral("height"), m_dLength);
    if (QSvgNode *edge = m_pDocument->namedNode(QStringLiteral("edge")))
        edge->setNumAttribute(QStringLiteral("y2"), kCalibrationTop + m_dLength - 1);
    if (QSvgNode *unit = m_pDocument->namedNode(QStringLiteral("unit")))
        unit->setNumAttribute(QStringLiteral("y"), kCalibrationTop + m_dLength - 4);
}

void Calibration::UpdateCombobox(bool)
{
    if (!m_pDocument)
        return;
    static const char *const kUnits[] = {"", "cm", "N"};
    const int u = m_attributes.value(kUnitAttr).intValue;
    if (QSvgNode *unit = m_pDocument->namedNode(QStringLiteral("unit")))
        unit->setText(QLatin1String(kUnits[u >= 0 && u < 3 ? u : 1]));
    repaint();
}

bool Calibration::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    layout();
    Resize(bFinal);
    repaint();
    return true;
}

void Calibration::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    enclose(QRectF(-0.5, kCalibrationTop - 0.5, kWidth + 1, m_dLength + 1), topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

void Calibration::posChangedByControl() { HandlePos::post(*this, kCalibrationSlots, 0); }

double Calibration::getControlPos() { return HandlePos::get(*this, kCalibrationSlots, 0); }

void Calibration::setControlPos(double y) { HandlePos::setWithin(*this, kCalibrationSlots, 0, y, m_bPosByCode); }

void Calibration::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    m_panel.append(*this, array, 0, {{"idUnit", kUnitAttr}});
    m_panel.append(*this, array, 1, kCalibrationSlots);
}

bool Calibration::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values, {{"idUnit", kUnitAttr}}, bRecord, bUndo);
    HandlePos::setTyped(*this, values, kCalibrationSlots, m_bPosByCode);
    return true;
}

bool Calibration::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
