#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "model/failures.h"
#include "panels/design_pass.h"
#include "view/navigation.h"
#include "view/outline_curve.h"
#include "view/panel_arrangement.h"
#include "view/paper_checks.h"
#include "view/print_panels.h"
#include "view/sail_drawing.h"
#include "view/view_sails.h"

// Pictures and pages of sails that went through the whole design pass.

namespace brivane {
namespace {

constexpr PictureSize kPicture{14000, 9000};
constexpr const char* kCuts[] = {kCrossCut, kTwistFootCut, kVerticalCut};

Sail DefaultSail(const char* cut) {
  Sail sail;
  sail.Definition.CutType = cut;
  DesignPass(sail);
  return sail;
}

/// Sails of every cut that could be laid out.
std::vector<Sail> RandomDesigns(unsigned seed, int count) {
  std::mt19937 random(seed);
  std::vector<Sail> sails;
  for (int i = 0; i < count; ++i) {
    Sail sail;
    sail.Definition = testing::RandomSail(random);
    sail.Definition.CutType = kCuts[i % 3];
    try {
      if (DesignPass(sail).End != DesignEnd::TooManyPanels) sails.push_back(std::move(sail));
    } catch (const GeometryFault&) {
    }
  }
  return sails;
}

double DistanceToSegment(PlanePoint p, PlanePoint a, PlanePoint b) {
  const double dx = b.x - a.x, dy = b.y - a.y;
  const double square = dx * dx + dy * dy;
  const double t =
      square > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / square, 0.0, 1.0) : 0;
  return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

double DistanceToOutline(PlanePoint point, const Drawing& outline) {
  double least = 1e300;
  for (std::size_t edge = 0; edge < 4; ++edge) {
    const auto& points = outline.Strokes[edge].Points;
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
      least = std::min(least, DistanceToSegment(point, points[i], points[i + 1]));
  }
  return least;
}

TEST(DesignedSails, SeamLinesEndOnThePlanOutlineStraightOn) {
  for (const char* cut : kCuts) {
    const Sail sail = DefaultSail(cut);
    ViewState view;
    view.ViewScale = 1;  // the picture's units are mm
    Drawing outline;
    AppendOutline(sail.Definition, view, outline);
    view.Mode = RedrawMode::Surface;
    const Drawing lines = SailDrawing(sail, view, kPicture, 0, 0, Language::English);
    ASSERT_EQ(static_cast<int>(lines.Strokes.size()), sail.Definition.PanelCount + 1) << cut;
    for (std::size_t i = 1; i + 1 < lines.Strokes.size(); ++i) {
      // Between the 21 points an edge's chord lies up to 0.4 mm within a round of 170 mm. A seam
      // of the cross cut that starts on the foot starts on the straight foot.
      const bool onStraightFoot =
          cut != kVerticalCut && sail.Grid.SurfaceX(static_cast<int>(i), kEdgeCodeColumn) == 0;
      if (!onStraightFoot) {
        EXPECT_LT(DistanceToOutline(lines.Strokes[i].Points[kForwardCorner], outline), 0.5) << i;
      }
      EXPECT_LT(DistanceToOutline(lines.Strokes[i].Points[kAftCorner], outline), 0.5) << i;
    }
  }
}

bool Cross(PlanePoint a, PlanePoint b, PlanePoint c, PlanePoint d) {
  const auto side = [](PlanePoint p, PlanePoint q, PlanePoint r) {
    return (q.x - p.x) * (r.y - p.y) - (q.y - p.y) * (r.x - p.x);
  };
  return side(a, b, c) * side(a, b, d) < 0 && side(c, d, a) * side(c, d, b) < 0;
}

bool Overlap(const std::vector<PlanePoint>& first, const std::vector<PlanePoint>& second) {
  for (std::size_t i = 0; i + 1 < first.size(); ++i)
    for (std::size_t j = 0; j + 1 < second.size(); ++j)
      if (Cross(first[i], first[i + 1], second[j], second[j + 1])) return true;
  bool inside = false;  // the whole second within the first
  const PlanePoint p = second.front();
  for (std::size_t i = 0; i + 1 < first.size(); ++i) {
    const PlanePoint a = first[i], b = first[i + 1];
    if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y))
      inside = !inside;
  }
  return inside;
}

TEST(DesignedSails, DevelopedPanelsLieApartAndBesideTheSail) {
  int panelsSeen = 0;
  for (const Sail& sail : RandomDesigns(62, 150)) {
    ViewState view;
    ASSERT_TRUE(FitView(sail.Definition, kPicture, view));
    const auto panels = ArrangePanels(sail, view);
    const double sailsRight = UprightExtent(sail.Definition).Right;
    for (std::size_t i = 0; i < panels.size(); ++i) {
      for (const PlanePoint& point : panels[i].Outline) ASSERT_GT(point.x, sailsRight);
      for (std::size_t j = i + 1; j < panels.size(); ++j)
        ASSERT_FALSE(Overlap(panels[i].Outline, panels[j].Outline))
            << sail.Definition.CutType << ' ' << i << ' ' << j;
      ++panelsSeen;
    }
  }
  EXPECT_GT(panelsSeen, 500);
}

TEST(DesignedSails, DevelopDrawsEveryPanelAndNoEmptyOne) {
  for (const char* cut : kCuts) {
    const Sail sail = DefaultSail(cut);
    ViewState view;
    ASSERT_TRUE(FitView(sail.Definition, kPicture, view));
    Drawing drawing;
    AppendDevelopedPanels(sail, view, drawing);
    // An outline for every panel, and a guide line for all but the last.
    EXPECT_EQ(static_cast<int>(drawing.Strokes.size()), 2 * sail.Definition.PanelCount - 1);
    for (const Stroke& stroke : drawing.Strokes) {
      for (const PlanePoint& point : stroke.Points) {
        EXPECT_GE(point.y, -0.05 * kPicture.Height) << cut;
        EXPECT_LE(point.y, 1.05 * kPicture.Height) << cut;
        EXPECT_LE(point.x, 1.05 * kPicture.Width) << cut;
      }
    }
  }
}

TEST(DesignedSails, PrintedPanelsStayOnThePageAndTheirTextsApart) {
  int pagesSeen = 0;
  for (const Sail& sail : RandomDesigns(64, 60)) {
    for (const Paper& paper : {testing::kPapers[0], testing::kPapers[1], testing::kA3Landscape}) {
      for (const Drawing& page :
           PrintedPanels(sail, paper, Language::English, EstimatedTextWidth)) {
        testing::ExpectOnPaper(page, paper, EstimatedTextWidth);
        testing::ExpectTextsApart(page, EstimatedTextWidth);
        ++pagesSeen;
      }
    }
  }
  EXPECT_GT(pagesSeen, 200);
}

}  // namespace
}  // namespace brivane
