#pragma once
// Document model nodes. A node keeps its attributes as written (ordered name/value
// pairs, so unknown ones survive a round trip) and caches what drawing needs.
#include "hostglobal.h"
#include <QColor>
#include <QFont>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QTransform>
#include <QVector>
#include <memory>
#include <vector>

class QSvgTinyDocument;

class HOST_EXPORT QSvgNode
{
public:
    enum Type { Doc, Group, Rect, Line, Path, Polygon, Polyline, Ellipse, Circle, Text,
                Defs, LinearGradient, Stop, Other };

    struct Attr {
        QString name;
        QString value;
        // The value read as a number, kept until the value changes: drags read the
        // same attributes many times between writes.
        mutable double number = 0;
        mutable signed char numberState = 0; // 0 not read yet, 1 a number, 2 none
    };

    QSvgNode(Type type, const QString &tag);
    virtual ~QSvgNode();
    QSvgNode(const QSvgNode &) = delete;
    QSvgNode &operator=(const QSvgNode &) = delete;

    Type type() const { return m_type; }
    const QString &tagName() const { return m_tag; }
    QString nodeId() const { return attribute(QStringLiteral("id")); }

    // Deep copy that is not in any document; CSVGBase::addNode places it next to
    // the node it was cloned from.
    std::unique_ptr<QSvgNode> clone() const;

    // --- attributes -------------------------------------------------------
    bool hasAttribute(const QString &name) const;
    QString attribute(const QString &name) const;
    void setAttribute(const QString &name, const QString &value);
    void removeAttribute(const QString &name);
    double numAttribute(const QString &name, double fallback = 0.0) const;
    // One look-up for "is it there, and what number is it": false when absent.
    bool findNumAttribute(const QString &name, double *value) const;
    void setNumAttribute(const QString &name, double value);
    const QVector<Attr> &attributes() const { return m_attrs; }
    // Presentation properties: the style attribute wins over a plain attribute.
    QString styleProperty(const QString &name) const;
    void setStyleProperty(const QString &name, const QString &value);
    const QVector<Attr> &styleEntries() const { return m_style; }

    // --- state flags ------------------------------------------------------
    bool isVisible() const { return m_visible; }
    void setVisible(bool visible) { m_visible = visible; }
    bool strokeEnabled() const { return m_strokeEnabled; }
    void setStrokeEnabled(bool on) { m_strokeEnabled = on; }
    bool fillEnabled() const { return m_fillEnabled; }
    void setFillEnabled(bool on) { m_fillEnabled = on; }
    bool is3DBack() const { return m_3dBack; }
    // The paint a host colour replaced, kept so that clearing the colour restores it:
    // null when the node is not recoloured, empty when it had no paint of its own.
    const QString &hostSavedPaint(bool stroke) const { return stroke ? m_savedStroke : m_savedFill; }
    void setHostSavedPaint(bool stroke, const QString &paint) { (stroke ? m_savedStroke : m_savedFill) = paint; }
    void set3DBack(bool on) { m_3dBack = on; }

    // --- paint ------------------------------------------------------------
    void setFillColor(const QColor &c);
    void setStrokeColor(const QColor &c);
    QColor fillColor() const;
    QColor strokeColor() const;

    // --- geometry ---------------------------------------------------------
    // The node's own rectangle, before its transform.
    virtual QRectF rect() const;
    // The node's outline in its own coordinates (empty for non-drawing nodes).
    virtual QPainterPath shape() const;
    virtual void translate(double dx, double dy);
    QPointF getPos() const { return rect().topLeft(); }
    // Local transform: the transform attribute, then rotate_angle about rotate_x/rotate_y.
    QTransform localTransform() const;
    bool hasRotation() const;
    // Bounds in the parent's coordinates, children and transforms included.
    QRectF transformedBounds() const;
    // Bounds in document coordinates (ancestors' transforms applied too).
    QRectF documentBounds() const;
    QTransform documentTransform() const;

    // --- tree -------------------------------------------------------------
    QSvgNode *parent() const { return m_parent; }
    const std::vector<std::unique_ptr<QSvgNode>> &children() const { return m_children; }
    QSvgTinyDocument *document() const;
    void appendChild(std::unique_ptr<QSvgNode> child);
    void insertChild(int index, std::unique_ptr<QSvgNode> child);
    std::unique_ptr<QSvgNode> takeChild(QSvgNode *child);
    int indexOf(const QSvgNode *child) const;
    QSvgNode *cloneSource() const { return m_cloneSource; }

