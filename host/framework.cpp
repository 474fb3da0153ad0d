#include "framework.h"
#include "svgbaseundocmd.h"
#include <QColor>
#include <QFont>

CFramework::CFramework() { m_undo.setUndoLimit(kUndoSteps); }

CFramework::~CFramework() { m_undo.clear(); }

void CFramework::pushUndo(QUndoCommand *cmd)
{
    if (!cmd)
        return;
    m_undo.push(cmd);
    keepUndoBudget();
}

void CFramework::setUndoCost(const QUndoCommand *cmd, qint64 bytes)
{
    auto it = m_undoCosts.find(cmd);
    if (it != m_undoCosts.end()) {
        m_undoCost -= it.value();
        if (bytes > 0) {
            it.value() = bytes;
        } else {
            m_undoCosts.erase(it);
            return;
        }
    } else if (bytes > 0) {
        m_undoCosts.insert(cmd, bytes);
    } else {
        return;
    }
    m_undoCost += bytes;
}

void CFramework::keepUndoBudget()
{
    // Oldest first: they give up their states, which makes them no-ops that the stack
    // drops when undo reaches them.
    const int n = qMin(m_undo.count() - kUndoMinSteps, m_undo.index());
    for (int i = 0; i < n && m_undoCost > m_undoBudget; ++i) {
        auto *cmd = const_cast<QUndoCommand *>(m_undo.command(i));
        if (auto *s = dynamic_cast<CSVGStateUndo *>(cmd))
            s->release();
    }
}

void CFramework::PostMessage(int message, int, const QByteArray *json, int)
{
    if (m_mute > 0 || !json)
        return;
    if (message == MSG_SETTINGS_CHANGED) {
        // A recent window only: every drag step posts one, for as long as the host runs.
        if (m_messages.size() >= kKeptMessages)
            m_messages.remove(0, kKeptMessages / 2);
        m_messages.append(*json);
    }
    const auto observers = m_observers; // an observer may unsubscribe itself
    for (const auto &fn : observers)
        fn(message, *json);
}

int CFramework::addObserver(std::function<void(int, const QByteArray &)> fn)
{
    m_observers.insert(m_nextObserver, std::move(fn));
    return m_nextObserver++;
}

void CFramework::removeObserver(int handle) { m_observers.remove(handle); }

quint64 CFramework::registerObject(CSVGBase *obj)
{
    const quint64 s = m_nextSerial++;
    m_objects.insert(s, obj);
    return s;
}

void CFramework::unregisterObject(quint64 serial) { m_objects.remove(serial); }

QJsonObject CJsonUtil::variantToJson(const QVariant &v) const
{
    QJsonObject o;
    if (v.canConvert<QColor>() && v.userType() == QMetaType::QColor) {
        const QColor c = v.value<QColor>();
        o.insert(QStringLiteral("r"), c.red());
        o.insert(QStringLiteral("g"), c.green());
        o.insert(QStringLiteral("b"), c.blue());
        o.insert(QStringLiteral("a"), c.alpha());
        o.insert(QStringLiteral("valid"), c.isValid());
        return o;
    }
    o.insert(QStringLiteral("value"), QJsonValue::fromVariant(v));
    return o;
}

QVariant CJsonUtil::jsonToVariant(const QJsonObject &o) const
{
    if (o.contains(QStringLiteral("r"))) {
        if (!o.value(QStringLiteral("valid")).toBool(true))
            return QVariant::fromValue(QColor());
        auto ch = [&](const char *k, int def) { return qBound(0, o.value(QLatin1String(k)).toInt(def), 255); };
        return QVariant::fromValue(QColor(ch("r", 0), ch("g", 0), ch("b", 0), ch("a", 255)));
    }
    return o.value(QStringLiteral("value")).toVariant();
}

namespace {
// The apparatus measure and draw with the PostScript faces their templates name; the
// metric-compatible free face stands in, so that a measured label is as wide as drawn.
CFramework *makeFramework()
{
    for (const char *face : {"ArialMT", "Arial-BoldMT", "Arial"})
        QFont::insertSubstitution(QLatin1String(face), QStringLiteral("Liberation Sans"));
    static CFramework framework;
    return &framework;
}
} // namespace

CFramework *GetFramework()
{
    static CFramework *framework = makeFramework();
    return framework;
}

CJsonUtil *GetJsonUtil()
{
    static CJsonUtil util;
    return &util;
}
