#include "ui/monkey.h"

#include <unistd.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimerEvent>
#include <ctime>

#include "model/region.h"
#include "model/sail_file.h"
#include "ui/current_sail.h"
#include "ui/file_dialogs.h"
#include "ui/monkey_clock.h"
#include "ui/printing.h"
#include "ui/qt_text.h"

// The run of a monkey: starts, ends, rules. What it does stands in monkey_acts.cpp and
// monkey_events.cpp.

namespace brivane {

namespace {

/// Rounds of the event loop after which nothing of an event is left: it activates a window, which
/// queues what the other window does when it is left, which may queue a message.
constexpr int kRounds = 4;
constexpr qsizetype kKeptEvents = 30;
/// The longest event that is not a fault, ms of processor time.
constexpr double kPatienceMs = 20000;
/// After so long without an event the program is ended by SIGALRM.
constexpr unsigned kStuckSeconds = 240;

double ProcessorMs() {
  return static_cast<double>(std::clock()) * 1000.0 / static_cast<double>(CLOCKS_PER_SEC);
}

}  // namespace

std::uint64_t Dice::Next() {
  std::uint64_t z = state_ += 0x9E3779B97F4A7C15ULL;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
  return z ^ (z >> 31);
}

Monkey::Monkey(const MonkeyPlan& plan, const MonkeyScratch& scratch, const MonkeyRules& rules)
    : plan_(plan), scratch_(scratch), rules_(rules) {}

MonkeyAccount Monkey::Run() {
  running_ = true;
  while (!IsDone()) {
    Start();
    QCoreApplication::exec();
    End();
  }
  running_ = false;
  account_.LastEvents = last_;
  return account_;
}

bool Monkey::IsDone() const {
  return !account_.Fault.isEmpty() ||
         account_.ByLanguage[static_cast<std::size_t>(plan_.Home)] >= plan_.Events;
}

void Monkey::Fail(const QString& words) {
  if (!account_.Fault.isEmpty()) return;
  account_.Fault = words;
}

void Monkey::Note(const QString& words) {
  const QWidget* const window = QApplication::activeWindow();
  const QString front = window == nullptr ? QString("-") : window->objectName();
  const char* const language = Current().Language == Language::English ? "en" : "fr";
  last_ << QString("%1 %2 [%3] %4").arg(account_.Events).arg(language, front, words);
  if (last_.size() > kKeptEvents) last_.removeFirst();
  AddToTrace(last_.back());
}

void Monkey::AddToTrace(const QString& words) {
  // The folder has another name in each run.
  const QString lasting = QString(words).replace(scratch_.Documents(), "~");
  for (const QChar character : lasting)
    account_.Trace = (account_.Trace ^ character.unicode()) * 0x100000001B3ULL;
  static const bool printed = qEnvironmentVariableIsSet("BRIVANE_TRACE");
  if (printed) std::printf("%s\n", qPrintable(lasting));
}

// --- Starting and ending the program -------------------------------------------------------------

void Monkey::Start() {
  ++account_.Starts;
  Note("the program starts");
  scratch_.Restore();
  Current() = CurrentSail{};
  Current().DecimalMark = RegionalDecimalMark();
  CurrentPrinter() = PrinterSettings{};
  quitAsked_ = quitWatched_ = false;
  intentions_.clear();
  stack_.clear();
  windows_ = std::make_unique<Windows>();
  windows_->Start().show();
  QWidget* const language = windows_->Start().Langue1[static_cast<std::size_t>(plan_.Home)];
  Intend(language, [this, language] { Click(language); });
  actedAt_ = ProcessorMs();
  rounds_ = pause_ = 0;
  timer_ = startTimer(0);
}

void Monkey::End() {
  killTimer(timer_);
  timer_ = 0;
  hands_.ReleaseAnywhere();
  elsewhere_.hide();
  const SeenWindows windows;
  const bool startHidden = windows.Start != nullptr && !windows.Start->isVisible();
  if (!IsDone() && !quitAsked_ && !startHidden) Fail("the program ended though nobody ended it");
  Note("the program ends");
  windows_.reset();
  QCoreApplication::sendPostedEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  for (const QWidget* left : QApplication::topLevelWidgets())
    if (qobject_cast<const QDialog*>(left) != nullptr)
      Fail("a dialog outlives the program: " + left->objectName());
  if (QApplication::overrideCursor() != nullptr) Fail("the program ends with another cursor");
}

// --- From one event to the next ------------------------------------------------------------------

void Monkey::timerEvent(QTimerEvent* event) {
  if (event->timerId() != timer_ || !IsQuiet()) return;
  // A timer whose event is being handled does not fire in the event loop of a dialog.
  killTimer(timer_);
  timer_ = startTimer(0);
  if (KeepOneInFront() || LetTimePass()) return;
  Measure();
  TryRules();
  if (IsDone()) return QCoreApplication::exit(0);
  ++account_.Events;
  ++account_.ByLanguage[static_cast<std::size_t>(Current().Language)];
  dice_.Seed(plan_.Seed * 1000003 + static_cast<std::uint64_t>(account_.Events));
  pause_ = AnyPause();
  Act();
  if (!account_.Fault.isEmpty()) QCoreApplication::exit(0);
}

/// Whether the event loop has come round often enough since anything was under way.
bool Monkey::IsQuiet() {
  if (WaitForOtherThreads()) rounds_ = 0;
  if (++rounds_ < kRounds) return false;
  rounds_ = 0;
  return true;
}

/// A hurried monkey lets no timer come to its end; every few dozen events it changes its pace.
int Monkey::AnyPause() {
  constexpr int kEventsOfOnePace = 40;
  Dice pace;
  pace.Seed(plan_.Seed * 1000003 + static_cast<std::uint64_t>(account_.Events / kEventsOfOnePace));
  if (pace.Chance(40)) return dice_.Chance(50) ? 0 : dice_.Between(1, 4);
  const int kind = dice_.Below(10);
  if (kind < 5) return 0;
  return kind < 8 ? dice_.Between(1, 120) : dice_.Between(200, 1200);
}

bool Monkey::LetTimePass() {
  constexpr int kStepMs = 40;
  if (pause_ == 0) return false;
  const int step = std::min(pause_, kStepMs);
  MonkeyClock::Advance(step);
  pause_ -= step;
  return true;
}

/// What a desktop does: some window of the program has the keyboard. Most of them choose the one
/// that had it last, some the one under the pointer.
bool Monkey::KeepOneInFront() {
  if (QApplication::activeWindow() != nullptr || QApplication::activePopupWidget() != nullptr)
    return attempts_ = 0, false;
  constexpr int kMostAttempts = 10;
  if (++attempts_ > kMostAttempts) return Fail("no window comes to the front"), false;
  QWidget* wanted = QApplication::activeModalWidget();
  std::vector<QWidget*> visible = SeenWindows().All();
  std::erase_if(visible, [](const QWidget* window) { return !window->isVisible(); });
  if (wanted == nullptr && visible.empty()) return false;
  if (wanted == nullptr && dice_.Chance(60))
    for (const QPointer<QWidget>& window : stack_)
      if (wanted == nullptr && window != nullptr && window->isVisible()) wanted = window;
  if (wanted == nullptr) wanted = dice_.Pick(visible);
  if (wanted->isMinimized()) wanted->showNormal();
  elsewhere_.hide();
  Note("the desktop chooses " + NameOf(wanted));
  wanted->activateWindow();
  return true;
}

void Monkey::Measure() {
  const double now = ProcessorMs();
  const double taken = now - actedAt_;
  if (taken > account_.LongestMs) {
    account_.LongestMs = taken;
    account_.LongestEvent = last_.isEmpty() ? QString() : last_.back();
  }
  if (taken > kPatienceMs) Fail(QString("an event took %1 ms").arg(taken));
}

void Monkey::WatchQuit() {
  Dessin1* const picture = SeenWindows().Picture;
  if (picture == nullptr || quitWatched_) return;
  quitWatched_ = true;
  picture->installEventFilter(this);
  connect(picture->fQuit, &QAction::triggered, this, [this] { quitAsked_ = true; });
}

bool Monkey::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Close) quitAsked_ = true;
  return false;
}

void Monkey::TryRules() {
  if (quitAsked_) Fail("the program goes on though it was ended");
  WatchQuit();
  const QString fault = rules_.Fault();
  if (!fault.isEmpty()) Fail(fault + "; " + Scene());
  AddToTrace(ToQt(SailDataText(Current().TheSail.Definition)));
  if (QWidget* const front = SeenWindows().Front) {
    std::erase(stack_, front);
    stack_.push_front(front);
  }
  alarm(kStuckSeconds);
  actedAt_ = ProcessorMs();
}

}  // namespace brivane
