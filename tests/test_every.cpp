// Properties every apparatus must have, whatever it draws: an undone drag gives the
// drawing back exactly, the same drag after undo draws the same again, and a saved
// object reloads as it was and keeps dragging the same way.
#include "helpers.h"
#include <QUndoStack>

namespace {

std::vector<int> everyType()
{
    int n = 0;
    const PhysicalTypeInfo *t = physical_TypeTable(&n);
    std::vector<int> types;
    for (int i = 0; i < n; ++i)
        types.push_back(t[i].type);
    return types;
}

struct EveryApparatus : ::testing::TestWithParam<int> {
    void SetUp() override { GetFramework()->undoStack()->clear(); }
    void TearDown() override { GetFramework()->undoStack()->clear(); }

    // Each handle in turn, one final step each; the drawing after every step.
    static QStringList dragEveryHandle(CSVGBase *c, QPointF by)
    {
        QStringList seen;
        for (QSvgNode *h : c->controlNodes()) {
            c->moveControlPoint(h, by, true);
            seen << svgText(c);
        }
        return seen;
    }
};

} // namespace

TEST_P(EveryApparatus, UndoRedoAndRepeatingADragAreExact)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    ASSERT_TRUE(c);
    const QString placed = svgText(c);
    QUndoStack *stack = GetFramework()->undoStack();
    const QStringList first = dragEveryHandle(c, QPointF(14, 11));
    const int steps = stack->count();
    for (int i = 0; i < steps; ++i)
        stack->undo();
    EXPECT_TRUE(sameDocument(svgText(c), placed));
    for (int i = 0; i < steps; ++i)
        stack->redo();
    if (!first.isEmpty()) {
        EXPECT_TRUE(sameDocument(svgText(c), first.last()));
    }
    for (int i = 0; i < steps; ++i)
        stack->undo();
    const QStringList again = dragEveryHandle(c, QPointF(14, 11));
    ASSERT_EQ(again.size(), first.size());
    for (int i = 0; i < first.size(); ++i)
        EXPECT_TRUE(sameDocument(again[i], first[i])) << "after handle " << i;
}

TEST_P(EveryApparatus, ReloadedObjectIsTheSameAndDragsTheSame)
{
    ObjPtr o = makeObject(GetParam(), true);
    CSVGBase *c = o->content();
    ASSERT_TRUE(c);
    dragEveryHandle(c, QPointF(-9, 17));
    QDataStream::Status status;
    ObjPtr back = loadBytes(GetParam(), saveBytes(c), &status);
    ASSERT_EQ(status, QDataStream::Ok);
    EXPECT_EQ(svgText(back->content()), svgText(c));
    EXPECT_EQ(back->itemSize(), o->itemSize());
    const QStringList here = dragEveryHandle(c, QPointF(6, -4));
    const QStringList there = dragEveryHandle(back->content(), QPointF(6, -4));
    for (int i = 0; i < here.size(); ++i)
        EXPECT_TRUE(sameDocument(there[i], here[i], 1e-6)) << "after handle " << i;
}

INSTANTIATE_TEST_SUITE_P(All, EveryApparatus, ::testing::ValuesIn(everyType()),
                         [](const ::testing::TestParamInfo<int> &i) { return std::to_string(i.param); });
