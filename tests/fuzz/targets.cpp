#include "fuzz/targets.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>

#include "fuzz/every_output.h"
#include "geometry/outline.h"
#include "model/code_page.h"
#include "model/dimension_rules.h"
#include "model/failures.h"
#include "model/number_text.h"
#include "model/sail_file.h"

namespace brivane {
namespace {

constexpr std::array<const char*, 4> kCuts = {kCrossCut, kTwistFootCut, kVerticalCut, "?"};

void Require(bool holds, const std::string& words) {
  if (!holds) throw std::logic_error(words);
}

void RequireNoFault(const std::string& fault) { Require(fault.empty(), fault); }

/// Takes numbers off the front of the bytes; zeros where they end.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : rest_(bytes) {}

  bool AtEnd() const { return rest_.empty(); }

  template <typename Number>
  Number Take() {
    Number number{};
    const std::size_t count = std::min(rest_.size(), sizeof number);
    std::memcpy(&number, rest_.data(), count);
    rest_.remove_prefix(count);
    return number;
  }
  double TakeFinite() {
    const double value = Take<double>();
    return std::isfinite(value) ? value : 0;
  }
  std::string_view TakeText(std::size_t length) {
    const std::string_view text = rest_.substr(0, length);
    rest_.remove_prefix(text.size());
    return text;
  }

 private:
  std::string_view rest_;
};

template <typename Reader>
void TryReader(Reader read) {
  SailDefinition sail;
  try {
    read(sail);
  } catch (const ReadError&) {
  }
  RequireNoFault(FaultOfRecord(sail));
}

// --- Numbers -----------------------------------------------------------------------------------

/// What the C library makes of a plain number: a second route to the value.
void CompareWithLibrary(const std::string& text) {
  constexpr const char* kPlain = "+-.0123456789eE";
  if (text.empty() || text.find_first_not_of(kPlain) != std::string::npos) return;
  if (std::string_view(std::localeconv()->decimal_point) != ".") return;
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  const LeadingNumber ours = ReadLeadingNumber(text);
  if (ours.Overflow)
    Require(std::isinf(value), "an overflow of its own: " + text);
  else
    Require(ours.Value == value, "another value: " + text);
}

void TryReading(const std::string& text) {
  const LeadingNumber number = ReadLeadingNumber(text);
  Require(std::isfinite(number.Value) && std::isfinite(Val(text)), "read what is not finite");
  Require(!std::signbit(number.Value) || number.Value < 0, "a negative zero");
  for (const char mark : {'.', ','})
    if (const auto whole = ReadWholeNumberText(text, mark))
      Require(std::isfinite(whole->Value), "read what is not finite");
  std::string copy = text;
  const std::string normalised = NormaliseDecimalText(copy);
  Require(normalised == copy + ' ' && copy.size() == text.size(), "normalised differently");
  const double rounded = RoundHalfEven(number.Value);
  Require(std::abs(rounded - number.Value) <= 0.5, "rounded too far");
  Require(WholePart(number.Value) <= number.Value, "the whole part is larger");
  const std::int16_t held = HeldToInt16(rounded);
  const auto whole = ToInt16(rounded);
  Require(!whole || *whole == held, "two whole numbers");
}

void TryWriting(double value) {
  // The 15 digits of a larger number round up beyond what a double holds.
  if (std::abs(value) > 1.79769313486231e308) return;
  const std::string text = StrNum(value);
  const double back = Val(text);
  Require(std::abs(back - value) <= 1e-14 * std::abs(value) + 5e-324, "StrNum: " + text);
  Require(StrNum(back) == text, "StrNum does not read back: " + text);
  Require(Val(PlainNumber(value)) == back, "PlainNumber: " + PlainNumber(value));
  for (const int places : {0, 1, 2, 3, 9}) {
    const std::string fixed = FormatFixed(value, places, '.');
    const double error = std::abs(Val(fixed) - value);
    Require(error <= 0.5000001 * std::pow(10, -places) + 1e-14 * std::abs(value),
            "FormatFixed: " + fixed);
  }
  for (const NumberPattern& pattern : {kHundredthsBlank, kBlankTenthsBlank, kTwoDigits})
    Require(!HasNonNumber(FormatPattern(pattern, value, ',')), "no number in a pattern");
  Require(!HasNonNumber(FormatNumber3(value) + FormatMetres(value)), "no number in metres");
}

}  // namespace

