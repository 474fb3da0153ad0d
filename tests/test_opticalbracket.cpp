// The optical bracket: holder orientations in the panel's order, rod height from the
// handle or the panel, undo, capture and persistence.
#include "helpers.h"
#include <QJsonObject>
#include <QUndoStack>

namespace {

struct OpticalBracketTest : ::testing::Test {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        o = makeObject(606, true);
        c = o->content();
    }
    bool set(const QString &key, const QString &value, bool flags = true)
    {
        QMap<QString, QString> v{{key, value}};
        return c->SetSettingArray(v, flags, flags);
    }
    QString shownHolder() const
    {
        QString s;
        for (const char *id : {"rotate_1", "rotate_2", "rotate_3", "rotate_4"})
            if (node(c, id)->isVisible())
                s += QLatin1String(id);
        return s;
    }
    double handleY() const { return node(c, "control_1")->rect().y(); }
    ObjPtr o;
    CSVGBase *c = nullptr;
};

} // namespace

TEST_F(OpticalBracketTest, PanelOrderFrontPlus45SideMinus45ShowsOneHolderEach)
{
    EXPECT_EQ(shownHolder(), "rotate_1");
    const char *expected[] = {"rotate_1", "rotate_2", "rotate_3", "rotate_4"};
    for (int i : {1, 3, 2, 0}) {
        set("idBracketDirection", QString::number(i));
        EXPECT_EQ(shownHolder(), expected[i]) << i;
        EXPECT_EQ(settingsOf(c)[0].toObject().value("value").toInt(), i);
    }
    set("idBracketDirection", "3");
    for (const char *bad : {"4", "-1", "99999"}) {
        set("idBracketDirection", bad);
        EXPECT_EQ(shownHolder(), "rotate_4") << bad;
    }
    const QJsonObject combo = settingsOf(c)[0].toObject();
    EXPECT_EQ(combo.value("id"), "idBracketDirection");
    EXPECT_EQ(combo.value("options").toArray().at(1), "IDS_PHYSICSOBJ_BRACKET_POSI45");
    EXPECT_EQ(combo.value("options").toArray().at(3), "IDS_PHYSICSOBJ_BRACKET_NEGA45");
}

TEST_F(OpticalBracketTest, HeightPercentMapsOntoTheHandleTravel)
{
    set("idPosValue", "0");
    EXPECT_DOUBLE_EQ(handleY(), 30);
    EXPECT_NEAR(node(c, "body")->numAttribute("height"), 49.988 - 41, 1e-9);
    EXPECT_NEAR(node(c, "down2")->numAttribute("cy"), 70.998 - 41, 1e-9);
    EXPECT_NEAR(c->document()->viewBox().height(), 82.126 - 41, 1e-9);
    set("idPosValue", "100");
    EXPECT_DOUBLE_EQ(handleY(), 100);
    EXPECT_NEAR(node(c, "body")->numAttribute("height"), 49.988 + 29, 1e-9);
    set("idPosValue", "33");
    EXPECT_EQ(settingsOf(c)[1].toObject().value("value"), "33");
}

TEST_F(OpticalBracketTest, OnlyTheHandleDragsAndTheDragEchoesTheHeight)
{
    GetFramework()->clearMessages();
    EXPECT_FALSE(c->updateSVG(node(c, "body"), QPointF(0, 10), true));
    EXPECT_FALSE(c->updateSVG(nullptr, QPointF(0, 10), true));
    drag(c, "control_1", 0, -20);
    EXPECT_DOUBLE_EQ(handleY(), 51);
    ASSERT_EQ(GetFramework()->settingsMessages().size(), 1);
    EXPECT_TRUE(GetFramework()->settingsMessages().last().contains("\"30\""));
    drag(c, "control_1", 0, 1e9);
    EXPECT_DOUBLE_EQ(handleY(), 100);
}

TEST_F(OpticalBracketTest, UndoRedoCaptureAndRoundTrip)
{
    const QString before = svgText(c);
    set("idBracketDirection", "2");
    drag(c, "control_1", 0, 15);
    const QString after = svgText(c);
    QUndoStack *stack = GetFramework()->undoStack();
    ASSERT_EQ(stack->count(), 2);
    stack->undo();
    stack->undo();
    EXPECT_TRUE(sameDocument(svgText(c), before));
    stack->redo();
    stack->redo();
    EXPECT_TRUE(sameDocument(svgText(c), after));

    QByteArray none;
    QDataStream empty(&none, QIODevice::ReadOnly);
    c->SetAttribute(2804, empty, false, false);
    set("idBracketDirection", "1", false);
    set("idPosValue", "0", false);
    c->SetAttribute(2805, empty, false, false);
    EXPECT_TRUE(sameDocument(svgText(c), after));

    QDataStream::Status status;
    ObjPtr copy = loadBytes(606, saveBytes(c), &status);
    EXPECT_EQ(status, QDataStream::Ok);
    EXPECT_TRUE(sameDocument(svgText(copy->content()), after));
    drag(copy->content(), "control_1", 0, -7);
    drag(c, "control_1", 0, -7);
    EXPECT_TRUE(sameDocument(svgText(copy->content()), svgText(c)));
}
