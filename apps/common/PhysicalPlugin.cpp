#include "PhysicalPlugin.h"
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QStringList>
#include <cstdio>
#include <cstdlib>

namespace PhysicalPlugin {

namespace {

using CreateFn = CWBPhysicalObject *(*)(int, int, bool);
using TypeTableFn = const PhysicalTypeInfo *(*)(int *);
using TerminalsFn = const QPointF *(*)(int, int *);
using DefaultFn = bool (*)(int, QDataStream &);

struct Entries {
    CreateFn create = nullptr;
    TypeTableFn typeTable = nullptr;
    TerminalsFn terminals = nullptr;
};

const char kSoname[] = "libphysicalobject.so.1";

// The entry points are C++ functions; a host finds them by their symbol names.
struct Symbol {
    const char *name;     // as a person reads it
    const char *mangled;  // as the library exports it
};
const Symbol kCreate{"createObject_physical", "_Z21createObject_physicaliib"};
const Symbol kTypeTable{"physical_TypeTable", "_Z18physical_TypeTablePi"};
const Symbol kTerminals{"physical_Terminals", "_Z18physical_TerminalsiPi"};
const Symbol kSetDefault{"physical_SetDefaultSpecialProperty", "_Z34physical_SetDefaultSpecialPropertyiR11QDataStream"};

QLibrary *g_library = nullptr;
Entries g_entries;

// Where to look when nothing names a build: beside the app as installed, then in the
// build tree it came from, then wherever the system finds a library by its soname.
QStringList candidates(const QString &where)
{
    const auto inFolder = [](const QString &path) {
        return QFileInfo(path).isDir() ? QDir(path).filePath(QLatin1String(kSoname)) : path;
    };
    if (!where.isEmpty())
        return {inFolder(where)};
    const QString env = qEnvironmentVariable(environmentName());
    if (!env.isEmpty())
        return {inFolder(env)};
    QStringList list;
    const QString appDir = QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QString();
    if (!appDir.isEmpty())
        list << QDir(appDir).filePath(QStringLiteral(PHYS_PLUGIN_FROM_BINDIR "/") + QLatin1String(kSoname));
    list << QStringLiteral(PHYS_PLUGIN_BUILD_DIR "/") + QLatin1String(kSoname);
    list << QLatin1String(kSoname);
    return list;
}

template <typename Fn>
bool resolve(QLibrary &lib, const Symbol &s, Fn &out, QStringList &missing)
{
    out = reinterpret_cast<Fn>(lib.resolve(s.mangled));
    if (!out)
        missing << QLatin1String(s.name);
    return out;
}

void loadOrDie()
{
    QString error;
    if (!load(QString(), &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        std::exit(2);
    }
}

} // namespace

QString optionName() { return QStringLiteral("library"); }
const char *environmentName() { return "PHYSICALOBJECT_PLUGIN"; }

bool load(const QString &where, QString *error)
{
    if (g_library)
        return true;
    const QStringList files = candidates(where);
    QString lastError;
    for (const QString &file : files) {
        // A bare soname goes to the system's search; a path only where it exists, so
        // that the message names the file asked for rather than a fallback's failure.
        const bool bare = !file.contains(QLatin1Char('/'));
        if (!bare && !QFileInfo::exists(file)) {
            if (files.size() == 1)
                lastError = QStringLiteral("cannot load the apparatus library: %1 does not exist").arg(file);
            continue;
        }
        auto *lib = new QLibrary(file);
        if (!lib->load()) {
            lastError = QStringLiteral("cannot load the apparatus library %1: %2").arg(file, lib->errorString());
            delete lib;
            continue;
        }
        Entries e;
        QStringList missing;
        resolve(*lib, kCreate, e.create, missing);
        resolve(*lib, kTypeTable, e.typeTable, missing);
        resolve(*lib, kTerminals, e.terminals, missing);
        DefaultFn setDefault = nullptr;
        resolve(*lib, kSetDefault, setDefault, missing);
        if (!missing.isEmpty()) {
            if (error)
                *error = QStringLiteral("the apparatus library %1 lacks the entry point%2 %3")
                             .arg(lib->fileName(), missing.size() > 1 ? QStringLiteral("s") : QString(),
                                  missing.join(QStringLiteral(", ")));
            lib->unload();
            delete lib;
            return false;
        }
        g_library = lib;
        g_entries = e;
        return true;
    }
    if (error)
        *error = lastError.isEmpty() ? QStringLiteral("cannot find the apparatus library %1").arg(QLatin1String(kSoname))
                                     : lastError;
    return false;
}

CWBPhysicalObject *createObject(int typeId, bool defaultSize)
{
    loadOrDie();
    return g_entries.create(0, typeId, defaultSize);
}

const PhysicalTypeInfo *typeTable(int *count)
{
    loadOrDie();
    return g_entries.typeTable(count);
}

const QPointF *terminals(int typeId, int *count)
{
    loadOrDie();
    return g_entries.terminals(typeId, count);
}

} // namespace PhysicalPlugin
