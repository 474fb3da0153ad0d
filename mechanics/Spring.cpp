#include "Spring.h"
#include "bases/AttrValue.h"
#include "bases/HandlePos.h"
#include <QDebug>
#include <cmath>
#include <svgobj.h>

namespace {

const char *const kSeries[] = {"spring_ellipse", "spring_up", "spring_down"};

// The least height of a fully compressed turn.
constexpr double kMinTurnHeight = 4.0;
// Consecutive turns overlap by this much so that the wire looks continuous.
constexpr double kTurnOverlap = 0.1;

QString seriesName(const char *prefix, int k)
{
    return QStringLiteral("%1_%2").arg(QLatin1String(prefix)).arg(k);
}

QRectF pathBounds(const QSvgNode *n)
{
    return n->type() == QSvgNode::Path ? static_cast<const QSvgPath *>(n)->pathBounds() : n->rect();
}

} // namespace

CSpring::CSpring(CSVGObj *owner) : CSpring(owner, 10) {}

CSpring::CSpring(CSVGObj *owner, int turnCount) : CAttribute(owner), m_nTurnCount(turnCount) {}

CSpring::~CSpring() = default;

QString CSpring::getSVG()
{
    return QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
        "<svg version=\"1.1\" xmlns=\"http://www.w3.org/2000/svg\" width=\"50px\" height=\"120px\" viewBox=\"0 0 50 120\">\n"
        "<path id=\"top\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\" stroke-miterlimit=\"10\""
        " d=\"M22,45c0-1.858,0-4.131,0-11.465c11.011,0.334,18.343-6.185,18.343-16.333c0-11.352-6.617-16.334-18.343-16.334"
        "c-9.972,0.328-16.779,8.647-16.657,17\"/>\n"
        "<path id=\"top1\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\" stroke-miterlimit=\"10\""
        " d=\"M22,45c5.354,0.23,10.372,0.731,12.981,1.624c3.721,1.166,7.985,3.709,7.985,7.209\"/>\n"
        "<ellipse id=\"spring_ellipse_1\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\""
        " stroke-miterlimit=\"10\" cx=\"20\" cy=\"60\" rx=\"20\" ry=\"4\"/>\n"
        "<path id=\"spring_up_1\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\""
        " stroke-miterlimit=\"10\" d=\"M40,60c0.5,-1,3,-3.5,3,-7\"/>\n"
        "<path id=\"spring_down_1\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\""
        " stroke-miterlimit=\"10\" d=\"M40,60c0.5,1,3,3.5,3,7\"/>\n"
        "<path id=\"bottom\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\" stroke-miterlimit=\"10\""
        " d=\"M43,66c0,3.914-5.58,6.1-10.483,6.704c-4.267,0.623-6.895,0.404-10.578,0.623\"/>\n"
        "<path id=\"bottom1\" fill=\"none\" vector-effect=\"none\" stroke=\"#000000\" stroke-width=\"2\" stroke-miterlimit=\"10\""
        " d=\"M22,73c0.003,2.25,0.035,8.498,0.08,12.499c10.67,0.251,18.262,5.484,18.262,16.232"
        "c0,11.643-8.592,16.518-18.092,16.518c-9.207,0.031-16.715-9-16.715-15.375\"/>\n"
        "<rect id=\"control_1\" x=\"19\" y=\"70\" width=\"8\" height=\"8\" rx=\"4\" ry=\"4\" fill=\"#1700FE\""
        " y_from=\"50\" y_to=\"200\"/>\n"
        "</svg>\n");
}

int CSpring::getSVGType() { return 202; }

QString CSpring::getPropName(int id)
{
    return id == PROP_COLOR ? QStringLiteral("IDS_SVG_PHYSICAL_COLOR") : CAttribute::getPropName(id);
}

void CSpring::ResetAtrribute()
{
    DATA_MAP_STRUCT hook;
    hook.propId = 1101;
    hook.dataType = 1;
    hook.name = QStringLiteral("IDS_SVG_PHYSICAL_HOOK");
    hook.boolValue = false;
    hook.intValue = 1;
    m_attributes.insert(5100, hook);
}

QByteArray CSpring::GetComboboxData()
{
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out << int(2) << int(0) << QStringLiteral("IDS_SVG_PHYSICAL_NO_HOOK")
        << QStringLiteral("IDS_SVG_PHYSICAL_HOOK_WITH_TWO_ENDS");
    return data;
}

void CSpring::SetConvertValue(int index)
{
    if (index == 0)
        m_nHookCount = 0;
    else if (index == 1)
        m_nHookCount = 2;
}

void CSpring::UpdateCombobox(bool)
{
    const auto it = m_attributes.constFind(5100);
    if (it == m_attributes.cend())
        return;
    SetConvertValue(it->intValue);
    UpdateHookCount(m_nHookCount);
}

