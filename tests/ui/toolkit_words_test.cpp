#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QListView>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTranslator>
#include <QTreeView>
#include <functional>
#include <set>

#include "ui/desk.h"
#include "ui/file_dialogs.h"
#include "ui/qt_text.h"
#include "ui/qt_translation.h"

using namespace brivane;

/// The words that the toolkit adds to the program's own: in its dialogs, in the menus of fields and
/// scroll bars. Whatever is to be seen in one language is not to be seen in the other one.
class ToolkitWordsTest : public QObject {
  Q_OBJECT

 private slots:
  void NothingIsSaidInTheOtherLanguage();
  void EveryWordAskedForHasItsFrench();
  void TheMenusAreSeen();
};

namespace {

/// Writes down what the toolkit asks to be translated.
class Recorder : public QTranslator {
 public:
  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char*, int) const override {
    Asked.insert(QByteArray(context) + ": " + source);
    return {};
  }
  mutable std::set<QByteArray> Asked;
};

using Words = std::set<QString>;

void Add(Words& words, const QString& text) {
  const QString plain = Plain(text).trimmed();
  for (const QChar letter : plain)
    if (letter.isLetter()) {
      words.insert(plain);
      return;
    }
}

void AddMenu(Words& words, const QWidget* menu) {
  for (const QAction* action : menu->actions()) {
    const QString shortcut = action->text().section('\t', 1);
    if (!QRegularExpression("^Ctrl\\+[A-Z]$").match(shortcut).hasMatch()) Add(words, shortcut);
    Add(words, action->text().section('\t', 0, 0));
    Add(words, action->toolTip());
    if (action->menu() != nullptr) AddMenu(words, action->menu());
  }
}

void AddModel(Words& words, const QAbstractItemView* view) {
  const QAbstractItemModel* model = view->model();
  if (model == nullptr) return;
  for (int column = 0; column < model->columnCount(view->rootIndex()); ++column) {
    Add(words, model->headerData(column, Qt::Horizontal).toString());
    for (int row = 0; row < model->rowCount(view->rootIndex()); ++row) {
      Add(words, model->index(row, column, view->rootIndex()).data().toString());
    }
  }
}

/// All that a window says of itself and of what is shown in it.
void AddWindow(Words& words, const QWidget* window) {
  Add(words, window->windowTitle());
  for (const QWidget* part : window->findChildren<QWidget*>()) {
    if (!part->isVisibleTo(window)) continue;
    for (const QString& text :
         {part->toolTip(), part->accessibleName(), part->accessibleDescription()})
      Add(words, text);
    if (const auto* button = qobject_cast<const QAbstractButton*>(part)) Add(words, button->text());
    if (const auto* label = qobject_cast<const QLabel*>(part)) Add(words, label->text());
    if (const auto* group = qobject_cast<const QGroupBox*>(part)) Add(words, group->title());
    if (const auto* bar = qobject_cast<const QMenuBar*>(part)) AddMenu(words, bar);
    if (const auto* view = qobject_cast<const QAbstractItemView*>(part)) AddModel(words, view);
    if (const auto* box = qobject_cast<const QComboBox*>(part))
      for (int line = 0; line < box->count(); ++line) Add(words, box->itemText(line));
  }
}

/// The words of the menu that an act brings up, whether it waits for the menu to end or not.
Words MenuOf(const std::function<void()>& act) {
  Words words;
  const auto look = [&words] {
    QWidget* const popup = QApplication::activePopupWidget();
    if (popup == nullptr) return;
    AddMenu(words, popup);
    popup->close();
  };
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, &watch, look);
  watch.start(5);
  act();
  look();
  return words;
}

void AskForMenu(QWidget* widget, QPoint at) {
  QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget->mapToGlobal(at));
  QApplication::sendEvent(widget, &event);
}

/// The words of every menu that a right click brings up in a window. Controls of one kind have the
/// same; each that can be typed into is asked.
void AddMenusOf(Words& words, QWidget* window) {
  for (QWidget* part : window->findChildren<QWidget*>()) {
    if (!part->isVisible()) continue;
    words.merge(MenuOf([part] { AskForMenu(part, part->rect().center()); }));
  }
}

/// A folder with something of everything that a file dialog tells of.
void Furnish(const QDir& folder) {
  folder.mkdir("xyz");
  for (const auto& [name, size] : {std::pair{"a.bv3", 17}, {"b.bv3", 1700}, {"c.bv3", 1700000}}) {
    QFile file(folder.filePath(name));
    if (file.open(QIODevice::WriteOnly)) file.write(QByteArray(size, 'x'));
  }
}

void AddFileDialog(Words& words, QWidget* dialog) {
  QTest::qWait(100);  // until the folder has been read
  AddWindow(words, dialog);
  AddMenusOf(words, dialog);
  auto* list = dialog->findChild<QTreeView*>("treeView");
  const QModelIndex first = list->model()->index(0, 0, list->rootIndex());
  const QPoint at = list->visualRect(first).center();
  list->setCurrentIndex(first);
  words.merge(MenuOf([list, at] { emit list->customContextMenuRequested(at); }));
  words.merge(MenuOf([list] { emit list->header()->customContextMenuRequested({2, 2}); }));
  auto* places = dialog->findChild<QListView*>("sidebar");
  words.merge(MenuOf([places] { emit places->customContextMenuRequested({5, 5}); }));
  dialog->close();
}

