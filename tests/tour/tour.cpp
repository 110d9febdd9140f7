// Drives the real windows through the main job with real key and mouse events, and leaves pictures
// and files: tour FOLDER, with the folders "pictures", "files" and "paper" in it. With a name
// behind it, it takes pictures of every window alone: tour FOLDER x2. The name "dark" darkens the
// colours.

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QRadioButton>
#include <QTimer>
#include <cstdio>

#include "tour/camera.h"
#include "tour/hand.h"
#include "tour/looks.h"
#include "ui/menu1.h"
#include "ui/save_command.h"
#include "ui/windows.h"

namespace brivane::tour {
namespace {

struct CutStop {
  const char* Option;
  const char* Name;
};
constexpr std::array<CutStop, 3> kCuts = {
    {{"OptCut1_1", "twistfoot"}, {"OptCut1_0", "crosscut"}, {"OptCut1_2", "vertical"}}};

/// A sail of the older file generation, 28 lines.
constexpr const char* kOldSail =
    "Brivane 4 VERSION_ 12 March 1999\r\nOldSail\r\nCROSSCUT\r\ndefault_vertical\r\n"
    " 5200\r\n 6100\r\n 3100\r\n 2400\r\n .6\r\n 0\r\n 0\r\n 0\r\n 60\r\n 50\r\n 80\r\n 50\r\n"
    " 120\r\n 50\r\n 60\r\n 50\r\n 9\r\n 3\r\n .06\r\n 4\r\n .2\r\n 900\r\n 20\r\n 0\r\n";

class Tour {
 public:
  explicit Tour(const QDir& folder)
      : files_(folder.filePath("files")),
        paper_(folder.filePath("paper")),
        camera_(folder.filePath("pictures")) {}

  void Take() {
    Begin();
    TypeDimensions();
    LookAtDrawing();
    VisitCuts();
    VisitMould("english");
    OpenSails();
    VisitPatches("english");
    Stop("The listing on paper");
    PrintListing("english");
    GoFrench();
    Leave();
  }

 private:
  void Stop(const char* words) {
    std::printf("%s\n", words);
    std::fflush(stdout);
  }

  QWidget& Start() { return hand_.Window("Menu1"); }
  QWidget& Dimensions() { return hand_.Window("Create1"); }
  QWidget& Drawing() { return hand_.Window("Dessin1"); }
  QWidget& Picture() { return hand_.In<QWidget>(Drawing(), "Picture1"); }
  void ClickIn(QWidget& window, const char* button) {
    hand_.Click(hand_.In<QAbstractButton>(window, button));
  }
  void Fill(const char* field, const QString& text) {
    hand_.Fill(hand_.In<QLineEdit>(Dimensions(), field), text);
  }

  /// Picks the dimensions, chooses a cut and validates.
  void LayOut(const char* option) {
    hand_.Pick(Drawing(), {"m_Dimensions"});
    hand_.Choose(hand_.In<QRadioButton>(Dimensions(), option));
    ClickIn(Dimensions(), "Validation");
  }

  /// Runs a command of the menus that asks for a path, gives it, and takes away the confirmation.
  void Save(const char* entry, const QString& path, bool confirms, const QString& picture = {}) {
    hand_.WhenAsked("FileDialog", [this, path, picture](QWidget& dialog) {
      if (!picture.isEmpty()) camera_.Take(picture, {&Drawing(*dialog.parentWidget()), &dialog});
      hand_.GivePath(dialog, path);
    });
    if (confirms) AgreeTo("Message");
    hand_.Pick(Drawing(), {"fmenu", "fSave", entry});
    hand_.AllAnswered();
  }

  /// The one kind of file that no entry of the menus saves.
  void SaveVrml1(const QString& path) {
    constexpr std::int16_t kVrml1 = 3;
    hand_.WhenAsked("FileDialog", [this, path](QWidget& dialog) { hand_.GivePath(dialog, path); });
    SaveData(&Drawing(), kVrml1);
    hand_.AllAnswered();
  }

