#include "Ruler.h"
#include "bases/AttrValue.h"
#include "bases/HandlePos.h"
#include <QJsonArray>
#include <cmath>
#include <limits>
#include <svgobj.h>
#include <vector>

namespace {

constexpr int kScaleColorAttr = 5100;
constexpr double kMiddleTickStep = 4.0;
constexpr double kLabelWidth = 25;

// Series ids ("line_7", "text_30"), the text of the "%1_%2" format. A drag looks up
// every tick, so each id is built once and shared.
class SeriesIds
{
public:
    explicit SeriesIds(const char *prefix) : m_prefix(QLatin1String(prefix)) {}
    QString operator()(int n)
    {
        if (n < 0 || n > 100000)
            return m_prefix + QLatin1Char('_') + QString::number(n);
        while (int(m_ids.size()) <= n)
            m_ids.push_back(m_prefix + QLatin1Char('_') + QString::number(int(m_ids.size())));
        return m_ids[size_t(n)];
    }

private:
    QString m_prefix;
    std::vector<QString> m_ids;
};

SeriesIds lineId("line");
SeriesIds textId("text");

} // namespace

CRuler::CRuler(CSVGObj *owner) : CBasic(owner)
{
    m_bHostOption = false;
}

CRuler::~CRuler() = default;

QString CRuler::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<!-- Generator: physics apparatus templates -->\n"
        "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" \"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\">\n"
        "<svg version=\"1.1\" id=\"ruler\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\""
        " width=\"170.875px\" height=\"48.25px\" viewBox=\"0 0 170.875 48.25\""
        " enable-background=\"new 0 0 170.875 48.25\" xml:space=\"preserve\">\n"
        "<rect id=\"rect\" x=\"0.5\" y=\"0.5\" width=\"166\" height=\"47.25\" fill=\"#94AAD8\" stroke=\"#2E3192\""
        " vector-effect=\"none\" stroke-miterlimit=\"10\"/>\n"
        "<line id=\"line_1\" x1=\"7.667\" y1=\"0.5\" x2=\"7.667\" y2=\"28\" stroke=\"#2B3990\" fill=\"none\""
        " vector-effect=\"none\" stroke-miterlimit=\"10\"/>\n"
        "<line id=\"line_2\" x1=\"10.667\" y1=\"0.5\" x2=\"10.667\" y2=\"18.833\" stroke=\"#2B3990\" fill=\"none\""
        " vector-effect=\"none\" stroke-miterlimit=\"10\"/>\n"
        "<text id=\"text_0\" x=\"4\" y=\"42\" font-family=\"ArialMT\" font-size=\"12\">0</text>\n"
        "<rect id=\"control_1\" x=\"161.875\" y=\"21.833\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\""
        " fill=\"#1700FE\" x_from=\"50\" x_to=\"800\"/>\n"
        "</svg>\n");
}

int CRuler::getSVGType() { return 109; }

void CRuler::ResetAtrribute()
{
    DATA_MAP_STRUCT a;
    a.propId = 1101;
    a.dataType = 3;
    a.name = QStringLiteral("IDS_SVG_PHYSICAL_SCALE_LINE_COLOR");
    a.color = QColor(0x2B, 0x39, 0x90);
    m_attributes.insert(kScaleColorAttr, a);
}

void CRuler::SVGInit(bool, bool)
{
    // The first graduation is a drag of each handle where it stands.
    const QList<QSvgNode *> handles = m_controlNodes;
    for (QSvgNode *h : handles)
        updateSVG(h, QPointF(0, 0), false);
}

void CRuler::UpdateColor(bool)
{
    const auto it = m_attributes.constFind(kScaleColorAttr);
    if (it == m_attributes.cend() || !m_pDocument)
        return;
    for (int k = 1; k <= m_nLineCount; ++k)
        if (QSvgNode *line = m_pDocument->namedNode(lineId(k)))
            line->setStrokeColor(it->color);
}

bool CRuler::updateSVG(QSvgNode *node, QPointF offset, bool bFinal)
{
    if (!node)
        return false;
    if (QSvgNode *body = m_pDocument ? m_pDocument->namedNode(QStringLiteral("rect")) : nullptr)
        body->setNumAttribute(QStringLiteral("width"), body->numAttribute(QStringLiteral("width")) + offset.x());
    CaculateLine();
    Resize(bFinal);
    repaint();
    if (!m_controlNodes.isEmpty() && node == m_controlNodes.first() && !m_bPosByCode)
        posChangedByControl();
    return true;
}

