#include "model/sail.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

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

TEST(Table, ThePointsOfARowStartAtColumnNought) {
  SurfaceTable table;
  table(91, -1) = 1;
  table(91, 43) = 2;
  table(0, 0) = 3;
  EXPECT_EQ(table.Points(91)[-1], 1);
  EXPECT_EQ(table.Points(91)[43], 2);
  EXPECT_EQ(std::as_const(table).Points(0)[0], 3);
  table.Points(17)[5] = 4;
  EXPECT_EQ(table(17, 5), 4);
  EXPECT_THROW(table.Points(92), std::out_of_range);
  EXPECT_THROW(std::as_const(table).Points(-1), std::out_of_range);
}

TEST(Table, ErasesEveryRowHoweverItWasReached) {
  for (const int row : {0, 1, 69, 70, 91}) {
    SurfaceTable table;
    table(row, -1) = 1;
    table(row, 43) = 2;
    table.Erase();
    EXPECT_EQ(table, SurfaceTable{}) << row;
    table.Points(row)[40] = 3;
    table(0, 0) = 4;  // a lower row afterwards
    table.Erase();
    EXPECT_EQ(table, SurfaceTable{}) << row;
    table(row, 5) = 6;
    const SurfaceTable copy = table;
    SurfaceTable other;
    other = copy;
    other.Erase();
    EXPECT_EQ(other, SurfaceTable{}) << row;
    EXPECT_EQ(table, copy) << row;
  }
}

TEST(Table, IsEqualByItsCellsAlone) {
  PanelTable table;
  table(90, 42) = 1;
  EXPECT_NE(table, PanelTable{});
  table(90, 42) = 0;
  EXPECT_EQ(table, PanelTable{});
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