  QWidget& Drawing(QWidget& below) { return *below.window(); }

  void AgreeTo(const char* name, const QString& picture = {}) {
    hand_.WhenAsked(name, [this, picture](QWidget& box) {
      if (!picture.isEmpty()) camera_.Take(picture, {box.parentWidget()->window(), &box});
      hand_.ClickButton(box);
    });
  }

  void Open(const QString& path, const std::function<void()>& thenExpect = {}) {
    hand_.WhenAsked("FileDialog", [this, path](QWidget& dialog) { hand_.GivePath(dialog, path); });
    if (thenExpect) thenExpect();
    hand_.Pick(Drawing(), {"fmenu", "fOpen"});
    hand_.AllAnswered();
  }

  void Begin() {
    Stop("The start window, in English");
    camera_.Take("01-start", {&Start()});
    ClickIn(Start(), "Create");
    camera_.Take("02-dimensions", {&Dimensions()});
  }

  /// The texts of all fields of the dimensions window.
  QStringList Texts() {
    QStringList texts;
    for (const QLineEdit* field : Dimensions().findChildren<QLineEdit*>()) texts << field->text();
    return texts;
  }

  /// The default sail again: what a length that was too short has brought with it is typed anew.
  void TypeDefaults() {
    for (const auto& [field, text] : {std::pair{"Luff", "4550"},
                                      {"Foot", "3600"},
                                      {"Diag", "5750"},
                                      {"Gaff", "2600"},
                                      {"LuffRond", "100"},
                                      {"LeechRond", "-100"},
                                      {"FootRond", "170"},
                                      {"GaffRond", "130"}})
      Fill(field, text);
  }

  void TypeDimensions() {
    Stop("The dimensions, one of them too short");
    const QStringList before = Texts();
    AgreeTo("Message", "03-dimensions-correction");
    Fill("Luff", "150");
    hand_.AllAnswered();
    TypeDefaults();
    camera_.Take("04-dimensions-typed", {&Dimensions()});
    if (Texts() != before)
      throw LostWay("the fields hold " + Texts().join(" ") + " instead of " + before.join(" "));
    ClickIn(Dimensions(), "Validation");
  }

  void LookAtDrawing() {
    Stop("The drawing: seams, labels, turned, zoomed");
    camera_.Take("05-drawing-seams", {&Drawing()});
    ClickIn(Drawing(), "Legende1");
    camera_.Take("06-drawing-labels", {&Drawing()});
    hand_.Turn(hand_.In<QScrollBar>(Drawing(), "HScroll1"), 60);
    camera_.Take("07-drawing-azimuth", {&Drawing()});
    hand_.Turn(hand_.In<QScrollBar>(Drawing(), "VScroll1"), 60);
    camera_.Take("08-drawing-elevation", {&Drawing()});
    ClickIn(Drawing(), "Clean");
    const QRect sheet = Picture().rect();
    const QPoint from(sheet.width() / 10, sheet.height() / 10);
    const QPoint to(sheet.width() * 4 / 10, sheet.height() * 5 / 10);
    hand_.Drag(Picture(), from, to, Qt::LeftButton,
               [this] { camera_.Take("09-drawing-zoom-rectangle", {&Drawing()}); });
    camera_.Take("10-drawing-zoomed", {&Drawing()});
    hand_.Drag(Picture(), from, to, Qt::RightButton,
               [this] { camera_.Take("11-drawing-moving", {&Drawing()}); });
    ClickIn(Drawing(), "Clean");
  }

  void VisitCuts() {
    for (const CutStop& cut : kCuts) {
      Stop(cut.Name);
      LayOut(cut.Option);
      ClickIn(Drawing(), "Developing");
      camera_.Take(QString("20-developed-%1").arg(cut.Name), {&Drawing()});
      if (!files_.mkpath(cut.Name)) throw LostWay("no folder can be made for the files");
      const QString base = files_.filePath(QString(cut.Name) + "/Newsail");
      // Without an extension: the program adds it.
      Save("fSave_Data", base, false, QString("21-save-%1").arg(cut.Name));
      Save("fSave_panelDXF", base + ".dxf", true);
      Save("fSave_XY", base + ".xyz", false);
      Save("fSave_Tovarek", base + ".bp4", false);
      Save("fSave_VRML", base + ".WRL", false);
      SaveVrml1(base + ".wrl");
      PrintSail(cut.Name);
    }
  }

