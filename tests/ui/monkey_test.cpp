#include "ui/monkey.h"

#include <unistd.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QTest>
#include <csignal>
#include <cstdio>
#include <exception>

#include "model/sail_file.h"
#include "ui/current_sail.h"
#include "ui/monkey_clock.h"

using namespace brivane;

namespace {

/// Events in each language, where nothing else is said.
constexpr int kShare = 2000;

Monkey* theMonkey = nullptr;

int Setting(const char* name, int byItself) {
  return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : byItself;
}

void PrintLastEvents(const QStringList& events) {
  for (const QString& event : events) std::fprintf(stderr, "  event %s\n", qPrintable(event));
}

/// The event loop does not come back.
void TellStuck(int) {
  std::fputs("the monkey is stuck\n", stderr);
  if (theMonkey != nullptr) PrintLastEvents(theMonkey->LastEvents());
  std::abort();
}

/// What the toolkit says of a platform without a desktop, and of files that are none.
bool IsOfThePlatform(const QString& words) {
  return words.contains("This plugin does not support");
}

QtMessageHandler before = nullptr;

void CatchWarning(QtMsgType type, const QMessageLogContext& context, const QString& words) {
  if (IsOfThePlatform(words)) return;
  const bool counts = type != QtDebugMsg && type != QtInfoMsg;
  if (counts && theMonkey != nullptr) theMonkey->Fail("the toolkit warns: " + words);
  before(type, context, words);
}

/// An exception that reaches the event loop was told by nobody.
class MonkeyApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
      if (theMonkey != nullptr) theMonkey->Fail(QString("an exception escaped: ") + error.what());
    }
    return false;
  }
};

}  // namespace

/// Windows under nonsense. BRIVANE_SEED and BRIVANE_EVENTS (in each language) choose the run.
class MonkeyTest : public QObject {
  Q_OBJECT

 public:
  explicit MonkeyTest(const MonkeyScratch& scratch) : scratch_(scratch) {}

 private slots:
  void WorksTheWindows_data();
  void WorksTheWindows();

 private:
  const MonkeyScratch& scratch_;
};

void MonkeyTest::WorksTheWindows_data() {
  QTest::addColumn<int>("language");
  QTest::newRow("English") << static_cast<int>(Language::English);
  QTest::newRow("French") << static_cast<int>(Language::French);
}

void MonkeyTest::WorksTheWindows() {
  QFETCH(int, language);
  before = qInstallMessageHandler(CatchWarning);
  const MonkeyRules rules;
  QApplication::setQuitOnLastWindowClosed(true);
  MonkeyPlan plan;
  plan.Seed = static_cast<std::uint64_t>(2 * Setting("BRIVANE_SEED", 1) + language);
  plan.Events = Setting("BRIVANE_EVENTS", kShare);
  plan.Home = static_cast<Language>(language);
  const char* const name = QTest::currentDataTag();
  std::printf("seed: %llu, %d events in %s\n",
              static_cast<unsigned long long>(Setting("BRIVANE_SEED", 1)), plan.Events, name);
  Monkey monkey(plan, scratch_, rules);
  theMonkey = &monkey;
  const MonkeyAccount account = monkey.Run();
  theMonkey = nullptr;
  alarm(0);
  qInstallMessageHandler(before);
  if (!account.Fault.isEmpty()) {
    PrintLastEvents(account.LastEvents);
    std::fputs(SailDataText(Current().TheSail.Definition).c_str(), stderr);
  }
  std::printf(
      "note: %s: %d events, %d in French, %d in dialogs, %d starts, longest %.0f ms (%s), "
      "trace %016llx\n",
      name, account.Events, account.ByLanguage[0], account.Dialogs, account.Starts,
      account.LongestMs, qPrintable(account.LongestEvent),
      static_cast<unsigned long long>(account.Trace));
  for (const auto& [window, events] : account.Windows)
    std::printf("  %d events in %s\n", events, qPrintable(window));
  QVERIFY2(account.Fault.isEmpty(), qPrintable(account.Fault));
}

int main(int argc, char** argv) {
  qputenv("QT_HASH_SEED", "0");
  const MonkeyScratch scratch;
  qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
  qputenv("QT_NO_GLIB", "1");
  qputenv("QTEST_FUNCTION_TIMEOUT", "100000000");
  std::signal(SIGALRM, TellStuck);
  std::signal(SIGXFSZ, SIG_IGN);
  MonkeyClock::Hold();
  MonkeyApplication application(argc, argv);
  MonkeyTest test(scratch);
  return QTest::qExec(&test, argc, argv);
}

#include "monkey_test.moc"
