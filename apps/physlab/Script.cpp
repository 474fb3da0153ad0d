#include "Script.h"
#include "Render.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <cmath>
#include <framework.h>
#include <PhysicalPlugin.h>
#include <svgbase.h>

namespace {

QJsonObject error(const QString &text) { return QJsonObject{{QStringLiteral("error"), text}}; }

bool toNumber(const QString &s, double &v)
{
    bool ok = false;
    v = s.toDouble(&ok);
    return ok;
}

bool toInt(const QString &s, int &v)
{
    bool ok = false;
    v = s.toInt(&ok);
    return ok;
}

QJsonArray rectArray(const QRectF &r)
{
    return QJsonArray{r.x(), r.y(), r.width(), r.height()};
}

QString kindName(int kind)
{
    switch (kind) {
    case DATA_TYPE_BOOL: return QStringLiteral("bool");
    case DATA_TYPE_COMBOBOX: return QStringLiteral("int");
    case DATA_TYPE_COLOR: return QStringLiteral("color");
    case DATA_TYPE_STRING: return QStringLiteral("string");
    case PlaybackRecord::KindRecord: return QStringLiteral("record");
    default: return QStringLiteral("data");
    }
}

// Reads a value of a property item's data type from a stream as JSON.
QJsonValue readValue(int type, QDataStream &s)
{
    switch (type) {
    case DATA_TYPE_BOOL: { bool b = false; s >> b; return b; }
    case DATA_TYPE_COMBOBOX:
    case DATA_TYPE_INT: { qint32 i = 0; s >> i; return i; }
    case DATA_TYPE_COLOR: { QColor c; s >> c; return c.isValid() ? c.name() : QString(); }
    default: { QString t; s >> t; return t; }
    }
}

} // namespace

ScriptSession::ScriptSession() = default;

ScriptSession::~ScriptSession() { replace(nullptr); }

void ScriptSession::replace(CWBPhysicalObject *obj)
{
    if (m_obj)
        m_obj->Release();
    m_obj = obj;
}

QStringList ScriptSession::tokenize(const QString &line)
{
    QStringList out;
    QString cur;
    bool quoted = false, any = false;
    for (int i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        if (quoted) {
            if (c == QLatin1Char('\\') && i + 1 < line.size()) cur += line[++i];
            else if (c == QLatin1Char('"')) quoted = false;
            else cur += c;
        } else if (c == QLatin1Char('"')) {
            quoted = any = true;
        } else if (c.isSpace()) {
            if (any) out << cur;
            cur.clear();
            any = false;
        } else {
            cur += c;
            any = true;
        }
    }
    if (any)
        out << cur;
    return out;
}

int ScriptSession::run(QTextStream &in, QTextStream &out)
{
    int failures = 0;
    while (!in.atEnd()) {
        QString line = in.readLine();
        const QString trimmed = line.trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(QLatin1Char('#')))
            continue;
        const QJsonObject result = exec(trimmed);
        if (result.contains(QStringLiteral("error")))
            ++failures;
        out << QJsonDocument(result).toJson(QJsonDocument::Compact) << '\n';
        out.flush();
    }
    return failures;
}

QJsonArray ScriptSession::messagesSince(int mark) const
{
    QJsonArray a;
    const auto &m = GetFramework()->settingsMessages();
    for (int i = mark; i < m.size(); ++i)
        a.append(QJsonDocument::fromJson(m[i]).object());
    return a;
}