  void OpenSails() {
    Stop("Sails of both file generations, opened");
    Open(files_.filePath("crosscut/Newsail.bv3"));
    camera_.Take("30-opened-bv3", {&Drawing()});
    QFile old(files_.filePath("OldSail.bv4"));
    if (!old.open(QIODevice::WriteOnly) || old.write(kOldSail) < 0)
      throw LostWay("the old sail cannot be written");
    old.close();
    Open(old.fileName());
    camera_.Take("31-opened-bv4", {&Drawing()});
    const QString wrong = files_.filePath("OldSail.txt");
    if (!old.copy(wrong)) throw LostWay("the old sail cannot be copied");
    Open(wrong, [this] { AgreeTo("Message", "32-opened-wrong-type"); });
    QFile::remove(wrong);
    Open(files_.filePath("twistfoot/Newsail.bv3"));
  }

  /// Sets a PDF file and its paper up as the printer, then prints a report into it.
  void Print(const char* entry, const QString& name, const char* paper, const char* lie,
             const QString& picture = {}) {
    hand_.WhenAsked("PrinterSetup", [this, name, paper, lie, picture](QWidget& dialog) {
      auto& destination = hand_.In<QComboBox>(dialog, "Destination");
      hand_.ChooseLine(destination, destination.count() - 1);
      auto& path = hand_.In<QLineEdit>(dialog, "PdfPath");
      hand_.Fill(path, "Newsail.pdf");  // short enough to be read on the picture
      auto& size = hand_.In<QComboBox>(dialog, "PaperSize");
      hand_.ChooseLine(size, size.findText(paper, Qt::MatchStartsWith));
      hand_.Choose(hand_.In<QAbstractButton>(dialog, lie));
      if (!picture.isEmpty()) camera_.Take(picture, {&dialog});
      hand_.Fill(path, paper_.filePath(name));
      ClickIn(dialog, "Ok");
    });
    hand_.Pick(Drawing(), {"fmenu", "fprint", "fprint_setup"});
    hand_.AllAnswered();
    hand_.Pick(Drawing(), {"fmenu", "fprint", entry});
    hand_.Rest();
    if (!QFile::exists(paper_.filePath(name))) throw LostWay("no paper came out: " + name);
    Stop(qPrintable("  paper " + name));
  }

  void PrintListing(const QString& language) {
    Print("fPrint_Data", "data-" + language + ".pdf", "A4", "Portrait",
          "60-printer-setup-" + language);
  }

  void PrintSail(const QString& name) {
    Print("fPrint_Drawing", "drawing-" + name + "-a4.pdf", "A4", "Portrait");
    Print("fPrint_Panels", "panels-" + name + "-a4.pdf", "A4", "Portrait");
    Print("fPrint_Panels", "panels-" + name + "-a3-landscape.pdf", "A3", "Landscape");
  }

  void VisitMould(const QString& language) {
    Stop("The mould");
    hand_.Pick(Drawing(), {"m_Mold"});
    QWidget& mould = hand_.Window("SailForm");
    camera_.Take("45-mould-" + language, {&mould});
    hand_.Fill(hand_.In<QLineEdit>(mould, "Text2_1"), "14");
    hand_.Turn(hand_.In<QScrollBar>(mould, "VScroll1_1"), 60);
    hand_.Turn(hand_.In<QScrollBar>(mould, "VScroll3"), 5);
    camera_.Take("46-mould-changed-" + language, {&mould});
    hand_.WhenAsked("FileDialog", [this](QWidget& dialog) {
      hand_.GivePath(dialog, files_.filePath("crosscut/Newsail.bv3"));
    });
    ClickIn(mould, "Load");
    hand_.AllAnswered();
    camera_.Take("47-mould-loaded-" + language, {&mould});
    ClickIn(mould, "Done");
    ClickIn(Drawing(), "Clean");
    camera_.Take("48-drawing-mould-" + language, {&Drawing()});
  }

