// The spring and the coil: stretching turn by turn, hooks and leads, the panel, undo and persistence.
#include "helpers.h"
#include <QJsonDocument>
#include <QJsonObject>
#include <mechanics/Coil.h>

namespace {

CSpring *spring(const ObjPtr &o) { return static_cast<CSpring *>(o->content()); }
QRectF rectOf(const ObjPtr &o, const QString &id) { return o->content()->document()->namedNode(id)->rect(); }
bool visible(const ObjPtr &o, const char *id) { return node(o->content(), id)->isVisible(); }
double handleY(const ObjPtr &o) { return rectOf(o, "control_1").y(); }

QString lastPosted()
{
    const QJsonObject m = QJsonDocument::fromJson(GetFramework()->settingsMessages().last()).object();
    return m.value("settings").toArray().at(0).toObject().value("value").toString();
}

QString shown(const ObjPtr &o, const char *key)
{
    for (const QJsonValue &v : settingsOf(o->content()))
        if (v.toObject().value("id").toString() == QLatin1String(key))
            return v.toObject().value("value").toVariant().toString();
    return QString();
}

bool setting(const ObjPtr &o, const QString &key, const QString &value)
{
    QMap<QString, QString> v{{key, value}};
    return o->content()->SetSettingArray(v, true, true);
}

QStringList debugLines;
void collectDebug(QtMsgType, const QMessageLogContext &ctx, const QString &msg)
{
    debugLines << QLatin1String(ctx.category) + QLatin1Char(':') + msg;
}

struct SpringFamily : ::testing::TestWithParam<int> {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearRecords();
        GetFramework()->clearMessages();
        debugLines.clear();
        previous = qInstallMessageHandler(collectDebug);
    }
    void TearDown() override { qInstallMessageHandler(previous); }
    bool coil() const { return GetParam() == 501; }
    int turns() const { return coil() ? 5 : 10; }
    const char *countKey() const { return coil() ? "idLeadCount" : "idHookCount"; }
    QtMessageHandler previous = nullptr;
};

} // namespace

TEST_P(SpringFamily, NewApparatusHangsItsTurnsBetweenTheEnds)
{
    ObjPtr o = makeObject(GetParam(), true);
    EXPECT_DOUBLE_EQ(spring(o)->turnHeight(), 14);
    EXPECT_FALSE(node(o->content(), coil() ? "spring_up_6" : "spring_up_11"));
    const QRectF last = rectOf(o, QStringLiteral("spring_down_%1").arg(turns()));
    EXPECT_NEAR(last.bottom(), 67 + (turns() - 1) * 13.9, 1e-9);
    EXPECT_NEAR(rectOf(o, "bottom").top(), last.bottom(), 1e-9);
    const QRectF h = rectOf(o, "control_1");
    EXPECT_NEAR(h.center().y(), rectOf(o, "bottom").bottom(), 1e-9);
    QSvgNode *handle = node(o->content(), "control_1");
    EXPECT_NEAR(handle->numAttribute("y_from"), 53.833 + 4 * turns() + 0.1 + rectOf(o, "bottom").height(), 1e-9);
    EXPECT_NEAR(handle->numAttribute("y_to"), h.y() + 18.0 * turns(), 1e-9);
    // The document grows to hold the laid-out turns.
    EXPECT_GT(o->content()->document()->viewBox().bottom(), (coil() ? h : rectOf(o, "bottom1")).bottom());
}

