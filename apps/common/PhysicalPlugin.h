#pragma once
// The apparatus library as a host meets it: loaded at run time by its soname and
// entered through the functions it exports by name. The apps link only the host
// library; every apparatus comes from here.
#include <QPointF>
#include <QString>
#include <physicalobject/physicalobject.h>

namespace PhysicalPlugin {

// The option and variable that point at another build: a library file, or a folder
// holding libphysicalobject.so.1.
QString optionName();           // "library" (Qt keeps -plugin for its own)
const char *environmentName();  // "PHYSICALOBJECT_PLUGIN"

// Loads the library once and resolves every entry point (the default-type setter too:
// the apps never call it, but a library without it is not one a host can use). `where` overrides the search
// (empty: the variable, then the folders the app was built or installed beside, then
// the system's library path). False, with a message naming what is missing, when the
// library cannot be loaded or lacks an entry point; nothing is half loaded then.
bool load(const QString &where, QString *error);

// The exported entry points. They load the library on first use when load() was not
// called, and stop the program with the message when that fails.
CWBPhysicalObject *createObject(int typeId, bool defaultSize);
const PhysicalTypeInfo *typeTable(int *count);
const QPointF *terminals(int typeId, int *count);

} // namespace PhysicalPlugin
