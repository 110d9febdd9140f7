#include "export/record_text.h"

#include <cmath>

#include "model/number_text.h"

namespace brivane {
namespace {

constexpr std::string_view kZoneOfBlanks = "              ";
static_assert(kZoneOfBlanks.size() == kPrintZone);

/// Blanks from a line's end so far up to the next print zone. Returns where that begins.
char* PutZoneEnd(char* end, const char* lineStart) {
  const std::size_t length = static_cast<std::size_t>(end - lineStart);
  return PutWords(end, kZoneOfBlanks.substr(length % kPrintZone));
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
  char* const start = text.Room(first.size() + kPrintZone);
  text.EndAt(PutZoneEnd(PutWords(start, first), start));
  text += second;
  text += kLineEnd;
}

void AppendPlotterPoint(FileText& text, double x, double y, char decimalMark) {
  char* const start = text.Room(2 * kLongestFixed + 2 * kPrintZone);
  // The first number seldom leaves its zone.
  char* second = PutWords(start, kZoneOfBlanks);
  char* const end = PutFixed<1>(start, x < 0, std::fabs(x), decimalMark) + 1;
  if (end >= second) {
    end[-1] = ' ';
    second = PutZoneEnd(end, start);
  }
  text.EndAt(PutWords(PutFixed<1>(second, y < 0, std::fabs(y), decimalMark), " \r\n"));
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