TEST_P(SpringFamily, DragGrowsEveryTurnEqually)
{
    ObjPtr o = makeObject(GetParam());
    const double vb = o->content()->document()->viewBox().height();
    const double dy = 2 * turns(); // one unit per half-turn
    EXPECT_EQ(drag(o->content(), "control_1", 0, dy), QPointF(0, dy));
    EXPECT_NEAR(rectOf(o, "spring_up_1").height(), 8, 1e-9);
    EXPECT_NEAR(rectOf(o, "spring_down_1").height(), 8, 1e-9);
    EXPECT_NEAR(spring(o)->turnHeight(), 16, 1e-9);
    for (int k = 2; k <= turns(); ++k)
        EXPECT_NEAR(rectOf(o, QStringLiteral("spring_down_%1").arg(k)).top() -
                        rectOf(o, QStringLiteral("spring_down_%1").arg(k - 1)).top(), 15.9, 1e-9) << k;
    // The first turn hangs from the upper arc again, and the log says so.
    EXPECT_NEAR(rectOf(o, "spring_up_1").top(), rectOf(o, "top1").bottom(), 1e-9);
    EXPECT_EQ(debugLines.value(0), QStringLiteral("default:CSpring::updateSVG ptOffset=QPointF(0,%1)").arg(dy));
    EXPECT_NEAR(o->content()->document()->viewBox().height(), vb + dy, 1e-9);
}

TEST_P(SpringFamily, MovesUnderOneUnitSnapBack)
{
    ObjPtr o = makeObject(GetParam());
    const QString before = svgText(o->content());
    for (double d : {0.6, -0.99})
        drag(o->content(), "control_1", 0, d);
    EXPECT_EQ(svgText(o->content()), before);
    EXPECT_EQ(GetFramework()->undoStack()->count(), 0);
}

TEST_P(SpringFamily, CountChoiceShowsOrHidesTheEnds)
{
    ObjPtr o = makeObject(GetParam());
    auto ends = [&] { return QVector<bool>{visible(o, "top"), visible(o, "top1"), visible(o, "bottom"), visible(o, "bottom1")}; };
    ASSERT_TRUE(setting(o, countKey(), "0"));
    EXPECT_EQ(ends(), QVector<bool>(4, false));
    EXPECT_EQ(shown(o, countKey()), "0");
    ASSERT_EQ(GetFramework()->records().size(), 1);
    EXPECT_EQ(GetFramework()->records()[0].actionId, 1101);
    GetFramework()->undoStack()->undo();
    EXPECT_EQ(ends(), QVector<bool>(4, true));
    GetFramework()->undoStack()->redo();
    ASSERT_TRUE(setting(o, countKey(), "1"));
    EXPECT_EQ(ends(), QVector<bool>(4, true));
    for (const char *refused : {"two", "5", "-1"}) // no choice of the box: nothing changes
        setting(o, countKey(), refused);
    EXPECT_EQ(GetFramework()->records().size(), 2);
    EXPECT_EQ(ends(), QVector<bool>(4, true));
    spring(o)->UpdateHookCount(1);
    EXPECT_EQ(ends(), (QVector<bool>{true, true, false, false}));
    spring(o)->UpdateHookCount(-1); // ignored, like every count above two
    EXPECT_EQ(spring(o)->hookCount(), 1);
}

TEST_P(SpringFamily, PanelPercentMovesTheHandleWithoutEcho)
{
    ObjPtr o = makeObject(GetParam());
    QSvgNode *h = node(o->content(), "control_1");
    const double lo = h->numAttribute("y_from"), hi = h->numAttribute("y_to");
    // Past the ends as typed; text that is no integer changes nothing.
    const std::pair<const char *, int> cases[] = {{"100", 100}, {"0", 0}, {"50", 50}, {"250", 250}, {"half", 250}, {"-20", -20}};
    for (auto [text, percent] : cases) {
        setting(o, "idPosValue", text);
        EXPECT_NEAR(handleY(o), lo + (hi - lo) * percent / 100, 1e-9) << text;
    }
    EXPECT_TRUE(GetFramework()->settingsMessages().isEmpty());
    drag(o->content(), "control_1", 0, -(hi - lo) / 2);
    EXPECT_EQ(lastPosted(), shown(o, "idPosValue"));
}