QJsonObject ScriptSession::exec(const QString &line)
{
    const QStringList a = tokenize(line);
    if (a.isEmpty())
        return error(QStringLiteral("empty command"));
    const QString cmd = a.first();
    if (cmd == QLatin1String("new"))
        return cmdNew(a);
    CSVGBase *c = m_obj ? m_obj->content() : nullptr;
    if (!c)
        return error(QStringLiteral("no apparatus: start with 'new TYPE'"));
    if (cmd == QLatin1String("drag")) return cmdDrag(a);
    if (cmd == QLatin1String("set")) return cmdSet(a);
    if (cmd == QLatin1String("prop")) return cmdProp(a);
    if (cmd == QLatin1String("node")) return cmdNode(a);
    if (cmd == QLatin1String("bounds")) return cmdBounds();
    if (cmd == QLatin1String("playback")) return cmdPlayback();
    if (cmd == QLatin1String("settings")) {
        QJsonArray arr;
        c->GetSettingArray(arr);
        return QJsonObject{{QStringLiteral("settings"), arr}};
    }
    if (cmd == QLatin1String("svg"))
        return QJsonObject{{QStringLiteral("svg"), QString::fromUtf8(c->document()->toSvg())}};
    if (cmd == QLatin1String("save")) {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        c->save(out);
        return QJsonObject{{QStringLiteral("data"), QString::fromLatin1(bytes.toBase64())}};
    }
    if (cmd == QLatin1String("load")) {
        if (a.size() != 2)
            return error(QStringLiteral("usage: load BASE64"));
        return cmdLoad(QByteArray::fromBase64(a[1].toLatin1()), false);
    }
    if (cmd == QLatin1String("savejson")) {
        QJsonObject o;
        c->saveJson(o);
        return QJsonObject{{QStringLiteral("json"), o}};
    }
    if (cmd == QLatin1String("loadjson")) {
        const QString rest = line.mid(line.indexOf(QLatin1String("loadjson")) + 8).trimmed();
        if (rest.isEmpty())
            return error(QStringLiteral("usage: loadjson JSON"));
        return cmdLoad(rest.toUtf8(), true);
    }
    if (cmd == QLatin1String("undo") || cmd == QLatin1String("redo")) {
        QUndoStack *s = GetFramework()->undoStack();
        const bool can = cmd == QLatin1String("undo") ? s->canUndo() : s->canRedo();
        const int mark = GetFramework()->settingsMessages().size();
        if (can)
            cmd == QLatin1String("undo") ? s->undo() : s->redo();
        return QJsonObject{{QStringLiteral("result"), can}, {QStringLiteral("messages"), messagesSince(mark)}};
    }
    if (cmd == QLatin1String("capture")) {
        QByteArray empty;
        QDataStream s(&empty, QIODevice::ReadOnly);
        return QJsonObject{{QStringLiteral("result"), c->SetAttribute(CSVGBase::ATTR_CAPTURE, s, false, false)}};
    }
    if (cmd == QLatin1String("restore")) {
        if (!c->hasCapture())
            return error(QStringLiteral("nothing was captured to restore"));
        const int mark = GetFramework()->settingsMessages().size();
        const bool changed = c->editRestore();
        return QJsonObject{{QStringLiteral("result"), true}, {QStringLiteral("changed"), changed},
                           {QStringLiteral("messages"), messagesSince(mark)}};
    }
    if (cmd == QLatin1String("png")) {
        bool ok = a.size() == 2;
        const double scale = a.size() == 3 ? a[2].toDouble(&ok) : 1.0;
        if (!ok || !(scale > 0 && scale <= 16))
            return error(QStringLiteral("usage: png FILE [SCALE]"));
        const QString err = Render::toFile(m_obj, a[1], scale, true);
        return err.isEmpty() ? QJsonObject{{QStringLiteral("file"), a[1]}} : error(err);
    }
    return error(QStringLiteral("unknown command '%1'").arg(cmd));
}

QJsonObject ScriptSession::cmdNew(const QStringList &a)
{
    int type = 0;
    if (a.size() < 2 || a.size() > 3 || !toInt(a[1], type) || (a.size() == 3 && a[2] != QLatin1String("--default-size")))
        return error(QStringLiteral("usage: new TYPE [--default-size]"));
    replace(PhysicalPlugin::createObject(type, a.size() == 3));
    return QJsonObject{{QStringLiteral("content"), m_obj->content() != nullptr}, {QStringLiteral("type"), type}};
}

QJsonObject ScriptSession::cmdDrag(const QStringList &a)
{
    double dx = 0, dy = 0;
    const bool final = a.size() == 5 && a[4] == QLatin1String("--final");
    if ((a.size() != 4 && !final) || !toNumber(a[2], dx) || !toNumber(a[3], dy) || !std::isfinite(dx) || !std::isfinite(dy))
        return error(QStringLiteral("usage: drag HANDLE_ID DX DY [--final]"));
    CSVGBase *c = m_obj->content();
    QSvgNode *h = c->document()->namedNode(a[1]);
    if (!h || !c->controlNodes().contains(h))
        return error(QStringLiteral("no control handle '%1'").arg(a[1]));
    const int mark = GetFramework()->settingsMessages().size();
    bool handled = false;
    const QPointF applied = c->moveControlPoint(h, QPointF(dx, dy), final, true, &handled);
    return QJsonObject{{QStringLiteral("result"), handled},
                       {QStringLiteral("delta"), QJsonArray{applied.x(), applied.y()}},
                       {QStringLiteral("messages"), messagesSince(mark)}};
}

QJsonObject ScriptSession::cmdSet(const QStringList &a)
{
    if (a.size() < 2)
        return error(QStringLiteral("usage: set KEY=VALUE ..."));
    QMap<QString, QString> values;
    for (int i = 1; i < a.size(); ++i) {
        const int eq = a[i].indexOf(QLatin1Char('='));
        if (eq <= 0)
            return error(QStringLiteral("'%1' is not KEY=VALUE").arg(a[i]));
        values.insert(a[i].left(eq), a[i].mid(eq + 1));
    }
    const int mark = GetFramework()->settingsMessages().size();
    // One undo step and one playback record, or nothing at all when nothing changed.
    const bool changed = m_obj->content()->editSettings(values);
    return QJsonObject{{QStringLiteral("result"), true}, {QStringLiteral("changed"), changed},
                       {QStringLiteral("messages"), messagesSince(mark)}};
}