    // Text content for text nodes and unknown elements kept verbatim.
    const QString &text() const { return m_text; }
    void setText(const QString &t) { m_text = t; }

protected:
    virtual void attributeChanged(const QString &name);
    void translateNumAttr(const char *name, double d);
    void translateNumAttr(const QString &name, double d);

private:
    friend class QSvgTinyDocument;
    Type m_type;
    QString m_tag;
    QVector<Attr> m_attrs;
    QVector<Attr> m_style;
    QString m_text;
    bool m_visible = true;
    bool m_strokeEnabled = true;
    bool m_fillEnabled = true;
    bool m_3dBack = false;
    QString m_savedFill, m_savedStroke;
    QSvgNode *m_parent = nullptr;
    QSvgNode *m_cloneSource = nullptr;
    std::vector<std::unique_ptr<QSvgNode>> m_children;
    mutable bool m_transformValid = false;
    mutable QTransform m_transform;
};

class HOST_EXPORT QSvgRect : public QSvgNode
{
public:
    QSvgRect() : QSvgNode(Rect, QStringLiteral("rect")) {}
    QRectF rect() const override;
    QPainterPath shape() const override;
    void translate(double dx, double dy) override;
};

class HOST_EXPORT QSvgLine : public QSvgNode
{
public:
    QSvgLine() : QSvgNode(Line, QStringLiteral("line")) {}
    QRectF rect() const override;
    QPainterPath shape() const override;
    void translate(double dx, double dy) override;
};

class HOST_EXPORT QSvgEllipse : public QSvgNode
{
public:
    explicit QSvgEllipse(bool circle)
        : QSvgNode(circle ? Circle : Ellipse, circle ? QStringLiteral("circle") : QStringLiteral("ellipse")) {}
    QRectF rect() const override;
    QPainterPath shape() const override;
    void translate(double dx, double dy) override;
};

class HOST_EXPORT QSvgPath : public QSvgNode
{
public:
    QSvgPath() : QSvgNode(Path, QStringLiteral("path")) {}
    QRectF rect() const override;
    QPainterPath shape() const override;
    void translate(double dx, double dy) override;
    const QPainterPath &path() const;
    QRectF pathBounds() const { return path().boundingRect(); }
    // Copies another path node's data into this one.
    void copyPath(const QSvgNode *from);
    QPointF getPos() const { return path().elementCount() ? QPointF(path().elementAt(0)) : QPointF(); }

protected:
    void attributeChanged(const QString &name) override;

private:
    mutable bool m_pathValid = false;
    mutable QPainterPath m_path;
};

class HOST_EXPORT QSvgPolygon : public QSvgNode
{
public:
    explicit QSvgPolygon(bool closed)
        : QSvgNode(closed ? Polygon : Polyline, closed ? QStringLiteral("polygon") : QStringLiteral("polyline")) {}
    QRectF rect() const override;
    QPainterPath shape() const override;
    void translate(double dx, double dy) override;
    QVector<QPointF> points() const;
    void setPoints(const QVector<QPointF> &pts);
};

class HOST_EXPORT QSvgText : public QSvgNode
{
public:
    QSvgText() : QSvgNode(Text, QStringLiteral("text")) {}
    QRectF rect() const override;
    void translate(double dx, double dy) override;
    QFont font() const;

protected:
    void attributeChanged(const QString &name) override;
};

// Groups, defs, gradients, stops and unknown elements: no geometry of their own.
class HOST_EXPORT QSvgStructureNode : public QSvgNode
{
public:
    QSvgStructureNode(Type type, const QString &tag) : QSvgNode(type, tag) {}
    QRectF rect() const override;
    void translate(double dx, double dy) override;
};

namespace SvgNumbers {
// Shortest text that reads back as the same double (to 15 significant digits).
HOST_EXPORT QString format(double v);
HOST_EXPORT QVector<double> parseList(const QChar *&p, const QChar *end = nullptr);
HOST_EXPORT QString join(const QVector<double> &v);
}
