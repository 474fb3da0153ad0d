#include "Magneticfield.h"
#include "bases/FieldLines.h"
#include "bases/PanelItems.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

enum { kDirection = 5100, kDensity = 5101, kColour = 5102, kBorder = 5103 };
enum Kind { Cross, Dot, Right, Left, Up, Down };

const QString kMark = QStringLiteral("mark");
constexpr double kMagneticfieldHandleHalf = 4.5;

QString cross(QPointF c, double a)
{
    QString d;
    d.reserve(48);
    FieldLines::point(d, QLatin1Char('M'), c.x() - a, c.y() - a);
    FieldLines::point(d, QLatin1Char('L'), c.x() + a, c.y() + a);
    FieldLines::point(d, QLatin1Char('M'), c.x() - a, c.y() + a);
    FieldLines::point(d, QLatin1Char('L'), c.x() + a, c.y() - a);
    return d;
}

QString dot(QPointF c, double r)
{
    QString d;
    d.reserve(64);
    FieldLines::point(d, QLatin1Char('M'), c.x() - r, c.y());
    const QString arc = QStringLiteral("a%1,%1 0 1 0 ").arg(r);
    d += arc;
    FieldLines::number(d, 2 * r);
    d += QLatin1String(",0");
    d += arc;
    FieldLines::number(d, -2 * r);
    d += QLatin1String(",0Z");
    return d;
}

} // namespace

CMagneticfield::CMagneticfield(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
    setDragSettingTexts([this] {
        return PanelItems::texts(*this, {{"idWidth", "IDS_PHYSICSOBJ_WIDTH", 0, HandlePos::X}, {"idHeight", "IDS_PHYSICSOBJ_HEIGHT", 0, HandlePos::Y}});
    });
}

CMagneticfield::~CMagneticfield() = default;

QString CMagneticfield::getSVG()
{
    // The marks sit in a group placed at the corner of the grid's first cell, so that
    // a resize that keeps the grid moves the group alone.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"223px\" height=\"222px\""
        " viewBox=\"0 0 223 222\">\n"
        "<rect id=\"region\" x=\"12\" y=\"28\" width=\"200\" height=\"160\" fill=\"none\" stroke=\"none\"/>\n"
        "<rect id=\"border\" x=\"12\" y=\"28\" width=\"200\" height=\"160\" fill=\"none\" stroke=\"#1E63D6\""
        " stroke-width=\"1.2\" stroke-dasharray=\"6,4\" vector-effect=\"none\"/>\n"
        "<g id=\"marks\" transform=\"translate(22,33)\" fill=\"#1E63D6\" stroke=\"#1E63D6\" stroke-width=\"1.6\""
        " stroke-linecap=\"round\" stroke-linejoin=\"round\">\n"
        "<path id=\"mark_1\" d=\"M10,10L20,20M10,20L20,10\"/>\n"
        "</g>\n"
        "<text id=\"name\" x=\"12\" y=\"22\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"17\""
        " font-weight=\"bold\" fill=\"#1E63D6\">B</text>\n"
        "<rect id=\"control_1\" x=\"207.5\" y=\"183.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"47.5\" x_to=\"1007.5\" y_from=\"63.5\" y_to=\"1023.5\"/>\n"
        "</svg>\n");
}

int CMagneticfield::getSVGType() { return 506; }

