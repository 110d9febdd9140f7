#include "model/failures.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace brivane {
namespace {

TEST(WordsOf, SpeaksTheLanguageWhereTheFailureDoes) {
  const GeometryFault fault({"flat", "plat"});
  EXPECT_EQ(WordsOf(fault, Language::English), "flat");
  EXPECT_EQ(WordsOf(fault, Language::French), "plat");
  const FileError file(FileErrorKind::ReadOnly, FileStep::Opening, {"locked", "verrouillé"});
  EXPECT_EQ(WordsOf(file, Language::English), "locked");
  EXPECT_EQ(WordsOf(file, Language::French), "verrouillé");
  const ReadError read("Overflow (line 39)", "Dépassement (ligne 39)");
  EXPECT_EQ(WordsOf(read, Language::English), "Overflow (line 39)");
  EXPECT_EQ(WordsOf(read, Language::French), "Dépassement (ligne 39)");
}

TEST(WordsOf, AnyOtherFailureHasItsOneText) {
  EXPECT_EQ(WordsOf(std::out_of_range("Subscript"), Language::French), "Subscript");
}

}  // namespace
}  // namespace brivane
