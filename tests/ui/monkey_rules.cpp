#include "ui/monkey_rules.h"

#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "model/number_text.h"
#include "ui/current_sail.h"
#include "ui/desk.h"
#include "ui/printer_setup.h"
#include "ui/qt_text.h"
#include "ui/texts.h"
#include "view/layout_summary.h"
#include "view/mould_drawing.h"
#include "view/navigation.h"
#include "view/patch_drawing.h"
#include "view/sail_drawing.h"

namespace brivane {

namespace {

bool operator==(const Stroke& a, const Stroke& b) {
  return a.Points == b.Points && a.Ink == b.Ink && a.Pen == b.Pen;
}

bool operator==(const DrawnText& a, const DrawnText& b) {
  return a.At == b.At && a.Text == b.Text && a.Ink == b.Ink && a.Size == b.Size &&
         a.Follows == b.Follows;
}

bool Same(const Drawing& a, const Drawing& b) {
  const auto same = [](const auto& x, const auto& y) { return x == y; };
  return std::equal(a.Strokes.begin(), a.Strokes.end(), b.Strokes.begin(), b.Strokes.end(), same) &&
         std::equal(a.Texts.begin(), a.Texts.end(), b.Texts.begin(), b.Texts.end(), same);
}

const SailDefinition& Record() { return Current().TheSail.Definition; }

// --- Numbers -------------------------------------------------------------------------------------

bool IsFinite(double value) { return std::isfinite(value); }

template <typename... Values>
bool AreFinite(Values... values) {
  return (IsFinite(values) && ...);
}

template <typename Values>
bool AllFinite(const Values& values) {
  return std::all_of(values.begin(), values.end(), IsFinite);
}

QString FaultOfRecord() {
  const SailDefinition& sail = Record();
  const bool finite =
      AreFinite(sail.LuffLength, sail.LuffRake, sail.FootLength, sail.LeechLength,
                sail.DiagonalLength, sail.GaffLength, sail.GaffAngle, sail.LeechAngle,
                sail.FootAngle, sail.SailArea, sail.LuffRound, sail.LeechRound, sail.FootRound,
                sail.DepthPosition, sail.TwistAngle) &&
      AreFinite(sail.ClewPoint.x, sail.ClewPoint.y, sail.ClewPoint.z, sail.PeakPoint.x,
                sail.PeakPoint.y, sail.PeakPoint.z) &&
      AllFinite(sail.Depth) && AllFinite(sail.LuffShape) && AllFinite(sail.LeechShape);
  if (!finite) return "the record holds what is not finite";
  if (sail.PanelCount < 0 || sail.PanelCount > kMostPanels)
    return QString("%1 panels").arg(sail.PanelCount);
  const ViewState& view = Current().View;
  if (!AreFinite(view.ViewOffsetX, view.ViewOffsetY, view.ViewScale, view.DevelopOriginX,
                 view.DevelopOriginY))
    return "the view is not finite";
  return {};
}

template <typename Table>
bool IsFiniteTable(const Table& table, int lastRow, int firstColumn, int lastColumn) {
  for (int row = 0; row <= lastRow; ++row)
    for (int column = firstColumn; column <= lastColumn; ++column)
      if (!IsFinite(table(row, column))) return false;
  return true;
}

QString FaultOfTables() {
  const SurfaceGrid& grid = Current().TheSail.Grid;
  for (const auto* table : {&grid.SurfaceX, &grid.SurfaceY, &grid.SurfaceZ})
    if (!IsFiniteTable(*table, 91, -1, 43)) return "the grid holds what is not finite";
  const DevelopedPanels& panels = Current().TheSail.Panels;
  for (const auto* table : {&panels.PanelLowerX, &panels.PanelLowerY, &panels.PanelUpperX,
                            &panels.PanelUpperY, &panels.PanelEdgeX, &panels.PanelEdgeY})
    if (!IsFiniteTable(*table, 90, 0, 42)) return "the panels hold what is not finite";
  return {};
}

// --- Windows and dialogs -------------------------------------------------------------------------

bool IsKnownDialog(const QWidget* dialog) {
  static const QSet<QString> kKnown = {"FileDialog", "ReplaceQuestion", "Message", "PrinterSetup"};
  if (kKnown.contains(dialog->objectName())) return true;
  // What the toolkit's own file dialog asks.
  const QWidget* parent = dialog->parentWidget();
  return parent != nullptr && parent->window()->objectName() == "FileDialog";
}

QString FaultOfDialogs() {
  const QWidget* modal = QApplication::activeModalWidget();
  if (modal != nullptr && !modal->isVisible()) return "an invisible modal dialog";
  if (modal != nullptr && !IsKnownDialog(modal))
    return "an unknown modal window: " + modal->objectName() + " " + modal->windowTitle();
  if (modal == nullptr && QApplication::overrideCursor() != nullptr)
    return "the cursor is still another one";
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    const bool isDialog = qobject_cast<const QDialog*>(window) != nullptr && IsKnownDialog(window);
    if (isDialog && modal == nullptr) return "a dialog was left over: " + window->objectName();
  }
  return {};
}

QString FaultOfVisibility(const SeenWindows& windows) {
  const auto isUp = [](const QWidget* window) { return window != nullptr && window->isVisible(); };
  const bool above = isUp(windows.Dimensions) || isUp(windows.Mould) || isUp(windows.Patches);
  if (!isUp(windows.Start) && !isUp(windows.Picture) && !above) return "no window is left";
  if (above && !isUp(windows.Picture)) return "the drawing window is missing";
  return {};
}

// --- Fields --------------------------------------------------------------------------------------

QString Differs(const QString& what, const QString& shown, const QString& wanted) {
  if (shown == wanted) return {};
  return what + " shows \"" + shown + "\", the record \"" + wanted + "\"";
}

/// A field, except the one that is being typed in, shows what the record holds.
QString FaultOfField(const QLineEdit* field, const QString& wanted) {
  if (field->window()->focusWidget() == field) return {};
  return Differs("field " + field->objectName(), field->text(), wanted);
}

QString FaultOfDimensions(const Create1& window) {
  QString fault;
  for (const DimensionFieldInfo& info : DimensionFields())
    if (fault.isEmpty())
      fault = FaultOfField(window.FieldOf(info.Field), ToQt(FieldText(Record(), info.Field)));
  constexpr std::array<const char*, 3> kCuts = {kCrossCut, kTwistFootCut, kVerticalCut};
  for (std::size_t i = 0; i < kCuts.size(); ++i)
    if (window.OptCut1[i]->isChecked() != (Record().CutType == kCuts[i]))
      fault = QString("option %1 of the cut, with %2").arg(i).arg(ToQt(Record().CutType));
  if (fault.isEmpty())
    fault = Differs("leech", window.LeechLengthValue->text(), ToQt(LeechLengthText(Record())));
  if (fault.isEmpty()) fault = Differs("LP", window.LpValue->text(), ToQt(LpText(Record())));
  if (fault.isEmpty())
    fault = Differs("area", window.AreaValue->text(),
                    ToQt(SailAreaText(Record(), Current().DecimalMark)));
  return fault;
}

bool BarShows(const QScrollBar* bar, double value) {
  return bar->value() == qRound(std::clamp<double>(value, bar->minimum(), bar->maximum()));
}

QString Places(double value, int places) {
  return ToQt(FormatFixed(value, places, Current().DecimalMark));
}

QString FaultOfMould(const SailForm& window) {
  QString fault;
  const auto check = [&fault](const QString& found) {
    if (fault.isEmpty()) fault = found;
  };
  for (std::size_t i = 0; i < SailForm::kHeights; ++i) {
    check(FaultOfField(window.Text2[i], ToQt(FieldText(Record(), DepthField(i)))));
    if (!BarShows(window.VScroll1[i], Record().LuffShape[i] * 10)) check("a bar of the luff side");
    if (!BarShows(window.VScroll2[i], Record().LeechShape[i] * 500))
      check("a bar of the leech side");
    check(
        Differs("luff shape", window.LuffShapeValue[i]->text(), Places(Record().LuffShape[i], 1)));
    check(Differs("leech shape", window.LeechShapeValue[i]->text(),
                  Places(Record().LeechShape[i], 3)));
    const MouldSection section = SectionOfColumn(Record(), static_cast<MouldHeight>(i));
    check(Differs("20 %", window.DepthAt20[i]->text(), Places(SectionDepthAt(section, 0.2), 1)));
    check(Differs("80 %", window.DepthAt80[i]->text(), Places(SectionDepthAt(section, 0.8), 1)));
  }
  if (window.VScroll3->value() != Record().DepthPosition) check("the bar of the depth position");
  check(Differs("position", window.DepthPositionValue->text(), Places(Record().DepthPosition, 0)));
  if (!Same(window.Picture1->Shown(),
            ProfileDrawing(DeepestSection(Record()), window.Picture1->Size())))
    check("the first profile is an old one");
  if (!Same(window.Picture2->Shown(),
            ProfileDrawing(TopSection(Record()), window.Picture2->Size())))
    check("the second profile is an old one");
  return fault;
}

QString FaultOfPatches(const Patch1& window) {
  const PatchSizes& sizes = Current().TheSail.Patches;
  QString fault;
  for (std::size_t i = 0; i < Patch1::kCorners && fault.isEmpty(); ++i) {
    fault = FaultOfField(window.Text2[i], QString::number(sizes.PatchHeight[i]));
    if (fault.isEmpty())
      fault = FaultOfField(window.Text3[i], QString::number(sizes.PatchWidth[i]));
    for (const std::int16_t size : {sizes.PatchHeight[i], sizes.PatchWidth[i]})
      if (size < 1 || size > 50) fault = "a patch of an impossible size";
  }
  if (window.Text2[3]->isEnabled() == IsTriangular(Record())) fault = "the fields of the peak";
  Drawing wanted;
  WordsOfFailure([&] { wanted = PatchDrawing(Current().TheSail, window.Picture1->Size()); });
  if (fault.isEmpty() && !Same(window.Picture1->Shown(), wanted))
    fault = "an old picture of patches";
  return fault;
}

QString FaultOfStart(const Menu1& window) {
  for (std::size_t i = 0; i < 2; ++i)
    if (window.Langue1[i]->isChecked() != (static_cast<std::size_t>(Current().Language) == i))
      return "the language is not the one that is marked";
  return {};
}

QString FaultOfPicture(const Dessin1& window) {
  const QString title = TitleWith(texts::kDrawingSuffix) + ToQt(Record().SailName);
  if (window.windowTitle() != title) return "the drawing window is called " + window.windowTitle();
  const auto* summary = window.findChild<QLabel*>("LayoutSummary");
  QString fault =
      Differs("summary", summary->text(),
              ToQt(LayoutSummary(Current().TheSail, Current().Language, Current().DecimalMark)));
  Drawing wanted;
  WordsOfFailure([&] {
    wanted = SailDrawing(Current().TheSail, Current().View, window.Picture1->Size(),
                         window.Content(), ScrollAngle(window.HScroll1->value()),
                         ScrollAngle(window.VScroll1->value()), Current().Language);
  });
  if (fault.isEmpty() && !Same(window.Picture1->Shown(), wanted))
    fault =
        QString("the picture is not that of the current sail: %1 strokes and %2 texts, %3 and %4")
            .arg(window.Picture1->Shown().Strokes.size())
            .arg(window.Picture1->Shown().Texts.size())
            .arg(wanted.Strokes.size())
            .arg(wanted.Texts.size());
  return fault;
}

/// The window in front agrees with the record.
QString FaultOfFront(const SeenWindows& windows) {
  // While a message is up the window behind it may be in the middle of something.
  if (windows.Front == nullptr || QApplication::activeModalWidget() != nullptr) return {};
  if (windows.Front == windows.Start) return FaultOfStart(*windows.Start);
  if (windows.Front == windows.Dimensions) return FaultOfDimensions(*windows.Dimensions);
  if (windows.Front == windows.Mould) return FaultOfMould(*windows.Mould);
  if (windows.Front == windows.Patches) return FaultOfPatches(*windows.Patches);
  if (windows.Front == windows.Picture) return FaultOfPicture(*windows.Picture);
  return {};
}

// --- Words ---------------------------------------------------------------------------------------

/// Every caption, hint and name of a window, in an order of its own, without those of dialogs that
/// belong to it.
QStringList WordsOf(const QWidget& window) {
  QStringList words = {window.windowTitle()};
  for (const QWidget* child : window.findChildren<QWidget*>()) {
    if (child->window() != &window) continue;
    words << child->toolTip() << child->accessibleName() << child->accessibleDescription();
    if (const auto* label = qobject_cast<const QLabel*>(child)) words << Plain(label->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(child))
      words << Plain(button->text());
    if (const auto* group = qobject_cast<const QGroupBox*>(child)) words << Plain(group->title());
  }
  for (const QAction* action : window.findChildren<QAction*>()) words << Plain(action->text());
  return words;
}

/// The words of all windows in one language, in the same order in both.
QStringList AllWords(Language language) {
  Desk desk(language);
  QStringList words;
  const std::vector<QWidget*> windows = {&desk.Start(), &desk.Dimensions(), &desk.Picture(),
                                         &desk.Mould(), &desk.Patches()};
  for (QWidget* window : windows) {
    window->show();
    words << WordsOf(*window);
  }
  words << WordsOf(PrinterSetup(nullptr, PrinterSettings{}));
  for (const BilingualText& text :
       {texts::kYes, texts::kNo, texts::kOpenDialog, texts::kSaveDialog, texts::kOpenButton,
        texts::kSaveButton, texts::kCancelButton, texts::kReplaceOne, texts::kReplaceSeveral,
        BilingualText{"Look in:", "Voir dans :"},
        BilingualText{"Files of type:", "Fichiers de type :"}})
    words << Plain(CurrentText(text));
  return words;
}

}  // namespace

