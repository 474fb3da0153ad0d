// The dial meters and their base: the pointer's arc and snapping, readings in the
// panel and after a drag, range switches, capture and restore, undo and persistence.
#include "helpers.h"
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <bases/Meter.h>
#include <electromagnetism/MeterAmpere.h>

namespace {

constexpr double kPi = 3.141592653589793;
const QPointF kPivot(107, 143);
constexpr double kRadius = 114;

CMeter *meter(const ObjPtr &o) { return static_cast<CMeter *>(o->content()); }
QSvgNode *handle(const ObjPtr &o) { return node(o->content(), "control_1"); }
double pointerAngle(const ObjPtr &o) { return node(o->content(), "pointer")->numAttribute("rotate_angle"); }

QPointF onCircle(double degrees, double radius = kRadius)
{
    const double r = degrees * kPi / 180;
    return kPivot + QPointF(std::sin(r) * radius, -std::cos(r) * radius);
}

// The host's drag, ending with the handle's centre at the given point.
void dragCentreTo(const ObjPtr &o, QPointF centre, bool final = true)
{
    o->content()->moveControlPoint(handle(o), centre - handle(o)->rect().center(), final);
}

bool setting(const ObjPtr &o, const QString &key, const QString &value)
{
    QMap<QString, QString> v{{key, value}};
    return o->content()->SetSettingArray(v, true, true);
}

QJsonObject item(const ObjPtr &o, const char *key)
{
    for (const QJsonValue &v : settingsOf(o->content()))
        if (v.toObject().value("id").toString() == QLatin1String(key))
            return v.toObject();
    return QJsonObject();
}

QString shown(const ObjPtr &o) { return item(o, "idMeterValue").value("value").toString(); }

QString lastPosted()
{
    const auto &m = GetFramework()->settingsMessages();
    if (m.isEmpty())
        return QStringLiteral("<none>");
    const QJsonArray s = QJsonDocument::fromJson(m.last()).object().value("settings").toArray();
    EXPECT_EQ(s.size(), 1);
    EXPECT_EQ(s.at(0).toObject().value("id").toString(), "idMeterValue");
    return s.at(0).toObject().value("value").toString();
}

void stateEvent(const ObjPtr &o, int id)
{
    QByteArray none;
    QDataStream in(none);
    o->content()->SetAttribute(id, in, false, false);
}

struct MeterTest : ::testing::Test {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearMessages();
    }
};

struct MeterFamily : MeterTest, ::testing::WithParamInterface<int> {
    bool centreZero() const { return GetParam() == 405; }
};

} // namespace

// Every direction round the circle, with y growing downward on screen.
TEST(MeterAngle, CirclePointDegreeAllRound)
{
    const QPointF c(-3, 7);
    for (int a = 0; a < 360; a += 15) {
        const double r = a * kPi / 180;
        const QPointF p = c + QPointF(std::cos(r) * 25, -std::sin(r) * 25);
        EXPECT_NEAR(getCirclePointDegree(p, c), a, 1e-9) << a;
    }
    EXPECT_DOUBLE_EQ(getCirclePointDegree(QPointF(5, -5), QPointF(0, 0)), 45);
    // Within 1e-7 of the vertical counts as on it; so does the centre itself.
    EXPECT_DOUBLE_EQ(getCirclePointDegree(QPointF(5e-8, -10), QPointF(0, 0)), 90);
    EXPECT_DOUBLE_EQ(getCirclePointDegree(QPointF(-5e-8, 10), QPointF(0, 0)), 270);
    EXPECT_DOUBLE_EQ(getCirclePointDegree(QPointF(0, 0), QPointF(0, 0)), 90);
    // Just below the horizontal on the left is still below.
    EXPECT_GT(getCirclePointDegree(QPointF(-10, 1e-9), QPointF(0, 0)), 180);
}

