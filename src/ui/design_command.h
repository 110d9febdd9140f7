#pragma once

#include <QString>
#include <QWidget>

namespace brivane {

class Windows;

/// Runs the design pass on the current sail and refills the windows that show it. Too many panels,
/// or a sail that cannot be laid out, are told in a message under the title. True when the panels
/// lie.
bool RunDesignPass(Windows& windows, QWidget* parent, const QString& title);

}  // namespace brivane
