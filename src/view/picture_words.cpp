#include "view/picture_words.h"

#include <array>
#include <utility>

#include "geometry/plane.h"
#include "model/number_text.h"
#include "patches/patch_outline.h"
#include "view/layout_summary.h"
#include "view/outline_curve.h"

namespace brivane {

namespace {

constexpr BilingualText kThen{"; ", " ; "};
constexpr BilingualText kNothing{"No drawing", "Pas de dessin"};
constexpr BilingualText kOutline{"outline with labels: luff ", "contour et légende : guindant "};
constexpr BilingualText kFoot{", foot ", ", bordure "};
constexpr BilingualText kLeech{", leech ", ", chute "};
constexpr BilingualText kGaff{", gaff ", ", vergue "};
constexpr BilingualText kSeams{" seam lines", " lignes de couture"};
constexpr BilingualText kNotLaidOut{"not laid out in panels", "pas découpée en laizes"};
constexpr BilingualText kAzimuth{", azimuth ", ", azimut "};
constexpr BilingualText kElevation{", elevation ", ", élévation "};
constexpr BilingualText kBeside{", laid flat beside the sail", ", à plat à côté de la voile"};

constexpr BilingualText kDepth{"Depth ", "Creux "};
constexpr BilingualText kAtFifth{" at 20 %, ", " à 20 %, "};
constexpr BilingualText kAtFourFifths{" at 80 % of the chord", " à 80 % de la corde"};

constexpr BilingualText kPatches{"Outline of the sail with its patches, in two layers",
                                 "Contour de la voile et ses renforts, en deux épaisseurs"};
constexpr BilingualText kAlong{" % along the ", " % le long "};
constexpr std::array<BilingualText, kPatchCorners> kCorners = {
    {{"clew", "écoute"}, {"tack", "amure"}, {"head", "tête"}, {"peak", "extrémité de vergue"}}};
constexpr BilingualText kAlongLuff{"luff", "du guindant"};
constexpr BilingualText kAlongGaff{"gaff", "de la vergue"};
constexpr BilingualText kAlongLeech{"leech", "de la chute"};
constexpr BilingualText kAlongFoot{"foot", "de la bordure"};

/// Words in one language, put together piece by piece.
class Words {
 public:
  Words(Language language, char decimalMark) : language_(language), mark_(decimalMark) {}

  Words& Say(const BilingualText& text) { return Say(text.In(language_)); }
  Words& Say(std::string_view text) {
    text_ += text;
    return *this;
  }
  Words& Whole(double value) {
    AppendFixed(text_, value, 0, mark_);
    return *this;
  }
  Words& Percent(double value) {
    AppendFixed(text_, value, 1, mark_);
    return Say(" %");
  }
  /// Begins a further thing that is on the picture.
  Words& Next() { return Say(kThen); }

  const std::string& Text() const { return text_; }

 private:
  Language language_;
  char mark_;
  std::string text_;
};

/// The angle as the picture's readout tells it.
double Readout(double angle, double zero) {
  return WholePart(angle * kDegreesPerRadian + zero + 0.5);
}

void SayOutline(const SailDefinition& sail, Words& words) {
  words.Next().Say(kOutline).Whole(sail.LuffLength);
  if (!IsTriangular(sail)) words.Say(kGaff).Whole(sail.GaffLength);
  words.Say(kLeech).Whole(sail.LeechLength).Say(kFoot).Whole(sail.FootLength).Say(" mm");
}

void SaySeams(const SailDefinition& sail, double azimuth, double elevation, Words& words) {
  words.Next();
  if (sail.PanelCount <= 0) return void(words.Say(kNotLaidOut));
  words.Whole(sail.PanelCount + 1).Say(kSeams);
  words.Say(kAzimuth).Whole(Readout(azimuth, 90));
  words.Say(kElevation).Whole(Readout(elevation, 0));
}

/// The edges that carry the height and the width of a patch.
std::pair<BilingualText, BilingualText> EdgesOf(PatchCorner corner, bool triangular) {
  switch (corner) {
    case PatchCorner::Clew:
      return {kAlongLeech, kAlongFoot};
    case PatchCorner::Tack:
      return {kAlongLuff, kAlongFoot};
    case PatchCorner::Head:
      return {kAlongLuff, triangular ? kAlongLeech : kAlongGaff};
    case PatchCorner::Peak:
      break;
  }
  return {kAlongLeech, kAlongGaff};
}

}  // namespace

std::string SailPictureWords(const Sail& sail, const PictureContent& content, double azimuth,
                             double elevation, Language language, char decimalMark) {
  Words words(language, decimalMark);
  if (!HasOutline(sail.Definition)) return words.Say(kNothing).Text();
  words.Say(sail.Definition.SailName);
  if (content.Outline) SayOutline(sail.Definition, words);
  if (content.SeamLines) SaySeams(sail.Definition, azimuth, elevation, words);
  if (content.Panels && sail.Definition.PanelCount > 0)
    words.Next().Say(LayoutSummary(sail, language, decimalMark)).Say(kBeside);
  return words.Text();
}

std::string ProfileWords(const MouldSection& section, Language language, char decimalMark) {
  Words words(language, decimalMark);
  words.Say(kDepth).Percent(section.Depth);
  words.Next().Percent(SectionDepthAt(section, 0.2)).Say(kAtFifth);
  words.Percent(SectionDepthAt(section, 0.8)).Say(kAtFourFifths);
  return words.Text();
}

std::string PatchPictureWords(const Sail& sail, Language language) {
  Words words(language, '.');
  if (!HasOutline(sail.Definition)) return words.Say(kNothing).Text();
  words.Say(kPatches);
  const bool triangular = IsTriangular(sail.Definition);
  for (const PatchCorner corner : PatchedCorners(sail.Definition)) {
    const auto index = static_cast<std::size_t>(corner);
    const auto [heightEdge, widthEdge] = EdgesOf(corner, triangular);
    words.Next().Say(kCorners[index]).Say(" ");
    words.Whole(sail.Patches.PatchHeight[index]).Say(kAlong).Say(heightEdge).Say(", ");
    words.Whole(sail.Patches.PatchWidth[index]).Say(kAlong).Say(widthEdge);
  }
  return words.Text();
}

}  // namespace brivane
