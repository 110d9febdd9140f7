#include "ui/dessin1.h"

#include <QCloseEvent>
#include <QScreen>
#include <QSignalBlocker>

#include "ui/create1.h"
#include "ui/current_sail.h"
#include "ui/menu1.h"
#include "ui/messages.h"
#include "ui/qt_text.h"
#include "ui/save_command.h"
#include "view/layout_summary.h"
#include "view/navigation.h"
#include "view/sail_drawing.h"

namespace brivane {

namespace {

/// Most of the screen, so that a picture is worth looking at, and never more than it.
QSize FirstSize(const QScreen& screen) {
  return (screen.availableSize() * 0.85).boundedTo(QSize(1280, 860));
}

double DiagonalLength() { return Current().TheSail.Definition.DiagonalLength; }

}  // namespace

Dessin1::Dessin1(Windows& windows) : windows_(windows) {
  setObjectName("Dessin1");
  BuildMenus();
  BuildPicture();
  resize(FirstSize(*screen()));
}

void Dessin1::Activated() {
  const bool outlineShown = content_.Outline && content_.Labels;
  if (Current().View.Mode == RedrawMode::FitOutline && !outlineShown)
    Redraw(RedrawMode::FitOutline);
}

void Dessin1::closeEvent(QCloseEvent* event) {
  event->accept();
  windows_.EndProgram();
}

// --- Drawing -------------------------------------------------------------------------------------

void Dessin1::Draw() {
  ++drawCount_;
  const CurrentSail& current = Current();
  Drawing drawing;
  // Nothing stands between a drawing and a paint event: a sail that cannot be drawn shows nothing.
  WordsOfFailure([&] {
    drawing = SailDrawing(current.TheSail, current.View, Picture1->Size(), content_,
                          ScrollAngle(HScroll1->value()), ScrollAngle(VScroll1->value()),
                          current.Language);
  });
  Picture1->Show(std::move(drawing));
}

void Dessin1::Fit() {
  FitView(Current().TheSail.Definition, Picture1->Size(), Current().View);
  viewIsFit_ = true;
}

void Dessin1::Redraw(RedrawMode mode) {
  if (mode == RedrawMode::FitOutline) Fit();
  ViewState shown = Current().View;
  shown.Mode = mode;
  content_ = ContentOf(shown);
  Draw();
}

void Dessin1::SailChanged() {
  SetCaptions();
  ShowLayout();
  if (viewIsFit_) Fit();
  const bool laidOut = Current().TheSail.Definition.PanelCount > 0;
  Redraw(laidOut ? Current().View.Mode : RedrawMode::FitOutline);
}

void Dessin1::ShowLayout() {
  const CurrentSail& current = Current();
  layout_->setText(ToQt(LayoutSummary(current.TheSail, current.Language, current.DecimalMark)));
}

void Dessin1::FitAndShow() {
  ResetScrollBars();
  viewIsFit_ = true;
  SailChanged();
}

void Dessin1::ResetScrollBars() {
  for (QScrollBar* bar : {HScroll1, VScroll1}) {
    const QSignalBlocker silent(bar);
    bar->setValue(0);
  }
}

void Dessin1::Turn(QScrollBar* moved) {
  QScrollBar* const other = moved == HScroll1 ? VScroll1 : HScroll1;
  const QSignalBlocker silent(other);
  other->setValue(0);
  Current().View.DevelopShown = false;
  content_ = {.SeamLines = true};
  Draw();
}

void Dessin1::PanPicture(PlanePoint from, PlanePoint to) {
  Pan(Current().View, from, to);
  ViewMoved();
}

void Dessin1::ZoomPicture(PlanePoint from, PlanePoint to) {
  if (ZoomToRectangle(Current().View, Picture1->Size(), DiagonalLength(), from, to))
    return ViewMoved();
  content_.SeamLines = true;
  Draw();
}

void Dessin1::WheelPicture(PlanePoint at, double notches) {
  if (ZoomAbout(Current().View, DiagonalLength(), at, notches)) ViewMoved();
}

void Dessin1::ViewMoved() {
  viewIsFit_ = false;
  content_.SeamLines = true;
  Draw();
}

void Dessin1::PictureResized() {
  if (viewIsFit_) Fit();
  Draw();
}

// --- Commands ------------------------------------------------------------------------------------

void Dessin1::NewSail() {
  ResetCurrentSail();
  Current().View.DevelopShown = false;
  Current().View.Mode = RedrawMode::FitOutline;
  FitAndShow();
  windows_.Dimensions().Begin();
  ShowDimensions();
}

void Dessin1::Save(std::int16_t kind) {
  SaveData(this, kind);
  SetCaptions();
}

void Dessin1::SaveVrml2() {
  SaveCommand(this, SaveKind::Vrml2);
  SetCaptions();
}

void Dessin1::ShowDimensions() { windows_.BringToFront(windows_.Dimensions()); }

void Dessin1::Develop() {
  Current().View.DevelopShown = true;
  content_.Panels = true;
  Draw();
}

void Dessin1::CleanPicture() {
  Current().View.Mode = RedrawMode::Surface;
  Current().View.DevelopShown = false;
  FitAndShow();
}

void Dessin1::ShowLabels() { Redraw(RedrawMode::FitOutline); }

void Dessin1::ShowStart() { windows_.BringToFront(windows_.Start()); }

}  // namespace brivane
