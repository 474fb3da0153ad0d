#include "Meter.h"
#include <cmath>
#include <framework.h>
#include <svgobj.h>

namespace {
const QString kPointer = QStringLiteral("pointer");
const QString kRotateAngle = QStringLiteral("rotate_angle");
} // namespace

double getCirclePointDegree(QPointF point, QPointF center)
{
    // Counter-clockwise from the positive x axis with y up on screen; a point on the
    // centre counts as straight up.
    const double x0 = point.x(), y0 = point.y(), x1 = center.x(), y1 = center.y();
    const double a = std::fabs(x1 - x0) < 1e-7 ? 90.0 : std::atan(std::fabs(y1 - y0) / std::fabs(x1 - x0)) * 57.29577951308232;
    if (y1 >= y0)
        return x0 >= x1 ? a : 180.0 - a;
    return x0 >= x1 ? 360.0 - a : 180.0 + a;
}

CMeter::CMeter(CSVGObj *owner) : CSVGBase(owner)
{
    // A typed reading past the scale leaves the pointer at the end and the angle here:
    // the range switch starts from it, so a page keeps it too.
    keepValue(QStringLiteral("currentAngle"), &currentAngle);
}

bool CMeter::typedReading(const QMap<QString, QString> &values, bool single, double &reading)
{
    const auto v = values.constFind(QStringLiteral("idMeterValue"));
    if (v == values.cend())
        return false;
    bool ok = false;
    reading = single ? double(v->toFloat(&ok)) : v->toDouble(&ok);
    return ok && std::isfinite(reading);
}

CMeter::~CMeter() = default;

int CMeter::getSVGType() { return 0; }

QString CMeter::getPropName(int id)
{
    if (id == PROP_COLOR)
        return QStringLiteral("IDS_SVG_PHYSICAL_COLOR");
    return CSVGBase::getPropName(id);
}

bool CMeter::loadSVG(bool bLoad)
{
    delete m_pDocument;
    m_pDocument = QSvgTinyDocument::fromTemplate(getSVG());
    const bool r = CSVGBase::loadSVG(bLoad);
    if (!m_pDocument)
        return r;
    if (QSvgNode *line = m_pDocument->namedNode(QStringLiteral("line"))) {
        line->setStrokeEnabled(false);
        handleRadius = line->numAttribute(QStringLiteral("y1")) - line->numAttribute(QStringLiteral("y2"));
    }
    updateSVG(m_controlNodes.value(0), QPointF(0, 0), false);
    return r;
}

void CMeter::placeHandle(QSvgNode *handle, QPointF pivot, QSizeF size, double angle)
{
    const double r = angle * 3.141592653589793 / 180;
    handle->setNumAttribute(QStringLiteral("x"), pivot.x() + std::sin(r) * handleRadius - size.width() * 0.5);
    handle->setNumAttribute(QStringLiteral("y"), pivot.y() - std::cos(r) * handleRadius - size.height() * 0.5);
}

bool CMeter::updateSVG(QSvgNode *node, QPointF, bool)
{
    if (!m_pDocument || !node)
        return false;
    QSvgNode *pointer = m_pDocument->namedNode(kPointer);
    QSvgNode *line = m_pDocument->namedNode(QStringLiteral("line"));
    if (!pointer || !line)
        return false;
    const double from = pointer->numAttribute(QStringLiteral("rotate_from"));
    const double to = pointer->numAttribute(QStringLiteral("rotate_to"));
    const double cy = pointer->numAttribute(QStringLiteral("rotate_y"));
    const double cx = pointer->numAttribute(QStringLiteral("rotate_x"));
    const QRectF hr = node->rect();
    const QPointF h = hr.center();
    if (!std::isfinite(h.x()) || !std::isfinite(h.y()))
        return false;
    const double d = getCirclePointDegree(h, QPointF(cx, cy));
    const double t = 90 - d;
    // Out of the arc the pointer snaps to the end on the handle's side, never across
    // the bottom of the dial.
    double angle;
    if (d >= 90 && d < 270)
        angle = t < from || t > to ? from : t;
    else
        angle = t > to || t < from ? to : t;
    const bool wasInitialized = initialized;
    if (initialized) {
        pointer->setNumAttribute(kRotateAngle, angle);
    } else {
        if (startMode == 0 || startMode == 1) {
            angle = startMode == 0 ? from : (from + to) * 0.5;
            pointer->setNumAttribute(kRotateAngle, angle);
        }
        initialized = true;
        minAngle = from;
        maxAngle = to;
    }
    currentAngle = angle;
    placeHandle(node, QPointF(cx, cy), hr.size(), angle);
    if (m_pOwner)
        m_pOwner->update(QRectF());
    if (wasInitialized)
        angelChangedByControl(currentAngle);
    return true;
}