TEST_P(SpringFamily, DragUndoRedoAndCaptureRestore)
{
    ObjPtr o = makeObject(GetParam());
    drag(o->content(), "control_1", 0, 30);
    const QString once = svgText(o->content());
    drag(o->content(), "control_1", 0, -45);
    GetFramework()->undoStack()->undo();
    EXPECT_TRUE(sameDocument(svgText(o->content()), once));
    GetFramework()->undoStack()->redo();
    EXPECT_NEAR(spring(o)->turnHeight(), 14 - 15.0 / turns(), 1e-9);

    QDataStream none;
    const QString captured = svgText(o->content());
    o->content()->SetAttribute(2804, none, false, false);
    setting(o, countKey(), "0");
    setting(o, "idPosValue", "90");
    o->content()->SetAttribute(2805, none, false, false);
    EXPECT_TRUE(sameDocument(svgText(o->content()), captured));
}

TEST_P(SpringFamily, StretchedApparatusSurvivesSaveAndLoad)
{
    ObjPtr o = makeObject(GetParam(), true);
    drag(o->content(), "control_1", 0, 44);
    setting(o, countKey(), "0");
    ObjPtr back = loadBytes(GetParam(), saveBytes(o->content()));
    // The replayed move is the saved place minus the template's: equal up to rounding.
    EXPECT_TRUE(sameDocument(svgText(back->content()), svgText(o->content())));
    EXPECT_EQ(back->itemSize(), o->itemSize());
    for (ObjPtr *p : {&o, &back})
        drag((*p)->content(), "control_1", 0, -17);
    EXPECT_TRUE(sameDocument(svgText(back->content()), svgText(o->content())));
}

INSTANTIATE_TEST_SUITE_P(SpringAndCoil, SpringFamily, ::testing::Values(202, 501),
                         [](const auto &info) { return info.param == 202 ? "Spring" : "Coil"; });

TEST(SpringPaths, GenPathStringStretchesTheFirstCurveOnly)
{
    ObjPtr o = makeObject(202);
    const std::tuple<const char *, double, double, const char *> cases[] = {
        {"M40,60c0.5,1,3,3.5,3,7", 61, 1, "M40,61c0.5,1,3,4,3,8"},
        {"M40,60c0.5,1,3,3.5,3,7c1,1,1,1,1,1", 60, 0, "M40,60c0.5,1,3,3.5,3,7"}, // later segments dropped
        {"M40,60,1c0.5,1,3,3.5,3,7", 60, 0, "c0.5,1,3,3.5,3,7"},                   // bad moveto dropped
        {"M40,60c0.5,1,3,3.5,3", 60, 0, "M40,60"},                                 // short curve dropped
        {"M40,60C0.5,1,3,3.5,3,7", 60, 0, "M40,60"},                               // absolute curve ignored
        {"c1,2,3,4,5,6", 60, 0, ""},                                               // curve at the start
    };
    for (const auto &[d, y, dy, expected] : cases)
        EXPECT_EQ(spring(o)->genPathString(d, y, dy), expected) << d;
}

TEST(SpringPanel, HookComboAndCoilNudge)
{
    ObjPtr s = makeObject(202), c = makeObject(501);
    QDataStream in(s->content()->propItemByAttribute(5100)->comboData());
    int n = 0, zero = -1;
    QString first, second;
    in >> n >> zero >> first >> second;
    EXPECT_EQ(QStringList({QString::number(n), QString::number(zero), first, second}),
              QStringList({"2", "0", "IDS_SVG_PHYSICAL_NO_HOOK", "IDS_SVG_PHYSICAL_HOOK_WITH_TWO_ENDS"}));
    EXPECT_EQ(settingsOf(c->content()).at(0).toObject().value("label"), "IDS_PHYSICSOBJ_LEADCOUNT");
    // Just below 50 % by less than range / 10000 points: the coil rounds up, the spring down.
    for (const ObjPtr *o : {&s, &c}) {
        QSvgNode *h = node((*o)->content(), "control_1");
        const double lo = h->numAttribute("y_from"), range = h->numAttribute("y_to") - lo;
        drag((*o)->content(), "control_1", 0, lo + range * (50 - range / 20000) / 100 - h->rect().y());
        EXPECT_EQ(lastPosted(), o == &s ? "49" : "50");
        EXPECT_EQ(shown(*o, "idPosValue"), lastPosted());
    }
}
