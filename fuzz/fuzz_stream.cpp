// Saved objects from page files are untrusted: any bytes given to an apparatus's load
// must leave it usable. The first byte picks the apparatus, the rest is its stream.
#include "fuzz_common.h"
#include <QDataStream>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    fuzzWarmUp();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    int n = 0;
    const PhysicalTypeInfo *types = physical_TypeTable(&n);
    CWBPhysicalObject *o = createObject_physical(0, types[data[0] % n].type, true);
    if (CSVGBase *c = o->content()) {
        const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data + 1), int(size - 1));
        QDataStream in(bytes);
        c->load(in);
        // Still usable: every handle drags, the object saves.
        for (QSvgNode *h : c->controlNodes())
            c->moveControlPoint(h, QPointF(7, -5), true, false);
        QByteArray out;
        QDataStream s(&out, QIODevice::WriteOnly);
        c->save(s);
        c->document()->toSvg();
    }
    o->Release();
    return 0;
}
