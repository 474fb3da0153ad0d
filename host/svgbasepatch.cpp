// The drawing patch: how a saved object's drawing differs from what its own values
// lay out, so that a reload draws exactly what was saved.
#include "svgbase_p.h"
#include "svgobj.h"
#include "svgtinydocument.h"
#include <QBuffer>

using namespace SvgStream;

namespace {

void writeNodeState(QDataStream &out, const QSvgNodeState &n)
{
    const QVector<QSvgNode::Attr> attrs = n.merged();
    out << n.flags << n.text << n.savedFill << n.savedStroke << quint32(attrs.size());
    for (const QSvgNode::Attr &a : attrs) {
        const bool number = a.value.isNull() && a.numberState == 1;
        out << a.name << quint8(number);
        if (number)
            out << a.number;
        else
            out << a.value;
    }
}

bool readNodeState(QDataStream &in, QSvgNodeState &n)
{
    quint32 count = 0;
    in >> n.flags >> n.text >> n.savedFill >> n.savedStroke;
    if (!readCount(in, count, 5))
        return false;
    n.attrs.clear();
    n.attrs.reserve(int(count));
    for (quint32 i = 0; i < count; ++i) {
        QString name;
        quint8 number = 0;
        in >> name >> number;
        QSvgNode::Attr a{QSvgNode::internName(name), QString()};
        if (number == 1) {
            in >> a.number;
            a.numberState = 1;
        } else if (number == 0) {
            in >> a.value;
            if (a.value.isNull())
                a.value = QStringLiteral("");
        } else {
            in.setStatus(QDataStream::ReadCorruptData);
        }
        if (in.status() != QDataStream::Ok || !SvgXml::isName(name))
            return false;
        n.attrs.append(a);
    }
    return in.status() == QDataStream::Ok && n.flags < 16;
}

} // namespace

bool CSVGBase::readPatch(const QByteArray &bytes, DrawingPatch &patch)
{
    patch = DrawingPatch();
    if (bytes.isEmpty())
        return true;
    QDataStream in(bytes);
    in >> patch.kind >> patch.context;
    quint32 count = 0;
    if (patch.kind == 1) {
        in >> patch.nodeCount;
        if (!readCount(in, count, 16))
            return false;
        for (quint32 i = 0; i < count; ++i) {
            quint32 index = 0;
            QString tag;
            QSvgNodeState state;
            in >> index >> tag;
            if (in.status() != QDataStream::Ok || index >= patch.nodeCount || !SvgXml::isName(tag) ||
                !readNodeState(in, state))
                return false;
            patch.index.append(index);
            patch.tags.append(tag);
            patch.states.append(state);
        }
    } else if (patch.kind == 2) {
        if (!readCount(in, count, 20) || count == 0)
            return false;
        int previous = -1;
        for (quint32 i = 0; i < count; ++i) {
            QString tag;
            qint32 depth = 0;
            QSvgNodeState state;
            in >> tag >> depth;
            // A tree in document order: the root alone at 0, each node at most one deeper.
            if (in.status() != QDataStream::Ok || !SvgXml::isName(tag) || depth > previous + 1 ||
                (i == 0) != (depth == 0) || depth < 0 || depth > 256 || !readNodeState(in, state))
                return false;
            previous = depth;
            patch.tags.append(tag);
            patch.depths.append(depth);
            patch.states.append(state);
        }
    } else {
        return false;
    }
    return in.status() == QDataStream::Ok && in.atEnd();
}

// What a load of the bare stream gives, against what the drawing is: the drawing
// patch. Empty for apparatus whose drawing follows from what the stream holds.
QByteArray CSVGBase::drawingPatch(const QByteArray &bare)
{
    if (!m_pDocument)
        return QByteArray();
    if (bare == m_patchBare && m_pDocument->revision() == m_patchRevision)
        return m_patch;
    const SvgDocumentState now = m_pDocument->capture();
    SvgDocumentState loaded;
    bool probed = false;
    GetFramework()->mute(true);
    if (CSVGObj *probe = GetFramework()->createObject(getSVGType())) {
        if (CSVGBase *c = probe->content()) {
            if (m_pJsonSave) {
                QJsonObject json = *m_pJsonSave;
                json.insert(QStringLiteral("svgbase_stream"), QString::fromLatin1(bare.toBase64()));
                c->loadJson(json);
            } else {
                QDataStream in(bare);
                in.setVersion(QDataStream::Qt_5_15);
                c->load(in);
            }
            if (c->lastLoadOk() && c->m_pDocument) {
                loaded = c->m_pDocument->capture();
                probed = true;
            }
        }
        probe->Release();
    }
    GetFramework()->mute(false);
    QByteArray patch;
    QDataStream out(&patch, QIODevice::WriteOnly);
    const quint64 context = m_pJsonSave ? jsonContext(*m_pJsonSave) : 0;
    if (probed && now.sameShape(loaded)) {
        QVector<int> differ;
        for (int i = 0; i < now.nodes.size(); ++i)
            if (now.nodes[i] != loaded.nodes[i])
                differ.append(i);
        if (!differ.isEmpty()) {
            out << quint8(1) << context << quint32(now.nodes.size()) << quint32(differ.size());
            for (int i : differ) {
                out << quint32(i) << now.tags[i];
                writeNodeState(out, now.nodes[i]);
            }
        }
    } else {
        // A load would build another tree: the whole drawing goes with the stream.
        out << quint8(2) << context << quint32(now.nodes.size());
        for (int i = 0; i < now.nodes.size(); ++i) {
            out << now.tags[i] << qint32(now.depths[i]);
            writeNodeState(out, now.nodes[i]);
        }
    }
    m_patchBare = bare;
    m_patchRevision = m_pDocument->revision();
    m_patch = patch;
    return patch;
}

void CSVGBase::applyPatch(const DrawingPatch &patch)
{
    if (!m_pDocument || patch.kind == 0)
        return;
    if (patch.kind == 2) {
        SvgDocumentState state = m_pDocument->capture();
        state.tags = patch.tags;
        state.depths = patch.depths;
        state.nodes = patch.states;
        m_pDocument->restore(state);
        findControlNodes();
        return;
    }
    QVector<QSvgNode *> nodes;
    SvgTree::forEach(m_pDocument, [&](QSvgNode *n) { nodes.append(n); });
    // Only a stream made by another build could miss; its drawing then stays as loaded.
    if (quint32(nodes.size()) != patch.nodeCount)
        return;
    for (int i = 0; i < patch.index.size(); ++i) {
        QSvgNode *n = nodes[int(patch.index[i])];
        if (n->tagName() == patch.tags[i])
            n->setState(patch.states[i]);
    }
    findControlNodes();
}
