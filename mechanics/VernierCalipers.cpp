#include "VernierCalipers.h"
#include "bases/HandlePos.h"
#include "bases/Series.h"
#include <QJsonArray>
#include <cmath>
#include <svgobj.h>

namespace {

constexpr int kDivisionsAttr = 5100;
constexpr double kUnitsPerMm = 4;
constexpr double kMaxMm = 150;
// Main-scale zero, and the jaws' measuring faces when closed (the vernier's zero stands
// as far right of the sliding jaw's face as the main zero of the fixed one's).
constexpr double kZero = 80, kFace = 56;
constexpr double kMeet = 100;        // where main and vernier ticks meet
constexpr double kBeamEnd = 914;     // the depth rod comes out here
constexpr double kHandleY = 190;     // on the sliding jaw's face

struct Vernier {
    int divisions;
    double spanMm;
    double precision;
    int decimals;
    const char *mark;
};
const Vernier kVerniers[] = {
    {10, 9, 0.1, 1, "0.1 mm"},
    {20, 19, 0.05, 2, "0.05 mm"},
    {50, 49, 0.02, 2, "0.02 mm"},
};

// The number under vernier tick i (every fifth): tenths of a millimetre, or hundredths
// on the 20-division vernier, as the instruments are engraved.
QString vernierNumber(int divisions, int i)
{
    return QString::number(divisions == 20 ? i * 5 : divisions == 50 ? i / 5 : i);
}

} // namespace

CVernierCalipers::CVernierCalipers(CSVGObj *owner) : CBasic(owner)
{
    setPostsChangedSettings(true);
}

CVernierCalipers::~CVernierCalipers() = default;

