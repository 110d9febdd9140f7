// The mould window's looks: what stands where, in which words.

#include <QGroupBox>
#include <QHBoxLayout>
#include <QScreen>
#include <QVBoxLayout>

#include "ui/accessible.h"
#include "ui/current_sail.h"
#include "ui/messages.h"
#include "ui/mnemonics.h"
#include "ui/qt_text.h"
#include "ui/sail_form.h"
#include "ui/scroll_box.h"
#include "ui/texts.h"
#include "view/picture_words.h"

namespace brivane {

namespace {

constexpr QSize kWindowSize(600, 500);  // 9000 x 7500 twips
constexpr int kBarLength = 84;
constexpr int kFieldWidth = 64;
constexpr int kPositionWidth = 140;

QScrollBar* MakeBar(const QString& name, int least, int most) {
  auto* bar = new QScrollBar(Qt::Vertical);
  bar->setObjectName(name);
  bar->setRange(least, most);
  bar->setPageStep(std::max(1, (most - least) / 10));
  bar->setFixedHeight(kBarLength);
  bar->setFocusPolicy(Qt::StrongFocus);
  bar->setInvertedAppearance(true);  // upwards is more
  bar->setInvertedControls(false);
  return bar;
}

QLabel* MakeValue(const QString& name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setMinimumWidth(44);
  return label;
}

QLabel* MakeDrawingTitle(const char* name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
  return label;
}

/// A page is to be as high as its layout says, whatever its width.
void FixHeight(QLabel* label, int width) {
  label->setFixedHeight(label->heightForWidth(width));
  QSizePolicy policy = label->sizePolicy();
  policy.setHeightForWidth(false);
  label->setSizePolicy(policy);
}

QString Described(const MouldSection& section) {
  std::string words;
  WordsOfFailure([&] { words = ProfileWords(section, Current().Language, Current().DecimalMark); });
  return ToQt(words);
}

QString Numbered(const char* name, std::size_t index) {
  return QString("%1_%2").arg(name).arg(index);
}

}  // namespace

void SailForm::Build() {
  auto* contents = new QWidget;
  valueParts_ = new QHBoxLayout(contents);
  valueParts_->setContentsMargins(0, 0, 0, 0);
  valueParts_->addLayout(BuildTable(), 1);
  valueParts_->addLayout(BuildDepthPosition());
  values_ = new ScrollBox(contents);
  drawings_ = BuildDrawings();
  body_ = new QVBoxLayout;
  body_->setSpacing(12);
  body_->addWidget(values_);
  body_->addLayout(drawings_, 1);
  auto* whole = new QVBoxLayout(this);
  whole->setSpacing(12);
  whole->addLayout(body_, 1);
  whole->addLayout(BuildButtons());
  SetCaptions();
  resize(kWindowSize.expandedTo(sizeHint()).boundedTo(RoomFor(*this)));
  move(screen()->availableGeometry().center() - rect().center());
}

/// The drawings stand below the values, or beside them where the screen is not high enough: what a
/// bar does to them is to be seen while it moves.
void SailForm::Arrange() {
  if (!arrangement_.IsOutdated(*this)) return;
  const QSize room = RoomFor(*this);
  constexpr std::array<std::pair<bool, bool>, 3> kHighestFirst = {
      {{false, false}, {true, false}, {true, true}}};
  for (const auto& [isFlat, isNarrow] : kHighestFirst) {
    Place(isFlat, isNarrow);
    // Beside the drawings the values may scroll, below each other they are to be seen whole.
    values_->FitInto(isFlat ? QSize(QWIDGETSIZE_MAX, room.height())
                            : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
    const QSize least = layout()->totalMinimumSize();
    if (least.boundedTo(room) == least) break;
  }
  values_->FitInto(room);
  values_->ShowMore(room);
}

void SailForm::Place(bool isFlat, bool isNarrow) {
  layout()->setContentsMargins(isFlat ? QMargins(8, 8, 8, 8) : QMargins(16, 14, 16, 14));
  body_->setDirection(isFlat ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  valueParts_->setDirection(isNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  valueParts_->setSpacing(isFlat ? 12 : 28);
  const QSize picture = isFlat ? QSize(180, 80) : QSize(260, 170);
  for (PictureBox* drawn : {Picture1, Picture2}) drawn->setMinimumSize(picture);
  // Words that take more lines than a layout reckons with would take the room of what is beside.
  for (QLabel* title : {FirstTitle, SecondTitle})
    title->setMinimumHeight(title->heightForWidth(picture.width()));
  const std::array<QWidget*, 4> parts = {FirstTitle, Picture1, SecondTitle, Picture2};
  for (QWidget* part : parts) drawings_->removeWidget(part);
  for (int i = 0; i < 4; ++i) {
    const int column = isFlat ? 0 : i / 2;
    drawings_->addWidget(parts[static_cast<std::size_t>(i)], isFlat ? i : i % 2, column);
  }
  drawings_->setColumnStretch(1, isFlat ? 0 : 1);
  drawings_->setRowStretch(3, isFlat ? 1 : 0);
}

QLayout* SailForm::BuildTable() {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(8);
  grid->setColumnStretch(0, 1);
  for (std::size_t i = 0; i < kHeights; ++i) {
    ColumnTitle[i] = MakeValue(Numbered("ColumnTitle", i));
    grid->addWidget(ColumnTitle[i], 0, static_cast<int>(i) + 1);
  }
  AddBarRow(grid, 1, VScroll1, LuffShapeValue, "VScroll1");
  AddDepthRow(grid, 2);
  AddBarRow(grid, 3, VScroll2, LeechShapeValue, "VScroll2");
  AddValueRow(grid, 4, DepthAt20, "DepthAt20");
  AddValueRow(grid, 5, DepthAt80, "DepthAt80");
  grid->setRowStretch(6, 1);
  for (std::size_t i = 0; i < kHeights; ++i) {
    connect(VScroll1[i], &QScrollBar::valueChanged, this, [this, i] { MoveLuffShape(i); });
    connect(VScroll2[i], &QScrollBar::valueChanged, this, [this, i] { MoveLeechShape(i); });
  }
  return grid;
}

void SailForm::AddRowTitle(QGridLayout* grid, int row) {
  auto* title = new QLabel;
  rowTitles_[static_cast<std::size_t>(row) - 1] = title;
  grid->addWidget(title, row, 0);
}

void SailForm::AddBarRow(QGridLayout* grid, int row, std::array<QScrollBar*, kHeights>& bars,
                         std::array<QLabel*, kHeights>& values, const char* name) {
  constexpr int kMost = 100;  // 10 for the luff side, 0.2 for the leech side
  AddRowTitle(grid, row);
  for (std::size_t i = 0; i < kHeights; ++i) {
    bars[i] = MakeBar(Numbered(name, i), 0, kMost);
    values[i] = MakeValue(Numbered(name, i) + "_Value");
    auto* cell = new QHBoxLayout;
    cell->setSpacing(6);
    cell->addWidget(bars[i]);
    cell->addWidget(values[i]);
    cell->addStretch();
    grid->addLayout(cell, row, static_cast<int>(i) + 1);
  }
}

void SailForm::AddDepthRow(QGridLayout* grid, int row) {
  AddRowTitle(grid, row);
  for (std::size_t i = 0; i < kHeights; ++i) {
    auto* edit = new QLineEdit;
    edit->setObjectName(Numbered("Text2", i));
    edit->setAlignment(Qt::AlignRight);
    edit->setFixedWidth(kFieldWidth);
    edit->installEventFilter(this);
    connect(edit, &QLineEdit::returnPressed, this, [this, i] { LeaveDepth(i); });
    depths_[i].Edit = Text2[i] = edit;
    grid->addWidget(edit, row, static_cast<int>(i) + 1, Qt::AlignLeft);
  }
}

void SailForm::AddValueRow(QGridLayout* grid, int row, std::array<QLabel*, kHeights>& values,
                           const char* name) {
  AddRowTitle(grid, row);
  for (std::size_t i = 0; i < kHeights; ++i) {
    values[i] = MakeValue(Numbered(name, i));
    grid->addWidget(values[i], row, static_cast<int>(i) + 1);
  }
}

QLayout* SailForm::BuildDepthPosition() {
  constexpr int kLowest = 1;
  constexpr int kHighest = 8;
  VScroll3 = MakeBar("VScroll3", kLowest, kHighest);
  connect(VScroll3, &QScrollBar::valueChanged, this, &SailForm::MoveDepthPosition);
  DepthPositionValue = MakeValue("VScroll3_Value");
  positionTitle_ = new QLabel;
  positionTitle_->setWordWrap(true);
  positionTitle_->setFixedWidth(kPositionWidth);
  positionTitle_->setBuddy(VScroll3);
  auto* cell = new QHBoxLayout;
  cell->addWidget(VScroll3);
  cell->addWidget(DepthPositionValue);
  cell->addStretch();
  auto* column = new QVBoxLayout;
  column->addWidget(positionTitle_);
  column->addLayout(cell);
  column->addStretch();
  return column;
}

QGridLayout* SailForm::BuildDrawings() {
  Picture1 = new PictureBox;
  Picture2 = new PictureBox;
  Picture2->setObjectName("Picture2");
  FirstTitle = MakeDrawingTitle("FirstTitle");
  SecondTitle = MakeDrawingTitle("SecondTitle");
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(16);
  grid->setRowStretch(1, 1);
  grid->setColumnStretch(0, 1);
  Picture1->Describe = [] { return Described(DeepestSection(Current().TheSail.Definition)); };
  Picture2->Describe = [] { return Described(TopSection(Current().TheSail.Definition)); };
  for (PictureBox* picture : {Picture1, Picture2}) {
    picture->setCursor(Qt::ArrowCursor);
    picture->OnResize = [this] { DrawProfiles(); };
  }
  return grid;
}

QLayout* SailForm::BuildButtons() {
  Load = new QPushButton;
  Load->setObjectName("Load");
  Load->setAutoDefault(false);
  connect(Load, &QPushButton::clicked, this, &SailForm::LoadMould);
  Done = new QPushButton;
  Done->setObjectName("Done");
  Done->setAutoDefault(false);
  Done->setMinimumWidth(110);
  connect(Done, &QPushButton::clicked, this, &QDialog::close);
  for (QPushButton* button : {Load, Done}) button->setMinimumHeight(32);
  auto* row = new QHBoxLayout;
  row->addWidget(Load);
  row->addStretch();
  row->addWidget(Done);
  return row;
}

void SailForm::SetCaptions() {
  setWindowTitle(TitleWith(texts::kMouldSuffix));
  Mnemonics letters;
  const std::array<std::pair<QPushButton*, BilingualText>, 2> buttons = {
      {{Load, texts::kLoadMould}, {Done, texts::kDone}}};
  for (const auto& [button, caption] : buttons) {
    button->setText(letters.Mark(CurrentText(caption)));
    button->setAccessibleName(CurrentText(caption));
  }
  for (std::size_t row = 0; row < rowTitles_.size(); ++row) {
    rowTitles_[row]->setText(CurrentText(texts::kMouldRows[row]));
    rowTitles_[row]->setAccessibleName(Spoken(rowTitles_[row]->text()));
  }
  positionTitle_->setText(CurrentText(texts::kDepthPosition));
  FixHeight(positionTitle_, kPositionWidth);
  VScroll3->setAccessibleName(CurrentText(texts::kDepthPosition));
  for (std::size_t i = 0; i < kHeights; ++i) {
    const QString column = CurrentText(texts::kMouldColumns[i]);
    ColumnTitle[i]->setText(column);
    VScroll1[i]->setAccessibleName(CurrentText(texts::kLuffSide) + ", " + column);
    Text2[i]->setAccessibleName(Spoken(CurrentText(texts::kMouldRows[1])) + ", " + column);
    Text2[i]->setToolTip(CurrentText(InfoOf(DepthField(i)).Tooltip));
    VScroll2[i]->setAccessibleName(CurrentText(texts::kLeechSide) + ", " + column);
  }
  FirstTitle->setText(CurrentText(texts::kFirstProfile));
  SecondTitle->setText(CurrentText(texts::kSecondProfile));
  Picture1->setAccessibleName(FirstTitle->text());
  Picture2->setAccessibleName(SecondTitle->text());
  NameValues();
  Arrange();
}

/// Names what the labels show after its row and column, and tells each bar the value beside it.
void SailForm::NameValues() {
  for (std::size_t i = 0; i < kHeights; ++i) {
    const QString column = ", " + ColumnTitle[i]->text() + ": ";
    const std::array<std::pair<QLabel*, BilingualText>, 4> values = {
        {{LuffShapeValue[i], texts::kLuffSide},
         {LeechShapeValue[i], texts::kLeechSide},
         {DepthAt20[i], texts::kMouldRows[3]},
         {DepthAt80[i], texts::kMouldRows[4]}}};
    for (const auto& [label, row] : values)
      label->setAccessibleName(Spoken(CurrentText(row)) + column + label->text());
    VScroll1[i]->setAccessibleDescription(LuffShapeValue[i]->text());
    VScroll2[i]->setAccessibleDescription(LeechShapeValue[i]->text());
  }
  DepthPositionValue->setAccessibleName(CurrentText(texts::kDepthPosition) + ": " +
                                        DepthPositionValue->text());
  VScroll3->setAccessibleDescription(DepthPositionValue->text());
}

}  // namespace brivane
