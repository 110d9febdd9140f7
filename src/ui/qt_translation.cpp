#include "ui/qt_translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <array>

namespace brivane {

namespace {

struct Word {
  const char* Source;
  const char* French;
};

/// What the toolkit's dialogs show of the program's commands: enough to use them in French where
/// the toolkit's catalogue is not installed.
constexpr std::array<Word, 26> kWords = {{{"OK", "OK"},
                                          {"&OK", "&OK"},
                                          {"Cancel", "Annuler"},
                                          {"&Cancel", "&Annuler"},
                                          {"Open", "Ouvrir"},
                                          {"&Open", "&Ouvrir"},
                                          {"Save", "Enregistrer"},
                                          {"&Save", "&Enregistrer"},
                                          {"&Yes", "&Oui"},
                                          {"&No", "&Non"},
                                          {"Close", "Fermer"},
                                          {"Print", "Imprimer"},
                                          {"&Print", "Im&primer"},
                                          {"&Options >>", "&Options >>"},
                                          {"&Options <<", "&Options <<"},
                                          {"Look in:", "Voir dans :"},
                                          {"File &name:", "&Nom de fichier :"},
                                          {"Files of type:", "Fichiers de type :"},
                                          {"Name", "Nom"},
                                          {"Size", "Taille"},
                                          {"Type", "Type"},
                                          {"Date Modified", "Date de modification"},
                                          {"Computer", "Ordinateur"},
                                          {"Printer", "Imprimante"},
                                          {"Copies", "Copies"},
                                          {"Properties", "Propriétés"}}};

class OwnWords : public QTranslator {
 public:
  using QTranslator::QTranslator;
  bool isEmpty() const override { return false; }
  QString translate(const char*, const char* source, const char*, int) const override {
    for (const Word& word : kWords)
      if (qstrcmp(word.Source, source) == 0) return QString::fromUtf8(word.French);
    return {};
  }
};

}  // namespace

void TranslateToolkit(Language language) {
  static QTranslator* const own = new OwnWords(QCoreApplication::instance());
  static QTranslator* const catalogue = new QTranslator(QCoreApplication::instance());
  static bool installed = false;
  const bool wanted = language == Language::French;
  if (wanted == installed) return;
  installed = wanted;
  if (!wanted) {
    QCoreApplication::removeTranslator(catalogue);
    QCoreApplication::removeTranslator(own);
    return;
  }
  // The last one installed is asked first.
  QCoreApplication::installTranslator(own);
  if (catalogue->load("qtbase_fr", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(catalogue);
}

}  // namespace brivane
