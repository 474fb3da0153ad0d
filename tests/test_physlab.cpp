// physlab as a script host: one JSON line per command, errors that do not stop the script.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <physicalobject/physicalobject.h>

namespace {

struct PhyslabRun {
    int exitCode;
    QList<QJsonObject> lines;
};

PhyslabRun physlab(const QStringList &args, const QByteArray &input = QByteArray())
{
    QProcess p;
    p.start(QStringLiteral(PHYSLAB_PATH), args);
    p.write(input);
    p.closeWriteChannel();
    p.waitForFinished(60000);
    PhyslabRun r{p.exitCode(), {}};
    for (const QByteArray &line : p.readAllStandardOutput().split('\n'))
        if (!line.trimmed().isEmpty())
            r.lines << QJsonDocument::fromJson(line).object();
    return r;
}

// What physlab says on its error output for a run that must fail (exit code 2, nothing
// on its standard output); `variable` sets PHYSICALOBJECT_PLUGIN.
QString refusal(const QStringList &args, const QByteArray &variable = QByteArray())
{
    QProcess p;
    if (!variable.isEmpty()) {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("PHYSICALOBJECT_PLUGIN"), QString::fromUtf8(variable));
        p.setProcessEnvironment(env);
    }
    p.start(QStringLiteral(PHYSLAB_PATH), args);
    p.closeWriteChannel(); // a run mistaken for a script run reads an empty one
    p.waitForFinished(60000);
    EXPECT_EQ(p.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(p.exitCode(), 2) << args.join(' ').toStdString();
    EXPECT_TRUE(p.readAllStandardOutput().isEmpty());
    return QString::fromUtf8(p.readAllStandardError());
}

} // namespace

TEST(Physlab, ScriptEndToEnd)
{
    const QByteArray script =
        "# a stick, dragged, saved, reloaded\n"
        "new 107\n"
        "drag control_1 -60 70 --final\n"
        "node bevel1 rotate_angle\n"
        "save\n"
        "undo\n"
        "node rect width\n"
        "redo\n"
        "prop 5002 #ff0000\n"
        "playback\n"
        "drag control_9 1 1\n"
        "drag control_1 abc 1\n"
        "drag control_1 1 inf\n"
        "bogus\n"
        "bounds\n";
    const PhyslabRun r = physlab({"run"}, script);
    EXPECT_EQ(r.exitCode, 1); // four commands failed
    ASSERT_EQ(r.lines.size(), 14);
    EXPECT_TRUE(r.lines[0]["content"].toBool());
    EXPECT_TRUE(r.lines[1]["result"].toBool());
    EXPECT_EQ(r.lines[1]["delta"].toArray(), (QJsonArray{QJsonValue(-60), QJsonValue(70)}));
    EXPECT_NEAR(r.lines[2]["value"].toString().toDouble(), 34.2162654266912, 1e-9);
    const QString saved = r.lines[3]["data"].toString();
    EXPECT_FALSE(saved.isEmpty());
    EXPECT_EQ(r.lines[5]["value"].toString(), QStringLiteral("162.939"));
    // One record per edit: the host's of the whole stick for the drag, the colour's own.
    const QJsonArray records = r.lines[8]["records"].toArray();
    ASSERT_EQ(records.size(), 2);
    EXPECT_EQ(records[0].toObject()["kind"].toString(), "record");
    EXPECT_EQ(records[1].toObject()["prop"].toInt(), 5002);
    for (int i : {9, 10, 11, 12})
        EXPECT_TRUE(r.lines[i].contains("error")) << i;
    EXPECT_TRUE(r.lines[13].contains("viewBox"));

    // The saved stream reloads into the same drawing.
    const PhyslabRun back = physlab({"run"}, "new 107\nload " + saved.toLatin1() + "\nnode bevel1 rotate_angle\nload AAAA\nloadjson {\"x\":1}\nloadjson [1\n");
    ASSERT_EQ(back.lines.size(), 6);
    EXPECT_TRUE(back.lines[4].contains("error"));
    EXPECT_TRUE(back.lines[5].contains("error"));
    EXPECT_TRUE(back.lines[1]["result"].toBool());
    EXPECT_EQ(back.lines[2]["value"], r.lines[2]["value"]);
    EXPECT_TRUE(back.lines[3].contains("error"));
    // A script without a failing command says so by its status.
    EXPECT_EQ(physlab({"run"}, "new 107\ndrag control_1 5 5 --final\nsave\n").exitCode, 0);
    // A script that cannot be read is named.
    EXPECT_TRUE(refusal({"run", "/no/such/script.txt"}).contains("/no/such/script.txt"));
    // Commands with arguments they do not take are refused with the usage, not guessed at.
    for (const QStringList &args : {QStringList{"run", "a.txt", "b.txt"}, QStringList{"gallery"}, QStringList{"bogus"}, QStringList{}})
        EXPECT_TRUE(refusal(args).contains("usage")) << args.join(' ').toStdString();
}

TEST(Physlab, ListRenderAndGallery)
{
    const PhyslabRun list = physlab({"list"});
    EXPECT_EQ(list.exitCode, 0);
    EXPECT_TRUE(list.lines.contains(QJsonObject{{"type", 107}, {"class", "CStick"}, {"name", "Stick"}}));
    // Every type of the table, first to last.
    int n = 0;
    const PhysicalTypeInfo *table = physical_TypeTable(&n);
    ASSERT_EQ(list.lines.size(), n);
    EXPECT_EQ(list.lines.first()["type"].toInt(), table[0].type);
    EXPECT_EQ(list.lines.last()["type"].toInt(), table[n - 1].type);

    QTemporaryDir dir;
    EXPECT_EQ(physlab({"render", "107", "-o", dir.filePath("s.png"), "--scale", "2"}).exitCode, 0);
    EXPECT_EQ(physlab({"render", "107", "-o", dir.filePath("s.svg"), "--no-handles"}).exitCode, 0);
    EXPECT_TRUE(QFile::exists(dir.filePath("s.png")));
    QFile svg(dir.filePath("s.svg"));
    ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
    EXPECT_FALSE(svg.readAll().contains("control_1"));
    EXPECT_NE(physlab({"render", "99", "-o", dir.filePath("x.png")}).exitCode, 0);
    EXPECT_NE(physlab({"render", "107", "-o", dir.filePath("x.bmp")}).exitCode, 0);
    EXPECT_EQ(physlab({"gallery", dir.filePath("g")}).exitCode, 0);
    EXPECT_TRUE(QFile::exists(dir.filePath("g/index.html")));
    EXPECT_TRUE(QFile::exists(dir.filePath("g/107-default.png")));
}

// physlab loads the library as a host does; a wrong one must say what is wrong, not crash.
TEST(Physlab, AMissingLibraryOrEntryPointIsReportedAndRefused)
{
    EXPECT_TRUE(refusal({"--library", "/no/such/libphysicalobject.so.1", "list"}).contains("does not exist"));
    EXPECT_TRUE(refusal({"list"}, "/no/such/folder").contains("does not exist"));
    const QString noEntries = refusal({"--library=" HOSTLIB_PATH, "list"});
    EXPECT_TRUE(noEntries.contains("lacks the entry points createObject_physical")) << noEntries.toStdString();
    QTemporaryDir dir;
    QFile junk(dir.filePath("libphysicalobject.so.1"));
    ASSERT_TRUE(junk.open(QIODevice::WriteOnly));
    junk.write("not a library");
    junk.close();
    EXPECT_TRUE(refusal({"list"}, dir.path().toUtf8()).contains("cannot load the apparatus library"));
}
