#include "SlidingRheostat.h"
#include "bases/AttrValue.h"
#include "bases/HandlePos.h"
#include "bases/HostPaint.h"
#include "bases/OwnValue.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

const QString kPosKey = QStringLiteral("idPosValue");
const QString kNamesKey = QStringLiteral("idShowTerminalNames");
// The winding, and the slider's centre as drawn in the template.
constexpr double kWindLeft = 50, kWindRight = 230, kSlidingRheostatPitch = 3, kSliderDrawnAt = 140;

QString turns()
{
    QString d;
    for (int k = 1; kWindLeft + (k - 1) * kSlidingRheostatPitch < kWindRight; ++k) {
        const double x = kWindLeft + (k - 1) * kSlidingRheostatPitch + kSlidingRheostatPitch / 2;
        d += QStringLiteral("<line id=\"coil_%1\" x1=\"%2\" y1=\"60.8\" x2=\"%3\" y2=\"93.2\"/>\n")
                 .arg(k)
                 .arg(x - 0.8)
                 .arg(x + 0.8);
    }
    return d;
}

QString terminal(const char *id, double x, double y)
{
    return QStringLiteral("<g id=\"%1\"><rect x=\"%2\" y=\"%3\" width=\"12\" height=\"9\" rx=\"1.5\" fill=\"url(#brass)\""
                          " stroke=\"#5E4712\" stroke-width=\"0.7\"/><ellipse cx=\"%4\" cy=\"%3\" rx=\"6\" ry=\"2.4\""
                          " fill=\"url(#brass)\" stroke=\"#5E4712\" stroke-width=\"0.7\"/><path d=\"M%5,%3H%6\" fill=\"none\""
                          " stroke=\"#5E4712\" stroke-width=\"0.9\"/></g>\n")
        .arg(QLatin1String(id))
        .arg(x - 6)
        .arg(y)
        .arg(x)
        .arg(x - 3.5)
        .arg(x + 3.5);
}

QString name(const char *id, const char *letter, double x, double y)
{
    return QStringLiteral("<text id=\"%1\" x=\"%2\" y=\"%3\" font-family=\"Liberation Sans, Arial, sans-serif\""
                          " font-size=\"13\" font-weight=\"bold\" text-anchor=\"middle\" fill=\"#1A1A1A\""
                          " display=\"none\">%4</text>\n")
        .arg(QLatin1String(id))
        .arg(x)
        .arg(y)
        .arg(QLatin1String(letter));
}

} // namespace

CSlidingRheostat::CSlidingRheostat(CSVGObj *owner) : CSVGBase(owner)
{
    setPostsChangedSettings(true);
}

CSlidingRheostat::~CSlidingRheostat() = default;

