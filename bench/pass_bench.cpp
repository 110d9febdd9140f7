#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>

#include "bench_sails.h"
#include "harness.h"
#include "model/sail_file.h"
#include "panels/design_pass.h"
#include "plain/plain_pass.h"

namespace bench {
namespace {

using brivane::Sail;
using brivane::SailDefinition;

void RequireSamePanels(const Sail& sail, const PlainSail& plain) {
  if (plain.PanelCount() != sail.Definition.PanelCount)
    throw std::runtime_error("the straightforward version lays out other panels");
  for (int p = 0; p < plain.PanelCount(); ++p)
    for (int point = brivane::kForwardCorner; point <= brivane::kAftCorner; ++point)
      if (!(std::abs(sail.Panels.PanelUpperX(p, point) - plain.UpperX(p, point)) < 1e-5) ||
          !(std::abs(sail.Panels.PanelUpperY(p, point) - plain.UpperY(p, point)) < 1e-5))
        throw std::runtime_error("the straightforward version lays other panels");
}

Row AgainstPlainVersion() {
  const SailDefinition given = SeventyPanels();
  Sail sail = SeventyPanelSail();
  PlainSail plain(brivane::SailDataText(given));
  if (plain.Design() != 10) throw std::runtime_error("the straightforward version fits otherwise");
  RequireSamePanels(sail, plain);
  const Minima times = TimeInTurns([&] { plain.Design(); },
                                   [&] {
                                     sail.Definition = given;
                                     brivane::DesignPass(sail);
                                   });
  return {"straightforward design pass / ours", times.Ratio(), 4, true, Sides(times)};
}

/// The design of the same sail in a cloth that gives about so many panels.
struct Work {
  SailDefinition Given;
  Sail Designed;
  int PanelPasses = 0;  ///< panels × passes

  explicit Work(double clothWidth) : Given(SeventyPanels()) {
    Given.ClothWidth = static_cast<std::int16_t>(clothWidth);
    PanelPasses = Run() * Designed.Definition.PanelCount;
  }
  int Run() {
    Designed.Definition = Given;
    return brivane::DesignPass(Designed).Passes;
  }
};

/// How much dearer or cheaper one panel of one pass is in sails of 5 to 70 panels than in the
/// largest, as the greater of both ratios.
Row Linearity() {
  Work largest(SeventyPanels().ClothWidth);
  double worst = 1;
  std::string note;
  for (const double share : {13.0, 7.0, 3.5, 2.0, 1.4}) {
    Work work(SeventyPanels().ClothWidth * share);
    const Minima times = TimeInTurns([&] { work.Run(); }, [&] { largest.Run(); });
    const double ratio = times.Ratio() * largest.PanelPasses / work.PanelPasses;
    worst = std::max({worst, ratio, 1 / ratio});
    note += (note.empty() ? "" : ", ") + std::to_string(work.Designed.Definition.PanelCount) +
            " panels x " + std::to_string(work.PanelPasses / work.Designed.Definition.PanelCount) +
            ": " + Decimals(ratio, 3);
  }
  return {"design pass: cost of a panel against that in 70", worst, 1.15, false, note};
}

}  // namespace

Rows DesignPassRows() { return {AgainstPlainVersion(), Linearity()}; }

}  // namespace bench
