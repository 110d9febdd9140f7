#include "model/region.h"

#include <langinfo.h>
#include <locale.h>  // newlocale

#include <string_view>

namespace brivane {

char RegionalDecimalMark() {
  const locale_t users = newlocale(LC_NUMERIC_MASK, "", locale_t{});
  if (users == locale_t{}) return '.';
  const std::string_view mark = nl_langinfo_l(RADIXCHAR, users);
  const bool isComma = mark == ",";
  freelocale(users);
  return isComma ? ',' : '.';
}

}  // namespace brivane
