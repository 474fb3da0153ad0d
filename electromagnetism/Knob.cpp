#include "Knob.h"
#include "bases/AttrValue.h"
#include <cmath>
#include <svgobj.h>

namespace {


struct ColourKey {
    int attribute;
    const char *key;
    const char *label;
};
const ColourKey kColours[] = {
    {5100, "idExtCircleColor", "IDS_PHYSICSOBJ_KNOB_EXT_COLOR"},
    {5101, "idIntCircleColor", "IDS_PHYSICSOBJ_KNOB_INT_COLOR"},
    {5102, "idScaleColor", "IDS_PHYSICSOBJ_SCALE_COLOR"},
};

QString dialTicks()
{
    // Twelve marks round the ring, fixed to the panel.
    QString d;
    for (int i = 0; i < 12; ++i) {
        const double a = i * M_PI / 6;
        d += QStringLiteral("M%1,%2L%3,%4")
                 .arg(39 + 33.5 * std::sin(a), 0, 'f', 2)
                 .arg(39 - 33.5 * std::cos(a), 0, 'f', 2)
                 .arg(39 + 37 * std::sin(a), 0, 'f', 2)
                 .arg(39 - 37 * std::cos(a), 0, 'f', 2);
    }
    return d;
}

} // namespace

CKnob::CKnob(CSVGObj *owner) : CAttribute(owner) {}

CKnob::~CKnob() = default;

QString CKnob::getSVG()
{
    // The back plate spans the whole box, so the drawing's centre is the knob's.
    static const QString svg = QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"78px\" height=\"78px\" viewBox=\"0.001 0 78 78\">\n"
        "<defs><linearGradient id=\"sheen\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"1\"><stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.55\"/>"
        "<stop offset=\"0.5\" stop-color=\"#FFFFFF\" stop-opacity=\"0\"/><stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.25\"/>"
        "</linearGradient></defs>\n"
        "<circle cx=\"39\" cy=\"39\" r=\"39\" fill=\"#3C4148\"/>\n"
        "<circle cx=\"39\" cy=\"39\" r=\"37.5\" fill=\"none\" stroke=\"#23272C\" stroke-width=\"1\"/>\n"
        "<path fill=\"none\" stroke=\"#E6E6E6\" stroke-width=\"1.6\" stroke-linecap=\"round\" d=\"%1\"/>\n"
        "<circle id=\"circle_1\" cx=\"39\" cy=\"39\" r=\"31\" fill=\"#C0C0C0\" stroke=\"#3A3A3A\" stroke-width=\"2\"/>\n"
        "<circle cx=\"39\" cy=\"39\" r=\"30\" fill=\"url(#sheen)\"/>\n"
        "<circle id=\"circle_2\" cx=\"39\" cy=\"39\" r=\"20\" fill=\"#808080\" stroke=\"#3A3A3A\" stroke-width=\"2\"/>\n"
        "<g id=\"knob\" rotate_x=\"39\" rotate_y=\"39\" rotate_from=\"-180\" rotate_to=\"180\" rotate_angle=\"0\">\n"
        "<path id=\"line\" fill=\"#C1C1C0\" stroke=\"#3A3A3A\" stroke-width=\"2\" stroke-linejoin=\"round\""
        " d=\"M39,14L42.5,19.5L42.5,33L35.5,33L35.5,19.5Z\"/>\n"
        "</g>\n"
        "<rect id=\"control_1\" x=\"35\" y=\"5\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " x_from=\"0\" x_to=\"70\" y_from=\"0\" y_to=\"70\"/>\n"
        "</svg>\n").arg(dialTicks());
    return svg;
}

int CKnob::getSVGType() { return 401; }

void CKnob::ResetAtrribute()
{
    const struct {
        int attribute, propId;
        const char *label;
        QRgb colour;
    } defaults[] = {
        {5100, 1101, "IDS_SVG_PHYSICAL_SWITCH_COLOR_1", 0xC0C0C0},
        {5101, 1102, "IDS_SVG_PHYSICAL_SWITCH_COLOR_2", 0x808080},
        {5102, 1103, "IDS_SVG_PHYSICAL_KNOB_COLOR", 0x3A3A3A},
    };
    for (const auto &d : defaults) {
        DATA_MAP_STRUCT a;
        a.propId = d.propId;
        a.dataType = 3;
        a.name = QLatin1String(d.label);
        a.color = QColor(d.colour);
        m_attributes.insert(d.attribute, a);
    }
}

