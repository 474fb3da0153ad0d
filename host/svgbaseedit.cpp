// The one path every edit a user makes takes: one undo step, one playback record.
#include "framework.h"
#include "svgbase.h"
#include "svgbase_p.h"
#include "svgbaseundocmd.h"
#include <QUndoCommand>
// ------------------------------------------------------------- the edit path


namespace {
int gMaxText = CSVGBase::kDefaultMaxText;
}

int CSVGBase::maxTextLength() { return gMaxText; }

QString CSVGBase::fitText(const QString &text, const QString &panelKey)
{
    QString t = SvgXml::clean(text);
    if (t.size() > gMaxText) {
        int n = gMaxText;
        if (t.at(n - 1).isHighSurrogate())
            --n;
        t.truncate(n);
        postNotice(panelKey, t, QStringLiteral("IDS_PHYSICSOBJ_TEXT_CUT"));
    }
    return t;
}
void CSVGBase::setMaxTextLength(int n) { gMaxText = qMax(1, n); }

void CSVGBase::beginEdit()
{
    m_edit = std::make_unique<Edit>();
    m_edit->before = undoState();
}

bool CSVGBase::commitEdit(const QString &text)
{
    std::unique_ptr<Edit> e = std::move(m_edit);
    if (!e)
        return false;
    const std::shared_ptr<const SvgUndoState> after = undoState();
    if (after->record == e->before->record)
        return false; // nothing changed: no step, no record
    GetFramework()->pushUndo(new CSVGEditCmd(this, e->before, after, text, std::move(e->commands)));
    if (e->records.isEmpty()) {
        QByteArray data;
        QDataStream out(&data, QIODevice::WriteOnly);
        out << after->record;
        GetFramework()->record(PlaybackRecord{m_serial, ACTION_STATE, PlaybackRecord::KindRecord, data});
    } else {
        for (const PlaybackRecord &r : e->records)
            GetFramework()->record(r);
    }
    return true;
}

bool CSVGBase::edit(const std::function<void()> &change, const QString &text)
{
    if (m_edit) { // part of the edit already open (a drag, or an edit inside an edit)
        change();
        return true;
    }
    beginEdit();
    change();
    return commitEdit(text.isEmpty() ? QStringLiteral("edit") : text);
}

bool CSVGBase::editSettings(const QMap<QString, QString> &values)
{
    QMap<QString, QString> v = values;
    return edit([&]() { SetSettingArray(v, true, true); }, QStringLiteral("settings"));
}

bool CSVGBase::editAttribute(int id, const QByteArray &value)
{
    return edit(
        [&]() {
            QDataStream in(value);
            SetAttribute(id, in, true, true);
        },
        QStringLiteral("property %1").arg(id));
}

bool CSVGBase::editRestore()
{
    if (!m_bCaptured)
        return false;
    return edit(
        [&]() {
            QByteArray none;
            QDataStream in(&none, QIODevice::ReadOnly);
            SetAttribute(ATTR_RESTORE, in, false, false);
        },
        QStringLiteral("restore"));
}

bool CSVGBase::GetSpecialProperty(int, QDataStream &) { return false; }
bool CSVGBase::SetSpecialProperty(int, QDataStream &, bool) { return false; }
void CSVGBase::PopupObjectMenu(void *) {}
