#include "RingImage.h"
#include "bases/AttrValue.h"
#include <svgobj.h>

namespace {
enum { kRingAttr = 5101, kRingPropId = 1102 };
} // namespace

CRingImage::CRingImage(CSVGObj *owner) : CAttribute(owner) {}

CRingImage::~CRingImage() = default;

QString CRingImage::getSVG()
{
    return QStringLiteral(
        "<?xml version='1.0' encoding='utf-8'?>\n"
        "<svg version='1.1' xmlns='http://www.w3.org/2000/svg' x='0px' y='0px' width='50px' height='65px' viewBox='0 0 50 65'>\n"
        "<path fill='none' stroke='#040000' stroke-width='2' vector-effect='none' d='M9,38 A16,16 0 0 1 41,38 Z'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='17' y1='38' x2='17' y2='64'/>\n"
        "<line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='33' y1='38' x2='33' y2='64'/>\n"
        "<g id='ring'>\n"
        " <line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='25' y1='19' x2='25' y2='11'/>\n"
        " <line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='38.435' y1='24.565' x2='44.092' y2='18.908'/>\n"
        " <line fill='none' stroke='#040000' stroke-width='2' vector-effect='none' x1='11.565' y1='24.565' x2='5.908' y2='18.908'/>\n"
        " <path fill='none' stroke='#040000' stroke-width='2' vector-effect='none' d='M14.397,8.87 A31,31 0 0 1 35.603,8.87'/>\n"
        "</g>\n"
        "</svg>\n");
}

int CRingImage::getSVGType() { return 705; }

QString CRingImage::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_COLOR");
    return CAttribute::getPropName(id);
}

void CRingImage::ResetAtrribute()
{
    addAttribute(kRingAttr, kRingPropId, 0, QStringLiteral("IDS_SVG_PHYSICAL_ELECTRIC_BELL"), 0, false);
}

void CRingImage::UpdateCheckBox(bool)
{
    if (QSvgNode *ring = m_pDocument ? m_pDocument->namedNode(QStringLiteral("ring")) : nullptr)
        ring->setVisible(ringing());
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

bool CRingImage::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CAttribute::SetAttribute(id, in, bRecord, bUndo);
    keepAttribute(id, kRingAttr, m_bCapturedRinging);
    return r;
}

void CRingImage::GetSettingArray(QJsonArray &array)
{
    if (m_pOwner)
        array.append(m_pOwner->GetSettingJsonSwitch(QStringLiteral("idBellIsRinging"), QStringLiteral("IDS_PHYSICSOBJ_BELLRING"),
                                                     ringing()));
}

bool CRingImage::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    const auto it = values.constFind(QStringLiteral("idBellIsRinging"));
    if (it != values.cend())
        AttrValue::apply(*this, kRingAttr, it.value() == QLatin1String("true"), bRecord, bUndo);
    return true;
}