bool CKnob::loadSVG(bool bLoad)
{
    const bool r = CAttribute::loadSVG(bLoad);
    if (!m_pDocument)
        return r;
    QSvgNode *handle = m_controlNodes.value(0);
    if (handle)
        knobRadius = m_pDocument->cachedBounds().center().y() - handle->rect().center().y();
    return r;
}

bool CKnob::updateSVG(QSvgNode *node, QPointF, bool)
{
    if (!m_pDocument || !node)
        return false;
    QSvgNode *knob = m_pDocument->namedNode(QStringLiteral("knob"));
    QSvgNode *line = m_pDocument->namedNode(QStringLiteral("line"));
    if (!knob || !line)
        return false;
    const QRectF hr = node->rect();
    const QPointF h = hr.center();
    const QPointF d = m_pDocument->cachedBounds().center();
    if (!std::isfinite(h.x()) || !std::isfinite(h.y()))
        return false;
    double theta;
    if (std::fabs(h.x() - d.x()) < 1e-7) {
        // Straight above the centre counts as below it: the mark jumps to the bottom.
        theta = std::fabs(d.y() - h.y()) < 1e-7 ? 1.5707963267948966 : 4.71238898038469;
    } else {
        theta = std::atan((d.y() - h.y()) / (h.x() - d.x()));
        if (std::fabs(theta) < 1e-7) {
            if (d.x() - h.x() >= 1e-7)
                theta += M_PI;
        } else if (theta < 0) {
            theta += d.y() - h.y() >= 1e-7 ? M_PI : 6.283185307179586;
        } else if (h.y() - d.y() >= 1e-7) {
            theta += M_PI;
        }
    }
    const double deg = theta * 180 / M_PI;
    const double turn = deg <= 270 + 1e-7 ? 90 - deg : 450 - deg;
    knob->setNumAttribute(QStringLiteral("rotate_angle"), turn);
    node->setNumAttribute(QStringLiteral("x"), d.x() + std::cos(theta) * knobRadius - hr.width() * 0.5);
    node->setNumAttribute(QStringLiteral("y"), d.y() - std::sin(theta) * knobRadius - hr.height() * 0.5);
    if (m_pOwner)
        m_pOwner->update(QRectF());
    return true;
}

void CKnob::UpdateColor(bool)
{
    if (!m_pDocument)
        return;
    const auto paint = [this](int attribute, const char *id, bool fill) {
        const auto it = m_attributes.constFind(attribute);
        QSvgNode *n = m_pDocument->namedNode(QLatin1String(id));
        if (it == m_attributes.cend() || !n)
            return;
        fill ? n->setFillColor(it->color) : n->setStrokeColor(it->color);
    };
    paint(5100, "circle_1", true);
    paint(5101, "circle_2", true);
    paint(5102, "line", false);
}

void CKnob::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    for (const ColourKey &c : kColours) {
        const auto it = m_attributes.constFind(c.attribute);
        if (it != m_attributes.cend())
            array.append(m_pOwner->GetSettingJsonColorPicker(QLatin1String(c.key), QLatin1String(c.label), it->color.name()));
    }
}

void CKnob::setColour(int attribute, const QColor &colour, bool bRecord, bool bUndo)
{
    AttrValue::apply(*this, attribute, colour, bRecord, bUndo);
}

bool CKnob::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    for (const ColourKey &c : kColours) {
        const auto it = values.constFind(QLatin1String(c.key));
        if (it == values.cend())
            continue;
        QColor colour;
        colour.setNamedColor(*it);
        // A name that is no colour would paint nothing at all.
        if (!colour.isValid())
            continue;
        setColour(c.attribute, colour, bRecord, bUndo);
    }
    return true;
}

bool CKnob::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CAttribute::SetAttribute(id, in, bRecord, bUndo);
    QColor *saved[] = {&savedExtColor, &savedIntColor, &savedScaleColor};
    if (isCapture(id)) {
        for (int i = 0; i < 3; ++i)
            *saved[i] = m_attributes.value(kColours[i].attribute).color;
    } else if (isRestore(id)) {
        for (int i = 0; i < 3; ++i) {
            if (!saved[i]->isValid()) // nothing was captured
                continue;
            setColour(kColours[i].attribute, *saved[i], bRecord, bUndo);
        }
    }
    return r;
}
