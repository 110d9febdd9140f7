#pragma once

#include <QMimeData>
#include <optional>
#include <string>

namespace brivane {

/// The path of the sail data file that is dragged: exactly one file of this machine with the
/// extension of either generation, in any case. Nothing for whatever else is dragged.
std::optional<std::string> DraggedSailFile(const QMimeData& dragged);

}  // namespace brivane
