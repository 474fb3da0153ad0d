// physlab: a headless host for the apparatus library, for scripts and pictures.
#include "Render.h"
#include "Script.h"
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>
#include <cstdio>
#include <PhysicalPlugin.h>

namespace {

const char *kUsage =
    "usage: physlab list\n"
    "       physlab render TYPE -o FILE.svg|FILE.png [--scale S] [--no-handles]\n"
    "       physlab gallery DIR\n"
    "       physlab run [FILE]      (script from FILE or standard input)\n"
    "options: --library PATH        the apparatus library (a file, or its folder) to load instead\n"
    "                               of the one found beside physlab or by its soname; so does\n"
    "                               the variable PHYSICALOBJECT_PLUGIN\n";

// Characteristic states shown in the gallery besides each apparatus's default.
struct Scene {
    int type;
    const char *name;
    const char *caption;
    const char *script;  // lines separated by ';'
};

const Scene kScenes[] = {
    {100, "glass", "glass surface, lengthened and thickened", "set idSurface=0;drag control_1 160 0 --final;drag control_2 0 -14 --final"},
    {100, "cloth", "cloth surface on the thinnest board", "set idSurface=2 idThickness=0"},
    {107, "turned", "handle dragged down and in: the bar follows", "drag control_1 -60 70 --final"},
    {107, "left", "handle dragged left of the pivot (angle between 90 and 270)", "drag control_1 -260 -40 --final"},
    {109, "shortest", "length 0 %: 16 ticks, labels 0 and 1", "set idPosValue=0"},
    {109, "longest", "length 100 %: 266 ticks, labels 0 to 26", "set idPosValue=100"},
    {202, "compressed", "handle dragged up: the turns close up", "drag control_1 0 -60 --final"},
    {202, "stretched", "handle dragged down: every turn grows by the same amount", "drag control_1 0 120 --final"},
    {202, "nohooks", "hook choice 0: no hooks at either end", "set idHookCount=0"},
    {501, "stretched", "handle dragged down with the lead wires shown", "drag control_1 0 60 --final"},
    {501, "noleads", "lead choice 0: no lead wires", "set idLeadCount=0"},
    {110, "reading234", "23.4 mm on the 10-division vernier: its 4th tick meets the main scale at 27 mm", "set idCaliperValue=23.4"},
    {110, "reading2345", "23.45 mm on the 20-division vernier: its 9th tick meets the main scale at 32 mm",
     "set idVernierDivisions=1;set idCaliperValue=23.45"},
    {110, "fifty", "50-division vernier, jaw dragged open: the reading snaps to 0.02 mm", "set idVernierDivisions=2;drag control_1 247.3 0 --final"},
    {101, "fifteen", "sloped at 15 degrees: the angle written under the bench line", "set idAngle=15"},
    {101, "sixty", "sloped at 60 degrees and lengthened", "set idAngle=60 idLength=40"},
    {108, "tilted", "tilted 20 degrees anticlockwise with 8 holes each side", "set idMarkCount=8 idAngle=20"},
    {108, "dragged", "right end dragged down and in: tilted clockwise, 3 holes each side", "drag control_1 -70 40 --final"},
    {111, "newtons", "lengthened to 300 in newtons", "set idUnit=2;drag control_1 0 90 --final"},
    {111, "nounit", "shortest strip, numbers without a unit", "set idUnit=0 idPosValue=0"},
    {113, "deep", "sponge pressed deep and narrow: the pores beneath squeezed", "set idDepth=100 idWidth=25"},
    {113, "shallow", "sand pressed shallow and wide", "set idMaterial=1 idDepth=15 idWidth=90"},
    {106, "tall", "a tall narrow block in dark oak, hook shown", "set idBodyColor=#8B5A2B;drag control_1 -50 110 --final"},
    {106, "nohook", "a long flat block without its hook", "set idShowHook=false idWidth=60 idHeight=5"},
    {104, "steel", "a large steel-grey ball with its centre marked", "set idBallColor=#8A949E idShowCenter=true;drag control_1 40 0 --final"},
    {104, "smallest", "the smallest ball, in blue", "set idBallColor=#1E63D6 idPosValue=0"},
    {105, "long", "a long red cart, wheels at a fifth from each end", "set idBodyColor=#C62828;drag control_1 180 0 --final"},
    {105, "nohook", "the shortest cart without its hook", "set idShowHook=false idLength=0"},
    {114, "long", "a long orange deck", "set idDeckColor=#EF6C00 idLength=60"},
    {114, "short", "the shortest deck", "drag control_1 -150 0 --final"},
    {112, "quarterleft", "quarter track from the left rim down to the bottom, radius 150", "set idGrooveShape=1 idRadius=46"},
    {112, "quarterright", "quarter track up to the right rim in a grey block, handle dragged in", "set idGrooveShape=2 idBlockColor=#9EA7B0;drag control_1 -30 0 --final"},
    {103, "leftward", "a longer belt running left on larger rollers", "set idBeltDirection=2 idRadius=100;drag control_1 260 0 --final"},
    {103, "still", "a short belt at rest on small rollers, in brown", "set idBeltDirection=0 idBeltColor=#6D4C41 idLength=0 idRadius=0"},
    {102, "reshaped", "base lengthened and apex raised", "drag control_1 120 0 --final;drag control_2 0 -70 --final"},
    {200, "value135", "turned to 135 degrees at 3.5 N, the value shown by the name", "set idAngle=135;set idForceValue=3.5;set idShowValue=true"},
    {200, "weight", "the weight G pointing straight down, 6 N", "set idForceName=G;set idAngle=-90;set idForceValue=6;set idShowValue=true"},
    {200, "component", "a dashed component dragged up and to the left", "set idForceName=F1;set idDashed=true;drag control_1 -130 -60 --final"},
    {201, "slanted", "second end dragged up and back: the label stays upright on its left", "drag control_2 -60 -120 --final;set idLabelText=h"},
    {201, "bars", "bars only, dashed", "set idEndStyle=2;set idDashed=true"},
    {203, "reading", "pulled to 3.6 N on the 5 N range", "set idForceValue=3.6"},
    {203, "small", "the 2.5 N range, pulled to 1.85 N", "set idRange=0;set idForceValue=1.85"},
    {204, "pulled", "the right fall pulled down to 250, the left one kept", "drag control_1 0 150 --final"},
    {204, "onehook", "one hook, on the right fall, drawn up short", "set idHookCount=0;set idPosValue=5"},
    {205, "raised", "the load raised 120: the free end paid out 240, the falls counted", "set idShowSegments=true;drag control_1 0 -120 --final"},
    {205, "top", "the load at its highest", "set idPosValue=0"},
    {206, "raised", "pulled down, the load raised 100: the free end paid out 400, the falls counted", "set idShowSegments=true;drag control_1 0 -100 --final"},
    {206, "pullup", "pulled up from the movable block, five falls, the load raised 60", "set idRopeEnd=1;set idShowSegments=true;drag control_1 0 -60 --final"},
    {207, "six", "six masses of 50 g: 300 g", "set idCount=5"},
    {207, "heavy", "four masses of 100 g: 400 g", "set idCount=3;set idMassEach=2"},
    {300, "turned", "two blades turned to 30 degrees", "set idBladeCount=0;set idAngle=30"},
    {300, "four", "four red blades, the first dragged to the lower right", "set idBladeCount=2;set idBladeColor=#C62828;drag control_1 40 80 --final"},
    {301, "difference", "a 6.0 cm difference: the left level down 3 cm, the right up 3 cm", "set idHeightDiff=6"},
    {301, "noprobe", "the probe hidden, the right level the lower", "set idShowProbe=false;set idHeightDiff=-8.4"},
    {302, "reading", "filled to 42 mL", "set idVolume=42"},
    {302, "large", "the 250 mL cylinder at 162.5 mL, coloured liquid", "set idRange=2;set idVolume=162.5;set idLiquidColor=#C0392B"},

    // electricity and magnetism
    {400, "closed", "switched on: the blade lies in the clip", "set idSwitchIsConnected=true"},
    {401, "turned", "handle dragged round to the lower right", "drag control_1 25 45 --final"},
    {401, "colours", "turned left, ring, disc and mark recoloured",
     "drag control_1 -30 30 --final;set idExtCircleColor=#2f6db5;set idIntCircleColor=#f2c14e;set idScaleColor=#b22222"},
    {500, "bent", "far end dragged right and down, pull points spread", "drag control_4 100 40 --final;drag control_2 -40 30 --final"},
    {500, "crossed", "pull points crossed over beyond the ends: the curve loops over itself",
     "drag control_1 0 46 --final;drag control_4 8 -46 --final;drag control_2 160 34 --final;drag control_3 -152 126 --final"},
    {403, "mid", "handle dragged to the top of the dial: 0.30 on the small range", "drag control_1 89 -43 --final"},
    {403, "small", "0.36 typed on the 0.6 A range", "set idMeterValue=0.36"},
    {403, "large", "0.36 typed, then the 3 A range: the reading is kept", "set idMeterValue=0.36;set idMeterGrade=1"},
    {404, "mid", "handle dragged two thirds across: 2.00 on the 3 V range", "drag control_1 122 -37 --final"},
    {405, "mid", "handle dragged right of the middle", "drag control_1 40 5 --final"},
    {405, "left", "-12 typed: the pointer left of the middle", "set idMeterValue=-12"},
    {406, "mid", "handle dragged to the reading 4", "drag control_1 122 -37 --final"},
    {402, "dim", "lit at brightness 20: a small, faint halo", "set idLightOn=true idBrightness=20"},
    {402, "bright", "lit at brightness 100: the largest, strongest halo", "set idLightOn=true idBrightness=100"},
    {402, "warm", "lit at brightness 0: only the filament glows", "set idLightOn=true idBrightness=0"},
    {402, "coloured", "lit in a light colour of the host's", "set idLightOn=true;prop 5005 #7FD4FF"},
    {407, "quarter", "slider at 25 %", "set idPosValue=25"},
    {407, "named", "terminal names shown, slider dragged right", "set idShowTerminalNames=true;drag control_1 60 0 --final"},
    {502, "current", "current up the front of a longer coil", "set idCurrentDirection=1;drag control_1 90 0 --final"},
    {502, "hollow", "core taken out, current down the front", "set idShowCore=false idCurrentDirection=2"},
    {503, "thick", "longer and thicker: more laminations", "set idLength=50 idThickness=70"},
    {504, "flipped", "north on the left", "set idPoleDirection=1"},
    {504, "plain", "letters hidden", "set idShowLetters=false"},
    {505, "wide", "longer arms and a wider gap: the bend follows", "drag control_1 80 0 --final;drag control_2 0 70 --final"},
    {505, "flipped", "north at the bottom, narrow gap", "set idPoleDirection=1 idGap=0"},
    {506, "out", "out of the page", "set idFieldDirection=1"},
    {506, "right", "to the right", "set idFieldDirection=2"},
    {506, "up", "upwards, region widened", "set idFieldDirection=4;drag control_1 80 0 --final"},
    {506, "dense", "into the page, dense", "set idDensity=2"},
    {506, "sparse", "out of the page, sparse, region enlarged", "set idFieldDirection=1 idDensity=0;drag control_1 100 60 --final"},
    {507, "flipped", "the bottom plate positive: signs and arrows flipped", "set idPositivePlate=1"},
    {507, "long", "longer plates closer together", "set idLength=40 idSeparation=3"},
    {507, "bare", "plates hidden, lines in blue", "set idShowPlates=false idLineColor=#1e63d6"},
    {508, "negative16", "a negative charge with 16 lines", "set idChargeSign=1 idLineCount=2"},
    {508, "short12", "a positive charge with 12 short lines", "set idLineCount=1 idLength=10"},
    {509, "turned", "velocity dragged up and to the left, longer", "drag control_1 -160 -110 --final"},
    {509, "down", "90 degrees typed, then turned to -90", "set idAngle=90;set idAngle=-90"},
    {510, "turned135", "the needle turned to 135 degrees", "set idAngle=135"},
    {510, "dragged", "north tip dragged down and to the left", "drag control_1 -70 60 --final"},

    // optics
    {600, "thick", "taller, then thickness 100 %", "drag control_2 0 60 --final;set idPosValue=100"},
    {600, "thin", "thickness 0 %", "set idPosValue=0"},
    {601, "thick", "thickness 100 %: the arc is a semicircle", "set idPosValue=100"},
    {601, "thin", "thickness 0 %", "set idPosValue=0"},
    {601, "left", "facing left", "set idLensDirection=1"},
    {601, "leftthick", "facing left, taller and thickness 100 %", "set idLensDirection=1;drag control_2 0 40 --final;set idPosValue=100"},
    {603, "thick", "corners out and taller: thick edges", "drag control_1 25 0 --final;drag control_3 0 40 --final"},
    {603, "deep", "thickness 0 %: the arcs meet at the waist", "set idPosValue=0"},
    {603, "thin", "thickness 90 %: nearly flat faces", "set idPosValue=90"},
    {604, "thick", "corner out and taller: thick edge", "drag control_1 25 0 --final;drag control_3 0 40 --final"},
    {604, "thin", "thickness 90 %: nearly flat face", "set idPosValue=90"},
    {604, "left", "facing left", "set idLensDirection=1"},
    {604, "leftdeep", "facing left, thickness 0 %", "set idLensDirection=1;set idPosValue=0"},
    {606, "turn45", "holder turned 45 degrees clockwise", "set idBracketDirection=1"},
    {606, "side", "holder seen from the side", "set idBracketDirection=2"},
    {606, "turnback45", "holder turned 45 degrees counter-clockwise", "set idBracketDirection=3"},
    {606, "tall", "height 100 %, holder from the front", "set idPosValue=100"},
    {606, "tallturn45", "height 100 %, turned 45 degrees clockwise", "set idPosValue=100;set idBracketDirection=1"},
    {606, "tallside", "height 100 %, seen from the side", "set idPosValue=100;set idBracketDirection=2"},
    {606, "tallturnback45", "height 100 %, turned 45 degrees counter-clockwise", "set idPosValue=100;set idBracketDirection=3"},
    {607, "short", "height 0 %: the shortest body", "set idPosValue=0"},
    {607, "tall", "height 100 %: the tallest body", "set idPosValue=100"},

    // circuit symbols
    {700, "longlabel", "a long label: the item widens to fit it", "set idTextContent=E=1.5V,internal_r=0.5ohm idTextColor=#c00000"},
    {702, "open", "state 0: the blade touches neither contact", "set idSwitchState=0"},
    {702, "closeddown", "state 2: the blade closed to the lower contact (the default is closed up)", "set idSwitchState=2"},
    {703, "closed", "switched on: the blade lies on the contact (the default is open)", "set idSwitchIsConnected=true"},
    {705, "ringing", "ringing: the marks above the bell (the default is silent)", "set idBellIsRinging=true"},
    {701, "longlabel", "a long label: the item widens to fit it", "set idTextContent=U=3.0V_(two_cells)"},
    {710, "longlabel", "a long label: the item widens to fit it", "set idTextContent=R1=4.7kohm_+-5%"},
    {713, "longlabel", "a long label: the item widens to fit it", "set idTextContent=C=2200uF/25V"},
    {711, "quarter", "slider at 25 %", "set idPosValue=25"},
    {711, "longlabel", "a long label, slider at the right end", "set idTextContent=R=0~50ohm idPosValue=100"},
};

int fail(const QString &text)
{
    QTextStream(stderr) << "physlab: " << text << '\n';
    return 2;
}

int list()
{
    int n = 0;
    const PhysicalTypeInfo *t = PhysicalPlugin::typeTable(&n);
    QTextStream out(stdout);
    for (int i = 0; i < n; ++i) {
        // Written by hand to keep the key order type, class, name.
        out << "{\"type\":" << t[i].type << ",\"class\":\"" << t[i].className << "\",\"name\":\"" << t[i].name << "\"}\n";
    }
    return 0;
}

int render(const QStringList &args)
{
    bool ok = false;
    const int type = args.value(0).toInt(&ok);
    if (!ok)
        return fail(QStringLiteral("TYPE must be a number\n") + QLatin1String(kUsage));
    QString out;
    double scale = 1;
    bool handles = true;
    for (int i = 1; i < args.size(); ++i) {
        if (args[i] == QLatin1String("-o") && i + 1 < args.size())
            out = args[++i];
        else if (args[i] == QLatin1String("--scale") && i + 1 < args.size())
            scale = args[++i].toDouble(&ok);
        else if (args[i] == QLatin1String("--no-handles"))
            handles = false;
        else
            return fail(QStringLiteral("unexpected '%1'\n").arg(args[i]) + QLatin1String(kUsage));
    }
    if (out.isEmpty())
        return fail(QStringLiteral("missing -o FILE\n") + QLatin1String(kUsage));
    CWBPhysicalObject *obj = PhysicalPlugin::createObject(type, true);
    if (!obj->content()) {
        obj->Release();
        return fail(QStringLiteral("type %1 creates no apparatus (see 'physlab list')").arg(type));
    }
    const QString err = Render::toFile(obj, out, scale, handles);
    obj->Release();
    return err.isEmpty() ? 0 : fail(err);
}

int gallery(const QString &dirPath)
{
    QDir dir(dirPath);
    if (!dir.mkpath(QStringLiteral(".")))
        return fail(QStringLiteral("cannot create %1").arg(dirPath));
    int n = 0;
    const PhysicalTypeInfo *t = PhysicalPlugin::typeTable(&n);
    QString html = QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>Apparatus gallery</title>\n"
                                  "<style>body{font-family:sans-serif;margin:2em}figure{display:inline-block;margin:1em;"
                                  "vertical-align:top}img{border:1px solid #ccc;max-width:600px}</style></head><body>\n"
                                  "<h1>Apparatus gallery</h1>\n");
    int failures = 0;
    // Pictures in all, so that each can report how far the gallery has got.
    int total = 0, done = 0;
    for (int i = 0; i < n; ++i) {
        ++total;
        for (const Scene &s : kScenes)
            total += s.type == t[i].type;
    }
    QTextStream progress(stdout);
    for (int i = 0; i < n; ++i) {
        html += QStringLiteral("<h2>%1 &mdash; %2 (type %3)</h2>\n").arg(QLatin1String(t[i].name), QLatin1String(t[i].className)).arg(t[i].type);
        QVector<Scene> scenes{{t[i].type, "default", "as created", ""}};
        for (const Scene &s : kScenes)
            if (s.type == t[i].type)
                scenes.append(s);
        for (const Scene &s : scenes) {
            progress << "gallery " << ++done << '/' << total << ": " << t[i].name << " (" << t[i].type << ") " << s.name << '\n';
            progress.flush();
            ScriptSession session;
            QJsonObject r = session.exec(QStringLiteral("new %1 --default-size").arg(s.type));
            for (const QString &line : QString::fromLatin1(s.script).split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
                r = session.exec(line.trimmed());
                if (r.contains(QStringLiteral("error"))) {
                    ++failures;
                    QTextStream(stderr) << "physlab: gallery " << t[i].name << '/' << s.name << ": "
                                        << r.value(QStringLiteral("error")).toString() << '\n';
                }
            }
            const QString base = QStringLiteral("%1-%2").arg(t[i].type).arg(QLatin1String(s.name));
            for (const char *ext : {"svg", "png"}) {
                const QString err = Render::toFile(session.object(), dir.filePath(base + QLatin1Char('.') + QLatin1String(ext)),
                                                   qstrcmp(ext, "png") == 0 ? 2.0 : 1.0, true);
                if (!err.isEmpty()) {
                    ++failures;
                    QTextStream(stderr) << "physlab: " << err << '\n';
                }
            }
            html += QStringLiteral("<figure><a href=\"%1.svg\"><img src=\"%1.png\" alt=\"%2\"></a><figcaption>%2: %3</figcaption></figure>\n")
                        .arg(base, QLatin1String(s.name), QLatin1String(s.caption));
        }
    }
    html += QStringLiteral("</body></html>\n");
    QFile f(dir.filePath(QStringLiteral("index.html")));
    if (!f.open(QIODevice::WriteOnly))
        return fail(QStringLiteral("cannot write index.html"));
    f.write(html.toUtf8());
    QTextStream(stdout) << "gallery written to " << QDir(dir.absolutePath()).filePath(QStringLiteral("index.html")) << '\n';
    return failures ? 1 : 0;
}

