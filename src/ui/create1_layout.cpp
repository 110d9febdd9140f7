// The dimensions window's looks: what stands where, in which words.

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "ui/accessible.h"
#include "ui/create1.h"
#include "ui/current_sail.h"
#include "ui/mnemonics.h"
#include "ui/qt_text.h"
#include "ui/scroll_box.h"
#include "ui/texts.h"

namespace brivane {

namespace {

using Field = DimensionField;

constexpr int kFieldWidth = 90;
constexpr int kTightFieldWidth = 64;
constexpr int kParted = 3;
constexpr std::array<const char*, 3> kResultNames = {"LeechLengthValue", "LpValue", "AreaValue"};
constexpr std::array<const char*, 3> kResultUnits = {"mm", "mm", "m²"};

QGridLayout* FieldGrid(QGroupBox* group) {
  auto* grid = new QGridLayout(group);
  grid->setVerticalSpacing(7);
  grid->setColumnStretch(0, 1);
  return grid;
}

void FinishGrid(QGridLayout* grid) { grid->setRowStretch(grid->rowCount(), 1); }

}  // namespace

void Create1::Build() {
  auto* left = new QVBoxLayout;
  left->addWidget(BuildGroup(
      0, {Field::Luff, Field::LuffRake, Field::Foot, Field::Diag, Field::Gaff, Field::GaffA}));
  left->addWidget(BuildResults());
  auto* middle = new QVBoxLayout;
  middle->addWidget(BuildGroup(1, {Field::LuffRond, Field::LuffRondPos, Field::LeechRond,
                                   Field::LeechRondPos, Field::FootRond, Field::GaffRond}));
  middle->addWidget(BuildCuts());
  lastColumn_ = new QVBoxLayout;
  lastColumn_->setSpacing(12);
  lastGroups_ = new QVBoxLayout;
  lastGroups_->setSpacing(12);
  lastGroups_->addWidget(
      BuildGroup(2, {Field::SDepth0, Field::SDepth1, Field::SDepth2, Field::Twistxt}));
  lastColumn_->addWidget(BuildGroup(3, {Field::ClothWidth, Field::SeamWidth}));
  lastColumn_->addStretch();
  lastGroups_->addLayout(lastColumn_, 1);
  Validation = new QPushButton;
  Validation->setMinimumSize(140, 36);
  Validation->setDefault(true);
  connect(Validation, &QPushButton::clicked, this, &Create1::Validate);
  lastColumn_->addWidget(Validation, 0, Qt::AlignRight | Qt::AlignBottom);

  columns_ = new QGridLayout;
  columns_->setSpacing(12);
  columns_->addLayout(left, 0, 0);
  columns_->addLayout(middle, 0, 1);
  for (QVBoxLayout* column : {left, middle}) column->setSpacing(12);
  auto* contents = new QWidget;
  auto* lines = new QVBoxLayout(contents);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(12);
  lines->addLayout(BuildNameRow());
  lines->addLayout(columns_, 1);
  columns_->addLayout(lastGroups_, 0, 2);
  page_ = new ScrollBox(contents);
  whole_ = new QVBoxLayout(this);
  whole_->setContentsMargins(16, 14, 16, 14);
  whole_->setSpacing(12);
  whole_->addWidget(page_, 1);
  NameControls();
}

/// Three columns, closer together where they must be, or two on a screen that is narrower still.
void Create1::Arrange() {
  // What has the focus would lose it by being placed anew.
  if (!arrangement_.IsOutdated(*this)) return;
  const QSize room = RoomFor(*this);
  constexpr std::array<std::pair<bool, bool>, 3> kWidestFirst = {
      {{false, false}, {false, true}, {true, true}}};
  for (const auto& [isNarrow, isTight] : kWidestFirst) {
    Place(isNarrow, isTight);
    page_->FitInto(QSize(QWIDGETSIZE_MAX, room.height()));
    if (layout()->totalMinimumSize().width() <= room.width()) break;
  }
  page_->FitInto(room);
  page_->ShowMore(room);
}

void Create1::Place(bool isNarrow, bool isTight) {
  for (const DimensionFieldInfo& info : DimensionFields())
    if (info.Field != Field::SailName)
      FieldOf(info.Field)->setFixedWidth(isTight ? kTightFieldWidth : kFieldWidth);
  const QMargins margins = isTight ? QMargins(5, 8, 5, 8) : QMargins(14, 10, 14, 12);
  for (QGroupBox* group : groups_) {
    group->layout()->setContentsMargins(margins);
    if (auto* grid = qobject_cast<QGridLayout*>(group->layout()))
      grid->setHorizontalSpacing(isTight ? 5 : 8);
  }
  whole_->setContentsMargins(isTight ? QMargins(8, 8, 8, 8) : QMargins(16, 14, 16, 14));
  columns_->setSpacing(isTight ? 8 : 12);

  columns_->removeItem(lastGroups_);
  lastGroups_->setParent(nullptr);
  lastGroups_->setDirection(isNarrow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  if (isNarrow)
    columns_->addLayout(lastGroups_, 1, 0, 1, 2);
  else
    columns_->addLayout(lastGroups_, 0, 2);
  lastGroups_->setStretch(0, isNarrow ? 1 : 0);
  lastGroups_->setSpacing(isNarrow ? columns_->horizontalSpacing() : 12);
  for (int column = 0; column < 3; ++column)
    columns_->setColumnStretch(column, isNarrow && column == 2 ? 0 : 1);
  // A narrow page is a long one: the button stays in sight below it.
  QBoxLayout* const place = isNarrow ? whole_ : lastColumn_;
  if (place->indexOf(Validation) >= 0) return;
  place->addWidget(Validation, 0, Qt::AlignRight | Qt::AlignBottom);
}

QLayout* Create1::BuildNameRow() {
  FieldRow& row = Row(Field::SailName);
  row.Caption = new QLabel;
  row.Edit = new QLineEdit;
  row.Caption->setBuddy(row.Edit);
  row.Edit->setMaximumWidth(360);
  auto* line = new QHBoxLayout;
  line->setSpacing(10);
  line->addWidget(row.Caption);
  line->addWidget(row.Edit, 1);
  line->addStretch(1);
  return line;
}

QGroupBox* Create1::BuildGroup(std::size_t index, const std::vector<DimensionField>& fields) {
  auto* group = new QGroupBox;
  QGridLayout* grid = FieldGrid(group);
  for (const DimensionField field : fields) AddField(grid, grid->rowCount(), field);
  FinishGrid(grid);
  groups_[index] = group;
  return group;
}

void Create1::AddField(QGridLayout* grid, int row, DimensionField field) {
  FieldRow& made = Row(field);
  made.Caption = new QLabel;
  made.Edit = new QLineEdit;
  made.Edit->setAlignment(Qt::AlignRight);
  made.Edit->setFixedWidth(kFieldWidth);
  made.Caption->setBuddy(made.Edit);
  grid->addWidget(made.Caption, row, 0);
  grid->addWidget(made.Edit, row, 1);
  grid->addWidget(new QLabel(ToQt(InfoOf(field).Unit)), row, 2);
}

QGroupBox* Create1::BuildResults() {
  auto* group = new QGroupBox;
  QGridLayout* grid = FieldGrid(group);
  for (std::size_t i = 0; i < results_.size(); ++i) {
    const int row = static_cast<int>(i);
    results_[i] = {new QLabel, new QLabel};
    results_[i].Value->setObjectName(kResultNames[i]);
    results_[i].Value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    results_[i].Value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont bold = results_[i].Value->font();
    bold.setBold(true);
    results_[i].Value->setFont(bold);
    grid->addWidget(results_[i].Caption, row, 0);
    grid->addWidget(results_[i].Value, row, 1);
    grid->addWidget(new QLabel(QString::fromUtf8(kResultUnits[i])), row, 2);
  }
  FinishGrid(grid);
  LeechLengthValue = results_[0].Value;
  LpValue = results_[1].Value;
  AreaValue = results_[2].Value;
  groups_[4] = group;
  return group;
}

QGroupBox* Create1::BuildCuts() {
  auto* group = new QGroupBox;
  auto* column = new QVBoxLayout(group);
  column->setSpacing(8);
  for (std::size_t i = 0; i < OptCut1.size(); ++i) {
    OptCut1[i] = new QRadioButton;
    OptCut1[i]->setObjectName(QString("OptCut1_%1").arg(i));
    connect(OptCut1[i], &QRadioButton::clicked, this, [this, i] { ChooseCut(i); });
    column->addWidget(OptCut1[i]);
  }
  TabToChecked({OptCut1.begin(), OptCut1.end()});
  column->addStretch();
  groups_[5] = group;
  return group;
}

void Create1::NameControls() {
  for (const DimensionFieldInfo& info : DimensionFields()) {
    const FieldRow& row = Row(info.Field);
    row.Edit->setObjectName(ToQt(info.ControlName));
    row.Caption->setObjectName("Label_" + ToQt(info.ControlName));
    row.Edit->installEventFilter(this);
  }
  Validation->setObjectName("Validation");
  SailName = FieldOf(Field::SailName);
  Luff = FieldOf(Field::Luff);
  LuffRake = FieldOf(Field::LuffRake);
  LuffRond = FieldOf(Field::LuffRond);
  LuffRondPos = FieldOf(Field::LuffRondPos);
  Foot = FieldOf(Field::Foot);
  FootRond = FieldOf(Field::FootRond);
  Diag = FieldOf(Field::Diag);
  Gaff = FieldOf(Field::Gaff);
  GaffRond = FieldOf(Field::GaffRond);
  GaffA = FieldOf(Field::GaffA);
  LeechRond = FieldOf(Field::LeechRond);
  LeechRondPos = FieldOf(Field::LeechRondPos);
  Twistxt = FieldOf(Field::Twistxt);
  ClothWidth = FieldOf(Field::ClothWidth);
  SeamWidth = FieldOf(Field::SeamWidth);
  SDepth = {FieldOf(Field::SDepth0), FieldOf(Field::SDepth1), FieldOf(Field::SDepth2)};
}

/// A value alone says nothing to who does not see the caption before it.
void Create1::NameResults() {
  for (std::size_t i = 0; i < results_.size(); ++i)
    results_[i].Value->setAccessibleName(Spoken(results_[i].Caption->text()) + ": " +
                                         results_[i].Value->text().trimmed() + " " +
                                         QString::fromUtf8(kResultUnits[i]));
}

void Create1::SetCaptions() {
  Mnemonics letters;
  setWindowTitle(TitleWith(texts::kDimensionsSuffix));
  const QString validate = CurrentText(texts::kValidate);
  Validation->setText(letters.Mark(validate));
  Validation->setAccessibleName(validate);
  for (std::size_t i = 0; i < OptCut1.size(); ++i) {
    const QString cut = CurrentText(texts::kCuts[i]);
    OptCut1[i]->setText(letters.Mark(cut));
    OptCut1[i]->setAccessibleName(cut);
    OptCut1[i]->setToolTip(CurrentText(texts::kCutHints[i]));
  }
  for (const DimensionFieldInfo& info : DimensionFields()) {
    const FieldRow& row = Row(info.Field);
    const QString caption = CurrentText(info.Caption);
    row.Caption->setText(letters.Mark(caption));
    // The underlined letter parts two that stand closer together where the width is measured.
    row.Caption->setMinimumWidth(row.Caption->sizeHint().width() + kParted);
    row.Caption->setToolTip(CurrentText(info.Tooltip));
    row.Edit->setAccessibleName(caption);
    row.Edit->setToolTip(CurrentText(info.Tooltip));
  }
  const std::array<BilingualText, 3> results = {kLeechLengthCaption, kLpCaption, kSailAreaCaption};
  for (std::size_t i = 0; i < results.size(); ++i)
    results_[i].Caption->setText(CurrentText(results[i]));
  NameResults();
  for (std::size_t i = 0; i < groups_.size(); ++i)
    groups_[i]->setTitle(CurrentText(texts::kDimensionGroups[i]));
  layout()->activate();
  Arrange();
}

}  // namespace brivane
