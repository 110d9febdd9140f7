#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "geometry/plane.h"

namespace brivane {

/// Columns and rows of pixels from the first ones up to, but not including, the ends.
struct PixelBox {
  int Left = 0;
  int Top = 0;
  int Right = 0;
  int Bottom = 0;
};

/// A picture in memory: its rows one after another, 32 bits a pixel in four parts of eight.
struct PixelRows {
  std::span<std::uint32_t> Pixels;
  int RowLength = 0;  ///< pixels from one row to the next

  PixelBox Box() const {
    const std::size_t length = static_cast<std::size_t>(RowLength);
    return {0, 0, RowLength, RowLength > 0 ? static_cast<int>(Pixels.size() / length) : 0};
  }
};

/// How a line lies over the pixels: each either inked or not, or by how much of it is covered.
enum class LineEdge { Stepped, Smooth };

/// Puts a polyline one pixel wide over the pixels of the picture that lie in the box. Points are
/// measured in pixels from the top left corner of the picture, and may lie anywhere. The ink is
/// opaque. What is outside the box makes no difference to what is inside.
void PutLine(const PixelRows& picture, const PixelBox& box, std::span<const PlanePoint> points,
             std::uint32_t ink, LineEdge edge);

}  // namespace brivane
