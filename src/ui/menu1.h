#pragma once

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <array>

#include "ui/windows.h"

namespace brivane {

/// The start window: the language, and the way to a new sail.
class Menu1 : public QWidget, public ProgramWindow {
 public:
  explicit Menu1(Windows& windows);

  void SetCaptions() override;
  void Activated() override;

  std::array<QRadioButton*, 2> Langue1;  ///< index 0 Français, 1 English
  QPushButton* Create;
  QPushButton* Terminate;
  QLabel* Label1;
  QLabel* Label2;
  QLabel* Label3;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Build();
  QLayout* LanguageRow();
  void Load();
  void ChooseLanguage(int index);
  void CreateSail();
  void Quit();

  Windows& windows_;
};

}  // namespace brivane
