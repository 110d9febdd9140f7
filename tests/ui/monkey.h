#pragma once

#include <QObject>
#include <QPointer>
#include <array>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "model/language.h"
#include "ui/monkey_hands.h"
#include "ui/monkey_rules.h"
#include "ui/monkey_scratch.h"
#include "ui/windows.h"

class QMenu;

namespace brivane {

/// Throws of the dice, the same for the same seed.
class Dice {
 public:
  void Seed(std::uint64_t seed) { state_ = seed; }
  std::uint64_t Next();
  int Below(int bound) { return static_cast<int>(Next() % static_cast<std::uint64_t>(bound)); }
  int Between(int least, int most) { return least + Below(most - least + 1); }
  bool Chance(int percent) { return Below(100) < percent; }
  template <typename Values>
  auto Pick(const Values& values) {
    return values[static_cast<decltype(values.size())>(Below(static_cast<int>(values.size())))];
  }

 private:
  std::uint64_t state_ = 0;
};

/// What a run of the monkey is to be.
struct MonkeyPlan {
  std::uint64_t Seed = 1;
  Language Home = Language::English;  ///< the language that each start is brought to
  int Events = 1000;                  ///< events in that language before the run ends
};

/// What a run came to.
struct MonkeyAccount {
  QString Fault;           ///< empty where there was none
  QStringList LastEvents;  ///< before a fault
  int Events = 0;
  std::array<int, 2> ByLanguage{};
  int Starts = 0;                  ///< of the program
  int Dialogs = 0;                 ///< events in modal dialogs
  std::map<QString, int> Windows;  ///< events by window
  std::uint64_t Trace = 0;         ///< the same for two runs that went the same way
  double LongestMs = 0;            ///< processor time from one event to the next
  QString LongestEvent;
};

/// What a widget is called in the account of the events.
QString NameOf(const QWidget* widget);

/// Works the windows without sense, one event after the other, out of the event loop, as a user
/// would: a dialog that an event opens is worked by the events that follow. After each event, once
/// all that it set off is done, the rules are tried; the first that is broken ends the run. The
/// time between two events is thrown as well, and passes on a clock that only the monkey moves: a
/// seed goes the same way each time.
class Monkey : public QObject {
 public:
  Monkey(const MonkeyPlan& plan, const MonkeyScratch& scratch, const MonkeyRules& rules);

  MonkeyAccount Run();
  /// A fault that the monkey did not see itself.
  void Fail(const QString& words);
  /// The last events, for whoever stops the program.
  const QStringList& LastEvents() const { return last_; }

 protected:
  void timerEvent(QTimerEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  /// An event that is still to come, as long as its widget can be worked.
  struct Intention {
    QPointer<QWidget> Widget;
    std::function<void()> Act;
  };

  void Start();
  void End();
  bool IsDone() const;
  void WatchQuit();
  void TryRules();
  bool KeepOneInFront();
  bool IsQuiet();
  bool LetTimePass();
  void Measure();
  void Act();
  void Note(const QString& words);
  void AddToTrace(const QString& words);
  int AnyPause();

  // By what is in front.
  void ActHolding();
  void ActInPopup(QWidget* popup);
  void ActInMenu(QMenu* menu);
  void ActInDialog(QWidget* dialog);
  void ActInFileDialog(QWidget* dialog);
  void ActInPrinterSetup(QWidget* dialog);
  void ActInMessage(QWidget* dialog);
  void ActBehindDialog();
  void ActOnFrames(const SeenWindows& windows);
  void ActInWindow(QWidget* window);
  void ActInStart(Menu1& window);
  void ActInDimensions(Create1& window);
  void ActInPicture(Dessin1& window);
  void ActInMould(SailForm& window);
  void ActInPatches(Patch1& window);
  void ActAnyhow(QWidget* window);

  // Single events.
  bool ActAsIntended();
  void Intend(QWidget* widget, const std::function<void()>& act);
  void FillField(QLineEdit* field, const QString& text);
  void Click(QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
  void ClickSomewhere(QWidget* window);
  void HoldSomewhere(QWidget* widget);
  void Wheel(QWidget* widget);
  void Key(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
  void AnyKey();
  void Type(QChar character);
  void Paste(const QString& text);
  void CloseWindow(QWidget* window);
  void Resize(QWidget* window);
  void ChooseMenu(Dessin1& window);
  void Drop(QWidget* window);
  void DropFile(Dessin1& window);

  QWidget* AnyChild(QWidget* window);
  QPoint PlaceIn(const QWidget* widget);
  QString AnyNumber();
  QString NumberFor(const QWidget* field);
  QString AnyText();

  MonkeyPlan plan_;
  const MonkeyScratch& scratch_;
  const MonkeyRules& rules_;
  Dice dice_;
  MonkeyHands hands_;
  std::unique_ptr<Windows> windows_;
  QWindow elsewhere_;  ///< stands for another program
  MonkeyAccount account_;
  QStringList last_;
  std::deque<Intention> intentions_;
  std::deque<QPointer<QWidget>> stack_;  ///< the windows, the one that was in front last first
  int timer_ = 0;
  int attempts_ = 0;  ///< to bring a window to the front
  int rounds_ = 0;    ///< of the event loop since anything was under way
  int pause_ = 0;     ///< ms that are still to pass before the next event
  bool running_ = false;
  bool quitAsked_ = false;
  bool quitWatched_ = false;
  double actedAt_ = 0;  ///< ms of processor time
};

}  // namespace brivane
