#include "ui/patch1.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "export/patch_files.h"
#include "model/number_text.h"
#include "patches/patch_outline.h"
#include "ui/current_sail.h"
#include "ui/file_dialogs.h"
#include "ui/messages.h"
#include "ui/mnemonics.h"
#include "ui/qt_text.h"
#include "ui/scroll_box.h"
#include "ui/texts.h"
#include "view/patch_drawing.h"
#include "view/picture_words.h"

namespace brivane {

namespace {

constexpr int kFieldWidth = 64;
constexpr std::size_t kPeak = 3;
constexpr DimensionField kAnyNumber = DimensionField::LuffRondPos;  // its key filter serves

QString Numbered(const char* name, std::size_t index) {
  return QString("%1_%2").arg(name).arg(index);
}

}  // namespace

Patch1::Patch1(Windows&) : QDialog(nullptr, Qt::Window) {
  setObjectName("Patch1");
  Build();
  Fill();
}

// --- Building ------------------------------------------------------------------------------------

void Patch1::Build() {
  Picture1 = new PictureBox;
  Picture1->setCursor(Qt::ArrowCursor);
  Picture1->OnResize = [this] { DrawPatches(); };
  Picture1->Describe = [] {
    return ToQt(PatchPictureWords(Current().TheSail, Current().Language));
  };
  sizes_.reserve(2 * kCorners);
  auto* contents = new QWidget;
  auto* corners = new QVBoxLayout(contents);
  corners->setContentsMargins(0, 0, 0, 0);
  corners->setSpacing(10);
  for (std::size_t corner = 0; corner < kCorners; ++corner) corners->addWidget(BuildCorner(corner));
  corners->addStretch();
  fields_ = new ScrollBox(contents);
  auto* right = new QVBoxLayout;
  right->setSpacing(10);
  right->addWidget(fields_, 1);
  right->addLayout(BuildButtons());
  auto* whole = new QHBoxLayout(this);
  whole->setContentsMargins(14, 14, 14, 14);
  whole->setSpacing(14);
  whole->addWidget(Picture1, 1);
  whole->addLayout(right);
  SetCaptions();
}

/// Where the screen has no room for all of it, the fields scroll beside a smaller picture.
void Patch1::Arrange() {
  if (!arrangement_.IsOutdated(*this)) return;
  const QSize room = RoomFor(*this);
  for (const QSize& picture : {QSize(320, 360), QSize(200, 160)}) {
    Picture1->setMinimumSize(picture);
    fields_->FitInto(room);
    const QSize least = layout()->totalMinimumSize();
    if (least.boundedTo(room) == least) break;
  }
  fields_->ShowMore(room);
}

QWidget* Patch1::BuildCorner(std::size_t corner) {
  auto* cell = new QWidget;
  auto* grid = new QGridLayout(cell);
  grid->setContentsMargins(0, 0, 0, 4);
  grid->setHorizontalSpacing(8);
  grid->setColumnStretch(0, 1);
  Label1[corner] = new QLabel;
  Label2[corner] = new QLabel;
  Label3[corner] = new QLabel;
  Label1[corner]->setObjectName(Numbered("Label1", corner));
  Label2[corner]->setObjectName(Numbered("Label2", corner));
  Label3[corner]->setObjectName(Numbered("Label3", corner));
  QFont bold = Label1[corner]->font();
  bold.setBold(true);
  Label1[corner]->setFont(bold);
  Text2[corner] = AddSize(Numbered("Text2", corner), corner, true);
  Text3[corner] = AddSize(Numbered("Text3", corner), corner, false);
  Label2[corner]->setBuddy(Text2[corner]);
  Label3[corner]->setBuddy(Text3[corner]);
  grid->addWidget(Label1[corner], 0, 0, 1, 2);
  grid->addWidget(Label2[corner], 1, 0);
  grid->addWidget(Text2[corner], 1, 1);
  grid->addWidget(Label3[corner], 2, 0);
  grid->addWidget(Text3[corner], 2, 1);
  return cell;
}

QLineEdit* Patch1::AddSize(const QString& name, std::size_t corner, bool isHeight) {
  auto* edit = new QLineEdit;
  edit->setObjectName(name);
  edit->setAlignment(Qt::AlignRight);
  edit->setFixedWidth(kFieldWidth);
  edit->installEventFilter(this);
  sizes_.push_back({{edit, {}}, corner, isHeight});
  connect(edit, &QLineEdit::returnPressed, this, &Patch1::LeaveFocusedSize);
  return edit;
}

QLayout* Patch1::BuildButtons() {
  for (std::size_t i = 0; i < Validate1.size(); ++i) {
    Validate1[i] = new QPushButton;
    Validate1[i]->setObjectName(Numbered("Validate1", i));
  }
  connect(Validate1[0], &QPushButton::clicked, this, &Patch1::SavePlotterFile);
  connect(Validate1[1], &QPushButton::clicked, this, &Patch1::SaveDxfFiles);
  Cancel = new QPushButton;
  Cancel->setObjectName("Cancel");
  connect(Cancel, &QPushButton::clicked, this, &QDialog::close);
  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  for (QPushButton* button : {Validate1[0], Validate1[1], Cancel}) {
    button->setAutoDefault(false);
    button->setMinimumHeight(32);
    column->addWidget(button);
  }
  return column;
}

void Patch1::SetCaptions() {
  setWindowTitle(TitleWith(texts::kPatchSuffix));
  Mnemonics letters;
  const std::array<std::pair<QPushButton*, BilingualText>, 3> buttons = {
      {{Validate1[0], texts::kPatchPlotter},
       {Validate1[1], texts::kPatchDxf},
       {Cancel, texts::kQuit}}};
  for (const auto& [button, caption] : buttons) {
    button->setText(letters.Mark(CurrentText(caption)));
    button->setAccessibleName(CurrentText(caption));
  }
  for (std::size_t i = 0; i < kCorners; ++i) {
    Label1[i]->setText(CurrentText(texts::kPatchCorner[i]));
    Label2[i]->setText(CurrentText(texts::kPatchHeight[i]));
    Label3[i]->setText(CurrentText(texts::kPatchWidth[i]));
    Text2[i]->setAccessibleName(Label1[i]->text() + ", " + Label2[i]->text());
    Text3[i]->setAccessibleName(Label1[i]->text() + ", " + Label3[i]->text());
    for (QLineEdit* edit : {Text2[i], Text3[i]}) edit->setToolTip(CurrentText(texts::kPatchHint));
  }
  Picture1->setAccessibleName(CurrentText(texts::kPatchPicture));
  Arrange();
}

// --- Values --------------------------------------------------------------------------------------

void Patch1::Activated() { Fill(); }

void Patch1::Left() { LeaveFocusedSize(); }

std::int16_t& Patch1::Stored(const Size& size) {
  PatchSizes& patches = Current().TheSail.Patches;
  return size.IsHeight ? patches.PatchHeight[size.Corner] : patches.PatchWidth[size.Corner];
}

void Patch1::Fill() {
  for (Size& size : sizes_) size.Field.ShowUnlessTyped(QString::number(Stored(size)));
  const bool hasPeak = !IsTriangular(Current().TheSail.Definition);
  for (QWidget* peak : std::initializer_list<QWidget*>{Label1[kPeak], Label2[kPeak], Label3[kPeak],
                                                       Text2[kPeak], Text3[kPeak]})
    peak->setEnabled(hasPeak);
  DrawPatches();
}

void Patch1::DrawPatches() {
  ++drawCount_;
  Drawing drawing;
  // A sail without finite outlines has been told when it was computed, and the files tell it again.
  WordsOfFailure([this, &drawing] { drawing = PatchDrawing(Current().TheSail, Picture1->Size()); });
  Picture1->Show(std::move(drawing));
}

bool Patch1::eventFilter(QObject* object, QEvent* event) {
  for (Size& size : sizes_) {
    if (size.Field.Edit != object) continue;
    if (event->type() == QEvent::KeyPress &&
        IsRefusedKey(kAnyNumber, static_cast<QKeyEvent*>(event)))
      return true;
    if (IsDropElsewhere(event, size.Field.Edit)) {
      LeaveFocusedSize();
      size.Field.Edit->setFocus(Qt::OtherFocusReason);
    }
    if (LeavesField(event)) LeaveSize(size);
  }
  return QDialog::eventFilter(object, event);
}

void Patch1::LeaveSize(Size& size) {
  if (!size.Field.IsTyped()) return;
  std::string typed = FromQt(size.Field.Edit->text());
  Stored(size) = PatchPercent(Val(NormaliseDecimalText(typed)));
  size.Field.Show(size.Field.Shown);
  Fill();
}

void Patch1::LeaveFocusedSize() {
  for (Size& size : sizes_)
    if (size.Field.Edit == focusWidget()) LeaveSize(size);
}

// --- Files ---------------------------------------------------------------------------------------

void Patch1::SavePlotterFile() {
  LeaveFocusedSize();
  const WaitCursor wait;
  Tell(SavePatchPlotterFile(Current().TheSail, FromQt(CurrentFolder()), Current().Language,
                            Current().DecimalMark));
}

void Patch1::SaveDxfFiles() {
  LeaveFocusedSize();
  const WaitCursor wait;
  Tell(SavePatchDxfFiles(Current().TheSail, FromQt(CurrentFolder()), Current().Language,
                         Current().DecimalMark));
}

void Patch1::Tell(const SaveOutcome& outcome) {
  const std::optional<Message>& message = outcome.Failure ? outcome.Failure : outcome.Confirmation;
  if (message) ShowMessage(this, ToQt(message->Title), ToQt(message->Text));
}

}  // namespace brivane