TEST_P(MeterFamily, FirstLayoutRestsThePointerWithoutPosting)
{
    ObjPtr o = makeObject(GetParam(), true);
    const double rest = centreZero() ? 0 : -51;
    EXPECT_DOUBLE_EQ(pointerAngle(o), rest);
    EXPECT_DOUBLE_EQ(meter(o)->getCurrentAngle(), rest);
    EXPECT_DOUBLE_EQ(meter(o)->getMinAngle(), -51);
    EXPECT_DOUBLE_EQ(meter(o)->getMaxAngle(), 51);
    const QPointF tl = handle(o)->rect().topLeft();
    const QPointF want = onCircle(rest) - QPointF(4, 4);
    EXPECT_NEAR(tl.x(), want.x(), 1e-9);
    EXPECT_NEAR(tl.y(), want.y(), 1e-9);
    if (centreZero()) {
        EXPECT_NEAR(tl.y(), 25, 1e-9);
    }
    EXPECT_TRUE(GetFramework()->settingsMessages().isEmpty());
    EXPECT_EQ(o->content()->getPropName(5002), "IDS_SVG_PHYSICAL_COLOR");
    EXPECT_EQ(o->content()->getSVGType(), GetParam());
}

// Out of the arc the pointer snaps to the end on the handle's side.
TEST_P(MeterFamily, DraggedHandleSnapsToTheEndOnItsSide)
{
    ObjPtr o = makeObject(GetParam());
    const struct {
        QPointF centre;
        double angle;
    } rows[] = {
        {kPivot + QPointF(114, 0), 51},     // straight right
        {kPivot + QPointF(-100, 0), -51},   // straight left
        {kPivot + QPointF(0, 114), 51},     // straight below: the right-half branch
        {kPivot + QPointF(-2, 114), -51},   // just left of straight below
        {kPivot + QPointF(2, 114), 51},
        {onCircle(20, 60), 20},             // within the arc, off the circle
        {onCircle(-50.5, 130), -50.5},
        {QPointF(1e9, 1e9), 51},            // stopped by the host far down right
    };
    for (const auto &r : rows) {
        dragCentreTo(o, r.centre);
        EXPECT_NEAR(pointerAngle(o), r.angle, 1e-9) << r.centre.x() << "," << r.centre.y();
        EXPECT_NEAR(meter(o)->getCurrentAngle(), r.angle, 1e-9);
        // The handle goes back onto the pointer's circle.
        const QPointF c = handle(o)->rect().center();
        EXPECT_NEAR(QLineF(c, onCircle(r.angle)).length(), 0, 1e-9);
    }
}

TEST_P(MeterFamily, SetAngelClampsAndLeavesCurrentAngle)
{
    ObjPtr o = makeObject(GetParam());
    const double before = meter(o)->getCurrentAngle();
    meter(o)->setAngel(100);
    EXPECT_DOUBLE_EQ(pointerAngle(o), 51);
    meter(o)->setAngel(-1e300);
    EXPECT_DOUBLE_EQ(pointerAngle(o), -51);
    meter(o)->setAngel(std::nan(""));
    EXPECT_DOUBLE_EQ(pointerAngle(o), -51);
    EXPECT_DOUBLE_EQ(meter(o)->getCurrentAngle(), before);
    EXPECT_TRUE(GetFramework()->settingsMessages().isEmpty());
}

TEST_P(MeterFamily, CaptureAndRestoreThePointer)
{
    ObjPtr o = makeObject(GetParam());
    dragCentreTo(o, onCircle(12));
    stateEvent(o, 2804);
    dragCentreTo(o, onCircle(-40));
    stateEvent(o, 2805);
    EXPECT_NEAR(pointerAngle(o), 12, 1e-9);
    EXPECT_NEAR(meter(o)->getCurrentAngle(), 12, 1e-9);
    EXPECT_NEAR(QLineF(handle(o)->rect().center(), onCircle(12)).length(), 0, 1e-9);
}

TEST_P(MeterFamily, UndoAndRedoADrag)
{
    ObjPtr o = makeObject(GetParam());
    const double rest = pointerAngle(o);
    dragCentreTo(o, onCircle(30), false);
    dragCentreTo(o, onCircle(33), true);
    QUndoStack *s = GetFramework()->undoStack();
    ASSERT_EQ(s->count(), 1);
    s->undo();
    EXPECT_NEAR(pointerAngle(o), rest, 1e-9);
    EXPECT_NEAR(meter(o)->getCurrentAngle(), rest, 1e-9);
    s->redo();
    EXPECT_NEAR(pointerAngle(o), 33, 1e-9);
}

