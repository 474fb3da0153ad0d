// The stick end to end: layout, drags, resize, undo, persistence and bad streams.
#include "helpers.h"
#include <cmath>
#include <mechanics/Stick.h>

namespace {
CStick *stick(const ObjPtr &o) { return static_cast<CStick *>(o->content()); }
double angle(const ObjPtr &o) { return node(o->content(), "bevel1")->numAttribute("rotate_angle"); }
double barWidth(const ObjPtr &o) { return node(o->content(), "rect")->numAttribute("width"); }

// Moves the handle so that its centre lands on p (document units).
void dragCentreTo(const ObjPtr &o, QPointF p)
{
    const QRectF h = node(o->content(), "control_1")->rect();
    drag(o->content(), "control_1", p.x() - h.center().x(), p.y() - h.center().y());
}
} // namespace

TEST(Stick, FreshStickIsAFixedPointOfItsTemplate)
{
    ObjPtr o = makeObject(107);
    EXPECT_NEAR(barWidth(o), 162.939, 1e-9);
    EXPECT_EQ(angle(o), 0);
    // The item spans pivot and handle.
    const QRectF vb = o->content()->document()->viewBox();
    EXPECT_NEAR(vb.x(), 168.521, 1e-9);
    EXPECT_NEAR(vb.y(), 0.801, 1e-9);
    EXPECT_NEAR(vb.right(), 335.96, 1e-9);
    EXPECT_NEAR(vb.bottom(), 9.801, 1e-9);
}

struct AngleCase {
    QPointF target;
    double angle;
};

class StickAngle : public ::testing::TestWithParam<AngleCase> {};

TEST_P(StickAngle, BarPointsAtTheHandle)
{
    ObjPtr o = makeObject(107);
    dragCentreTo(o, GetParam().target);
    EXPECT_NEAR(angle(o), GetParam().angle, 1e-9);
    const QPointF pivot(168.521, 5.301);
    EXPECT_NEAR(barWidth(o), std::hypot(GetParam().target.x() - pivot.x(), GetParam().target.y() - pivot.y()), 1e-9);
}

// Straight below gives -90 and straight above +90: the template's convention, kept.
INSTANTIATE_TEST_SUITE_P(Stick, StickAngle, ::testing::Values(
    AngleCase{{168.521, 105.301}, -90}, AngleCase{{168.521, -94.699}, 90},
    AngleCase{{268.521, 105.301}, 45}, AngleCase{{68.521, 5.301}, 180},
    AngleCase{{68.521, 105.301}, 135}, AngleCase{{68.521, -94.699}, 225}));

TEST(Stick, HandleOnThePivotGivesZeroWidthAndNoAngle)
{
    ObjPtr o = makeObject(107);
    dragCentreTo(o, QPointF(168.521, 5.301));
    EXPECT_EQ(barWidth(o), 0);
    EXPECT_TRUE(std::isnan(angle(o)));
    // Still usable: the next drag mends it.
    drag(o->content(), "control_1", 50, 0);
    EXPECT_EQ(angle(o), 0);
    EXPECT_NEAR(barWidth(o), 50, 1e-9);
}

TEST(Stick, DragIsClampedToTheHandleBoundsAndRejectsNonsense)
{
    ObjPtr o = makeObject(107);
    const QPointF applied = drag(o->content(), "control_1", 1e12, -1e12);
    const QRectF h = node(o->content(), "control_1")->rect();
    EXPECT_EQ(h.topLeft(), QPointF(1000, -1000));
    EXPECT_NEAR(applied.x(), 1000 - 326.96, 1e-9);
    const QPointF none = drag(o->content(), "control_1", std::nan(""), INFINITY);
    EXPECT_EQ(none, QPointF(0, 0));
    EXPECT_EQ(node(o->content(), "control_1")->rect().topLeft(), QPointF(1000, -1000));
}

TEST(Stick, NullNodeIsNotHandled)
{
    ObjPtr o = makeObject(107);
    const QString before = svgText(o->content());
    EXPECT_FALSE(stick(o)->updateSVG(nullptr, QPointF(5, 5), true));
    EXPECT_EQ(svgText(o->content()), before);
}

TEST(Stick, ItemStaysPutOnThePageWhileTheDrawingGrows)
{
    ObjPtr o = makeObject(107, true);
    const QPointF pivotOnPage = o->pos(); // the pivot is the view box's left edge at first
    drag(o->content(), "control_1", 0, 80, false);
    drag(o->content(), "control_1", 40, 0, true);
    const QRectF vb = o->content()->document()->viewBox();
    const QSizeF s = o->itemSize();
    const QPointF pivotNow = o->pos() + QPointF((168.521 - vb.x()) * s.width() / vb.width(), (5.301 - vb.y()) * s.height() / vb.height());
    EXPECT_NEAR(pivotNow.x(), pivotOnPage.x(), 1e-6);
    EXPECT_NEAR(pivotNow.y(), pivotOnPage.y() + (5.301 - 0.801) * s.height() / vb.height(), 1e-6);
}

