#include "ui/dessin1.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QScreen>
#include <QSignalBlocker>
#include <QTimer>

#include "ui/create1.h"
#include "ui/current_sail.h"
#include "ui/menu1.h"
#include "ui/messages.h"
#include "ui/open_command.h"
#include "ui/qt_text.h"
#include "ui/sail_drop.h"
#include "ui/save_command.h"
#include "ui/screen_room.h"
#include "view/layout_summary.h"
#include "view/navigation.h"
#include "view/picture_words.h"
#include "view/sail_drawing.h"

namespace brivane {

namespace {

/// Most of the screen, so that a picture is worth looking at, all of a small one, and never more
/// than it.
QSize FirstSize(const QWidget& window) {
  constexpr QSize kSmall(900, 600);
  constexpr QSize kLarge(1280, 860);
  const QSize most = window.screen()->availableSize() * 0.85;
  return most.expandedTo(kSmall).boundedTo(RoomFor(window)).boundedTo(kLarge);
}

/// The sail file that may be dropped now. A message or a dialog in front of the window keeps it
/// from being dropped into, as from everything else.
std::optional<std::string> DroppableSail(const QDropEvent& event) {
  const bool copies = event.possibleActions() & Qt::CopyAction;
  if (!copies || QApplication::activeModalWidget() != nullptr) return std::nullopt;
  return DraggedSailFile(*event.mimeData());
}

/// Takes the drop as a copy: who believes that a file was moved deletes it.
void AcceptAsCopy(QDropEvent& event) {
  event.setDropAction(Qt::CopyAction);
  event.accept();
}

double DiagonalLength() { return Current().TheSail.Definition.DiagonalLength; }

}  // namespace

Dessin1::Dessin1(Windows& windows) : windows_(windows) {
  setObjectName("Dessin1");
  BuildMenus();
  BuildPicture();
  resize(FirstSize(*this));
  setAcceptDrops(true);
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

void Dessin1::dragEnterEvent(QDragEnterEvent* event) {
  if (DroppableSail(*event)) return AcceptAsCopy(*event);
  event->ignore();
}

void Dessin1::dropEvent(QDropEvent* event) {
  const std::optional<std::string> path = DroppableSail(*event);
  if (!path) return event->ignore();
  AcceptAsCopy(*event);
  windows_.BringToFront(*this);
  windows_.CountAsFront(*this);
  OpenSoon(*path);
}

// --- Drawing -------------------------------------------------------------------------------------

void Dessin1::Draw() {
  ++drawCount_;
  const CurrentSail& current = Current();
  Drawing drawing;
  // Nothing stands between a drawing and a paint event: a sail that cannot be drawn shows nothing.
  WordsOfFailure([&] {
    drawing =
        SailDrawing(current.TheSail, current.View, Picture1->Size(), content_,
                    ScrollAngle(HScroll1->value()), ScrollAngle(VScroll1->value()), language_);
  });
  Picture1->Show(std::move(drawing));
}

void Dessin1::SpeakOnPicture() {
  if (language_ == Current().Language) return;
  language_ = Current().Language;
  Draw();
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

QString Dessin1::Described() const {
  std::string words;
  WordsOfFailure([&] {
    const CurrentSail& current = Current();
    words = SailPictureWords(current.TheSail, content_, ScrollAngle(HScroll1->value()),
                             ScrollAngle(VScroll1->value()), current.Language, current.DecimalMark);
  });
  return ToQt(words);
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

void Dessin1::OpenSoon(const std::string& path) {
  // The program that the file was dragged from waits for the end of the drop: a message must not
  // come up in it. What a window told as it was left comes first.
  constexpr int kRetryMs = 20;
  QTimer::singleShot(0, this, [this, path] {
    if (QApplication::activeModalWidget() == nullptr) return OpenSail(windows_, this, path);
    QTimer::singleShot(kRetryMs, this, [this, path] { OpenSoon(path); });
  });
}

}  // namespace brivane