void CMagneticfield::ResetAtrribute()
{
    addCombo(kDirection, 1101, QStringLiteral("IDS_SVG_PHYSICAL_FIELD_DIRECTION"), 0,
             {QStringLiteral("IDS_SVG_PHYSICAL_FIELD_DIRECTION_0"), QStringLiteral("IDS_SVG_PHYSICAL_FIELD_DIRECTION_1"),
              QStringLiteral("IDS_SVG_PHYSICAL_FIELD_DIRECTION_2"), QStringLiteral("IDS_SVG_PHYSICAL_FIELD_DIRECTION_3"),
              QStringLiteral("IDS_SVG_PHYSICAL_FIELD_DIRECTION_4"), QStringLiteral("IDS_SVG_PHYSICAL_FIELD_DIRECTION_5")});
    addCombo(kDensity, 1102, QStringLiteral("IDS_SVG_PHYSICAL_DENSITY"), 1,
             {QStringLiteral("IDS_SVG_PHYSICAL_DENSITY_0"), QStringLiteral("IDS_SVG_PHYSICAL_DENSITY_1"),
              QStringLiteral("IDS_SVG_PHYSICAL_DENSITY_2")});
    addAttribute(kColour, 1103, 3, QStringLiteral("IDS_SVG_PHYSICAL_FIELD_COLOR"));
    m_attributes[kColour].color = QColor(0x1E, 0x63, 0xD6);
    addAttribute(kBorder, 1104, 0, QStringLiteral("IDS_SVG_PHYSICAL_SHOW_BORDER"), 0, true);
}

// The field colour paints the whole diagram; there is no other colour to give.
QString CMagneticfield::getPropName(int id) { return id == PROP_COLOR ? QString() : CBasic::getPropName(id); }

void CMagneticfield::SVGInit(bool, bool)
{
    m_layout = Layout();
    // The label never moves: measured once.
    if (QSvgNode *name = m_pDocument->namedNode(QStringLiteral("name")))
        m_nameBox = name->rect();
    // The field colour paints these, not the host's.
    for (const char *id : {"mark_1", "border", "name"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id))) {
            n->setFillEnabled(false);
            n->setStrokeEnabled(false);
        }
    relayout(false);
}

double CMagneticfield::spacing() const
{
    static const double kSpacing[] = {40, 30, 20};
    const int i = m_attributes.value(kDensity).intValue;
    return kSpacing[i >= 0 && i < 3 ? i : 1];
}

QRectF CMagneticfield::region() const
{
    QSvgNode *r = m_pDocument ? m_pDocument->namedNode(QStringLiteral("region")) : nullptr;
    QSvgNode *h = m_controlNodes.value(0);
    if (!r || !h)
        return QRectF();
    const double x = r->numAttribute(QStringLiteral("x")), y = r->numAttribute(QStringLiteral("y"));
    const QPointF corner = h->rect().center();
    // A handle put past its bounds by a saved page still leaves a region to fill.
    return QRectF(x, y, std::max(1.0, corner.x() - x), std::max(1.0, corner.y() - y));
}

void CMagneticfield::relayout(bool bFinal)
{
    QSvgNode *regionNode = m_pDocument ? m_pDocument->namedNode(QStringLiteral("region")) : nullptr;
    QSvgNode *border = m_pDocument ? m_pDocument->namedNode(QStringLiteral("border")) : nullptr;
    QSvgNode *group = m_pDocument ? m_pDocument->namedNode(QStringLiteral("marks")) : nullptr;
    if (!regionNode || !border || !group || m_controlNodes.isEmpty())
        return;
    const QRectF r = region();
    for (QSvgNode *n : {regionNode, border}) {
        n->setNumAttribute(QStringLiteral("width"), r.width());
        n->setNumAttribute(QStringLiteral("height"), r.height());
    }
    const double s = spacing();
    const int kind = qBound(0, m_attributes.value(kDirection).intValue, 5);
    const Series::Grid g = Series::grid(QRectF(0, 0, r.width(), r.height()), s);
    // The group's origin is the corner of the first cell; cell centres are then whole
    // multiples of half the spacing.
    const double ox = g.columns.first - s / 2, oy = g.rows.first - s / 2;
    QString t = QStringLiteral("translate(");
    FieldLines::number(t, r.x() + ox);
    t += QLatin1Char(',');
    FieldLines::number(t, r.y() + oy);
    t += QLatin1Char(')');
    group->setAttribute(QStringLiteral("transform"), t);

    const bool lines = kind >= Right;
    const bool rows = kind == Right || kind == Left;
    const int count = !lines ? g.count() : rows ? g.rows.count : g.columns.count;
    // A line's path holds the region's length along it; a grid mark's, the columns.
    const double across = !lines ? g.columns.count : rows ? r.width() : r.height();
    const bool same = m_layout.kind == kind && m_layout.spacing == s && m_layout.across == across;
    if (same && m_layout.count == count) { // the marks are as they were: the group's move was all
        Resize(bFinal);
        return;
    }
    const QVector<QSvgNode *> marks = Series::fit(*this, kMark, count);
    const int from = same ? std::min(m_layout.count, int(marks.size())) : 0;
    const int columns = g.columns.count;
    const double a = s <= 20 ? 4 : 5, dotR = s <= 20 ? 2.2 : 2.8;
    for (int i = from; i < marks.size(); ++i) {
        QString d;
        if (kind == Cross || kind == Dot) {
            const QPointF c(((i % columns) + 0.5) * s, ((i / columns) + 0.5) * s);
            d = kind == Cross ? cross(c, a) : dot(c, dotR);
        } else if (rows) {
            const double y = (i + 0.5) * s;
            const QPointF west(-ox, y), east(r.width() - ox, y);
            d = kind == Right ? FieldLines::arrowed(west, east) : FieldLines::arrowed(east, west);
        } else {
            const double x = (i + 0.5) * s;
            const QPointF north(x, -oy), south(x, r.height() - oy);
            d = kind == Down ? FieldLines::arrowed(north, south) : FieldLines::arrowed(south, north);
        }
        marks[i]->setAttribute(QStringLiteral("d"), d);
    }
    m_layout = {kind, s, across, int(marks.size())};
    Resize(bFinal);
}