SeenWindows::SeenWindows() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (auto* start = dynamic_cast<Menu1*>(window)) Start = start;
    if (auto* dimensions = dynamic_cast<Create1*>(window)) Dimensions = dimensions;
    if (auto* picture = dynamic_cast<Dessin1*>(window)) Picture = picture;
    if (auto* mould = dynamic_cast<SailForm*>(window)) Mould = mould;
    if (auto* patches = dynamic_cast<Patch1*>(window)) Patches = patches;
  }
  Front = QApplication::activeWindow();
  while (Front != nullptr && Front->parentWidget() != nullptr)
    Front = Front->parentWidget()->window();
}

std::vector<QWidget*> SeenWindows::All() const {
  std::vector<QWidget*> all = {Picture, Dimensions, Mould, Patches, Start};
  std::erase(all, nullptr);
  return all;
}

QString Scene() {
  QStringList scene;
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName().isEmpty() && !window->isVisible()) continue;
    QStringList words = {window->objectName()};
    if (!window->isVisible()) words << "hidden";
    if (window->isMinimized()) words << "minimised";
    if (window == QApplication::activeWindow()) words << "in front";
    if (window == QApplication::activeModalWidget()) words << "modal";
    if (window->windowHandle() != nullptr &&
        window->windowHandle() == QGuiApplication::focusWindow())
      words << "with the keyboard";
    if (window->focusWidget() != nullptr)
      words << "focus on " + window->focusWidget()->objectName();
    if (window->parentWidget() != nullptr) words << "of " + window->parentWidget()->objectName();
    if (const auto* message = qobject_cast<const QMessageBox*>(window))
      words << QString("\"%1\"").arg(message->text());
    scene << words.join(' ');
  }
  scene.sort();
  return scene.join(", ");
}

