#include "Switch.h"
#include <svgobj.h>

CSwitch::CSwitch(CSVGObj *owner) : CAttribute(owner) {}

CSwitch::~CSwitch() = default;

QString CSwitch::getSVG()
{
    // The blade turns about the hinge pin at (51, 84); open, it stands 25 degrees up.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"213px\" height=\"155px\" viewBox=\"0 0 213 155\">\n"
        "<defs>\n"
        "<linearGradient id=\"baseTop\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\"><stop offset=\"0\" stop-color=\"#F7F4EC\"/>"
        "<stop offset=\"1\" stop-color=\"#D9D2C2\"/></linearGradient>\n"
        "<linearGradient id=\"baseFront\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\"><stop offset=\"0\" stop-color=\"#C4BBA8\"/>"
        "<stop offset=\"1\" stop-color=\"#968D7D\"/></linearGradient>\n"
        "<linearGradient id=\"brass\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\"><stop offset=\"0\" stop-color=\"#8A6A2A\"/>"
        "<stop offset=\"0.45\" stop-color=\"#F2D78F\"/><stop offset=\"1\" stop-color=\"#8A6A2A\"/></linearGradient>\n"
        "<linearGradient id=\"copper\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\"><stop offset=\"0\" stop-color=\"#F0C987\"/>"
        "<stop offset=\"1\" stop-color=\"#A4702C\"/></linearGradient>\n"
        "<linearGradient id=\"grip\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\"><stop offset=\"0\" stop-color=\"#121212\"/><stop offset=\"0.4\" stop-color=\"#5A5A5A\"/>"
        "<stop offset=\"1\" stop-color=\"#121212\"/></linearGradient>\n"
        "</defs>\n"
        "<g id=\"layer1\">\n"
        "<rect x=\"14\" y=\"143\" width=\"185\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#000000\" fill-opacity=\"0.18\"/>\n"
        "<rect x=\"8\" y=\"116\" width=\"197\" height=\"30\" rx=\"4\" ry=\"4\" fill=\"url(#baseFront)\" stroke=\"#7D7566\" stroke-width=\"1\"/>\n"
        "<rect x=\"8\" y=\"104\" width=\"197\" height=\"16\" rx=\"3\" ry=\"3\" fill=\"url(#baseTop)\" stroke=\"#A39B8B\" stroke-width=\"1\"/>\n"
        "<rect x=\"24\" y=\"108\" width=\"30\" height=\"5\" fill=\"url(#copper)\" stroke=\"#7A5520\" stroke-width=\"0.6\"/>\n"
        "<rect x=\"160\" y=\"108\" width=\"34\" height=\"5\" fill=\"url(#copper)\" stroke=\"#7A5520\" stroke-width=\"0.6\"/>\n"
        "<rect x=\"17\" y=\"82\" width=\"14\" height=\"28\" fill=\"url(#brass)\" stroke=\"#6B5220\" stroke-width=\"1\"/>\n"
        "<rect x=\"13\" y=\"96\" width=\"22\" height=\"8\" rx=\"1.5\" ry=\"1.5\" fill=\"url(#brass)\" stroke=\"#6B5220\" stroke-width=\"1\"/>\n"
        "<ellipse cx=\"24\" cy=\"82\" rx=\"8\" ry=\"3\" fill=\"#F3DC9A\" stroke=\"#6B5220\" stroke-width=\"1\"/>\n"
        "<rect x=\"187\" y=\"82\" width=\"14\" height=\"28\" fill=\"url(#brass)\" stroke=\"#6B5220\" stroke-width=\"1\"/>\n"
        "<rect x=\"183\" y=\"96\" width=\"21\" height=\"8\" rx=\"1.5\" ry=\"1.5\" fill=\"url(#brass)\" stroke=\"#6B5220\" stroke-width=\"1\"/>\n"
        "<ellipse cx=\"194\" cy=\"82\" rx=\"8\" ry=\"3\" fill=\"#F3DC9A\" stroke=\"#6B5220\" stroke-width=\"1\"/>\n"
        "<rect x=\"44\" y=\"74\" width=\"14\" height=\"38\" rx=\"2\" ry=\"2\" fill=\"url(#brass)\" stroke=\"#6B5220\" stroke-width=\"1\"/>\n"
        "<rect x=\"155\" y=\"102\" width=\"24\" height=\"9\" rx=\"1.5\" ry=\"1.5\" fill=\"url(#brass)\" stroke=\"#6B5220\" stroke-width=\"1\"/>\n"
        "<rect x=\"158\" y=\"76\" width=\"5\" height=\"28\" fill=\"url(#brass)\" stroke=\"#6B5220\" stroke-width=\"1\"/>\n"
        "<rect x=\"171\" y=\"76\" width=\"5\" height=\"28\" fill=\"url(#brass)\" stroke=\"#6B5220\" stroke-width=\"1\"/>\n"
        "</g>\n"
        "<g id=\"on\">\n"
        "<rect x=\"48\" y=\"81\" width=\"134\" height=\"6\" rx=\"1\" ry=\"1\" fill=\"url(#copper)\" stroke=\"#7A5520\" stroke-width=\"0.8\"/>\n"
        "<rect x=\"171\" y=\"78\" width=\"5\" height=\"12\" fill=\"url(#brass)\" stroke=\"#6B5220\" stroke-width=\"1\"/>\n"
        "<rect x=\"176\" y=\"60\" width=\"10\" height=\"29\" rx=\"5\" ry=\"5\" fill=\"url(#grip)\" stroke=\"#000000\" stroke-width=\"1\"/>\n"
        "<circle cx=\"51\" cy=\"84\" r=\"4\" fill=\"#6B5220\" stroke=\"#3F300F\" stroke-width=\"1\"/>\n"
        "</g>\n"
        "<g id=\"off\" transform=\"rotate(-25 51 84)\">\n"
        "<rect x=\"48\" y=\"81\" width=\"134\" height=\"6\" rx=\"1\" ry=\"1\" fill=\"url(#copper)\" stroke=\"#7A5520\" stroke-width=\"0.8\"/>\n"
        "<rect x=\"176\" y=\"60\" width=\"10\" height=\"29\" rx=\"5\" ry=\"5\" fill=\"url(#grip)\" stroke=\"#000000\" stroke-width=\"1\"/>\n"
        "<circle cx=\"51\" cy=\"84\" r=\"4\" fill=\"#6B5220\" stroke=\"#3F300F\" stroke-width=\"1\"/>\n"
        "</g>\n"
        "</svg>\n");
}