void CMagneticfield::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    const QRectF r = region();
    if (r.isNull())
        return;
    enclose(r.adjusted(-kMagneticfieldHandleHalf - 1, -kMagneticfieldHandleHalf - 1, kMagneticfieldHandleHalf + 1, kMagneticfieldHandleHalf + 1), topLeft, bottomRight);
    enclose(m_nameBox, topLeft, bottomRight);
}

bool CMagneticfield::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    relayout(bFinal);
    repaint();
    return true;
}

void CMagneticfield::UpdateColor(bool)
{
    if (!m_pDocument)
        return;
    const QColor c = m_attributes.value(kColour).color;
    if (QSvgNode *g = m_pDocument->namedNode(QStringLiteral("marks"))) {
        g->setFillColor(c);
        g->setStrokeColor(c);
    }
    if (QSvgNode *b = m_pDocument->namedNode(QStringLiteral("border")))
        b->setStrokeColor(c);
    if (QSvgNode *n = m_pDocument->namedNode(QStringLiteral("name")))
        n->setFillColor(c);
    repaint();
}

void CMagneticfield::UpdateCheckBox(bool)
{
    if (QSvgNode *b = m_pDocument ? m_pDocument->namedNode(QStringLiteral("border")) : nullptr)
        b->setVisible(m_attributes.value(kBorder).boolValue);
    repaint();
}

void CMagneticfield::UpdateCombobox(bool) { relayout(true); }

void CMagneticfield::GetSettingArray(QJsonArray &array)
{
    PanelItems::append(*this, array,
                       {{"idFieldDirection", kDirection}, {"idDensity", kDensity}, {"idFieldColor", kColour},
                        {"idShowBorder", kBorder}});
    PanelItems::append(*this, array,
                       {{"idWidth", "IDS_PHYSICSOBJ_WIDTH", 0, HandlePos::X},
                        {"idHeight", "IDS_PHYSICSOBJ_HEIGHT", 0, HandlePos::Y}});
}

bool CMagneticfield::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    PanelItems::apply(*this, values,
                      {{"idFieldDirection", kDirection}, {"idDensity", kDensity}, {"idFieldColor", kColour},
                       {"idShowBorder", kBorder}},
                      bRecord, bUndo);
    PanelItems::apply(*this, values,
                      {{"idWidth", "IDS_PHYSICSOBJ_WIDTH", 0, HandlePos::X},
                       {"idHeight", "IDS_PHYSICSOBJ_HEIGHT", 0, HandlePos::Y}},
                      m_bPosByCode);
    return true;
}

bool CMagneticfield::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
