#include "ui/create1.h"

#include <QApplication>
#include <QTimer>

#include "geometry/outline.h"
#include "ui/current_sail.h"
#include "ui/design_command.h"
#include "ui/dessin1.h"
#include "ui/messages.h"
#include "ui/qt_text.h"
#include "ui/texts.h"

namespace brivane {

namespace {

constexpr std::array<const char*, 3> kCutTypes = {kCrossCut, kTwistFootCut, kVerticalCut};

SailDefinition& Definition() { return Current().TheSail.Definition; }

}  // namespace

Create1::Create1(Windows& windows) : QDialog(nullptr, Qt::Window), windows_(windows) {
  setObjectName("Create1");
  Build();
  SetCaptions();
  resize(sizeHint());
  Begin();
}

void Create1::Begin() {
  for (const DimensionFieldInfo& info : DimensionFields()) Paint(info.Field, FieldColour::Normal);
  Refill();
  Luff->setFocus(Qt::OtherFocusReason);
  Luff->selectAll();
}

// --- Fields --------------------------------------------------------------------------------------

const DimensionField* Create1::FieldAt(const QObject* object) const {
  for (const DimensionFieldInfo& info : DimensionFields())
    if (Row(info.Field).Edit == object) return &info.Field;
  return nullptr;
}

bool Create1::eventFilter(QObject* object, QEvent* event) {
  const DimensionField* field = FieldAt(object);
  if (field == nullptr) return QDialog::eventFilter(object, event);
  if (event->type() == QEvent::KeyPress && IsRefusedKey(*field, static_cast<QKeyEvent*>(event)))
    return true;
  if (IsDropElsewhere(event, Row(*field).Edit)) {
    LeaveFocusedField();
    Row(*field).Edit->setFocus(Qt::OtherFocusReason);
  }
  if (LeavesField(event)) LeaveField(*field);
  return QDialog::eventFilter(object, event);
}

void Create1::Refill() {
  for (const DimensionFieldInfo& info : DimensionFields())
    Row(info.Field).Show(ToQt(FieldText(Definition(), info.Field)));
  FillResults();
}

void Create1::RefillUntyped() {
  for (const DimensionFieldInfo& info : DimensionFields())
    Row(info.Field).ShowUnlessTyped(ToQt(FieldText(Definition(), info.Field)));
  FillResults();
}

void Create1::FillResults() {
  LeechLengthValue->setText(ToQt(LeechLengthText(Definition())));
  LpValue->setText(ToQt(LpText(Definition())));
  AreaValue->setText(ToQt(SailAreaText(Definition(), Current().DecimalMark)));
  NameResults();
  for (std::size_t i = 0; i < OptCut1.size(); ++i) {
    // A keyword that no option stands for leaves them all off.
    OptCut1[i]->setAutoExclusive(false);
    OptCut1[i]->setChecked(Definition().CutType == kCutTypes[i]);
  }
  for (QRadioButton* option : OptCut1) option->setAutoExclusive(true);
}

void Create1::Paint(DimensionField field, FieldColour colour) {
  if (colour == FieldColour::Unchanged) return;
  QPalette palette;
  if (colour == FieldColour::Yellow) {
    palette.setColor(QPalette::Base, Qt::yellow);
    palette.setColor(QPalette::Text, Qt::black);
  }
  FieldOf(field)->setPalette(palette);
}

void Create1::LeaveField(DimensionField field) {
  FieldRow& row = Row(field);
  if (row.IsTyped()) {
    const FieldOutcome outcome = EnterField(Definition(), field, FromQt(row.Edit->text()));
    outlineStale_ = true;
    Paint(field, outcome.Colour);
    if (field == DimensionField::ClothWidth) Paint(field, FieldColour::Normal);
    for (const FieldNotice& notice : outcome.Notices)
      notices_.push_back({notice.Field, CurrentText(notice.Message)});
    row.Show(row.Shown);
    RefillUntyped();
  }
  RecomputeAfter(field);
  ShowNoticesSoon();
}

void Create1::LeaveFocusedField() {
  if (const DimensionField* field = FieldAt(focusWidget())) LeaveField(*field);
}

void Create1::RecomputeAfter(DimensionField field) {
  if (!outlineStale_ || !LeavingRecomputesOutline(field)) return;
  outlineStale_ = false;
  ++outlineCount_;
  const std::optional<QString> fault = WordsOfFailure([] { RecomputeOutline(Current().TheSail); });
  if (fault) notices_.push_back({std::nullopt, *fault});
  RefillUntyped();
  windows_.Picture().SailChanged();
}

void Create1::ShowNoticesSoon() {
  if (notices_.empty()) return;
  // While a mouse button is down the click that took the focus away is not finished; a message
  // would swallow its release.
  constexpr int kRetryMs = 20;
  QTimer::singleShot(0, this, [this] {
    if (QApplication::mouseButtons() == Qt::NoButton) return ShowNotices();
    QTimer::singleShot(kRetryMs, this, &Create1::ShowNoticesSoon);
  });
}

void Create1::ShowNotices() {
  std::vector<Notice> notices;
  notices.swap(notices_);
  for (const auto& [field, text] : notices) {
    if (field) Paint(*field, FieldColour::Yellow);
    ShowMessage(this, windowTitle(), text);
    if (field) Paint(*field, FieldColour::Normal);
  }
}

// --- Cut and validation --------------------------------------------------------------------------

void Create1::ChooseCut(std::size_t index) { Definition().CutType = kCutTypes[index]; }

void Create1::Activated() { RefillUntyped(); }

void Create1::Left() {
  if (passRuns_) return;
  RunPass();
  if (isVisible()) return windows_.ShowBehind(windows_.Picture());
  windows_.BringToFront(windows_.Picture());
}

void Create1::Validate() {
  if (passRuns_) return;
  const bool fits = RunPass();
  if (!fits) return windows_.ShowBehind(windows_.Picture());
  // Messages of the pass brought this window back to the front; the pass is not to run again.
  windows_.CountAsLeft(*this);
  windows_.BringToFront(windows_.Picture());
}

bool Create1::RunPass() {
  passRuns_ = true;
  LeaveFocusedField();
  ShowNotices();
  ++passCount_;
  outlineStale_ = false;
  const bool laidOut = RunDesignPass(windows_, this, windowTitle());
  passRuns_ = false;
  return laidOut;
}

void Create1::ShowPass(bool tooManyPanels) {
  Refill();
  Paint(DimensionField::ClothWidth, tooManyPanels ? FieldColour::Yellow : FieldColour::Normal);
}

}  // namespace brivane
