#pragma once

#include <QWidget>
#include <string>

namespace brivane {

class Windows;

/// Asks for a sail data file of either generation, reads it into the current sail, lays the sail
/// out, and shows it fitted. Every failure, a cancelled dialog included, is told.
void OpenCommand(Windows& windows, QWidget* parent);

/// The same for a path that needs no asking. Its folder becomes the current one.
void OpenSail(Windows& windows, QWidget* parent, const std::string& path);

}  // namespace brivane
