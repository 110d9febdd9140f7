#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

#include "view/drawing.h"
#include "view/paper.h"

namespace brivane::testing {

/// Printable area of a sheet with 5 mm lost on every side.
inline Paper PaperOf(double widthMm, double heightMm) {
  return {(widthMm - 10) * kUnitsPerPaperMm, (heightMm - 10) * kUnitsPerPaperMm};
}

inline const Paper kA4 = PaperOf(210, 297);
inline const Paper kA3Landscape = PaperOf(420, 297);

/// A5 to A0, both ways.
inline const std::vector<Paper> kPapers = {PaperOf(148, 210), PaperOf(210, 148), kA4,
                                           PaperOf(297, 210), PaperOf(297, 420), kA3Landscape,
                                           PaperOf(420, 594), PaperOf(594, 420), PaperOf(841, 1189),
                                           PaperOf(1189, 841)};

struct TextBox {
  double Left, Right, Bottom, Top;
};

inline TextBox BoxOf(const DrawnText& text, const TextMeasure& measure) {
  return {text.At.x, text.At.x + measure(text.Text, text.Size), text.At.y - kLineHeight * text.Size,
          text.At.y};
}

/// Every stroke and text lies on the paper, and every number is finite.
inline void ExpectOnPaper(const Drawing& page, const Paper& paper, const TextMeasure& measure) {
  constexpr double kSlack = 1e-6;
  for (const Stroke& stroke : page.Strokes) {
    for (const PlanePoint& point : stroke.Points) {
      ASSERT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
      ASSERT_GE(point.x, -kSlack);
      ASSERT_LE(point.x, paper.Width + kSlack);
      ASSERT_GE(point.y, -kSlack);
      ASSERT_LE(point.y, paper.Height + kSlack);
    }
  }
  for (const DrawnText& text : page.Texts) {
    const TextBox box = BoxOf(text, measure);
    ASSERT_GT(text.Size, 0) << text.Text;
    ASSERT_GE(box.Left, -kSlack) << text.Text;
    ASSERT_LE(box.Right, paper.Width + kSlack) << text.Text;
    ASSERT_GE(box.Bottom, -kSlack) << text.Text;
    ASSERT_LE(box.Top, paper.Height + kSlack) << text.Text;
  }
}

/// No two texts of the page overprint one another.
inline void ExpectTextsApart(const Drawing& page, const TextMeasure& measure) {
  constexpr double kSlack = 1e-6;
  for (std::size_t i = 0; i < page.Texts.size(); ++i) {
    const TextBox a = BoxOf(page.Texts[i], measure);
    for (std::size_t j = i + 1; j < page.Texts.size(); ++j) {
      const TextBox b = BoxOf(page.Texts[j], measure);
      const bool apart = a.Right <= b.Left + kSlack || b.Right <= a.Left + kSlack ||
                         a.Top <= b.Bottom + kSlack || b.Top <= a.Bottom + kSlack;
      ASSERT_TRUE(apart) << page.Texts[i].Text << " | " << page.Texts[j].Text;
    }
  }
}

}  // namespace brivane::testing
