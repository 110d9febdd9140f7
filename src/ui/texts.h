#pragma once

#include <array>

#include "model/language.h"

/// The captions, messages and hints of the windows that no lower floor owns.
namespace brivane::texts {

inline constexpr BilingualText kOk{"OK", "OK"};
inline constexpr BilingualText kYes{"&Yes", "&Oui"};
inline constexpr BilingualText kNo{"&No", "&Non"};
inline constexpr BilingualText kQuit{"Quit", "Quitter"};

// Start window.
inline constexpr BilingualText kWelcome{" Welcome to ", " Bienvenue sur "};
inline constexpr BilingualText kCreate{"Create a new sail", "Créer une nouvelle voile"};
inline constexpr BilingualText kStartTagline{"Sail design and cutting",
                                             "Conception et coupe de voiles"};

// Dimensions window. The captions of its fields belong to their table.
inline constexpr BilingualText kDimensionsSuffix{" - Sail dimensions", " - Géométrie de la voile"};
inline constexpr BilingualText kValidate{"Validate", "Valider"};
inline constexpr std::array<BilingualText, 6> kDimensionGroups = {
    {{"Dimensions", "Dimensions"},
     {"Edge rounds", "Ronds des bords"},
     {"Mould", "Moule"},
     {"Cloth", "Tissu"},
     {"Result", "Résultat"},
     {"Cut", "Coupe"}}};
inline constexpr std::array<BilingualText, 3> kCuts = {
    {{"Cross cut", "Coupe horizontale"},
     {"Twist foot cut", "Coupe horizontale, pied tourné"},
     {"Vertical cut", "Coupe verticale"}}};
inline constexpr std::array<BilingualText, 3> kCutHints = {
    {{"Seams square to the leech", "Coutures perpendiculaires à la chute"},
     {"Seams square to the leech, the lowest panels turned to meet the luff",
      "Coutures perpendiculaires à la chute, les laizes du bas tournées vers le guindant"},
     {"Seams parallel to the leech", "Coutures parallèles à la chute"}}};

// Drawing window.
inline constexpr BilingualText kFileMenu{"&File", "&Fichier"};
inline constexpr BilingualText kNew{"&New", "&Nouveau"};
inline constexpr BilingualText kOpen{"&Open", "&Ouvrir"};
inline constexpr BilingualText kPrintMenu{"&Print", "Im&Primer"};
inline constexpr BilingualText kData{"Data", "Données"};
inline constexpr BilingualText kDrawing{"Drawing", "Dessin"};
inline constexpr BilingualText kPanels{"Panels", "Laizes"};
inline constexpr BilingualText kPrinterSetup{"Printer setup", "Printer setup"};
inline constexpr BilingualText kSaveMenu{"&Save", "&Sauvegarder"};
inline constexpr BilingualText kPanelsDxf{"Panels DXF", "Laizes DXF"};
inline constexpr BilingualText kPanelsXY{"Panels X-Y", "Laizes X-Y"};
inline constexpr BilingualText kPlotter{"Tovarek plotter", "Table Tovarek"};
inline constexpr BilingualText kVrml{"VRML", "VRML"};
inline constexpr BilingualText kQuitCommand{"&Quit", "&Quitter"};
inline constexpr BilingualText kDimensionsCommand{"&Dimensions", "&Dimensions"};
inline constexpr BilingualText kMouldCommand{"Mould", "Moule"};
inline constexpr BilingualText kPatchesCommand{"Patches", "Renforts"};
inline constexpr BilingualText kDrawingSuffix{" - Drawing of the sail : ",
                                              " - Dessin de la voile : "};
inline constexpr BilingualText kDevelop{"Develop", "Développer"};
inline constexpr BilingualText kRedraw{"Redraw", "Redessiner"};
inline constexpr BilingualText kLabels{"Labels", "Légende"};
inline constexpr BilingualText kAzimuth{"Azimuth of the view", "Azimut de la vue"};
inline constexpr BilingualText kElevation{"Elevation of the view", "Élévation de la vue"};
inline constexpr BilingualText kAzimuthIcon{"An arrow round an upright axis",
                                            "Une flèche autour d'un axe vertical"};
inline constexpr BilingualText kElevationIcon{"An arrow round a level axis",
                                              "Une flèche autour d'un axe horizontal"};
inline constexpr BilingualText kPicture{"Drawing of the sail", "Dessin de la voile"};
inline constexpr BilingualText kPictureHint{
    "Drag with the left button to zoom, with the right button to move; turn the wheel to zoom",
    "Glisser avec le bouton gauche pour agrandir, avec le droit pour déplacer ; la molette "
    "agrandit "
    "ou réduit"};
inline constexpr BilingualText kShortPictureHint{
    "Left button: zoom; right button: move; wheel: zoom",
    "Bouton gauche : zoom ; droit : déplacer ; molette : zoom"};
inline constexpr std::string_view kInvalidFileType = "Invalid file type selected";
inline constexpr BilingualText kCancelSelected{"No file was chosen.", "Aucun fichier choisi."};
inline constexpr std::string_view kOpenTitle = " : Dessin1 File Open procedure";

// Mould window.
inline constexpr BilingualText kMouldSuffix{" - Sail mould", " - Moule de la voile"};
inline constexpr std::array<BilingualText, 5> kMouldRows = {
    {{"Shape on luff side . . . . . . . .", "Forme coté guindant . . . . . . . ."},
     {"Sail depth  (%)", "Creux de la voile (%)"},
     {"Shape on leech side . . . . . . . .", "Forme coté chute . . . . . . . ."},
     {"Depth at 20%  (%) . . . . . . . .", "Creux à 20%  (%) . . . . . . . ."},
     {"Depth at 80%  (%) . . . . . . . .", "Creux à 80%  (%) . . . . . . . ."}}};
inline constexpr BilingualText kLuffSide{"Shape on luff side", "Forme coté guindant"};
inline constexpr BilingualText kLeechSide{"Shape on leech side", "Forme coté chute"};
inline constexpr BilingualText kDepthPosition{"Vertical position of maximum depth",
                                              "Position verticale du creux maximum"};
inline constexpr std::array<BilingualText, 3> kMouldColumns = {
    {{"Bottom", "Bas"}, {"Middle", "Milieu"}, {"Top", "Haut"}}};
inline constexpr BilingualText kFirstProfile{
    "Maximum depth profile in a plane perpendicular to the leech",
    "Profil au creux max de la voile dans un plan perpendiculaire à la chute"};
inline constexpr BilingualText kSecondProfile{
    "Top of sail profile in a plane perpendicular to the leech",
    "Profil en haut de la voile dans un plan perpendiculaire à la chute"};
inline constexpr BilingualText kLoadMould{"Load the mould from a sail",
                                          "Charger le moule d'une voile"};
inline constexpr BilingualText kDone{"Done", "Terminé"};
inline constexpr std::string_view kCannotImport = " Selected type of file cannot be imported";
inline constexpr std::string_view kMouldOpenTitle = " : SailForm File Open procedure";
inline constexpr std::string_view kMouldLoadTitle = " : SailForm file loading procedure";

// Corner patch window, in the order clew, tack, head, peak.
inline constexpr BilingualText kPatchSuffix{" - Corner patches", " - Renforts des coins"};
inline constexpr std::array<BilingualText, 4> kPatchCorner = {
    {{"Clew corner patch", "Renfort point d'écoute"},
     {"Tack corner patch", "Renfort point d'amure"},
     {"Head of luff patch", "Renfort tête du guindant"},
     {"Peak patch", "Renfort extrémité de vergue"}}};
inline constexpr std::array<BilingualText, 4> kPatchHeight = {
    {{"Height (% leech)", "Hauteur (% chute)"},
     {"Height (% luff)", "Hauteur (% guindant)"},
     {"Height (% luff)", "Hauteur (% guindant)"},
     {"Height (% leech)", "Hauteur (% chute)"}}};
inline constexpr std::array<BilingualText, 4> kPatchWidth = {
    {{"Width (% foot)", "Largeur (% bordure)"},
     {"Width (% foot)", "Largeur (% bordure)"},
     {"Width (% gaff)", "Largeur (% vergue)"},
     {"Width (% gaff)", "Largeur (% vergue)"}}};
inline constexpr BilingualText kPatchPicture{"Drawing of the corner patches",
                                             "Dessin des renforts des coins"};
inline constexpr BilingualText kPatchHint{"Whole percent from 1 to 50",
                                          "Pourcentage entier de 1 à 50"};
inline constexpr BilingualText kPatchPlotter{"Tovarek plotter file", "Fichier traceur Tovarek"};
inline constexpr BilingualText kPatchDxf{"DXF files", "Fichiers DXF"};

// Printing.
inline constexpr std::string_view kPrinterProblem = "Printer problem";
inline constexpr BilingualText kPrinter{"P&rinter", "I&mprimante"};
inline constexpr BilingualText kAskingForPrinters{"Asking for printers…",
                                                  "Recherche d’imprimantes…"};
inline constexpr BilingualText kPdfFile{"PDF file", "Fichier PDF"};
inline constexpr BilingualText kPdfFiles{"PDF files", "Fichiers PDF"};
inline constexpr BilingualText kPdfPath{"&File name", "Nom de &fichier"};
inline constexpr BilingualText kBrowse{"&Browse…", "Pa&rcourir…"};
inline constexpr BilingualText kPaper{"P&aper", "Pa&pier"};
inline constexpr BilingualText kPortrait{"P&ortrait", "P&ortrait"};
inline constexpr BilingualText kLandscape{"&Landscape", "Pa&ysage"};

// File dialogs.
inline constexpr BilingualText kOpenDialog{"Open", "Ouvrir"};
inline constexpr BilingualText kSaveDialog{"Save as", "Enregistrer sous"};
inline constexpr BilingualText kOpenButton{"&Open", "&Ouvrir"};
inline constexpr BilingualText kSaveButton{"&Save", "&Enregistrer"};
inline constexpr BilingualText kCancelButton{"&Cancel", "&Annuler"};
inline constexpr BilingualText kByte{"byte", "octet"};
inline constexpr BilingualText kBytes{"bytes", "octets"};
inline constexpr std::array<BilingualText, 3> kLargeSizes = {
    {{"kB", "ko"}, {"MB", "Mo"}, {"GB", "Go"}}};
inline constexpr BilingualText kFile{"File", "Fichier"};
inline constexpr BilingualText kFileKind{"%1 file", "Fichier %1"};  ///< by its extension
inline constexpr BilingualText kFileDate{"yyyy-MM-dd HH:mm", "dd/MM/yyyy HH:mm"};
inline constexpr BilingualText kFolder{"Folder", "Dossier"};
inline constexpr BilingualText kReplaceOne{"This file exists already. Do you want to replace it?",
                                           "Ce fichier existe déjà. Voulez-vous le remplacer ?"};
inline constexpr BilingualText kReplaceSeveral{
    "These files exist already. Do you want to replace them?",
    "Ces fichiers existent déjà. Voulez-vous les remplacer ?"};

}  // namespace brivane::texts
