#include "export/panels_dxf.h"

#include <array>

#include "export/dxf_entities.h"
#include "export/failure_report.h"
#include "model/failures.h"
#include "model/number_text.h"
#include "model/panel_walk.h"
#include "model/text_file.h"

namespace brivane {
namespace {

constexpr std::string_view kFamilyMark = "_Panel";
constexpr std::string_view kTitleLabel = " : SUB ePanelDXF";
constexpr std::string_view kClosing = "Closing";
constexpr std::int16_t kGuideColour = 5;
constexpr std::int16_t kOutlineColour = 7;
constexpr std::size_t kPanelVertices = kGuideLine.Count() + CountOf(kPanelOutline);

// The stages that begin with the stretches of the outline; its first point still belongs to the
// stage before.
constexpr std::array<std::string_view, kPanelOutline.size()> kStretchStages = {
    "", "Luff", "Upper line", "Leech", "Lower line"};

// Whole numbers carry no decimal mark.
std::string Whole(const NumberPattern& pattern, int number) {
  return FormatPattern(pattern, number, '.');
}

// The stage to which the byte at the offset belongs.
std::string_view StageAt(const std::vector<DxfStage>& stages, std::size_t offset) {
  std::string_view label = stages.front().Label;
  for (const DxfStage& stage : stages)
    if (stage.Offset <= offset) label = stage.Label;
  return label;
}

std::string_view StageOfFailure(const std::vector<DxfStage>& stages, const FileError& error) {
  if (error.Step == FileStep::Opening) return stages.front().Label;
  if (error.Step == FileStep::Closing) return kClosing;
  return StageAt(stages, error.BytesWritten);
}

FailureReport Report(int panel, std::string_view stage, std::string_view words) {
  return {TitleOf(kTitleLabel), "Panel" + Whole(kBlankTwoDigitsBlank, panel) + std::string(stage) +
                                    '\n' + std::string(words)};
}

Message Confirmation(const SailDefinition& sail, Language language) {
  constexpr BilingualText kSaved = {"Developped panels saved ", "Panneaux développés sauvegardés "};
  constexpr BilingualText kFrom = {"from : ", "de : "};
  constexpr BilingualText kTo = {"   to : ", "  à : "};
  std::string text(kSaved.In(language));
  text += '\n';
  text += kFrom.In(language);
  text += sail.SailName + "_Panel01.DXF \n";
  text += kTo.In(language);
  text += sail.SailName + "_Panel";
  text += Whole(kTwoDigits, sail.PanelCount);
  return {TitleOf(" : panels DXF"), text + ".DXF"};
}

}  // namespace

std::string PanelDxfBase(std::string_view path) {
  const std::size_t mark = path.find(kFamilyMark);
  if (mark != std::string_view::npos && mark > 0) return std::string(path.substr(0, mark));
  return std::string(path.substr(0, path.find('.')));
}

std::string PanelDxfPath(std::string_view base, int panel) {
  std::string path(base);
  path += kFamilyMark;
  path += Whole(kTwoDigits, panel + 1);
  return path + ".DXF";
}

std::string PanelDxfText(const Sail& sail, int panel, char decimalMark,
                         std::vector<DxfStage>& stages) {
  FileText text(kPanelVertices * kVertexBytes);
  const auto stage = [&](std::string_view label) { stages.push_back({label, text.Size()}); };

  stages.clear();
  stage("Header");
  WriteEntitiesHead(
      text, std::string(ProgramTitle) + " - panel" + Whole(kBlankTwoDigitsBlank, panel + 1));

  stage("Guide line");
  const auto walk = [&](const PanelStretch& stretch, const std::string& vertexHead) {
    WalkStretch(sail.Panels, panel, stretch,
                [&](double x, double y) { WriteVertex(text, vertexHead, x, y, 0, decimalMark); });
  };
  WritePolylineHeader(text, kGuideColour);
  walk(kGuideLine, VertexHead(kGuideColour));
  WritePolylineEnd(text);

  WritePolylineHeader(text, kOutlineColour);
  const std::string cutHead = VertexHead(kOutlineColour);
  for (std::size_t i = 0; i < kPanelOutline.size(); ++i) {
    if (!kStretchStages[i].empty()) stage(kStretchStages[i]);
    walk(kPanelOutline[i], cutHead);
  }
  WritePolylineEnd(text);

  stage(kClosing);
  WriteEntitiesEnd(text);
  return text.Take();
}

std::vector<std::string> PanelDxfPaths(const Sail& sail, std::string_view path) {
  const std::string base = PanelDxfBase(path);
  std::vector<std::string> paths;
  for (int panel = 0; panel < sail.Definition.PanelCount; ++panel)
    paths.push_back(PanelDxfPath(base, panel));
  return paths;
}

std::vector<ExportFile> PanelDxfFiles(const Sail& sail, std::string_view path, char decimalMark) {
  const std::string base = PanelDxfBase(path);
  std::vector<ExportFile> files;
  std::vector<DxfStage> stages;
  for (int panel = 0; panel < sail.Definition.PanelCount; ++panel)
    files.push_back({PanelDxfPath(base, panel), PanelDxfText(sail, panel, decimalMark, stages)});
  return files;
}

SaveOutcome ePanelDXF(const Sail& sail, std::string_view path, Language language,
                      char decimalMark) {
  const std::string base = PanelDxfBase(path);
  std::vector<DxfStage> stages;
  for (int panel = 0; panel < sail.Definition.PanelCount; ++panel) {
    try {
      const std::string text = PanelDxfText(sail, panel, decimalMark, stages);
      WritePlainFile(PanelDxfPath(base, panel), text);
    } catch (const FileError& error) {
      if (error.IsPathAccess())
        return {FailureReport{TitleOf(kTitleLabel), std::string(kPathAccessText)}, {}};
      return {Report(panel, StageOfFailure(stages, error), error.Words.In(language)), {}};
    } catch (const std::exception& error) {
      return {Report(panel, stages.back().Label, WordsOf(error, language)), {}};
    }
  }
  return {{}, Confirmation(sail.Definition, language)};
}

}  // namespace brivane
