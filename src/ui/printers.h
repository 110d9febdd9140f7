#pragma once

#include <QString>
#include <QStringList>

namespace brivane {

/// The names of the printers that the system's print service offers, in its order. None where there
/// is no service or where it does not answer in time.
QStringList PrinterNames();

/// The name of the printer that the system prints on by default; empty where there is none.
QString DefaultPrinter();

}  // namespace brivane