QString CSlidingRheostat::getSVG()
{
    static const QString svg =
        QStringLiteral(
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
            "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"280px\" height=\"124px\""
            " viewBox=\"0 0 280 124\">\n"
            "<defs>\n"
            "<linearGradient id=\"ceramic\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
            "<stop offset=\"0\" stop-color=\"#FFFFFF\"/><stop offset=\"0.35\" stop-color=\"#F1EBDD\"/>"
            "<stop offset=\"1\" stop-color=\"#A99D86\"/></linearGradient>\n"
            "<linearGradient id=\"round\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
            "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.35\"/>"
            "<stop offset=\"0.4\" stop-color=\"#FFFFFF\" stop-opacity=\"0\"/>"
            "<stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.3\"/></linearGradient>\n"
            "<linearGradient id=\"rod\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
            "<stop offset=\"0\" stop-color=\"#F2F5F7\"/><stop offset=\"0.5\" stop-color=\"#9EA7B0\"/>"
            "<stop offset=\"1\" stop-color=\"#56606A\"/></linearGradient>\n"
            "<linearGradient id=\"metal\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
            "<stop offset=\"0\" stop-color=\"#6E7780\"/><stop offset=\"0.45\" stop-color=\"#E1E6EA\"/>"
            "<stop offset=\"1\" stop-color=\"#6A737C\"/></linearGradient>\n"
            "<linearGradient id=\"brass\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
            "<stop offset=\"0\" stop-color=\"#8A6A1F\"/><stop offset=\"0.45\" stop-color=\"#F2D77E\"/>"
            "<stop offset=\"1\" stop-color=\"#7D5E18\"/></linearGradient>\n"
            "<linearGradient id=\"post\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
            "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.3\"/>"
            "<stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.25\"/></linearGradient>\n"
            "</defs>\n"
            "<rect id=\"tube\" x=\"38\" y=\"60\" width=\"204\" height=\"34\" fill=\"url(#ceramic)\" stroke=\"#8C8270\""
            " stroke-width=\"0.8\" vector-effect=\"none\"/>\n"
            "<g fill=\"none\" stroke=\"#7A4A22\" stroke-width=\"1.3\" vector-effect=\"none\">\n%1</g>\n"
            "<rect x=\"50\" y=\"60\" width=\"180\" height=\"34\" fill=\"url(#round)\"/>\n"
            "<path id=\"post_left\" fill=\"#4F5A66\" stroke=\"#2E363F\" stroke-width=\"0.8\""
            " d=\"M24,30H38V106H46V114H16V106H24Z\"/>\n"
            "<path id=\"post_right\" fill=\"#4F5A66\" stroke=\"#2E363F\" stroke-width=\"0.8\""
            " d=\"M242,30H256V106H264V114H234V106H242Z\"/>\n"
            "<rect x=\"24\" y=\"30\" width=\"14\" height=\"76\" fill=\"url(#post)\"/>\n"
            "<rect x=\"242\" y=\"30\" width=\"14\" height=\"76\" fill=\"url(#post)\"/>\n"
            "<rect id=\"bar\" x=\"20\" y=\"36\" width=\"240\" height=\"6\" rx=\"1\" fill=\"url(#rod)\" stroke=\"#4A5560\""
            " stroke-width=\"0.6\"/>\n"
            "%2%3%4%5"
            "<g id=\"slider\">\n"
            "<path fill=\"url(#brass)\" stroke=\"#5E4712\" stroke-width=\"0.7\""
            " d=\"M136,46V53Q136,58 138,61H142Q144,58 144,53V46Z\"/>\n"
            "<rect x=\"129\" y=\"31\" width=\"22\" height=\"16\" rx=\"2\" fill=\"url(#metal)\" stroke=\"#4A5560\""
            " stroke-width=\"0.8\"/>\n"
            "<rect x=\"134.5\" y=\"24\" width=\"11\" height=\"7.5\" rx=\"2\" fill=\"#2B2B2B\" stroke=\"#111111\""
            " stroke-width=\"0.6\"/>\n"
            "</g>\n"
            "%6%7%8%9"
            "<rect id=\"control_1\" x=\"135.5\" y=\"34.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
            " x_from=\"45.5\" x_to=\"225.5\"/>\n"
            "</svg>\n")
            .arg(turns(), terminal("terminal_a", 31, 92), terminal("terminal_b", 249, 92), terminal("terminal_c", 31, 21),
                 terminal("terminal_d", 249, 21), name("name_a", "A", 10, 104), name("name_b", "B", 270, 104),
                 name("name_c", "C", 10, 30))
            .arg(name("name_d", "D", 270, 30));
    return svg;
}

int CSlidingRheostat::getSVGType() { return 407; }

bool CSlidingRheostat::loadSVG(bool bLoad)
{
    delete m_pDocument;
    m_pDocument = QSvgTinyDocument::fromTemplate(getSVG());
    const bool r = CSVGBase::loadSVG(bLoad);
    // The host's colour paints the end posts; the rest keeps its own colours.
    HostPaint::only(m_pDocument, {"post_left", "post_right"});
    if (QSvgNode *h = m_controlNodes.value(0))
        updateSVG(h, QPointF(), false);
    return r;
}

double CSlidingRheostat::position() { return HandlePos::exactPercent(*this, 0, HandlePos::X, HandlePos::get(*this, 0, HandlePos::X)); }

int CSlidingRheostat::shownPosition() { return HandlePos::percentOf(position(), 0, 100); }

bool CSlidingRheostat::updateSVG(QSvgNode *node, QPointF, bool)
{
    if (!node || node != m_controlNodes.value(0) || !m_pDocument)
        return false;
    const QRectF h = node->rect();
    if (QSvgNode *slider = m_pDocument->namedNode(QStringLiteral("slider")))
        slider->setAttribute(QStringLiteral("transform"),
                             QStringLiteral("translate(%1,0)").arg(SvgNumbers::format(h.center().x() - kSliderDrawnAt)));
    if (m_pOwner)
        m_pOwner->update(QRectF());
    return true;
}

