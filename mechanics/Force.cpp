#include "Force.h"
#include "bases/HandlePos.h"
#include "bases/PanelItems.h"
#include "bases/UprightText.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kForceColourAttr = 5100, kForceDashedAttr = 5101, kShowValueAttr = 5102;
// The point of application, in the template's units.
constexpr double kTailX = 12, kTailY = 30;
// The head at full size: length, half-width, and how far back its notch is.
constexpr double kForceHeadLength = 16, kForceHeadHalfWidth = 6.5, kHeadNotch = 12;
constexpr double kLabelGap = 5;

} // namespace

CForce::CForce(CSVGObj *owner) : CBasic(owner) {}

CForce::~CForce() = default;

QString CForce::getSVG()
{
    // The handle may take the tip 1000 units (25 N) from the tail either way.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"130px\" height=\"60px\" viewBox=\"0 0 130 60\">\n"
        "<g id=\"arrow\" rotate_x=\"12\" rotate_y=\"30\" rotate_from=\"-180\" rotate_to=\"180\" rotate_angle=\"0\">\n"
        "<line id=\"shaft\" x1=\"12\" y1=\"30\" x2=\"80\" y2=\"30\" fill=\"none\" stroke=\"#E02020\" stroke-width=\"3\""
        " vector-effect=\"none\"/>\n"
        "<polygon id=\"head\" points=\"92,30 76,23.5 80,30 76,36.5\" fill=\"#E02020\" stroke=\"#E02020\""
        " stroke-width=\"1\" stroke-linejoin=\"round\" vector-effect=\"none\"/>\n"
        "</g>\n"
        "<circle id=\"tail\" cx=\"12\" cy=\"30\" r=\"3.5\" fill=\"#E02020\"/>\n"
        "<text id=\"name\" x=\"103\" y=\"35.7\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"16\""
        " text-anchor=\"middle\" fill=\"#E02020\">F</text>\n"
        "<rect id=\"control_1\" x=\"87.5\" y=\"25.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"-992.5\" x_to=\"1007.5\" y_from=\"-974.5\" y_to=\"1025.5\"/>\n"
        "</svg>\n");
}

int CForce::getSVGType() { return 200; }

QString CForce::getPropName(int id)
{
    // The arrow's colour is its own setting; a second, host-wide colour would fight it.
    return id == PROP_COLOR ? QString() : CBasic::getPropName(id);
}

void CForce::ResetAtrribute()
{
    addAttribute(kForceColourAttr, 1101, 3, QStringLiteral("IDS_SVG_PHYSICAL_ARROW_COLOR"));
    m_attributes[kForceColourAttr].color = QColor(0xE0, 0x20, 0x20);
    addAttribute(kForceDashedAttr, 1102, 0, QStringLiteral("IDS_SVG_PHYSICAL_DASHED"));
    addAttribute(kShowValueAttr, 1103, 0, QStringLiteral("IDS_SVG_PHYSICAL_SHOW_VALUE"));
}

QPointF CForce::pivot() const { return QPointF(kTailX, kTailY); }

void CForce::SVGInit(bool, bool)
{
    layout();
    Resize(false);
}

