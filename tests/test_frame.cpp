// The container, the factory and its entry points; the attribute and resizable bases.
#include "helpers.h"
#include <QGraphicsScene>
#include <bases/Basic.h>
#include <svgbaseundocmd.h>

TEST(Frame, FirstFactoryArgumentNeverMatters)
{
    ObjPtr a = makeObject(107), b(createObject_physical(999, 107, false));
    ASSERT_TRUE(a->content());
    ASSERT_TRUE(b->content());
    EXPECT_EQ(a->content()->getSVGType(), 107);
    EXPECT_EQ(svgText(a->content()), svgText(b->content()));
}

class UnknownType : public ::testing::TestWithParam<int> {};

TEST_P(UnknownType, GivesAnEmptyContainerThatStillAnswers)
{
    ObjPtr o(createObject_physical(0, GetParam(), true));
    EXPECT_EQ(o->content(), nullptr);
    EXPECT_EQ(o->type(), 75756);
    EXPECT_EQ(o->getObjName(), QStringLiteral("wb physical object"));
    CObjAction::ACT_Def act = CObjAction::ACT_NONE;
    o->CheckHitTestHandlers(QPointF(1, 1), act); // falls back to the page object, no crash
    EXPECT_FALSE(o->createSVG(GetParam(), true));
}

// Outside the table, in its gaps, and ids whose class is not built.
INSTANTIATE_TEST_SUITE_P(Frame, UnknownType, ::testing::Values(99, 115, 116, 199, 715, -1, 0, 2147483647));

TEST(Frame, ContainerReportsItsTypeAndName)
{
    ObjPtr o = makeObject(107);
    EXPECT_EQ(o->type(), QGraphicsItem::UserType + 10220);
    EXPECT_EQ(o->getObjName(), QStringLiteral("wb physical object"));
    EXPECT_FALSE(o->createdWithDefaultSize());
    ObjPtr d = makeObject(107, true);
    EXPECT_TRUE(d->createdWithDefaultSize());
    EXPECT_EQ(d->itemSize(), d->getDefaultSize());
}

TEST(Frame, DefaultTypeSpecialProperty)
{
    const int saved = CWBPhysicalObject::m_nDefaultObjectType;
    CWBPhysicalObject::m_nDefaultObjectType = 10000;
    QByteArray bytes;
    {
        QDataStream s(&bytes, QIODevice::WriteOnly);
        EXPECT_TRUE(CWBPhysicalObject::GetDefaultSpecialProperty(5001, s));
        EXPECT_FALSE(CWBPhysicalObject::GetDefaultSpecialProperty(5002, s));
    }
    QDataStream r(bytes);
    qint32 v = 0;
    r >> v;
    EXPECT_EQ(v, 10000);
    EXPECT_TRUE(r.atEnd()); // 5002 wrote nothing

    QByteArray in;
    {
        QDataStream s(&in, QIODevice::WriteOnly);
        s << qint32(204);
    }
    QDataStream s(in);
    EXPECT_TRUE(physical_SetDefaultSpecialProperty(5001, s));
    QByteArray out;
    {
        QDataStream t(&out, QIODevice::WriteOnly);
        CWBPhysicalObject::GetDefaultSpecialProperty(5001, t);
    }
    QDataStream t(out);
    t >> v;
    EXPECT_EQ(v, 204);
    QDataStream none(in);
    EXPECT_FALSE(physical_SetDefaultSpecialProperty(5003, none));
    EXPECT_EQ(none.device()->pos(), 0); // read nothing
    CWBPhysicalObject::m_nDefaultObjectType = saved;
}

TEST(Frame, CirclePointDegree)
{
    const QPointF c(10, 10);
    EXPECT_DOUBLE_EQ(getCirclePointDegree(QPointF(20, 10), c), 0);
    EXPECT_DOUBLE_EQ(getCirclePointDegree(QPointF(10, 0), c), 90);
    EXPECT_DOUBLE_EQ(getCirclePointDegree(QPointF(0, 10), c), 180);
    EXPECT_DOUBLE_EQ(getCirclePointDegree(QPointF(10, 20), c), 270);
    EXPECT_DOUBLE_EQ(getCirclePointDegree(c, c), 90);
    EXPECT_NEAR(getCirclePointDegree(QPointF(20, 20), c), 315, 1e-9);
}

