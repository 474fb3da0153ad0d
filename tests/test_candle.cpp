// The candle: body height from the handle or the panel, its bounds, undo, capture and
// persistence.
#include "helpers.h"
#include <QJsonObject>
#include <QUndoStack>
#include <svgpathdata.h>

namespace {

struct CandleTest : ::testing::Test {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        o = makeObject(607, true);
        c = o->content();
    }
    bool set(const QString &value)
    {
        QMap<QString, QString> v{{"idPosValue", value}};
        return c->SetSettingArray(v, true, true);
    }
    double handleY() const { return node(c, "control_1")->rect().y(); }
    double bodyHeight() const { return node(c, "body")->numAttribute("height"); }
    QPointF footStart() const
    {
        const auto segs = SvgPathData::parse(node(c, "down_part")->attribute("d"));
        return segs.isEmpty() ? QPointF() : QPointF(segs[0].args.value(0), segs[0].args.value(1));
    }
    QString shown() const { return settingsOf(c)[0].toObject().value("value").toString(); }
    ObjPtr o;
    CSVGBase *c = nullptr;
};

} // namespace

TEST_F(CandleTest, HeightBoundsAreTheHandleTravel)
{
    EXPECT_EQ(settingsOf(c)[0].toObject().value("label"), "IDS_PHYSICSOBJ_HEIGHT");
    EXPECT_EQ(shown(), "45"); // (176.613 - 75) * 100 / 225, truncated
    set("0");
    EXPECT_DOUBLE_EQ(handleY(), 75);
    EXPECT_NEAR(bodyHeight(), 120 - 101.613, 1e-9);
    EXPECT_NEAR(footStart().y(), 171.945 - 101.613, 1e-9);
    EXPECT_NEAR(c->document()->viewBox().height(), 189 - 101.613, 1e-9);
    set("100");
    EXPECT_DOUBLE_EQ(handleY(), 300);
    EXPECT_NEAR(bodyHeight(), 120 + 123.387, 1e-9);
    EXPECT_NEAR(footStart().x(), 38.373, 1e-9);
    drag(c, "control_1", 0, 500);
    EXPECT_DOUBLE_EQ(handleY(), 300);
    drag(c, "control_1", 0, -1e6);
    EXPECT_DOUBLE_EQ(handleY(), 75);
    EXPECT_GT(bodyHeight(), 0);
}

TEST_F(CandleTest, OnlyTheHandleDragsAndTheDragEchoes)
{
    const QString before = svgText(c);
    EXPECT_FALSE(c->updateSVG(node(c, "body"), QPointF(0, 10), true));
    EXPECT_FALSE(c->updateSVG(nullptr, QPointF(0, 10), true));
    EXPECT_EQ(svgText(c), before);
    GetFramework()->clearMessages();
    drag(c, "control_1", 0, 10);
    ASSERT_EQ(GetFramework()->settingsMessages().size(), 1);
    set("20");
    EXPECT_EQ(GetFramework()->settingsMessages().size(), 1);
    EXPECT_EQ(c->getPropName(5002), "IDS_SVG_PHYSICAL_COLOR");
}

TEST_F(CandleTest, UndoCaptureAndRoundTrip)
{
    const QString before = svgText(c);
    drag(c, "control_1", 0, 40);
    const QString after = svgText(c);
    GetFramework()->undoStack()->undo();
    EXPECT_TRUE(sameDocument(svgText(c), before));
    GetFramework()->undoStack()->redo();
    EXPECT_TRUE(sameDocument(svgText(c), after));

    QByteArray none;
    QDataStream empty(&none, QIODevice::ReadOnly);
    c->SetAttribute(2804, empty, false, false);
    set("0");
    c->SetAttribute(2805, empty, false, false);
    EXPECT_TRUE(sameDocument(svgText(c), after));

    QDataStream::Status status;
    ObjPtr copy = loadBytes(607, saveBytes(c), &status);
    EXPECT_EQ(status, QDataStream::Ok);
    EXPECT_TRUE(sameDocument(svgText(copy->content()), after));
    QByteArray corrupt = saveBytes(c);
    corrupt.chop(9);
    ObjPtr broken = loadBytes(607, corrupt, &status);
    EXPECT_NE(status, QDataStream::Ok);
    EXPECT_DOUBLE_EQ(node(broken->content(), "control_1")->rect().y(), 176.613);
}
