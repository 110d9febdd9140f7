#include <QDir>
#include <QDragEnterEvent>
#include <QFile>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <QWindow>

#include "ui/desk.h"
#include "ui/file_dialogs.h"

using namespace brivane;

/// Sails dropped on the drawing window from a file manager.
class SailDropTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase();

  void OpensAsTheOpenCommandDoes_data();
  void OpensAsTheOpenCommandDoes();
  void IsTakenAsACopy();
  void AnyPlaceOfTheWindowTakesIt();
  void RefusesWhatIsNotOneSail_data();
  void RefusesWhatIsNotOneSail();
  void RefusesToMoveTheFile();
  void RefusesWhileAMessageIsUp();
  void WindowInFrontIsLeftFirst();
  void WaitsForTheMessagesOfTheWindowThatIsLeft();

 private:
  QString Path(const QString& name) const { return folder_.filePath(name); }
  QUrl Url(const QString& name) const { return QUrl::fromLocalFile(Path(name)); }
  void Write(const QString& name, const QByteArray& text) const {
    QFile file(Path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), text.size());
  }
  QTemporaryDir folder_;
};

namespace {

/// A sail of the older generation, 28 lines.
const QByteArray kOldSail =
    "Brivane 4 VERSION_ 12 March 1999\r\nOldSail\r\nCROSSCUT\r\ndefault_vertical\r\n"
    " 5200\r\n 6100\r\n 3100\r\n 2400\r\n .6\r\n 0\r\n 0\r\n 0\r\n 60\r\n 50\r\n 80\r\n 50\r\n"
    " 120\r\n 50\r\n 60\r\n 50\r\n 9\r\n 3\r\n .06\r\n 4\r\n .2\r\n 900\r\n 20\r\n 0\r\n";

/// What a drag is told at its two stations.
struct DragAnswer {
  bool Entered = false;
  bool Dropped = false;
  Qt::DropAction Action = Qt::IgnoreAction;
};

/// Drags something over a place of the window and lets it fall where the window takes it. The
/// events enter where those of the windowing system do.
DragAnswer DragOnto(QWidget& window, const QMimeData& dragged, QPoint at,
                    Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction) {
  DragAnswer answer;
  QWindow* const handle = window.windowHandle();
  QDragEnterEvent enter(at, actions, &dragged, Qt::LeftButton, Qt::NoModifier);
  enter.ignore();
  QCoreApplication::sendEvent(handle, &enter);
  answer.Entered = enter.isAccepted();
  QDragMoveEvent move(at, actions, &dragged, Qt::LeftButton, Qt::NoModifier);
  if (answer.Entered) move.accept();
  QCoreApplication::sendEvent(handle, &move);
  if (!answer.Entered) {
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(handle, &leave);
    return answer;
  }
  QDropEvent drop(at, actions, &dragged, Qt::LeftButton, Qt::NoModifier);
  drop.ignore();
  QCoreApplication::sendEvent(handle, &drop);
  answer.Dropped = drop.isAccepted();
  answer.Action = drop.dropAction();
  return answer;
}

DragAnswer DragOnto(QWidget& window, const QList<QUrl>& urls) {
  QMimeData dragged;
  dragged.setUrls(urls);
  return DragOnto(window, dragged, window.rect().center());
}

QStringList ShownWindows() {
  QStringList names;
  for (const QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible()) names << window->objectName();
  names.sort();
  return names;
}

/// Everything that opening a sail leaves behind.
struct Outcome {
  SailDefinition Sail;
  ViewState View;
  QString Title;
  PictureContent Content;
  QString Luff;
  QStringList Windows;
  QString Folder;
  QStringList Messages;
};

Outcome OutcomeOf(Desk& desk) {
  QTest::qWait(50);
  Outcome outcome{.Sail = Definition(),
                  .View = Current().View,
                  .Title = desk.Picture().windowTitle(),
                  .Content = desk.Picture().Content(),
                  .Luff = desk.Dimensions().Luff->text(),
                  .Windows = ShownWindows(),
                  .Folder = CurrentFolder(),
                  .Messages = {}};
  for (const SeenMessage& message : desk.Seen)
    outcome.Messages << message.Title + " | " + message.Text;
  return outcome;
}

/// A desk on which an open sail has been turned and its dimensions window stands in front.
void Prepare(Desk& desk) {
  desk.DesignDefaultSail();
  desk.Picture().HScroll1->setValue(40);
  desk.GoTo(desk.Dimensions());
  desk.GoTo(desk.Picture());
}

/// Puts a path, which may have letters that no test keyboard has, into the dialog and accepts it.
void GiveFile(QWidget* dialog, const QString& path) {
  auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
  name->setFocus();
  name->setText(path);
  QTest::keyClick(name, Qt::Key_Return);
}

}  // namespace

