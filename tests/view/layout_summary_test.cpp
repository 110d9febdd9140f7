#include "view/layout_summary.h"

#include <gtest/gtest.h>

namespace brivane {
namespace {

/// A sail whose panels are known by the highest point of their upper seams alone.
Sail SailWithWidths(std::initializer_list<double> widths) {
  Sail sail;
  for (const double width : widths)
    sail.Panels.PanelUpperY(sail.Definition.PanelCount++, 20) = width;
  return sail;
}

TEST(LayoutSummary, TellsTheNumberAndTheWidestPanel) {
  const Sail sail = SailWithWidths({880, 889.96, 12});
  EXPECT_EQ(LayoutSummary(sail, Language::English, '.'), "3 panels, the widest 890.0 mm");
  EXPECT_EQ(LayoutSummary(sail, Language::French, ','), "3 laizes, la plus large 890,0 mm");
}

TEST(LayoutSummary, OnePanelIsSingular) {
  EXPECT_EQ(LayoutSummary(SailWithWidths({500}), Language::English, '.'),
            "1 panel, the widest 500.0 mm");
}

TEST(LayoutSummary, WarnsOfAPanelThatTheClothCannotCover) {
  EXPECT_EQ(LayoutSummary(SailWithWidths({890}), Language::English, '.'),
            "1 panel, the widest 890.0 mm");
  EXPECT_EQ(LayoutSummary(SailWithWidths({890.1}), Language::English, '.'),
            "1 panel, the widest 890.1 mm – WIDER THAN THE CLOTH");
  EXPECT_EQ(LayoutSummary(SailWithWidths({890.1}), Language::French, ','),
            "1 laize, la plus large 890,1 mm – PLUS LARGE QUE LE TISSU");
}

TEST(LayoutSummary, SaysNothingWithoutPanels) {
  EXPECT_EQ(LayoutSummary(Sail{}, Language::English, '.'), "");
}

}  // namespace
}  // namespace brivane