QString CVernierCalipers::getSVG()
{
    // The slider is in two parts that move together: its back (top rail, lock screw,
    // inside jaw) passes behind the beam, its front (vernier plate, outside jaw) in front.
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" x=\"0px\" y=\"0px\" width=\"906px\" height=\"242px\""
        " viewBox=\"9 5 906 242\">\n"
        "<defs>\n"
        "<linearGradient id=\"vc_beam\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\"><stop offset=\"0\" stop-color=\"#EEF1F3\"/>"
        "<stop offset=\"0.12\" stop-color=\"#D3D9DE\"/><stop offset=\"0.6\" stop-color=\"#BAC2CA\"/>"
        "<stop offset=\"1\" stop-color=\"#9EA7B0\"/></linearGradient>\n"
        "<linearGradient id=\"vc_plate\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\"><stop offset=\"0\" stop-color=\"#F7F9FA\"/>"
        "<stop offset=\"0.45\" stop-color=\"#DCE2E6\"/><stop offset=\"1\" stop-color=\"#AEB7C0\"/></linearGradient>\n"
        "<linearGradient id=\"vc_jaw\" x1=\"0\" y1=\"0\" x2=\"1\" y2=\"0\"><stop offset=\"0\" stop-color=\"#AEB7C0\"/>"
        "<stop offset=\"0.5\" stop-color=\"#E3E8EC\"/><stop offset=\"1\" stop-color=\"#A3ACB5\"/></linearGradient>\n"
        "<linearGradient id=\"vc_rod\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\"><stop offset=\"0\" stop-color=\"#E3E8EC\"/>"
        "<stop offset=\"1\" stop-color=\"#7D8791\"/></linearGradient>\n"
        "</defs>\n"
        "<rect id=\"depth_rod\" x=\"914\" y=\"78\" width=\"0\" height=\"4\" fill=\"url(#vc_rod)\" stroke=\"#4A5560\""
        " stroke-width=\"0.5\"/>\n"
        "<g id=\"slider_back\" transform=\"translate(0,0)\">"
        "<path fill=\"url(#vc_jaw)\" stroke=\"#4A5560\" stroke-width=\"0.8\" stroke-linejoin=\"round\""
        " d=\"M56,46L56,10L59,6C64,20 70,34 78,46Z\"/>"
        "<rect x=\"56\" y=\"42\" width=\"250\" height=\"12\" rx=\"2\" fill=\"url(#vc_plate)\" stroke=\"#4A5560\" stroke-width=\"0.8\"/>"
        "<rect x=\"230\" y=\"33\" width=\"12\" height=\"10\" fill=\"url(#vc_jaw)\" stroke=\"#4A5560\" stroke-width=\"0.6\"/>"
        "<rect x=\"222\" y=\"22\" width=\"28\" height=\"12\" rx=\"3\" fill=\"url(#vc_beam)\" stroke=\"#4A5560\" stroke-width=\"0.8\"/>"
        "<path fill=\"none\" stroke=\"#6B747D\" stroke-width=\"0.6\""
        " d=\"M226,24V32M230,24V32M234,24V32M238,24V32M242,24V32M246,24V32\"/>"
        "</g>\n"
        "<path id=\"fixed_jaws\" fill=\"url(#vc_jaw)\" stroke=\"#4A5560\" stroke-width=\"0.8\" stroke-linejoin=\"round\""
        " d=\"M56,52L56,10L53,6C48,20 42,36 34,52ZM56,114L56,236L52,244C40,226 16,180 10,114Z\"/>\n"
        "<rect id=\"beam\" x=\"10\" y=\"50\" width=\"904\" height=\"66\" rx=\"1.5\" fill=\"url(#vc_beam)\" stroke=\"#4A5560\""
        " stroke-width=\"1\"/>\n"
        "<line x1=\"11\" y1=\"53.5\" x2=\"913\" y2=\"53.5\" stroke=\"#FFFFFF\" stroke-opacity=\"0.7\" stroke-width=\"0.8\"/>\n"
        "<line id=\"main_1\" x1=\"80\" y1=\"100\" x2=\"80\" y2=\"82\" stroke=\"#1A1A1A\" stroke-width=\"0.7\"/>\n"
        "<text id=\"main_text_0\" x=\"80\" y=\"78\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"12\""
        " text-anchor=\"middle\" fill=\"#1A1A1A\">0</text>\n"
        "<g id=\"slider\" transform=\"translate(0,0)\">"
        "<path id=\"slider_jaw\" fill=\"url(#vc_jaw)\" stroke=\"#4A5560\" stroke-width=\"0.8\" stroke-linejoin=\"round\""
        " d=\"M56,138L56,236L60,244C72,226 96,180 108,138Z\"/>"
        "<rect id=\"slider_plate\" x=\"56\" y=\"100\" width=\"250\" height=\"40\" rx=\"2\" fill=\"url(#vc_plate)\""
        " stroke=\"#4A5560\" stroke-width=\"0.8\"/>"
        "<line x1=\"57\" y1=\"100.8\" x2=\"305\" y2=\"100.8\" stroke=\"#FFFFFF\" stroke-width=\"0.8\"/>"
        "<rect x=\"252\" y=\"139\" width=\"46\" height=\"11\" rx=\"3\" fill=\"url(#vc_beam)\" stroke=\"#4A5560\" stroke-width=\"0.8\"/>"
        "<path fill=\"none\" stroke=\"#6B747D\" stroke-width=\"0.6\""
        " d=\"M256,141V148M260,141V148M264,141V148M268,141V148M272,141V148M276,141V148M280,141V148M284,141V148M288,141V148M292,141V148\"/>"
        "<line id=\"vernier_1\" x1=\"80\" y1=\"100\" x2=\"80\" y2=\"114\" stroke=\"#1A1A1A\" stroke-width=\"0.7\"/>"
        "<text id=\"vernier_text_0\" x=\"80\" y=\"124\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"9\""
        " text-anchor=\"middle\" fill=\"#1A1A1A\">0</text>"
        "<text id=\"precision\" x=\"212\" y=\"136\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"8\""
        " fill=\"#3A434C\">0.1 mm</text>"
        "</g>\n"
        "<rect id=\"control_1\" x=\"51.5\" y=\"185.5\" width=\"9\" height=\"9\" rx=\"4.5\" ry=\"4.5\" fill=\"#1700FE\""
        " x_from=\"51.5\" x_to=\"651.5\"/>\n"
        "</svg>\n");
}

int CVernierCalipers::getSVGType() { return 110; }

void CVernierCalipers::ResetAtrribute()
{
    addAttribute(kDivisionsAttr, 1101, 1, QStringLiteral("IDS_SVG_PHYSICAL_VERNIER_DIVISIONS"), 0);
}

