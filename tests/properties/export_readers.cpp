#include "properties/export_readers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace brivane {
namespace {

[[noreturn]] void Refuse(std::string_view what, std::string_view text) {
  throw FormatFault(std::string(what) + ": \"" + std::string(text.substr(0, 80)) + "\"");
}

void Require(bool holds, std::string_view what, std::string_view text) {
  if (!holds) Refuse(what, text);
}

bool IsDigits(std::string_view text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// A text of digits, a point and an exponent.
double ToDouble(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  Require(error == std::errc() && end == text.data() + text.size() &&
              text.find_first_not_of("0123456789.E+-") == std::string_view::npos,
          "no number", text);
  return value;
}

/// Numbers of fewer digits are whole units that a double holds; one division makes them exact.
constexpr std::size_t kExactDigits = 15;
constexpr std::array<double, 4> kUnits = {1, 10, 100, 1000};

std::string WithPoint(std::string_view text, std::size_t decimals) {
  std::string pointed(text);
  pointed[pointed.size() - decimals - 1] = '.';
  return pointed;
}

int ToWhole(std::string_view text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  Require(error == std::errc() && end == text.data() + text.size(), "no whole number", text);
  return value;
}

std::string_view WithoutFront(std::string_view text, std::string_view front) {
  Require(text.starts_with(front), "another beginning", text);
  return text.substr(front.size());
}

std::string_view WithoutBack(std::string_view text, std::string_view back) {
  Require(text.ends_with(back), "another end", text);
  return text.substr(0, text.size() - back.size());
}

/// Takes the lines of a file one after the other.
class Lines {
 public:
  explicit Lines(std::string_view text) : lines_(LinesOf(text)) {}

  bool AtEnd() const { return next_ == lines_.size(); }
  std::string_view Peek() const { return AtEnd() ? std::string_view() : lines_[next_]; }
  std::string_view Take() {
    if (AtEnd()) throw FormatFault("the file ends too soon");
    return lines_[next_++];
  }
  void Expect(std::string_view line) {
    const std::string_view taken = Take();
    if (taken != line) Refuse("not the line \"" + std::string(line) + "\"", taken);
  }
  void ExpectAll(std::initializer_list<std::string_view> lines) {
    for (const std::string_view line : lines) Expect(line);
  }

 private:
  std::vector<std::string_view> lines_;
  std::size_t next_ = 0;
};

// --- DXF ---------------------------------------------------------------------------------------

int TakeColour(Lines& lines) {
  lines.ExpectAll({"  8", "1", " 62"});
  return ToWhole(WithoutFront(lines.Take(), "      "));
}

double TakeCoordinate(Lines& lines, std::string_view code, char mark) {
  lines.Expect(code);
  return ReadFixed(WithoutBack(lines.Take(), " "), 2, mark);
}

DxfPolyline TakePolyline(Lines& lines, char mark) {
  DxfPolyline polyline;
  polyline.Colour = TakeColour(lines);
  lines.ExpectAll({" 66", "      1", "  6", "CONTINUOUS", " 70", "      8", "  0"});
  while (lines.Peek() == "VERTEX") {
    lines.Take();
    if (TakeColour(lines) != polyline.Colour) throw FormatFault("a vertex of another colour");
    lines.ExpectAll({"  6", "CONTINUOUS", " 70", "     32"});
    Corner& point = polyline.Points.emplace_back();
    point.x = TakeCoordinate(lines, " 10", mark);
    point.y = TakeCoordinate(lines, " 20", mark);
    point.z = TakeCoordinate(lines, " 30", mark);
    lines.Expect("  0");
  }
  lines.Expect("SEQEND");
  return polyline;
}

// --- XY ----------------------------------------------------------------------------------------

bool IsPointLine(std::string_view line) {
  return line.size() > 1 && line[0] == ' ' && (line[1] == '-' || IsDigits(line.substr(1, 1)));
}

std::vector<PlanePoint> TakeXyPoints(Lines& lines, char mark) {
  std::vector<PlanePoint> points;
  while (IsPointLine(lines.Peek())) {
    const std::string_view line = lines.Take();
    const std::size_t split = line.find(';');
    Require(split != std::string_view::npos, "no two numbers", line);
    const auto number = [&](std::string_view text) {
      return ReadFixed(WithoutBack(WithoutFront(text, " "), " "), 1, mark);
    };
    points.push_back({number(line.substr(0, split)), number(line.substr(split + 1))});
  }
  return points;
}

XyPanel TakeXyPanel(Lines& lines, char mark) {
  XyPanel panel;
  const std::string_view rest = WithoutFront(lines.Take(), "PANEL; ");
  const std::size_t split = rest.find(" ;");
  Require(split != std::string_view::npos, "no place", rest);
  panel.Number = ToWhole(rest.substr(0, split));
  panel.Place = rest.substr(split + 2);
  lines.Expect(" CUT ;lower edge");
  panel.LowerEdge = TakeXyPoints(lines, mark);
  lines.ExpectAll({"", " CUT ;upper edge"});
  panel.UpperEdge = TakeXyPoints(lines, mark);
  lines.ExpectAll({"", " DRAW ;upper edge guideline"});
  panel.GuideLine = TakeXyPoints(lines, mark);
  return panel;
}

// --- Plotter -----------------------------------------------------------------------------------

/// Two items, the second at the beginning of a print zone of 14 columns.
std::pair<std::string_view, std::string_view> SplitZones(std::string_view line,
                                                         std::size_t firstSize) {
  const std::size_t zone = (firstSize / 14 + 1) * 14;
  Require(line.size() > zone, "no second zone", line);
  const std::string_view gap = line.substr(firstSize, zone - firstSize);
  Require(gap.find_first_not_of(' ') == std::string_view::npos, "no gap", line);
  return {line.substr(0, firstSize), line.substr(zone)};
}

std::vector<PlanePoint> TakeCommand(Lines& lines, std::string_view word, char mark) {
  const std::string_view command = lines.Take();
  Require(command.starts_with(word), "another command", command);
  const int count = ToWhole(WithoutFront(SplitZones(command, word.size()).second, " "));
  std::vector<PlanePoint> points;
  for (int point = 0; point < count; ++point) {
    const std::string_view line = lines.Take();
    const std::size_t blank = line.find(' ');
    Require(blank != std::string_view::npos, "no two numbers", line);
    const auto [x, y] = SplitZones(line, blank + 1);
    points.push_back(
        {ReadFixed(WithoutBack(x, " "), 1, mark), ReadFixed(WithoutBack(y, " "), 1, mark)});
  }
  return points;
}

PlotterRecord TakeRecord(Lines& lines, char mark) {
  const std::string_view line = lines.Take();
  std::vector<std::string_view> fields;
  for (std::size_t from = 0; from <= line.size();) {
    const std::size_t end = std::min(line.find(',', from), line.size());
    fields.push_back(line.substr(from, end - from));
    from = end + 1;
  }
  Require(fields.size() == 7 && fields[0] == "panel" && fields[2] == " 1" && fields[5] == " 0" &&
              fields[6] == " 6",
          "no record of a panel", line);
  PlotterRecord record;
  record.Label = fields[1];
  record.LabelPlace = {ReadPlain(fields[3]), ReadPlain(fields[4])};
  if (lines.Peek().starts_with("draw")) record.Draw = TakeCommand(lines, "draw", mark);
  record.Cut = TakeCommand(lines, "cut", mark);
  return record;
}

// --- VRML --------------------------------------------------------------------------------------

/// Takes the next word off the front of a line, empty at its end: blanks and commas are between
/// words, a "#" ends the line.
std::string_view TakeWord(std::string_view& line) {
  const auto isBetween = [](char c) { return c == ' ' || c == ','; };
  std::size_t from = 0;
  while (from < line.size() && isBetween(line[from])) ++from;
  std::size_t end = from;
  while (end < line.size() && !isBetween(line[end]) && line[end] != '#') ++end;
  const std::string_view word = line.substr(from, end - from);
  line.remove_prefix(word.empty() ? line.size() : end);
  return word;
}

std::vector<Corner> TakePoints(Lines& lines) {
  std::vector<Corner> points;
  for (;;) {
    std::string_view line = lines.Take();
    const std::string_view first = TakeWord(line);
    if (first == "]") return points;
    Corner& point = points.emplace_back();
    point.x = ReadFixed(first, 3, '.');
    point.y = ReadFixed(TakeWord(line), 3, '.');
    point.z = ReadFixed(TakeWord(line), 3, '.');
    Require(TakeWord(line).empty(), "more than three coordinates", line);
  }
}

std::vector<int> TakeIndices(Lines& lines) {
  std::vector<int> indices;
  for (;;) {
    std::string_view line = lines.Take();
    for (std::string_view word = TakeWord(line); !word.empty(); word = TakeWord(line)) {
      if (word == "]") return indices;
      indices.push_back(ToWhole(word));
    }
  }
}

std::vector<double> ReadPosition(std::string_view rest, int places, char mark) {
  std::vector<double> position;
  for (std::size_t from = rest.find_first_not_of(' '); from != std::string_view::npos;) {
    const std::size_t end = std::min(rest.find(' ', from), rest.size());
    position.push_back(ReadFixed(rest.substr(from, end - from), places, mark));
    from = rest.find_first_not_of(' ', end);
  }
  return position;
}

}  // namespace

double ReadFixed(std::string_view text, int places, char mark) {
  const auto decimals = static_cast<std::size_t>(places);
  const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
  Require(digits.size() > decimals + 1 && digits[digits.size() - decimals - 1] == mark &&
              IsDigits(digits.substr(0, digits.size() - decimals - 1)) &&
              IsDigits(digits.substr(digits.size() - decimals)),
          "not the format of a number", text);
  if (digits.size() > kExactDigits) return ToDouble(WithPoint(text, decimals));
  std::int64_t units = 0;
  for (const char c : digits)
    if (c != mark) units = units * 10 + (c - '0');
  const double value = static_cast<double>(units) / kUnits.at(decimals);
  return text.starts_with('-') ? -value : value;
}

double ReadPlain(std::string_view text) {
  Require(text.size() > 1 && (text[0] == ' ' || text[0] == '-') && text[1] != '-', "no number",
          text);
  return ToDouble(text.substr(text[0] == ' ' ? 1 : 0));
}

std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  lines.reserve(text.size() / 8);
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    Require(end != std::string_view::npos && end > 0 && text[end - 1] == '\r',
            "a line without its end", text);
    lines.push_back(text.substr(0, end - 1));
    text.remove_prefix(end + 1);
  }
  return lines;
}