void CSpring::UpdateHookCount(int n)
{
    if (unsigned(n) > 2)
        return;
    m_nHookCount = n;
    if (!m_pDocument)
        return;
    const std::pair<const char *, bool> shown[] = {
        {"top", n >= 1}, {"top1", n >= 1}, {"bottom", n == 2}, {"bottom1", n == 2}};
    for (const auto &s : shown)
        if (QSvgNode *node = m_pDocument->namedNode(QLatin1String(s.first)))
            node->setVisible(s.second);
}

bool CSpring::loadSVG(bool bLoad)
{
    const bool r = CAttribute::loadSVG(bLoad);
    if (!m_pDocument)
        return r;
    // The fit below measures the growth against the drawing as the template has it.
    m_pDocument->cachedBounds();
    QSvgNode *top = m_pDocument->namedNode(QStringLiteral("top"));
    QSvgNode *top1 = m_pDocument->namedNode(QStringLiteral("top1"));
    QSvgNode *bottom = m_pDocument->namedNode(QStringLiteral("bottom"));
    QSvgNode *bottom1 = m_pDocument->namedNode(QStringLiteral("bottom1"));
    if (top && top1)
        m_dTopHookBottom = qMax(top->rect().bottom(), top1->rect().bottom());
    if (bottom && bottom1)
        m_dBottomHookHeight = bottom->rect().united(bottom1->rect()).height();
    updateSpring();
    QSvgNode *handle = m_controlNodes.value(0);
    if (!handle || !bottom)
        return r;
    const QRectF h = handle->rect();
    handle->translate(0, bottom->rect().bottom() - (h.y() + 0.5 * h.height()));
    handle->setNumAttribute(QStringLiteral("y_from"),
                            m_dTopHookBottom + kMinTurnHeight * m_nTurnCount + kTurnOverlap + bottom->rect().height());
    handle->setNumAttribute(QStringLiteral("y_to"),
                            handle->rect().y() + (kMinTurnHeight + m_dTurnHeight) * m_nTurnCount);
    QSvgNode *lowest = getSVGType() == 501 ? handle : bottom1;
    if (lowest)
        resizeSVG(0, lowest->rect().bottom() - m_pDocument->cachedBounds().bottom(), bLoad);
    return r;
}

void CSpring::updateSpring()
{
    if (!m_pDocument)
        return;
    QSvgNode *first[3];
    for (int i = 0; i < 3; ++i) {
        first[i] = m_pDocument->namedNode(seriesName(kSeries[i], 1));
        if (!first[i])
            return;
    }
    const QRectF turn = first[0]->rect().united(pathBounds(first[1])).united(pathBounds(first[2]));
    m_dTurnHeight = turn.bottom() - turn.top();
    const double step = m_dTurnHeight - kTurnOverlap;
    for (int k = 2; k <= m_nTurnCount; ++k) {
        for (int i = 0; i < 3; ++i) {
            const QString id = seriesName(kSeries[i], k);
            QSvgNode *n = m_pDocument->namedNode(id);
            if (n) {
                if (first[i]->type() == QSvgNode::Path && n->type() == QSvgNode::Path) {
                    static_cast<QSvgPath *>(n)->copyPath(first[i]);
                } else {
                    for (const char *a : {"cx", "cy", "rx", "ry"})
                        n->setAttribute(QLatin1String(a), first[i]->attribute(QLatin1String(a)));
                }
            } else {
                std::unique_ptr<QSvgNode> copy = first[i]->clone();
                copy->setAttribute(QStringLiteral("id"), id);
                n = copy.get();
                addNode(copy.release(), id);
            }
            n->translate(0, (k - 1) * step);
        }
    }
    // The lower arc starts where the last turn ends.
    QSvgNode *last = m_pDocument->namedNode(seriesName(kSeries[2], m_nTurnCount));
    QSvgNode *bottom = m_pDocument->namedNode(QStringLiteral("bottom"));
    if (!last || !bottom)
        return;
    const double dy = last->rect().bottom() - bottom->rect().top();
    bottom->translate(0, dy);
    if (QSvgNode *bottom1 = m_pDocument->namedNode(QStringLiteral("bottom1")))
        bottom1->translate(0, dy);
}

QString CSpring::genPathString(const QString &d, double y, double dy)
{
    QString result;
    const int m = d.indexOf(QLatin1Char('M'));
    if (m >= 0) {
        const QChar *p = d.constData() + m + 1;
        QVector<double> v = parseNumbersList(p);
        if (v.size() == 2) {
            v[1] = y;
            result += QLatin1Char('M') + numbersToString(v);
        }
    }
    const int c = d.indexOf(QLatin1Char('c'));
    if (c < 1)
        return result;
    const QChar *p = d.constData() + c + 1;
    QVector<double> v = parseNumbersList(p);
    if (v.size() == 6) {
        const double end = v[5] + dy;
        const double s = end / v[5];
        v[5] = end;
        v[3] *= s;
        result += QLatin1Char('c') + numbersToString(v);
    }
    return result;
}