void CForce::UpdateColor(bool)
{
    if (!m_pDocument)
        return;
    const QColor c = m_attributes.value(kForceColourAttr).color;
    for (const char *id : {"tail", "head", "name"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setFillColor(c);
    for (const char *id : {"shaft", "head"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setStrokeColor(c);
    repaint();
}

void CForce::UpdateCheckBox(bool)
{
    if (QSvgNode *shaft = m_pDocument ? m_pDocument->namedNode(QStringLiteral("shaft")) : nullptr) {
        if (m_attributes.value(kForceDashedAttr).boolValue)
            shaft->setAttribute(QStringLiteral("stroke-dasharray"), QStringLiteral("8 5"));
        else
            shaft->removeAttribute(QStringLiteral("stroke-dasharray"));
    }
    // The value shown or not changes the label, and what the drawing spans.
    layout();
    Resize(true);
    repaint();
}

QString CForce::labelText() const
{
    if (!m_attributes.value(kShowValueAttr).boolValue)
        return m_strName;
    const QString value = QString::number(magnitude(), 'f', 1) + QStringLiteral(" N");
    return m_strName.isEmpty() ? value : m_strName + QStringLiteral(" = ") + value;
}

bool CForce::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || !m_pDocument || node != m_controlNodes.value(0))
        return false;
    const ShownValues::Texts before = m_shown;
    // A drag leaves the handle wherever the pointer went: it goes back onto the tip.
    // (A load and a typed value put it there already.)
    if (!m_bByCode && !isLoading()) {
        const HandlePos::Polar tip = HandlePos::tip(*this, 0, pivot(), kMinNewtons * kUnitsPerNewton,
                                                    kMaxNewtons * kUnitsPerNewton, m_dAngle);
        HandlePos::placeAt(*this, 0, pivot(), tip);
    }
    layout();
    if (!m_bByCode && !isLoading())
        ShownValues::postChanged(before, m_shown);
    Resize(bFinal);
    repaint();
    return true;
}

void CForce::layout()
{
    if (!m_pDocument)
        return;
    const HandlePos::Polar tip =
        HandlePos::tip(*this, 0, pivot(), kMinNewtons * kUnitsPerNewton, kMaxNewtons * kUnitsPerNewton, m_dAngle);
    m_dAngle = tip.angle;
    m_dLength = tip.distance;
    m_shown = {{QStringLiteral("idForceValue"), QString::number(magnitude(), 'f', 1)},
               {QStringLiteral("idAngle"), QString::number(HandlePos::shownDegrees(m_dAngle))}};
    const QPointF t = pivot();
    if (QSvgNode *arrow = m_pDocument->namedNode(QStringLiteral("arrow")))
        arrow->setNumAttribute(QStringLiteral("rotate_angle"), -m_dAngle);
    // A short arrow keeps its proportions: the head never takes more than half of it.
    const double s = std::min(1.0, m_dLength / (2 * kForceHeadLength));
    const double tipX = t.x() + m_dLength;
    if (QSvgNode *shaft = m_pDocument->namedNode(QStringLiteral("shaft")))
        shaft->setNumAttribute(QStringLiteral("x2"), tipX - kHeadNotch * s);
    if (QSvgNode *head = m_pDocument->namedNode(QStringLiteral("head")); head && head->type() == QSvgNode::Polygon)
        static_cast<QSvgPolygon *>(head)->setPoints({QPointF(tipX, t.y()),
                                                     QPointF(tipX - kForceHeadLength * s, t.y() - kForceHeadHalfWidth * s),
                                                     QPointF(tipX - kHeadNotch * s, t.y()),
                                                     QPointF(tipX - kForceHeadLength * s, t.y() + kForceHeadHalfWidth * s)});
    if (QSvgNode *name = m_pDocument->namedNode(QStringLiteral("name"))) {
        name->setText(labelText());
        const double r = m_dAngle * M_PI / 180;
        const QPointF dir(std::cos(r), -std::sin(r));
        UprightText::placeBeyond(name, t + dir * m_dLength, dir, kLabelGap);
    }
}

void CForce::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    if (!m_pDocument)
        return;
    // Room for the strokes and the antialiased edges.
    enclose(m_pDocument->transformedBounds().adjusted(-2, -2, 2, 2), topLeft, bottomRight);
}

void CForce::moveTip(double angle, double length)
{
    HandlePos::moveTo(*this, 0, HandlePos::topLeftAt(*this, 0, pivot(), {angle, length}), m_bByCode);
}

void CForce::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    array.append(m_pOwner->GetSettingJsonInput(QStringLiteral("idForceName"), QStringLiteral("IDS_PHYSICSOBJ_FORCE_NAME"),
                                               m_strName, QStringLiteral("text"), QString(), QString(), QString()));
    array.append(m_pOwner->GetSettingJsonInput(QStringLiteral("idForceValue"), QStringLiteral("IDS_PHYSICSOBJ_FORCE_VALUE"),
                                               QString::number(magnitude(), 'f', 1), QStringLiteral("float"),
                                               QStringLiteral("0.1"), QStringLiteral("25"), QStringLiteral("N")));
    array.append(m_pOwner->GetSettingJsonInput(QStringLiteral("idAngle"), QStringLiteral("IDS_PHYSICSOBJ_ANGLE"),
                                               QString::number(HandlePos::shownDegrees(m_dAngle)), QStringLiteral("int"),
                                               QStringLiteral("-180"), QStringLiteral("180"), QStringLiteral("°")));
    PanelItems::append(*this, array, {{"idArrowColor", kForceColourAttr}, {"idDashed", kForceDashedAttr}, {"idShowValue", kShowValueAttr}});
}

bool CForce::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    const auto name = values.constFind(QStringLiteral("idForceName"));
    if (name != values.cend()) {
        m_strName = fitText(*name, QStringLiteral("idForceName"));
        layout();
        Resize(true);
        repaint();
    }
    PanelItems::apply(*this, values, {{"idArrowColor", kForceColourAttr}, {"idDashed", kForceDashedAttr}, {"idShowValue", kShowValueAttr}},
                      bRecord, bUndo);
    // A typed magnitude keeps the direction; a typed direction keeps the magnitude.
    double newtons = 0;
    if (HandlePos::typedNumber(values, QStringLiteral("idForceValue"), kMinNewtons, kMaxNewtons, false, newtons))
        moveTip(m_dAngle, newtons * kUnitsPerNewton);
    const auto angle = values.constFind(QStringLiteral("idAngle"));
    int degrees = 0;
    if (angle != values.cend() && HandlePos::typedDegrees(*angle, degrees))
        moveTip(degrees, m_dLength);
    return true;
}

bool CForce::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool restore = isRestore(id);
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    if (isCapture(id))
        m_strCapturedName = m_strName;
    else if (restore)
        m_strName = m_strCapturedName;
    // The tip goes back last, laying the name out again with it.
    keepEverything(id, m_bByCode);
    return r;
}

bool CForce::save(QDataStream &out)
{
    out << m_strName;
    return CBasic::save(out);
}

bool CForce::load(QDataStream &in) { return loadWithText(in, m_strName); }
