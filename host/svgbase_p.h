#pragma once
// What the host's own files share about CSVGBase and no one else sees.
#include "framework.h"
#include "svgbase.h"
#include <QUndoCommand>
#include <memory>
#include <vector>

// An edit in progress: the state before it, and what the apparatus pushed and recorded
// on the way, which the edit's one step and one record take in.
struct CSVGBase::Edit {
    std::shared_ptr<const SvgUndoState> before;
    std::vector<std::unique_ptr<QUndoCommand>> commands;
    QVector<PlaybackRecord> records;
    bool drag = false;
};

// Stream pieces the host's persistence files share.
namespace SvgStream {
// Reads a count of items of at least `least` bytes each, refusing one that the bytes
// left cannot hold: a damaged count must never become an allocation.
bool readCount(QDataStream &in, quint32 &n, int least);
// The keys a JSON form carries besides the host's, which the drawing patch depends on.
quint64 jsonContext(const QJsonObject &json);
} // namespace SvgStream
