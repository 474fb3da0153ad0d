// The knife switch and the knob: states and colours through the panel, the knob's
// handle round the full circle, capture and restore, undo and persistence.
#include "helpers.h"
#include <QUndoStack>
#include <electromagnetism/Knob.h>
#include <electromagnetism/Switch.h>

namespace {

constexpr double kPi = 3.141592653589793;

CSwitch *sw(const ObjPtr &o) { return static_cast<CSwitch *>(o->content()); }
CKnob *knob(const ObjPtr &o) { return static_cast<CKnob *>(o->content()); }
bool visible(const ObjPtr &o, const char *id) { return node(o->content(), id)->isVisible(); }

bool setting(const ObjPtr &o, const QString &key, const QString &value, bool undo = true)
{
    QMap<QString, QString> v{{key, value}};
    return o->content()->SetSettingArray(v, true, undo);
}

void stateEvent(const ObjPtr &o, int id)
{
    QByteArray none;
    QDataStream in(none);
    o->content()->SetAttribute(id, in, false, false);
}

QJsonObject item(const ObjPtr &o, const char *key)
{
    for (const QJsonValue &v : settingsOf(o->content()))
        if (v.toObject().value("id").toString() == QLatin1String(key))
            return v.toObject();
    return QJsonObject();
}

// Puts the handle's centre at c as the host would, then lets the knob lay it out.
bool knobHandleAt(const ObjPtr &o, QPointF c)
{
    QSvgNode *h = node(o->content(), "control_1");
    h->setNumAttribute("x", c.x() - 4);
    h->setNumAttribute("y", c.y() - 4);
    return o->content()->updateSVG(h, QPointF(), false);
}

double turn(const ObjPtr &o) { return node(o->content(), "knob")->numAttribute("rotate_angle"); }
QPointF handleTopLeft(const ObjPtr &o) { return node(o->content(), "control_1")->rect().topLeft(); }

struct SwitchKnobTest : ::testing::Test {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearRecords();
        GetFramework()->clearMessages();
    }
};

} // namespace

TEST_F(SwitchKnobTest, SwitchStartsOpen)
{
    ObjPtr o = makeObject(400, true);
    EXPECT_TRUE(sw(o)->isOpen());
    EXPECT_FALSE(visible(o, "on"));
    EXPECT_TRUE(visible(o, "off"));
    const DATA_MAP_STRUCT a = sw(o)->attributes().value(5100);
    EXPECT_EQ(a.propId, 1101);
    EXPECT_EQ(a.dataType, 0);
    EXPECT_EQ(a.name, "IDS_SVG_PHYSICAL_Switch_is_closed");
    EXPECT_EQ(a.color, QColor(Qt::black));
    const QJsonArray s = settingsOf(o->content());
    ASSERT_EQ(s.size(), 1);
    EXPECT_EQ(s.at(0).toObject().value("id").toString(), "idSwitchIsConnected");
    EXPECT_EQ(s.at(0).toObject().value("label").toString(), "IDS_PHYSICSOBJ_SWITCHONOFF");
    EXPECT_FALSE(s.at(0).toObject().value("value").toBool());
    EXPECT_EQ(o->content()->getPropName(5002), "IDS_SVG_PHYSICAL_COLOR");
}

// Only "true" and "1" close the switch; everything else opens it.
TEST_F(SwitchKnobTest, SwitchPanelValues)
{
    ObjPtr o = makeObject(400);
    const std::pair<const char *, bool> rows[] = {{"1", true}, {"TRUE", false}, {"true", true}, {"True", false},
                                                  {"true", true}, {"0", false}, {"true", true}, {"", false}, {"yes", false}};
    for (const auto &r : rows) {
        EXPECT_TRUE(setting(o, "idSwitchIsConnected", r.first));
        EXPECT_EQ(!sw(o)->isOpen(), r.second) << r.first;
        EXPECT_EQ(visible(o, "on"), r.second) << r.first;
        EXPECT_EQ(visible(o, "off"), !r.second) << r.first;
        EXPECT_EQ(item(o, "idSwitchIsConnected").value("value").toBool(), r.second);
    }
    EXPECT_TRUE(setting(o, "somethingElse", "1"));
}

