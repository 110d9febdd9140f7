#pragma once

#include <string>
#include <string_view>

namespace brivane {

/// UTF-8 to code page 1252; "?" stands for a character that it lacks and for a broken sequence.
std::string ToCodePage1252(std::string_view utf8);

/// Code page 1252 to UTF-8. The five bytes without a character become the control characters of
/// the same code, so that every byte returns unchanged from ToCodePage1252.
std::string FromCodePage1252(std::string_view bytes);

/// Whether all characters are plain ASCII, which is the same in both.
bool IsPlainText(std::string_view text);

/// Whether the text is UTF-8 without a broken, overlong or surrogate sequence.
bool IsSoundUtf8(std::string_view text);

}  // namespace brivane