int CSwitch::getSVGType() { return 400; }

QString CSwitch::getPropName(int id)
{
    return id == PROP_COLOR ? QStringLiteral("IDS_SVG_PHYSICAL_COLOR") : CAttribute::getPropName(id);
}

void CSwitch::ResetAtrribute()
{
    DATA_MAP_STRUCT closed;
    closed.propId = 1101;
    closed.dataType = 0;
    closed.name = QStringLiteral("IDS_SVG_PHYSICAL_Switch_is_closed");
    closed.color = QColor(Qt::black);
    closed.boolValue = false;
    closed.intValue = 0;
    m_attributes.insert(5100, closed);
}

void CSwitch::UpdateCheckBox(bool)
{
    open = !m_attributes.value(5100).boolValue;
    UpdateSwitch();
}

void CSwitch::UpdateSwitch()
{
    if (!m_pDocument)
        return;
    QSvgNode *on = m_pDocument->namedNode(QStringLiteral("on"));
    QSvgNode *off = m_pDocument->namedNode(QStringLiteral("off"));
    if (!on || !off)
        return;
    on->setVisible(!open);
    off->setVisible(open);
}

void CSwitch::GetSettingArray(QJsonArray &array)
{
    const auto it = m_attributes.constFind(5100);
    if (it == m_attributes.cend() || !m_pOwner)
        return;
    array.append(m_pOwner->GetSettingJsonSwitch(QStringLiteral("idSwitchIsConnected"), QStringLiteral("IDS_PHYSICSOBJ_SWITCHONOFF"),
                                                it->boolValue));
}

bool CSwitch::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    const auto it = values.constFind(QStringLiteral("idSwitchIsConnected"));
    if (it != values.cend()) {
        const bool closed = *it == QLatin1String("true") || *it == QLatin1String("1");
        QByteArray bytes;
        QDataStream(&bytes, QIODevice::WriteOnly) << closed;
        QDataStream in(bytes);
        SetAttribute(5100, in, bRecord, bUndo);
    }
    return true;
}

bool CSwitch::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CAttribute::SetAttribute(id, in, bRecord, bUndo);
    if (isCapture(id)) {
        const auto it = m_attributes.constFind(5100);
        if (it != m_attributes.cend())
            savedClosed = it->boolValue;
    } else if (isRestore(id)) {
        QByteArray bytes;
        QDataStream(&bytes, QIODevice::WriteOnly) << savedClosed;
        QDataStream s(bytes);
        SetAttribute(5100, s, bRecord, false);
    }
    return r;
}
