#include "panels/design_pass.h"

#include <algorithm>
#include <cmath>

#include "geometry/faults.h"
#include "geometry/outline.h"
#include "panels/cross_cut.h"
#include "panels/development.h"
#include "panels/layout_check.h"
#include "panels/vertical_cut.h"

namespace brivane {
namespace {

constexpr int kMostPasses = 10;
constexpr double kFirstAllowance = 0.02;  ///< of the cloth width, at the clew
constexpr double kGain = 0.8;             ///< part of a width error that one pass corrects
constexpr double kExcessMargin = 1;       ///< mm, added to every excess
constexpr double kNarrowTolerance = 2;    ///< mm, a panel this much narrower fits

bool IsVertical(const SailDefinition& sail) { return sail.CutType == kVerticalCut; }

/// Number of panels that the sail's extent suggests, as a 16-bit number, halves to even.
int EstimatePanels(const SailDefinition& sail) {
  if (sail.ClothWidth <= 0) throw GeometryFault(kOverflowWords);
  const double extent = IsVertical(sail)
                            ? sail.FootLength * std::cos(sail.LeechAngle - sail.FootAngle)
                            : sail.LeechLength;
  const double estimate = std::nearbyint(extent / sail.ClothWidth);
  if (!(std::abs(estimate) <= 32767)) throw GeometryFault(kOverflowWords);
  return static_cast<int>(estimate);
}

/// Two per cent of the cloth at the clew, falling linearly to nothing at the top.
Allowances FirstAllowances(const SailDefinition& sail) {
  Allowances allowances{};
  const int n = EstimatePanels(sail);
  const int last = std::min(n, static_cast<int>(allowances.size()) - 1);
  for (int k = 0; k <= last; ++k) {
    const double share = n != 0 ? static_cast<double>(k) / n : 0;
    allowances[static_cast<std::size_t>(k)] = (1 - share) * (sail.ClothWidth * kFirstAllowance);
  }
  return allowances;
}

/// Corrects the allowances by the developed widths. Returns the excess of the last panel that is
/// too wide, 0 when all fit.
double CorrectAllowances(const Sail& sail, double lastStep, Allowances& allowances) {
  const int count = sail.Definition.PanelCount;
  const double cloth = sail.Definition.ClothWidth;
  // The last strip takes what is left of the sail: its allowance is what it really used.
  allowances[static_cast<std::size_t>(count - 1)] = cloth - lastStep;
  double excess = 0;
  for (int p = 0; p < count; ++p) {
    const double error = DevelopedWidth(sail.Panels, p) - cloth;
    double& allowance = allowances[static_cast<std::size_t>(p)];
    if (error > 0) {
      excess = error + kExcessMargin;
      allowance += kGain * excess;
    } else if (error < -kNarrowTolerance) {
      allowance += kGain * error;
    }
  }
  allowances[static_cast<std::size_t>(count)] = 0;
  allowances[static_cast<std::size_t>(count + 1)] = 0;
  return excess;
}

double WidestPanel(const Sail& sail) {
  double widest = 0;
  for (int p = 0; p < sail.Definition.PanelCount; ++p)
    widest = std::max(widest, DevelopedWidth(sail.Panels, p));
  return widest;
}

void EraseLayout(Sail& sail) {
  sail.Grid.Erase();
  sail.Panels.Erase();
  sail.Definition.PanelCount = 0;
}

/// The next attempt needs about fifty panels over the height of the sail.
DesignResult RefuseTooManyPanels(Sail& sail, int passes) {
  EraseLayout(sail);
  const double cloth = std::floor(sail.Definition.PeakPoint.y / 50);
  if (!(cloth <= 32767)) throw GeometryFault(kOverflowWords);
  sail.Definition.ClothWidth = static_cast<std::int16_t>(cloth);
  return {DesignEnd::TooManyPanels, passes, 0};
}

/// The fitting: lay out, develop, measure, correct, until every panel fits.
DesignResult FitPanels(Sail& sail) {
  const SurfaceFrame frame(sail.Definition);
  Allowances allowances = FirstAllowances(sail.Definition);
  const auto layOut = IsVertical(sail.Definition) ? VerticalCutPass : CrossCutPass;
  DesignResult result;
  int counter = 0;
  double excess = 0;
  do {
    ++counter;
    ++result.Passes;
    EraseLayout(sail);
    const Steps steps = layOut(frame, allowances, sail);
    if (steps.TooMany) return RefuseTooManyPanels(sail, result.Passes);
    counter += steps.NarrowSteps;  // a narrow strip brings the end of the fitting nearer
    DevelopPanels(sail);
    excess = CorrectAllowances(sail, steps.LastStep, allowances);
  } while (excess > 0 && counter < kMostPasses);
  RequireCuttableStrips(sail.Grid, sail.Definition.PanelCount);
  result.End = excess > 0 ? DesignEnd::NotFitted : DesignEnd::Fitted;
  result.WidestPanel = WidestPanel(sail);
  return result;
}

}  // namespace

DesignResult DesignPass(Sail& sail) {
  try {
    RecomputeOutline(sail);
    return FitPanels(sail);
  } catch (const GeometryFault&) {
    EraseLayout(sail);
    throw;
  }
}

std::string TooManyPanelsText() {
  return " Too many Panels  " + std::to_string(kMostPanels + 1) +
         "\n Cloth is too narrow \nLe tissu est trop étroit";
}

}  // namespace brivane