QByteArray CVernierCalipers::GetComboboxData()
{
    return comboData({QStringLiteral("IDS_SVG_PHYSICAL_VERNIER_DIVISIONS_0"), QStringLiteral("IDS_SVG_PHYSICAL_VERNIER_DIVISIONS_1"),
                      QStringLiteral("IDS_SVG_PHYSICAL_VERNIER_DIVISIONS_2")});
}

namespace {
const Vernier &vernierOf(int index) { return kVerniers[index >= 0 && index < 3 ? index : 0]; }
} // namespace

int CVernierCalipers::divisions() const { return vernierOf(m_attributes.value(kDivisionsAttr).intValue).divisions; }

double CVernierCalipers::precision() const { return vernierOf(m_attributes.value(kDivisionsAttr).intValue).precision; }

long CVernierCalipers::steps(double mm) const
{
    // A hair of tolerance, so that 23.45 on the 0.1 vernier counts as the half it is.
    return long(std::floor(std::max(0.0, std::min(kMaxMm, mm)) / precision() + 0.5 + 1e-9));
}

double CVernierCalipers::reading() const { return steps(m_dOpening) * precision(); }

QString CVernierCalipers::readingText() const
{
    return QString::number(reading(), 'f', vernierOf(m_attributes.value(kDivisionsAttr).intValue).decimals);
}

void CVernierCalipers::SVGInit(bool, bool)
{
    buildMainScale();
    layout();
    Resize(false);
}

void CVernierCalipers::buildMainScale()
{
    // One tick per millimetre, every fifth longer, every tenth longest and numbered in cm.
    const QVector<QSvgNode *> ticks = Series::fit(*this, QStringLiteral("main"), int(kMaxMm) + 1);
    for (int i = 0; i < ticks.size(); ++i) {
        const double x = kZero + i * kUnitsPerMm;
        ticks[i]->setNumAttribute(QStringLiteral("x1"), x);
        ticks[i]->setNumAttribute(QStringLiteral("x2"), x);
        ticks[i]->setNumAttribute(QStringLiteral("y2"), kMeet - (i % 10 == 0 ? 18 : i % 5 == 0 ? 13 : 9));
        ticks[i]->setStrokeEnabled(false);
    }
    const QVector<QSvgNode *> numbers = Series::fit(*this, QStringLiteral("main_text"), int(kMaxMm) / 10 + 1, 0);
    for (int j = 0; j < numbers.size(); ++j) {
        numbers[j]->setNumAttribute(QStringLiteral("x"), kZero + j * 10 * kUnitsPerMm);
        numbers[j]->setText(QString::number(j));
    }
}

void CVernierCalipers::buildVernier()
{
    const Vernier &v = vernierOf(m_attributes.value(kDivisionsAttr).intValue);
    const double pitch = v.spanMm / v.divisions * kUnitsPerMm;
    const QVector<QSvgNode *> ticks = Series::fit(*this, QStringLiteral("vernier"), v.divisions + 1);
    for (int i = 0; i < ticks.size(); ++i) {
        const double x = kZero + i * pitch;
        ticks[i]->setNumAttribute(QStringLiteral("x1"), x);
        ticks[i]->setNumAttribute(QStringLiteral("x2"), x);
        ticks[i]->setNumAttribute(QStringLiteral("y2"), kMeet + (i % 5 == 0 ? 14 : 9));
        ticks[i]->setStrokeEnabled(false);
    }
    const QVector<QSvgNode *> numbers = Series::fit(*this, QStringLiteral("vernier_text"), v.divisions / 5 + 1, 0, 5);
    for (int j = 0; j < numbers.size(); ++j) {
        numbers[j]->setNumAttribute(QStringLiteral("x"), kZero + j * 5 * pitch);
        numbers[j]->setText(vernierNumber(v.divisions, j * 5));
    }
    if (QSvgNode *mark = m_pDocument ? m_pDocument->namedNode(QStringLiteral("precision")) : nullptr)
        mark->setText(QLatin1String(v.mark));
}

