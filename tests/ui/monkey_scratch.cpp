#include "ui/monkey_scratch.h"

#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>

#include "model/sail_file.h"
#include "ui/file_dialogs.h"
#include "ui/printer_setup.h"

namespace brivane {

namespace {

/// A sail data file with one of its lines, counted from 1, replaced.
QByteArray SailWithLine(int line, const QByteArray& value) {
  QList<QByteArray> lines = QByteArray::fromStdString(SailDataText(SailDefinition{})).split('\n');
  lines[line - 1] = value + "\r";
  return lines.join('\n');
}

}  // namespace

MonkeyScratch::MonkeyScratch() {
  if (!root_.isValid()) qFatal("no folder to work in");
  const QString home = QDir(root_.path()).canonicalPath() + "/home";
  documents_ = home + "/Documents";
  if (!QDir().mkpath(documents_) || !QDir::setCurrent(documents_)) qFatal("no documents folder");
  qputenv("HOME", home.toUtf8());
  for (const char* folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
    qputenv(folder, (home + "/" + folder).toUtf8());
  // Nothing is to come out of a printer.
  qputenv("PATH", "");
  qputenv("CUPS_SERVER", (home + "/no-server").toUtf8());
}

void MonkeyScratch::Restore() const {
  QDir(documents_).removeRecursively();
  if (!QDir().mkpath(documents_) || !QDir::setCurrent(documents_)) qFatal("no documents folder");
  AddSails();
  AddHostileFiles();
}

void MonkeyScratch::AddSails() const {
  SailDefinition sail;
  Write("Twist.bv3", QByteArray::fromStdString(SailDataText(sail)));
  sail.CutType = kCrossCut;
  sail.GaffLength = 5;
  Write("Triangle.bv3", QByteArray::fromStdString(SailDataText(sail)));
  sail.CutType = kVerticalCut;
  sail.GaffLength = 1800;
  Write("Vertical.bv3", QByteArray::fromStdString(SailDataText(sail)));
  Write("Old.bv4",
        "Brivane 4 VERSION_ 12 March 1999\r\nOldSail\r\nCROSSCUT\r\ndefault_vertical\r\n"
        " 5200\r\n 6100\r\n 3100\r\n 2400\r\n .6\r\n 0\r\n 0\r\n 0\r\n 60\r\n 50\r\n 80\r\n"
        " 50\r\n 120\r\n 50\r\n 60\r\n 50\r\n 9\r\n 3\r\n .06\r\n 4\r\n .2\r\n 900\r\n 20\r\n"
        " 0\r\n");
}

void MonkeyScratch::AddHostileFiles() const {
  // Line by line of what stands in a sail data file.
  for (int line = 1; line <= 41; line += 2) {
    Write(QString("zero%1.bv3").arg(line), SailWithLine(line, "0"));
    Write(QString("huge%1.bv3").arg(line), SailWithLine(line, "1E307"));
    Write(QString("minus%1.bv3").arg(line + 1), SailWithLine(std::min(line + 1, 41), "-30000"));
  }
  const QByteArray whole = QByteArray::fromStdString(SailDataText(SailDefinition{}));
  Write("half.bv3", whole.left(whole.size() / 2));
  Write("empty.bv3", "");
  Write("zeros.bv3", QByteArray(5000, '\0'));
  Write("line.bv4", QByteArray(200000, '7'));
  Write("wrong.txt", whole);
  Write("UPPER.BV3", whole);
  Write(QString::fromUtf8("voilé d'été.bv3"), whole);
  QDir(documents_).mkdir("folder.bv3");
  QDir(documents_).mkdir("deeper");
  ::mkfifo((documents_ + "/pipe.bv3").toUtf8().constData(), 0600);
  QFile::link("Twist.bv3", documents_ + "/link.bv3");
  QFile::link("nowhere.bv3", documents_ + "/dangling.bv3");
  QFile::link("loop.bv3", documents_ + "/loop.bv3");
}

void MonkeyScratch::Write(const QString& name, const QByteArray& bytes) const {
  QFile file(documents_ + "/" + name);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
    qFatal("cannot write %s", qPrintable(name));
}

QStringList MonkeyScratch::Names() const {
  QStringList names = QDir(documents_).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
  names << "new"
        << "new.bv3"
        << "a.b.c"
        << "deeper/inside.bv3"
        << "nowhere/inside.bv3"
        << "Twist.bv3/inside"
        << "/dev/null/inside" << QString(300, 'n') << QString(250, 'n') + ".bv3"
        << "C:\\sail.bv3"
        << "*?.bv3"
        << ".bv3"
        << "bv3"
        << " "
        << "." << QString::fromUtf8("日本語.bv3") << "two\nlines.bv3"
        << "per%1cent%n.bv3" << documents_ + "/whole.bv3";
  return names;
}

bool MonkeyScratch::Holds(const QString& folder, const QString& path) const {
  if (path.startsWith('~')) return false;
  const QString whole = QDir::cleanPath(path.startsWith('/') ? path : folder + "/" + path);
  const QString root = QDir(root_.path()).canonicalPath();
  return whole == root || whole.startsWith(root + "/");
}

void MonkeyScratch::KeepInside(QWidget* dialog) const {
  if (auto* files = qobject_cast<QFileDialog*>(dialog)) {
    const QString folder = files->directory().absolutePath();
    if (!Holds({}, folder) || !QDir(folder).exists()) files->setDirectory(documents_);
    auto* name = files->findChild<QLineEdit*>("fileNameEdit");
    if (!Holds(files->directory().absolutePath(), name->text())) name->setText("strayed");
  }
  if (auto* printer = dynamic_cast<PrinterSetup*>(dialog))
    if (!Holds(CurrentFolder(), printer->PdfPath->text().trimmed()))
      printer->PdfPath->setText(documents_ + "/strayed.pdf");
}

}  // namespace brivane
