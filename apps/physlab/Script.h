#pragma once
#include <QJsonObject>
#include <QStringList>
#include <QTextStream>

class CWBPhysicalObject;

// One headless host session: holds the current apparatus and answers one JSON
// object per command line.
class ScriptSession
{
public:
    ScriptSession();
    ~ScriptSession();
    ScriptSession(const ScriptSession &) = delete;
    ScriptSession &operator=(const ScriptSession &) = delete;

    // Runs every line; returns the number of failed commands.
    int run(QTextStream &in, QTextStream &out);
    QJsonObject exec(const QString &line);
    CWBPhysicalObject *object() const { return m_obj; }

    static QStringList tokenize(const QString &line);

private:
    QJsonObject cmdNew(const QStringList &a);
    QJsonObject cmdDrag(const QStringList &a);
    QJsonObject cmdSet(const QStringList &a);
    QJsonObject cmdProp(const QStringList &a);
    QJsonObject cmdNode(const QStringList &a);
    QJsonObject cmdLoad(const QByteArray &data, bool json);
    QJsonObject cmdBounds();
    QJsonObject cmdPlayback();
    QJsonArray messagesSince(int mark) const;
    void replace(CWBPhysicalObject *obj);

    CWBPhysicalObject *m_obj = nullptr;
};