bool CSpring::updateSVG(QSvgNode *node, QPointF offset, bool bFinal)
{
    if (!node || node != m_controlNodes.value(0))
        return false;
    if (std::fabs(offset.y()) >= 1.0) {
        QSvgNode *ellipse = m_pDocument->namedNode(QStringLiteral("spring_ellipse_1"));
        QSvgNode *up = m_pDocument->namedNode(QStringLiteral("spring_up_1"));
        QSvgNode *down = m_pDocument->namedNode(QStringLiteral("spring_down_1"));
        if (ellipse && up && down) {
            const double h = offset.y() / m_nTurnCount * 0.5;
            // The ellipse keeps its top and deepens in proportion to the half-turns.
            const QRectF er = ellipse->rect();
            const double ry = 0.5 * er.height();
            const double e = ry * h / up->rect().height();
            const double cy = er.center().y() + e;
            ellipse->setNumAttribute(QStringLiteral("cy"), cy);
            ellipse->setNumAttribute(QStringLiteral("ry"), ry + e);
            up->setAttribute(QStringLiteral("d"), genPathString(up->attribute(QStringLiteral("d")), cy, -h));
            down->setAttribute(QStringLiteral("d"), genPathString(down->attribute(QStringLiteral("d")), cy, h));
            QSvgNode *top1 = m_pDocument->namedNode(QStringLiteral("top1"));
            const double gap = top1 ? top1->rect().bottom() - up->rect().top() : 0;
            if (top1 && std::fabs(gap) >= 1e-7) {
                qDebug().nospace() << "CSpring::updateSVG ptOffset=" << offset;
                // The first turn hangs from the upper arc again.
                ellipse->translate(0, gap);
                up->translate(0, gap);
                down->translate(0, gap);
            }
        }
        updateSpring();
        resizeSVG(offset.x(), offset.y(), bFinal);
    } else {
        // Too small a move to redraw the turns: the handle goes back.
        node->setNumAttribute(QStringLiteral("y"), node->numAttribute(QStringLiteral("y")) - offset.y());
    }
    if (m_pOwner)
        m_pOwner->update(QRectF());
    if (!m_bMovingByCode)
        posChangedByControl();
    return true;
}

double CSpring::getControlPos() { return HandlePos::get(*this, 0, HandlePos::Y); }

void CSpring::setControlPos(double y) { HandlePos::set(*this, 0, HandlePos::Y, y, m_bMovingByCode); }

int CSpring::positionPercent(bool nudged)
{
    QSvgNode *handle = m_controlNodes.value(0);
    const double lo = getYMin(handle), hi = getYMax(handle);
    const double range = hi - lo;
    if (!(range > 0))
        return 0;
    double p = (getControlPos() - lo) * 100 / range;
    if (nudged)
        p += range / 10000;
    return int(p);
}

void CSpring::postPosition(bool nudged)
{
    postSetting(QStringLiteral("idPosValue"), QString::number(positionPercent(nudged)));
}

void CSpring::posChangedByControl() { postPosition(false); }

void CSpring::appendSettings(QJsonArray &array, const QString &countKey, const QString &countLabel, bool nudged)
{
    if (!m_pOwner)
        return;
    // Options are told apart by index; the panel shows how many hooks each one draws.
    array.append(m_pOwner->GetSettingJsonComboBox(countKey, countLabel, m_attributes.value(5100).intValue, QStringList(),
                                                  {QStringLiteral("0"), QStringLiteral("2")}));
    array.append(m_pOwner->GetSettingJsonInput(QStringLiteral("idPosValue"), QStringLiteral("IDS_PHYSICSOBJ_DENSITY"),
                                               QString::number(positionPercent(nudged)), QStringLiteral("int"),
                                               QStringLiteral("0"), QStringLiteral("100"), QString()));
}

void CSpring::GetSettingArray(QJsonArray &array)
{
    appendSettings(array, QStringLiteral("idHookCount"), QStringLiteral("IDS_PHYSICSOBJ_HOOKCOUNT"), false);
}

void CSpring::applySettings(QMap<QString, QString> &values, const QString &countKey, bool bRecord, bool bUndo)
{
    const auto count = values.constFind(countKey);
    bool ok = false;
    const int index = count != values.cend() ? count->toInt(&ok) : 0;
    if (ok)
        AttrValue::apply(*this, 5100, index, bRecord, bUndo);
    double y = 0;
    if (HandlePos::target(*this, values, 0, HandlePos::Y, false, y))
        setControlPos(y);
}

bool CSpring::SetSettingArray(QMap<QString, QString> &values, bool bRecord, bool bUndo)
{
    applySettings(values, QStringLiteral("idHookCount"), bRecord, bUndo);
    return true;
}

void CSpring::captureOrRestore(int id)
{
    if (isCapture(id)) {
        m_nCapturedHook = m_attributes.value(5100).intValue;
        m_dCapturedPos = getControlPos();
    } else if (isRestore(id)) {
        AttrValue::apply(*this, 5100, m_nCapturedHook, false, false);
        setControlPos(m_dCapturedPos);
    }
}

bool CSpring::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CAttribute::SetAttribute(id, in, bRecord, bUndo);
    captureOrRestore(id);
    return r;
}