std::vector<DxfPolyline> ReadDxf(std::string_view text, char mark) {
  Lines lines(text);
  lines.Expect("999");
  lines.Take();
  lines.ExpectAll({"  0", "SECTION", "  2", "ENTITIES", "  0"});
  std::vector<DxfPolyline> polylines;
  while (lines.Peek() == "POLYLINE") {
    lines.Take();
    polylines.push_back(TakePolyline(lines, mark));
    lines.Expect("  0");
  }
  lines.ExpectAll({"ENDSEC", "  0", "EOF"});
  Require(lines.AtEnd(), "more than a file", lines.Peek());
  return polylines;
}

std::vector<XyPanel> ReadXy(std::string_view text, char mark) {
  Lines lines(text);
  WithoutBack(lines.Take(), "; Panels development XY");
  std::vector<XyPanel> panels;
  for (lines.Expect(""); lines.Peek().starts_with("PANEL;"); lines.Expect(""))
    panels.push_back(TakeXyPanel(lines, mark));
  lines.Expect("EOF ");
  Require(lines.AtEnd(), "more than a file", lines.Peek());
  return panels;
}

std::vector<PlotterRecord> ReadPlotter(std::string_view text, char mark) {
  Lines lines(text);
  lines.Take();
  std::vector<PlotterRecord> records;
  while (lines.Peek().starts_with("panel,")) records.push_back(TakeRecord(lines, mark));
  WithoutFront(lines.Take(), "EOF ");
  Require(lines.AtEnd(), "more than a file", lines.Peek());
  return records;
}

VrmlWorld ReadVrml(std::string_view text, int positionPlaces, char mark) {
  Lines lines(text);
  VrmlWorld world;
  while (!lines.AtEnd()) {
    const std::string_view line = lines.Take();
    const std::size_t word = line.find_first_not_of(' ');
    if (word == std::string_view::npos) continue;
    const std::string_view rest = line.substr(word);
    if (rest.starts_with("point ["))
      world.Points.push_back(TakePoints(lines));
    else if (rest.starts_with("coordIndex ["))
      world.Indices.push_back(TakeIndices(lines));
    else if (rest.starts_with("position "))
      world.Positions.push_back(ReadPosition(rest.substr(9), positionPlaces, mark));
  }
  return world;
}

}  // namespace brivane
