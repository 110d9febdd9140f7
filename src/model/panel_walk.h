#pragma once

#include <array>

#include "model/sail.h"

namespace brivane {

// The ways round and across a developed panel, as every cutter, reader and picture takes them.

/// The three lines of a panel's tables.
enum class PanelLine { Lower, Upper, Edge };

/// Points along one line of a panel, the first and the last included; backwards where the first is
/// the greater.
struct PanelStretch {
  PanelLine Line;
  int First;
  int Last;

  constexpr int Count() const { return (First <= Last ? Last - First : First - Last) + 1; }
  constexpr PanelStretch Reversed() const { return {Line, Last, First}; }
};

/// The lower seam, forward to aft.
inline constexpr PanelStretch kLowerSeam = {PanelLine::Lower, kForwardCorner, kAftCorner};

/// The guide line, forward to aft.
inline constexpr PanelStretch kGuideLine = {PanelLine::Edge, kForwardCorner, kAftCorner};

/// The closed cutting outline: the lower seam's forward end, forward edge, upper seam, aft edge,
/// lower seam back.
inline constexpr std::array<PanelStretch, 5> kPanelOutline = {
    {{PanelLine::Lower, kForwardCorner, kForwardCorner},
     {PanelLine::Edge, 0, kForwardCorner},
     {PanelLine::Upper, kForwardCorner, kAftCorner},
     {PanelLine::Edge, kAftCorner, kLastPoint},
     kLowerSeam.Reversed()}};

/// The outline of the last panel where its guide line, the top of the sail, stands for its upper
/// seam.
inline constexpr std::array<PanelStretch, 3> kTopPanelOutline = {
    {kPanelOutline[0], {PanelLine::Edge, 0, kLastPoint}, kPanelOutline[4]}};

/// How many points a way of several stretches has.
template <typename Stretches>
constexpr int CountOf(const Stretches& stretches) {
  int count = 0;
  for (const PanelStretch& stretch : stretches) count += stretch.Count();
  return count;
}

/// Hands each point of a stretch to take(x, y), mm. Throws std::out_of_range for a panel that the
/// tables do not have.
template <typename Take>
void WalkStretch(const DevelopedPanels& panels, int panel, const PanelStretch& stretch,
                 const Take& take) {
  const auto [xs, ys] = [&]() -> std::array<const PanelTable*, 2> {
    switch (stretch.Line) {
      case PanelLine::Lower:
        return {&panels.PanelLowerX, &panels.PanelLowerY};
      case PanelLine::Upper:
        return {&panels.PanelUpperX, &panels.PanelUpperY};
      case PanelLine::Edge:
        break;
    }
    return {&panels.PanelEdgeX, &panels.PanelEdgeY};
  }();
  const double* const x = xs->Points(panel);
  const double* const y = ys->Points(panel);
  const int step = stretch.First <= stretch.Last ? 1 : -1;
  for (int k = stretch.First; k != stretch.Last + step; k += step) take(x[k], y[k]);
}

}  // namespace brivane
