#include "ui/mnemonics.h"

#include <QAbstractButton>
#include <QShortcutEvent>

namespace brivane {

namespace {

/// Only letters that every keyboard of the two languages has without a dead key.
bool CanBeKey(QChar letter) { return letter.unicode() < 128 && letter.isLetter(); }

bool BeginsWord(const QString& caption, qsizetype at) {
  return at == 0 || caption[at - 1].isSpace() || caption[at - 1] == QLatin1Char('\'');
}

/// Takes the letters of one button.
class LetterFilter : public QObject {
 public:
  explicit LetterFilter(QAbstractButton* button) : QObject(button), button_(*button) {
    button->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::Shortcut) return false;
    if (static_cast<QShortcutEvent*>(event)->isAmbiguous()) return false;
    if (button_.isCheckable()) button_.setFocus(Qt::ShortcutFocusReason);
    button_.click();
    return true;
  }

 private:
  QAbstractButton& button_;
};

}  // namespace

QString Mnemonics::Mark(const QString& caption) {
  for (const bool onlyBeginnings : {true, false}) {
    for (qsizetype at = 0; at < caption.size(); ++at) {
      if (!CanBeKey(caption[at]) || (onlyBeginnings && !BeginsWord(caption, at))) continue;
      if (!taken_.insert(caption[at].toLower()).second) continue;
      QString before = caption.left(at);
      QString after = caption.mid(at);
      return before.replace("&", "&&") + "&" + after.replace("&", "&&");
    }
  }
  QString unmarked = caption;
  return unmarked.replace("&", "&&");
}

void AnswerLettersAtOnce(const QWidget& window) {
  for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) new LetterFilter(button);
}

}  // namespace brivane
