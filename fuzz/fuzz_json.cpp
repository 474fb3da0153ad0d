// A JSON form of a saved object is as untrusted as its stream: whatever it holds, loadJson
// refuses it or loads it, and the object stays usable. The first byte picks the
// apparatus; the second how the rest is read: as JSON text, or as the saved stream of a
// JSON form (its checksum made to match) with the labelled symbols' keys beside it.
#include "fuzz_common.h"
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    fuzzWarmUp();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 2)
        return 0;
    int n = 0;
    const PhysicalTypeInfo *types = physical_TypeTable(&n);
    const int type = types[data[0] % n].type;
    CWBPhysicalObject *o = createObject_physical(0, type, true);
    QByteArray rest(reinterpret_cast<const char *>(data + 2), int(size - 2));
    QJsonObject json;
    if (data[1] & 1) {
        json = QJsonDocument::fromJson(rest).object();
    } else {
        if (rest.size() >= 8)
            qToBigEndian(CSVGBase::streamChecksum(rest.left(rest.size() - 8)), rest.data() + rest.size() - 8);
        json.insert(QStringLiteral("svgbase_type"), data[1] & 2 ? type : int(data[1]));
        json.insert(QStringLiteral("svgbase_stream"), QString::fromLatin1(rest.toBase64()));
        if (data[1] & 4)
            json.insert(QStringLiteral("ImageTextBasic_text"), QString::fromLatin1(rest.left(40)));
        if (data[1] & 8)
            json.insert(QStringLiteral("ImageTextBasic_textClr"), QJsonObject{{"r", int(data[1])}, {"valid", bool(data[1] & 16)}});
        if (data[1] & 32)
            json.insert(QStringLiteral("svgbase_kept"), QString::fromLatin1(rest.right(24).toBase64()));
    }
    if (CSVGBase *c = o->content()) {
        c->loadJson(json);
        for (QSvgNode *h : c->controlNodes())
            c->moveControlPoint(h, QPointF(-3, 4), true, false);
        QJsonObject again;
        c->saveJson(again);
        c->document()->toSvg();
    }
    o->Release();
    return 0;
}
