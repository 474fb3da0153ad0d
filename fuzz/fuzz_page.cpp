// A page file is the most untrusted input of all: whatever its bytes, the board's loader
// refuses it with a message or gives back whole apparatus, and a recording in it is
// taken only when sound. The first byte says whether the rest is a whole file or a body
// to be given a valid header and checksum (so that mutations reach the objects inside).
// Run with FUZZ_WRITE_SEED=FILE it writes a seed page of several apparatus and stops.
#include "fuzz_common.h"
#include <Annotations.h>
#include <Page.h>
#include <QCryptographicHash>
#include <QFile>
#include <Recorder.h>
#include <physicalobject/physicalobject.h>
#include <svgbase.h>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    fuzzWarmUp();
    const QByteArray seed = qgetenv("FUZZ_WRITE_SEED");
    if (!seed.isEmpty()) {
        PageContent page;
        for (int type : {109, 403, 710, 600, 202, 700, 500}) {
            CWBPhysicalObject *o = createObject_physical(0, type, true);
            if (!o->content()->controlNodes().isEmpty())
                o->content()->moveControlPoint(o->content()->controlNodes().first(), QPointF(9, 6), true, false);
            page.items.append(o);
        }
        // A wire held by the cell, and one mark of each kind.
        page.links.append(WireLink{page.objects().last(), 1, page.objects().at(5), 0});
        auto *ink = static_cast<InkStroke *>(Annotation::create(Annotation::Ink));
        ink->addPoint(QPointF(0, 0), 0.3);
        ink->addPoint(QPointF(20, 5), 0.9);
        auto *text = static_cast<TextNote *>(Annotation::create(Annotation::Text));
        text->setText(QStringLiteral("F = ma\n2 N"));
        page.items << ink << text << Annotation::create(Annotation::Arrow);
        QFile f(QString::fromLocal8Bit(seed));
        if (f.open(QIODevice::WriteOnly)) {
            f.write("\x01" + BoardPage::serialize(page));
            f.close(); // exit() below runs no destructor
        }
        page.release();
        exit(0);
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    QByteArray bytes(reinterpret_cast<const char *>(data + 1), int(size - 1));
    if (data[0] & 1) {
        // Take the body out of a file (or use the bytes as one) and seal it anew.
        QByteArray body = bytes;
        QDataStream in(bytes);
        in.setVersion(QDataStream::Qt_5_15);
        quint32 magic = 0;
        quint16 version = 0;
        in >> magic >> version >> body;
        if (in.status() != QDataStream::Ok)
            body = bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.setVersion(QDataStream::Qt_5_15);
        out << BoardPage::kMagic << quint16(data[0] & 2 ? 1 : data[0] & 4 ? 2 : BoardPage::kVersion) << body
            << QCryptographicHash::hash(body, QCryptographicHash::Sha1);
    }
    PageContent page;
    QString error;
    if (BoardPage::deserialize(bytes, &page, &error)) {
        Recorder::valid(page.recording);
        for (QGraphicsItem *i : page.items) {
            if (CWBPhysicalObject *o = BoardPage::asObject(i)) {
                for (QSvgNode *h : o->content()->controlNodes())
                    o->content()->moveControlPoint(h, QPointF(2, 2), true, false);
            } else {
                // A mark that loaded can be drawn and written out.
                auto *a = static_cast<Annotation *>(i);
                a->boundingRect();
                a->svgElement();
            }
        }
        page.release();
    }
    return 0;
}
