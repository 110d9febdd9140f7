#include "model/sail_file.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "model/failures.h"
#include "model/language.h"
#include "model/number_text.h"
#include "model/text_file.h"

namespace brivane {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
/// The largest number whose text reads back: the digits of a larger one round up beyond a double.
constexpr double kLargestWritten = 1.79769313486231e308;
constexpr std::size_t kExtensionLength = 4;  ///< dot and three letters

bool IsControl(char c) { return static_cast<unsigned char>(c) < 32; }

/// A line of the dimensions, and where its number belongs.
struct DimensionLine {
  std::string_view Field;
  double SailDefinition::*Member;
  bool IsLength;
};

constexpr std::array<DimensionLine, 9> kDimensionLines = {
    {{"LuffLength", &SailDefinition::LuffLength, true},
     {"LuffRake", &SailDefinition::LuffRake, false},
     {"DiagonalLength", &SailDefinition::DiagonalLength, true},
     {"FootLength", &SailDefinition::FootLength, true},
     {"GaffLength", &SailDefinition::GaffLength, true},
     {"GaffAngle", &SailDefinition::GaffAngle, false},
     {"LeechLength", &SailDefinition::LeechLength, true},
     {"LeechAngle", &SailDefinition::LeechAngle, false},
     {"SailArea", &SailDefinition::SailArea, false}}};

// --- Writing -----------------------------------------------------------------------------------

/// Builds a file's text line by line.
class LineWriter {
 public:
  LineWriter& Words(std::string_view words) {
    text_.append(words).append(kLineEnd);
    return *this;
  }
  LineWriter& Free(std::string_view words) {
    std::copy_if(words.begin(), words.end(), std::back_inserter(text_),
                 [](char c) { return !IsControl(c); });
    text_.append(kLineEnd);
    return *this;
  }
  LineWriter& Number(double value) {
    AppendStrNum(text_, std::clamp(value, -kLargestWritten, kLargestWritten));
    text_.append(kLineEnd);
    return *this;
  }
  LineWriter& Numbers(const std::array<double, 3>& values) {
    for (const double value : values) Number(value);
    return *this;
  }
  std::string Take() { return std::move(text_); }

 private:
  std::string text_;
};

// --- Reading -----------------------------------------------------------------------------------

constexpr BilingualText kOverflow{"Overflow", "Dépassement de capacité"};
constexpr BilingualText kTypeMismatch{"Type mismatch", "Type incompatible"};
constexpr BilingualText kInLine{" (line ", " (ligne "};

/// Number of bytes at the front that a line keeps as they are.
std::size_t PlainLength(std::string_view text) {
  std::size_t length = 0;
  while (length < text.size() && !IsControl(text[length]) && text[length] != ',') ++length;
  return length;
}

/// What a line holds: without control characters, "," replaced by ".", cut off when it is too long.
std::string LineText(std::string_view line) {
  std::string text;
  std::size_t characters = 0;
  for (const char c : line) {
    if (IsControl(c)) continue;
    // Every byte of a character counts with its first one.
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++characters;
    if (characters > kLongestLine) break;
    text += c == ',' ? '.' : c;
  }
  return text;
}

/// Takes the lines of a file one after the other and converts them.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(text) {}

  std::string Text() {
    ++line_;
    return ReadFileLine(rest_).Text;
  }
  void Skip(int lines = 1) {
    for (int each = 0; each < lines; ++each) Text();
  }
  double Number(std::string_view field) { return Checked(ReadLeadingNumber(Text()), field); }
  std::int16_t Rounded(std::string_view field) {
    return AsInt16(RoundHalfEven(Number(field)), field);
  }
  std::int16_t Floored(std::string_view field) { return AsInt16(WholePart(Number(field)), field); }

  /// A line that must be a number from end to end.
  double WholeLine(std::string_view field, char decimalMark) {
    const std::optional<LeadingNumber> number = ReadWholeNumberText(Text(), decimalMark);
    if (!number) Refuse(kTypeMismatch, field);
    return Checked(*number, field);
  }

