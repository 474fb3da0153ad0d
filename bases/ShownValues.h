#pragma once
// The panel values a drag can change, as the panel shows them, and the post of those a
// drag step changed. An apparatus that keeps them itself posts in a microsecond what the
// host would find by building the whole panel twice per step.
#include <QPair>
#include <QString>
#include <QVector>

namespace ShownValues {

using Texts = QVector<QPair<QString, QString>>;

// Posts, in one message, the values of `now` whose text differs from what `before`
// showed for the same key; nothing when none changed.
void postChanged(const Texts &before, const Texts &now);

} // namespace ShownValues
