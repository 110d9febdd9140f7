#include "ui/printers.h"

#include <QProcess>
#include <QStandardPaths>

namespace brivane {

namespace {

constexpr int kAnswerPatienceMs = 10000;

/// What the status command of the print service says, in English whatever the user's language.
/// The toolkit's own list of printers would cost every start the loading of one more library.
QString AnswerOfService(const QString& option) {
  const QString command = QStandardPaths::findExecutable("lpstat");
  if (command.isEmpty()) return {};
  QProcess status;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("LC_ALL", "C.UTF-8");
  status.setProcessEnvironment(environment);
  status.setStandardErrorFile(QProcess::nullDevice());
  status.start(command, {option}, QIODevice::ReadOnly);
  if (!status.waitForFinished(kAnswerPatienceMs)) return {};
  return QString::fromUtf8(status.readAllStandardOutput());
}

}  // namespace

QStringList PrinterNames() { return AnswerOfService("-e").split('\n', Qt::SkipEmptyParts); }

QString DefaultPrinter() {
  const QString answer = AnswerOfService("-d").trimmed();
  const QString lead = "system default destination: ";
  return answer.startsWith(lead) ? answer.sliced(lead.size()) : QString();
}

}  // namespace brivane