void SailDropTest::initTestCase() {
  Desk desk;
  desk.DesignDefaultSail();
  TypeInto(desk.Dimensions().Luff, "5000");
  WhenDialogIsUp("FileDialog", [this](QWidget* dialog) { ChooseFile(dialog, Path("Main.bv3")); });
  desk.Picture().fSave_Data->trigger();
  QVERIFY(QFile::copy(Path("Main.bv3"), Path("LOUD.BV3")));
  QVERIFY(QFile::copy(Path("Main.bv3"), Path("Grand voile, été 100 %.bv3")));
  QFile file(Path("Main.bv3"));
  QVERIFY(file.open(QIODevice::ReadOnly));
  QByteArray text = file.readAll();
  QVERIFY(text.contains("\r\n 890\r\n"));
  Write("Overflow.bv3", text.replace("\r\n 890\r\n", "\r\n 40000\r\n"));
  Write("Old.bv4", kOldSail);
  Write("Old.Bv4", kOldSail);
  Write("Letter.bv3", "Dear sailmaker");
  Write("letter.txt", kOldSail);
  QVERIFY(QDir().mkdir(Path("Folder.bv3")));
  QVERIFY(QFile::copy(Path("Main.bv3"), Path("Mainbv3")));
  QVERIFY(QFile::copy(Path("Main.bv3"), Path("Main.xbv3")));
}

void SailDropTest::OpensAsTheOpenCommandDoes_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<int>("messages");
  QTest::addColumn<int>("language");
  for (const auto& [name, messages] : {std::pair{"Main.bv3", 0},
                                       {"LOUD.BV3", 0},
                                       {"Grand voile, été 100 %.bv3", 0},
                                       {"Old.bv4", 0},
                                       {"Old.Bv4", 0},
                                       {"Overflow.bv3", 1},
                                       {"Letter.bv3", 1},
                                       {"Gone.bv3", 1}})
    for (const int language : {0, 1})
      QTest::addRow("%s, %d", name, language) << QString(name) << messages << language;
}

void SailDropTest::OpensAsTheOpenCommandDoes() {
  QFETCH(QString, name);
  QFETCH(int, messages);
  QFETCH(int, language);
  Outcome commanded;
  {
    Desk desk(static_cast<Language>(language));
    Prepare(desk);
    WhenDialogIsUp("FileDialog", [&](QWidget* dialog) { GiveFile(dialog, Path(name)); });
    desk.Picture().fOpen->trigger();
    commanded = OutcomeOf(desk);
  }
  KeepFolderOf("/nowhere/else.bv3");
  Desk desk(static_cast<Language>(language));
  Prepare(desk);
  QVERIFY(DragOnto(desk.Picture(), {Url(name)}).Dropped);
  const Outcome dropped = OutcomeOf(desk);
  QVERIFY(dropped.Sail == commanded.Sail);
  QCOMPARE(dropped.View.ViewScale, commanded.View.ViewScale);
  QCOMPARE(dropped.View.ViewOffsetX, commanded.View.ViewOffsetX);
  QCOMPARE(dropped.Title, commanded.Title);
  QVERIFY(dropped.Content == commanded.Content);
  QCOMPARE(dropped.Luff, commanded.Luff);
  QCOMPARE(dropped.Windows, commanded.Windows);
  QVERIFY(desk.Picture().isActiveWindow());
  QCOMPARE(dropped.Folder, commanded.Folder);
  QCOMPARE(dropped.Folder, folder_.path());
  QCOMPARE(dropped.Messages, commanded.Messages);
  QCOMPARE(dropped.Messages.size(), messages);
  QCOMPARE(desk.Picture().HScroll1->value(), name == "Gone.bv3" ? 40 : 0);
}

void SailDropTest::IsTakenAsACopy() {
  Desk desk;
  desk.DesignDefaultSail();
  const DragAnswer answer = DragOnto(desk.Picture(), {Url("Main.bv3")});
  QVERIFY(answer.Entered);
  QVERIFY(answer.Dropped);
  QCOMPARE(answer.Action, Qt::CopyAction);
  QTRY_COMPARE(Definition().SailName, std::string("Main"));
}

void SailDropTest::AnyPlaceOfTheWindowTakesIt() {
  Desk desk;
  desk.DesignDefaultSail();
  Dessin1& window = desk.Picture();
  QMimeData dragged;
  dragged.setUrls({Url("Main.bv3")});
  for (QWidget* part : std::initializer_list<QWidget*>{window.menuBar(), window.Picture1,
                                                       window.HScroll1, window.Developing}) {
    Definition().SailName = "before";
    const QPoint at = part->mapTo(&window, part->rect().center());
    QVERIFY(DragOnto(window, dragged, at).Dropped);
    QTRY_COMPARE(Definition().SailName, std::string("Main"));
  }
}

