#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QWidget>

namespace brivane {

/// The home of a user who is not there: a folder of its own with sails, hostile files and nothing
/// of value, in which everything that is opened, saved and printed stays.
class MonkeyScratch {
 public:
  /// Moves the program into the folder: its home, its settings and its working directory, with no
  /// printer in reach. Before the application is made.
  MonkeyScratch();

  /// Empties the folder of documents and puts the files into it that there are to begin with.
  void Restore() const;

  /// Names of files to type: those that are there, new ones and hostile ones.
  QStringList Names() const;

  /// Whether the path, as it stands or taken from the folder, lies in the scratch folder.
  bool Holds(const QString& folder, const QString& path) const;

  /// Brings a file dialog or the printer setup back, where it has strayed out of the folder.
  void KeepInside(QWidget* dialog) const;

  const QString& Documents() const { return documents_; }

 private:
  void AddSails() const;
  void AddHostileFiles() const;
  void Write(const QString& name, const QByteArray& bytes) const;

  QTemporaryDir root_;
  QString documents_;
};

}  // namespace brivane