TEST_P(MeterFamily, ReloadsWithThePointerWhereItWas)
{
    ObjPtr o = makeObject(GetParam(), true);
    dragCentreTo(o, onCircle(17.5));
    QDataStream::Status st;
    ObjPtr back = loadBytes(GetParam(), saveBytes(o->content()), &st);
    EXPECT_EQ(st, QDataStream::Ok);
    EXPECT_NEAR(pointerAngle(back), 17.5, 1e-9);
    EXPECT_NEAR(meter(back)->getCurrentAngle(), 17.5, 1e-9);
    EXPECT_EQ(shown(back), shown(o));
    EXPECT_TRUE(sameDocument(svgText(back->content()), svgText(o->content())));
}

TEST_P(MeterFamily, BadTypedValuesLeaveAUsableMeter)
{
    ObjPtr o = makeObject(GetParam());
    for (const char *v : {"abc", "", "nan", "inf", "-inf", "1e308", "-1e308"}) {
        EXPECT_TRUE(setting(o, "idMeterValue", v));
        const double a = pointerAngle(o);
        EXPECT_TRUE(a >= -51 && a <= 51) << v;
        EXPECT_FALSE(shown(o).contains("nan")) << v;
    }
    dragCentreTo(o, onCircle(5));
    EXPECT_NEAR(pointerAngle(o), 5, 1e-9);
}

// The face as a reader checks it: a long tick under every figure, evenly from end to
// end of the arc, and binding posts where wires attach.
TEST_P(MeterFamily, LongTicksStandAtTheFiguresAndPostsAtTheTerminals)
{
    ObjPtr o = makeObject(GetParam(), true);
    const QString svg = svgText(o->content());
    const QMap<int, int> figures{{403, 4}, {404, 4}, {405, 7}, {406, 7}};
    // Ticks of the heavy stroke; the long ones are 12 units, the middle ones 9.
    const QRegularExpression heavy(QStringLiteral("stroke-width=\"1.5\" d=\"([^\"]*)\""));
    const QRegularExpressionMatch m = heavy.match(svg);
    ASSERT_TRUE(m.hasMatch());
    const QRegularExpression seg(QStringLiteral("M([-\\d.]+),([-\\d.]+)L([-\\d.]+),([-\\d.]+)"));
    QVector<double> longAngles;
    for (auto it = seg.globalMatch(m.captured(1)); it.hasNext();) {
        const QRegularExpressionMatch t = it.next();
        const QPointF p(t.captured(1).toDouble(), t.captured(2).toDouble()), q(t.captured(3).toDouble(), t.captured(4).toDouble());
        if (std::abs(std::hypot(p.x() - q.x(), p.y() - q.y()) - 12) < 0.01)
            longAngles << std::atan2(p.x() - kPivot.x(), kPivot.y() - p.y()) * 180 / kPi;
    }
    ASSERT_EQ(longAngles.size(), figures.value(GetParam()));
    EXPECT_NEAR(longAngles.first(), -51, 0.01); // points are written to two decimals
    EXPECT_NEAR(longAngles.last(), 51, 0.01);
    for (int i = 1; i < longAngles.size(); ++i)
        EXPECT_NEAR(longAngles[i] - longAngles[i - 1], 102.0 / (longAngles.size() - 1), 0.01);

    int n = 0;
    const QPointF *terminals = physical_Terminals(GetParam(), &n);
    const QRegularExpression post(QStringLiteral("<circle cx=\"([-\\d.]+)\" cy=\"([-\\d.]+)\" r=\"10\""));
    QVector<QPointF> posts;
    for (auto it = post.globalMatch(svg); it.hasNext();) {
        const QRegularExpressionMatch t = it.next();
        posts << QPointF(t.captured(1).toDouble(), t.captured(2).toDouble());
    }
    ASSERT_EQ(posts.size(), n);
    for (int i = 0; i < n; ++i)
        EXPECT_EQ(posts[i], terminals[i]) << i;
}

