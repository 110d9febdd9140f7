#pragma once

#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>
#include <string>

#include "model/sail.h"
#include "support/source_folder.h"
#include "support/temporary_folder.h"

namespace brivane {

inline constexpr int kSmallPanels = 3;

/// A sail of three panels with simple numbers, the same as in tests/golden/make_golden.py. Every
/// entry of the tables that no file may show is NaN, which no writer lets pass.
inline Sail SmallSail() {
  Sail sail;
  SailDefinition& definition = sail.Definition;
  definition.SailName = "Essai \u00e9t\u00e9";
  definition.PanelCount = kSmallPanels;
  definition.ClewPoint = {3725, 0, 0};
  definition.PeakPoint = {1710.5, 6150, 0};
  definition.LuffRake = 0.0625;

  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  DevelopedPanels& panels = sail.Panels;
  for (int p = 0; p <= 90; ++p)
    for (int k = 0; k <= 42; ++k)
      for (PanelTable* table : {&panels.PanelLowerX, &panels.PanelLowerY, &panels.PanelUpperX,
                                &panels.PanelUpperY, &panels.PanelEdgeX, &panels.PanelEdgeY})
        (*table)(p, k) = kNaN;
  for (int p = 0; p < kSmallPanels; ++p) {
    for (int k = 5; k <= 35; ++k) {
      panels.PanelLowerX(p, k) = 100.0 * (k - 5) + 0.5 * p;
      panels.PanelLowerY(p, k) = (p == 1 ? -0.125 : 0.125) * (k - 5);
      panels.PanelUpperX(p, k) = 100.0 * (k - 5) - 12.5 * p + 0.125;
      panels.PanelUpperY(p, k) = 850 + 1.375 * (k - 5) + p;
      panels.PanelEdgeX(p, k) = 100.0 * (k - 5) + 0.375;
      panels.PanelEdgeY(p, k) = 830.5 + 0.25 * p;
    }
    for (int k = 0; k < 5; ++k) {
      panels.PanelEdgeX(p, k) = -3.125 * k - p;
      panels.PanelEdgeY(p, k) = 170.0625 * k;
    }
    for (int k = 36; k <= 40; ++k) {
      panels.PanelEdgeX(p, k) = 3000 + 2.625 * (k - 35);
      panels.PanelEdgeY(p, k) = 850 - 170.125 * (k - 35);
    }
  }

  SurfaceGrid& grid = sail.Grid;
  for (int i = 0; i <= 91; ++i)
    for (int j = -1; j <= 43; ++j)
      for (SurfaceTable* table : {&grid.SurfaceX, &grid.SurfaceY, &grid.SurfaceZ})
        (*table)(i, j) = kNaN;
  for (int i = 0; i <= kSmallPanels; ++i) {
    for (int j = 0; j <= 40; ++j) {
      grid.SurfaceX(i, j) = 90.0 * j + 3.5 * i - 1;
      grid.SurfaceY(i, j) = 1200.0 * i + 2.25 * j;
      grid.SurfaceZ(i, j) = 0.75 * j * (22 - j) - 10.125 * i;
    }
    grid.SurfaceX(i, kEdgeCodeColumn) = i == 0 ? 0 : i - 1;
  }
  return sail;
}

/// A sail with straight edges for the patches, the same as in tests/golden/make_golden.py.
inline Sail StraightSail() {
  Sail sail;
  SailDefinition& definition = sail.Definition;
  definition.SailName = "Essai \u00e9t\u00e9";
  definition.LuffLength = 4000;
  definition.ClewPoint = {3000, 200, 0};
  definition.PeakPoint = {1500, 5000, 0};
  definition.GaffLength = std::sqrt(1500.0 * 1500 + 1000.0 * 1000);
  definition.LuffRound = definition.LeechRound = definition.FootRound = 0;
  definition.GaffRound = 0;
  return sail;
}

inline std::string GoldenBytes(const std::string& name) {
  return BytesOf(SourceFolder() + "/tests/golden/" + name);
}

/// The text with every first replaced by second.
inline std::string Replaced(std::string text, char first, char second) {
  for (char& byte : text)
    if (byte == first) byte = second;
  return text;
}

/// The line of a text, counted from 1, without its CR LF.
inline std::string LineOf(const std::string& text, int number) {
  std::size_t start = 0;
  for (int line = 1; line < number; ++line) {
    const std::size_t end = text.find("\r\n", start);
    if (end == std::string::npos) return "(no such line)";
    start = end + 2;
  }
  return text.substr(start, text.find("\r\n", start) - start);
}

}  // namespace brivane
