#pragma once

#include <QString>
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

}  // namespace brivane
