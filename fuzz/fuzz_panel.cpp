// What a teacher can do to an apparatus by hand, in any order and with any values:
// panel edits of its own keys (any text, numbers out of range, NaN), drags of any
// size, undo and redo, capture and restore. It must never crash or hang, and must
// still save, reload and draw.
#include "fuzz_common.h"
#include <QDataStream>
#include <QJsonArray>
#include <QJsonObject>
#include <QUndoStack>
#include <cmath>
#include <cstring>
#include <framework.h>
#include <limits>

namespace {

struct Reader {
    const uint8_t *p, *end;
    bool more() const { return p < end; }
    uint8_t byte() { return p < end ? *p++ : 0; }
    double number()
    {
        switch (byte() % 8) {
        case 0: return std::numeric_limits<double>::quiet_NaN();
        case 1: return std::numeric_limits<double>::infinity() * (byte() & 1 ? 1 : -1);
        case 2: return 1e300 * (byte() & 1 ? 1 : -1);
        default: return double(int8_t(byte())) * (1 + byte() % 16);
        }
    }
    QString text()
    {
        const int n = byte() % 12;
        QByteArray b;
        for (int i = 0; i < n && more(); ++i)
            b.append(char(byte()));
        return QString::fromLatin1(b);
    }
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    fuzzWarmUp();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    Reader r{data, data + size};
    int n = 0;
    const PhysicalTypeInfo *types = physical_TypeTable(&n);
    const int type = types[r.byte() % n].type;
    CWBPhysicalObject *o = createObject_physical(0, type, true);
    CSVGBase *c = o->content();
    QUndoStack *stack = GetFramework()->undoStack();
    stack->clear();
    if (c) {
        for (int step = 0; step < 24 && r.more(); ++step) {
            switch (r.byte() % 6) {
            case 0: { // a panel edit of one of its own keys, or of a key it does not have
                QJsonArray items;
                c->GetSettingArray(items);
                const int k = r.byte();
                const QString key = items.isEmpty() || k == 255 ? r.text()
                                                                : items.at(k % items.size()).toObject().value("id").toString();
                QString value;
                switch (r.byte() % 4) {
                case 0: value = r.text(); break;
                case 1: value = QString::number(r.number(), 'g', 17); break;
                case 2: value = QString::number(int(r.byte()) - 28); break;
                default: value = r.byte() & 1 ? QStringLiteral("true") : QStringLiteral("#12ab34"); break;
                }
                QMap<QString, QString> values{{key, value}};
                c->SetSettingArray(values, r.byte() & 1, r.byte() & 1);
                break;
            }
            case 1: { // a drag of any size, in one or several steps
                if (c->controlNodes().isEmpty())
                    break;
                QSvgNode *h = c->controlNodes().at(r.byte() % c->controlNodes().size());
                const int parts = 1 + r.byte() % 3;
                for (int i = 0; i < parts; ++i)
                    c->moveControlPoint(h, QPointF(r.number(), r.number()), i == parts - 1);
                break;
            }
            case 2: stack->undo(); break;
            case 3: stack->redo(); break;
            case 4: { // capture or restore
                QByteArray none;
                QDataStream in(none);
                c->SetAttribute(r.byte() & 1 ? 2804 : 2805, in, false, false);
                break;
            }
            default: { // the host's colours
                QByteArray b;
                {
                    QDataStream out(&b, QIODevice::WriteOnly);
                    out << (r.byte() & 1 ? QColor(r.byte(), r.byte(), r.byte()) : QColor());
                }
                QDataStream in(b);
                c->SetAttribute(r.byte() & 1 ? 5002 : 5005, in, false, false);
                break;
            }
            }
        }
        // Still whole: it saves, reloads into a fresh object, and draws.
        QByteArray saved;
        {
            QDataStream out(&saved, QIODevice::WriteOnly);
            c->save(out);
        }
        CWBPhysicalObject *back = createObject_physical(0, type, true);
        QDataStream in(saved);
        back->content()->load(in);
        QImage image(48, 48, QImage::Format_ARGB32_Premultiplied);
        QPainter p(&image);
        if (back->content() && back->content()->document())
            back->content()->document()->render(&p, QRectF(0, 0, 48, 48), true);
        p.end();
        back->Release();
    }
    stack->clear();
    o->Release();
    return 0;
}
