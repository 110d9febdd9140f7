// The drawing window's looks: its menus, what stands where, in which words.

#include <QGridLayout>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

#include "ui/current_sail.h"
#include "ui/dessin1.h"
#include "ui/mnemonics.h"
#include "ui/open_command.h"
#include "ui/patch1.h"
#include "ui/printer_setup.h"
#include "ui/printing.h"
#include "ui/qt_text.h"
#include "ui/sail_form.h"
#include "ui/texts.h"
#include "view/navigation.h"

namespace brivane {

namespace {

constexpr int kScrollBarLength = 200;  // 3000 twips

void NameControl(QWidget* control, const BilingualText& name) {
  control->setAccessibleName(CurrentText(name));
  control->setToolTip(CurrentText(name));
}

}  // namespace

// --- Menus ---------------------------------------------------------------------------------------

QAction* Dessin1::AddCommand(QWidget* menu, const char* name,
                             const std::function<void()>& command) {
  auto* action = new QAction(this);
  action->setObjectName(name);
  menu->addAction(action);
  connect(action, &QAction::triggered, this, command);
  return action;
}

void Dessin1::BuildMenus() {
  BuildFileMenu();
  m_Dimensions = AddCommand(menuBar(), "m_Dimensions", [this] { ShowDimensions(); });
  m_Mold = AddCommand(menuBar(), "m_Mold", [this] { windows_.BringToFront(windows_.Mould()); });
  m_Patch = AddCommand(menuBar(), "m_Patch", [this] { windows_.BringToFront(windows_.Patches()); });
}

void Dessin1::BuildFileMenu() {
  fmenu = menuBar()->addMenu(QString());
  fmenu->setObjectName("fmenu");
  fNew = AddCommand(fmenu, "fNew", [this] { NewSail(); });
  fmenu->addSeparator()->setObjectName("fSep1");
  fOpen = AddCommand(fmenu, "fOpen", [this] { OpenCommand(windows_, this); });
  fmenu->addSeparator()->setObjectName("fSep2");
  fprint = fmenu->addMenu(QString());
  fprint->setObjectName("fprint");
  fPrint_Data = AddCommand(fprint, "fPrint_Data", [this] { PrintReport(this, Report::Data); });
  fPrint_Drawing =
      AddCommand(fprint, "fPrint_Drawing", [this] { PrintReport(this, Report::Drawing); });
  fPrint_Panels =
      AddCommand(fprint, "fPrint_Panels", [this] { PrintReport(this, Report::Panels); });
  fprint_setup = AddCommand(fprint, "fprint_setup", [this] { SetUpPrinter(this); });
  fmenu->addSeparator()->setObjectName("fSep3");
  fSave = fmenu->addMenu(QString());
  fSave->setObjectName("fSave");
  fSave_Data = AddCommand(fSave, "fSave_Data", [this] { Save(0); });
  fSave_panelDXF = AddCommand(fSave, "fSave_panelDXF", [this] { Save(4); });
  fSave_XY = AddCommand(fSave, "fSave_XY", [this] { Save(1); });
  fSave_Tovarek = AddCommand(fSave, "fSave_Tovarek", [this] { Save(2); });
  fSave_VRML = AddCommand(fSave, "fSave_VRML", [this] { SaveVrml2(); });
  fmenu->addSeparator()->setObjectName("fSep4");
  fQuit = AddCommand(fmenu, "fQuit", [this] { windows_.EndProgram(); });
  fOpen->setShortcut(QKeySequence::Open);
  fSave_Data->setShortcut(QKeySequence::Save);
  fQuit->setShortcut(QKeySequence::Quit);
}

void Dessin1::SetMenuCaptions() {
  fmenu->setTitle(CurrentText(texts::kFileMenu));
  fprint->setTitle(CurrentText(texts::kPrintMenu));
  fSave->setTitle(CurrentText(texts::kSaveMenu));
  const std::array<std::pair<QAction*, BilingualText>, 15> captions = {
      {{fNew, texts::kNew},
       {fOpen, texts::kOpen},
       {fPrint_Data, texts::kData},
       {fPrint_Drawing, texts::kDrawing},
       {fPrint_Panels, texts::kPanels},
       {fprint_setup, texts::kPrinterSetup},
       {fSave_Data, texts::kData},
       {fSave_panelDXF, texts::kPanelsDxf},
       {fSave_XY, texts::kPanelsXY},
       {fSave_Tovarek, texts::kPlotter},
       {fSave_VRML, texts::kVrml},
       {fQuit, texts::kQuitCommand},
       {m_Dimensions, texts::kDimensionsCommand},
       {m_Mold, texts::kMouldCommand},
       {m_Patch, texts::kPatchesCommand}}};
  for (const auto& [action, caption] : captions) action->setText(CurrentText(caption));
}

// --- Picture, scroll bars and buttons ------------------------------------------------------------

QScrollBar* Dessin1::MakeScrollBar(const char* name, Qt::Orientation orientation) {
  auto* bar = new QScrollBar(orientation);
  bar->setObjectName(name);
  bar->setRange(-kScrollLimit, kScrollLimit);
  bar->setSingleStep(5);
  bar->setPageStep(25);
  bar->setFocusPolicy(Qt::StrongFocus);
  // As the toolkit makes it, the right arrow would move the thumb of a level bar to the left.
  bar->setInvertedControls(orientation == Qt::Vertical);
  if (orientation == Qt::Horizontal)
    bar->setFixedWidth(kScrollBarLength);
  else
    bar->setFixedHeight(kScrollBarLength);
  connect(bar, &QScrollBar::valueChanged, this, [this, bar] { Turn(bar); });
  return bar;
}

void Dessin1::BuildPicture() {
  Picture1 = new PictureBox;
  Picture1->setMinimumSize(320, 240);
  Picture1->setFocusPolicy(Qt::TabFocus);
  Picture1->OnPan = [this](PlanePoint from, PlanePoint to) { PanPicture(from, to); };
  Picture1->OnZoom = [this](PlanePoint from, PlanePoint to) { ZoomPicture(from, to); };
  Picture1->OnWheel = [this](PlanePoint at, double notches) { WheelPicture(at, notches); };
  Picture1->OnResize = [this] { PictureResized(); };
  Picture1->Describe = [this] { return Described(); };
  HScroll1 = MakeScrollBar("HScroll1", Qt::Horizontal);
  VScroll1 = MakeScrollBar("VScroll1", Qt::Vertical);
  Image2 = new TurnIcon(Qt::Vertical, this);
  Image2->setObjectName("Image2");
  Image1 = new TurnIcon(Qt::Horizontal, this);
  Image1->setObjectName("Image1");

  auto* across = new QHBoxLayout;
  across->addStretch();
  across->addWidget(HScroll1);
  across->addWidget(Image2);
  across->addStretch();
  auto* down = new QVBoxLayout;
  down->addStretch();
  down->addWidget(VScroll1, 0, Qt::AlignHCenter);
  down->addWidget(Image1, 0, Qt::AlignHCenter);
  down->addStretch();

  auto* centre = new QWidget;
  auto* grid = new QGridLayout(centre);
  grid->setContentsMargins(6, 6, 10, 6);
  grid->setSpacing(6);
  grid->addLayout(across, 0, 1);
  grid->addLayout(down, 1, 0);
  grid->addWidget(Picture1, 1, 1);
  grid->addLayout(BuildButtons(), 1, 2);
  grid->setRowStretch(1, 1);
  grid->setColumnStretch(1, 1);
  setCentralWidget(centre);
  hint_ = new FittingLabel;
  hint_->setContentsMargins(8, 0, 8, 0);
  statusBar()->addWidget(hint_, 1);
  layout_ = new QLabel;
  layout_->setObjectName("LayoutSummary");
  layout_->setContentsMargins(8, 0, 8, 0);
  statusBar()->addPermanentWidget(layout_);
}

QPushButton* Dessin1::MakeButton(const char* name, void (Dessin1::*command)()) {
  auto* button = new QPushButton;
  button->setObjectName(name);
  button->setMinimumSize(110, 32);
  connect(button, &QPushButton::clicked, this, command);
  return button;
}

QLayout* Dessin1::BuildButtons() {
  Developing = MakeButton("Developing", &Dessin1::Develop);
  Clean = MakeButton("Clean", &Dessin1::CleanPicture);
  Legende1 = MakeButton("Legende1", &Dessin1::ShowLabels);
  Cancel = MakeButton("Cancel", &Dessin1::ShowStart);
  auto* column = new QVBoxLayout;
  column->setSpacing(10);
  column->addSpacing(44);
  for (QPushButton* button : {Developing, Clean, Legende1, Cancel}) column->addWidget(button);
  column->addStretch();
  return column;
}

void Dessin1::SetCaptions() {
  const QString sailName = ToQt(Current().TheSail.Definition.SailName);
  setWindowTitle(TitleWith(texts::kDrawingSuffix) + sailName);
  SetMenuCaptions();
  Mnemonics letters;
  for (const char* taken : {"F", "D"}) letters.Mark(taken);
  const std::array<std::pair<QPushButton*, BilingualText>, 4> buttons = {
      {{Developing, texts::kDevelop},
       {Clean, texts::kRedraw},
       {Legende1, texts::kLabels},
       {Cancel, texts::kQuit}}};
  for (const auto& [button, caption] : buttons) {
    button->setText(letters.Mark(CurrentText(caption)));
    button->setAccessibleName(CurrentText(caption));
  }
  NameControl(HScroll1, texts::kAzimuth);
  NameControl(Image2, texts::kAzimuth);
  Image2->setAccessibleDescription(CurrentText(texts::kAzimuthIcon));
  NameControl(VScroll1, texts::kElevation);
  NameControl(Image1, texts::kElevation);
  Image1->setAccessibleDescription(CurrentText(texts::kElevationIcon));
  Picture1->setAccessibleName(CurrentText(texts::kPicture));
  hint_->SetTexts({CurrentText(texts::kPictureHint), CurrentText(texts::kShortPictureHint)});
  ShowLayout();
  SpeakOnPicture();
}

}  // namespace brivane
