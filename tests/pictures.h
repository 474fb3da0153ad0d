#pragma once
// Comparing pictures up to antialiasing: each pixel taken as the mean of its 3 x 3
// neighbourhood, then the pixels that still differ by more than a third of the range in
// some channel counted (and marked red in a difference picture).
#include <QImage>
#include <algorithm>
#include <cstdlib>

inline QImage softened(const QImage &in)
{
    const QImage src = in.convertToFormat(QImage::Format_RGB32);
    QImage out(src.size(), QImage::Format_RGB32);
    for (int y = 0; y < src.height(); ++y)
        for (int x = 0; x < src.width(); ++x) {
            int r = 0, g = 0, b = 0, n = 0;
            for (int dy = -1; dy <= 1; ++dy)
                for (int dx = -1; dx <= 1; ++dx) {
                    const int xx = x + dx, yy = y + dy;
                    if (xx < 0 || yy < 0 || xx >= src.width() || yy >= src.height())
                        continue;
                    const QRgb c = src.pixel(xx, yy);
                    r += qRed(c), g += qGreen(c), b += qBlue(c), ++n;
                }
            out.setPixel(x, y, qRgb(r / n, g / n, b / n));
        }
    return out;
}

inline int differingPixels(const QImage &a, const QImage &b, QImage *diff)
{
    const QImage sa = softened(a), sb = softened(b);
    *diff = QImage(sa.size(), QImage::Format_RGB32);
    diff->fill(Qt::white);
    int n = 0;
    for (int y = 0; y < sa.height() && y < sb.height(); ++y)
        for (int x = 0; x < sa.width() && x < sb.width(); ++x) {
            const QRgb p = sa.pixel(x, y), q = sb.pixel(x, y);
            const int d = std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
            if (d > 85) {
                ++n;
                diff->setPixel(x, y, qRgb(220, 0, 0));
            }
        }
    return n;
}
