#include <QClipboard>
#include <QFile>
#include <QTest>
#include <cmath>

#include "geometry/faults.h"
#include "model/sail_file.h"
#include "ui/desk.h"
#include "ui/printing.h"
#include "ui/qt_text.h"

using namespace brivane;

/// Overflow, division by zero and invalid operations, met through the windows: the computation ends
/// as a whole, the user is told once, and can go on.
class FloatingFaultsTest : public QObject {
  Q_OBJECT

 private slots:
  void OpenedSailThatCannotBeLaidOut_data();
  void OpenedSailThatCannotBeLaidOut();
  void EveryCommandWorksWithoutALayout();
  void TypedOverflow();
  void MouldThatCannotBeComputed();
};

namespace {

using Change = void (*)(SailDefinition&);

struct Case {
  const char* Name;
  Change Spoil;
  BilingualText Words;
};

const std::array<Case, 5> kCases = {
    {{"overflow",
      [](SailDefinition& sail) {
        sail.LuffLength *= 1e200;
        sail.FootLength *= 1e200;
        sail.DiagonalLength *= 1e200;
      },
      kOverflowWords},
     // The foot's slope divides by the clew's x.
     {"division by zero",
      [](SailDefinition& sail) { sail.LuffLength = sail.FootLength = sail.DiagonalLength = 0; },
      kOverflowWords},
     // The depth's rise along the height divides by the position.
     {"maximum depth at the foot", [](SailDefinition& sail) { sail.DepthPosition = 0; },
      kMouldWords},
     // A negative base under a fractional exponent.
     {"invalid operation", [](SailDefinition& sail) { sail.LuffShape[0] = -1.5; }, kMouldWords},
     // 4550 + 4600 cos 3 = -4 mm, the clew lies 66 mm above the tack: the leech points downwards.
     {"peak below the clew",
      [](SailDefinition& sail) {
        sail.GaffLength = 4600;
        sail.GaffAngle = 3;
      },
      kPeakBelowClewWords}}};

/// Opens a sail of the folder through the menu.
void Open(Desk& desk, const SailDefinition& sail, const QTemporaryDir& folder) {
  const QString path = folder.filePath("Spoilt.bv3");
  WriteSailDataFile(FromQt(path), sail);
  WhenDialogIsUp("FileDialog", [path](QWidget* dialog) { ChooseFile(dialog, path); });
  desk.Picture().fOpen->trigger();
}

void RequireNothingLaidOut() {
  QCOMPARE(int{Definition().PanelCount}, 0);
  QVERIFY(Current().TheSail.Grid == SurfaceGrid{});
  QVERIFY(Current().TheSail.Panels == DevelopedPanels{});
}

void Paste(QLineEdit* field, const QString& text) {
  TypeAndStay(field, {});
  QGuiApplication::clipboard()->setText(text);
  QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
  QTest::keyClick(field, Qt::Key_Tab);
  QTest::qWait(0);
}

}  // namespace

void FloatingFaultsTest::OpenedSailThatCannotBeLaidOut_data() {
  QTest::addColumn<int>("language");
  QTest::addColumn<int>("which");
  for (int language = 0; language < 2; ++language)
    for (int which = 0; which < static_cast<int>(kCases.size()); ++which)
      QTest::addRow("%s, %s", kCases[static_cast<std::size_t>(which)].Name,
                    language == 1 ? "English" : "French")
          << language << which;
}

void FloatingFaultsTest::OpenedSailThatCannotBeLaidOut() {
  QFETCH(int, language);
  QFETCH(int, which);
  const Case& spoilt = kCases[static_cast<std::size_t>(which)];
  const QTemporaryDir folder;
  Desk desk(static_cast<Language>(language));
  desk.DesignDefaultSail();
  SailDefinition sail;
  spoilt.Spoil(sail);
  Open(desk, sail, folder);
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Title, "Brivane 2000 : Dessin1 File Open procedure");
  QCOMPARE(desk.Seen[0].Text, ToQt(spoilt.Words.In(static_cast<Language>(language))));
  RequireNothingLaidOut();
  QVERIFY(QApplication::activeModalWidget() == nullptr);
  QVERIFY(desk.Picture().windowTitle().endsWith("Newsail"));
  // The dimensions window shows what was read, and a sail that can be laid out again.
  desk.Picture().m_Dimensions->trigger();
  QVERIFY(QTest::qWaitForWindowActive(&desk.Dimensions()));
  for (const DimensionFieldInfo& info : DimensionFields())
    QCOMPARE(desk.Dimensions().FieldOf(info.Field)->text(),
             ToQt(FieldText(Definition(), info.Field)));
  desk.Seen.clear();
  desk.Picture().fNew->trigger();
  Press(desk.Dimensions().Validation);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Picture()));
  QVERIFY(desk.Seen.empty());
  QVERIFY(Definition().PanelCount > 3);
}

