#include "ui/sail_form.h"

#include <QSignalBlocker>
#include <algorithm>

#include "export/save_kinds.h"
#include "model/dimension_rules.h"
#include "model/number_text.h"
#include "model/sail_file.h"
#include "ui/current_sail.h"
#include "ui/design_command.h"
#include "ui/dessin1.h"
#include "ui/file_dialogs.h"
#include "ui/messages.h"
#include "ui/qt_text.h"
#include "ui/texts.h"
#include "view/mould_drawing.h"

namespace brivane {

namespace {

constexpr double kLuffSteps = 10;    // bar steps in a luff-side shape of 1
constexpr double kLeechSteps = 500;  // bar steps in a leech-side shape of 1

SailDefinition& Definition() { return Current().TheSail.Definition; }

/// Shows a value on a bar without moving anything: one beyond the bar's range is kept.
void ShowOnBar(QScrollBar* bar, double value) {
  const QSignalBlocker silent(bar);
  const double held = std::clamp<double>(value, bar->minimum(), bar->maximum());
  bar->setValue(qRound(held));
}

void HoldMould() {
  HoldDepthPosition(Definition());
  ApplyDepthLimits(Definition());
}

QString Places(double value, int places) {
  return ToQt(FormatFixed(value, places, Current().DecimalMark));
}

}  // namespace

SailForm::SailForm(Windows& windows) : QDialog(nullptr, Qt::Window), windows_(windows) {
  setObjectName("SailForm");
  Build();
  Fill();
}

// --- Values --------------------------------------------------------------------------------------

void SailForm::Activated() { Fill(); }

void SailForm::Fill() {
  HoldMould();
  for (std::size_t i = 0; i < kHeights; ++i) {
    depths_[i].ShowUnlessTyped(ToQt(FieldText(Definition(), DepthField(i))));
    ShowOnBar(VScroll1[i], Definition().LuffShape[i] * kLuffSteps);
    ShowOnBar(VScroll2[i], Definition().LeechShape[i] * kLeechSteps);
  }
  ShowOnBar(VScroll3, Definition().DepthPosition);
  ShowValues();
}

void SailForm::ShowValues() {
  const SailDefinition& sail = Definition();
  for (std::size_t i = 0; i < kHeights; ++i) {
    LuffShapeValue[i]->setText(Places(sail.LuffShape[i], 1));
    LeechShapeValue[i]->setText(Places(sail.LeechShape[i], 3));
    const MouldSection section = SectionOfColumn(sail, static_cast<MouldHeight>(i));
    DepthAt20[i]->setText(Places(SectionDepthAt(section, 0.2), 1));
    DepthAt80[i]->setText(Places(SectionDepthAt(section, 0.8), 1));
  }
  DepthPositionValue->setText(Places(sail.DepthPosition, 0));
  NameValues();
  DrawProfiles();
}

void SailForm::DrawProfiles() {
  ++drawCount_;
  Picture1->Show(ProfileDrawing(DeepestSection(Definition()), Picture1->Size()));
  Picture2->Show(ProfileDrawing(TopSection(Definition()), Picture2->Size()));
}

bool SailForm::eventFilter(QObject* object, QEvent* event) {
  const auto found = std::find(Text2.begin(), Text2.end(), object);
  if (found == Text2.end()) return QDialog::eventFilter(object, event);
  const auto height = static_cast<std::size_t>(found - Text2.begin());
  if (event->type() == QEvent::KeyPress &&
      IsRefusedKey(DepthField(height), static_cast<QKeyEvent*>(event)))
    return true;
  if (IsDropElsewhere(event, Text2[height])) {
    LeaveFocusedDepth();
    Text2[height]->setFocus(Qt::OtherFocusReason);
  }
  if (LeavesField(event)) LeaveDepth(height);
  return QDialog::eventFilter(object, event);
}

void SailForm::LeaveDepth(std::size_t height) {
  TypedField& field = depths_[height];
  if (!field.IsTyped()) return;
  EnterField(Definition(), DepthField(height), FromQt(field.Edit->text()));
  field.Show(field.Shown);
  Fill();
}

void SailForm::LeaveFocusedDepth() {
  const auto found = std::find(Text2.begin(), Text2.end(), focusWidget());
  if (found != Text2.end()) LeaveDepth(static_cast<std::size_t>(found - Text2.begin()));
}

void SailForm::MoveLuffShape(std::size_t height) {
  Definition().LuffShape[height] = VScroll1[height]->value() / kLuffSteps;
  ShowValues();
}

void SailForm::MoveLeechShape(std::size_t height) {
  if (VScroll2[kTop]->value() < VScroll2[kMiddle]->value()) {
    const QSignalBlocker silent(VScroll2[kTop]);
    VScroll2[kTop]->setValue(VScroll2[kMiddle]->value());
    Definition().LeechShape[kTop] = VScroll2[kTop]->value() / kLeechSteps;
  }
  Definition().LeechShape[height] = VScroll2[height]->value() / kLeechSteps;
  ShowValues();
}

void SailForm::MoveDepthPosition() {
  Definition().DepthPosition = VScroll3->value();
  ShowValues();
}

// --- Commands ------------------------------------------------------------------------------------

void SailForm::Left() {
  if (passRuns_) return;
  LeaveFocusedDepth();
  HoldMould();
  passRuns_ = true;
  RunDesignPass(windows_, &windows_.Picture(), windowTitle());
  passRuns_ = false;
  if (!isVisible()) windows_.BringToFront(windows_.Picture());
  windows_.Picture().Developing->setFocus(Qt::OtherFocusReason);
}

void SailForm::LoadMould() {
  const QString openTitle = TitleWith(texts::kMouldOpenTitle);
  const QString loadTitle = TitleWith(texts::kMouldLoadTitle);
  RunGuarded(this, loadTitle, [this, &openTitle] {
    const QString proposed = ToQt(Definition().SailName + ".bv3");
    const std::optional<std::string> path =
        AskOpenPath(this, {{{"Brivane2000(.bv3)", "*.bv3"}}, proposed, "bv3"});
    if (!path) return;
    if (SailFileKindOf(FileTitle(*path)) != SailFileKind::Sail)
      return ShowMessage(this, openTitle, ToQt(texts::kCannotImport));
    ReadMould(*path);
  });
}

void SailForm::ReadMould(const std::string& path) {
  RunGuarded(this, TitleWith(kReadMouldTitle), [&path] {
    const WaitCursor wait;
    ReadMouldFromFile(path, Definition());
  });
  for (TypedField& depth : depths_) depth.Show(depth.Shown);
  Fill();
}

}  // namespace brivane
