#include "ui/menu1.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>

#include "ui/accessible.h"
#include "ui/create1.h"
#include "ui/current_sail.h"
#include "ui/dessin1.h"
#include "ui/messages.h"
#include "ui/mnemonics.h"
#include "ui/qt_text.h"
#include "ui/qt_translation.h"
#include "ui/screen_room.h"
#include "ui/texts.h"

namespace brivane {

namespace {

constexpr int kWindowSide = 400;  // 6000 twips
constexpr int kEnglish = static_cast<int>(Language::English);

void CentreOnScreen(QWidget& window) {
  const QRect screen = window.screen()->availableGeometry();
  window.move(screen.center() - window.rect().center());
}

QLabel* CentredLabel(const char* name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setAlignment(Qt::AlignCenter);
  return label;
}

// The only text of another size: every font that the first window shows is waited for.
QLabel* TitleLabel(const char* name) {
  QLabel* label = CentredLabel(name);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * 2.4);
  font.setBold(true);
  label->setFont(font);
  return label;
}

}  // namespace

Menu1::Menu1(Windows& windows) : windows_(windows) {
  setObjectName("Menu1");
  Build();
  Load();
}

void Menu1::Build() {
  Label1 = TitleLabel("Label1");
  Label2 = CentredLabel("Label2");
  Label3 = CentredLabel("Label3");
  Create = new QPushButton;
  Create->setObjectName("Create");
  Create->setMinimumHeight(44);
  Create->setDefault(true);
  Terminate = new QPushButton;
  Terminate->setObjectName("Terminate");
  Terminate->setMinimumHeight(36);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(40, 28, 40, 28);
  column->setSpacing(12);
  column->addStretch(1);
  column->addWidget(Label1);
  column->addWidget(Label2);
  column->addStretch(1);
  column->addLayout(LanguageRow());
  column->addSpacing(12);
  column->addWidget(Create);
  column->addWidget(Terminate);
  column->addStretch(1);
  column->addWidget(Label3);
  Create->setFocus();
  connect(Create, &QPushButton::clicked, this, &Menu1::CreateSail);
  connect(Terminate, &QPushButton::clicked, this, &Menu1::Quit);
}

QLayout* Menu1::LanguageRow() {
  auto* row = new QHBoxLayout;
  row->setSpacing(24);
  row->addStretch();
  const std::array<const char*, 2> names = {"&Français", "&English"};
  for (int index = 0; index < 2; ++index) {
    auto* option = new QRadioButton(QString::fromUtf8(names[static_cast<std::size_t>(index)]));
    option->setObjectName(QString("Langue1_%1").arg(index));
    connect(option, &QRadioButton::toggled, this, [this, index](bool on) {
      if (on) ChooseLanguage(index);
    });
    Langue1[static_cast<std::size_t>(index)] = option;
    row->addWidget(option);
  }
  row->addStretch();
  TabToChecked({Langue1.begin(), Langue1.end()});
  return row;
}

void Menu1::Load() {
  const WaitCursor wait;
  resize(QSize(kWindowSide, kWindowSide).boundedTo(RoomFor(*this)));
  CentreOnScreen(*this);
  Langue1[kEnglish]->setChecked(true);
  ResetCurrentSail();
}

void Menu1::ChooseLanguage(int index) {
  Current().Language = static_cast<Language>(index);
  TranslateToolkit(Current().Language);
  SetCaptions();
}

void Menu1::SetCaptions() {
  Mnemonics letters;
  letters.Mark("F");
  letters.Mark("E");
  setWindowTitle(CurrentText(texts::kWelcome) + ToQt(ProgramTitle) +
                 "  version:" + ToQt(kVersionDate));
  Label1->setText(ToQt(ProgramTitle));
  Label2->setText(CurrentText(texts::kStartTagline));
  Label3->setText("version:" + ToQt(kVersionDate));
  const QString create = CurrentText(texts::kCreate);
  const QString quit = CurrentText(texts::kQuit);
  Create->setText(letters.Mark(create));
  Create->setAccessibleName(create);
  Terminate->setText(letters.Mark(quit));
  Terminate->setAccessibleName(quit);
}

void Menu1::Activated() { Current().View.Mode = RedrawMode::FitOutline; }

void Menu1::CreateSail() {
  Current().TheSail.Definition.SailName = "NEWSAIL";
  windows_.BringToFront(windows_.Picture());
  windows_.Dimensions().Begin();
  windows_.BringToFront(windows_.Dimensions());
}

void Menu1::Quit() {
  hide();
  windows_.EndProgram();
}

void Menu1::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && !Terminate->hasFocus()) return Create->click();
  if (enter) return Terminate->click();
  if (event->key() == Qt::Key_Escape && windows_.Picture().isVisible())
    return windows_.BringToFront(windows_.Picture());
  QWidget::keyPressEvent(event);
}

}  // namespace brivane