TEST(Stick, OneDragIsOneUndoStep)
{
    ObjPtr o = makeObject(107);
    QUndoStack *stack = GetFramework()->undoStack();
    stack->clear();
    const QString start = svgText(o->content());
    drag(o->content(), "control_1", -10, 10, false);
    drag(o->content(), "control_1", -10, 10, false);
    drag(o->content(), "control_1", -10, 10, true);
    const QString end = svgText(o->content());
    EXPECT_EQ(stack->count(), 1);
    stack->undo();
    EXPECT_TRUE(sameDocument(svgText(o->content()), start, 1e-9));
    stack->redo();
    EXPECT_TRUE(sameDocument(svgText(o->content()), end, 1e-9));
    stack->clear();
}

TEST(Stick, EmptyAttributeTableWritesOnlyTheHostPart)
{
    ObjPtr o = makeObject(107);
    QDataStream in(saveBytes(o->content()));
    quint32 magic = 0;
    in >> magic;
    EXPECT_EQ(magic, 0x50485953u);
}

TEST(Stick, JsonRoundTrip)
{
    ObjPtr o = makeObject(107);
    drag(o->content(), "control_1", -100, 40);
    QJsonObject json;
    o->content()->saveJson(json);
    ObjPtr copy = makeObject(107);
    copy->content()->loadJson(json);
    EXPECT_TRUE(sameDocument(svgText(copy->content()), svgText(o->content())));
}

class CorruptStream : public ::testing::TestWithParam<int> {};

// Every truncation and a flipped byte at every position: failure is reported, the
// object stays usable, nothing crashes.
TEST_P(CorruptStream, IsReportedAndLeavesAUsableObject)
{
    ObjPtr o = makeObject(107);
    drag(o->content(), "control_1", -30, 30);
    QByteArray bytes = saveBytes(o->content());
    const int whole = bytes.size();
    const int n = GetParam();
    if (n < whole) {
        bytes.truncate(n);
    } else {
        const int at = (n - whole) % whole;
        bytes[at] = char(bytes[at] ^ 0xA5);
    }
    QDataStream::Status status;
    ObjPtr copy = loadBytes(107, bytes, &status);
    if (n < whole) {
        EXPECT_NE(status, QDataStream::Ok) << "truncated to " << n;
    }
    drag(copy->content(), "control_1", 5, 5);
    EXPECT_FALSE(svgText(copy->content()).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Stick, CorruptStream, ::testing::Range(0, 140, 3));

TEST(Stick, GarbageAndHugeCountsAreRejected)
{
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << quint32(0x50485953) << quint16(1);
        for (int i = 0; i < 40; ++i)
            out << quint32(0xFFFFFFFF);
    }
    QDataStream::Status status;
    ObjPtr o = loadBytes(107, bytes, &status);
    EXPECT_NE(status, QDataStream::Ok);
    ObjPtr g = loadBytes(107, QByteArray(3, 'x'), &status);
    EXPECT_NE(status, QDataStream::Ok);
    EXPECT_NEAR(barWidth(g), 162.939, 1e-9);
}

TEST(Stick, HostColourRecoloursTheBarAndComesBack)
{
    ObjPtr o = makeObject(107);
    QByteArray b;
    {
        QDataStream s(&b, QIODevice::WriteOnly);
        s << QColor(Qt::red);
    }
    QDataStream in(b);
    EXPECT_TRUE(o->content()->SetAttribute(5002, in, false, false));
    EXPECT_EQ(node(o->content(), "rect")->fillColor(), QColor(Qt::red));
    EXPECT_EQ(node(o->content(), "control_1")->fillColor(), QColor(0x17, 0x00, 0xFE)); // handles keep theirs
    ObjPtr copy = loadBytes(107, saveBytes(o->content()));
    EXPECT_EQ(node(copy->content(), "rect")->fillColor(), QColor(Qt::red));
    QByteArray none;
    {
        QDataStream s(&none, QIODevice::WriteOnly);
        s << QColor();
    }
    QDataStream clear(none);
    o->content()->SetAttribute(5002, clear, false, false);
    EXPECT_EQ(node(o->content(), "rect")->fillColor(), QColor(0x99, 0x68, 0x28));
}
