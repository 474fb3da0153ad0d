// The budgets that keep a page safe: label length, how far a drawing may reach, how
// much undo history is kept, and how much memory one apparatus holds. Whatever goes
// past one is refused or cut with a notice, and nothing is lost.
#include "helpers.h"
#include <QImage>
#include <QPainter>
#include <QUndoStack>
#include <malloc.h>
#include <svgbaseundocmd.h>

namespace {

struct Limits : ::testing::Test {
    void SetUp() override
    {
        GetFramework()->undoStack()->clear();
        GetFramework()->clearMessages();
    }
    void TearDown() override
    {
        CSVGBase::setMaxTextLength(CSVGBase::kDefaultMaxText);
        GetFramework()->setUndoBudget(CFramework::kUndoBudget);
        GetFramework()->undoStack()->clear();
    }
};

QString labelOf(CSVGBase *c)
{
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);
    c->getInnerProperty(5100, out);
    QDataStream in(b);
    QString s;
    in >> s;
    return s;
}

} // namespace

TEST_F(Limits, LongLabelsAreCutWithANoticeAndLongerStreamsRefused)
{
    ObjPtr o = makeObject(710, true);
    CSVGBase *c = o->content();
    QString longText = QString(999, QLatin1Char('x')) + QString::fromUtf8("\U0001D11E") + QStringLiteral("tail");
    ASSERT_TRUE(c->editSettings({{"idTextContent", longText}}));
    // 999 characters: the pair that would be split at 1000 goes whole or not at all.
    EXPECT_EQ(labelOf(c), QString(999, QLatin1Char('x')));
    ASSERT_FALSE(GetFramework()->settingsMessages().isEmpty());
    EXPECT_TRUE(GetFramework()->settingsMessages().last().contains("IDS_PHYSICSOBJ_TEXT_CUT"));
    EXPECT_EQ(GetFramework()->undoStack()->count(), 1);

    // A label of ten million characters costs no more than one of a thousand.
    ASSERT_TRUE(c->editSettings({{"idTextContent", QString(10000000, QLatin1Char('y'))}}));
    EXPECT_EQ(labelOf(c).size(), CSVGBase::kDefaultMaxText);

    // A host may allow longer labels; a stream made so does not open where they are not.
    CSVGBase::setMaxTextLength(5000);
    ASSERT_TRUE(c->editSettings({{"idTextContent", QString(3000, QLatin1Char('z'))}}));
    const QByteArray bytes = saveBytes(c);
    CSVGBase::setMaxTextLength(CSVGBase::kDefaultMaxText);
    ObjPtr other = makeObject(710, true);
    const QString before = svgText(other->content());
    QDataStream in(bytes);
    EXPECT_FALSE(other->content()->load(in));
    EXPECT_TRUE(other->content()->lastLoadError().contains("1000"));
    EXPECT_EQ(svgText(other->content()), before);
}

TEST_F(Limits, HugeTextsDrawInBoundedTime)
{
    std::unique_ptr<QSvgTinyDocument> doc(QSvgTinyDocument::load(
        "<svg viewBox='0 0 100 20'><text x='0' y='15' font-size='10'>" + QByteArray(10000000, 'w') + "</text></svg>"));
    ASSERT_TRUE(doc);
    QImage image(100, 20, QImage::Format_ARGB32_Premultiplied);
    QPainter p(&image);
    doc->render(&p); // lays out at most the first few thousand characters
    EXPECT_LE(doc->children().front()->rect().width(), QSvgText::kMaxDrawn * 20.0);
}

TEST_F(Limits, NoDrawingReachesPastTheExtent)
{
    ObjPtr ruler = makeObject(109, true);
    CSVGBase *c = ruler->content();
    // A percentage whose place lies past the extent is refused: no ticks without end.
    const QString before = svgText(c);
    EXPECT_FALSE(c->editSettings({{"idPosValue", "100000000"}}));
    EXPECT_EQ(svgText(c), before);
    // A handle with an open bound stops at the extent.
    ObjPtr stick = makeObject(107, true);
    drag(stick->content(), "control_1", 1e12, -1e12);
    const QRectF h = node(stick->content(), "control_1")->rect();
    EXPECT_LE(std::fabs(h.x()), CSVGBase::kMaxExtent);
    EXPECT_LE(std::fabs(h.y()), CSVGBase::kMaxExtent);
    // And reopens there.
    QByteArray bytes = saveBytes(stick->content());
    ObjPtr again = makeObject(107, true);
    QDataStream in(bytes);
    ASSERT_TRUE(again->content()->load(in));
    EXPECT_EQ(svgText(again->content()), svgText(stick->content()));
}

TEST_F(Limits, UndoKeepsItsStepsWithinTheirBudget)
{
    QUndoStack *stack = GetFramework()->undoStack();
    // As many steps as the stack keeps, and no more.
    ObjPtr stick = makeObject(107, true);
    for (int i = 0; i < CFramework::kUndoSteps + 50; ++i)
        drag(stick->content(), "control_1", i % 2 ? 3 : -3, 1);
    EXPECT_EQ(stack->count(), CFramework::kUndoSteps);

    // Past the byte budget the oldest steps give up their states, but never the latest 200.
    stack->clear();
    ObjPtr ruler = makeObject(109, true);
    ruler->content()->editSettings({{"idPosValue", "100"}});
    ruler->content()->editSettings({{"idScaleColor", "#00ff00"}});
    const qint64 perStep = static_cast<const CSVGStateUndo *>(stack->command(1))->cost();
    ASSERT_GT(perStep, 0);
    GetFramework()->setUndoBudget(perStep * 250);
    for (int i = 0; i < 400; ++i)
        ruler->content()->editSettings({{"idScaleColor", i % 2 ? "#ff0000" : "#0000ff"}});
    EXPECT_LE(GetFramework()->undoCost(), perStep * 250 + perStep * 2);
    int kept = 0;
    for (int i = 0; i < stack->count(); ++i)
        kept += !static_cast<const CSVGStateUndo *>(stack->command(i))->released();
    EXPECT_GE(kept, CFramework::kUndoMinSteps);
    EXPECT_LT(kept, stack->count());
    // Undo goes back as far as the kept steps reach, exactly.
    const QString latest = svgText(ruler->content());
    stack->undo();
    stack->redo();
    EXPECT_EQ(svgText(ruler->content()), latest);
    while (stack->canUndo())
        stack->undo();
    EXPECT_TRUE(svgText(ruler->content()).contains("#ff0000") || svgText(ruler->content()).contains("#0000ff"));
}

// What one apparatus holds in memory, on its own and at full length. (Not checked
// under the sanitizers, whose allocator counts differently.)
TEST_F(Limits, OneApparatusHoldsLittleMemory)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizers' allocator";
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
    GTEST_SKIP() << "the sanitizers' allocator";
#endif
#endif
    auto perObject = [](int type, const char *setting) {
        makeObject(type, true); // the template parsed once
        std::vector<ObjPtr> made;
        const size_t before = mallinfo2().uordblks;
        for (int i = 0; i < 50; ++i) {
            made.push_back(makeObject(type, true));
            if (setting)
                made.back()->content()->editSettings({{QString(setting).section('=', 0, 0), QString(setting).section('=', 1)}});
        }
        GetFramework()->undoStack()->clear();
        return double(mallinfo2().uordblks - before) / 50 / 1024;
    };
    EXPECT_LT(perObject(109, nullptr), 40);
    EXPECT_LT(perObject(109, "idPosValue=100"), 120);
    for (int meter : {403, 404, 405, 406})
        EXPECT_LT(perObject(meter, nullptr), 40) << meter;
}
