#include "ui/current_sail.h"

#include "geometry/outline.h"
#include "ui/qt_text.h"

namespace brivane {

CurrentSail& Current() {
  static CurrentSail current;
  return current;
}

void ResetCurrentSail() {
  ResetSail(Current().TheSail);
  RecomputeOutline(Current().TheSail);
}

QString CurrentText(const BilingualText& text) { return ToQt(text.In(Current().Language)); }

QString TitleWith(std::string_view suffix) { return ToQt(ProgramTitle) + ToQt(suffix); }

QString TitleWith(const BilingualText& suffix) { return TitleWith(suffix.In(Current().Language)); }

}  // namespace brivane