void CSlidingRheostat::showNames()
{
    for (const char *id : {"name_a", "name_b", "name_c", "name_d"})
        if (QSvgNode *n = m_pDocument ? m_pDocument->namedNode(QLatin1String(id)) : nullptr)
            n->setVisible(m_bNames);
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

// ------------------------------------------------------------- values

bool CSlidingRheostat::getInnerProperty(int id, QDataStream &out)
{
    if (id == PROP_POS) {
        out << shownPosition();
        return true;
    }
    if (id == PROP_NAMES) {
        out << m_bNames;
        return true;
    }
    return CSVGBase::getInnerProperty(id, out);
}

bool CSlidingRheostat::setInnerProperty(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    if (id == PROP_POS) {
        int p = 0;
        in >> p;
        if (in.status() != QDataStream::Ok)
            return false;
        p = qBound(0, p, 100);
        QSvgNode *h = m_controlNodes.value(0);
        if (!h)
            return false;
        const double x = getXMin(h) + (getXMax(h) - getXMin(h)) * p / 100;
        if (x != h->rect().x()) {
            OwnValue::noteChange(*this, PROP_POS, shownPosition(), p, bRecord, bUndo);
            HandlePos::set(*this, 0, HandlePos::X, x, m_bPosByCode);
        }
        return true;
    }
    if (id == PROP_NAMES) {
        bool on = false;
        in >> on;
        if (in.status() != QDataStream::Ok)
            return false;
        if (on != m_bNames) {
            OwnValue::noteChange(*this, PROP_NAMES, m_bNames, on, bRecord, bUndo);
            m_bNames = on;
            showNames();
        }
        return true;
    }
    return CSVGBase::setInnerProperty(id, in, bRecord, bUndo);
}

bool CSlidingRheostat::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool restore = isRestore(id);
    const bool r = CSVGBase::SetAttribute(id, in, bRecord, bUndo);
    if (isCapture(id)) {
        m_dSavedX = HandlePos::get(*this, 0, HandlePos::X);
        m_bSavedNames = m_bNames;
    } else if (restore) {
        AttrValue::apply(*this, PROP_NAMES, m_bSavedNames, false, false);
        HandlePos::set(*this, 0, HandlePos::X, m_dSavedX, m_bPosByCode);
    }
    return r;
}

void CSlidingRheostat::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    HandlePos::appendInput(*this, array, QStringLiteral("IDS_PHYSICSOBJ_SLIDER_POS"), shownPosition());
    array.append(m_pOwner->GetSettingJsonSwitch(kNamesKey, QStringLiteral("IDS_PHYSICSOBJ_SHOW_TERMINAL_NAMES"), m_bNames));
}

bool CSlidingRheostat::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    double p = 0;
    if (HandlePos::typedNumber(values, kPosKey, 0, 100, true, p))
        AttrValue::apply(*this, PROP_POS, int(p), bRecord, bUndo);
    const auto names = values.constFind(kNamesKey);
    if (names != values.cend())
        AttrValue::apply(*this, PROP_NAMES, OwnValue::switchText(*names), bRecord, bUndo);
    return true;
}

QString CSlidingRheostat::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_COLOR");
    return CSVGBase::getPropName(id);
}

// ------------------------------------------------------------- persistence

bool CSlidingRheostat::save(QDataStream &out)
{
    out << position() << m_bNames;
    return CSVGBase::save(out);
}

bool CSlidingRheostat::load(QDataStream &in)
{
    double pos = 0;
    bool names = false;
    in >> pos >> names;
    if (in.status() != QDataStream::Ok)
        return refuseLoad(&in, QStringLiteral("cut short or damaged"));
    HostPart part;
    if (!readHostPart(in, part))
        return false;
    // The percentage is the one the saved handle stands for, to the last bit.
    if (part.handles.isEmpty() || !(pos == HandlePos::exactPercent(*this, 0, HandlePos::X, part.handles.first().x())))
        return refuseLoad(&in, QStringLiteral("a slider place that is not its handle's"));
    applyLoaded(
        part, [&]() { m_bNames = names; }, [&]() { showNames(); });
    return true;
}