void SailDropTest::RefusesWhatIsNotOneSail_data() {
  QTest::addColumn<QStringList>("urls");
  const auto local = [](const char* name) { return QString("local:") + name; };
  QTest::newRow("nothing") << QStringList{};
  QTest::newRow("two sails") << QStringList{local("Main.bv3"), local("Old.bv4")};
  QTest::newRow("one sail twice") << QStringList{local("Main.bv3"), local("Main.bv3")};
  QTest::newRow("a letter") << QStringList{local("letter.txt")};
  QTest::newRow("the letters without their dot") << QStringList{local("Mainbv3")};
  QTest::newRow("a longer extension") << QStringList{local("Main.xbv3")};
  QTest::newRow("a folder") << QStringList{local("Folder.bv3")};
  QTest::newRow("the web") << QStringList{"https://sails.example/Main.bv3"};
  QTest::newRow("another machine") << QStringList{"file://elsewhere.example" + Path("Main.bv3")};
  QTest::newRow("a network place") << QStringList{"smb://server/sails/Main.bv3"};
}

void SailDropTest::RefusesWhatIsNotOneSail() {
  QFETCH(QStringList, urls);
  Desk desk;
  desk.DesignDefaultSail();
  const SailDefinition before = Definition();
  QList<QUrl> dragged;
  for (const QString& url : urls)
    dragged << (url.startsWith("local:") ? Url(url.mid(6)) : QUrl(url));
  QMimeData data;
  if (dragged.isEmpty())
    data.setText(Path("Main.bv3"));
  else
    data.setUrls(dragged);
  QVERIFY(!DragOnto(desk.Picture(), data, desk.Picture().rect().center()).Entered);
  // A source that drops all the same changes nothing either.
  QDropEvent drop(QPointF(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&desk.Picture(), &drop);
  QVERIFY(!drop.isAccepted());
  QTest::qWait(30);
  QVERIFY(Definition() == before);
  QVERIFY(desk.Seen.empty());
}

void SailDropTest::RefusesToMoveTheFile() {
  Desk desk;
  desk.DesignDefaultSail();
  QMimeData dragged;
  dragged.setUrls({Url("Main.bv3")});
  QVERIFY(!DragOnto(desk.Picture(), dragged, {100, 100}, Qt::MoveAction).Entered);
}

void SailDropTest::RefusesWhileAMessageIsUp() {
  Desk desk;
  desk.DesignDefaultSail();
  desk.ShowRealMessages();
  bool entered = true;
  WhenDialogIsUp("Message", [&](QWidget* box) {
    entered = DragOnto(desk.Picture(), {Url("Main.bv3")}).Entered;
    box->close();
  });
  ShowMessage(&desk.Picture(), "title", "text");
  QVERIFY(!entered);
  QVERIFY(DragOnto(desk.Picture(), {Url("Main.bv3")}).Entered);
}

void SailDropTest::WindowInFrontIsLeftFirst() {
  Desk desk;
  desk.DesignDefaultSail();
  desk.GoTo(desk.Dimensions());
  TypeAndStay(desk.Dimensions().Luff, "150");
  QVERIFY(DragOnto(desk.Picture(), {Url("Gone.bv3")}).Dropped);
  QTRY_COMPARE(desk.Seen.size(), std::size_t{2});
  QCOMPARE(desk.Seen[0].Text, "Luff too short, has been adjusted to minimum");
  QCOMPARE(desk.Seen[1].Title, "Brivane 2000 : Reading data file");
  QCOMPARE(Definition().LuffLength, 200.0);
  QTRY_VERIFY(desk.Picture().isActiveWindow());
}

void SailDropTest::WaitsForTheMessagesOfTheWindowThatIsLeft() {
  Desk desk;
  desk.DesignDefaultSail();
  desk.GoTo(desk.Dimensions());
  desk.ShowRealMessages();
  TypeAndStay(desk.Dimensions().Luff, "150");
  std::string nameMeanwhile;
  WhenDialogIsUp("Message", [&](QWidget* box) {
    QTest::qWait(60);
    nameMeanwhile = Definition().SailName;
    box->close();
  });
  QVERIFY(DragOnto(desk.Picture(), {Url("Main.bv3")}).Dropped);
  QTRY_COMPARE(Definition().SailName, std::string("Main"));
  QCOMPARE(nameMeanwhile, std::string("NEWSAIL"));
}

QTEST_MAIN(SailDropTest)
#include "sail_drop_test.moc"
