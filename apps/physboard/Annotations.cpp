#include "Annotations.h"
#include <QDataStream>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPathStroker>
#include <QtMath>
#include <cmath>

namespace {

constexpr quint8 kDataVersion = 1;
// A mark is easy to pick even when drawn with a hair line.
constexpr double kPickWidth = 8;

bool finite(const QPointF &p) { return std::isfinite(p.x()) && std::isfinite(p.y()); }
bool within(const QPointF &p) { return finite(p) && std::fabs(p.x()) <= Annotation::kMaxExtent && std::fabs(p.y()) <= Annotation::kMaxExtent; }

QString num(double v) { return QString::number(v, 'g', 10); }

QString xmlEscaped(const QString &s)
{
    QString out = s.toHtmlEscaped();
    out.replace(QLatin1Char('\''), QLatin1String("&#39;"));
    return out;
}

QString colorAttrs(const QString &attr, const QColor &c)
{
    QString s = QStringLiteral(" %1=\"%2\"").arg(attr, c.name(QColor::HexRgb));
    if (c.alpha() < 255)
        s += QStringLiteral(" %1-opacity=\"%2\"").arg(attr, num(c.alphaF()));
    return s;
}

} // namespace

// --- Annotation ---------------------------------------------------------------------

Annotation::Annotation(double size) : m_size(size)
{
    setFlag(ItemIsSelectable, false); // the board keeps its own selection
}

void Annotation::changed()
{
    prepareGeometryChange();
    m_outlineValid = false;
    update();
}

void Annotation::setColor(const QColor &c)
{
    if (!c.isValid() || c == m_color)
        return;
    m_color = c;
    update();
}

void Annotation::setSize(double s)
{
    if (!std::isfinite(s))
        return;
    s = qBound(minSize(kind()), s, maxSize(kind()));
    if (s == m_size)
        return;
    m_size = s;
    changed();
}

double Annotation::minSize(Kind kind) { return kind == Text ? 6 : 0.5; }
double Annotation::maxSize(Kind kind) { return kind == Text ? 200 : 60; }

