// The ruler: graduation at every length, panel round trips, undo, capture and persistence.
#include "helpers.h"
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QUndoStack>
#include <mechanics/Ruler.h>

namespace {

CRuler *ruler(const ObjPtr &o) { return static_cast<CRuler *>(o->content()); }
double bodyWidth(const ObjPtr &o) { return node(o->content(), "rect")->numAttribute("width"); }
QSvgNode *byId(const ObjPtr &o, const QString &id) { return o->content()->document()->namedNode(id); }

bool setting(const ObjPtr &o, const QString &key, const QString &value, bool flags = true)
{
    QMap<QString, QString> v{{key, value}};
    return o->content()->SetSettingArray(v, flags, flags);
}

QString shownPercent(const ObjPtr &o)
{
    for (const QJsonValue &v : settingsOf(o->content()))
        if (v.toObject().value("id").toString() == QLatin1String("idPosValue"))
            return v.toObject().value("value").toString();
    return QString();
}

// Ids of the drawing as written: every id once, and exactly the expected series.
void expectSeries(const ObjPtr &o, int ticks)
{
    const QString svg = svgText(o->content());
    QRegularExpression idRe(QStringLiteral("id=\"([^\"]+)\""));
    QStringList ids;
    for (auto it = idRe.globalMatch(svg); it.hasNext();)
        ids << it.next().captured(1);
    EXPECT_EQ(ids.size(), QSet<QString>(ids.begin(), ids.end()).size()) << "duplicate ids";
    EXPECT_EQ(ids.filter(QRegularExpression("^line_\\d+$")).size(), ticks);
    EXPECT_EQ(ids.filter(QRegularExpression("^text_\\d+$")).size(), (ticks - 1) / 10 + 1);
    EXPECT_EQ(ruler(o)->lineCount(), ticks);
    EXPECT_TRUE(byId(o, QStringLiteral("line_%1").arg(ticks)));
    EXPECT_FALSE(byId(o, QStringLiteral("line_%1").arg(ticks + 1)));
    for (int i = 0; i < ticks; i += 10) {
        const QSvgNode *label = byId(o, QStringLiteral("text_%1").arg(i));
        ASSERT_TRUE(label) << i;
        EXPECT_EQ(label->text(), QString::number(i / 10));
    }
}

struct RulerTest : ::testing::Test {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearRecords();
        GetFramework()->clearMessages();
    }
    int messages() const { return GetFramework()->settingsMessages().size(); }
    QJsonObject lastMessage() const { return QJsonDocument::fromJson(GetFramework()->settingsMessages().last()).object(); }
};

} // namespace

TEST_F(RulerTest, FreshRulerHasFiftyThreeTicksAndReportsFourteen)
{
    ObjPtr o = makeObject(109, true);
    expectSeries(o, 53);
    EXPECT_FALSE(byId(o, "text_60"));
    EXPECT_EQ(shownPercent(o), "14");
    // Creation echoes the first percentage to the panel.
    ASSERT_GE(messages(), 1);
    EXPECT_EQ(lastMessage().value("settings").toArray().at(0).toObject(),
              (QJsonObject{{"id", "idPosValue"}, {"value", "14"}}));
    EXPECT_EQ(settingsOf(o->content())[0].toObject().value("value"), "#2b3990");
}

struct LengthCase {
    const char *typed;
    double width;
    int ticks;
    const char *shown;
};

class RulerLength : public RulerTest, public ::testing::WithParamInterface<LengthCase> {};

TEST_P(RulerLength, TypedPercentageSetsBodyAndGraduation)
{
    ObjPtr o = makeObject(109, true);
    const int before = messages();
    EXPECT_TRUE(setting(o, "idPosValue", GetParam().typed));
    EXPECT_NEAR(bodyWidth(o), GetParam().width, 1e-9);
    expectSeries(o, GetParam().ticks);
    EXPECT_EQ(shownPercent(o), GetParam().shown);
    EXPECT_EQ(messages(), before); // a typed value is not echoed back
    // The selection ends at the handle.
    const QRectF vb = o->content()->document()->viewBox();
    EXPECT_NEAR(vb.right(), node(o->content(), "control_1")->rect().right(), 1e-9);
}

// Width = 166 + (x - 161.875); ticks = trunc((width - 7.167) / 3 + 1). Garbage reads as 0.
INSTANTIATE_TEST_SUITE_P(Ruler, RulerLength, ::testing::Values(
    LengthCase{"0", 54.125, 16, "0"}, LengthCase{"14", 159.125, 51, "14"},
    LengthCase{"50", 429.125, 141, "50"}, LengthCase{"100", 804.125, 266, "100"},
    LengthCase{"abc", 54.125, 16, "0"}));

TEST_F(RulerTest, TickLengthsFollowTheTemplatePattern)
{
    ObjPtr o = makeObject(109, true);
    setting(o, "idPosValue", "100");
    for (int k = 1; k <= 266; ++k) {
        const QSvgNode *t = byId(o, QStringLiteral("line_%1").arg(k));
        ASSERT_TRUE(t);
        const int i = k - 1;
        const double y2 = i % 10 == 0 ? 28 : i % 5 == 0 ? 22.833 : 18.833;
        EXPECT_NEAR(t->numAttribute("y2"), y2, 1e-9) << "line_" << k;
        EXPECT_NEAR(t->numAttribute("x1"), 7.667 + 3 * i, 1e-9) << "line_" << k;
        EXPECT_EQ(t->numAttribute("y1"), 0.5);
        EXPECT_FALSE(t->strokeEnabled());
    }
    // Each label starts where the zero label does, ten pitches per number.
    EXPECT_NEAR(byId(o, "text_260")->numAttribute("x"), 4 + 780, 1e-9);
    EXPECT_EQ(byId(o, "text_260")->attribute("width"), "25");
}