// A saved range is one the meter offers: the last one reopens, one past it is refused and
// leaves the meter as it was.
TEST_P(MeterFamily, AReopenedRangeIsOneTheMeterOffers)
{
    ObjPtr o = makeObject(GetParam(), true);
    const QJsonObject grade = item(o, "idMeterGrade");
    if (grade.isEmpty())
        GTEST_SKIP() << "one range only";
    const int ranges = std::max(grade.value("values").toArray().size(), grade.value("options").toArray().size());
    ASSERT_GT(ranges, 1);
    // The record: its magic, the stream, then the kept values (count; key, kind, value each).
    auto withGrade = [&](int g) {
        QDataStream in(o->content()->record());
        in.setVersion(QDataStream::Qt_5_15);
        quint32 magic = 0;
        QByteArray stream, kept;
        in >> magic >> stream >> kept;
        QDataStream k(kept);
        quint32 n = 0;
        k >> n;
        QByteArray rewritten;
        QDataStream out(&rewritten, QIODevice::WriteOnly);
        out << n;
        for (quint32 i = 0; i < n; ++i) {
            QString key;
            quint8 kind = 0;
            k >> key >> kind;
            out << key << kind;
            if (kind == 0) {
                qint32 v = 0;
                k >> v;
                out << qint32(key == QLatin1String("grade") ? g : v);
            } else {
                double v = 0;
                k >> v;
                out << v;
            }
        }
        QByteArray r;
        QDataStream w(&r, QIODevice::WriteOnly);
        w.setVersion(QDataStream::Qt_5_15);
        w << magic << stream << rewritten;
        return r;
    };
    ObjPtr last = makeObject(GetParam(), true);
    EXPECT_TRUE(last->content()->restoreRecord(withGrade(ranges - 1)));
    EXPECT_EQ(item(last, "idMeterGrade").value("value").toInt(), ranges - 1);
    ObjPtr past = makeObject(GetParam(), true);
    const QByteArray before = past->content()->record();
    EXPECT_FALSE(past->content()->restoreRecord(withGrade(ranges)));
    EXPECT_FALSE(past->content()->restoreRecord(withGrade(-1)));
    EXPECT_EQ(past->content()->record(), before);
}

INSTANTIATE_TEST_SUITE_P(Meters, MeterFamily, ::testing::Values(403, 404, 405, 406));

TEST_F(MeterTest, AmmeterPanelItems)
{
    ObjPtr o = makeObject(403);
    const QJsonArray a = settingsOf(o->content());
    ASSERT_EQ(a.size(), 2);
    const QJsonObject grade = a.at(0).toObject();
    EXPECT_EQ(grade.value("id").toString(), "idMeterGrade");
    EXPECT_EQ(grade.value("label").toString(), "IDS_PHYSICAL_METER_GRADE");
    EXPECT_EQ(grade.value("value").toInt(), 0);
    EXPECT_EQ(grade.value("options").toArray(), (QJsonArray{"IDS_PHYSICAL_CURRENT_METER_GRADE1", "IDS_PHYSICAL_CURRENT_METER_GRADE2"}));
    EXPECT_TRUE(grade.value("values").toArray().isEmpty());
    EXPECT_TRUE(grade.value("refreshAfterSet").toBool());
    const QJsonObject value = a.at(1).toObject();
    EXPECT_EQ(value.value("label").toString(), "IDS_PHYSICAL_METER_VALUE");
    EXPECT_EQ(value.value("valueType").toString(), "float");
    EXPECT_EQ(value.value("value").toString(), "0.00");
    EXPECT_EQ(value.value("min").toString(), "0");
    EXPECT_EQ(value.value("max").toString(), "0.6");
    EXPECT_EQ(value.value("unit").toString(), "");
    setting(o, "idMeterGrade", "1");
    EXPECT_EQ(item(o, "idMeterValue").value("max").toString(), "3");
    EXPECT_EQ(item(o, "idMeterGrade").value("value").toInt(), 1);
}

