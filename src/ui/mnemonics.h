#pragma once

#include <QString>
#include <QWidget>
#include <set>

namespace brivane {

/// Hands out the letters of one window, so that no two captions answer to the same one.
class Mnemonics {
 public:
  /// The caption with "&" before its first free letter, the beginnings of words before others; as
  /// it is when no letter is free. A literal "&" of the caption stays one.
  QString Mark(const QString& caption);

 private:
  std::set<QChar> taken_;
};

/// Lets the buttons and options of a window answer their letters at once. As the toolkit does it, a
/// letter only presses them, and they act a tenth of a second later, whatever the user has done and
/// chosen meanwhile.
void AnswerLettersAtOnce(const QWidget& window);

}  // namespace brivane
