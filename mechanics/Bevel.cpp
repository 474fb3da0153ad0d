#include "Bevel.h"
#include "bases/HandlePos.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kShowAngleAttr = 5100;
// The hinge: the plank's lower left corner, on the bench line.
constexpr double kHingeX = 20, kHingeY = 180;
constexpr double kMinAngle = 0, kMaxAngle = 80, kBevelMinLength = 60, kBevelMaxLength = 1000;
constexpr double kPlank = 14;           // thickness
constexpr double kProp = 8, kFoot = 26; // the prop's width and its foot's

using SvgNumbers::format;

} // namespace

CBevel::CBevel(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
}

CBevel::~CBevel() = default;

QString CBevel::getSVG()
{
    // The plank is drawn level in its group and turned about the hinge; the prop stands
    // behind it, the bench line and the angle mark in front.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"300px\" height=\"174px\""
        " viewBox=\"4 14 300 174\">\n"
        "<defs>\n"
        "<linearGradient id=\"bv_wood\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#E2C18B\"/><stop offset=\"0.18\" stop-color=\"#C8A165\"/>"
        "<stop offset=\"0.45\" stop-color=\"#BE9559\"/><stop offset=\"0.6\" stop-color=\"#CCA76C\"/>"
        "<stop offset=\"1\" stop-color=\"#A47B45\"/></linearGradient>\n"
        "<linearGradient id=\"bv_metal\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#7D8791\"/><stop offset=\"0.45\" stop-color=\"#D6DCE1\"/>"
        "<stop offset=\"1\" stop-color=\"#8A949E\"/></linearGradient>\n"
        "</defs>\n"
        "<path id=\"support\" fill=\"url(#bv_metal)\" stroke=\"#4A5560\" stroke-width=\"1\" stroke-linejoin=\"round\""
        " vector-effect=\"non-scaling-stroke\" d=\"M275.81,26H283.81V175H292.81V180H266.81V175H275.81Z\"/>\n"
        "<g id=\"board\" rotate_x=\"20\" rotate_y=\"180\" rotate_angle=\"-30\">"
        "<rect id=\"plank\" x=\"20\" y=\"166\" width=\"300\" height=\"14\" rx=\"1\" ry=\"1\" fill=\"url(#bv_wood)\""
        " stroke=\"#7A5A2E\" stroke-width=\"1\" vector-effect=\"non-scaling-stroke\"/>"
        "<line id=\"plank_top\" x1=\"21\" y1=\"167.2\" x2=\"319\" y2=\"167.2\" stroke=\"#F1DDB5\" stroke-width=\"1.2\""
        " stroke-linecap=\"round\"/>"
        "<line id=\"plank_grain\" x1=\"24\" y1=\"174.5\" x2=\"316\" y2=\"174.5\" stroke=\"#8A6534\" stroke-opacity=\"0.35\""
        " stroke-width=\"0.5\" stroke-dasharray=\"97 3 44 2 71 4 23 2\"/>"
        "</g>\n"
        "<line id=\"ground\" x1=\"5\" y1=\"180.5\" x2=\"303\" y2=\"180.5\" stroke=\"#3A434C\" stroke-width=\"1.5\""
        " stroke-linecap=\"round\" vector-effect=\"non-scaling-stroke\"/>\n"
        "<circle id=\"hinge\" cx=\"20\" cy=\"180\" r=\"3\" fill=\"url(#bv_metal)\" stroke=\"#4A5560\" stroke-width=\"0.8\""
        " vector-effect=\"non-scaling-stroke\"/>\n"
        "<path id=\"angle_arc\" fill=\"none\" stroke=\"#1A1A1A\" stroke-width=\"1\" vector-effect=\"non-scaling-stroke\""
        " d=\"M60,180A40,40 0 0 0 54.64,160\"/>\n"
        "<text id=\"angle_text\" x=\"66\" y=\"174\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"14\""
        " fill=\"#1A1A1A\">30°</text>\n"
        "<rect id=\"control_1\" x=\"275.31\" y=\"25.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"-984.5\" x_to=\"1015.5\" y_from=\"-824.5\" y_to=\"1175.5\"/>\n"
        "</svg>\n");
}