QByteArray Annotation::data() const
{
    QByteArray b;
    QDataStream out(&b, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << kDataVersion << quint32(m_color.rgba()) << m_size;
    writeShape(out);
    return b;
}

bool Annotation::setData(const QByteArray &bytes)
{
    QDataStream in(bytes);
    in.setVersion(QDataStream::Qt_5_15);
    quint8 version = 0;
    quint32 rgba = 0;
    double size = 0;
    in >> version >> rgba >> size;
    if (in.status() != QDataStream::Ok || version != kDataVersion || !std::isfinite(size) || size < minSize(kind()) ||
        size > maxSize(kind()))
        return false;
    // The shape goes into a scratch copy first: a bad tail leaves this mark as it was.
    std::unique_ptr<Annotation> scratch(create(kind()));
    if (!scratch->readShape(in) || in.status() != QDataStream::Ok || !in.atEnd())
        return false;
    QDataStream again(bytes);
    again.setVersion(QDataStream::Qt_5_15);
    again >> version >> rgba >> size;
    readShape(again);
    m_color = QColor::fromRgba(rgba);
    m_size = size;
    changed();
    return true;
}

Annotation *Annotation::create(Kind kind)
{
    switch (kind) {
    case Ink: return new InkStroke;
    case Text: return new TextNote;
    case Arrow: return new ArrowMark;
    }
    return nullptr;
}

Annotation *Annotation::fromData(Kind kind, const QByteArray &bytes)
{
    Annotation *a = create(kind);
    if (a && !a->setData(bytes)) {
        delete a;
        return nullptr;
    }
    return a;
}

QRectF Annotation::boundingRect() const
{
    const double pad = qMax(kPickWidth, m_size) / 2 + 1;
    return outline().boundingRect().adjusted(-pad, -pad, pad, pad);
}

QPainterPath Annotation::shape() const
{
    if (!m_outlineValid) {
        QPainterPathStroker s;
        s.setWidth(kPickWidth);
        s.setCapStyle(Qt::RoundCap);
        s.setJoinStyle(Qt::RoundJoin);
        const QPainterPath o = outline();
        m_outline = o.united(s.createStroke(o));
        m_outlineValid = true;
    }
    return m_outline;
}

// --- InkStroke ----------------------------------------------------------------------

InkStroke::InkStroke() : Annotation(3) {}

void InkStroke::addPoint(const QPointF &at, double pressure)
{
    if (!within(at) || m_points.size() >= kMaxPoints)
        return;
    if (!m_points.isEmpty() && m_points.last().at == at)
        return;
    m_points.append(Point{at, float(qBound(0.0, std::isfinite(pressure) ? pressure : 0.5, 1.0))});
    changed();
}

namespace {

// Width of the stroke at a point: the nominal width at half pressure.
double widthAt(double size, float pressure) { return size * qBound(0.15, 2.0 * double(pressure), 2.0); }

// Runs of segments drawn at one width (a mouse stroke is a single run).
template <typename F>
void forEachRun(const QVector<InkStroke::Point> &pts, double size, F f)
{
    if (pts.size() == 1) {
        f(QPolygonF(QVector<QPointF>{pts[0].at}), widthAt(size, pts[0].pressure));
        return;
    }
    int i = 0;
    while (i + 1 < pts.size()) {
        const double w = std::round(widthAt(size, (pts[i].pressure + pts[i + 1].pressure) / 2) * 10) / 10;
        QPolygonF run(QVector<QPointF>{pts[i].at, pts[i + 1].at});
        int j = i + 1;
        while (j + 1 < pts.size() &&
               std::round(widthAt(size, (pts[j].pressure + pts[j + 1].pressure) / 2) * 10) / 10 == w)
            run.append(pts[++j].at);
        f(run, w);
        i = j;
    }
}

} // namespace

QPainterPath InkStroke::outline() const
{
    QPainterPath all;
    forEachRun(m_points, m_size, [&](const QPolygonF &run, double w) {
        QPainterPath line;
        line.moveTo(run.first());
        for (int k = 1; k < run.size(); ++k)
            line.lineTo(run[k]);
        if (run.size() == 1)
            line.lineTo(run.first() + QPointF(0.01, 0));
        QPainterPathStroker s;
        s.setWidth(w);
        s.setCapStyle(Qt::RoundCap);
        s.setJoinStyle(Qt::RoundJoin);
        all.addPath(s.createStroke(line));
    });
    all.setFillRule(Qt::WindingFill);
    return all;
}

QString InkStroke::svgElement() const
{
    QString out = QStringLiteral("<g fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\"%1>")
                      .arg(colorAttrs(QStringLiteral("stroke"), m_color));
    forEachRun(m_points, m_size, [&](const QPolygonF &run, double w) {
        QString pts;
        for (const QPointF &p : run)
            pts += num(p.x()) + QLatin1Char(',') + num(p.y()) + QLatin1Char(' ');
        if (run.size() == 1)
            pts += num(run.first().x() + 0.01) + QLatin1Char(',') + num(run.first().y());
        out += QStringLiteral("<polyline points=\"%1\" stroke-width=\"%2\"/>").arg(pts.trimmed(), num(w));
    });
    return out + QStringLiteral("</g>");
}

void InkStroke::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    forEachRun(m_points, m_size, [&](const QPolygonF &run, double w) {
        painter->setPen(QPen(m_color, w, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        if (run.size() == 1)
            painter->drawLine(run.first(), run.first() + QPointF(0.01, 0));
        else
            painter->drawPolyline(run);
    });
    painter->restore();
}

void InkStroke::writeShape(QDataStream &out) const
{
    out << quint32(m_points.size());
    for (const Point &p : m_points)
        out << p.at.x() << p.at.y() << p.pressure;
}

bool InkStroke::readShape(QDataStream &in)
{
    quint32 n = 0;
    in >> n;
    if (in.status() != QDataStream::Ok || n == 0 || n > quint32(kMaxPoints))
        return false;
    QVector<Point> pts;
    pts.reserve(int(qMin<quint32>(n, 4096)));
    for (quint32 i = 0; i < n; ++i) {
        double x = 0, y = 0;
        float p = 0;
        in >> x >> y >> p;
        if (in.status() != QDataStream::Ok || !within(QPointF(x, y)) || !(p >= 0.0f && p <= 1.0f))
            return false;
        pts.append(Point{QPointF(x, y), p});
    }
    m_points = pts;
    return true;
}

// --- TextNote -----------------------------------------------------------------------

TextNote::TextNote() : Annotation(24) {}

void TextNote::setText(const QString &text)
{
    const QString t = text.left(kMaxText);
    if (t == m_text)
        return;
    m_text = t;
    changed();
}

QFont TextNote::font() const
{
    QFont f(QStringLiteral("Liberation Sans"));
    f.setStyleHint(QFont::SansSerif);
    f.setPixelSize(qMax(1, int(std::round(m_size))));
    return f;
}

QPainterPath TextNote::outline() const
{
    // The box the lines take, measured with the font as it is drawn.
    const QFontMetricsF fm(font());
    const QStringList lines = m_text.split(QLatin1Char('\n'));
    double w = 0;
    for (const QString &l : lines)
        w = qMax(w, fm.horizontalAdvance(l));
    QPainterPath p;
    p.addRect(QRectF(0, 0, qMax(w, m_size / 2), fm.lineSpacing() * lines.size()));
    return p;
}

void TextNote::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->save();
    painter->setRenderHint(QPainter::TextAntialiasing);
    painter->setFont(font());
    painter->setPen(m_color);
    const QFontMetricsF fm(font());
    const QStringList lines = m_text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i)
        painter->drawText(QPointF(0, fm.ascent() + i * fm.lineSpacing()), lines[i]);
    painter->restore();
}

