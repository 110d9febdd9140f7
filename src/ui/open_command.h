#pragma once

#include <QWidget>

namespace brivane {

class Windows;

/// Asks for a sail data file of either generation, reads it into the current sail, lays the sail
/// out, and shows it fitted. Every failure, a cancelled dialog included, is told.
void OpenCommand(Windows& windows, QWidget* parent);

}  // namespace brivane