int CBevel::getSVGType() { return 101; }

void CBevel::ResetAtrribute()
{
    addAttribute(kShowAngleAttr, 1101, 0, QStringLiteral("IDS_SVG_PHYSICAL_SHOW_ANGLE"), 0, true);
}

bool CBevel::showsAngle() const { return m_attributes.value(kShowAngleAttr).boolValue; }

int CBevel::shownAngle() const { return int(std::lround(m_dAngle)); }

void CBevel::SVGInit(bool, bool)
{
    if (!m_pDocument)
        return;
    // The plank's highlights and grain keep their own paint under the host's colour.
    for (const char *id : {"plank_top", "plank_grain", "angle_arc"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setStrokeEnabled(false);
    // A new plank lies at exactly 30° and 300; a loaded one where its handle was saved.
    if (!isLoading() && !m_controlNodes.isEmpty())
        HandlePos::placeAt(*this, 0, QPointF(kHingeX, kHingeY), HandlePos::Polar{30, 300});
    layout();
    UpdateCheckBox(false);
    Resize(false);
}

void CBevel::layout()
{
    if (!m_pDocument || m_controlNodes.isEmpty())
        return;
    const QPointF hinge(kHingeX, kHingeY);
    HandlePos::Polar p = HandlePos::heldPolar(*this, 0, hinge, kMinAngle, kMaxAngle, kBevelMinLength, kBevelMaxLength);
    p = HandlePos::putBack(*this, 0, hinge, p);
    m_dAngle = std::max(kMinAngle, std::min(kMaxAngle, p.angle));
    m_dLength = std::max(kBevelMinLength, std::min(kBevelMaxLength, p.distance));
    const double a = m_dAngle * M_PI / 180, len = m_dLength;
    const QPointF end(kHingeX + std::cos(a) * len, kHingeY - std::sin(a) * len);

    if (QSvgNode *g = m_pDocument->namedNode(QStringLiteral("board")))
        g->setNumAttribute(QStringLiteral("rotate_angle"), -m_dAngle);
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("plank")))
        n->setNumAttribute(QStringLiteral("width"), len);
    for (const char *id : {"plank_top", "plank_grain"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setNumAttribute(QStringLiteral("x2"), kHingeX + len - (id[6] == 't' ? 1 : 4));
    // The prop rises from its foot on the bench to just under the plank's end; at a
    // slope too low for it, it shrinks to its foot.
    const double top = std::min(kHingeY - 5, end.y() - std::sin(a) * kProp / 2 + 1);
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("support"))) {
        const double l = end.x() - kProp / 2, r = end.x() + kProp / 2, fl = end.x() - kFoot / 2, fr = end.x() + kFoot / 2;
        n->setAttribute(QStringLiteral("d"),
                        QStringLiteral("M%1,%2H%3V%4H%5V%6H%7V%4H%1Z")
                            .arg(format(l), format(top), format(r), format(kHingeY - 5), format(fr), format(kHingeY), format(fl)));
    }
    const double right = std::max(end.x() + kFoot / 2, kHingeX + len * std::cos(a) + 10) + 10;
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("ground")))
        n->setNumAttribute(QStringLiteral("x2"), right);

    // The mark: an arc from the bench to the plank's underside, the angle beside it,
    // inside the angle when there is room, under the bench line when the slope is low.
    const double r = std::min(40.0, len * 0.3);
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("angle_arc")))
        n->setAttribute(QStringLiteral("d"), QStringLiteral("M%1,%2A%3,%3 0 0 0 %4,%5")
                                                 .arg(format(kHingeX + r), format(kHingeY), format(r),
                                                      format(kHingeX + std::cos(a) * r), format(kHingeY - std::sin(a) * r)));
    if (QSvgNode *t = m_pDocument->namedNode(QStringLiteral("angle_text"))) {
        const bool inside = m_dAngle >= 20;
        const double mid = a / 2;
        t->setNumAttribute(QStringLiteral("x"), inside ? kHingeX + std::cos(mid) * (r + 5) : kHingeX + r - 6);
        t->setNumAttribute(QStringLiteral("y"), inside ? std::min(kHingeY - 3, kHingeY - std::sin(mid) * (r + 5) + 5)
                                                       : kHingeY + 17);
        const QString text = QString::number(shownAngle()) + QChar(0x00B0);
        if (t->text() != text)
            t->setText(text);
    }
}