QString TextNote::svgElement() const
{
    const QFontMetricsF fm(font());
    QString out = QStringLiteral("<text font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"%1\" xml:space=\"preserve\"%2>")
                      .arg(num(font().pixelSize()), colorAttrs(QStringLiteral("fill"), m_color));
    const QStringList lines = m_text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i)
        out += QStringLiteral("<tspan x=\"0\" y=\"%1\">%2</tspan>").arg(num(fm.ascent() + i * fm.lineSpacing()), xmlEscaped(lines[i]));
    return out + QStringLiteral("</text>");
}

void TextNote::writeShape(QDataStream &out) const { out << m_text; }

bool TextNote::readShape(QDataStream &in)
{
    // A length checked before the string is read: a damaged one must not allocate.
    quint32 bytes = 0;
    in >> bytes;
    if (in.status() != QDataStream::Ok || (bytes != 0xffffffffu && (bytes % 2 || bytes / 2 > quint32(kMaxText))))
        return false;
    QString t;
    if (bytes != 0xffffffffu) {
        QByteArray raw(int(bytes), Qt::Uninitialized);
        if (in.readRawData(raw.data(), raw.size()) != raw.size())
            return false;
        t.resize(raw.size() / 2);
        for (int i = 0; i < t.size(); ++i)
            t[i] = QChar(ushort((uchar(raw[2 * i]) << 8) | uchar(raw[2 * i + 1])));
    }
    m_text = t;
    return true;
}

// --- ArrowMark ----------------------------------------------------------------------

ArrowMark::ArrowMark() : Annotation(3), m_to(80, 0) {}

void ArrowMark::setLine(const QPointF &from, const QPointF &to)
{
    if (!within(from) || !within(to) || (from == m_from && to == m_to))
        return;
    m_from = from;
    m_to = to;
    changed();
}

namespace {

struct ArrowParts {
    QPointF base;      // where the shaft meets the head
    QPolygonF head;
};

ArrowParts arrowParts(const QPointF &from, const QPointF &to, double width)
{
    const QPointF d = to - from;
    const double len = std::hypot(d.x(), d.y());
    const double headLen = qMin(qMax(4 * width, 12.0), len);
    const double headHalf = headLen * 0.35;
    const QPointF u = len > 0 ? d / len : QPointF(1, 0);
    const QPointF n(-u.y(), u.x());
    const QPointF base = to - u * headLen;
    return ArrowParts{base, QPolygonF(QVector<QPointF>{to, base + n * headHalf, base - n * headHalf})};
}

} // namespace

QPainterPath ArrowMark::outline() const
{
    const ArrowParts a = arrowParts(m_from, m_to, m_size);
    QPainterPath shaft;
    shaft.moveTo(m_from);
    shaft.lineTo(a.base);
    QPainterPathStroker s;
    s.setWidth(m_size);
    s.setCapStyle(Qt::FlatCap);
    QPainterPath p = s.createStroke(shaft);
    p.addPolygon(a.head);
    p.closeSubpath();
    p.setFillRule(Qt::WindingFill);
    return p;
}

QString ArrowMark::svgElement() const
{
    const ArrowParts a = arrowParts(m_from, m_to, m_size);
    QString pts;
    for (const QPointF &p : a.head)
        pts += num(p.x()) + QLatin1Char(',') + num(p.y()) + QLatin1Char(' ');
    return QStringLiteral("<g><line x1=\"%1\" y1=\"%2\" x2=\"%3\" y2=\"%4\" stroke-width=\"%5\"%6/>"
                          "<polygon points=\"%7\" stroke=\"none\"%8/></g>")
        .arg(num(m_from.x()), num(m_from.y()), num(a.base.x()), num(a.base.y()), num(m_size),
             colorAttrs(QStringLiteral("stroke"), m_color), pts.trimmed(), colorAttrs(QStringLiteral("fill"), m_color));
}

void ArrowMark::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const ArrowParts a = arrowParts(m_from, m_to, m_size);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(m_color, m_size, Qt::SolidLine, Qt::FlatCap));
    painter->drawLine(m_from, a.base);
    painter->setPen(Qt::NoPen);
    painter->setBrush(m_color);
    painter->drawPolygon(a.head);
    painter->restore();
}

void ArrowMark::writeShape(QDataStream &out) const { out << m_from << m_to; }

bool ArrowMark::readShape(QDataStream &in)
{
    QPointF a, b;
    in >> a >> b;
    if (in.status() != QDataStream::Ok || !within(a) || !within(b))
        return false;
    m_from = a;
    m_to = b;
    return true;
}
