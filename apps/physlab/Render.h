#pragma once
#include <QString>

class CWBPhysicalObject;

namespace Render {
// Writes the object's drawing as SVG or PNG (by the file's suffix). Returns an error text, empty on success.
QString toFile(CWBPhysicalObject *obj, const QString &path, double scale, bool handles);
}
