#include "ui/file_columns.h"

#include <QTest>

using namespace brivane;

/// What a file dialog says of files: sizes and kinds.
class FileColumnsTest : public QObject {
  Q_OBJECT

 private slots:
  void Sizes();
  void Kinds();
};

void FileColumnsTest::Sizes() {
  const auto english = [](long long bytes) { return FileSizeText(bytes, Language::English, '.'); };
  const auto french = [](long long bytes) { return FileSizeText(bytes, Language::French, ','); };
  QCOMPARE(english(0), std::string("0 bytes"));
  QCOMPARE(english(1), std::string("1 byte"));
  QCOMPARE(french(1), std::string("1 octet"));
  QCOMPARE(french(999), std::string("999 octets"));
  QCOMPARE(english(1000), std::string("1.0 kB"));
  QCOMPARE(french(1250), std::string("1,3 ko"));
  QCOMPARE(english(1700000), std::string("1.7 MB"));
  QCOMPARE(french(2500000000), std::string("2,5 Go"));
  QCOMPARE(english(1234500000000000), std::string("1234500.0 GB"));
}

void FileColumnsTest::Kinds() {
  QCOMPARE(FileKindText("Newsail.bv3", Language::English), std::string("bv3 file"));
  QCOMPARE(FileKindText("Newsail.bv3", Language::French), std::string("Fichier bv3"));
  QCOMPARE(FileKindText("a.b.DXF", Language::English), std::string("DXF file"));
  QCOMPARE(FileKindText("README", Language::French), std::string("Fichier"));
  QCOMPARE(FileKindText("end.", Language::English), std::string("File"));
}

QTEST_MAIN(FileColumnsTest)
#include "file_columns_test.moc"
