// Layout, development, sail data files and exports over thousands of random sails of each cut.

#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <map>

#include "model/failures.h"
#include "panels/design_pass.h"
#include "properties/export_checks.h"
#include "properties/layout_invariants.h"
#include "properties/random_sails.h"
#include "support/temporary_folder.h"

namespace brivane {
namespace {

constexpr int kUsualSails = 10000;

/// The exports of one of so many sails are read back, unless a longer run asks for more.
constexpr int kUsualExportStep = 10;

/// One of so many sails goes by way of the disk, which takes its time.
constexpr int kDiskStep = 250;

/// Fewer sails than these say nothing about shares.
constexpr int kEnoughForShares = 10000;

/// What became of the sails of one property, by cause.
using Tally = std::map<std::string, int>;

/// Why a sail that was laid out does not fit its cloth, where the reason is known.
std::string CauseOfMisfit(const SailDefinition& sail) {
  if (sail.FootAngle > sail.LeechAngle) return "not fitted: clew angle over 90 degrees";
  const double footCamber = sail.Depth[kFoot] / 100 * sail.FootLength;
  if (footCamber > 0.3 * sail.ClothWidth) return "not fitted: foot deeper than 0.3 cloth";
  return "not fitted: other";
}

std::string CauseOfRefusal(const SailDefinition& sail, const GeometryFault& fault) {
  if (sail.CutType == kVerticalCut && -sail.LeechRound > 0.6 * sail.ClothWidth)
    return "refused: leech hollow deeper than 0.6 cloth";
  return "refused: " + std::string(fault.Words.English.substr(0, fault.Words.English.find('.')));
}

int Refused(const Tally& tally) {
  int sum = 0;
  for (const auto& [outcome, number] : tally)
    if (outcome.starts_with("refused")) sum += number;
  return sum;
}

/// The sail data file of the sail and, where it was laid out, its exports, each under the decimal
/// mark whose turn it is.
void CheckFiles(const Sail& sail, bool isLaidOut, int index) {
  const int exportStep = ExportStep(kUsualExportStep);
  const char mark = index / exportStep % 2 == 0 ? '.' : ',';
  std::string broken = BrokenSailData(sail.Definition, mark);
  if (broken.empty() && index % kDiskStep == 0) {
    const TemporaryFolder folder;
    broken = BrokenSailDataFile(sail.Definition, mark, folder.Path(""));
  }
  if (broken.empty() && isLaidOut && index % exportStep == 0) broken = BrokenExport(sail, mark);
  if (!broken.empty())
    ADD_FAILURE() << broken << ", sail " << DumpSail(sail.Definition, "files", index);
}

/// No seam width stays as it is on a cloth this narrow (mm): a tenth of it rounds to 0, and 0 is
/// raised to 1 the next time.
constexpr int kRestlessCloth = 5;

/// The same design over again, and the design of what came out, are the same to the last bit.
void ExpectTheSameAgain(const Sail& first, const SailDefinition& definition, int index) {
  Sail sail;
  sail.Definition = definition;
  for (int run = 0; run < 2; ++run) {
    DesignPass(sail);
    EXPECT_EQ(sail.Definition, first.Definition) << DumpSail(definition, "again", index);
    EXPECT_EQ(sail.Grid, first.Grid) << DumpSail(definition, "again", index);
    EXPECT_EQ(sail.Panels, first.Panels) << DumpSail(definition, "again", index);
    if (sail.Definition.ClothWidth <= kRestlessCloth) return;
  }
}

/// Designs the sail, checks it and returns what became of it.
std::string Design(const SailDefinition& definition, int index) {
  Sail sail;
  sail.Definition = definition;
  try {
    const DesignResult result = DesignPass(sail);
    CheckFiles(sail, result.End != DesignEnd::TooManyPanels, index);
    if (result.End == DesignEnd::TooManyPanels) return "refused: too many panels";
    const std::string broken = BrokenInvariant(sail, result);
    if (!broken.empty())
      ADD_FAILURE() << broken << ", sail " << DumpSail(definition, "layout", index);
    if (index % 10 == 0) ExpectTheSameAgain(sail, definition, index);
    return result.End == DesignEnd::Fitted ? "fitted" : CauseOfMisfit(sail.Definition);
  } catch (const GeometryFault& fault) {
    EXPECT_EQ(sail.Definition.PanelCount, 0) << index;
    EXPECT_EQ(sail.Grid, SurfaceGrid{}) << index;
    CheckFiles(sail, false, index);
    return CauseOfRefusal(sail.Definition, fault);
  }
}

Tally DesignMany(SailDefinition (*draw)(Random&, const std::string&), const std::string& cut,
                 int count) {
  Random random(RunSeed());
  Tally tally;
  for (int i = 0; i < count && !::testing::Test::HasFailure(); ++i)
    ++tally[Design(draw(random, cut), i)];
  std::cout << "note: " << cut << ", seed " << RunSeed() << ", " << count << " sails\n";
  for (const auto& [outcome, number] : tally)
    std::cout << "note:     " << number << "  " << outcome << "\n";
  return tally;
}

class LayoutProperty : public ::testing::TestWithParam<const char*> {};

TEST_P(LayoutProperty, HoldsForPlausibleSails) {
  const int count = SailCount(kUsualSails);
  Tally tally = DesignMany(PlausibleSail, GetParam(), count);
  if (count < kEnoughForShares) return;
  const double allowed = GetParam() == std::string(kTwistFootCut) ? 0.01 : 0.005;
  EXPECT_LE(tally["not fitted: other"], allowed * count);
  const int hollow = tally["refused: leech hollow deeper than 0.6 cloth"];
  EXPECT_LE(Refused(tally) - hollow, 0.002 * count);
}

TEST_P(LayoutProperty, HoldsForAnythingThatTheWindowsAccept) {
  DesignMany(TypedSail, GetParam(), SailCount(kUsualSails));
}

INSTANTIATE_TEST_SUITE_P(Cuts, LayoutProperty,
                         ::testing::Values(kCrossCut, kTwistFootCut, kVerticalCut),
                         [](const auto& cut) { return std::string(cut.param); });

}  // namespace
}  // namespace brivane