 private:
  [[noreturn]] void Refuse(const BilingualText& words, std::string_view field) const {
    const auto refusal = [&](Language language) {
      return std::string(words.In(language)) + std::string(kInLine.In(language)) +
             std::to_string(line_) + ", " + std::string(field) + ")";
    };
    throw ReadError(refusal(Language::English), refusal(Language::French));
  }
  double Checked(const LeadingNumber& number, std::string_view field) const {
    if (number.Overflow) Refuse(kOverflow, field);
    return number.Value;
  }
  std::int16_t AsInt16(double whole, std::string_view field) const {
    const std::optional<std::int16_t> value = ToInt16(whole);
    if (!value) Refuse(kOverflow, field);
    return *value;
  }

  std::string_view rest_;
  int line_ = 0;
};

/// The dimensions in the order of their lines. The older generation has whole lengths and no rake.
void ReadDimensions(LineReader& lines, SailDefinition& sail, SailFileKind kind) {
  const bool isOld = kind == SailFileKind::OldSail;
  for (const DimensionLine& line : kDimensionLines) {
    if (isOld && line.Member == &SailDefinition::LuffRake) continue;
    const double value = lines.Number(line.Field);
    sail.*line.Member = isOld && line.IsLength ? WholePart(value) : value;
  }
}

/// The three values of a mould field.
void ReadProfile(LineReader& lines, std::array<double, 3>& values, std::string_view field) {
  for (double& value : values) value = lines.Number(field);
}

void ReadDepthPositionAndTwist(LineReader& lines, SailDefinition& sail) {
  sail.DepthPosition = lines.Number("DepthPosition");
  sail.TwistAngle = lines.Number("TwistAngle");
}

/// The edges of both generations; the positions that no window edits are 50 where they are not
/// stored.
void ReadEdges(LineReader& lines, SailDefinition& sail, bool hasAllPositions = true) {
  sail.LuffRound = lines.Number("LuffRound");
  sail.LuffRoundPos = lines.Rounded("LuffRoundPos");
  sail.LeechRound = lines.Number("LeechRound");
  sail.LeechRoundPos = lines.Rounded("LeechRoundPos");
  sail.FootRound = lines.Number("FootRound");
  sail.FootRoundPos = hasAllPositions ? lines.Rounded("FootRoundPos") : std::int16_t{50};
  sail.GaffRound = lines.Rounded("GaffRound");
  sail.GaffRoundPos = hasAllPositions ? lines.Rounded("GaffRoundPos") : std::int16_t{50};
}

/// What the older generation does not store, from its one middle value of each array.
void CompleteProfileV4(SailDefinition& sail) {
  sail.LuffRake = 0;
  sail.Depth[kFoot] = 0;
  sail.Depth[kTop] = 0.9 * sail.Depth[kMiddle];
  sail.LuffShape[kFoot] = 0;
  sail.LuffShape[kTop] = sail.LuffShape[kMiddle];
  sail.LeechShape[kFoot] = 0;
  sail.LeechShape[kTop] = sail.LeechShape[kMiddle];
}

/// The year at the end of a header, 0 where there is none.
double HeaderYear(std::string header) {
  header.erase(header.find_last_not_of(' ') + 1);
  return Val(
      std::string_view(header).substr(header.size() - std::min<std::size_t>(header.size(), 4)));
}

}  // namespace

std::string SailDataText(const SailDefinition& sail) {
  LineWriter lines;
  lines.Words(std::string(ProgramTitle).append(" VERSION_").append(kVersionDate));
  lines.Free(sail.SailName).Free(sail.CutType).Free(sail.MouldLabel).Free(sail.CutLabel);
  lines.Number(sail.PanelCount);
  lines.Words("DIMENSIONS");
  for (const DimensionLine& line : kDimensionLines) lines.Number(sail.*line.Member);
  lines.Words("EDGES");
  lines.Number(sail.LuffRound).Number(sail.LuffRoundPos);
  lines.Number(sail.LeechRound).Number(sail.LeechRoundPos);
  lines.Number(sail.FootRound).Number(sail.FootRoundPos);
  lines.Number(sail.GaffRound).Number(sail.GaffRoundPos);
  lines.Words("PROFIL");
  lines.Numbers(sail.Depth).Numbers(sail.LuffShape).Numbers(sail.LeechShape);
  lines.Number(sail.DepthPosition).Number(sail.TwistAngle);
  lines.Words("CLOTH");
  lines.Number(sail.ClothWidth).Number(sail.SeamWidth);
  lines.Words("EOF ");
  return lines.Take();
}

