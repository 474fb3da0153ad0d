#include "Ironcore.h"
#include "bases/HostPaint.h"
#include "bases/PanelItems.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <svgobj.h>

namespace {
// The left end and the top edge stay put.
constexpr double kIroncoreLeft = 6, kIroncoreTop = 6, kIroncoreHandleHalf = 4.5, kLamination = 6;
const QString kLam = QStringLiteral("lam");
} // namespace

CIroncore::CIroncore(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
    setDragSettingTexts([this] {
        return PanelItems::texts(*this, {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X}, {"idThickness", "IDS_PHYSICSOBJ_THICKNESS", 1, HandlePos::Y}});
    });
}

CIroncore::~CIroncore() = default;

QString CIroncore::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"212px\" height=\"57px\""
        " viewBox=\"0 0 212 57\">\n"
        "<defs>\n"
        "<linearGradient id=\"sheen\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
        "<stop offset=\"0\" stop-color=\"#FFFFFF\" stop-opacity=\"0.5\"/>"
        "<stop offset=\"0.25\" stop-color=\"#FFFFFF\" stop-opacity=\"0.12\"/>"
        "<stop offset=\"0.6\" stop-color=\"#000000\" stop-opacity=\"0\"/>"
        "<stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.35\"/></linearGradient>\n"
        "<linearGradient id=\"ends\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\">"
        "<stop offset=\"0\" stop-color=\"#000000\" stop-opacity=\"0.18\"/>"
        "<stop offset=\"0.03\" stop-color=\"#000000\" stop-opacity=\"0\"/>"
        "<stop offset=\"0.97\" stop-color=\"#000000\" stop-opacity=\"0\"/>"
        "<stop offset=\"1\" stop-color=\"#000000\" stop-opacity=\"0.18\"/></linearGradient>\n"
        "</defs>\n"
        "<rect id=\"core\" x=\"6\" y=\"6\" width=\"200\" height=\"40\" fill=\"#8E979F\"/>\n"
        "<g id=\"laminations\" fill=\"none\" stroke=\"#4A5560\" stroke-width=\"0.7\" stroke-opacity=\"0.75\">\n"
        "<line id=\"lam_1\" x1=\"6\" y1=\"12\" x2=\"206\" y2=\"12\"/>\n"
        "</g>\n"
        "<rect id=\"core_sheen\" x=\"6\" y=\"6\" width=\"200\" height=\"40\" fill=\"url(#sheen)\"/>\n"
        "<rect id=\"core_ends\" x=\"6\" y=\"6\" width=\"200\" height=\"40\" fill=\"url(#ends)\" stroke=\"#4A5560\""
        " stroke-width=\"1\" vector-effect=\"none\"/>\n"
        "<rect id=\"control_1\" x=\"201.5\" y=\"21.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"31.5\" x_to=\"601.5\"/>\n"
        "<rect id=\"control_2\" x=\"101.5\" y=\"41.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " y_from=\"11.5\" y_to=\"121.5\"/>\n"
        "</svg>\n");
}

int CIroncore::getSVGType() { return 503; }

void CIroncore::SVGInit(bool, bool)
{
    // The host's colour paints the iron; the laminations keep their own.
    HostPaint::only(m_pDocument, {"core"});
    layout(false);
}

double CIroncore::length() const
{
    QSvgNode *h = m_controlNodes.value(0);
    return h ? h->rect().center().x() - kIroncoreLeft : 0;
}

double CIroncore::thickness() const
{
    QSvgNode *h = m_controlNodes.value(1);
    return h ? h->rect().center().y() - kIroncoreTop : 0;
}

void CIroncore::layout(bool bFinal)
{
    if (!m_pDocument || m_controlNodes.size() < 2)
        return;
    const double len = length(), t = thickness();
    for (const char *id : {"core", "core_sheen", "core_ends"})
        if (QSvgNode *n = m_pDocument->namedNode(QLatin1String(id))) {
            n->setNumAttribute(QStringLiteral("width"), len);
            n->setNumAttribute(QStringLiteral("height"), t);
        }
    // One sheet boundary per 6 units of thickness, spread evenly across it.
    const Series::Spread s = Series::spread(kIroncoreTop, t, kLamination);
    const QVector<QSvgNode *> lines = Series::fit(*this, kLam, s.count);
    for (int i = 0; i < lines.size(); ++i) {
        QSvgNode *l = lines[i];
        l->setNumAttribute(QStringLiteral("x2"), kIroncoreLeft + len);
        l->setNumAttribute(QStringLiteral("y1"), s.at(i));
        l->setNumAttribute(QStringLiteral("y2"), s.at(i));
    }
    // Each handle stays where the other's value puts it: mid-height, mid-length.
    m_controlNodes.at(0)->setNumAttribute(QStringLiteral("y"), kIroncoreTop + t / 2 - kIroncoreHandleHalf);
    m_controlNodes.at(1)->setNumAttribute(QStringLiteral("x"), kIroncoreLeft + len / 2 - kIroncoreHandleHalf);
    Resize(bFinal);
    repaint();
}

void CIroncore::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    enclose(QRectF(kIroncoreLeft, kIroncoreTop, length(), thickness()).adjusted(-1, -1, 1, 1), topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

bool CIroncore::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || !m_controlNodes.contains(node))
        return false;
    layout(bFinal);
    return true;
}

void CIroncore::GetSettingArray(QJsonArray &array)
{
    PanelItems::append(*this, array,
                       {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X},
                        {"idThickness", "IDS_PHYSICSOBJ_THICKNESS", 1, HandlePos::Y}});
}

bool CIroncore::SetSettingArray(QMap<QString, QString> &values, bool, bool)
{
    PanelItems::apply(*this, values,
                      {{"idLength", "IDS_PHYSICSOBJ_LENGTH", 0, HandlePos::X},
                       {"idThickness", "IDS_PHYSICSOBJ_THICKNESS", 1, HandlePos::Y}},
                      m_bPosByCode);
    return true;
}

bool CIroncore::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