  void VisitPatches(const QString& language) {
    Stop("The corner patches");
    hand_.Pick(Drawing(), {"m_Patch"});
    QWidget& patches = hand_.Window("Patch1");
    camera_.Take("50-patches-" + language, {&patches});
    hand_.Fill(hand_.In<QLineEdit>(patches, "Text2_1"), "20");
    camera_.Take("51-patches-changed-" + language, {&patches});
    hand_.Fill(hand_.In<QLineEdit>(patches, "Text2_1"), "9");
    AgreeTo("Message", "52-patches-plotter-" + language);
    ClickIn(patches, "Validate1_0");
    hand_.AllAnswered();
    AgreeTo("Message", "53-patches-dxf-" + language);
    ClickIn(patches, "Validate1_1");
    hand_.AllAnswered();
    ClickIn(patches, "Cancel");
  }

  void GoFrench() {
    Stop("The same in French");
    ClickIn(Drawing(), "Cancel");
    hand_.Choose(hand_.In<QAbstractButton>(Start(), "Langue1_0"));
    camera_.Take("40-start-french", {&Start()});
    ClickIn(Start(), "Create");
    camera_.Take("41-dimensions-french", {&Dimensions()});
    AgreeTo("Message", "42-dimensions-correction-french");
    Fill("Foot", "50");
    hand_.AllAnswered();
    TypeDefaults();
    ClickIn(Dimensions(), "Validation");
    camera_.Take("43-drawing-seams-french", {&Drawing()});
    ClickIn(Drawing(), "Legende1");
    camera_.Take("43-drawing-labels-french", {&Drawing()});
    hand_.Turn(hand_.In<QScrollBar>(Drawing(), "HScroll1"), 60);
    camera_.Take("43-drawing-azimuth-french", {&Drawing()});
    ClickIn(Drawing(), "Clean");
    for (const CutStop& cut : kCuts) {
      LayOut(cut.Option);
      ClickIn(Drawing(), "Developing");
      camera_.Take(QString("44-developed-%1-french").arg(cut.Name), {&Drawing()});
    }
    Save("fSave_Data", files_.filePath("Voile"), false);
    LayOut(kCuts[0].Option);
    VisitMould("french");
    VisitPatches("french");
    PrintListing("french");
    Print("fPrint_Panels", "panels-french-a4.pdf", "A4", "Portrait");
  }

  void Leave() {
    Stop("Leaving");
    ClickIn(Drawing(), "Cancel");
    ClickIn(Start(), "Terminate");
  }

  QDir files_;
  QDir paper_;
  Hand hand_;
  Camera camera_;
};

/// The colours of a dark desktop.
QPalette DarkColours() {
  QPalette dark(QColor(53, 53, 53), QColor(35, 35, 35));
  dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  return dark;
}

/// The tour ends when the program ends by itself; staying is being lost.
int Run(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc != 2 && argc != 3) return 2;
  const QString looks = argc == 3 ? QString::fromLocal8Bit(argv[2]) : QString();
  if (looks == "dark") QApplication::setPalette(DarkColours());
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  Windows windows;
  windows.Start().show();
  int status = 1;
  QTimer::singleShot(0, [&] {
    try {
      if (looks.isEmpty())
        Tour(folder).Take();
      else
        TakeLooks(folder, looks);
      status = 0;
    } catch (const LostWay& lost) {
      std::fprintf(stderr, "The tour lost its way: %s\n", lost.what());
    }
    QTimer::singleShot(5000, [&] {
      if (status == 0) std::fprintf(stderr, "The program does not end when it should.\n");
      status = 1;
      QApplication::exit(1);
    });
  });
  QApplication::exec();
  return status;
}

}  // namespace
}  // namespace brivane::tour

int main(int argc, char** argv) { return brivane::tour::Run(argc, argv); }
