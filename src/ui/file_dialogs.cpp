#include "ui/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSplitter>
#include <QStandardPaths>
#include <QTreeView>

#include "ui/current_sail.h"
#include "ui/file_columns.h"
#include "ui/qt_text.h"
#include "ui/screen_room.h"
#include "ui/texts.h"

namespace brivane {

namespace {

QString& Folder() {
  static QString folder;
  return folder;
}

QString FilterText(const FileFilter& filter) {
  // The dialog shows what stands before the last brackets.
  return filter.Description + " (" + filter.Pattern + ")";
}

/// The toolkit's own dialog, so that its filters, names and words are ours on every desktop.
class FileDialog : public QFileDialog {
 public:
  explicit FileDialog(QWidget* parent) : QFileDialog(parent) {
    setObjectName("FileDialog");
    setOption(QFileDialog::DontUseNativeDialog);
    setOption(QFileDialog::DontConfirmOverwrite);
    setOption(QFileDialog::HideNameFilterDetails);
    setDirectory(CurrentFolder());
    setProxyModel(new FileColumns(this));
    setLabelText(QFileDialog::Reject, CurrentText(texts::kCancelButton));
    MakeRoomForWords();
  }

  /// Asked with the chosen path before the dialog is accepted.
  std::function<bool(const QString&)> MayAccept;

  /// The toolkit makes room for its own language.
  void MakeRoomForWords() {
    constexpr int kPlaces = 130;
    if (auto* list = findChild<QTreeView*>("treeView")) {
      list->header()->setResizeContentsPrecision(0);  // by what is to be seen of a long list
      list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
      list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    if (auto* parts = findChild<QSplitter*>("splitter"))
      parts->setSizes({kPlaces, std::max(kPlaces, sizeHint().width() - kPlaces)});
  }

 protected:
  void accept() override {
    const QStringList chosen = selectedFiles();
    const bool isFile = chosen.size() == 1 && !QFileInfo(chosen.front()).isDir();
    if (isFile && MayAccept && !MayAccept(chosen.front())) return;
    QFileDialog::accept();
  }
};

std::optional<std::string> Run(QPointer<FileDialog> dialog) {
  dialog->resize(dialog->sizeHint().boundedTo(RoomFor(*dialog)));
  const bool accepted = dialog->exec() == QDialog::Accepted;
  if (dialog.isNull()) return std::nullopt;
  std::optional<std::string> path;
  if (accepted && !dialog->selectedFiles().isEmpty()) {
    path = FromQt(dialog->selectedFiles().front());
    KeepFolderOf(*path);
  }
  delete dialog.data();
  return path;
}

QString ReplaceWords(const std::vector<std::string>& files) {
  constexpr std::size_t kMostNamed = 3;
  QStringList lines;
  for (std::size_t i = 0; i < files.size() && i < kMostNamed; ++i)
    lines << QFileInfo(ToQt(files[i])).fileName();
  if (files.size() > kMostNamed) lines << "…" << QFileInfo(ToQt(files.back())).fileName();
  const BilingualText question = files.size() == 1 ? texts::kReplaceOne : texts::kReplaceSeveral;
  return lines.join("\n") + "\n\n" + CurrentText(question);
}

}  // namespace

std::vector<std::string> ExistingFiles(const std::vector<std::string>& files) {
  std::vector<std::string> existing;
  for (const std::string& file : files)
    if (QFileInfo::exists(ToQt(file))) existing.push_back(file);
  return existing;
}

bool ConfirmReplacing(QWidget* parent, const std::vector<std::string>& files) {
  if (files.empty()) return true;
  const QPointer<QMessageBox> box = new QMessageBox(parent);
  box->setObjectName("ReplaceQuestion");
  box->setIcon(QMessageBox::Warning);
  box->setTextFormat(Qt::PlainText);
  box->setWindowTitle(parent->windowTitle());
  box->setText(ReplaceWords(files));
  const QPushButton* yes = box->addButton(CurrentText(texts::kYes), QMessageBox::YesRole);
  QPushButton* no = box->addButton(CurrentText(texts::kNo), QMessageBox::NoRole);
  box->setDefaultButton(no);
  box->setEscapeButton(no);
  box->exec();
  if (box.isNull()) return false;
  const bool confirmed = box->clickedButton() == yes;
  delete box.data();
  return confirmed;
}

QString CurrentFolder() {
  if (Folder().isEmpty()) {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    Folder() = QDir(documents).exists() ? documents : QDir::currentPath();
  }
  return Folder();
}

void KeepFolderOf(const std::string& path) { Folder() = QFileInfo(ToQt(path)).absolutePath(); }

std::optional<std::string> AskOpenPath(QWidget* parent, const OpenQuestion& question) {
  const QPointer<FileDialog> dialog = new FileDialog(parent);
  dialog->setWindowTitle(CurrentText(texts::kOpenDialog));
  dialog->setAcceptMode(QFileDialog::AcceptOpen);
  dialog->setFileMode(QFileDialog::AnyFile);
  QStringList filters;
  for (const FileFilter& filter : question.Filters) filters << FilterText(filter);
  dialog->setNameFilters(filters);
  dialog->setDefaultSuffix(question.DefaultExtension);
  dialog->setLabelText(QFileDialog::Accept, CurrentText(texts::kOpenButton));
  dialog->selectFile(question.ProposedName);
  return Run(dialog);
}

std::optional<std::string> AskSavePath(QWidget* parent, const SaveQuestion& question) {
  const QPointer<FileDialog> dialog = new FileDialog(parent);
  dialog->setWindowTitle(question.Title.isEmpty() ? CurrentText(texts::kSaveDialog)
                                                  : question.Title);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setFileMode(QFileDialog::AnyFile);
  dialog->setNameFilters({FilterText(question.Filter)});
  dialog->setLabelText(QFileDialog::Accept, CurrentText(texts::kSaveButton));
  dialog->selectFile(question.ProposedName);
  dialog->MayAccept = [&question, dialog](const QString& typed) {
    return ConfirmReplacing(dialog, question.Replaced(question.Complete(FromQt(typed))));
  };
  const std::optional<std::string> path = Run(dialog);
  if (!path) return std::nullopt;
  return question.Complete(*path);
}

}  // namespace brivane
