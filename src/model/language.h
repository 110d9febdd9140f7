#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// All of Brivane 2000. Lengths are mm and angles rad wherever nothing else is said.
namespace brivane {

/// The language of every caption, message and printed text. The values are the indices of the
/// start window's option buttons.
enum class Language : std::int16_t { French = 0, English = 1 };

/// A text in both languages, UTF-8. Both members point to constants that live as long as the
/// program.
struct BilingualText {
  std::string_view English;
  std::string_view French;

  constexpr std::string_view In(Language language) const {
    return language == Language::English ? English : French;
  }
};

/// First part of every window caption and message title.
inline constexpr std::string_view ProgramTitle = "Brivane 2000";

/// The version's date as it stands in captions and file headers, blanks included.
inline constexpr std::string_view kVersionDate = " 25 June 2000 ";

}  // namespace brivane
