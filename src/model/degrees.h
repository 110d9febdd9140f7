#pragma once

namespace brivane {

/// Degrees in a radian, as the program has always taken it.
inline constexpr double kDegreesPerRadian = 57.2957795130823;

}  // namespace brivane
