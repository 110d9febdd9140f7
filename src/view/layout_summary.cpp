#include "view/layout_summary.h"

#include <algorithm>

#include "model/number_text.h"
#include "panels/development.h"

namespace brivane {

namespace {

constexpr BilingualText kOnePanel{" panel", " laize"};
constexpr BilingualText kPanels{" panels", " laizes"};
constexpr BilingualText kWidest{", the widest ", ", la plus large "};
constexpr BilingualText kTooWide{" – WIDER THAN THE CLOTH", " – PLUS LARGE QUE LE TISSU"};

}  // namespace

std::string LayoutSummary(const Sail& sail, Language language, char decimalMark) {
  const int count = sail.Definition.PanelCount;
  if (count <= 0) return {};
  double widest = 0;
  for (int p = 0; p < count; ++p) widest = std::max(widest, DevelopedWidth(sail.Panels, p));
  std::string summary = std::to_string(count);
  summary += (count == 1 ? kOnePanel : kPanels).In(language);
  summary += kWidest.In(language);
  AppendFixed(summary, widest, 1, decimalMark);
  summary += " mm";
  if (widest > sail.Definition.ClothWidth) summary += kTooWide.In(language);
  return summary;
}

}  // namespace brivane
