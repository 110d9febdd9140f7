#include "view/mould_drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace brivane {
namespace {

constexpr PictureSize kPicture{9000, 3000};

std::vector<std::string> TextsOf(const Drawing& drawing) {
  std::vector<std::string> texts;
  for (const DrawnText& text : drawing.Texts) texts.push_back(text.Text);
  return texts;
}

const Stroke& ProfileOf(const Drawing& drawing) { return drawing.Strokes.back(); }

double HighestOf(const Stroke& stroke) {
  return std::max_element(stroke.Points.begin(), stroke.Points.end(),
                          [](auto& a, auto& b) { return a.y < b.y; })
      ->y;
}

TEST(MouldSection, ColumnsShowTheirOwnValues) {
  const SailDefinition sail;
  const MouldSection middle = SectionOfColumn(sail, kMiddle);
  EXPECT_EQ(middle.LuffShape, 3);
  EXPECT_EQ(middle.LeechShape, 0.06);
  EXPECT_EQ(middle.Depth, 10);
}

TEST(MouldSection, TheFirstDrawingIsTheDeepestSection) {
  const MouldSection section = DeepestSection(SailDefinition{});
  EXPECT_NEAR(section.LuffShape, 3, 1e-12);
  EXPECT_NEAR(section.LeechShape, 0.06, 1e-12);
  EXPECT_NEAR(section.Depth, 10, 1e-12);
}

TEST(MouldSection, TheSecondDrawingLiesNearTheHead) {
  // At 0.9 with the greatest depth at 0.4: 5/6 of the way up.
  const MouldSection section = TopSection(SailDefinition{});
  EXPECT_NEAR(section.LuffShape, 3 + 3 * 5.0 / 6, 1e-12);
  EXPECT_NEAR(section.LeechShape, 0.06 + 0.02 * 5 / 6, 1e-12);
  EXPECT_NEAR(section.Depth, 10 - 5 * 25.0 / 36, 1e-9);
}

TEST(MouldSection, MovingTheDepthPositionChangesTheSecondDrawing) {
  SailDefinition sail;
  sail.DepthPosition = 8;  // half of the way from 0.8 to the head
  EXPECT_NEAR(TopSection(sail).LuffShape, 4.5, 1e-9);
  EXPECT_NEAR(TopSection(sail).Depth, 10 - 5 * 0.25, 1e-9);
}

TEST(MouldSection, DepthsAlongTheChord) {
  // The parabola 4 X (1 − X).
  const MouldSection parabola = SectionOfColumn(SailDefinition{}, kFoot);
  EXPECT_NEAR(SectionDepthAt(parabola, 0.2), 0.64 * 3, 1e-9);
  EXPECT_NEAR(SectionDepthAt(parabola, 0.5), 3, 1e-9);
  EXPECT_NEAR(SectionDepthAt(parabola, 0.8), 0.64 * 3, 1e-9);
  EXPECT_EQ(SectionDepthAt(parabola, 0), 0);
  EXPECT_EQ(SectionDepthAt(parabola, 1), 0);
  // A = 1, B = 0: the profile is ((1 − X) − (1 − X)³) / 6, greatest √3 / 27 at X = 1 − 1/√3;
  // sampled at 0.42 it is 0.064148.
  const MouldSection cubic{1, 0, 12};
  EXPECT_NEAR(SectionDepthAt(cubic, 0.2), 12 * 0.048 / 0.064148, 1e-3);
  EXPECT_NEAR(SectionDepthAt(cubic, 0.8), 12 * 0.032 / 0.064148, 1e-3);
}

TEST(MouldSection, ValuesThatGiveNoDepthGiveZero) {
  EXPECT_EQ(SectionDepthAt({-1, 0, 10}, 0.2), 0);
  SailDefinition sail;
  sail.DepthPosition = 0;
  EXPECT_TRUE(std::isfinite(SectionDepthAt(DeepestSection(sail), 0.2)));
}

TEST(ProfileDrawing, TheScaleRunsToTenPercent) {
  const Drawing drawing = ProfileDrawing({0, 0, 5}, kPicture);
  EXPECT_EQ(TextsOf(drawing), (std::vector<std::string>{"0%", "10%", "20%", "80%"}));
  const Stroke& profile = ProfileOf(drawing);
  EXPECT_EQ(profile.Ink, (Colour{0, 0, 255}));
  EXPECT_EQ(profile.Points.size(), 101u);
  // From luff to leech on the base line at 320, to half the height of 10 %.
  EXPECT_NEAR(profile.Points.front().x, 720, 1e-9);
  EXPECT_NEAR(profile.Points.front().y, 320, 1e-9);
  EXPECT_NEAR(profile.Points.back().x, 8820, 1e-9);
  EXPECT_NEAR(profile.Points.back().y, 320, 1e-9);
  EXPECT_NEAR(HighestOf(profile), 320 + 2680 / 2.0, 1e-6);
  EXPECT_NEAR(profile.Points[50].y, 320 + 2680 / 2.0, 1e-6);
}

TEST(ProfileDrawing, DeeperProfilesGetFurtherMarks) {
  // The maximum of this profile lies between two samples, a hair above 10 %.
  EXPECT_EQ(TextsOf(ProfileDrawing({3, 0.06, 10}, kPicture)),
            (std::vector<std::string>{"0%", "10%", "20%", "80%"}));
  const Drawing drawing = ProfileDrawing({0, 0, 12}, kPicture);
  EXPECT_EQ(TextsOf(drawing), (std::vector<std::string>{"0%", "10%", "20%", "20%", "80%"}));
  EXPECT_NEAR(HighestOf(ProfileOf(drawing)), 320 + 2680 * 0.6, 1e-6);
}

TEST(ProfileDrawing, DashedVerticalsReachTheProfile) {
  const Drawing drawing = ProfileDrawing({0, 0, 10}, kPicture);
  int found = 0;
  for (const Stroke& stroke : drawing.Strokes) {
    if (stroke.Ink != kRed) continue;
    EXPECT_EQ(stroke.Pen, PenStyle::Dashed);
    EXPECT_NEAR(stroke.Points[0].x, 720 + (found == 0 ? 0.2 : 0.8) * 8100, 1e-6);
    EXPECT_NEAR(stroke.Points[1].y, 320 + 0.64 * 2680, 1e-6);
    ++found;
  }
  EXPECT_EQ(found, 2);
}

TEST(ProfileDrawing, AnyValuesStayFiniteAndInThePicture) {
  for (const double luff : {-1.0, 0.0, 3.0, 10.0, 500.0}) {
    for (const double leech : {0.0, 0.2, 100.0}) {
      for (const double depth : {0.0, 5.0, 99.0, 500.0, 1e300}) {
        for (const PictureSize& picture : {kPicture, PictureSize{300, 100}, PictureSize{0, 0}}) {
          const Drawing drawing = ProfileDrawing({luff, leech, depth}, picture);
          for (const Stroke& stroke : drawing.Strokes) {
            for (const PlanePoint& point : stroke.Points) {
              ASSERT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
              ASSERT_LE(point.y, picture.Height + 1.001);
            }
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace brivane
