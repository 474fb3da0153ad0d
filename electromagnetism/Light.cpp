#include "Light.h"
#include "bases/AttrValue.h"
#include "bases/HandlePos.h"
#include "bases/HostPaint.h"
#include "bases/OwnValue.h"
#include <QJsonArray>
#include <svgobj.h>

namespace {

const QString kOnKey = QStringLiteral("idLightOn");
const QString kBrightnessKey = QStringLiteral("idBrightness");
const QColor kWarmWhite(0xFF, 0xD8, 0x5A);
const QColor kFilamentOff(0x4D, 0x4D, 0x4D);
const QColor kFilamentWarm(0xC8, 0x55, 0x20);
constexpr double kHaloMin = 31, kHaloMax = 58;

QColor blend(const QColor &a, const QColor &b, double t)
{
    return QColor::fromRgbF(a.redF() + (b.redF() - a.redF()) * t, a.greenF() + (b.greenF() - a.greenF()) * t,
                            a.blueF() + (b.blueF() - a.blueF()) * t);
}

} // namespace

CLight::CLight(CSVGObj *owner) : CSVGBase(owner) {}

CLight::~CLight() = default;

QString CLight::getSVG()
{
    // Halo behind the glass, so the glass and its outline stay in front of the light.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"120px\" height=\"172px\""
        " viewBox=\"0 0 120 172\">\n"
        "<defs>\n"
        "<radialGradient id=\"halo\" cx=\"0.5\" cy=\"0.5\" r=\"0.5\">"
        "<stop id=\"halo_0\" offset=\"0\" stop-color=\"#FFD85A\" stop-opacity=\"1\"/>"
        "<stop id=\"halo_1\" offset=\"0.4\" stop-color=\"#FFD85A\" stop-opacity=\"0.55\"/>"
        "<stop id=\"halo_2\" offset=\"1\" stop-color=\"#FFD85A\" stop-opacity=\"0\"/></radialGradient>\n"
        "<radialGradient id=\"inner\" cx=\"0.5\" cy=\"0.5\" r=\"0.5\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"1\"/>"
        "<stop id=\"inner_1\" offset=\"0.3\" stop-color=\"#FFD85A\" stop-opacity=\"0.9\"/>"
        "<stop id=\"inner_2\" offset=\"1\" stop-color=\"#FFD85A\" stop-opacity=\"0\"/></radialGradient>\n"
        "<radialGradient id=\"glass\" cx=\"0.38\" cy=\"0.32\" r=\"0.7\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.85\"/>"
        "<stop offset=\"0.55\" stop-color=\"#DDEEFF\" stop-opacity=\"0.6\"/>"
        "<stop offset=\"1\" stop-color=\"#A9C6E3\" stop-opacity=\"0.7\"/></radialGradient>\n"
        "<linearGradient id=\"metal\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#6E7780\"/><stop offset=\"0.45\" stop-color=\"#E1E6EA\"/>"
        "<stop offset=\"1\" stop-color=\"#6A737C\"/></linearGradient>\n"
        "<linearGradient id=\"bakelite\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#1F1F1F\"/><stop offset=\"0.4\" stop-color=\"#5C5C5C\"/>"
        "<stop offset=\"1\" stop-color=\"#1A1A1A\"/></linearGradient>\n"
        "<linearGradient id=\"brass\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#8A6A1F\"/><stop offset=\"0.45\" stop-color=\"#F2D77E\"/>"
        "<stop offset=\"1\" stop-color=\"#7D5E18\"/></linearGradient>\n"
        "<linearGradient id=\"sheen\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.45\"/>"
        "<stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.15\"/></linearGradient>\n"
        "</defs>\n"
        "<circle id=\"glow\" cx=\"60\" cy=\"58\" r=\"48\" fill=\"url(#halo)\" display=\"none\"/>\n"
        "<rect id=\"base\" x=\"6\" y=\"136\" width=\"108\" height=\"24\" rx=\"3\" fill=\"#C8A165\" stroke=\"#7A5A2E\""
        " stroke-width=\"1\" vector-effect=\"none\"/>\n"
        "<rect x=\"6\" y=\"136\" width=\"108\" height=\"24\" rx=\"3\" fill=\"url(#sheen)\"/>\n"
        "<path fill=\"none\" stroke=\"#2A2A2A\" stroke-width=\"1.6\" d=\"M44,133C38,133 32,130 26,130M76,133C82,133 88,130 94,130\"/>\n"
        "<rect x=\"16\" y=\"126\" width=\"20\" height=\"12\" rx=\"2\" fill=\"url(#brass)\" stroke=\"#5E4712\" stroke-width=\"0.8\"/>\n"
        "<rect x=\"84\" y=\"126\" width=\"20\" height=\"12\" rx=\"2\" fill=\"url(#brass)\" stroke=\"#5E4712\" stroke-width=\"0.8\"/>\n"
        "<ellipse cx=\"26\" cy=\"125\" rx=\"8\" ry=\"3.2\" fill=\"url(#brass)\" stroke=\"#5E4712\" stroke-width=\"0.8\"/>\n"
        "<ellipse cx=\"94\" cy=\"125\" rx=\"8\" ry=\"3.2\" fill=\"url(#brass)\" stroke=\"#5E4712\" stroke-width=\"0.8\"/>\n"
        "<path fill=\"none\" stroke=\"#5E4712\" stroke-width=\"1\" d=\"M22,125H30M90,125H98\"/>\n"
        "<path fill=\"url(#bakelite)\" stroke=\"#111111\" stroke-width=\"0.8\""
        " d=\"M38,118H82L84,136H36Z\"/>\n"
        "<path fill=\"url(#metal)\" stroke=\"#4A5560\" stroke-width=\"0.8\" d=\"M46,100H74V119H46Z\"/>\n"
        "<path fill=\"none\" stroke=\"#4A5560\" stroke-width=\"1.1\" stroke-linecap=\"round\""
        " d=\"M46,103.5L74,106.5M46,108.5L74,111.5M46,113.5L74,116.5\"/>\n"
        "<path fill=\"url(#glass)\" stroke=\"#5A7A9A\" stroke-width=\"1.2\" vector-effect=\"none\""
        " d=\"M47,101C47,91 31,82 31,58A29,29 0 1 1 89,58C89,82 73,91 73,101Z\"/>\n"
        "<circle id=\"glow_inner\" cx=\"60\" cy=\"58\" r=\"30\" fill=\"url(#inner)\" display=\"none\"/>\n"
        "<path fill=\"#EEF6FD\" fill-opacity=\"0.5\" stroke=\"#8AA6C0\" stroke-width=\"0.6\""
        " d=\"M54,101C55,92 56,86 57,80H63C64,86 65,92 66,101Z\"/>\n"
        "<path fill=\"none\" stroke=\"#6B6B6B\" stroke-width=\"0.9\" d=\"M58,80L48.5,58M62,80L71.5,58\"/>\n"
        "<path id=\"filament\" fill=\"none\" stroke=\"#4D4D4D\" stroke-width=\"1.5\" stroke-linecap=\"round\""
        " d=\"M48.5,58q1.2,-4.5 2.6,0t2.6,0t2.6,0t2.6,0t2.6,0t2.6,0t2.6,0t2.6,0\"/>\n"
        "<path fill=\"#FFFFFF\" fill-opacity=\"0.65\" d=\"M40,50C42,39 50,33 58,32C51,36 45,42 43,52Z\"/>\n"
        "</svg>\n");
}

