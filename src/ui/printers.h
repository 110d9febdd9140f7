#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>

class QProcess;

namespace brivane {

/// The printers that the system's print service offers, in its order, and the one that it prints on
/// by default. Nothing where there is no service or where it does not answer in time.
struct Printers {
  QStringList Names;
  QString Default;
};

/// Asks the print service for its printers without waiting for it: `told` is called once, later or,
/// where there is no service, at once. It is not called any more when the asker has gone.
void AskForPrinters(QObject* asker, const std::function<void(const Printers&)>& told);

/// Waits until a command has ended; the windows are painted meanwhile but take no keys and clicks.
/// False where it could not be started or has not ended in time.
bool EndsInTime(QProcess& command, int milliseconds);

}  // namespace brivane
