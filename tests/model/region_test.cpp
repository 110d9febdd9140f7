#include "model/region.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <optional>
#include <string>

namespace brivane {
namespace {

/// Sets a variable of the environment for the length of a test.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    setenv(name, value, 1);
  }
  ~Variable() {
    if (old_)
      setenv(name_, old_->c_str(), 1);
    else
      unsetenv(name_);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> old_;
};

bool HasLocale(const char* name) {
  const locale_t found = newlocale(LC_ALL_MASK, name, locale_t{});
  if (found == locale_t{}) return false;
  freelocale(found);
  return true;
}

TEST(Region, HasAPointUnderC) {
  const Variable all("LC_ALL", "C");
  EXPECT_EQ(RegionalDecimalMark(), '.');
}

TEST(Region, HasAPointUnderALocaleThatIsNotThere) {
  const Variable all("LC_ALL", "xx_YY.UTF-8");
  EXPECT_EQ(RegionalDecimalMark(), '.');
}

TEST(Region, HasACommaUnderFrench) {
  if (!HasLocale("fr_FR.UTF-8")) GTEST_SKIP() << "no French locale here";
  const Variable all("LC_ALL", "fr_FR.UTF-8");
  EXPECT_EQ(RegionalDecimalMark(), ',');
}

TEST(Region, GoesByTheNumbersAlone) {
  if (!HasLocale("fr_FR.UTF-8")) GTEST_SKIP() << "no French locale here";
  const Variable all("LC_ALL", "");
  const Variable language("LANG", "C");
  const Variable numbers("LC_NUMERIC", "fr_FR.UTF-8");
  EXPECT_EQ(RegionalDecimalMark(), ',');
  const Variable frenchLanguage("LANG", "fr_FR.UTF-8");
  const Variable plainNumbers("LC_NUMERIC", "C");
  EXPECT_EQ(RegionalDecimalMark(), '.');
}

TEST(Region, LeavesTheLocaleOfTheProcess) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  RegionalDecimalMark();
  EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
}

}  // namespace
}  // namespace brivane