int CLight::getSVGType() { return 402; }

bool CLight::loadSVG(bool bLoad)
{
    delete m_pDocument;
    m_pDocument = QSvgTinyDocument::fromTemplate(getSVG());
    const bool r = CSVGBase::loadSVG(bLoad);
    HostPaint::only(m_pDocument, {"base"});
    updateLight();
    return r;
}

QColor CLight::lightColour()
{
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        GetAttribute(PROP_LAMP_COLOR, out);
    }
    QDataStream in(bytes);
    QColor c;
    readColor(in, c);
    return c.isValid() ? c : kWarmWhite;
}

void CLight::updateLight()
{
    if (!m_pDocument)
        return;
    const QColor light = lightColour();
    QSvgNode *glow = m_pDocument->namedNode(QStringLiteral("glow"));
    QSvgNode *filament = m_pDocument->namedNode(QStringLiteral("filament"));
    const double b = m_nBrightness / 100.0;
    if (glow) {
        glow->setVisible(m_bOn && m_nBrightness > 0);
        glow->setNumAttribute(QStringLiteral("r"), kHaloMin + (kHaloMax - kHaloMin) * b);
        glow->setNumAttribute(QStringLiteral("opacity"), 0.3 + 0.7 * b);
    }
    // Inside the glass the light is hottest round the filament.
    if (QSvgNode *inner = m_pDocument->namedNode(QStringLiteral("glow_inner"))) {
        inner->setVisible(m_bOn && m_nBrightness > 0);
        inner->setNumAttribute(QStringLiteral("r"), 14 + 16 * b);
        inner->setNumAttribute(QStringLiteral("opacity"), 0.45 + 0.55 * b);
    }
    for (const char *stop : {"halo_0", "halo_1", "halo_2", "inner_1", "inner_2"})
        if (QSvgNode *s = m_pDocument->namedNode(QLatin1String(stop)))
            s->setStyleProperty(QStringLiteral("stop-color"), light.name());
    if (filament) {
        // At brightness 0 a lit filament only glows warm; brighter, it nears white.
        const QColor c = !m_bOn ? kFilamentOff : m_nBrightness == 0 ? kFilamentWarm : blend(kFilamentWarm, Qt::white, 0.35 + 0.6 * b);
        filament->setStrokeColor(c);
    }
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

// ------------------------------------------------------------- values

bool CLight::getInnerProperty(int id, QDataStream &out)
{
    if (id == PROP_ON) {
        out << m_bOn;
        return true;
    }
    if (id == PROP_BRIGHTNESS) {
        out << m_nBrightness;
        return true;
    }
    return CSVGBase::getInnerProperty(id, out);
}

bool CLight::setInnerProperty(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    if (id == PROP_ON) {
        bool on = false;
        in >> on;
        if (in.status() != QDataStream::Ok)
            return false;
        if (on != m_bOn) {
            OwnValue::noteChange(*this, PROP_ON, m_bOn, on, bRecord, bUndo);
            m_bOn = on;
            updateLight();
        }
        return true;
    }
    if (id == PROP_BRIGHTNESS) {
        int b = 0;
        in >> b;
        if (in.status() != QDataStream::Ok)
            return false;
        b = qBound(0, b, 100);
        if (b != m_nBrightness) {
            OwnValue::noteChange(*this, PROP_BRIGHTNESS, m_nBrightness, b, bRecord, bUndo);
            m_nBrightness = b;
            updateLight();
        }
        return true;
    }
    const bool r = CSVGBase::setInnerProperty(id, in, bRecord, bUndo);
    if (id == PROP_LAMP_COLOR)
        updateLight();
    return r;
}

bool CLight::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool restore = isRestore(id);
    const bool r = CSVGBase::SetAttribute(id, in, bRecord, bUndo);
    if (isCapture(id)) {
        m_bSavedOn = m_bOn;
        m_nSavedBrightness = m_nBrightness;
    } else if (restore) {
        AttrValue::apply(*this, PROP_ON, m_bSavedOn, false, false);
        AttrValue::apply(*this, PROP_BRIGHTNESS, m_nSavedBrightness, false, false);
    }
    return r;
}