TEST_F(SwitchKnobTest, SwitchUndoRedoAndPlayback)
{
    ObjPtr o = makeObject(400);
    setting(o, "idSwitchIsConnected", "true");
    QUndoStack *s = GetFramework()->undoStack();
    ASSERT_EQ(s->count(), 1);
    ASSERT_EQ(GetFramework()->records().size(), 1);
    EXPECT_EQ(GetFramework()->records().last().actionId, 1101);
    s->undo();
    EXPECT_TRUE(sw(o)->isOpen());
    EXPECT_FALSE(visible(o, "on"));
    s->redo();
    EXPECT_FALSE(sw(o)->isOpen());
    EXPECT_TRUE(visible(o, "on"));
}

TEST_F(SwitchKnobTest, SwitchCaptureRestoreAndRoundTrip)
{
    ObjPtr o = makeObject(400, true);
    setting(o, "idSwitchIsConnected", "1");
    stateEvent(o, 2804);
    setting(o, "idSwitchIsConnected", "0");
    const int undo = GetFramework()->undoStack()->count();
    stateEvent(o, 2805);
    EXPECT_FALSE(sw(o)->isOpen());
    EXPECT_EQ(GetFramework()->undoStack()->count(), undo); // a restore is no user step
    ObjPtr back = loadBytes(400, saveBytes(o->content()));
    EXPECT_FALSE(sw(back)->isOpen());
    EXPECT_TRUE(visible(back, "on"));
    EXPECT_FALSE(visible(back, "off"));
    EXPECT_TRUE(sameDocument(svgText(back->content()), svgText(o->content())));
}

TEST_F(SwitchKnobTest, SwitchWithoutOffGroupIsLeftAlone)
{
    ObjPtr o = makeObject(400);
    o->content()->removeNode(node(o->content(), "off"));
    setting(o, "idSwitchIsConnected", "1");
    EXPECT_FALSE(sw(o)->isOpen());
    EXPECT_FALSE(visible(o, "on"));
}

TEST_F(SwitchKnobTest, KnobStartsPointingUp)
{
    ObjPtr o = makeObject(401, true);
    EXPECT_DOUBLE_EQ(knob(o)->getKnobRadius(), 30);
    EXPECT_DOUBLE_EQ(turn(o), 0);
    const QJsonArray s = settingsOf(o->content());
    ASSERT_EQ(s.size(), 3);
    const char *keys[] = {"idExtCircleColor", "idIntCircleColor", "idScaleColor"};
    const char *labels[] = {"IDS_PHYSICSOBJ_KNOB_EXT_COLOR", "IDS_PHYSICSOBJ_KNOB_INT_COLOR", "IDS_PHYSICSOBJ_SCALE_COLOR"};
    const char *colours[] = {"#c0c0c0", "#808080", "#3a3a3a"};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(s.at(i).toObject().value("id").toString(), keys[i]);
        EXPECT_EQ(s.at(i).toObject().value("label").toString(), labels[i]);
        EXPECT_EQ(s.at(i).toObject().value("value").toString(), colours[i]);
        EXPECT_EQ(knob(o)->attributes().value(5100 + i).propId, 1101 + i);
        EXPECT_EQ(knob(o)->attributes().value(5100 + i).dataType, 3);
    }
}

TEST_F(SwitchKnobTest, KnobHandleRoundTheCircle)
{
    ObjPtr o = makeObject(401);
    const struct {
        QPointF centre;
        double turn;
        QPointF topLeft;
    } rows[] = {
        {{69, 39}, 90, {65, 35}},
        {{39, 70}, -180, {35, 65}},
        {{39, 9}, -180, {35, 65}},  // exactly above the centre: jumps to the bottom
        {{9, 39}, -90, {5, 35}},
        {{60, 60}, 135, {39 + 30 * std::cos(7 * kPi / 4) - 4, 39 - 30 * std::sin(7 * kPi / 4) - 4}},
        {{39, 39}, 0, {35, 5}},     // on the centre: straight up
        {{40, 9}, 1.9091524329963763, {}},
        {{38, 9}, -1.9091524329963763, {}},
        {{20, 20}, -45, {}},
        {{50, 70}, 160.46, {}},
    };
    for (const auto &r : rows) {
        EXPECT_TRUE(knobHandleAt(o, r.centre));
        EXPECT_NEAR(turn(o), r.turn, 1e-2) << r.centre.x() << "," << r.centre.y();
        if (!r.topLeft.isNull()) {
            EXPECT_NEAR(handleTopLeft(o).x(), r.topLeft.x(), 1e-9);
            EXPECT_NEAR(handleTopLeft(o).y(), r.topLeft.y(), 1e-9);
        }
        // Wherever it was let go, the handle ends on the knob's circle.
        EXPECT_NEAR(QLineF(node(o->content(), "control_1")->rect().center(), QPointF(39, 39)).length(), 30, 1e-9);
    }
    EXPECT_TRUE(GetFramework()->settingsMessages().isEmpty());
    EXPECT_FALSE(o->content()->updateSVG(nullptr, QPointF(), false));
}

