#pragma once

#include <QDir>
#include <QString>

namespace brivane::tour {

/// Takes pictures of the five windows and of a file dialog in both languages, as they look on this
/// screen and in these colours, under names that end in the given one. Ends with the start window
/// left. Throws LostWay.
void TakeLooks(const QDir& folder, const QString& name);

}  // namespace brivane::tour
