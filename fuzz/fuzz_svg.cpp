// The document model parses whatever a template or a pasted drawing holds; malformed
// SVG must give a defined result, and what parses must write and paint.
#include "fuzz_common.h"
#include <QImage>
#include <QPainter>
#include <svgtinydocument.h>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    fuzzWarmUp();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size));
    QSvgTinyDocument *doc = QSvgTinyDocument::load(bytes);
    if (!doc)
        return 0;
    const QByteArray written = doc->toSvg();
    delete QSvgTinyDocument::load(written);
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    QPainter p(&image);
    doc->render(&p, QRectF(0, 0, 64, 64), true);
    p.end();
    delete doc;
    return 0;
}