/// Everything that a user can come to see in a language, and what the toolkit asked for meanwhile.
struct Seen {
  Words All;
  std::set<QByteArray> Asked;
};

Seen LookAround(Language language) {
  Seen seen;
  const QTemporaryDir folder;
  Furnish(QDir(folder.path()));
  KeepFolderOf(FromQt(folder.filePath("a.bv3")));
  Desk desk(language);
  Recorder recorder;
  QCoreApplication::installTranslator(&recorder);
  desk.DesignDefaultSail();
  Definition().SailName = "a";
  desk.ShowRealMessages();
  for (QWidget* window : std::initializer_list<QWidget*>{
           &desk.Start(), &desk.Dimensions(), &desk.Picture(), &desk.Mould(), &desk.Patches()}) {
    desk.GoTo(*window);
    AddWindow(seen.All, window);
    AddMenusOf(seen.All, window);
  }
  const auto files = [&seen](QWidget* dialog) { AddFileDialog(seen.All, dialog); };
  const auto close = [&seen](QWidget* dialog) {
    AddWindow(seen.All, dialog);
    AddMenusOf(seen.All, dialog);
    dialog->close();
  };
  WhenDialogIsUp("FileDialog", files);
  desk.Picture().fSave_Data->trigger();
  WhenDialogIsUp("FileDialog", [&files, &close](QWidget* dialog) {
    WhenDialogIsUp("Message", close);  // no file was chosen
    files(dialog);
  });
  desk.Picture().fOpen->trigger();
  WhenDialogIsUp("PrinterSetup", close);
  desk.Picture().fprint_setup->trigger();
  WhenDialogIsUp("ReplaceQuestion", close);
  ConfirmReplacing(&desk.Picture(), {FromQt(folder.filePath("a.bv3"))});
  QCoreApplication::removeTranslator(&recorder);
  seen.Asked = recorder.Asked;
  return seen;
}

const Seen& SeenIn(Language language) {
  static const Seen english = LookAround(Language::English);
  static const Seen french = LookAround(Language::French);
  return language == Language::English ? english : french;
}

/// What is the same in both languages, and why.
bool IsTheSame(const QString& text) {
  static const std::set<QString> kSame = {
      "OK",             // understood in both
      "Printer setup",  // fixed so for both
      "VRML",
      "DXF",  // names of formats
      "Dimensions",
      "Portrait",  // the same words
      "Type",      // the same word
      "LP =",
      "mm",
      "m²",                     // an abbreviation, and units
      "Brivane 2000",           // the program
      "version: 25 June 2000",  // fixed so for both
      "Français",
      "English",  // each language in its own
      "a",
      "xyz",             // names of files
      "Legal",           // the name of a paper
      "Brivane4(.bv4)",  // fixed so for both
      "Brivane 2000 : Dessin1 File Open procedure",
  };
  static const QRegularExpression paper("^A[0-5]$");
  return kSame.count(text) == 1 || text.contains("bv3") || text.contains('/') ||
         text == QDir::home().dirName() || text.startsWith("LP: ") || paper.match(text).hasMatch();
}

/// What the toolkit asks for that is not said, or is the same.
bool NeedsNoFrench(const QByteArray& asked) {
  return asked.startsWith("QShortcut: ") ||        // keys that no shortcut of the program has
         asked.startsWith("QFileDialog: Alt+") ||  // shortcuts, as they are read
         asked.startsWith("QPageSize: ") ||        // names of papers
         asked.endsWith("QT_LAYOUT_DIRECTION");
}

}  // namespace

void ToolkitWordsTest::NothingIsSaidInTheOtherLanguage() {
  const Words english = SeenIn(Language::English).All;
  const Words french = SeenIn(Language::French).All;
  QStringList both;
  for (const QString& text : english)
    if (french.count(text) == 1 && !IsTheSame(text)) both << text;
  QVERIFY2(both.isEmpty(), qPrintable(both.join(" | ")));
}

void ToolkitWordsTest::EveryWordAskedForHasItsFrench() {
  QStringList missing;
  for (const QByteArray& asked : SeenIn(Language::French).Asked)
    if (!NeedsNoFrench(asked) && OwnFrench(asked.mid(asked.indexOf(": ") + 2).constData()).isNull())
      missing << asked;
  QVERIFY2(missing.isEmpty(), qPrintable(missing.join(" | ")));
}

void ToolkitWordsTest::TheMenusAreSeen() {
  const Words seen = SeenIn(Language::French).All;
  for (const char* text : {"Annuler",
                           "Rétablir",
                           "Couper",
                           "Copier",
                           "Coller",
                           "Supprimer",
                           "Tout sélectionner",
                           "Défiler jusqu'ici",
                           "Page suivante",
                           "Précédent",
                           "Suivant",
                           "Dossier parent",
                           "Créer un nouveau dossier",
                           "Vue en liste",
                           "Vue détaillée",
                           "Voir dans :",
                           "Nom",
                           "Taille",
                           "Dernière modification",
                           "Fichiers de type :",
                           "Nom de fichier :",
                           "Renommer",
                           "Afficher les fichiers cachés",
                           "Nouveau dossier",
                           "Ordinateur",
                           "Dossier"})
    QVERIFY2(seen.count(text) == 1, text);
}

QTEST_MAIN(ToolkitWordsTest)
#include "toolkit_words_test.moc"
