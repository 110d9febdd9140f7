#include "view/data_listing.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "geometry/plane.h"
#include "model/number_text.h"

namespace brivane {

namespace {

/// The leech-side factor is shown in the steps of its scroll bar.
constexpr double kLeechShapeScale = 500;

/// The printer's own form of a number: a blank or a minus sign, the number, a blank.
std::string PrintedNumber(double value) { return StrNum(value) + ' '; }

double WholeDegrees(double angle) { return WholePart(angle * kDegreesPerRadian + 0.5); }

class ListingWriter {
 public:
  explicit ListingWriter(Language language) : language_(language) {}

  void Blank() { lines_.emplace_back(); }

  void Text(int column, std::string text) { lines_.push_back({{column, std::move(text)}}); }

  void Text(int column, BilingualText text) { Text(column, In(text)); }

  void Item(BilingualText label, double value, std::string_view unit) {
    lines_.push_back({{kLabelColumn, In(label)},
                      {kValueColumn, '=' + PrintedNumber(value) + std::string(unit)}});
  }

  std::string In(BilingualText text) const { return std::string(text.In(language_)); }

  std::vector<ListingLine> Take() { return std::move(lines_); }

 private:
  Language language_;
  std::vector<ListingLine> lines_;
};

void ListDimensions(const SailDefinition& sail, ListingWriter& listing) {
  listing.Item({"Luff length ", "Longueur guindant "}, sail.LuffLength, "mm");
  listing.Item({"Luff rake ", "Inclinaison guindant"}, WholeDegrees(sail.LuffRake), "deg");
  listing.Blank();
  listing.Item({"Foot length ", "Longueur bordure "}, sail.FootLength, "mm");
  listing.Blank();
  listing.Item({"Diagonal length ", "Longueur diagonale "}, sail.DiagonalLength, "mm");
  listing.Item({"Leech length ", "Longueur chute "}, WholePart(sail.LeechLength), "mm");
  listing.Blank();
  listing.Item({"Gaff length ", "Longueur vergue "}, sail.GaffLength, "mm");
  listing.Item({"Angle gaff/luff ", "Angle vergue/guindant "}, WholeDegrees(sail.GaffAngle), "deg");
  listing.Blank();
  listing.Item({"Surface ", "Surface "}, sail.SailArea, "m2");
  listing.Blank();
  listing.Text(kLabelColumn, sail.CutType);
  listing.Blank();
}

void ListRounds(const SailDefinition& sail, ListingWriter& listing) {
  constexpr BilingualText kPosition{"    position ", "     position "};
  listing.Item({"Round luff ", "Rond guindant "}, sail.LuffRound, "mm");
  listing.Item(kPosition, sail.LuffRoundPos, "%");
  listing.Blank();
  listing.Item({"Round leech ", "Rond chute "}, sail.LeechRound, "mm");
  listing.Item(kPosition, sail.LeechRoundPos, "%");
  listing.Blank();
  listing.Item({"Round foot ", "Rond bordure "}, sail.FootRound, "mm");
  listing.Blank();
  listing.Item({"Round gaff ", "Rond Vergue "}, sail.GaffRound, "mm");
  listing.Blank();
  listing.Item({"Twist angle ", "Angle de vrillage "}, WholeDegrees(sail.TwistAngle), "deg");
  listing.Blank();
}

void ListShape(const SailDefinition& sail, MouldHeight height, ListingWriter& listing) {
  listing.Item({"    Luff side ", "    coté guindant "}, sail.LuffShape[height], "");
  listing.Item({"    Leech side ", "    coté chute "}, sail.LeechShape[height] * kLeechShapeScale,
               "");
  listing.Blank();
}

void ListMould(const SailDefinition& sail, ListingWriter& listing) {
  constexpr BilingualText kDepthPosition{"Vertical position of max depth =",
                                         "Position verticale du creux maximum ="};
  listing.Text(kLabelColumn, BilingualText{"Depth of sail profile", "Creux de la voile"});
  listing.Item({"    Foot ", "    bordure "}, sail.Depth[kFoot], "%");
  listing.Item({"    Middle ", "    milieu "}, sail.Depth[kMiddle], "%");
  listing.Item({"    Top ", "    haut "}, sail.Depth[kTop], "%");
  listing.Blank();
  listing.Text(kLabelColumn, listing.In(kDepthPosition) + PrintedNumber(sail.DepthPosition));
  listing.Blank();
  listing.Text(kLabelColumn, BilingualText{"Profile shape factor : middle of sail",
                                           "Facteur de forme du profile milieu"});
  ListShape(sail, kMiddle, listing);
  listing.Text(kLabelColumn, BilingualText{"Profile shape factor : top of sail",
                                           "Facteur de forme du profile haut"});
  ListShape(sail, kTop, listing);
}

void ListCloth(const SailDefinition& sail, ListingWriter& listing) {
  listing.Item({"Cloth width ", "Largueur du tissu "}, sail.ClothWidth, "mm");
  listing.Item({"Seams width ", "Largeur des coutures "}, sail.SeamWidth, "mm");
  if (sail.PanelCount <= 1) return;
  listing.Blank();
  listing.Item({"Number of panels ", "Nombre de panneaux "}, sail.PanelCount, "");
}

// ---- The page ----------------------------------------------------------------------------------

constexpr double kLargestFont = 200;  ///< 10 points
constexpr double kSmallestFont = 80;  ///< 4 points, but for a page too low for it
constexpr std::size_t kTitleLine = 1;

/// A print column in units of the font's size: at least as wide as an average character, and wide
/// enough for every label before its value.
double ColumnWidth(const std::vector<ListingLine>& listing, const TextMeasure& measure) {
  double width = 0.5;
  for (const ListingLine& line : listing) {
    if (line.size() < 2) continue;
    const int columns = line[1].Column - line[0].Column;
    width = std::max(width, measure(line[0].Text, kLargestFont) / kLargestFont / columns);
  }
  return width;
}

/// Right end of an item in units of the font's size.
double RightEnd(const ListingItem& item, double columnWidth, const TextMeasure& measure) {
  return (item.Column - 1) * columnWidth + measure(item.Text, kLargestFont) / kLargestFont;
}

/// The largest font with which every line but the title, which may go on in a line of its own, fits
/// the width.
double WidestFont(const std::vector<ListingLine>& listing, double paperWidth, double columnWidth,
                  const TextMeasure& measure) {
  double widest = 1;
  for (std::size_t i = 0; i < listing.size(); ++i)
    for (const ListingItem& item : listing[i])
      if (i != kTitleLine) widest = std::max(widest, RightEnd(item, columnWidth, measure));
  return std::clamp(paperWidth / widest, kSmallestFont, kLargestFont);
}

/// Sets the lines from the top of the page and returns where they end.
double SetLines(const std::vector<ListingLine>& listing, const Paper& paper, double columnWidth,
                double size, const TextMeasure& measure, Drawing& page) {
  double top = paper.Height;
  for (const ListingLine& line : listing) {
    double bottom = top - size * kLineHeight;
    for (const ListingItem& item : line) {
      const double left = (item.Column - 1) * columnWidth * size;
      double lineTop = top;
      for (std::string& part : WrapText(item.Text, paper.Width - left, size, measure)) {
        AddText(page, {{left, lineTop}, std::move(part), kBlack, size});
        lineTop -= size * kLineHeight;
      }
      bottom = std::min(bottom, lineTop);
    }
    top = bottom;
  }
  return top;
}

}  // namespace

std::vector<ListingLine> DataListing(const SailDefinition& sail, Language language) {
  constexpr BilingualText kFileOfSail{" -  File of sail: ", " -  Fichier de la voile: "};
  constexpr BilingualText kRule{"-------------------------------------------------",
                                "--------------------------------------------------"};
  ListingWriter listing(language);
  listing.Blank();
  listing.Text(kTitleColumn, std::string(ProgramTitle) + listing.In(kFileOfSail) + sail.SailName);
  listing.Blank();
  ListDimensions(sail, listing);
  ListRounds(sail, listing);
  ListMould(sail, listing);
  ListCloth(sail, listing);
  listing.Blank();
  listing.Text(kTitleColumn, kRule);
  return listing.Take();
}

std::vector<std::string> ListingText(const std::vector<ListingLine>& listing) {
  std::vector<std::string> lines;
  lines.reserve(listing.size());
  for (const ListingLine& line : listing) {
    std::string text;
    for (const ListingItem& item : line) {
      const std::size_t before = static_cast<std::size_t>(item.Column - 1);
      const std::size_t length = CharacterCount(text);
      if (length < before) text.append(before - length, ' ');
      text += item.Text;
    }
    lines.push_back(std::move(text));
  }
  return lines;
}

Drawing ListingPage(const std::vector<ListingLine>& listing, const Paper& paper,
                    const TextMeasure& measure) {
  constexpr double kShrink = 0.97;
  constexpr double kHopeless = 20;  // a point
  if (listing.empty() || !(paper.Width > 0 && paper.Height > 0)) return {};
  const double columnWidth = ColumnWidth(listing, measure);
  for (double size = WidestFont(listing, paper.Width, columnWidth, measure);; size *= kShrink) {
    Drawing page;
    const double end = SetLines(listing, paper, columnWidth, size, measure, page);
    if (end >= 0 || size < kHopeless) return page;
  }
}

}  // namespace brivane
