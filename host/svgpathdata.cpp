#include "svgpathdata.h"
#include "svgnode.h"
#include <QtMath>
#include <cmath>

namespace {

int argCount(QChar c)
{
    switch (c.toUpper().unicode()) {
    case 'M': case 'L': case 'T': return 2;
    case 'H': case 'V': return 1;
    case 'C': return 6;
    case 'S': case 'Q': return 4;
    case 'A': return 7;
    case 'Z': return 0;
    default: return -1;
    }
}

} // namespace

QVector<SvgPathSegment> SvgPathData::parse(const QString &d)
{
    QVector<SvgPathSegment> out;
    const QChar *p = d.constData();
    const QChar *end = p + d.size();
    while (p < end) {
        while (p < end && (p->isSpace() || *p == QLatin1Char(',')))
            ++p;
        if (p >= end)
            break;
        const QChar cmd = *p;
        const int n = argCount(cmd);
        if (n < 0)
            break;
        ++p;
        SvgPathSegment seg{cmd, {}};
        if (n > 0) {
            seg.args = SvgNumbers::parseList(p, end);
            const int usable = seg.args.size() - seg.args.size() % n;
            const bool incomplete = usable != seg.args.size() || usable == 0;
            seg.args.resize(usable);
            if (usable > 0)
                out.append(seg);
            if (incomplete)
                break;
        } else {
            out.append(seg);
        }
    }
    return out;
}

QString SvgPathData::write(const QVector<SvgPathSegment> &segments)
{
    QString s;
    for (const SvgPathSegment &seg : segments) {
        s += seg.cmd;
        s += SvgNumbers::join(seg.args);
    }
    return s;
}

void SvgPathData::arcTo(QPainterPath &path, double rx, double ry, double phiDeg, bool largeArc,
                        bool sweep, double x, double y)
{
    const QPointF p0 = path.currentPosition();
    if (!std::isfinite(rx) || !std::isfinite(ry) || !std::isfinite(x) || !std::isfinite(y))
        return;
    rx = std::fabs(rx);
    ry = std::fabs(ry);
    if (rx == 0 || ry == 0 || (p0.x() == x && p0.y() == y)) {
        path.lineTo(x, y);
        return;
    }
    const double phi = qDegreesToRadians(phiDeg);
    const double cs = std::cos(phi), sn = std::sin(phi);
    const double dx2 = (p0.x() - x) / 2, dy2 = (p0.y() - y) / 2;
    const double x1p = cs * dx2 + sn * dy2;
    const double y1p = -sn * dx2 + cs * dy2;
    const double lambda = (x1p * x1p) / (rx * rx) + (y1p * y1p) / (ry * ry);
    if (lambda > 1) {
        rx *= std::sqrt(lambda);
        ry *= std::sqrt(lambda);
    }
    const double num = rx * rx * ry * ry - rx * rx * y1p * y1p - ry * ry * x1p * x1p;
    const double den = rx * rx * y1p * y1p + ry * ry * x1p * x1p;
    double coef = den == 0 ? 0 : std::sqrt(std::max(0.0, num / den));
    if (largeArc == sweep)
        coef = -coef;
    const double cxp = coef * rx * y1p / ry;
    const double cyp = -coef * ry * x1p / rx;
    const double cx = cs * cxp - sn * cyp + (p0.x() + x) / 2;
    const double cy = sn * cxp + cs * cyp + (p0.y() + y) / 2;
    auto angle = [](double ux, double uy, double vx, double vy) {
        return std::atan2(ux * vy - uy * vx, ux * vx + uy * vy);
    };
    const double t1 = angle(1, 0, (x1p - cxp) / rx, (y1p - cyp) / ry);
    double dt = angle((x1p - cxp) / rx, (y1p - cyp) / ry, (-x1p - cxp) / rx, (-y1p - cyp) / ry);
    if (!sweep && dt > 0)
        dt -= 2 * M_PI;
    else if (sweep && dt < 0)
        dt += 2 * M_PI;
    const int segs = std::max(1, int(std::ceil(std::fabs(dt) / (M_PI / 2) - 1e-9)));
    const double step = dt / segs;
    const double k = 4.0 / 3.0 * std::tan(step / 4);
    double t = t1;
    for (int i = 0; i < segs; ++i) {
        const double c1 = std::cos(t), s1 = std::sin(t);
        const double c2 = std::cos(t + step), s2 = std::sin(t + step);
        auto map = [&](double ex, double ey) {
            return QPointF(cx + rx * ex * cs - ry * ey * sn, cy + rx * ex * sn + ry * ey * cs);
        };
        const QPointF e = (i == segs - 1) ? QPointF(x, y) : map(c2, s2);
        path.cubicTo(map(c1 - k * s1, s1 + k * c1), map(c2 + k * s2, s2 - k * c2), e);
        t += step;
    }
}