TEST(Frame, HitTestMapsTheScenePointIntoTheItem)
{
    QGraphicsScene scene;
    CWBPhysicalObject *o = createObject_physical(0, 107, true);
    scene.addItem(o);
    o->setPos(100, 50);
    CSVGBase *c = o->content();
    const QRectF h = node(c, "control_1")->rect();
    const QRectF vb = c->document()->viewBox();
    const QSizeF s = o->itemSize();
    const QPointF local((h.center().x() - vb.x()) * s.width() / vb.width(), (h.center().y() - vb.y()) * s.height() / vb.height());
    CObjAction::ACT_Def act = CObjAction::ACT_NONE;
    EXPECT_TRUE(o->CheckHitTestHandlers(o->mapToScene(local), act));
    EXPECT_EQ(act, CObjAction::ACT_NONE); // a handle hit leaves the action alone
    EXPECT_EQ(c->hitHandle(), node(c, "control_1"));
    // The same point without the item's offset misses the handle.
    act = CObjAction::ACT_NONE;
    EXPECT_FALSE(o->CheckHitTestHandlers(local - QPointF(200, 200), act));
    // Inside the item but off the handle: the page object's own hit (a move).
    EXPECT_TRUE(o->CheckHitTestHandlers(o->mapToScene(QPointF(1, s.height() / 2)), act));
    EXPECT_EQ(act, CObjAction::ACT_MOVE);
    scene.removeItem(o);
    o->Release();
}

namespace {

// A small apparatus with one attribute of each kind, recording its hook calls.
class Probe : public CBasic
{
public:
    explicit Probe(CSVGObj *owner) : CBasic(owner) {}
    QString getSVG() override { return svg; }
    int getSVGType() override { return 1; }
    void ResetAtrribute() override
    {
        calls << "Reset";
        m_attributes[5100] = DATA_MAP_STRUCT{1101, 3, "IDS_COLOR", QColor(1, 2, 3), false, 0};
        m_attributes[5101] = DATA_MAP_STRUCT{1102, 0, "IDS_SWITCH", QColor(), true, 0};
        m_attributes[5102] = DATA_MAP_STRUCT{1103, 1, "IDS_COMBO", QColor(), false, 1};
        m_attributes[5103] = DATA_MAP_STRUCT{1104, 2, "IDS_OTHER", QColor(), false, 7};
    }
    void SVGInit(bool, bool loaded) override { calls << (loaded ? "Init+" : "Init-"); }
    void UpdateColor(bool b) override { calls << QStringLiteral("Color%1").arg(b); }
    void UpdateCheckBox(bool b) override { calls << QStringLiteral("Check%1").arg(b); }
    void UpdateCombobox(bool b) override { calls << QStringLiteral("Combo%1").arg(b); }
    QByteArray GetComboboxData() override { return QByteArray("combo"); }
    using CBasic::Resize;

    QStringList calls;
    QString svg = QStringLiteral("<svg viewBox='0 0 100 50' width='100' height='50'><rect id='r' width='10' height='10'/></svg>");
};

struct ProbeFixture : ::testing::Test {
    CSVGObj owner{0, false};
    Probe probe{&owner};
    void SetUp() override
    {
        probe.loadSVG(true);
        GetFramework()->undoStack()->clear();
        GetFramework()->clearRecords();
    }
    QByteArray colorStream(QColor c)
    {
        QByteArray b;
        QDataStream s(&b, QIODevice::WriteOnly);
        s << c;
        return b;
    }
};

} // namespace

TEST_F(ProbeFixture, LoadRunsHooksInOrder)
{
    EXPECT_EQ(probe.calls, (QStringList{"Reset", "Init+", "Color1", "Check1", "Combo1"}));
}

TEST_F(ProbeFixture, PropertyItemsFollowTheTable)
{
    // Host colour item first, then one per attribute in key order.
    ASSERT_EQ(probe.propItems().size(), 5u);
    EXPECT_EQ(probe.propItems()[0]->attributeId(), 5002);
    EXPECT_EQ(probe.propItems()[1]->attributeId(), 5100);
    EXPECT_EQ(probe.propItems()[1]->propId(), 1101);
    EXPECT_TRUE(probe.propItems()[2]->comboData().isEmpty());
    EXPECT_EQ(probe.propItems()[3]->comboData(), QByteArray("combo"));
}

TEST_F(ProbeFixture, ColourWithoutFlagsMakesNoUndoAndNoRecord)
{
    QDataStream in(colorStream(Qt::red));
    probe.calls.clear();
    EXPECT_TRUE(probe.setInnerProperty(5100, in, false, false));
    EXPECT_EQ(probe.attributes()[5100].color, QColor(Qt::red));
    EXPECT_EQ(probe.calls, QStringList{"Color1"});
    EXPECT_EQ(GetFramework()->undoStack()->count(), 0);
    EXPECT_TRUE(GetFramework()->records().isEmpty());
}

