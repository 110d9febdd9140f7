#include "view/picture_words.h"

#include <gtest/gtest.h>

#include "geometry/outline.h"
#include "panels/design_pass.h"

namespace brivane {
namespace {

/// The sail that the program starts with, computed but not laid out.
Sail DefaultSail() {
  Sail sail;
  ResetSail(sail);
  sail.Definition.SailName = "Jib";
  RecomputeOutline(sail);
  return sail;
}

constexpr PictureContent kOutlineAndLabels{.Outline = true, .Labels = true};
constexpr PictureContent kSeams{.SeamLines = true};

std::string English(const Sail& sail, const PictureContent& content, double azimuth = 0,
                    double elevation = 0) {
  return SailPictureWords(sail, content, azimuth, elevation, Language::English, '.');
}

TEST(PictureWords, OutlineTellsItsEdges) {
  Sail sail = DefaultSail();
  sail.Definition.LeechLength = 6752.6;  // as the leech display rounds it: 6753
  EXPECT_EQ(English(sail, kOutlineAndLabels),
            "Jib; outline with labels: luff 4550, gaff 2600, leech 6753, foot 3600 mm");
  EXPECT_EQ(SailPictureWords(sail, kOutlineAndLabels, 0, 0, Language::French, ','),
            "Jib ; contour et légende : guindant 4550, vergue 2600, chute 6753, bordure 3600 mm");
}

TEST(PictureWords, TriangularSailHasNoGaff) {
  Sail sail = DefaultSail();
  sail.Definition.GaffLength = 5;
  sail.Definition.LeechLength = 5750;
  EXPECT_EQ(English(sail, kOutlineAndLabels),
            "Jib; outline with labels: luff 4550, leech 5750, foot 3600 mm");
}

TEST(PictureWords, SeamsTellTheAnglesOfTheReadouts) {
  Sail sail = DefaultSail();
  sail.Definition.PanelCount = 8;
  EXPECT_EQ(English(sail, kSeams), "Jib; 9 seam lines, azimuth 90, elevation 0");
  // 0.6 rad are 34.4 degrees, Int(34.4 + 90.5) = 124; -1 rad are -57.3 degrees, Int(-56.8) = -57.
  EXPECT_EQ(English(sail, kSeams, 0.6), "Jib; 9 seam lines, azimuth 124, elevation 0");
  EXPECT_EQ(English(sail, kSeams, 0, -1), "Jib; 9 seam lines, azimuth 90, elevation -57");
  EXPECT_EQ(SailPictureWords(sail, kSeams, 0, 0, Language::French, ','),
            "Jib ; 9 lignes de couture, azimut 90, élévation 0");
}

TEST(PictureWords, SailWithoutPanelsSaysSo) {
  const Sail sail = DefaultSail();
  EXPECT_EQ(English(sail, {.SeamLines = true, .Panels = true}), "Jib; not laid out in panels");
}

TEST(PictureWords, PanelsTellTheirNumberAndTheWidest) {
  Sail sail = DefaultSail();
  sail.Definition.PanelCount = 2;
  sail.Definition.ClothWidth = 890;
  sail.Panels.PanelUpperY(0, 20) = 889.25;
  sail.Panels.PanelUpperY(1, 20) = 600;
  EXPECT_EQ(English(sail, {.SeamLines = true, .Panels = true}),
            "Jib; 3 seam lines, azimuth 90, elevation 0; 2 panels, the widest 889.3 mm, laid flat "
            "beside the sail");
  EXPECT_EQ(SailPictureWords(sail, {.Panels = true}, 0, 0, Language::French, ','),
            "Jib ; 2 laizes, la plus large 889,3 mm, à plat à côté de la voile");
}

TEST(PictureWords, SailWithoutOutlineIsNoDrawing) {
  EXPECT_EQ(English(Sail{}, kOutlineAndLabels), "No drawing");
  EXPECT_EQ(PatchPictureWords(Sail{}, Language::French), "Pas de dessin");
}

TEST(PictureWords, ProfileTellsThreeDepths) {
  // Both shape values 0 give a parabola: 4 f (1 - f) = 0.64 of its depth at a fifth from either
  // end.
  EXPECT_EQ(ProfileWords({0, 0, 10}, Language::English, '.'),
            "Depth 10.0 %; 6.4 % at 20 %, 6.4 % at 80 % of the chord");
  EXPECT_EQ(ProfileWords({0, 0, 12.5}, Language::French, ','),
            "Creux 12,5 % ; 8,0 % à 20 %, 8,0 % à 80 % de la corde");
}

TEST(PictureWords, PatchesTellTheirEdges) {
  Sail sail = DefaultSail();
  EXPECT_EQ(PatchPictureWords(sail, Language::English),
            "Outline of the sail with its patches, in two layers; clew 11 % along the leech, 12 % "
            "along the foot; tack 9 % along the luff, 10 % along the foot; head 8 % along the "
            "luff, 12 % along the gaff; peak 8 % along the leech, 12 % along the gaff");
  sail.Definition.GaffLength = 5;
  EXPECT_EQ(PatchPictureWords(sail, Language::French),
            "Contour de la voile et ses renforts, en deux épaisseurs ; écoute 11 % le long de la "
            "chute, 12 % le long de la bordure ; amure 9 % le long du guindant, 10 % le long de la "
            "bordure ; tête 8 % le long du guindant, 12 % le long de la chute");
}

}  // namespace
}  // namespace brivane