QJsonObject ScriptSession::cmdProp(const QStringList &a)
{
    int id = 0;
    if (a.size() < 2 || a.size() > 3 || !toInt(a[1], id))
        return error(QStringLiteral("usage: prop ID [VALUE]"));
    CSVGBase *c = m_obj->content();
    const CSVGPropItem *item = c->propItemByAttribute(id);
    if (!item)
        return error(QStringLiteral("no property %1").arg(id));
    if (a.size() == 2) {
        QByteArray bytes;
        {
            QDataStream out(&bytes, QIODevice::WriteOnly);
            if (!c->getInnerProperty(id, out))
                return error(QStringLiteral("property %1 cannot be read").arg(id));
        }
        QDataStream in(bytes);
        return QJsonObject{{QStringLiteral("value"), readValue(item->dataType(), in)}};
    }
    const QString v = a[2];
    QByteArray bytes;
    {
        QDataStream out(&bytes, QIODevice::WriteOnly);
        switch (item->dataType()) {
        case DATA_TYPE_COLOR: {
            const QColor col(v);
            if (!col.isValid())
                return error(QStringLiteral("'%1' is not a colour (#rrggbb)").arg(v));
            out << col;
            break;
        }
        case DATA_TYPE_BOOL:
            if (v != QLatin1String("true") && v != QLatin1String("false"))
                return error(QStringLiteral("'%1' is not true or false").arg(v));
            out << (v == QLatin1String("true"));
            break;
        case DATA_TYPE_COMBOBOX:
        case DATA_TYPE_INT: {
            int i = 0;
            if (!toInt(v, i))
                return error(QStringLiteral("'%1' is not an integer").arg(v));
            out << qint32(i);
            break;
        }
        default:
            out << v;
        }
    }
    const int mark = GetFramework()->settingsMessages().size();
    const bool changed = c->editAttribute(id, bytes);
    return QJsonObject{{QStringLiteral("result"), true}, {QStringLiteral("changed"), changed},
                       {QStringLiteral("messages"), messagesSince(mark)}};
}

QJsonObject ScriptSession::cmdNode(const QStringList &a)
{
    if (a.size() < 2 || a.size() > 3)
        return error(QStringLiteral("usage: node ID [ATTR]"));
    const QSvgNode *n = m_obj->content()->document()->namedNode(a[1]);
    if (!n)
        return error(QStringLiteral("no node '%1'").arg(a[1]));
    if (a.size() == 3) {
        if (!n->hasAttribute(a[2]))
            return error(QStringLiteral("node '%1' has no attribute '%2'").arg(a[1], a[2]));
        return QJsonObject{{QStringLiteral("value"), n->attribute(a[2])}};
    }
    QJsonObject attrs;
    for (const QSvgNode::Attr &at : n->attributes())
        attrs.insert(at.name, at.text());
    if (n->type() == QSvgNode::Text)
        attrs.insert(QStringLiteral("value"), n->text());
    return QJsonObject{{QStringLiteral("visible"), n->isVisible()},
                       {QStringLiteral("rect"), rectArray(n->rect())},
                       {QStringLiteral("attrs"), attrs}};
}

QJsonObject ScriptSession::cmdLoad(const QByteArray &data, bool json)
{
    QJsonObject jsonObj;
    if (json) {
        QJsonParseError pe;
        const QJsonDocument d = QJsonDocument::fromJson(data, &pe);
        if (!d.isObject())
            return error(QStringLiteral("not a JSON object: %1").arg(pe.errorString()));
        jsonObj = d.object();
        if (!jsonObj.value(QStringLiteral("svgbase_stream")).isString())
            return error(QStringLiteral("the JSON holds no saved object; nothing was loaded"));
    }
    CWBPhysicalObject *fresh = PhysicalPlugin::createObject(m_obj->typeId(), false);
    bool ok = false;
    if (fresh->content()) {
        if (json) {
            fresh->content()->loadJson(jsonObj);
            ok = fresh->content()->lastLoadOk();
        } else {
            QDataStream in(data);
            ok = fresh->content()->load(in) && in.status() == QDataStream::Ok;
        }
    }
    if (!ok) {
        const QString why = fresh->content() ? fresh->content()->lastLoadError() : QString();
        fresh->Release();
        return error(QStringLiteral("nothing was loaded: the stream is %1").arg(why.isEmpty() ? QStringLiteral("damaged") : why));
    }
    replace(fresh);
    return QJsonObject{{QStringLiteral("result"), true}};
}

QJsonObject ScriptSession::cmdBounds()
{
    const QRectF vb = m_obj->content()->document()->viewBox();
    const QRectF item(m_obj->pos(), m_obj->itemSize());
    return QJsonObject{{QStringLiteral("viewBox"), rectArray(vb)}, {QStringLiteral("item"), rectArray(item)}};
}

QJsonObject ScriptSession::cmdPlayback()
{
    QJsonArray arr;
    for (const PlaybackRecord &r : GetFramework()->records()) {
        QDataStream in(r.data);
        QJsonObject o{{QStringLiteral("prop"), r.actionId}, {QStringLiteral("kind"), kindName(r.kind)}};
        if (r.kind == PlaybackRecord::KindRecord) // the whole object, as the host records it
            o.insert(QStringLiteral("bytes"), r.data.size());
        else
            o.insert(QStringLiteral("value"), readValue(r.kind, in));
        arr.append(o);
    }
    return QJsonObject{{QStringLiteral("records"), arr}};
}