void CRuler::CaculateLine()
{
    if (!m_pDocument)
        return;
    QSvgNode *first = m_pDocument->namedNode(QStringLiteral("line_1"));
    QSvgNode *second = m_pDocument->namedNode(QStringLiteral("line_2"));
    QSvgNode *body = m_pDocument->namedNode(QStringLiteral("rect"));
    if (!first || !second || !body)
        return;
    const double longEnd = first->numAttribute(QStringLiteral("y2"));
    const double shortEnd = second->numAttribute(QStringLiteral("y2"));
    const double width = body->numAttribute(QStringLiteral("width"));
    const double x1 = first->numAttribute(QStringLiteral("x1"));
    const double x2 = second->numAttribute(QStringLiteral("x1"));
    const double left = body->numAttribute(QStringLiteral("x"));
    const double usable = width - (x1 - left);
    const double pitch = std::fabs(x2 - x1);
    const double longer = longEnd - shortEnd;
    // A degenerate template or a non-number width gives no count at all.
    const double wanted = usable / pitch + 1.0;
    if (!std::isfinite(wanted) || std::fabs(wanted) >= double(std::numeric_limits<int>::max()))
        return;
    const int n = int(wanted);

    if (n < m_nLineCount) {
        for (int k = m_nLineCount; k >= n + 1; --k) {
            removeNode(m_pDocument->namedNode(lineId(k)));
            removeNode(m_pDocument->namedNode(textId(k - 1)));
        }
        m_nLineCount = n;
    } else if (n > m_nLineCount) {
        for (int k = m_nLineCount + 1; k <= n; ++k) {
            const int i = k - 1;
            QSvgNode *prev = m_pDocument->namedNode(lineId(k - 1));
            if (!prev)
                continue;
            std::unique_ptr<QSvgNode> tick = prev->clone();
            const QString id = lineId(k);
            tick->setAttribute(QStringLiteral("id"), id);
            tick->translate(pitch, 0);
            double y2 = prev->numAttribute(QStringLiteral("y2"));
            if (i % 10 == 0)
                y2 += longer;
            else if (i % 5 == 0)
                y2 += kMiddleTickStep;
            else if ((i - 1) % 10 == 0)
                y2 -= longer;
            else if ((i - 1) % 5 == 0)
                y2 -= kMiddleTickStep;
            tick->setNumAttribute(QStringLiteral("y2"), y2);
            addNode(tick.release(), id);

            if (i % 10 == 0) {
                if (QSvgNode *prevLabel = m_pDocument->namedNode(textId(i - 10))) {
                    std::unique_ptr<QSvgNode> label = prevLabel->clone();
                    const QString labelId = textId(i);
                    label->setNumAttribute(QStringLiteral("width"), kLabelWidth);
                    label->setAttribute(QStringLiteral("id"), labelId);
                    label->setAttribute(QStringLiteral("value"), QString::number(i / 10));
                    label->translate(10 * pitch, 0);
                    addNode(label.release(), labelId);
                }
            }
        }
        m_nLineCount = n;
    }

    for (int k = 1; k <= m_nLineCount; ++k)
        if (QSvgNode *line = m_pDocument->namedNode(lineId(k)))
            line->setStrokeEnabled(false);
}

void CRuler::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    if (!m_pDocument)
        return;
    const QRectF bounds = m_pDocument->cachedBounds();
    topLeft = bounds.topLeft();
    bottomRight = bounds.bottomRight();
    // The selection ends at the handle, not at the view box.
    if (!m_controlNodes.isEmpty())
        bottomRight.setX(m_controlNodes.first()->numAttribute(QStringLiteral("x")) +
                         m_controlNodes.first()->numAttribute(QStringLiteral("width")));
}

int CRuler::percent() { return HandlePos::percent(*this, 0, HandlePos::X, getControlPos()); }

void CRuler::posChangedByControl()
{
    postSetting(QStringLiteral("idPosValue"), QString::number(percent()));
}

double CRuler::getControlPos() { return HandlePos::get(*this, 0, HandlePos::X); }

void CRuler::setControlPos(double x) { HandlePos::set(*this, 0, HandlePos::X, x, m_bPosByCode); }

void CRuler::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    array.append(m_pOwner->GetSettingJsonColorPicker(QStringLiteral("idScaleColor"), QStringLiteral("IDS_PHYSICSOBJ_SCALE_COLOR"),
                                                     m_attributes.value(kScaleColorAttr).color.name()));
    HandlePos::appendInput(*this, array, QStringLiteral("IDS_PHYSICSOBJ_LENGTH"), percent());
}

bool CRuler::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    const auto color = values.constFind(QStringLiteral("idScaleColor"));
    if (color != values.cend())
        AttrValue::applyColour(*this, kScaleColorAttr, color.value(), bRecord, bUndo);
    // Any integer, past the ends too, and text that is none reads 0: a ruler's length is
    // typed as hosts have always typed it. The extent every drawing keeps within bounds it.
    double x = 0;
    if (HandlePos::target(*this, values, 0, HandlePos::X, false, x, HandlePos::IntOrZero))
        setControlPos(x);
    return true;
}

bool CRuler::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    if (isCapture(id)) {
        const auto it = m_attributes.constFind(kScaleColorAttr);
        if (it != m_attributes.cend())
            m_savedScaleColor = it->color;
        m_dSavedControlPos = getControlPos();
    } else if (isRestore(id)) {
        AttrValue::apply(*this, kScaleColorAttr, m_savedScaleColor, false, false);
        setControlPos(m_dSavedControlPos);
    }
    return r;
}