void FloatingFaultsTest::EveryCommandWorksWithoutALayout() {
  const QTemporaryDir folder;
  Desk desk;
  desk.DesignDefaultSail();
  SailDefinition sail;
  sail.LuffShape[0] = -1.5;
  Open(desk, sail, folder);
  desk.Seen.clear();
  Dessin1& window = desk.Picture();
  for (QPushButton* button : {window.Developing, window.Clean, window.Legende1}) Press(button);
  window.HScroll1->setValue(40);
  window.VScroll1->setValue(-30);
  for (QAction* save : {window.fSave_panelDXF, window.fSave_XY, window.fSave_Tovarek,
                        window.fSave_VRML, window.fSave_Data}) {
    WhenDialogIsUp("FileDialog",
                   [&folder](QWidget* dialog) { ChooseFile(dialog, folder.filePath("Again")); });
    save->trigger();
  }
  CurrentPrinter().ToPdf = true;
  CurrentPrinter().PdfPath = folder.filePath("Again.pdf");
  for (QAction* print : {window.fPrint_Data, window.fPrint_Drawing, window.fPrint_Panels}) {
    CurrentPrinter().PdfMayBeReplaced = true;
    print->trigger();
  }
  CurrentPrinter() = {};
  QVERIFY(QFile::exists(folder.filePath("Again.pdf")));
  window.m_Patch->trigger();
  QVERIFY(QTest::qWaitForWindowActive(&desk.Patches()));
  Press(desk.Patches().Cancel);
  for (const SeenMessage& message : desk.Seen) QVERIFY(!message.Text.isEmpty());
  // What was read is what is saved.
  SailDefinition again;
  ReadSailDataFile(FromQt(folder.filePath("Again.bv3")), again, '.');
  QCOMPARE(again.LuffShape[0], -1.5);
  QCOMPARE(again.LuffLength, 4550.0);
  RequireNothingLaidOut();
}

void FloatingFaultsTest::MouldThatCannotBeComputed() {
  const QTemporaryDir folder;
  Desk desk;
  desk.DesignDefaultSail();
  SailDefinition sail;
  sail.DepthPosition = 0;
  Open(desk, sail, folder);
  desk.Seen.clear();
  // The mould window holds the position within the range of its bar; leaving it lays the sail out.
  desk.Picture().m_Mold->trigger();
  QVERIFY(QTest::qWaitForWindowActive(&desk.Mould()));
  QCOMPARE(desk.Mould().VScroll3->value(), 1);
  Press(desk.Mould().Done);
  QTRY_VERIFY(Definition().PanelCount > 3);
  QVERIFY(desk.Seen.empty());
}

void FloatingFaultsTest::TypedOverflow() {
  Desk desk;
  desk.CreateSail();
  Create1& window = desk.Dimensions();
  Paste(window.Luff, "1e300");
  QVERIFY(desk.Seen.empty());
  Press(window.Validation);
  QTest::qWait(0);
  QCOMPARE(desk.Seen.size(), std::size_t{1});
  QCOMPARE(desk.Seen[0].Title, window.windowTitle());
  QCOMPARE(desk.Seen[0].Text, ToQt(kOverflowWords.English));
  RequireNothingLaidOut();
  for (const double value : {Definition().LuffLength, Definition().FootLength,
                             Definition().DiagonalLength, Definition().LeechLength})
    QVERIFY(std::isfinite(value));
  QVERIFY(window.isActiveWindow());
  desk.Seen.clear();
  TypeInto(window.Luff, "4550");
  TypeInto(window.Foot, "3600");
  TypeInto(window.Diag, "5750");
  Press(window.Validation);
  QVERIFY(QTest::qWaitForWindowActive(&desk.Picture()));
  QVERIFY(desk.Seen.empty());
  QVERIFY(Definition().PanelCount > 3);
}

QTEST_MAIN(FloatingFaultsTest)
#include "floating_faults_test.moc"
