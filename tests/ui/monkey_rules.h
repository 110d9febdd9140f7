#pragma once

#include <QSet>
#include <QString>

#include "ui/create1.h"
#include "ui/dessin1.h"
#include "ui/menu1.h"
#include "ui/patch1.h"
#include "ui/sail_form.h"

namespace brivane {

/// The windows that there are at the moment, without making any.
struct SeenWindows {
  SeenWindows();

  /// All that there are, always in the same order.
  std::vector<QWidget*> All() const;

  Menu1* Start = nullptr;
  Create1* Dimensions = nullptr;
  Dessin1* Picture = nullptr;
  SailForm* Mould = nullptr;
  Patch1* Patches = nullptr;

  /// The window of the program that is in front, or that the dialogs in front belong to.
  QWidget* Front = nullptr;
};

/// Every window of the program: whether it is visible, minimised, in front, and what has its focus.
QString Scene();

/// What holds after every event, once everything that the event set off is done.
class MonkeyRules {
 public:
  /// Learns the words of both languages from windows of its own.
  MonkeyRules();

  /// What is wrong, empty where nothing is.
  QString Fault() const;

 private:
  QString FaultOfLanguage(const SeenWindows& windows) const;
  QString ForeignWord(const QWidget& window) const;
  QString MixtureOf(const QWidget& window) const;

  QSet<QString> onlyEnglish_, onlyFrench_;
};

}  // namespace brivane
