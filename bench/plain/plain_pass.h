#pragma once

#include <memory>
#include <string_view>

namespace bench {

/// A sail that the straightforward version designs.
class PlainSail {
 public:
  /// From the text of a sail data file.
  explicit PlainSail(std::string_view sailDataText);
  ~PlainSail();

  /// The whole pass. Returns the passes that were run.
  int Design();

  /// z of the surface, mm, by the search of every normaliser from the start.
  double SurfaceZ(double x, double y) const;

  int PanelCount() const;
  double UpperX(int panel, int point) const;
  double UpperY(int panel, int point) const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace bench