TEST_F(ProbeFixture, ColourWithFlagsMakesOneUndoAndOneRecordUnderThePropId)
{
    QDataStream in(colorStream(Qt::red));
    EXPECT_TRUE(probe.setInnerProperty(5100, in, true, true));
    ASSERT_EQ(GetFramework()->undoStack()->count(), 1);
    EXPECT_EQ(static_cast<const CSVGBaseUndoCmd *>(GetFramework()->undoStack()->command(0))->propId(), 1101);
    ASSERT_EQ(GetFramework()->records().size(), 1);
    EXPECT_EQ(GetFramework()->records()[0].actionId, 1101);
    GetFramework()->undoStack()->undo();
    EXPECT_EQ(probe.attributes()[5100].color, QColor(1, 2, 3));
    GetFramework()->undoStack()->redo();
    EXPECT_EQ(probe.attributes()[5100].color, QColor(Qt::red));
    EXPECT_EQ(GetFramework()->records().size(), 1); // undo and redo make no records
}

TEST_F(ProbeFixture, SwitchAndComboGoThroughTheirHooks)
{
    QByteArray b;
    {
        QDataStream s(&b, QIODevice::WriteOnly);
        s << false << qint32(0);
    }
    QDataStream in(b);
    probe.calls.clear();
    EXPECT_TRUE(probe.setInnerProperty(5101, in, true, false));
    EXPECT_TRUE(probe.setInnerProperty(5102, in, false, true));
    EXPECT_EQ(probe.calls, (QStringList{"Check1", "Combo1"}));
    EXPECT_FALSE(probe.attributes()[5101].boolValue);
    EXPECT_EQ(probe.attributes()[5102].intValue, 0);
    EXPECT_EQ(GetFramework()->records().size(), 1);
    EXPECT_EQ(GetFramework()->undoStack()->count(), 1);
}

TEST_F(ProbeFixture, UnhandledDataTypeReadsNothingAndAsksTheHost)
{
    QByteArray b("\x01\x02\x03\x04", 4);
    QDataStream in(b);
    EXPECT_FALSE(probe.setInnerProperty(5103, in, true, true));
    EXPECT_EQ(in.device()->pos(), 0);
    EXPECT_EQ(probe.attributes()[5103].intValue, 7);
}

TEST_F(ProbeFixture, AttributeStreamRoundTrips)
{
    QDataStream in(colorStream(Qt::green));
    probe.setInnerProperty(5100, in, false, false);
    const QByteArray bytes = saveBytes(&probe);
    // Four entries of six fields come before the host part.
    QDataStream peek(bytes);
    qint32 propId = 0, type = 0;
    peek >> propId >> type;
    EXPECT_EQ(propId, 1101);
    EXPECT_EQ(type, 3);

    CSVGObj owner2(0, false);
    Probe copy(&owner2);
    copy.loadSVG(true);
    copy.calls.clear();
    QDataStream s(bytes);
    EXPECT_TRUE(copy.load(s));
    EXPECT_EQ(copy.attributes()[5100].color, QColor(Qt::green));
    EXPECT_EQ(copy.calls, (QStringList{"Color0", "Check0", "Combo0"}));
}

// A flipped byte in a saved colour must not reach Qt as an unknown colour kind.
TEST_F(ProbeFixture, UnknownColourKindInAStreamIsRefused)
{
    QByteArray bytes = saveBytes(&probe);
    // The first entry's colour follows its prop id, data type and name.
    QDataStream peek(bytes);
    qint32 propId = 0, type = 0;
    QString name;
    peek >> propId >> type >> name;
    const int colourAt = int(peek.device()->pos());
    bytes[colourAt] = char(42);

    CSVGObj owner2(0, false);
    Probe copy(&owner2);
    copy.loadSVG(true);
    QDataStream s(bytes);
    EXPECT_FALSE(copy.load(s));
    EXPECT_EQ(s.status(), QDataStream::ReadCorruptData);
    EXPECT_EQ(copy.attributes()[5100].color, probe.attributes()[5100].color);

    for (const QColor &c : {QColor(Qt::green), QColor::fromHsv(120, 40, 200, 90), QColor::fromCmykF(0.1, 0.2, 0.3, 0.4), QColor()}) {
        QByteArray b;
        {
            QDataStream out(&b, QIODevice::WriteOnly);
            out << c;
        }
        QDataStream in(b);
        QColor back(Qt::red);
        readColor(in, back);
        EXPECT_EQ(in.status(), QDataStream::Ok);
        EXPECT_EQ(back, c);
    }
}

