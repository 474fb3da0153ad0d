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

namespace SvgNumbers {
// The shortest text that reads back as exactly the same double.
HOST_EXPORT QString format(double v);
HOST_EXPORT QVector<double> parseList(const QChar *&p, const QChar *end = nullptr);
HOST_EXPORT QString join(const QVector<double> &v);
}

namespace SvgXml {
// The text with every character XML cannot carry (an unpaired surrogate, a control
// character) replaced by U+FFFD, so that what is written always reads back.
HOST_EXPORT QString clean(const QString &text);
// True for a name XML accepts as an element or attribute name.
HOST_EXPORT bool isName(const QString &name);
}

struct QSvgNodeState;

class HOST_EXPORT QSvgNode
{
public:
    enum Type : quint8 { Doc, Group, Rect, Line, Path, Polygon, Polyline, Ellipse, Circle, Text,
                         Defs, LinearGradient, RadialGradient, Stop, Other };

    struct Attr {
        QString name;   // one shared string per name (names are interned)
        // The text as written; null when the attribute was set as a number, whose text is
        // then its shortest exact form. A number set by a drag costs no string at all.
        QString value;
        // The value read as a number, kept until the value changes: drags read the
        // same attributes many times between writes.
        mutable double number = 0;
        mutable signed char numberState = 0; // 0 not read yet, 1 a number, 2 none, 3 removed
        QString text() const;
        bool removed() const { return numberState == 3; }
    };

    QSvgNode(Type type, const QString &tag);
    virtual ~QSvgNode();
    // A shared copy of a name: templates and clones then hold each name once.
    static QString internName(const QString &name);
    QSvgNode(const QSvgNode &) = delete;
    QSvgNode &operator=(const QSvgNode &) = delete;

    Type type() const { return m_type; }
    const QString &tagName() const { return m_tag; }
    QString nodeId() const { return attribute(QStringLiteral("id")); }

    // Deep copy that is not in any document; CSVGBase::addNode places it next to
    // the node it was cloned from.
    std::unique_ptr<QSvgNode> clone() const;
    // A new empty node of the kind an element of that name makes.
    static std::unique_ptr<QSvgNode> create(const QString &tag);

    // Everything of the node itself (not its children) that drawing, writing and the
    // host colours use; setState puts exactly that back.
    QSvgNodeState state() const;
    void setState(const QSvgNodeState &state);

    // --- attributes -------------------------------------------------------
    bool hasAttribute(const QString &name) const;
    QString attribute(const QString &name) const;
    void setAttribute(const QString &name, const QString &value);
    void removeAttribute(const QString &name);
    // For the parser: the names of one element are unique, so no look-up is needed.
    void addParsedAttribute(const QString &name, const QString &value);
    double numAttribute(const QString &name, double fallback = 0.0) const;
    // One look-up for "is it there, and what number is it": false when absent.
    bool findNumAttribute(const QString &name, double *value) const;
    void setNumAttribute(const QString &name, double value);
    // Every attribute, in the order it is written.
    QVector<Attr> attributes() const;
    static QVector<Attr> mergeAttributes(const QVector<Attr> &base, const QVector<Attr> &own);
    // After parsing: no spare room for attributes that will never come.
    void squeezeAttributes();
    // Presentation properties: the style attribute wins over a plain attribute.
    QString styleProperty(const QString &name) const;
    void setStyleProperty(const QString &name, const QString &value);
    const QVector<Attr> &styleEntries() const { return m_style; }

    // --- state flags ------------------------------------------------------
    bool isVisible() const { return m_visible; }
    void setVisible(bool visible);
    bool strokeEnabled() const { return m_strokeEnabled; }
    void setStrokeEnabled(bool on);
    bool fillEnabled() const { return m_fillEnabled; }
    void setFillEnabled(bool on);
    bool is3DBack() const { return m_3dBack; }
    // The paint a host colour replaced, kept so that clearing the colour restores it:
    // null when the node is not recoloured, empty when it had no paint of its own.
    const QString &hostSavedPaint(bool stroke) const;
    void setHostSavedPaint(bool stroke, const QString &paint);
    void set3DBack(bool on);

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
    const std::vector<std::unique_ptr<QSvgNode>> &children() const;
    QSvgTinyDocument *document() const;
    void appendChild(std::unique_ptr<QSvgNode> child);
    void insertChild(int index, std::unique_ptr<QSvgNode> child);
    std::unique_ptr<QSvgNode> takeChild(QSvgNode *child);
    int indexOf(const QSvgNode *child) const;
    QSvgNode *cloneSource() const { return m_cloneSource; }

    // Text content for text nodes and unknown elements kept verbatim.
    const QString &text() const { return m_text; }
    void setText(const QString &t);

protected:
    virtual void attributeChanged(const QString &name);
    // Counts a change of the drawing on the document that holds this node.
    void changed() const;
    void translateNumAttr(const char *name, double d);
    void translateNumAttr(const QString &name, double d);

private:
    friend class QSvgTinyDocument;
    // Laid out small: a long ruler holds hundreds of nodes, and a page thousands of those.
    Type m_type;
    bool m_visible = true;
    bool m_strokeEnabled = true;
    bool m_fillEnabled = true;
    bool m_3dBack = false;
    mutable bool m_transformValid = false;
    QString m_tag;
    QVector<Attr> m_attrs;
    QVector<Attr> m_style;
    QString m_text;
    struct SavedPaint {
        QString fill, stroke;
    };
    std::unique_ptr<SavedPaint> m_saved;  // only on nodes a host colour has painted
    // Attributes: the base shared with the node this one was copied from, and its own
    // changes over it (see mergeAttributes).
    int ownIndex(const QString &name) const;
    const Attr *baseAttr(const QString &name) const;
    const Attr *findAttr(const QString &name) const;
    Attr &ownEntry(const QString &name);
    QVector<Attr> m_base;
    QSvgNode *m_parent = nullptr;
    QSvgNode *m_cloneSource = nullptr;
    using Children = std::vector<std::unique_ptr<QSvgNode>>;
    std::unique_ptr<Children> m_children;  // only on nodes that have some
    // Kept only when the node has a transform at all: most nodes have none.
    mutable std::unique_ptr<QTransform> m_transform;
};

namespace SvgTree {
// Calls f on the node and on every node below it, in document order.
template <typename F>
void forEach(QSvgNode *n, F f)
{
    f(n);
    for (const auto &c : n->children())
        forEach(c.get(), f);
}
}

struct HOST_EXPORT QSvgNodeState {
    enum Flag : quint8 { Visible = 1, StrokeEnabled = 2, FillEnabled = 4, Back3D = 8 };
    QVector<QSvgNode::Attr> base;   // as the node holds them: shared, and its own over them
    QVector<QSvgNode::Attr> attrs;
    QVector<QSvgNode::Attr> merged() const;
    QString text;
    QString savedFill, savedStroke;
    quint8 flags = Visible | StrokeEnabled | FillEnabled;
    // Same names in the same order with the same texts, and the same rest.
    bool operator==(const QSvgNodeState &o) const;
    bool operator!=(const QSvgNodeState &o) const { return !(*this == o); }
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
    // What is drawn of a text: laying out a text of millions of characters would take
    // seconds and gigabytes, and nobody reads past the first few thousand.
    static constexpr int kMaxDrawn = 4096;
    static QString drawnText(const QString &text) { return text.size() > kMaxDrawn ? text.left(kMaxDrawn) : text; }

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

