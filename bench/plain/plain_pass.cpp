#include "plain_pass.h"

#include <optional>

#include "geometry/surface.h"
#include "model/sail_file.h"
#include "panels/design_pass.h"

namespace bench {

struct PlainSail::Parts {
  brivane::SailDefinition Given;
  brivane::Sail Designed;
  std::optional<brivane::SurfaceFrame> Frame;  ///< of the sail designed last
};

PlainSail::PlainSail(std::string_view sailDataText) : parts_(std::make_unique<Parts>()) {
  brivane::ReadSailDataText(sailDataText, parts_->Given, '.');
}

PlainSail::~PlainSail() = default;

int PlainSail::Design() {
  parts_->Designed.Definition = parts_->Given;
  parts_->Frame.reset();
  return brivane::DesignPass(parts_->Designed).Passes;
}

double PlainSail::SurfaceZ(double x, double y) const {
  if (!parts_->Frame) parts_->Frame.emplace(parts_->Designed.Definition);
  return brivane::SurfacePointZ(*parts_->Frame, x, y);
}

int PlainSail::PanelCount() const { return parts_->Designed.Definition.PanelCount; }
double PlainSail::UpperX(int panel, int point) const {
  return parts_->Designed.Panels.PanelUpperX(panel, point);
}
double PlainSail::UpperY(int panel, int point) const {
  return parts_->Designed.Panels.PanelUpperY(panel, point);
}

}  // namespace bench