TEST_F(MeterTest, AmmeterReadsTheMiddleOnBothRanges)
{
    ObjPtr o = makeObject(403);
    dragCentreTo(o, onCircle(0));
    EXPECT_EQ(lastPosted(), "0.30");
    EXPECT_EQ(shown(o), "0.30");
    // The large range reads the same pointer five times higher.
    ObjPtr large = makeObject(403);
    setting(large, "idMeterGrade", "1");
    dragCentreTo(large, onCircle(0));
    EXPECT_EQ(lastPosted(), "1.50");
    EXPECT_EQ(shown(large), "1.50");
}

TEST_F(MeterTest, AmmeterTypedValueTurnsThePointer)
{
    ObjPtr o = makeObject(403);
    EXPECT_TRUE(setting(o, "idMeterValue", "0.3"));
    EXPECT_NEAR(pointerAngle(o), 0, 1e-12);
    EXPECT_NEAR(meter(o)->getCurrentAngle(), 0, 1e-12);
    EXPECT_TRUE(GetFramework()->settingsMessages().isEmpty()); // typed values are not echoed
    // Beyond the range the pointer is pinned while currentAngle keeps the whole angle.
    setting(o, "idMeterValue", "5");
    EXPECT_DOUBLE_EQ(pointerAngle(o), 51);
    EXPECT_NEAR(meter(o)->getCurrentAngle(), 799, 1e-9);
    EXPECT_EQ(shown(o), "0.60");
}

TEST_F(MeterTest, AmmeterRangeSwitchKeepsTheReadingFromTheLastSetAngle)
{
    ObjPtr o = makeObject(403);
    setting(o, "idMeterValue", "0.3");
    setting(o, "idMeterGrade", "1");
    EXPECT_NEAR(pointerAngle(o), -40.8, 1e-9);
    EXPECT_EQ(shown(o), "0.30");
    // currentAngle did not follow: straight back starts again from 0 degrees.
    EXPECT_NEAR(meter(o)->getCurrentAngle(), 0, 1e-12);
    setting(o, "idMeterGrade", "0");
    EXPECT_DOUBLE_EQ(pointerAngle(o), 51);
    EXPECT_EQ(static_cast<CMeterAmpere *>(meter(o))->getGrade(), 0);
    // The same index again changes nothing; an index that is no range is ignored.
    meter(o)->setAngel(10);
    setting(o, "idMeterGrade", "0");
    setting(o, "idMeterGrade", "7");
    setting(o, "idMeterGrade", "x");
    EXPECT_DOUBLE_EQ(pointerAngle(o), 10);
    EXPECT_EQ(static_cast<CMeterAmpere *>(meter(o))->getGrade(), 0);
}

TEST_F(MeterTest, RangeKeyWinsOverAValueInTheSameEdit)
{
    ObjPtr o = makeObject(403);
    QMap<QString, QString> v{{"idMeterGrade", "1"}, {"idMeterValue", "2"}};
    EXPECT_TRUE(o->content()->SetSettingArray(v, false, false));
    EXPECT_DOUBLE_EQ(pointerAngle(o), -51);
    EXPECT_EQ(shown(o), "0.00");
}

TEST_F(MeterTest, TinyReadingsShowAsZero)
{
    ObjPtr o = makeObject(403);
    dragCentreTo(o, onCircle(-51 + 0.004 / 0.6 * 102));
    EXPECT_EQ(lastPosted(), "0.00");
    EXPECT_EQ(shown(o), "0.00");
    setting(o, "idMeterValue", "0.004");
    EXPECT_EQ(shown(o), "0.00");
}

// The voltmeter posts on the ammeter's scale after a drag, its panel on its own.
TEST_F(MeterTest, VoltmeterPostsAmmeterReadings)
{
    ObjPtr o = makeObject(404);
    dragCentreTo(o, kPivot + QPointF(200, 0));
    EXPECT_EQ(lastPosted(), "0.60");
    EXPECT_EQ(shown(o), "3.00");
    setting(o, "idMeterGrade", "1");
    EXPECT_EQ(item(o, "idMeterGrade").value("options").toArray(),
              (QJsonArray{"IDS_PHYSICAL_VOLT_METER_GRADE1", "IDS_PHYSICAL_VOLT_METER_GRADE2"}));
    EXPECT_EQ(item(o, "idMeterValue").value("max").toString(), "15");
    dragCentreTo(o, onCircle(0));
    EXPECT_EQ(lastPosted(), "1.50");
    EXPECT_EQ(shown(o), "7.50");
}

