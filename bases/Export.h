#pragma once
// What the library shows to a host: its entry points and apparatus classes are marked
// with this; everything else stays inside.
#include <QtCore/qglobal.h>

#if defined(PHYSICALOBJECT_LIBRARY)
#define PHYSICALOBJECT_SHARED_EXPORT Q_DECL_EXPORT
#else
#define PHYSICALOBJECT_SHARED_EXPORT Q_DECL_IMPORT
#endif