QPainterPath SvgPathData::toPainterPath(const QVector<SvgPathSegment> &segments)
{
    QPainterPath path;
    QPointF cur, start, lastCtrl;
    QChar lastCmd;
    for (const SvgPathSegment &seg : segments) {
        const QChar up = seg.cmd.toUpper();
        const bool rel = seg.cmd.isLower();
        const int n = argCount(seg.cmd);
        if (n == 0) {
            path.closeSubpath();
            cur = start;
            lastCmd = up;
            continue;
        }
        const QVector<double> &a = seg.args;
        for (int i = 0; i + n <= a.size(); i += n) {
            const QPointF o = rel ? cur : QPointF();
            switch (up.unicode()) {
            case 'M':
                if (i == 0) {
                    cur = o + QPointF(a[i], a[i + 1]);
                    path.moveTo(cur);
                    start = cur;
                } else {
                    cur = o + QPointF(a[i], a[i + 1]);
                    path.lineTo(cur);
                }
                break;
            case 'L':
                cur = o + QPointF(a[i], a[i + 1]);
                path.lineTo(cur);
                break;
            case 'H':
                cur.setX((rel ? cur.x() : 0) + a[i]);
                path.lineTo(cur);
                break;
            case 'V':
                cur.setY((rel ? cur.y() : 0) + a[i]);
                path.lineTo(cur);
                break;
            case 'C': {
                const QPointF c1 = o + QPointF(a[i], a[i + 1]);
                const QPointF c2 = o + QPointF(a[i + 2], a[i + 3]);
                cur = o + QPointF(a[i + 4], a[i + 5]);
                path.cubicTo(c1, c2, cur);
                lastCtrl = c2;
                break;
            }
            case 'S': {
                const bool prevCubic = lastCmd == QLatin1Char('C') || lastCmd == QLatin1Char('S');
                const QPointF c1 = prevCubic ? 2 * cur - lastCtrl : cur;
                const QPointF c2 = o + QPointF(a[i], a[i + 1]);
                cur = o + QPointF(a[i + 2], a[i + 3]);
                path.cubicTo(c1, c2, cur);
                lastCtrl = c2;
                break;
            }
            case 'Q': {
                const QPointF c = o + QPointF(a[i], a[i + 1]);
                cur = o + QPointF(a[i + 2], a[i + 3]);
                path.quadTo(c, cur);
                lastCtrl = c;
                break;
            }
            case 'T': {
                const bool prevQuad = lastCmd == QLatin1Char('Q') || lastCmd == QLatin1Char('T');
                const QPointF c = prevQuad ? 2 * cur - lastCtrl : cur;
                cur = o + QPointF(a[i], a[i + 1]);
                path.quadTo(c, cur);
                lastCtrl = c;
                break;
            }
            case 'A': {
                const QPointF e = o + QPointF(a[i + 5], a[i + 6]);
                arcTo(path, a[i], a[i + 1], a[i + 2], a[i + 3] != 0, a[i + 4] != 0, e.x(), e.y());
                cur = e;
                break;
            }
            }
            lastCmd = up;
        }
    }
    return path;
}

void SvgPathData::translate(QVector<SvgPathSegment> &segments, double dx, double dy)
{
    for (int s = 0; s < segments.size(); ++s) {
        SvgPathSegment &seg = segments[s];
        const QChar up = seg.cmd.toUpper();
        const bool rel = seg.cmd.isLower();
        QVector<double> &a = seg.args;
        if (rel) {
            // Only the first pair of a leading relative moveto is absolute.
            if (s == 0 && up == QLatin1Char('M') && a.size() >= 2) {
                a[0] += dx;
                a[1] += dy;
            }
            continue;
        }
        switch (up.unicode()) {
        case 'H':
            for (double &v : a) v += dx;
            break;
        case 'V':
            for (double &v : a) v += dy;
            break;
        case 'A':
            for (int i = 0; i + 7 <= a.size(); i += 7) {
                a[i + 5] += dx;
                a[i + 6] += dy;
            }
            break;
        case 'Z':
            break;
        default:
            for (int i = 0; i + 1 < a.size(); i += 2) {
                a[i] += dx;
                a[i + 1] += dy;
            }
        }
    }
}
