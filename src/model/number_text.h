#pragma once

#include <string>
#include <string_view>

#include "model/number_reading.h"

namespace brivane {

// From number to text. Nothing here depends on the locale of the process; where a text carries the
// user's decimal mark, the caller hands it in. Each routine has a form that appends to a buffer,
// for the writers. A value that is not finite throws GeometryFault: it must never reach a file.

/// The basic conversion: a blank or a minus sign, then up to 15 significant digits without
/// trailing zeros and without a zero before the point (" 4550", " .05", "-100"); an exponent of
/// at least two digits below 1E-4 and from 1E+15 on (" 1E-05").
void AppendStrNum(std::string& out, double value);
std::string StrNum(double value);

/// StrNum as a user expects it in a field: without the leading blank, with the zero before the
/// point ("4550", "0.5", "-0.5").
std::string PlainNumber(double value);

/// A fixed number of places (0 to 9) behind the mark and at least one digit before it. Rounds half
/// away from zero on the value's decimal text of 15 significant digits, so 2.675 gives "2.68". A
/// value below zero keeps its minus where it rounds to zero; -0.0 is zero.
void AppendFixed(std::string& out, double value, int places, char decimalMark);
std::string FormatFixed(double value, int places, char decimalMark);

/// A fixed pattern: texts around the number, its digits before the mark at least, its places
/// behind it.
struct NumberPattern {
  std::string_view Before;
  int Digits;
  int Places;
  std::string_view After;
};

inline constexpr NumberPattern kHundredthsBlank = {"", 1, 2, " "};       ///< "0.00 "
inline constexpr NumberPattern kBlankTenthsBlank = {" ", 1, 1, " "};     ///< " 0.0 "
inline constexpr NumberPattern kTenthsBlank = {"", 1, 1, " "};           ///< "0.0 "
inline constexpr NumberPattern kThousandthsBlank = {"", 1, 3, " "};      ///< "0.##0 ", "0.000 "
inline constexpr NumberPattern kHundredths = {"", 1, 2, ""};             ///< "0.#0"
inline constexpr NumberPattern kTenths = {"", 1, 1, ""};                 ///< "0.0"
inline constexpr NumberPattern kWhole = {"", 1, 0, ""};                  ///< "0"
inline constexpr NumberPattern kTwoDigits = {"", 2, 0, ""};              ///< "00"
inline constexpr NumberPattern kBlankTwoDigitsBlank = {" ", 2, 0, " "};  ///< " 00 "
inline constexpr NumberPattern kBlankWholeBlank = {" ", 1, 0, " "};      ///< " #0 "

/// The number in a fixed pattern, rounded as AppendFixed does.
void AppendPattern(std::string& out, const NumberPattern& pattern, double value, char decimalMark);
std::string FormatPattern(const NumberPattern& pattern, double value, char decimalMark);

/// The value as "0.000 " with a point, two blanks in front of it from 0 on and one in front of a
/// negative one, so that the digits line up.
void AppendNumber3(std::string& out, double value);
std::string FormatNumber3(double value);

/// A length in mm as FormatNumber3 shows it in metres; the blanks go by the sign of the length.
void AppendMetres(std::string& out, double millimetres);
std::string FormatMetres(double millimetres);

}  // namespace brivane