void CLight::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    array.append(m_pOwner->GetSettingJsonSwitch(kOnKey, QStringLiteral("IDS_PHYSICSOBJ_LIGHT_ON"), m_bOn));
    array.append(m_pOwner->GetSettingJsonInput(kBrightnessKey, QStringLiteral("IDS_PHYSICSOBJ_BRIGHTNESS"),
                                               QString::number(m_nBrightness), QStringLiteral("int"), QStringLiteral("0"),
                                               QStringLiteral("100"), QString()));
}

bool CLight::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    const auto on = values.constFind(kOnKey);
    if (on != values.cend())
        AttrValue::apply(*this, PROP_ON, OwnValue::switchText(*on), bRecord, bUndo);
    double b = 0;
    if (HandlePos::typedNumber(values, kBrightnessKey, 0, 100, true, b))
        AttrValue::apply(*this, PROP_BRIGHTNESS, int(b), bRecord, bUndo);
    return true;
}

QString CLight::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_COLOR");
    if (id == PROP_LAMP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_LIGHTCOLOR");
    return CSVGBase::getPropName(id);
}

// ------------------------------------------------------------- persistence

bool CLight::save(QDataStream &out)
{
    out << m_bOn << qint32(m_nBrightness);
    return CSVGBase::save(out);
}

bool CLight::load(QDataStream &in)
{
    bool on = false;
    qint32 b = 0;
    in >> on >> b;
    if (in.status() != QDataStream::Ok)
        return refuseLoad(&in, QStringLiteral("cut short or damaged"));
    if (b < 0 || b > 100)
        return refuseLoad(&in, QStringLiteral("a brightness out of range"));
    HostPart part;
    if (!readHostPart(in, part))
        return false;
    applyLoaded(
        part,
        [&]() {
            m_bOn = on;
            m_nBrightness = b;
        },
        [&]() { updateLight(); });
    return true;
}