int run(const QStringList &args)
{
    QTextStream out(stdout);
    ScriptSession session;
    if (args.isEmpty() || args[0] == QLatin1String("-")) {
        QTextStream in(stdin);
        return session.run(in, out) ? 1 : 0;
    }
    QFile f(args[0]);
    if (!f.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("cannot read %1: %2").arg(args[0], f.errorString()));
    QTextStream in(&f);
    return session.run(in, out) ? 1 : 0;
}

} // namespace

// Qt's platform plugin keeps its screen objects until process exit; not ours to report.
extern "C" __attribute__((visibility("default"), used)) const char *__lsan_default_suppressions()
{
    return "leak:libQt5Gui\nleak:libQt5Core\nleak:libqoffscreen\nleak:libfontconfig\n";
}

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const QByteArray dir = QDir::tempPath().toUtf8() + "/physlab-runtime";
        QDir().mkpath(QString::fromUtf8(dir));
        QFile::setPermissions(QString::fromUtf8(dir), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", dir);
    }
    QGuiApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    QString plugin;
    const QString option = QLatin1String("--") + PhysicalPlugin::optionName();
    for (int i = 0; i < args.size(); ++i) {
        if (args[i] == option && i + 1 < args.size()) {
            plugin = args.takeAt(i + 1);
            args.removeAt(i);
            break;
        }
        if (args[i].startsWith(option + QLatin1Char('='))) {
            plugin = args.takeAt(i).mid(option.size() + 1);
            break;
        }
    }
    QString error;
    if (!PhysicalPlugin::load(plugin, &error))
        return fail(error);
    const QString cmd = args.isEmpty() ? QString() : args.takeFirst();
    if (cmd == QLatin1String("list"))
        return list();
    if (cmd == QLatin1String("render"))
        return render(args);
    if (cmd == QLatin1String("gallery") && args.size() == 1)
        return gallery(args[0]);
    if (cmd == QLatin1String("run") && args.size() <= 1)
        return run(args);
    QTextStream(stderr) << kUsage;
    return 2;
}
