#include <QMessageBox>
#include <QTest>

#include "model/failures.h"
#include "model/text_file.h"
#include "ui/desk.h"
#include "ui/mnemonics.h"
#include "ui/qt_translation.h"

using namespace brivane;

/// The one place that catches failures, and the words around it.
class MessagesTest : public QObject {
  Q_OBJECT

 private slots:
  void cleanup() { SetMessageShower({}); }

  void FailuresAreToldOnceUnderTheirTitle();
  void GeometryFaultSpeaksTheLanguage();
  void SuccessTellsNothing();
  void CursorIsAnArrowWhileAMessageIsUp();
  void MnemonicsAreUnique();
  void LiteralAmpersandStays();
  void ToolkitSpeaksFrenchOnlyInFrench();
};

void MessagesTest::FailuresAreToldOnceUnderTheirTitle() {
  std::vector<SeenMessage> seen;
  SetMessageShower([&seen](QWidget*, const QString& title, const QString& text) {
    seen.push_back({title, text});
  });
  QVERIFY(!RunGuarded(nullptr, "a", [] {
    throw FileError(FileErrorKind::Other, FileStep::Writing,
                    {"No space left on device", "Plus de place sur le disque"});
  }));
  QVERIFY(!RunGuarded(nullptr, "b", [] { throw ReadError("Overflow: line 39", "ligne 39"); }));
  QVERIFY(!RunGuarded(nullptr, "c", [] { throw std::out_of_range("Subscript out of range"); }));
  QCOMPARE(seen.size(), std::size_t{3});
  QCOMPARE(seen[0].Title + "|" + seen[0].Text, "a|No space left on device");
  QCOMPARE(seen[1].Title + "|" + seen[1].Text, "b|Overflow: line 39");
  QCOMPARE(seen[2].Title + "|" + seen[2].Text, "c|Subscript out of range");
}

void MessagesTest::GeometryFaultSpeaksTheLanguage() {
  const auto fail = [] { throw GeometryFault({"flat", "plat"}); };
  Current().Language = Language::French;
  QCOMPARE(WordsOfFailure(fail).value(), "plat");
  const auto failToRead = [] { ReadWholeFile("/no/such/folder/a.bv3"); };
  QCOMPARE(WordsOfFailure(failToRead).value(), "Aucun fichier ou dossier de ce nom");
  Current().Language = Language::English;
  QCOMPARE(WordsOfFailure(fail).value(), "flat");
}

void MessagesTest::SuccessTellsNothing() {
  bool told = false;
  SetMessageShower([&told](QWidget*, const QString&, const QString&) { told = true; });
  QVERIFY(RunGuarded(nullptr, "a", [] {}));
  QVERIFY(!told);
}

void MessagesTest::CursorIsAnArrowWhileAMessageIsUp() {
  Qt::CursorShape shape = Qt::BlankCursor;
  SetMessageShower([&shape](QWidget*, const QString&, const QString&) {
    shape = QApplication::overrideCursor()->shape();
  });
  {
    const WaitCursor wait;
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    ShowMessage(nullptr, "a", "b");
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  }
  QCOMPARE(shape, Qt::ArrowCursor);
  QVERIFY(QApplication::overrideCursor() == nullptr);
}

void MessagesTest::MnemonicsAreUnique() {
  Mnemonics letters;
  QCOMPARE(letters.Mark("Luff length"), "&Luff length");
  QCOMPARE(letters.Mark("Luff round"), "Luff &round");
  QCOMPARE(letters.Mark("LL"), "LL");
  QCOMPARE(letters.Mark("Écoute"), "É&coute");
}

void MessagesTest::LiteralAmpersandStays() {
  Mnemonics letters;
  QCOMPARE(letters.Mark("A & B"), "&A && B");
  QCOMPARE(letters.Mark("A & A"), "A && A");
}

void MessagesTest::ToolkitSpeaksFrenchOnlyInFrench() {
  const auto open = [] { return QCoreApplication::translate("QFileDialog", "&Open"); };
  TranslateToolkit(Language::French);
  QCOMPARE(open(), "&Ouvrir");
  TranslateToolkit(Language::French);
  TranslateToolkit(Language::English);
  QCOMPARE(open(), "&Open");
}

QTEST_MAIN(MessagesTest)
#include "messages_test.moc"
