#include "export/record_text.h"

#include "model/number_text.h"

namespace brivane {
namespace {

constexpr NumberPattern kTenthsEnd = {"", 1, 1, " \r\n"};  ///< closes a point line

/// Blanks up to the next print zone of the line that starts there.
void FillZone(FileText& text, std::size_t lineStart) {
  constexpr std::string_view kZoneOfBlanks = "              ";
  static_assert(kZoneOfBlanks.size() == kPrintZone);
  char* const at = text.Room(kPrintZone);
  PutWords(at, kZoneOfBlanks);
  text.EndAt(at + kPrintZone - (text.Size() - lineStart) % kPrintZone);
}

}  // namespace

void AppendLine(FileText& text, std::string_view line) {
  text += line;
  text += kLineEnd;
}

std::string LineName(std::string_view sailName) {
  std::string name(sailName);
  std::erase_if(name, [](char byte) { return static_cast<unsigned char>(byte) < 32; });
  return name;
}

void AppendZones(FileText& text, std::string_view first, std::string_view second) {
  const std::size_t start = text.Size();
  text += first;
  FillZone(text, start);
  text += second;
  text += kLineEnd;
}

void AppendPlotterPoint(FileText& text, double x, double y, char decimalMark) {
  const std::size_t start = text.Size();
  AppendPattern<kTenthsBlank>(text, x, decimalMark);
  FillZone(text, start);
  AppendPattern<kTenthsEnd>(text, y, decimalMark);
}

void AppendPlotterCommand(FileText& text, std::string_view word, int points) {
  AppendZones(text, word, StrNum(points));
}

void AppendPlotterRecord(FileText& text, std::string_view label, double x, double y) {
  text += "panel,";
  text += label;
  for (const double field : {1.0, x, y, 0.0, 6.0}) {
    text += ',';
    AppendStrNum(text, field);
  }
  text += kLineEnd;
}

PanelPlace PlaceOfPanel(const SurfaceGrid& grid, int panel) {
  const double lower = grid.SurfaceX(panel, kEdgeCodeColumn);
  const double upper = grid.SurfaceX(panel + 1, kEdgeCodeColumn);
  if (upper == 0) return PanelPlace::Foot;
  if (upper == 1 && lower == 0) return PanelPlace::Tack;
  if (upper == 1 && lower == 1) return PanelPlace::Luff;
  if (upper == 2 && lower == 1) return PanelPlace::Head;
  return PanelPlace::Gaff;
}

}  // namespace brivane
