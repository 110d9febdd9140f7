#include "export/panels_dxf.h"

#include <span>

#include "export/dxf_entities.h"
#include "export/failure_report.h"
#include "model/failures.h"
#include "model/number_text.h"
#include "model/text_file.h"

namespace brivane {
namespace {

constexpr std::string_view kFamilyMark = "_Panel";
constexpr std::string_view kTitleLabel = " : SUB ePanelDXF";
constexpr std::string_view kClosing = "Closing";
constexpr std::int16_t kGuideColour = 5;
constexpr std::int16_t kOutlineColour = 7;
constexpr std::size_t kPanelVertices = 31 + 75;

struct Pen {
  FileText& Text;
  std::string VertexHead;
  char DecimalMark;
  int Panel;

  // Points first to last of the panel, in either direction.
  void Stretch(const PanelTable& xs, const PanelTable& ys, int first, int last) const {
    const std::span<const double> x = xs.Row(Panel);
    const std::span<const double> y = ys.Row(Panel);
    const int step = first <= last ? 1 : -1;
    for (int k = first; k != last + step; k += step)
      WriteVertex(Text, VertexHead, x[k], y[k], 0, DecimalMark);
  }
};

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
  const DevelopedPanels& panels = sail.Panels;
  FileText text(kPanelVertices * kVertexBytes);
  const auto stage = [&](std::string_view label) { stages.push_back({label, text.Size()}); };

  stages.clear();
  stage("Header");
  WriteEntitiesHead(
      text, std::string(ProgramTitle) + " - panel" + Whole(kBlankTwoDigitsBlank, panel + 1));

  stage("Guide line");
  WritePolylineHeader(text, kGuideColour);
  const Pen guide{text, VertexHead(kGuideColour), decimalMark, panel};
  guide.Stretch(panels.PanelEdgeX, panels.PanelEdgeY, kForwardCorner, kAftCorner);
  WritePolylineEnd(text);

  WritePolylineHeader(text, kOutlineColour);
  const Pen cut{text, VertexHead(kOutlineColour), decimalMark, panel};
  cut.Stretch(panels.PanelLowerX, panels.PanelLowerY, kForwardCorner, kForwardCorner);
  stage("Luff");
  cut.Stretch(panels.PanelEdgeX, panels.PanelEdgeY, 0, kForwardCorner);
  stage("Upper line");
  cut.Stretch(panels.PanelUpperX, panels.PanelUpperY, kForwardCorner, kAftCorner);
  stage("Leech");
  cut.Stretch(panels.PanelEdgeX, panels.PanelEdgeY, kAftCorner, kLastPoint);
  stage("Lower line");
  cut.Stretch(panels.PanelLowerX, panels.PanelLowerY, kAftCorner, kForwardCorner);
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