void TryReaders(std::string_view bytes) {
  const std::string text = FromCodePage1252(bytes);
  for (const std::string_view each : {std::string_view(text), bytes}) {
    TryReader([&](SailDefinition& sail) { ReadSailDataText(each, sail, '.'); });
    TryReader([&](SailDefinition& sail) { ReadSailDataText(each, sail, ','); });
    TryReader([&](SailDefinition& sail) { ReadSailDataTextV4(each, sail); });
    TryReader([&](SailDefinition& sail) { ReadMouldFromText(each, sail); });
  }
  std::string_view rest = text;
  std::size_t lines = 0;
  while (!ReadFileLine(rest).EndOfFile) Require(++lines <= text.size(), "lines without end");
  Require(FromCodePage1252(ToCodePage1252(text)) == text, "the code page does not read back");
}

void TryDesign(std::string_view bytes) {
  Bytes input(bytes);
  const auto cut = input.Take<std::uint8_t>();
  Sail sail;
  try {
    ReadSailDataText(FromCodePage1252(input.TakeText(bytes.size())), sail.Definition, '.');
  } catch (const ReadError&) {
  }
  sail.Definition.CutType = kCuts[cut % kCuts.size()];
  RequireNoFault(FaultOfDesign(sail));
}

void TryRecord(std::string_view bytes) {
  Bytes input(bytes);
  Sail sail;
  SailDefinition& record = sail.Definition;
  record.CutType = kCuts[input.Take<std::uint8_t>() % kCuts.size()];
  for (double* field :
       {&record.LuffLength,          &record.FootLength,      &record.DiagonalLength,
        &record.GaffLength,          &record.GaffAngle,       &record.LuffRake,
        &record.LuffRound,           &record.LeechRound,      &record.FootRound,
        &record.DepthPosition,       &record.TwistAngle,      &record.Depth[kFoot],
        &record.Depth[kMiddle],      &record.Depth[kTop],     &record.LuffShape[kFoot],
        &record.LuffShape[kMiddle],  &record.LuffShape[kTop], &record.LeechShape[kFoot],
        &record.LeechShape[kMiddle], &record.LeechShape[kTop]}) {
    if (input.AtEnd()) break;
    *field = input.TakeFinite();
  }
  for (std::int16_t* field :
       {&record.ClothWidth, &record.SeamWidth, &record.GaffRound, &record.LuffRoundPos,
        &record.LeechRoundPos, &record.FootRoundPos, &record.GaffRoundPos}) {
    if (input.AtEnd()) break;
    *field = input.Take<std::int16_t>();
  }
  for (auto* sizes : {&sail.Patches.PatchHeight, &sail.Patches.PatchWidth})
    for (std::int16_t& size : *sizes)
      if (!input.AtEnd()) size = input.Take<std::int16_t>();
  RequireNoFault(FaultOfRecord(record));
  RequireNoFault(FaultOfDesign(sail));
}

void TryTyping(std::string_view bytes) {
  Bytes input(bytes);
  Sail sail;
  sail.Definition.CutType = kCuts[input.Take<std::uint8_t>() % 3];
  ComputeOutline(sail.Definition);
  while (!input.AtEnd()) {
    const auto& fields = DimensionFields();
    const DimensionField field = fields[input.Take<std::uint8_t>() % fields.size()].Field;
    const std::string_view typed = input.TakeText(input.Take<std::uint8_t>());
    EnterField(sail.Definition, field, typed);
    if (LeavingRecomputesOutline(field)) {
      try {
        RecomputeOutline(sail);
      } catch (const GeometryFault&) {
      }
    }
    RequireNoFault(FaultOfRecord(sail.Definition));
    Require(
        !HasNonNumber(field == DimensionField::SailName ? "" : FieldText(sail.Definition, field)),
        "a field shows what is no number");
  }
  RequireNoFault(FaultOfDesign(sail));
}

void TryNumbers(std::string_view bytes) {
  const std::string text(bytes);
  TryReading(text);
  CompareWithLibrary(text);
  Bytes input(bytes);
  TryWriting(input.TakeFinite());
  TryWriting(Val(text));
}

}  // namespace brivane
