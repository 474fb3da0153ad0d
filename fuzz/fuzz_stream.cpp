// Saved objects from page files are untrusted: any bytes given to an apparatus's load
// must leave it usable. The first byte picks the apparatus; its top bit says whether the
// stream's checksum is made to match first, so that mutations reach past the check into
// the attribute table, the host's part and the drawing patch. The rest is the stream.
#include "fuzz_common.h"
#include <QDataStream>
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
    if (size < 1)
        return 0;
    int n = 0;
    const PhysicalTypeInfo *types = physical_TypeTable(&n);
    CWBPhysicalObject *o = createObject_physical(0, types[(data[0] & 0x7f) % n].type, true);
    if (CSVGBase *c = o->content()) {
        QByteArray bytes(reinterpret_cast<const char *>(data + 1), int(size - 1));
        if ((data[0] & 0x80) && bytes.size() >= 8)
            qToBigEndian(CSVGBase::streamChecksum(bytes.left(bytes.size() - 8)), bytes.data() + bytes.size() - 8);
        QDataStream in(bytes);
        c->load(in);
        // The same bytes as a record's stream, with a meter's range beside it.
        QByteArray record;
        {
            QDataStream out(&record, QIODevice::WriteOnly);
            out << quint32(0x50485243) << bytes << QByteArray();
        }
        c->restoreRecord(record);
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