void CVernierCalipers::layout()
{
    if (!m_pDocument || m_controlNodes.isEmpty())
        return;
    double u = HandlePos::centre(*this, 0).x() - kFace;
    u = std::isfinite(u) ? std::max(0.0, std::min(kMaxMm * kUnitsPerMm, u)) : 0;
    HandlePos::placeCentre(*this, 0, QPointF(kFace + u, kHandleY));
    m_dOpening = u / kUnitsPerMm;
    const QString shift = QStringLiteral("translate(%1,0)").arg(SvgNumbers::format(u));
    for (const char *id : {"slider", "slider_back"})
        if (QSvgNode *g = m_pDocument->namedNode(QLatin1String(id)))
            g->setAttribute(QStringLiteral("transform"), shift);
    if (QSvgNode *rod = m_pDocument->namedNode(QStringLiteral("depth_rod")))
        rod->setNumAttribute(QStringLiteral("width"), u);
}

bool CVernierCalipers::updateSVG(QSvgNode *node, QPointF, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    layout();
    // The jaw comes to rest on the reading, so that the picture shows exactly it. A
    // load puts the handle where it was saved and leaves it there.
    if (bFinal && !isLoading()) {
        HandlePos::placeCentre(*this, 0, QPointF(kFace + reading() * kUnitsPerMm, kHandleY));
        layout();
    }
    Resize(bFinal);
    repaint();
    return true;
}

void CVernierCalipers::UpdateCombobox(bool b)
{
    if (!m_pDocument)
        return;
    buildVernier();
    // A new precision rounds the reading to it and moves the jaw there.
    if (b && !isLoading() && !m_controlNodes.isEmpty())
        setReading(m_dOpening);
    repaint();
}

void CVernierCalipers::setReading(double mm)
{
    if (!std::isfinite(mm))
        return;
    const double x = kFace + steps(mm) * precision() * kUnitsPerMm - HandlePos::centre(*this, 0).x();
    if (x != 0)
        HandlePos::set(*this, 0, HandlePos::X, HandlePos::get(*this, 0, HandlePos::X) + x, m_bPosByCode);
}

void CVernierCalipers::CaculateObjectRetangle(QPointF &topLeft, QPointF &bottomRight)
{
    // Jaw tips, screw and beam, with their outlines; the depth rod out of the beam's end.
    enclose(QRectF(9, 5, kBeamEnd - 8, 242), topLeft, bottomRight);
    enclose(QPointF(kBeamEnd + m_dOpening * kUnitsPerMm + 0.5, 82), topLeft, bottomRight);
    for (QSvgNode *h : m_controlNodes)
        enclose(h->rect(), topLeft, bottomRight);
}

void CVernierCalipers::posChangedByControl() { postSetting(QStringLiteral("idCaliperValue"), readingText()); }

void CVernierCalipers::GetSettingArray(QJsonArray &array)
{
    if (!m_pOwner)
        return;
    m_panel.append(array, 0, m_attributes.value(kDivisionsAttr).intValue, [this] {
        QJsonObject item = attributeItem(kDivisionsAttr, QStringLiteral("idVernierDivisions"),
                                         QStringLiteral("IDS_PHYSICSOBJ_VERNIER_DIVISIONS"),
                                         {QStringLiteral("IDS_PHYSICSOBJ_VERNIER_10"), QStringLiteral("IDS_PHYSICSOBJ_VERNIER_20"),
                                          QStringLiteral("IDS_PHYSICSOBJ_VERNIER_50")});
        // The reading's decimals follow the vernier: the panel rebuilds its items.
        item.insert(QStringLiteral("refreshAfterSet"), true);
        return item;
    });
    m_panel.append(array, 1, readingText(), [this] {
        return m_pOwner->GetSettingJsonInput(QStringLiteral("idCaliperValue"), QStringLiteral("IDS_PHYSICSOBJ_READING"),
                                             readingText(), QStringLiteral("float"), QStringLiteral("0"),
                                             QStringLiteral("150"), QStringLiteral("mm"));
    });
}

bool CVernierCalipers::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    applyAttributeItems(values, {{QStringLiteral("idVernierDivisions"), kDivisionsAttr}}, bRecord, bUndo);
    const auto typed = values.constFind(QStringLiteral("idCaliperValue"));
    if (typed != values.cend()) {
        bool ok = false;
        const double mm = typed->trimmed().toDouble(&ok);
        if (ok)
            setReading(mm);
    }
    return true;
}

bool CVernierCalipers::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CBasic::SetAttribute(id, in, bRecord, bUndo);
    keepEverything(id, m_bPosByCode);
    return r;
}
