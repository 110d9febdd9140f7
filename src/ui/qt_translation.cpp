#include "ui/qt_translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <array>

#include "ui/qt_text.h"

namespace brivane {

namespace {

/// What the toolkit shows of its own in the program's windows, dialogs, menus and messages.
constexpr auto kWords = std::to_array<BilingualText>({
    // The buttons of dialogs and messages.
    {"OK", "OK"},
    {"&OK", "&OK"},
    {"Cancel", "Annuler"},
    {"&Cancel", "&Annuler"},
    {"Open", "Ouvrir"},
    {"&Open", "&Ouvrir"},
    {"Save", "Enregistrer"},
    {"&Save", "&Enregistrer"},
    {"Save As", "Enregistrer sous"},
    {"&Choose", "&Choisir"},
    {"&Yes", "&Oui"},
    {"&No", "&Non"},
    {"Close", "Fermer"},
    {"Help", "Aide"},
    {"Apply", "Appliquer"},
    {"Abort", "Abandonner"},
    {"Retry", "Réessayer"},
    {"Ignore", "Ignorer"},
    {"Discard", "Ne pas enregistrer"},
    {"Reset", "Réinitialiser"},
    {"Restore Defaults", "Rétablir les valeurs par défaut"},
    {"Save All", "Tout enregistrer"},
    {"Yes to &All", "Oui à &tout"},
    {"N&o to All", "N&on à tout"},
    {"Show Details...", "Montrer les détails..."},
    {"Hide Details...", "Masquer les détails..."},
    {"What's This?", "Qu'est-ce que c'est ?"},
    // File dialogs: labels, buttons with their hints, columns, kinds of files.
    {"Look in:", "Voir dans :"},
    {"File &name:", "&Nom de fichier :"},
    {"Files of type:", "Fichiers de type :"},
    {"Directory:", "Dossier :"},
    {"All Files (*)", "Tous les fichiers (*)"},
    {"All files (*)", "Tous les fichiers (*)"},
    {"Find Directory", "Chercher un dossier"},
    {"Back", "Précédent"},
    {"Go back", "Revenir au dossier précédent"},
    {"Forward", "Suivant"},
    {"Go forward", "Aller au dossier suivant"},
    {"Parent Directory", "Dossier parent"},
    {"Go to the parent directory", "Aller au dossier parent"},
    {"Create New Folder", "Créer un nouveau dossier"},
    {"Create a New Folder", "Créer un nouveau dossier"},
    {"List View", "Vue en liste"},
    {"Change to list view mode", "Passer à la vue en liste"},
    {"Detail View", "Vue détaillée"},
    {"Change to detail view mode", "Passer à la vue détaillée"},
    {"Sidebar", "Barre latérale"},
    {"List of places and bookmarks", "Liste des emplacements et des signets"},
    {"Files", "Fichiers"},
    {"Name", "Nom"},
    {"Size", "Taille"},
    {"Type", "Type"},
    {"Kind", "Type"},
    {"Date Modified", "Dernière modification"},
    {"Computer", "Ordinateur"},
    {"My Computer", "Ordinateur"},
    {"Recent Places", "Emplacements récents"},
    {"Drive", "Disque"},
    {"File", "Fichier"},
    {"%1 File", "Fichier %1"},
    {"Folder", "Dossier"},
    {"File Folder", "Dossier"},
    {"Alias", "Alias"},
    {"Shortcut", "Raccourci"},
    {"Symbolic Link", "Lien symbolique"},
    {"Unknown", "Inconnu"},
    {"%1 bytes", "%1 octets"},
    {"%1 byte(s)", "%1 octet(s)"},
    {"%1 KB", "%1 Ko"},
    {"%1 MB", "%1 Mo"},
    {"%1 GB", "%1 Go"},
    {"%1 TB", "%1 To"},
    // File dialogs: their menus and messages.
    {"&Rename", "&Renommer"},
    {"&Delete", "&Supprimer"},
    {"Show ", "Afficher "},
    {"Show &hidden files", "Afficher les fic&hiers cachés"},
    {"&New Folder", "&Nouveau dossier"},
    {"New Folder", "Nouveau dossier"},
    {"Remove", "Retirer"},
    {"%1 already exists.\nDo you want to replace it?",
     "%1 existe déjà.\nVoulez-vous le remplacer ?"},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     "%1\nFichier introuvable.\nVérifiez que le nom du fichier est le bon."},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "%1\nDossier introuvable.\nVérifiez que le nom du dossier est le bon."},
    {"'%1' is write protected.\nDo you want to delete it anyway?",
     "« %1 » est protégé en écriture.\nVoulez-vous quand même le supprimer ?"},
    {"Are you sure you want to delete '%1'?", "Voulez-vous vraiment supprimer « %1 » ?"},
    {"Could not delete directory.", "Le dossier ne peut pas être supprimé."},
    {"Invalid filename", "Nom de fichier non valable"},
    {"<b>The name \"%1\" cannot be used.</b><p>Try using another name, with fewer characters or no "
     "punctuation marks.",
     "<b>Le nom « %1 » ne peut pas être utilisé.</b><p>Essayez un autre nom, plus court ou sans "
     "ponctuation."},
    // The menus of fields, of words that can be copied, and of scroll bars.
    {"&Undo", "&Annuler"},
    {"&Redo", "&Rétablir"},
    {"Cu&t", "Co&uper"},
    {"&Copy", "Cop&ier"},
    {"&Paste", "Co&ller"},
    {"Delete", "Supprimer"},
    {"Select All", "Tout sélectionner"},
    {"Copy &Link Location", "Copier l'adresse du &lien"},
    {"Insert Unicode control character", "Insérer un caractère de contrôle Unicode"},
    {"Scroll here", "Défiler jusqu'ici"},
    {"Left edge", "Bord gauche"},
    {"Right edge", "Bord droit"},
    {"Top", "Haut"},
    {"Bottom", "Bas"},
    {"Page left", "Page de gauche"},
    {"Page right", "Page de droite"},
    {"Page up", "Page précédente"},
    {"Page down", "Page suivante"},
    {"Scroll left", "Défiler vers la gauche"},
    {"Scroll right", "Défiler vers la droite"},
    {"Scroll up", "Défiler vers le haut"},
    {"Scroll down", "Défiler vers le bas"},
    // Keys in the shortcuts that menus show.
    {"Ctrl", "Ctrl"},
    {"Alt", "Alt"},
    {"Shift", "Maj"},
    {"Del", "Suppr"},
    {"Ins", "Inser"},
    {"Esc", "Échap"},
    {"Return", "Entrée"},
    {"Enter", "Entrée"},
    // What a screen reader says can be done with a control.
    {"Press", "Appuyer"},
    {"Toggle", "Basculer"},
    {"SetFocus", "Donner le focus"},
    {"ShowMenu", "Afficher le menu"},
    {"Increase", "Augmenter"},
    {"Decrease", "Diminuer"},
    {"Next Page", "Page suivante"},
    {"Previous Page", "Page précédente"},
    {"Scroll Left", "Défiler vers la gauche"},
    {"Scroll Right", "Défiler vers la droite"},
    {"Scroll Up", "Défiler vers le haut"},
    {"Scroll Down", "Défiler vers le bas"},
    {"Triggers the action", "Déclenche l'action"},
    {"Toggles the state", "Bascule l'état"},
    {"Sets the focus", "Donne le focus"},
    {"Shows the menu", "Affiche le menu"},
    {"Increase the value", "Augmente la valeur"},
    {"Decrease the value", "Diminue la valeur"},
    {"Goes to the next page", "Va à la page suivante"},
    {"Goes back a page", "Revient à la page précédente"},
    {"Scrolls to the left", "Défile vers la gauche"},
    {"Scrolls to the right", "Défile vers la droite"},
    {"Scrolls up", "Défile vers le haut"},
    {"Scrolls down", "Défile vers le bas"},
});

class OwnWords : public QTranslator {
 public:
  using QTranslator::QTranslator;
  bool isEmpty() const override { return false; }
  QString translate(const char*, const char* source, const char*, int) const override {
    return OwnFrench(source);
  }
};

}  // namespace

QString OwnFrench(const char* source) {
  for (const BilingualText& word : kWords)
    if (word.English == source) return ToQt(word.French);
  return {};
}

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
  // The last one installed is asked first: the words are the same with a catalogue and without.
  if (catalogue->load("qtbase_fr", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(catalogue);
  QCoreApplication::installTranslator(own);
}

}  // namespace brivane