double CMeter::getAngle()
{
    QSvgNode *pointer = m_pDocument ? m_pDocument->namedNode(kPointer) : nullptr;
    return pointer ? pointer->numAttribute(kRotateAngle) : 0.0;
}

void CMeter::setAngel(double angle)
{
    if (!m_pDocument)
        return;
    QSvgNode *handle = m_pDocument->namedNode(QStringLiteral("control_1"));
    QSvgNode *pointer = m_pDocument->namedNode(kPointer);
    if (!handle || !pointer)
        return;
    // Written so that a NaN lands on the left end.
    angle = qMax(minAngle, qMin(maxAngle, angle));
    pointer->setNumAttribute(kRotateAngle, angle);
    placeHandle(handle, QPointF(pointer->numAttribute(QStringLiteral("rotate_x")), pointer->numAttribute(QStringLiteral("rotate_y"))),
                handle->rect().size(), angle);
    if (m_pOwner)
        m_pOwner->update(QRectF());
}

void CMeter::angelChangedByControl(double) {}

bool CMeter::SetAttribute(int id, QDataStream &in, bool bRecord, bool bUndo)
{
    const bool r = CSVGBase::SetAttribute(id, in, bRecord, bUndo);
    if (isCapture(id)) {
        savedPointerAngle = getAngle();
        savedCurrentAngle = currentAngle;
    } else if (isRestore(id)) {
        setAngel(savedPointerAngle);
        currentAngle = savedCurrentAngle;
    }
    return r;
}

void CMeter::setTypedAngle(double angle)
{
    currentAngle = angle;
    setAngel(angle);
}

bool CMeter::changeGrade(int &grade, int newGrade)
{
    if (newGrade == grade)
        return true;
    if (newGrade != 0 && newGrade != 1)
        return false;
    const double d = currentAngle - minAngle;
    setAngel(newGrade == 1 ? minAngle + d / 5 : minAngle + d * 5);
    grade = newGrade;
    return true;
}

QString CMeter::readingText(double reading, int decimals)
{
    return QStringLiteral("%1").arg(reading, 0, 'f', decimals, QLatin1Char(' '));
}

QJsonObject CMeter::gradeItem(int grade, const QString &small, const QString &large) const
{
    QJsonObject item = m_pOwner->GetSettingJsonComboBox(QStringLiteral("idMeterGrade"), QStringLiteral("IDS_PHYSICAL_METER_GRADE"),
                                                        grade, QStringList(), QStringList{small, large});
    // The reading's bounds change with the range: the panel rebuilds its items.
    item.insert(QStringLiteral("refreshAfterSet"), true);
    return item;
}

QJsonObject CMeter::valueItem(double reading, int decimals, const QString &min, const QString &max) const
{
    return m_pOwner->GetSettingJsonInput(QStringLiteral("idMeterValue"), QStringLiteral("IDS_PHYSICAL_METER_VALUE"),
                                         readingText(reading, decimals), QStringLiteral("float"), min, max, QString());
}

double CMeter::rangeReading(double angle, double full) const
{
    const double reading = scaleFraction(angle) * full;
    return reading < 0.01 ? 0 : reading;
}

void CMeter::postRangeReading(double angle, double full)
{
    postSetting(QStringLiteral("idMeterValue"), readingText(rangeReading(angle, full), 2));
}

void CMeter::appendRangeItems(QJsonArray &array, int grade, const QString &small, const QString &large, double smallFull,
                              double largeFull)
{
    const double full = grade == 0 ? smallFull : largeFull;
    array.append(gradeItem(grade, small, large));
    array.append(valueItem(rangeReading(getAngle(), full), 2, QStringLiteral("0"), QString::number(full)));
}

bool CMeter::applyGradeSetting(const QMap<QString, QString> &values, int &grade)
{
    const auto g = values.constFind(QStringLiteral("idMeterGrade"));
    if (g == values.cend())
        return false;
    changeGrade(grade, g->toInt(nullptr, 10));
    return true;
}

void CMeter::setTypedReading(double reading, double full)
{
    setTypedAngle(reading * (maxAngle - minAngle) / full + minAngle);
}

void CMeter::keepGrade(int id, int &grade, int &savedGrade)
{
    if (isCapture(id))
        savedGrade = grade;
    else if (isRestore(id))
        grade = savedGrade;
}
