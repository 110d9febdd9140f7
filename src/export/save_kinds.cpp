#include "export/save_kinds.h"

#include <filesystem>

#include "export/failure_report.h"
#include "export/panels_dxf.h"
#include "export/panels_xy.h"
#include "export/plotter.h"
#include "export/vrml1.h"
#include "export/vrml2.h"
#include "model/sail_file.h"
#include "model/text_file.h"

namespace brivane {
namespace {

constexpr std::size_t kTrimmedCharacters = 4;

struct KindRow {
  std::string_view DialogTitle;
  std::string_view Filter;
  std::string_view Extension;
  std::string_view FailureLabel;
};

constexpr KindRow RowOf(SaveKind kind) {
  switch (kind) {
    case SaveKind::SailData:
      break;
    case SaveKind::PanelsXY:
      return {"", "Developped files (.xyz)|*.xyz", ".xyz", " : SUB ePanelXY"};
    case SaveKind::Plotter:
      return {"", "Tovarek plotter files (.bp4)|*.bp4", ".bp4", " : SUB eTovarek"};
    case SaveKind::Vrml1:
      return {"", "VRML1.0 files (.wrl)|*.wrl", ".wrl", " : SUB eVRML1"};
    case SaveKind::PanelsDxf:
      return {"", "Developped files (.dxf)|*.dxf", ".dxf", " : SUB ePanelDXF"};
    case SaveKind::Vrml2:
      return {"Brivane2000", "VRML (*.WRL)|*.WRL", ".WRL", " : SUB eVRML2"};
  }
  return {"", "Brivane files (.bv3)|*.bv3", ".bv3", kWriteSailDataTitle};
}

bool StartsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

// The text less its last characters, or whole where it has fewer. A character is one of UTF-8.
std::string_view WithoutLastCharacters(std::string_view text, std::size_t count) {
  std::size_t end = text.size();
  for (; count > 0; --count) {
    if (end == 0) return text;
    do --end;
    while (end > 0 && !StartsCharacter(text[end]));
  }
  return text.substr(0, end);
}

std::string TextOf(SaveKind kind, const Sail& sail, char decimalMark) {
  switch (kind) {
    case SaveKind::PanelsXY:
      return PanelsXYText(sail, decimalMark);
    case SaveKind::Plotter:
      return PlotterText(sail, decimalMark);
    case SaveKind::Vrml1:
      return Vrml1Text(sail, decimalMark);
    case SaveKind::Vrml2:
      return Vrml2Text(sail);
    case SaveKind::SailData:
    case SaveKind::PanelsDxf:
      break;
  }
  return SailDataText(sail.Definition);
}

SaveOutcome WriteSail(SaveKind kind, const Sail& sail, const std::string& path, Language language,
                      char decimalMark) {
  if (kind == SaveKind::PanelsDxf) return ePanelDXF(sail, path, language, decimalMark);
  return RunReported(RowOf(kind).FailureLabel, language, [&] {
    if (kind == SaveKind::SailData)
      WriteSailDataFile(path, sail.Definition);
    else
      WritePlainFile(path, TextOf(kind, sail, decimalMark));
  });
}

}  // namespace

std::optional<SaveKind> SaveKindOfNumber(std::int16_t number) {
  if (number < 0 || number > static_cast<std::int16_t>(SaveKind::PanelsDxf)) return {};
  return static_cast<SaveKind>(number);
}

SaveDialogTexts DialogTexts(SaveKind kind) {
  const KindRow row = RowOf(kind);
  const std::size_t bar = row.Filter.find('|');
  return {row.DialogTitle, row.Filter, row.Filter.substr(0, bar), row.Filter.substr(bar + 1),
          row.Extension};
}

std::string SaveCommandTitle() { return TitleOf(" : Dessin1 SaveData procedure"); }

std::string ProposedName(SaveKind kind, std::string_view sailName) {
  return std::string(sailName) + std::string(RowOf(kind).Extension);
}

std::string_view FileTitle(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string WithExtension(SaveKind kind, std::string_view path) {
  std::string_view title = FileTitle(path);
  if (title.empty()) return std::string(path);
  const std::size_t dot = title.rfind('.');
  const bool endsInDot = dot == title.size() - 1;
  if (dot != std::string_view::npos && dot > 0 && !endsInDot) return std::string(path);
  if (endsInDot) path.remove_suffix(1);
  return std::string(path) + std::string(RowOf(kind).Extension);
}

std::string TrimSailName(SaveKind kind, std::string_view fileTitle) {
  if (kind == SaveKind::PanelsDxf || kind == SaveKind::Vrml2) {
    std::string_view name = fileTitle.substr(0, fileTitle.find('.'));
    if (kind == SaveKind::PanelsDxf) name = name.substr(0, name.find("_Panel"));
    return std::string(name);
  }
  return std::string(WithoutLastCharacters(fileTitle, kTrimmedCharacters));
}

std::vector<std::string> FilesToWrite(SaveKind kind, const Sail& sail, std::string_view path) {
  const std::string whole = WithExtension(kind, path);
  if (kind == SaveKind::PanelsDxf) return PanelDxfPaths(sail, whole);
  return {whole};
}

std::vector<std::string> FilesToReplace(SaveKind kind, const Sail& sail, std::string_view path) {
  std::vector<std::string> existing;
  for (std::string& file : FilesToWrite(kind, sail, path)) {
    std::error_code ignored;
    if (std::filesystem::exists(file, ignored)) existing.push_back(std::move(file));
  }
  return existing;
}

SaveOutcome SaveSail(SaveKind kind, Sail& sail, std::string_view path, Language language,
                     char decimalMark) {
  try {
    const std::string whole = WithExtension(kind, path);
    sail.Definition.SailName = TrimSailName(kind, FileTitle(whole));
    return WriteSail(kind, sail, whole, language, decimalMark);
  } catch (const std::exception& failure) {
    return {FailureReport{SaveCommandTitle(), WordsOfWriting(failure, language)}, {}};
  }
}

}  // namespace brivane
