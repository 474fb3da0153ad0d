#pragma once
// What a teacher marks on a page besides apparatus: freehand ink, a text box and a
// straight arrow. Each saves its own data (placement travels with the page's entry),
// paints the same outline on screen, in a PDF and in an SVG.
#include <QColor>
#include <QFont>
#include <QGraphicsItem>
#include <QVector>

class Annotation : public QGraphicsItem
{
public:
    enum { Type = UserType + 20100 };
    enum Kind : quint8 { Ink = 1, Text = 2, Arrow = 3 };
    // Bounds of what an annotation may hold, checked when one is read.
    static constexpr int kMaxPoints = 100000;
    static constexpr int kMaxText = 10000;
    static constexpr double kMaxExtent = 100000;

    int type() const override { return Type; }
    virtual Kind kind() const = 0;

    QColor color() const { return m_color; }
    void setColor(const QColor &c);
    // Stroke width (ink, arrow) or font size in pixels (text).
    double size() const { return m_size; }
    void setSize(double s);

    // The data of the mark (colour, size and shape), without its placement.
    QByteArray data() const;
    bool setData(const QByteArray &bytes);
    static Annotation *create(Kind kind);
    static Annotation *fromData(Kind kind, const QByteArray &bytes);

    // The mark as SVG, in its own coordinates (the caller places it).
    virtual QString svgElement() const = 0;

    QRectF boundingRect() const override;
    QPainterPath shape() const override;

    // Sizes a user may pick.
    static double minSize(Kind kind);
    static double maxSize(Kind kind);

protected:
    explicit Annotation(double size);
    // The area the mark covers (for its bounds and for picking it); each paints itself
    // with the same primitives its SVG uses.
    virtual QPainterPath outline() const = 0;
    virtual void writeShape(QDataStream &out) const = 0;
    virtual bool readShape(QDataStream &in) = 0;
    void changed();

    QColor m_color = QColor(0x1f, 0x4e, 0xc8);
    double m_size;

private:
    mutable QPainterPath m_outline;
    mutable bool m_outlineValid = false;
};

// Freehand ink: a stroke whose width follows the pen's pressure where the device reports it.
class InkStroke : public Annotation
{
public:
    struct Point {
        QPointF at;
        float pressure; // 0 to 1; a mouse draws at 0.5
    };
    InkStroke();
    Kind kind() const override { return Ink; }
    void addPoint(const QPointF &at, double pressure);
    const QVector<Point> &points() const { return m_points; }
    QString svgElement() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

protected:
    QPainterPath outline() const override;
    void writeShape(QDataStream &out) const override;
    bool readShape(QDataStream &in) override;

private:
    QVector<Point> m_points;
};

// A text box: lines of text at a pixel size, top-left at the item's origin.
class TextNote : public Annotation
{
public:
    TextNote();
    Kind kind() const override { return Text; }
    QString text() const { return m_text; }
    void setText(const QString &text);
    QFont font() const;
    QString svgElement() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

protected:
    QPainterPath outline() const override;
    void writeShape(QDataStream &out) const override;
    bool readShape(QDataStream &in) override;

private:
    QString m_text;
};

// A straight arrow from one point to another, head at the second.
class ArrowMark : public Annotation
{
public:
    ArrowMark();
    Kind kind() const override { return Arrow; }
    QPointF from() const { return m_from; }
    QPointF to() const { return m_to; }
    void setLine(const QPointF &from, const QPointF &to);
    QString svgElement() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

protected:
    QPainterPath outline() const override;
    void writeShape(QDataStream &out) const override;
    bool readShape(QDataStream &in) override;

private:
    QPointF m_from, m_to;
};