TEST_F(SwitchKnobTest, KnobColoursFromThePanel)
{
    ObjPtr o = makeObject(401);
    QMap<QString, QString> v{{"idExtCircleColor", "#2f6db5"}, {"idIntCircleColor", "gold"}, {"idScaleColor", "#b22222"}};
    EXPECT_TRUE(o->content()->SetSettingArray(v, true, true));
    EXPECT_EQ(node(o->content(), "circle_1")->fillColor(), QColor("#2f6db5"));
    EXPECT_EQ(node(o->content(), "circle_2")->fillColor(), QColor("gold"));
    EXPECT_EQ(node(o->content(), "line")->strokeColor(), QColor("#b22222"));
    EXPECT_EQ(GetFramework()->undoStack()->count(), 3);
    EXPECT_EQ(GetFramework()->records().size(), 3);
    GetFramework()->undoStack()->undo();
    EXPECT_EQ(node(o->content(), "line")->strokeColor(), QColor("#3a3a3a"));
    // A name that is no colour changes nothing.
    setting(o, "idExtCircleColor", "not a colour");
    EXPECT_EQ(node(o->content(), "circle_1")->fillColor(), QColor("#2f6db5"));
}

TEST_F(SwitchKnobTest, KnobCaptureRestoreAndRoundTrip)
{
    ObjPtr o = makeObject(401, true);
    stateEvent(o, 2805); // nothing captured yet: the colours stay
    EXPECT_EQ(node(o->content(), "circle_1")->fillColor(), QColor("#c0c0c0"));
    setting(o, "idExtCircleColor", "#112233");
    stateEvent(o, 2804);
    setting(o, "idExtCircleColor", "#445566");
    setting(o, "idScaleColor", "#778899");
    stateEvent(o, 2805);
    EXPECT_EQ(node(o->content(), "circle_1")->fillColor(), QColor("#112233"));
    EXPECT_EQ(node(o->content(), "line")->strokeColor(), QColor("#3a3a3a"));

    o->content()->moveControlPoint(node(o->content(), "control_1"), QPointF(25, 45), true);
    const double t = turn(o);
    EXPECT_GT(t, 90);
    ObjPtr back = loadBytes(401, saveBytes(o->content()));
    EXPECT_NEAR(turn(back), t, 1e-9);
    EXPECT_EQ(node(back->content(), "circle_1")->fillColor(), QColor("#112233"));
    EXPECT_TRUE(sameDocument(svgText(back->content()), svgText(o->content())));
}

TEST_F(SwitchKnobTest, KnobDragUndoAndRedo)
{
    ObjPtr o = makeObject(401);
    o->content()->moveControlPoint(node(o->content(), "control_1"), QPointF(30, 30), true);
    EXPECT_NEAR(turn(o), 90, 1e-9);
    GetFramework()->undoStack()->undo();
    // Undo gives the knob back as it was, even though its drag path would read a
    // handle exactly above the centre as the bottom.
    EXPECT_NEAR(turn(o), 0, 1e-9);
    EXPECT_EQ(node(o->content(), "control_1")->rect().topLeft(), QPointF(35, 5));
    GetFramework()->undoStack()->redo();
    EXPECT_NEAR(turn(o), 90, 1e-9);
    // Huge drags stop at the handle's bounds and still land on the circle.
    o->content()->moveControlPoint(node(o->content(), "control_1"), QPointF(1e300, -1e300), true);
    EXPECT_NEAR(QLineF(node(o->content(), "control_1")->rect().center(), QPointF(39, 39)).length(), 30, 1e-9);
}
