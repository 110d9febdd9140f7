#include "model/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <optional>

namespace brivane {
namespace {

constexpr unsigned char kFirstSpecial = 0x80;

/// Characters of the bytes 0x80 to 0x9F; all other bytes are the code of their character.
constexpr std::array<char32_t, 32> kSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ByteOf(char32_t character) {
  if (character < kFirstSpecial || (character >= 0xA0 && character <= 0xFF))
    return static_cast<char>(character);
  const auto* const found = std::find(kSpecials.begin(), kSpecials.end(), character);
  if (found == kSpecials.end()) return '?';
  return static_cast<char>(kFirstSpecial + std::distance(kSpecials.begin(), found));
}

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// Number of bytes in the sequence that a lead byte starts; 0 for a byte that starts none.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xF0 && lead < 0xF5) return 4;
  return 0;
}

bool IsScalarOfLength(char32_t character, std::size_t length) {
  if (length == 3) return character >= 0x800 && (character < 0xD800 || character > 0xDFFF);
  if (length == 4) return character >= 0x10000 && character <= 0x10FFFF;
  return true;
}

/// Takes the next character off the front; nothing for a broken sequence, of which it takes what
/// there is.
std::optional<char32_t> TakeCharacter(std::string_view& rest) {
  const auto lead = static_cast<unsigned char>(rest.front());
  const std::size_t length = SequenceLength(lead);
  char32_t character = length <= 1 ? lead : lead & (0x7FU >> length);
  std::size_t taken = 1;
  while (taken < length && taken < rest.size() && IsContinuation(rest[taken]))
    character = (character << 6) | (static_cast<unsigned char>(rest[taken++]) & 0x3FU);
  rest.remove_prefix(taken);
  if (taken != length || !IsScalarOfLength(character, length)) return std::nullopt;
  return character;
}

/// Number of bytes at the front that are the same in both encodings; most texts have no other.
std::size_t PlainLength(std::string_view text) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::size_t length = 0;
  for (std::array<std::uint64_t, 4> block; length + sizeof block <= text.size();
       length += sizeof block) {
    std::memcpy(block.data(), text.data() + length, sizeof block);
    if (((block[0] | block[1] | block[2] | block[3]) & kHighBits) != 0) break;
  }
  while (length < text.size() && static_cast<unsigned char>(text[length]) < kFirstSpecial) ++length;
  return length;
}

void AppendUtf8(std::string& out, char32_t character) {
  if (character < 0x80) {
    out += static_cast<char>(character);
  } else if (character < 0x800) {
    out += static_cast<char>(0xC0 | (character >> 6));
    out += static_cast<char>(0x80 | (character & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (character >> 12));
    out += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (character & 0x3F));
  }
}

}  // namespace

std::string ToCodePage1252(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  while (!utf8.empty()) {
    const std::string_view plain = utf8.substr(0, PlainLength(utf8));
    bytes += plain;
    utf8.remove_prefix(plain.size());
    if (utf8.empty()) break;
    const std::optional<char32_t> character = TakeCharacter(utf8);
    bytes += character ? ByteOf(*character) : '?';
  }
  return bytes;
}

std::string FromCodePage1252(std::string_view bytes) {
  const std::size_t plain = PlainLength(bytes);
  std::string utf8(bytes.substr(0, plain));
  utf8.reserve(bytes.size());
  for (const char each : bytes.substr(plain)) {
    const auto byte = static_cast<unsigned char>(each);
    const bool isSpecial = byte >= kFirstSpecial && byte < 0xA0;
    AppendUtf8(utf8, isSpecial ? kSpecials[byte - kFirstSpecial] : byte);
  }
  return utf8;
}

bool IsPlainText(std::string_view text) { return PlainLength(text) == text.size(); }

bool IsSoundUtf8(std::string_view text) {
  while (!text.empty())
    if (!TakeCharacter(text)) return false;
  return true;
}

}  // namespace brivane