TEST_F(MeterTest, VoltmeterTypedValueAndRangeSwitch)
{
    ObjPtr o = makeObject(404);
    setting(o, "idMeterValue", "1.5");
    EXPECT_NEAR(pointerAngle(o), 0, 1e-12);
    setting(o, "idMeterGrade", "1");
    EXPECT_NEAR(pointerAngle(o), -40.8, 1e-9);
    EXPECT_EQ(shown(o), "1.50");
    // A value parsed as a single-precision float.
    setting(o, "idMeterValue", "0.1");
    EXPECT_DOUBLE_EQ(pointerAngle(o), double(0.1f) * 102 / 15 - 51);
}

TEST_F(MeterTest, GalvanometerPanelHidesNegativeReadings)
{
    ObjPtr o = makeObject(405);
    const QJsonArray a = settingsOf(o->content());
    ASSERT_EQ(a.size(), 1);
    EXPECT_EQ(a.at(0).toObject().value("min").toString(), "-30");
    EXPECT_EQ(a.at(0).toObject().value("max").toString(), "30");
    EXPECT_EQ(shown(o), "0.0");
    dragCentreTo(o, onCircle(-10));
    EXPECT_EQ(lastPosted(), "-5.88");
    EXPECT_EQ(shown(o), "0.0");
    dragCentreTo(o, onCircle(10));
    EXPECT_EQ(lastPosted(), "5.88");
    EXPECT_EQ(shown(o), "5.9");
    setting(o, "idMeterValue", "-30");
    EXPECT_DOUBLE_EQ(pointerAngle(o), -51);
    setting(o, "idMeterValue", "15");
    EXPECT_DOUBLE_EQ(pointerAngle(o), 25.5);
    // No range item: a range key is not handled.
    setting(o, "idMeterGrade", "1");
    EXPECT_DOUBLE_EQ(pointerAngle(o), 25.5);
}

TEST_F(MeterTest, CustomMeterReadsZeroToSix)
{
    ObjPtr o = makeObject(406);
    EXPECT_EQ(item(o, "idMeterValue").value("max").toString(), "6");
    setting(o, "idMeterValue", "4.5");
    EXPECT_DOUBLE_EQ(pointerAngle(o), 25.5);
    EXPECT_EQ(shown(o), "4.5");
    dragCentreTo(o, onCircle(-51 + 0.05 / 6 * 102));
    EXPECT_EQ(lastPosted(), "0.05");
    EXPECT_EQ(shown(o), "0.0");
}

TEST_F(MeterTest, CaptureAndRestoreTheRange)
{
    ObjPtr o = makeObject(404);
    setting(o, "idMeterValue", "2");
    stateEvent(o, 2804);
    setting(o, "idMeterGrade", "1");
    setting(o, "idMeterValue", "12");
    stateEvent(o, 2805);
    EXPECT_EQ(item(o, "idMeterGrade").value("value").toInt(), 0);
    EXPECT_EQ(shown(o), "2.00");
    EXPECT_NEAR(meter(o)->getCurrentAngle(), 2.0f * 102 / 3 - 51, 1e-9);
}

// The range lives in the object only; a reloaded meter re-derives currentAngle from
// its pointer, so a range switch after reloading moves the pointer as before saving.
TEST_F(MeterTest, RangeSwitchAfterReloadBehavesAsBefore)
{
    ObjPtr o = makeObject(403, true);
    setting(o, "idMeterValue", "0.3");
    ObjPtr back = loadBytes(403, saveBytes(o->content()));
    EXPECT_NEAR(meter(back)->getCurrentAngle(), 0, 1e-9);
    setting(o, "idMeterGrade", "1");
    setting(back, "idMeterGrade", "1");
    EXPECT_NEAR(pointerAngle(back), pointerAngle(o), 1e-9);
    EXPECT_NEAR(pointerAngle(back), -40.8, 1e-9);
}
