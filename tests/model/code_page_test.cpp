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

}  // namespace
}  // namespace brivane
