#include "Render.h"
#include <QFile>
#include <cmath>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

QString Render::toFile(CWBPhysicalObject *obj, const QString &path, double scale, bool handles)
{
    CSVGBase *content = obj ? obj->content() : nullptr;
    if (!content || !content->document())
        return QStringLiteral("no apparatus to render");
    if (!(scale > 0) || scale > 64)
        return QStringLiteral("scale must be above 0 and at most 64");
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("svg")) {
        QSvgTinyDocument::WriteOptions o;
        o.handles = handles;
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly))
            return QStringLiteral("cannot write %1: %2").arg(path, f.errorString());
        f.write(content->document()->toSvg(o));
        return QString();
    }
    if (suffix != QLatin1String("png"))
        return QStringLiteral("output must end in .svg or .png");
    // A small margin: strokes may reach past the view box by half their width.
    const double margin = 4 * scale;
    const QSizeF size = obj->itemSize() * scale;
    const QSize px(qBound(1, int(std::ceil(size.width() + 2 * margin)), 16384),
                   qBound(1, int(std::ceil(size.height() + 2 * margin)), 16384));
    QImage image(px, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    {
        QPainter p(&image);
        content->document()->render(&p, QRectF(QPointF(margin, margin), size), handles);
    }
    if (!image.save(path, "PNG"))
        return QStringLiteral("cannot write %1").arg(path);
    return QString();
}