MonkeyRules::MonkeyRules() {
  const QStringList english = AllWords(Language::English);
  const QStringList french = AllWords(Language::French);
  if (english.size() != french.size()) qFatal("the windows differ between the languages");
  for (qsizetype i = 0; i < english.size(); ++i) {
    if (english[i] == french[i]) continue;
    onlyEnglish_ << english[i];
    onlyFrench_ << french[i];
  }
  const QSet<QString> both = QSet<QString>(onlyEnglish_) & onlyFrench_;
  onlyEnglish_ -= both + QSet<QString>{""};
  onlyFrench_ -= both + QSet<QString>{""};
}

QString MonkeyRules::ForeignWord(const QWidget& window) const {
  const QSet<QString>& foreign =
      Current().Language == Language::English ? onlyFrench_ : onlyEnglish_;
  for (const QString& word : WordsOf(window))
    if (foreign.contains(word)) return word;
  return {};
}

QString MonkeyRules::MixtureOf(const QWidget& window) const {
  QString english, french;
  for (const QString& word : WordsOf(window)) {
    if (onlyEnglish_.contains(word)) english = word;
    if (onlyFrench_.contains(word)) french = word;
  }
  return english.isEmpty() || french.isEmpty() ? QString() : english + " beside " + french;
}

QString MonkeyRules::FaultOfLanguage(const SeenWindows& windows) const {
  for (const QWidget* front : {static_cast<const QWidget*>(windows.Front),
                               static_cast<const QWidget*>(QApplication::activeModalWidget())}) {
    if (front == nullptr) continue;
    const QString word = ForeignWord(*front);
    if (!word.isEmpty())
      return "a word of the other language in " + front->objectName() + ": " + word;
  }
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    const QString mixture = window->isVisible() ? MixtureOf(*window) : QString();
    if (!mixture.isEmpty()) return "two languages in a window: " + mixture;
  }
  return {};
}

QString MonkeyRules::Fault() const {
  const SeenWindows windows;
  QString fault = FaultOfRecord();
  if (fault.isEmpty()) fault = FaultOfTables();
  if (fault.isEmpty()) fault = FaultOfDialogs();
  if (fault.isEmpty()) fault = FaultOfVisibility(windows);
  if (fault.isEmpty()) fault = FaultOfFront(windows);
  if (fault.isEmpty()) fault = FaultOfLanguage(windows);
  return fault;
}

}  // namespace brivane
