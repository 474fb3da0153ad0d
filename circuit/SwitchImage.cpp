#include "SwitchImage.h"
#include "bases/AttrValue.h"
#include <svgobj.h>

namespace {
enum { kSwitchImageStateAttr = 5102, kSwitchImageStatePropId = 1103, kClosed = 0, kOpen = 1 };
} // namespace

CSwitchImage::CSwitchImage(CSVGObj *owner) : CAttribute(owner) {}

CSwitchImage::~CSwitchImage() = default;

QString CSwitchImage::getSVG()
{
    return QStringLiteral(
        "<?xml version='1.0' encoding='utf-8'?>\n"
        "<svg version='1.1' xmlns='http://www.w3.org/2000/svg' x='0px' y='0px' width='60px' height='18px' viewBox='0 0 60 18'>\n"
        "<g id='layer1'>\n"
        " <line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='0' y1='9' x2='17.75' y2='9'/>\n"
        " <line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='43.25' y1='9' x2='60' y2='9'/>\n"
        "</g>\n"
        "<g id='layer2'>\n"
        " <circle fill='none' stroke='#040000' stroke-width='1.5' vector-effect='none' cx='19.5' cy='9' r='1.75'/>\n"
        " <circle fill='none' stroke='#040000' stroke-width='1.5' vector-effect='none' cx='41.5' cy='9' r='1.75'/>\n"
        "</g>\n"
        "<g id='layer3'>\n"
        " <line id='line_1' fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='21.25' y1='9' x2='37.125' y2='1.5'/>\n"
        " <line id='line_2' fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='21.25' y1='9' x2='39.75' y2='8.2'/>\n"
        "</g>\n"
        "</svg>\n");
}

int CSwitchImage::getSVGType() { return 703; }

QString CSwitchImage::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_WIRE_COLOR");
    return CAttribute::getPropName(id);
}

void CSwitchImage::ResetAtrribute()
{
    addAttribute(kSwitchImageStateAttr, kSwitchImageStatePropId, 1, QStringLiteral("IDS_SVG_PHYSICAL_SWITCH_STACE"), kOpen);
}

QByteArray CSwitchImage::GetComboboxData()
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << 2 << 0 << QStringLiteral("IDS_SVG_PHYSICAL_CLOSE") << QStringLiteral("IDS_SVG_PHYSICAL_OPEN");
    return bytes;
}

void CSwitchImage::UpdateCombobox(bool)
{
    QSvgNode *open = m_pDocument ? m_pDocument->namedNode(QStringLiteral("line_1")) : nullptr;
    QSvgNode *closed = m_pDocument ? m_pDocument->namedNode(QStringLiteral("line_2")) : nullptr;
    if (!open || !closed)
        return;
    const int s = state();
    if (s != kClosed && s != kOpen)
        return;
    open->setVisible(s == kOpen);
    closed->setVisible(s == kClosed);
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

bool CSwitchImage::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CAttribute::SetAttribute(id, in, bRecord, bUndo);
    keepAttribute(id, kSwitchImageStateAttr, m_nCapturedState);
    return r;
}

void CSwitchImage::GetSettingArray(QJsonArray &array)
{
    if (m_pOwner)
        array.append(m_pOwner->GetSettingJsonSwitch(QStringLiteral("idSwitchIsConnected"),
                                                     QStringLiteral("IDS_PHYSICSOBJ_SWITCHONOFF"), state() == kClosed));
}

bool CSwitchImage::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    const auto it = values.constFind(QStringLiteral("idSwitchIsConnected"));
    if (it != values.cend())
        AttrValue::apply(*this, kSwitchImageStateAttr, int(it.value() == QLatin1String("true") ? kClosed : kOpen), bRecord, bUndo);
    return true;
}