TEST_F(ProbeFixture, ResizeWithoutCornersUsesTheLopsidedStart)
{
    probe.Resize(true);
    const QRectF vb = probe.document()->viewBox();
    EXPECT_EQ(vb.topLeft(), QPointF(10000, 1000));
}

TEST(Frame, EmptyViewBoxFallsBackToNodeBounds)
{
    CSVGObj owner(0, false);
    Probe probe(&owner);
    probe.svg = QStringLiteral("<svg><rect id='r' x='5' y='6' width='10' height='10'/></svg>");
    probe.loadSVG(true);
    ASSERT_TRUE(probe.document()->viewBox().size().isNull());
    probe.Resize(true);
    EXPECT_EQ(probe.document()->viewBox().topLeft(), QPointF(10000, 1000));
    EXPECT_NEAR(probe.document()->viewBox().width(), 1e-3, 1e-12); // never collapses to nothing
}

TEST(Frame, BrokenTemplateLeavesAnApparatusWithoutDocument)
{
    CSVGObj owner(0, false);
    Probe probe(&owner);
    probe.svg = QStringLiteral("<svg><rect");
    EXPECT_FALSE(probe.loadSVG(true));
    EXPECT_EQ(probe.document(), nullptr);
    probe.Resize(true); // nothing to do, no crash
    QByteArray b;
    QDataStream s(&b, QIODevice::WriteOnly);
    EXPECT_TRUE(probe.save(s));
}

// A long session posts a panel message per drag step; the log must not grow without end.
TEST(Frame, PanelMessageLogKeepsARecentWindow)
{
    CFramework *f = GetFramework();
    f->clearMessages();
    for (int i = 0; i < CFramework::kKeptMessages * 3; ++i) {
        const QByteArray json = QByteArray::number(i);
        f->PostMessage(CFramework::MSG_SETTINGS_CHANGED, 0, &json, -1);
    }
    EXPECT_LE(f->settingsMessages().size(), CFramework::kKeptMessages);
    EXPECT_GE(f->settingsMessages().size(), CFramework::kKeptMessages / 2);
    EXPECT_EQ(f->settingsMessages().last(), QByteArray::number(CFramework::kKeptMessages * 3 - 1));
    f->clearMessages();
}

namespace {

// An apparatus that leaves what a drag posts to the host: its panel shows a length (a
// percentage of its handle's travel) and a width that the same drag leaves alone.
class Bar : public CBasic
{
public:
    explicit Bar(CSVGObj *owner) : CBasic(owner) { setPostsChangedSettings(true); }
    QString getSVG() override
    {
        return QStringLiteral("<svg viewBox='0 0 120 20'><rect id='bar' x='0' y='5' width='100' height='10'/>"
                              "<rect id='control_1' x='96' y='6' width='8' height='8' x_from='0' x_to='200'/></svg>");
    }
    int getSVGType() override { return 150; }
    bool updateSVG(QSvgNode *node, QPointF, bool bFinal) override
    {
        m_pDocument->namedNode("bar")->setNumAttribute("width", node->rect().center().x());
        Resize(bFinal);
        return true;
    }
    void CaculateObjectRetangle(QPointF &tl, QPointF &br) override { enclose(m_pDocument->transformedBounds(), tl, br); }
    void GetSettingArray(QJsonArray &a) override
    {
        const int p = int(controlNodes().first()->rect().x() * 100 / 200);
        a.append(m_pOwner->GetSettingJsonInput("idPosValue", "IDS_PHYSICSOBJ_LENGTH", QString::number(p), "int", "0", "100", ""));
        a.append(m_pOwner->GetSettingJsonInput("idWidth", "IDS_PHYSICSOBJ_WIDTH", "10", "int", "0", "100", ""));
    }
};

} // namespace

TEST(Frame, HostPostsWhatADragStepChangedEachOnceInOneMessage)
{
    CSVGObj owner(0, false);
    Bar bar(&owner);
    bar.loadSVG(true);
    GetFramework()->clearMessages();
    QSvgNode *h = bar.controlNodes().first();
    bar.moveControlPoint(h, QPointF(1, 0), false); // 48 % to 48 %: nothing to post
    EXPECT_TRUE(GetFramework()->settingsMessages().isEmpty());
    bar.moveControlPoint(h, QPointF(10, 0), false);
    bar.moveControlPoint(h, QPointF(0, 0), true);
    ASSERT_EQ(GetFramework()->settingsMessages().size(), 1);
    EXPECT_EQ(GetFramework()->settingsMessages().last(), QByteArray(R"({"settings":[{"id":"idPosValue","value":"53"}]})"));
}