TEST_F(RulerTest, ShrinkRemovesTicksWithTheirLabelsAndRegrowRebuildsTheSameIds)
{
    ObjPtr o = makeObject(109, true);
    const QString original = svgText(o->content());
    const int nodes = o->content()->document()->indexedCount();
    setting(o, "idPosValue", "0");
    EXPECT_FALSE(byId(o, "line_17"));
    EXPECT_FALSE(byId(o, "text_20"));
    EXPECT_TRUE(byId(o, "text_10"));
    ruler(o)->setControlPos(161.875);
    EXPECT_TRUE(sameDocument(svgText(o->content()), original));
    EXPECT_EQ(o->content()->document()->indexedCount(), nodes);
}

TEST_F(RulerTest, DragEchoesThePercentageButSetControlPosDoesNot)
{
    ObjPtr o = makeObject(109, true);
    int before = messages();
    ruler(o)->setControlPos(400);
    EXPECT_EQ(messages(), before);
    EXPECT_NEAR(bodyWidth(o), 166 + 400 - 161.875, 1e-9);

    before = messages();
    const QPointF applied = drag(o->content(), "control_1", 1000, 50); // clamped to x 800, no vertical travel
    EXPECT_EQ(applied, QPointF(400, 0));
    ASSERT_EQ(messages(), before + 1);
    EXPECT_EQ(lastMessage().value("settings").toArray().at(0).toObject().value("value"), "100");
    expectSeries(o, 266);
}

TEST_F(RulerTest, ColourFromThePanelHasOneUndoStepAndOneRecord)
{
    ObjPtr o = makeObject(109, true);
    EXPECT_TRUE(setting(o, "idScaleColor", "#ff0000"));
    auto allTicks = [&](const QColor &c) {
        for (int k = 1; k <= ruler(o)->lineCount(); ++k)
            if (byId(o, QStringLiteral("line_%1").arg(k))->strokeColor() != c)
                return false;
        return true;
    };
    EXPECT_TRUE(allTicks(Qt::red));
    EXPECT_EQ(node(o->content(), "rect")->strokeColor(), QColor("#2E3192"));
    EXPECT_EQ(node(o->content(), "text_0")->fillColor(), QColor());
    ASSERT_EQ(GetFramework()->records().size(), 1);
    EXPECT_EQ(GetFramework()->records()[0].actionId, 1101);
    QUndoStack *stack = GetFramework()->undoStack();
    ASSERT_EQ(stack->count(), 1);
    stack->undo();
    EXPECT_TRUE(allTicks(QColor(0x2B, 0x39, 0x90)));
    stack->redo();
    EXPECT_TRUE(allTicks(Qt::red));
    // Ticks added later take the scale colour too.
    setting(o, "idPosValue", "100", false);
    EXPECT_TRUE(allTicks(Qt::red));
    EXPECT_EQ(GetFramework()->records().size(), 1);
}

TEST_F(RulerTest, RestorePutsBackCapturedColourAndLength)
{
    ObjPtr o = makeObject(109, true);
    setting(o, "idPosValue", "30", false);
    const QString captured = svgText(o->content());
    QByteArray none;
    QDataStream empty(&none, QIODevice::ReadOnly);
    EXPECT_TRUE(o->content()->SetAttribute(2804, empty, false, false));
    setting(o, "idScaleColor", "#00ff00", false);
    drag(o->content(), "control_1", -200, 0);
    const int before = messages();
    EXPECT_TRUE(o->content()->SetAttribute(2805, empty, false, false));
    // The same colour comes back; its text may be spelt in the other case.
    EXPECT_TRUE(sameDocument(svgText(o->content()).toLower(), captured.toLower()));
    EXPECT_EQ(shownPercent(o), "30");
    EXPECT_EQ(messages(), before);
    EXPECT_EQ(GetFramework()->undoStack()->count(), 1); // only the drag
}

TEST_F(RulerTest, SaveLoadRoundTripKeepsDocumentAndNextDrag)
{
    for (double dx : {-200.0, 0.0, 355.5, 1000.0}) {
        SCOPED_TRACE(dx);
        ObjPtr o = makeObject(109, true);
        drag(o->content(), "control_1", dx, 0);
        setting(o, "idScaleColor", "#123456", false);
        QDataStream::Status status;
        ObjPtr copy = loadBytes(109, saveBytes(o->content()), &status);
        EXPECT_EQ(status, QDataStream::Ok);
        EXPECT_TRUE(sameDocument(svgText(copy->content()), svgText(o->content())));
        expectSeries(copy, ruler(o)->lineCount());
        EXPECT_EQ(copy->itemSize(), o->itemSize());
        for (ObjPtr *p : {&o, &copy})
            drag((*p)->content(), "control_1", -31, 0);
        EXPECT_TRUE(sameDocument(svgText(copy->content()), svgText(o->content())));
        EXPECT_EQ(byId(copy, "line_5")->strokeColor(), QColor("#123456"));
    }
}

TEST_F(RulerTest, MissingTemplateNodesLeaveTheGraduationAlone)
{
    ObjPtr o = makeObject(109, true);
    EXPECT_FALSE(o->content()->updateSVG(nullptr, QPointF(30, 0), true));
    EXPECT_NEAR(bodyWidth(o), 166, 1e-9);
    o->content()->removeNode(node(o->content(), "line_2"));
    drag(o->content(), "control_1", 300, 0);
    EXPECT_NEAR(bodyWidth(o), 466, 1e-9);
    EXPECT_EQ(ruler(o)->lineCount(), 53);
    EXPECT_FALSE(byId(o, "line_54"));
}
