#include "panels/development.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "geometry/plane.h"
#include "model/failures.h"
#include "panels/design_pass.h"
#include "panels/layout_check.h"
#include "support/panel_measures.h"

namespace brivane {
namespace {

using SpacePlace = std::function<Corner(double along, double across)>;

/// A sail of one panel whose strip is the image of the unit square.
Sail OneStrip(const SpacePlace& place) {
  Sail sail;
  SurfaceGrid& grid = sail.Grid;
  const auto put = [&grid](int line, int point, const Corner& at) {
    grid.SurfaceX(line, point) = at.x;
    grid.SurfaceY(line, point) = at.y;
    grid.SurfaceZ(line, point) = at.z;
  };
  for (int i = 0; i <= 30; ++i) {
    put(0, 5 + i, place(i / 30.0, 0));
    put(1, 5 + i, place(i / 30.0, 1));
  }
  for (int i = 0; i <= 5; ++i) {
    put(1, i, place(0, i / 5.0));
    put(1, 40 - i, place(1, i / 5.0));
  }
  sail.Definition.PanelCount = 1;
  DevelopPanels(sail);
  return sail;
}

TEST(DevelopPanels, LaysAFlatRectangleAsItIs) {
  const Sail sail = OneStrip([](double u, double v) { return Corner{1000 * u, 300 * v, 0}; });
  for (int i = 0; i <= 30; ++i) {
    EXPECT_NEAR(sail.Panels.PanelLowerX(0, 5 + i), 1000 * i / 30.0, 1e-9);
    EXPECT_NEAR(sail.Panels.PanelLowerY(0, 5 + i), 0, 1e-9);
    EXPECT_NEAR(sail.Panels.PanelUpperX(0, 5 + i), 1000 * i / 30.0, 1e-9);
    EXPECT_NEAR(sail.Panels.PanelUpperY(0, 5 + i), 300, 1e-9);
  }
  EXPECT_NEAR(DevelopedWidth(sail.Panels, 0), 300, 1e-9);
  EXPECT_NEAR(sail.Panels.PanelEdgeX(0, 38), 1000, 1e-9);
  EXPECT_NEAR(sail.Panels.PanelEdgeY(0, 38), 120, 1e-9);
}

TEST(DevelopPanels, LaysAQuarterOfACylinderAsARectangle) {
  // About the x axis, radius 400: the two seams are straight, the rungs chords of a quarter turn.
  const double quarter = std::acos(0.0);
  const Sail sail = OneStrip([&](double u, double v) {
    return Corner{1200 * u, 400 * std::sin(v * quarter), 400 * (1 - std::cos(v * quarter))};
  });
  EXPECT_NEAR(DevelopedWidth(sail.Panels, 0), 400 * std::sqrt(2.0), 1e-9);
  EXPECT_NEAR(sail.Panels.PanelUpperX(0, 35), 1200, 1e-9);
  EXPECT_NEAR(sail.Panels.PanelLowerX(0, 35), 1200, 1e-9);
}

TEST(DevelopPanels, LaysAConeAsASector) {
  // Half angle 30°: the sector of a full turn spans 180°. A third of the turn spans 60°.
  const double turn = 4 * std::acos(0.0) / 3;
  const Sail sail = OneStrip([&](double u, double v) {
    const double slant = 600 + 300 * v;
    const double angle = (0.5 - u) * turn;
    return Corner{-slant * 0.5 * std::sin(angle), slant * 0.5 * std::cos(angle),
                  slant * std::sqrt(0.75)};
  });
  // 30 chords of a twelfth of 60°/2.5 each; the polygon's ends lie 60.0°-ish apart. Its own chords
  // give the exact angle: each triangle of the fan has the slants 600, 600 and the chord.
  const double chord = 2 * 300 * std::sin(turn / 60);
  const double fan = 30 * 2 * std::asin(chord / 2 / 600);
  EXPECT_NEAR(sail.Panels.PanelLowerX(0, 35), 2 * 600 * std::sin(fan / 2), 1e-8);
  const PlanePoint top{sail.Panels.PanelUpperX(0, 35) - sail.Panels.PanelUpperX(0, 5),
                       sail.Panels.PanelUpperY(0, 35) - sail.Panels.PanelUpperY(0, 5)};
  EXPECT_NEAR(Length(top), 2 * 900 * std::sin(fan / 2), 1e-8);
}

TEST(DevelopPanels, KeepsAnUprightEdgeOutsideThePanel) {
  // The forward edge bows out of the plane only: its plan is straight and gives no side.
  const Sail sail = OneStrip([](double u, double v) {
    return Corner{1000 * u, 300 * v, (1 - u) * 20 * std::sin(v * 3.14159)};
  });
  for (int point = 1; point <= 4; ++point) EXPECT_LT(sail.Panels.PanelEdgeX(0, point), 0);
}

TEST(DevelopPanels, DevelopsAStripThatEndsInACorner) {
  for (const bool forward : {true, false}) {
    const Sail sail = OneStrip([forward](double u, double v) {
      const double opening = forward ? u : 1 - u;
      return Corner{1000 * u, 400 * v * opening, 60 * u * (1 - u) + 10 * v * opening};
    });
    EXPECT_LT(WorstEdgeError(sail, 0), 1e-9) << forward;
    EXPECT_GT(DevelopedWidth(sail.Panels, 0), 399) << forward;
  }
}

TEST(DevelopPanels, KeepsTheEdgesOfAStripThatIsClosedOverHalfItsLength) {
  for (const bool forward : {true, false}) {
    const Sail sail = OneStrip([forward](double u, double v) {
      const double opening = std::max(0.0, forward ? 2 * u - 1 : 1 - 2 * u);
      return Corner{1000 * u, 400 * v * opening, 60 * u * (1 - u)};
    });
    EXPECT_LT(WorstEdgeError(sail, 0), 1e-9) << forward;
  }
}

TEST(DevelopPanels, KeepsTheEdgesOfAStripWhoseLowerSeamIsAPoint) {
  const Sail sail = OneStrip([](double u, double v) {
    return Corner{1000 * (u - 0.5) * v, 300 * v, 40 * u * (1 - u) * v};
  });
  EXPECT_LT(WorstEdgeError(sail, 0), 1e-9);
}

TEST(DevelopPanels, KeepsTheEdgesOfAStripWhoseSeamsHaveNoLength) {
  const Sail sail = OneStrip([](double u, double v) {
    const double bow = (u == 0 ? -120 : u == 1 ? 120 : 0) * v * (1 - v);
    return Corner{bow, bow * v, 0};
  });
  EXPECT_LT(WorstEdgeError(sail, 0), 1e-9);
}

TEST(DevelopPanels, SurvivesAStripWithoutSize) {
  const Sail sail = OneStrip([](double, double) { return Corner{5, 6, 7}; });
  EXPECT_EQ(DevelopedWidth(sail.Panels, 0), 0);
}

TEST(DevelopPanels, RefusesWhatIsNotFinite) {
  EXPECT_THROW(OneStrip([](double u, double v) {
                 return Corner{1e308 * u, 1e308 * v, 1e308};
               }),
               GeometryFault);
}

TEST(DevelopPanels, MirrorsThePanelsOfTheVerticalCut) {
  Sail sail;
  sail.Definition.CutType = kVerticalCut;
  DesignPass(sail);
  for (int p = 0; p < sail.Definition.PanelCount; ++p) {
    EXPECT_GT(DevelopedWidth(sail.Panels, p), 0) << p;
    EXPECT_EQ(sail.Panels.PanelLowerX(p, 5), 0) << p;
    EXPECT_EQ(sail.Panels.PanelLowerY(p, 5), 0) << p;
    EXPECT_EQ(sail.Panels.PanelLowerY(p, 35), 0) << p;
    EXPECT_GT(sail.Panels.PanelLowerX(p, 35), 0) << p;
  }
}

TEST(DevelopPanels, AgreesWithTheAnglesOfItsTriangles) {
  // The second route: the first triangle of every panel by SolveTriangle's angles.
  Sail sail;
  DesignPass(sail);
  for (int p = 1; p + 1 < sail.Definition.PanelCount; ++p) {
    const double rung = SpaceLength(sail.Grid, p, 20, p + 1, 20);
    const double seam = SpaceLength(sail.Grid, p, 20, p, 21);
    const double diagonal = SpaceLength(sail.Grid, p + 1, 20, p, 21);
    const TriangleAngles angles = SolveTriangle(diagonal, rung, seam);
    const DevelopedPanels& flat = sail.Panels;
    const PlanePoint corner{flat.PanelLowerX(p, 20), flat.PanelLowerY(p, 20)};
    const PlanePoint along = PlanePoint{flat.PanelLowerX(p, 21), flat.PanelLowerY(p, 21)} - corner;
    const double bearing = std::atan2(along.y, along.x) + angles.A;
    EXPECT_NEAR(flat.PanelUpperX(p, 20), corner.x + rung * std::cos(bearing), 1e-6) << p;
    EXPECT_NEAR(flat.PanelUpperY(p, 20), corner.y + rung * std::sin(bearing), 1e-6) << p;
  }
}

/// A point of a strip, by the line of the grid and by the outline of the panel that it is on.
struct StripPoint {
  int line = 0;
  int point = 0;
};

PlanePoint FlatPoint(const DevelopedPanels& flat, int p, StripPoint at) {
  if (at.line == p) return {flat.PanelLowerX(p, at.point), flat.PanelLowerY(p, at.point)};
  const bool seam = at.point >= kForwardCorner && at.point <= kAftCorner;
  if (seam) return {flat.PanelUpperX(p, at.point), flat.PanelUpperY(p, at.point)};
  return EdgePoint(flat, p, at.point);
}

PlanePoint PlanPoint(const SurfaceGrid& grid, StripPoint at) {
  return {grid.SurfaceX(at.line, at.point), grid.SurfaceY(at.line, at.point)};
}

/// Three edges and a side lay a triangle, whatever the way to it.
void ExpectTriangle(const Sail& sail, int p, StripPoint a, StripPoint b, StripPoint c) {
  const auto expectEdge = [&](StripPoint from, StripPoint to) {
    const double space = SpaceLength(sail.Grid, from.line, from.point, to.line, to.point);
    const double flat = Length(FlatPoint(sail.Panels, p, to) - FlatPoint(sail.Panels, p, from));
    EXPECT_NEAR(flat, space, 1e-11 * std::max(space, 1.0))
        << "panel " << p << ", " << from.point << " to " << to.point;
  };
  expectEdge(a, b), expectEdge(b, c), expectEdge(c, a);
  const PlanePoint flatA = FlatPoint(sail.Panels, p, a);
  const double flatArea =
      Cross(FlatPoint(sail.Panels, p, b) - flatA, FlatPoint(sail.Panels, p, c) - flatA);
  const PlanePoint planA = PlanPoint(sail.Grid, a);
  const double planArea = Cross(PlanPoint(sail.Grid, b) - planA, PlanPoint(sail.Grid, c) - planA);
  const double mirror = sail.Definition.CutType == kVerticalCut ? -1 : 1;
  if (std::abs(planArea) < 1e-3) return;  // it stands upright
  EXPECT_GT(flatArea * planArea * mirror, 0) << "panel " << p << ", " << a.point;
}

TEST(DevelopPanels, KeepsThreeEdgesAndTheSideOfEveryTriangle) {
  for (const char* cut : {kCrossCut, kTwistFootCut, kVerticalCut}) {
    Sail sail;
    sail.Definition.CutType = cut;
    DesignPass(sail);
    ASSERT_GT(sail.Definition.PanelCount, 3);
    for (int p = 0; p < sail.Definition.PanelCount; ++p) {
      for (int i = kForwardCorner; i < kAftCorner; ++i) {
        ExpectTriangle(sail, p, {p, i}, {p, i + 1}, {p + 1, i});
        ExpectTriangle(sail, p, {p, i + 1}, {p + 1, i + 1}, {p + 1, i});
      }
      for (int i = 0; i + 1 < kForwardCorner; ++i) {
        ExpectTriangle(sail, p, {p + 1, i}, {p + 1, kForwardCorner}, {p + 1, i + 1});
        const int aft = kLastPoint - i;
        ExpectTriangle(sail, p, {p + 1, aft}, {p + 1, aft - 1}, {p + 1, kAftCorner});
      }
    }
  }
}

TEST(DevelopPanels, KeepsTheAreaOfAFlatSail) {
  for (const char* cut : {kCrossCut, kTwistFootCut, kVerticalCut}) {
    Sail sail;
    sail.Definition.CutType = cut;
    sail.Definition.Depth = {0, 0, 0};
    sail.Definition.TwistAngle = 0;
    DesignPass(sail);
    for (int p = 0; p < sail.Definition.PanelCount; ++p)
      EXPECT_NEAR(PanelArea(sail.Panels, p), std::abs(StripPlanArea(sail.Grid, p)), 1e-3)
          << cut << p;
  }
}

TEST(DevelopPanels, KeepsUprightEdgesOutsideWhereverTheStripIsWidestAndEitherWayRound) {
  // Both edges bow out of the plane only. The panel starts from its widest rung: the forward end,
  // the middle or the aft end.
  for (const double turn : {0.0, 0.7})
    for (const double widest : {0.0, 0.5, 1.0})
      for (const double way : {1.0, -1.0}) {
        const Sail sail = OneStrip([&](double u, double v) {
          const double height = way * (300 - 100 * std::abs(u - widest)) * v;
          const double bow = std::max(0.0, 1 - 10 * std::min(u, 1 - u)) * 20;
          return Corner{7000 + 1000 * u * std::cos(turn) - height * std::sin(turn),
                        1000 * u * std::sin(turn) + height * std::cos(turn),
                        bow * std::sin(v * 3.14159)};
        });
        // An edge lies in a plane of its own, which is folded down at its corners.
        for (int point = 1; point <= 4; ++point) {
          const double bow = 20 * std::sin(point / 5.0 * 3.14159);
          EXPECT_NEAR(sail.Panels.PanelEdgeX(0, point), -bow, 1e-3) << widest << way << point;
          EXPECT_NEAR(sail.Panels.PanelEdgeX(0, 40 - point), 1000 + bow, 1e-3)
              << widest << way << point;
        }
      }
}

TEST(DevelopPanels, KeepsACrescentTheRightWayUp) {
  // A strip of 50 mm that sags by 200 mm: most of it lies below the chord of its lower seam.
  const auto place = [](double way) {
    return [way](double u, double v) {
      return Corner{1000 * u, way * (50 * v - 800 * u * (1 - u)), 0};
    };
  };
  for (const double way : {1.0, -1.0}) {
    const Sail sail = OneStrip(place(way));
    EXPECT_NEAR(sail.Panels.PanelLowerY(0, 20), -200, 1e-9) << way;
    EXPECT_NEAR(sail.Panels.PanelUpperY(0, 20), -150, 1e-9) << way;
  }
}

TEST(DevelopPanels, PutsTheUpperSeamAboveInAStripOfAHundredthOfAMillimetre) {
  for (const PlanePoint& along : {PlanePoint{1, 0}, {0, 1}})
    for (const double way : {1.0, -1.0}) {
      const PlanePoint across = 0.01 * way * PlanePoint{-along.y, along.x};
      const Sail sail = OneStrip([&](double u, double v) {
        const PlanePoint at = u * along + v * across;
        return Corner{at.x, at.y, 0};
      });
      EXPECT_NEAR(sail.Panels.PanelUpperY(0, 20), 0.01, 1e-12) << along.x << way;
      EXPECT_NEAR(sail.Panels.PanelUpperX(0, 35), 1, 1e-12) << along.x << way;
    }
}

TEST(DevelopPanels, PutsTheUpperSeamAboveWhereverTheStripIsWidest) {
  for (int widest = 0; widest <= 30; ++widest)
    for (const double way : {1.0, -1.0}) {
      const auto height = [&](int i) { return i == widest ? 300.0 : 10.0; };
      const Sail sail = OneStrip([&](double u, double v) {
        return Corner{1000 * u, way * height(static_cast<int>(std::lround(30 * u))) * v, 0};
      });
      for (int i = 0; i <= 30; ++i) {
        EXPECT_NEAR(sail.Panels.PanelUpperX(0, 5 + i), 1000 * i / 30.0, 1e-9) << widest << way;
        EXPECT_NEAR(sail.Panels.PanelUpperY(0, 5 + i), height(i), 1e-9) << widest << way;
      }
    }
}

TEST(DevelopPanels, LaysAStripThatIsFoldedLikeStairsFlat) {
  // Treads and upright risers of a thirtieth of its length in turns; a tread at the widest rung,
  // where the panel starts from.
  for (const double length : {1000.0, 1.0})
    for (const int widest : {0, 15, 30})
      for (const double way : {1.0, -1.0}) {
        const auto height = [&](int i) { return length * (0.3 - 0.005 * std::abs(i - widest)); };
        const int treads = widest == 0 ? 1 : 0;  // whether the first piece is one
        const Sail sail = OneStrip([&](double u, double v) {
          const int i = static_cast<int>(std::lround(30 * u));
          return Corner{length / 30 * ((i + treads) / 2), way * height(i) * v,
                        length / 30 * ((i + 1 - treads) / 2)};
        });
        const DevelopedPanels& flat = sail.Panels;
        for (int i = 0; i <= 30; ++i) {
          EXPECT_NEAR(flat.PanelLowerX(0, 5 + i), length * i / 30, 1e-9) << widest << way;
          EXPECT_NEAR(flat.PanelLowerY(0, 5 + i), 0, 1e-9) << widest << way;
          EXPECT_NEAR(flat.PanelUpperX(0, 5 + i), length * i / 30, 1e-9) << widest << way;
          EXPECT_NEAR(flat.PanelUpperY(0, 5 + i), height(i), 1e-9) << widest << way;
        }
      }
}

TEST(DevelopPanels, TellsAnEdgeThatStandsUprightFromOneThatLeansInward) {
  // The forward edge bows out of the plane by 20 mm and leans inward by a part of that. Where the
  // part is nothing but rounding the edge belongs outside.
  const auto edge = [](double lean) {
    const Sail sail = OneStrip([lean](double u, double v) {
      const double bow = (1 - u) * 20 * std::sin(v * 3.14159);
      return Corner{1000 * u + lean * bow, 300 * v, bow};
    });
    return sail.Panels.PanelEdgeX(0, 2);
  };
  EXPECT_LT(edge(1e-7), -1);
  EXPECT_GT(edge(1e-5), 1);
}

TEST(DevelopPanels, KeepsAnUprightEdgeOutsideAStripThatIsClosedAtItsOtherEnd) {
  // From a corner on the strip opens evenly, or not before its very end.
  for (const bool evenly : {true, false})
    for (const bool forward : {true, false})
      for (const double way : {1.0, -1.0}) {
        const Sail sail = OneStrip([&](double u, double v) {
          const double along = forward ? 1 - u : u;
          const double opening = evenly ? along : along < 1 ? 0 : 1;
          return Corner{1000 * u, way * 300 * opening * v,
                        opening < 1 ? 0 : 20 * std::sin(v * 3.14159)};
        });
        const DevelopedPanels& flat = sail.Panels;
        const int corner = forward ? 5 : 35;
        const int beside = forward ? 6 : 34;
        const PlanePoint from{flat.PanelLowerX(0, corner), flat.PanelLowerY(0, corner)};
        const PlanePoint rung = FlatPoint(flat, 0, {1, corner}) - from;
        const double inside = Cross(rung, FlatPoint(flat, 0, {0, beside}) - from);
        for (int ray = 1; ray <= 4; ++ray) {
          const double side = Cross(rung, EdgePoint(flat, 0, forward ? ray : 40 - ray) - from);
          EXPECT_LT(side * inside, -1) << evenly << forward << way << ray;
        }
        EXPECT_GT(rung.y, 1) << evenly << forward << way;
      }
}

TEST(DevelopPanels, GivesEachCornerToBothOfItsLines) {
  for (const char* cut : {kCrossCut, kTwistFootCut, kVerticalCut}) {
    Sail sail;
    sail.Definition.CutType = cut;
    DesignPass(sail);
    const DevelopedPanels& flat = sail.Panels;
    for (int p = 0; p < sail.Definition.PanelCount; ++p) {
      for (const auto& [edge, seam] : {std::pair{5, 5}, {35, 35}}) {
        EXPECT_EQ(flat.PanelEdgeX(p, edge), flat.PanelUpperX(p, seam)) << cut << p;
        EXPECT_EQ(flat.PanelEdgeY(p, edge), flat.PanelUpperY(p, seam)) << cut << p;
      }
      for (const auto& [edge, seam] : {std::pair{0, 5}, {40, 35}}) {
        EXPECT_EQ(flat.PanelEdgeX(p, edge), flat.PanelLowerX(p, seam)) << cut << p;
        EXPECT_EQ(flat.PanelEdgeY(p, edge), flat.PanelLowerY(p, seam)) << cut << p;
      }
    }
  }
}

TEST(DevelopPanels, FillsNoMoreThanItsPanels) {
  Sail sail;
  DesignPass(sail);
  sail.Definition.PanelCount = 3;
  sail.Panels.Erase();
  DevelopPanels(sail);
  EXPECT_GT(sail.Panels.PanelLowerX(2, 35), 0);
  for (int point = 0; point <= 40; ++point) {
    EXPECT_EQ(sail.Panels.PanelLowerX(3, point), 0);
    EXPECT_EQ(sail.Panels.PanelUpperX(3, point), 0);
    EXPECT_EQ(sail.Panels.PanelUpperY(3, point), 0);
    EXPECT_EQ(sail.Panels.PanelEdgeY(3, point), 0);
  }
}

TEST(DevelopPanels, DrawsTheTopEdgeOfTheLastPanelAsItsGuideLine) {
  Sail sail;
  DesignPass(sail);
  const int last = sail.Definition.PanelCount - 1;
  for (int point = 6; point <= 34; ++point) {
    EXPECT_EQ(sail.Panels.PanelEdgeX(last, point), sail.Panels.PanelUpperX(last, point));
    EXPECT_EQ(sail.Panels.PanelEdgeY(last, point), sail.Panels.PanelUpperY(last, point));
    EXPECT_LT(sail.Panels.PanelEdgeY(last - 1, point), sail.Panels.PanelUpperY(last - 1, point));
  }
}

TEST(DevelopedWidth, IsTheGreatestOfAllThirtyOnePoints) {
  for (int widest = 5; widest <= 35; ++widest) {
    DevelopedPanels panels;
    for (int point = 5; point <= 35; ++point) panels.PanelUpperY(4, point) = 100 + point % 7;
    panels.PanelUpperY(4, widest) = 120.5;
    EXPECT_EQ(DevelopedWidth(panels, 4), 120.5) << widest;
  }
  DevelopedPanels panels;
  for (int point = 5; point <= 35; ++point) panels.PanelUpperY(4, point) = -point;
  EXPECT_EQ(DevelopedWidth(panels, 4), -5);
}

}  // namespace
}  // namespace brivane
