#pragma once

#include <QWidget>
#include <cstdint>

#include "export/save_kinds.h"

namespace brivane {

/// Asks for a file of the kind, names the current sail after it and writes it; tells a failure
/// and the kind's confirmation. A cancelled dialog changes nothing.
void SaveCommand(QWidget* parent, SaveKind kind);

/// The save command of the kind with a number from 0 to 4; any other number does nothing.
void SaveData(QWidget* parent, std::int16_t kind);

}  // namespace brivane
