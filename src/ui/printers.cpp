#include "ui/printers.h"

#include <QEventLoop>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

namespace brivane {

namespace {

constexpr int kAnswerPatienceMs = 10000;

/// What the status command tells, in English whatever the user's language: the printers, a name to
/// a line, and a sentence about the default one. No name has a blank.
Printers PrintersIn(const QString& answer) {
  const QString lead = "system default destination: ";
  Printers printers;
  for (const QString& line : answer.split('\n', Qt::SkipEmptyParts)) {
    if (line.startsWith(lead)) printers.Default = line.sliced(lead.size()).trimmed();
    if (!line.contains(' ')) printers.Names << line;
  }
  return printers;
}

/// One question to the print service. The toolkit's own list of printers asks within the call and
/// cannot be given up: a service that takes the connection and says nothing holds the windows for
/// minutes. A command is waited for beside the windows, and ended when it takes too long.
class PrinterQuestion : public QObject {
 public:
  PrinterQuestion(QObject* asker, const QString& command,
                  const std::function<void(const Printers&)>& told)
      : QObject(asker), told_(told) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "C.UTF-8");
    status_.setProcessEnvironment(environment);
    status_.setStandardErrorFile(QProcess::nullDevice());
    connect(&status_, &QProcess::finished, this, &PrinterQuestion::Tell);
    connect(&status_, &QProcess::errorOccurred, this, &PrinterQuestion::Tell);
    QTimer::singleShot(kAnswerPatienceMs, this, &PrinterQuestion::Tell);
    status_.start(command, {"-d", "-e"}, QIODevice::ReadOnly);
  }
  ~PrinterQuestion() override { End(); }
  PrinterQuestion(const PrinterQuestion&) = delete;
  PrinterQuestion& operator=(const PrinterQuestion&) = delete;

 private:
  void Tell() {
    if (isTold_) return;
    isTold_ = true;
    const bool isAnswered = status_.state() == QProcess::NotRunning;
    const QString answer = QString::fromUtf8(status_.readAllStandardOutput());
    End();
    told_(isAnswered ? PrintersIn(answer) : Printers{});
    deleteLater();
  }
  void End() {
    status_.disconnect(this);
    if (status_.state() == QProcess::NotRunning) return;
    status_.kill();
    status_.waitForFinished();
  }

  QProcess status_;
  std::function<void(const Printers&)> told_;
  bool isTold_ = false;
};

}  // namespace

void AskForPrinters(QObject* asker, const std::function<void(const Printers&)>& told) {
  const QString command = QStandardPaths::findExecutable("lpstat");
  if (command.isEmpty()) return told({});
  new PrinterQuestion(asker, command, told);
}

bool EndsInTime(QProcess& command, int milliseconds) {
  QEventLoop loop;
  QObject::connect(&command, &QProcess::finished, &loop, &QEventLoop::quit);
  QObject::connect(&command, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  if (command.state() != QProcess::NotRunning) loop.exec(QEventLoop::ExcludeUserInputEvents);
  return command.state() == QProcess::NotRunning && command.error() != QProcess::FailedToStart;
}

}  // namespace brivane
