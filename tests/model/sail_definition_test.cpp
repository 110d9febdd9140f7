#include "model/sail_definition.h"

#include <gtest/gtest.h>

#include "model/sail.h"

namespace brivane {
namespace {

using Depths = std::array<double, 3>;

Depths Limited(const Depths& depths) {
  SailDefinition sail;
  sail.Depth = depths;
  ApplyDepthLimits(sail);
  return sail.Depth;
}

TEST(DepthLimits, LeaveTheDefaultsAlone) { EXPECT_EQ(Limited({3, 10, 5}), (Depths{3, 10, 5})); }

TEST(DepthLimits, RaiseTheMiddleBeforeTheOthersAreChecked) {
  // 5 x 0.3 = 1.5 > 1: the top becomes 2; 5 x 0.7 = 3.5 < 4: the foot becomes Int(3.85).
  EXPECT_EQ(Limited({4, 4, 1}), (Depths{3, 5, 2}));
  EXPECT_EQ(Limited({0, 4, 4.5}), (Depths{0, 5, 4.5}));
  EXPECT_EQ(Limited({0, 4.999, 6}), (Depths{0, 5, 5}));
  EXPECT_EQ(Limited({0, 5, 2}), (Depths{0, 5, 2}));
}

TEST(DepthLimits, CapTheTopAtTheWholePartOfTheMiddle) {
  EXPECT_EQ(Limited({3, 10, 12}), (Depths{3, 10, 10}));
  EXPECT_EQ(Limited({3, 10.5, 10.5}), (Depths{3, 10.5, 10.5}));
  EXPECT_EQ(Limited({3, 10.5, 11}), (Depths{3, 10.5, 10}));
}

TEST(DepthLimits, RaiseTheTopToOneMoreThanThreeTenths) {
  EXPECT_EQ(Limited({3, 10, 2}), (Depths{3, 10, 4}));
  EXPECT_EQ(Limited({3, 10, 3}), (Depths{3, 10, 3}));
  EXPECT_EQ(Limited({3, 10, -7}), (Depths{3, 10, 4}));
}

TEST(DepthLimits, CapTheFootAtSevenTenths) {
  EXPECT_EQ(Limited({8, 10, 5}), (Depths{7, 10, 5}));
  EXPECT_EQ(Limited({7, 10, 5}), (Depths{7, 10, 5}));
  EXPECT_EQ(Limited({0, 10, 5}), (Depths{0, 10, 5}));
  EXPECT_EQ(Limited({-3, 10, 5}), (Depths{-3, 10, 5}));
  // 5.5 x 0.7 = 3.85 < 4, yet Int(6 x 0.7) = 4 again.
  EXPECT_EQ(Limited({4, 5.5, 5}), (Depths{4, 5.5, 5}));
}

TEST(DepthLimits, DoNotLimitTheMiddleFromAbove) {
  EXPECT_EQ(Limited({3, 80, 40}), (Depths{3, 80, 40}));
}

TEST(ResetSailDefinition, SetsEveryUserField) {
  SailDefinition sail;
  sail.SailName = "Main";
  sail.CutType = kCrossCut;
  sail.MouldLabel = "a";
  sail.CutLabel = "b";
  sail.LuffLength = sail.LuffRake = sail.FootLength = sail.DiagonalLength = 1;
  sail.GaffLength = sail.GaffAngle = sail.LuffRound = sail.LeechRound = sail.FootRound = 1;
  sail.LuffRoundPos = sail.LeechRoundPos = sail.FootRoundPos = 1;
  sail.GaffRound = sail.GaffRoundPos = 1;
  sail.Depth = sail.LuffShape = sail.LeechShape = {1, 1, 1};
  sail.DepthPosition = sail.TwistAngle = 1;
  sail.ClothWidth = sail.SeamWidth = 1;
  ResetSailDefinition(sail);
  EXPECT_EQ(sail, SailDefinition{});
}

TEST(ResetSailDefinition, GivesTheDefaults) {
  SailDefinition sail;
  sail.SailName = "Main";
  ResetSailDefinition(sail);
  EXPECT_EQ(sail.SailName, "Newsail");
  EXPECT_EQ(sail.CutType, "TWISTFOOTCUT");
  EXPECT_EQ(sail.MouldLabel, "default_vertical");
  EXPECT_EQ(sail.CutLabel, "default_coupe");
  EXPECT_EQ(sail.LuffLength, 4550);
  EXPECT_EQ(sail.LuffRake, 0.05);
  EXPECT_EQ(sail.FootLength, 3600);
  EXPECT_EQ(sail.DiagonalLength, 5750);
  EXPECT_EQ(sail.GaffLength, 2600);
  EXPECT_EQ(sail.GaffAngle, 0.7);
  EXPECT_EQ(sail.LuffRound, 100);
  EXPECT_EQ(sail.LuffRoundPos, 50);
  EXPECT_EQ(sail.LeechRound, -100);
  EXPECT_EQ(sail.LeechRoundPos, 60);
  EXPECT_EQ(sail.FootRound, 170);
  EXPECT_EQ(sail.FootRoundPos, 50);
  EXPECT_EQ(sail.GaffRound, 130);
  EXPECT_EQ(sail.GaffRoundPos, 50);
  EXPECT_EQ(sail.Depth, (Depths{3, 10, 5}));
  EXPECT_EQ(sail.LuffShape, (Depths{0, 3, 6}));
  EXPECT_EQ(sail.LeechShape, (Depths{0, 0.06, 0.08}));
  EXPECT_EQ(sail.DepthPosition, 4);
  EXPECT_EQ(sail.TwistAngle, 0.21);
  EXPECT_EQ(sail.ClothWidth, 890);
  EXPECT_EQ(sail.SeamWidth, 20);
}

TEST(ResetSailDefinition, LeavesWhatWasComputed) {
  SailDefinition sail;
  sail.LeechLength = 5000;
  sail.ClewPoint = {1, 2, 3};
  sail.PeakPoint = {4, 5, 6};
  sail.LeechAngle = 0.25;
  sail.FootAngle = 0.5;
  sail.SailArea = 16.5;
  sail.PanelCount = 9;
  const SailDefinition before = sail;
  sail.SailName = "Main";
  ResetSailDefinition(sail);
  EXPECT_EQ(sail, before);
}

TEST(ResetSail, SetsThePatchesToo) {
  Sail sail;
  sail.Patches.PatchHeight = {1, 2, 3, 4};
  sail.Patches.PatchWidth = {1, 2, 3, 4};
  ResetSail(sail);
  EXPECT_EQ(sail.Patches.PatchHeight, (std::array<std::int16_t, 4>{11, 9, 8, 8}));
  EXPECT_EQ(sail.Patches.PatchWidth, (std::array<std::int16_t, 4>{12, 10, 12, 12}));
}

TEST(Sail, IsTriangularBelowSixMillimetresOfGaff) {
  SailDefinition sail;
  sail.GaffLength = 6;
  EXPECT_FALSE(IsTriangular(sail));
  sail.GaffLength = 5.9;
  EXPECT_TRUE(IsTriangular(sail));
}

TEST(SailDefinition, DiffersByEveryField) {
  using Change = void (*)(SailDefinition&);
  const Change changes[] = {[](SailDefinition& s) { s.SailName += 'x'; },
                            [](SailDefinition& s) { s.CutType += 'x'; },
                            [](SailDefinition& s) { s.MouldLabel += 'x'; },
                            [](SailDefinition& s) { s.CutLabel += 'x'; },
                            [](SailDefinition& s) { s.LuffLength += 1; },
                            [](SailDefinition& s) { s.LuffRake += 1; },
                            [](SailDefinition& s) { s.FootLength += 1; },
                            [](SailDefinition& s) { s.LeechLength += 1; },
                            [](SailDefinition& s) { s.DiagonalLength += 1; },
                            [](SailDefinition& s) { s.ClewPoint.x += 1; },
                            [](SailDefinition& s) { s.ClewPoint.y += 1; },
                            [](SailDefinition& s) { s.ClewPoint.z += 1; },
                            [](SailDefinition& s) { s.PeakPoint.x += 1; },
                            [](SailDefinition& s) { s.GaffLength += 1; },
                            [](SailDefinition& s) { s.GaffAngle += 1; },
                            [](SailDefinition& s) { s.LeechAngle += 1; },
                            [](SailDefinition& s) { s.FootAngle += 1; },
                            [](SailDefinition& s) { s.SailArea += 1; },
                            [](SailDefinition& s) { s.LuffRound += 1; },
                            [](SailDefinition& s) { ++s.LuffRoundPos; },
                            [](SailDefinition& s) { s.LeechRound += 1; },
                            [](SailDefinition& s) { ++s.LeechRoundPos; },
                            [](SailDefinition& s) { s.FootRound += 1; },
                            [](SailDefinition& s) { ++s.FootRoundPos; },
                            [](SailDefinition& s) { ++s.GaffRound; },
                            [](SailDefinition& s) { ++s.GaffRoundPos; },
                            [](SailDefinition& s) { s.Depth[1] += 1; },
                            [](SailDefinition& s) { s.LuffShape[2] += 1; },
                            [](SailDefinition& s) { s.LeechShape[0] += 1; },
                            [](SailDefinition& s) { s.DepthPosition += 1; },
                            [](SailDefinition& s) { s.TwistAngle += 1; },
                            [](SailDefinition& s) { ++s.ClothWidth; },
                            [](SailDefinition& s) { ++s.SeamWidth; },
                            [](SailDefinition& s) { ++s.PanelCount; }};
  for (const Change change : changes) {
    SailDefinition sail;
    change(sail);
    EXPECT_NE(sail, SailDefinition{}) << &change - changes;
  }
}

TEST(Sail, ErasesItsGridAndPanels) {
  SurfaceGrid grid;
  for (SurfaceTable* table : {&grid.SurfaceX, &grid.SurfaceY, &grid.SurfaceZ}) {
    (*table)(3, 4) = 5;
    EXPECT_NE(grid, SurfaceGrid{});
    grid.Erase();
    EXPECT_EQ(grid, SurfaceGrid{});
  }
  DevelopedPanels panels;
  for (PanelTable* table : {&panels.PanelLowerX, &panels.PanelLowerY, &panels.PanelUpperX,
                            &panels.PanelUpperY, &panels.PanelEdgeX, &panels.PanelEdgeY}) {
    (*table)(3, 4) = 5;
    EXPECT_NE(panels, DevelopedPanels{});
    panels.Erase();
    EXPECT_EQ(panels, DevelopedPanels{});
  }
}

TEST(HoldDepthPosition, TakesTheNearestWholeNumberOfTheRange) {
  const std::array<std::pair<double, double>, 8> cases = {
      {{4, 4}, {1, 1}, {8, 8}, {3.4, 3}, {3.6, 4}, {0.08, 1}, {-5, 1}, {10, 8}}};
  for (const auto& [stored, held] : cases) {
    SailDefinition sail;
    sail.DepthPosition = stored;
    HoldDepthPosition(sail);
    EXPECT_EQ(sail.DepthPosition, held) << stored;
  }
}

TEST(Table, RefusesAnIndexOutsideItsBounds) {
  SurfaceTable table;
  table(0, -1) = 1;
  table(91, 43) = 2;
  EXPECT_EQ(table(0, -1) + table(91, 43), 3);
  EXPECT_THROW(table(-1, 0), std::out_of_range);
  EXPECT_THROW(table(92, 0), std::out_of_range);
  EXPECT_THROW(table(0, -2), std::out_of_range);
  EXPECT_THROW(table(0, 44), std::out_of_range);
  table.Erase();
  EXPECT_EQ(table, SurfaceTable{});
}

TEST(DepthLimits, RoundTheFootOfAFractionalMiddleDown) {
  // (5.2 + 0.5) x 0.7 = 3.99.
  EXPECT_EQ(Limited({5, 5.2, 3}), (Depths{3, 5.2, 3}));
}

TEST(DepthLimits, RaiseTheTopAboveThreeTenthsOfTheMiddle) {
  EXPECT_EQ(Limited({0, 13, 1}), (Depths{0, 13, 4}));  // 3.9: three and one
  EXPECT_EQ(Limited({0, 14, 4}), (Depths{0, 14, 5}));  // 4.2
}

TEST(DepthLimits, LeaveAFootOfSevenTenthsOfTheMiddle) {
  EXPECT_EQ(Limited({3.5, 5, 2}), (Depths{3.5, 5, 2}));
}

}  // namespace
}  // namespace brivane
