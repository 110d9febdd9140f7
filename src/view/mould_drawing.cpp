#include "view/mould_drawing.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "geometry/mould.h"
#include "model/number_text.h"

namespace brivane {

namespace {

constexpr int kProfilePoints = 101;
constexpr double kTopHeight = 0.9;
constexpr double kScaleStep = 10;  // % of the chord

/// A profile may rise this far above the topmost mark: its true maximum lies between two samples
/// of the search that gives it its depth, %.
constexpr double kOverScale = 0.2;

/// The deepest profile that the scale still tells in steps, %.
constexpr double kDeepestScale = 100;

constexpr Colour kGrey{160, 160, 160};

/// Font of the marks, surface units: 8 points.
constexpr double kMarkSize = 160;

/// Room for "10%" and a tick beside it, surface units.
constexpr double kMarkWidth = 2.75 * kMarkSize;

/// The section at a height; where the depth's position does not divide the height in two, that of
/// the middle.
MouldSection SectionAtHeight(const SailDefinition& sail, double height) {
  if (!DividesHeight(sail)) return SectionOfColumn(sail, kMiddle);
  return {LuffShapeAt(sail, height), LeechShapeAt(sail, height), 100 * DepthAt(sail, height)};
}

/// A luff-side exponent of −1 and less gives no profile.
double Normaliser(const MouldSection& section) {
  if (!(section.LuffShape > -1)) return 0;
  return ProfileNormaliser(section.LuffShape, section.LeechShape);
}

double DepthAtPoint(const MouldSection& section, double normaliser, double chordFraction) {
  if (normaliser == 0) return 0;
  const double depth = section.Depth * SectionProfile(section.LuffShape, section.LeechShape,
                                                      normaliser, chordFraction);
  return std::isfinite(depth) ? depth : 0;
}

std::string Percent(double value) { return PlainNumber(value) + '%'; }

/// Where chord fractions and depths lie on the picture.
struct ProfileFrame {
  ProfileFrame(double deepest, const PictureSize& picture) {
    ScaleTop = kScaleStep * std::clamp(std::ceil((deepest - kOverScale) / kScaleStep), 1.0,
                                       kDeepestScale / kScaleStep);
    Left = std::max(0.08 * picture.Width, kMarkWidth);
    ChordLength = 0.98 * picture.Width - Left;
    Base = std::min(2 * kMarkSize, 0.3 * picture.Height);
    UnitsPerPercent = std::max(picture.Height - Base, 1.0) / std::max(ScaleTop, deepest);
  }

  PlanePoint At(double chordFraction, double depth) const {
    return {Left + chordFraction * ChordLength, Base + depth * UnitsPerPercent};
  }

  double Left, ChordLength, Base, UnitsPerPercent, ScaleTop;
};

void AddVerticalScale(const ProfileFrame& frame, Drawing& drawing) {
  constexpr double kTick = 60;
  const PlanePoint foot = frame.At(0, 0);
  AddStroke(drawing, {{foot, frame.At(0, frame.ScaleTop)}, kGrey});
  for (double mark = 0; mark <= frame.ScaleTop; mark += kScaleStep) {
    const PlanePoint at = frame.At(0, mark);
    AddStroke(drawing, {{{at.x - kTick, at.y}, at}, kGrey});
    AddText(drawing, {{0, at.y + kMarkSize / 2}, Percent(mark), kBlack, kMarkSize});
    if (mark > 0) AddStroke(drawing, {{at, frame.At(1, mark)}, kGrey, PenStyle::Dashed});
  }
}

void AddChordMark(const MouldSection& section, double normaliser, double fraction,
                  const ProfileFrame& frame, Drawing& drawing) {
  const PlanePoint foot = frame.At(fraction, 0);
  const double depth = DepthAtPoint(section, normaliser, fraction);
  AddStroke(drawing, {{foot, frame.At(fraction, depth)}, kRed, PenStyle::Dashed});
  AddText(
      drawing,
      {{foot.x - kMarkSize, foot.y - kMarkSize / 4}, Percent(100 * fraction), kBlack, kMarkSize});
}

}  // namespace

MouldSection SectionOfColumn(const SailDefinition& sail, MouldHeight column) {
  return {sail.LuffShape[column], sail.LeechShape[column], sail.Depth[column]};
}

MouldSection DeepestSection(const SailDefinition& sail) {
  return SectionAtHeight(sail, sail.DepthPosition / 10);
}

MouldSection TopSection(const SailDefinition& sail) { return SectionAtHeight(sail, kTopHeight); }

double SectionDepthAt(const MouldSection& section, double chordFraction) {
  return DepthAtPoint(section, Normaliser(section), chordFraction);
}

Drawing ProfileDrawing(const MouldSection& section, const PictureSize& picture) {
  Drawing drawing;
  const double normaliser = Normaliser(section);
  double deepest = 0;
  for (int i = 0; i < kProfilePoints; ++i)
    deepest = std::max(deepest, DepthAtPoint(section, normaliser, i / (kProfilePoints - 1.0)));
  const ProfileFrame frame(deepest, picture);
  AddVerticalScale(frame, drawing);
  AddStroke(drawing, {{frame.At(0, 0), frame.At(1, 0)}});
  for (const double fraction : {0.2, 0.8})
    AddChordMark(section, normaliser, fraction, frame, drawing);

  Stroke profile;
  profile.Ink = kBlue;
  profile.Points.reserve(kProfilePoints);
  for (int i = 0; i < kProfilePoints; ++i) {
    const double fraction = i / (kProfilePoints - 1.0);
    profile.Points.push_back(frame.At(fraction, DepthAtPoint(section, normaliser, fraction)));
  }
  AddStroke(drawing, std::move(profile));
  return drawing;
}

}  // namespace brivane