void CBevel::UpdateCheckBox(bool)
{
    if (!m_pDocument)
        return;
    for (const char *id : {"angle_arc", "angle_text"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id)))
            n->setVisible(showsAngle());
    repaint();
}

bool CBevel::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    layout();
    Resize(bFinal);
    repaint();
    return true;
}

void CBevel::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    const double a = m_dAngle * M_PI / 180, c = std::cos(a), s = std::sin(a);
    // The plank's four corners with their outline, the prop's foot, the bench line, the
    // angle under it when the slope is low, and the handle.
    const QPointF up(-s * kPlank, -c * kPlank);
    for (const QPointF &p : {QPointF(kHingeX, kHingeY), QPointF(kHingeX + c * m_dLength, kHingeY - s * m_dLength)}) {
        enclose(QRectF(p - QPointF(0.5, 0.5), QSizeF(1, 1)), topLeft, bottomRight);
        enclose(QRectF(p + up - QPointF(0.5, 0.5), QSizeF(1, 1)), topLeft, bottomRight);
    }
    if (QSvgNode *g = m_pDocument ? m_pDocument->namedNode(QStringLiteral("ground")) : nullptr)
        enclose(QRectF(kHingeX - 16, kHingeY - 1, g->numAttribute(QStringLiteral("x2")) - kHingeX + 17, 2), topLeft,
                bottomRight);
    if (showsAngle() && m_dAngle < 20)
        enclose(QPointF(kHingeX, kHingeY + 21), topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

void CBevel::moveEnd(double angle, double length)
{
    const QPointF to = HandlePos::topLeftAt(*this, 0, QPointF(kHingeX, kHingeY), HandlePos::Polar{angle, length});
    HandlePos::moveTo(*this, 0, to, m_bPosByCode);
}

void CBevel::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    m_panel.append(array, 0, QString::number(shownAngle()), [this] {
        return m_pOwner->GetSettingJsonInput(QStringLiteral("idAngle"), QStringLiteral("IDS_PHYSICSOBJ_ANGLE"),
                                             QString::number(shownAngle()), QStringLiteral("int"), QStringLiteral("0"),
                                             QStringLiteral("80"), QStringLiteral("°"));
    });
    // A percentage of the length's range (not of the handle's travel, which turns).
    const QString length = QString::number(HandlePos::percentOf(m_dLength, kBevelMinLength, kBevelMaxLength));
    m_panel.append(array, 1, length, [this, length] {
        return m_pOwner->GetSettingJsonInput(QStringLiteral("idLength"), QStringLiteral("IDS_PHYSICSOBJ_LENGTH"), length,
                                             QStringLiteral("int"), QStringLiteral("0"), QStringLiteral("100"), QString());
    });
    m_panel.append(array, 2, showsAngle(), [this] {
        return attributeItem(kShowAngleAttr, QStringLiteral("idShowAngle"), QStringLiteral("IDS_PHYSICSOBJ_SHOW_ANGLE"));
    });
}

bool CBevel::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    applyAttributeItems(values, {{QStringLiteral("idShowAngle"), kShowAngleAttr}}, bRecord, bUndo);
    double angle = m_dAngle, length = m_dLength, v = 0;
    if (HandlePos::typedNumber(values, QStringLiteral("idAngle"), kMinAngle, kMaxAngle, true, v))
        angle = v;
    if (HandlePos::typedNumber(values, QStringLiteral("idLength"), 0, 100, true, v))
        length = kBevelMinLength + (kBevelMaxLength - kBevelMinLength) * v / 100;
    if (angle != m_dAngle || length != m_dLength)
        moveEnd(angle, length);
    return true;
}

bool CBevel::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
