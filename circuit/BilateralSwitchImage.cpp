#include "BilateralSwitchImage.h"
#include "bases/AttrValue.h"
#include <svgobj.h>

namespace {
enum { kBilateralSwitchImageStateAttr = 5102, kBilateralSwitchImageStatePropId = 1103, kBlades = 3 };

// Blade shown for each state: open, closed up, closed down.
const char *const kBladeOf[kBlades] = {"line_2", "line_1", "line_3"};
} // namespace

CBilateralSwitchImage::CBilateralSwitchImage(CSVGObj *owner) : CAttribute(owner) {}

CBilateralSwitchImage::~CBilateralSwitchImage() = default;

QString CBilateralSwitchImage::getSVG()
{
    return QStringLiteral(
        "<?xml version='1.0' encoding='utf-8'?>\n"
        "<svg version='1.1' xmlns='http://www.w3.org/2000/svg' x='0px' y='0px' width='60px' height='28px' viewBox='0 0 60 28'>\n"
        "<g id='layer1'>\n"
        " <line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='0' y1='14.156' x2='20.197' y2='14.156'/>\n"
        " <line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='43.5' y1='8.265' x2='60' y2='8.265'/>\n"
        " <line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='43.5' y1='19.75' x2='60' y2='19.75'/>\n"
        "</g>\n"
        "<g id='layer2'>\n"
        " <circle fill='none' stroke='#040000' stroke-width='1.5' vector-effect='none' cx='21.947' cy='14.156' r='1.75'/>\n"
        "</g>\n"
        "<g id='layer3'>\n"
        " <circle fill='none' stroke='#040000' stroke-width='1.5' vector-effect='none' cx='41.75' cy='8.265' r='1.75'/>\n"
        " <circle fill='none' stroke='#040000' stroke-width='1.5' vector-effect='none' cx='41.75' cy='19.75' r='1.75'/>\n"
        "</g>\n"
        "<g id='layer4'>\n"
        " <line id='line_1' fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='23.697' y1='14.156' x2='40' y2='8.265'/>\n"
        " <line id='line_2' fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='23.697' y1='14.156' x2='40' y2='14.156'/>\n"
        " <line id='line_3' fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='23.697' y1='14.156' x2='40' y2='19.75'/>\n"
        "</g>\n"
        "</svg>\n");
}

int CBilateralSwitchImage::getSVGType() { return 702; }

QString CBilateralSwitchImage::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_WIRE_COLOR");
    return CAttribute::getPropName(id);
}

void CBilateralSwitchImage::ResetAtrribute()
{
    addAttribute(kBilateralSwitchImageStateAttr, kBilateralSwitchImageStatePropId, 1, QStringLiteral("IDS_SVG_PHYSICAL_SWITCH_STACE"), 1);
}

QByteArray CBilateralSwitchImage::GetComboboxData()
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << kBlades << 0 << QStringLiteral("IDS_SVG_PHYSICAL_DISCONNECT") << QStringLiteral("IDS_SVG_PHYSICAL_CLOSEUP")
        << QStringLiteral("IDS_SVG_PHYSICAL_CLOSEDOWN");
    return bytes;
}

void CBilateralSwitchImage::UpdateCombobox(bool)
{
    const int s = state();
    if (!m_pDocument || s < 0 || s >= kBlades)
        return;
    for (int i = 0; i < kBlades; ++i)
        if (QSvgNode *blade = m_pDocument->namedNode(QLatin1String(kBladeOf[i])))
            blade->setVisible(i == s);
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

bool CBilateralSwitchImage::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CAttribute::SetAttribute(id, in, bRecord, bUndo);
    keepAttribute(id, kBilateralSwitchImageStateAttr, m_nCapturedState);
    return r;
}

void CBilateralSwitchImage::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    array.append(m_pOwner->GetSettingJsonComboBox(
        QStringLiteral("idSwitchState"), QStringLiteral("IDS_PHYSICSOBJ_SWITCHSTATE"), state(), QStringList(),
        {QStringLiteral("IDS_PHYSICSOBJ_SWITCHDISCONNECT"), QStringLiteral("IDS_PHYSICSOBJ_SWITCHCONNECTUP"),
         QStringLiteral("IDS_PHYSICSOBJ_SWITCHCONNECTDOWN")}));
}

bool CBilateralSwitchImage::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    const auto it = values.constFind(QStringLiteral("idSwitchState"));
    if (it != values.cend())
        AttrValue::apply(*this, kBilateralSwitchImageStateAttr, it.value().toInt(), bRecord, bUndo);
    return true;
}
