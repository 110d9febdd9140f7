#include "model/code_page.h"

#include <gtest/gtest.h>

#include <string>

namespace brivane {
namespace {

TEST(CodePage, WritesAccentsAndSignsAsOneByte) {
  EXPECT_EQ(ToCodePage1252("Génois à l'été"), "G\xE9nois \xE0 l'\xE9t\xE9");
  EXPECT_EQ(ToCodePage1252("€œŸ™"), "\x80\x9C\x9F\x99");
  EXPECT_EQ(ToCodePage1252("\xC2\xA0ÿ"), "\xA0\xFF");
}

TEST(CodePage, WritesAQuestionMarkForWhatItLacks) {
  EXPECT_EQ(ToCodePage1252("a帆b"), "a?b");
  EXPECT_EQ(ToCodePage1252("⛵"), "?");
  EXPECT_EQ(ToCodePage1252("🛶!"), "?!");
  EXPECT_EQ(ToCodePage1252("ŁĀ"), "??");
  EXPECT_EQ(ToCodePage1252("\xC2\x80"), "?");  // the control character, not the euro sign
}

TEST(CodePage, WritesOneQuestionMarkForABrokenSequence) {
  EXPECT_EQ(ToCodePage1252("a\xE9z"), "a?z");          // a lead byte alone
  EXPECT_EQ(ToCodePage1252("a\xE2\x82z"), "a?z");      // cut short
  EXPECT_EQ(ToCodePage1252("a\xE2\x82"), "a?");        // cut short by the end
  EXPECT_EQ(ToCodePage1252("\x80"), "?");              // a continuation byte alone
  EXPECT_EQ(ToCodePage1252("\xC0\xAF"), "??");         // no lead byte
  EXPECT_EQ(ToCodePage1252("\xE0\x80\xAF"), "?");      // overlong
  EXPECT_EQ(ToCodePage1252("\xF0\x80\x80\xAF"), "?");  // overlong
  EXPECT_EQ(ToCodePage1252("\xED\xA0\x80"), "?");      // a surrogate
  EXPECT_EQ(ToCodePage1252("\xF4\x90\x80\x80"), "?");  // beyond the last character
  EXPECT_EQ(ToCodePage1252("\xFF"), "?");
}

TEST(CodePage, ReadsEveryByteAndReturnsIt) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const std::string text = FromCodePage1252(bytes);
  EXPECT_TRUE(IsSoundUtf8(text));
  EXPECT_EQ(ToCodePage1252(text), bytes);
}

TEST(CodePage, ReadsAccentsAndSigns) {
  EXPECT_EQ(FromCodePage1252("\xE9\x80\x92"), "é€’");
  EXPECT_EQ(FromCodePage1252("\x81"), "\xC2\x81");
}

TEST(CodePage, KnowsSoundText) {
  EXPECT_TRUE(IsSoundUtf8(""));
  EXPECT_TRUE(IsSoundUtf8("é€🛶"));
  EXPECT_FALSE(IsSoundUtf8("caf\xE9"));
  EXPECT_FALSE(IsSoundUtf8("\xED\xBF\xBF"));
  EXPECT_TRUE(IsSoundUtf8("\xED\x9F\xBF\xEE\x80\x80"));
}

TEST(CodePage, KnowsTheFirstAndLastCharacterOfEachLength) {
  for (const char* sound : {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
                            "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
    EXPECT_TRUE(IsSoundUtf8(sound)) << sound;
  // A continuation alone, too many bytes, halves of a pair, beyond the last character.
  for (const char* broken :
       {"\x80", "\xBF", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF",
        "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF"})
    EXPECT_FALSE(IsSoundUtf8(broken)) << broken;
}

TEST(CodePage, FindsAnAccentWhereverItStands) {
  for (std::size_t at = 0; at < 100; ++at) {
    std::string bytes(100, 'a');
    bytes[at] = '\xE9';
    std::string utf8(100, 'a');
    utf8.replace(at, 1, "é");
    EXPECT_EQ(ToCodePage1252(utf8), bytes) << at;
    EXPECT_EQ(FromCodePage1252(bytes), utf8) << at;
    EXPECT_FALSE(IsPlainText(utf8)) << at;
  }
}

TEST(CodePage, LooksNoFurtherThanTheTextGiven) {
  const std::string_view euro = "\xE2\x82\xAC";
  EXPECT_FALSE(IsSoundUtf8(euro.substr(0, 2)));
  EXPECT_EQ(ToCodePage1252(euro.substr(0, 2)), "?");
}

}  // namespace
}  // namespace brivane