void WriteSailDataFile(const std::string& path, const SailDefinition& sail) {
  WriteFileSafely(path, SailDataText(sail));
}

SailFileKind SailFileKindOf(std::string_view fileName) {
  std::string ending(fileName.substr(fileName.size() - std::min<std::size_t>(fileName.size(), 3)));
  for (char& c : ending)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  if (ending == "bv3") return SailFileKind::Sail;
  if (ending == "bv4") return SailFileKind::OldSail;
  return SailFileKind::Unknown;
}

std::string SailNameOfFile(std::string_view fileName) {
  return std::string(
      fileName.substr(0, fileName.size() - std::min(fileName.size(), kExtensionLength)));
}

void ReadSailDataText(std::string_view text, SailDefinition& sail, char decimalMark) {
  LineReader lines(text);
  lines.Skip();
  sail.SailName = lines.Text();
  sail.CutType = lines.Text();
  sail.MouldLabel = lines.Text();
  sail.CutLabel = lines.Text();
  sail.PanelCount = lines.Floored("PanelCount");
  lines.Skip();
  ReadDimensions(lines, sail, SailFileKind::Sail);
  lines.Skip();
  ReadEdges(lines, sail);
  lines.Skip();
  ReadProfile(lines, sail.Depth, "Depth");
  sail.LuffShape[kFoot] = lines.Number("LuffShape");
  sail.LuffShape[kMiddle] = lines.WholeLine("LuffShape", decimalMark);
  sail.LuffShape[kTop] = lines.Number("LuffShape");
  ReadProfile(lines, sail.LeechShape, "LeechShape");
  ReadDepthPositionAndTwist(lines, sail);
  lines.Skip();
  sail.ClothWidth = lines.Rounded("ClothWidth");
  sail.SeamWidth = lines.Rounded("SeamWidth");
}

void ReadSailDataFile(const std::string& path, SailDefinition& sail, char decimalMark) {
  ReadSailDataText(ReadWholeFile(path), sail, decimalMark);
}

void ReadSailDataTextV4(std::string_view text, SailDefinition& sail) {
  LineReader lines(text);
  const bool hasAllPositions = HeaderYear(lines.Text()) >= 1999;
  sail.SailName = lines.Text();
  sail.CutType = lines.Text();
  sail.MouldLabel = lines.Text();
  ReadDimensions(lines, sail, SailFileKind::OldSail);
  ReadEdges(lines, sail, hasAllPositions);
  sail.Depth[kMiddle] = lines.Number("Depth");
  sail.LuffShape[kMiddle] = lines.Number("LuffShape");
  sail.LeechShape[kMiddle] = lines.Number("LeechShape");
  ReadDepthPositionAndTwist(lines, sail);
  sail.ClothWidth = lines.Floored("ClothWidth");
  sail.SeamWidth = lines.Floored("SeamWidth");
  sail.PanelCount = lines.Floored("PanelCount");
  CompleteProfileV4(sail);
}

void ReadSailDataFileV4(const std::string& path, SailDefinition& sail) {
  ReadSailDataTextV4(ReadWholeFile(path), sail);
}

void ReadMouldFromText(std::string_view text, SailDefinition& sail) {
  constexpr int kLinesBefore = 25;  // one fewer than stand before the profile values
  LineReader lines(text);
  lines.Skip(kLinesBefore);
  ReadProfile(lines, sail.Depth, "Depth");
  ReadProfile(lines, sail.LuffShape, "LuffShape");
  ReadProfile(lines, sail.LeechShape, "LeechShape");
  ReadDepthPositionAndTwist(lines, sail);
}

void ReadMouldFromFile(const std::string& path, SailDefinition& sail) {
  ReadMouldFromText(ReadWholeFile(path), sail);
}

FileLine ReadFileLine(std::string_view& rest) {
  FileLine line;
  // Nearly every line is taken as it is.
  const std::size_t plain = PlainLength(rest);
  const bool isWhole = rest.substr(plain).starts_with(kLineEnd) && plain <= kLongestLine;
  const std::size_t end = isWhole ? plain + 1 : std::min(rest.find('\n'), rest.size());
  line.EndOfFile = end == rest.size();
  line.Text = isWhole ? std::string(rest.substr(0, plain)) : LineText(rest.substr(0, end));
  rest.remove_prefix(line.EndOfFile ? end : end + 1);
  return line;
}

}  // namespace brivane
