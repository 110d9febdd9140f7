#include "model/sail.h"

#include <gtest/gtest.h>

namespace brivane {
namespace {

TEST(Table, HoldsEveryIndexWithinItsBounds) {
  SurfaceTable table;
  table(0, -1) = 1;
  table(91, 43) = 2;
  EXPECT_EQ(table(0, -1), 1);
  EXPECT_EQ(table(91, 43), 2);
  EXPECT_EQ(table(91, 42), 0);
  table.Erase();
  EXPECT_EQ(table, SurfaceTable{});
}

TEST(Table, ARowHoldsItsCellsFromTheFirstColumnOn) {
  SurfaceTable table;
  table(91, -1) = 1;
  table(91, 43) = 2;
  table(0, 0) = 3;
  ASSERT_EQ(table.Row(91).size(), std::size_t{45});
  EXPECT_EQ(table.Row(91).front(), 1);
  EXPECT_EQ(table.Row(91).back(), 2);
  EXPECT_EQ(table.Row(0)[1], 3);
  EXPECT_THROW(table.Row(92), std::out_of_range);
  EXPECT_THROW(table.Row(-1), std::out_of_range);
}

TEST(Table, RefusesAnIndexBeyondItsBounds) {
  SurfaceTable surface;
  EXPECT_THROW(surface(-1, 0), std::out_of_range);
  EXPECT_THROW(surface(92, 0), std::out_of_range);
  EXPECT_THROW(surface(0, -2), std::out_of_range);
  EXPECT_THROW(surface(0, 44), std::out_of_range);
  const PanelTable panels;
  EXPECT_THROW(panels(-1, 0), std::out_of_range);
  EXPECT_THROW(panels(91, 0), std::out_of_range);
  EXPECT_THROW(panels(0, -1), std::out_of_range);
  EXPECT_THROW(panels(0, 43), std::out_of_range);
}

TEST(ResetSail, BringsBackDefinitionAndPatches) {
  Sail sail;
  sail.Definition.LuffLength = 1;
  sail.Patches.PatchHeight[2] = 50;
  ResetSail(sail);
  EXPECT_EQ(sail.Definition.LuffLength, 4550);
  EXPECT_EQ(sail.Patches, PatchSizes{});
}

}  // namespace
}  // namespace brivane
