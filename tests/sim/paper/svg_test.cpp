#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "base/base64.h"
#include "paper/image_file.h"
#include "paper/render.h"
#include "paper/svg_text.h"
#include "samples.h"

namespace tolvex::sim {
namespace {

std::string svg(const PaperFormat& format, const std::vector<PaperItem>& items) {
  return svgOf(paperOf(format, items));
}

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

int countOf(const std::string& text, const std::string& part) {
  int count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

// The opening tag of the first element of that name.
std::string tagOf(const std::string& svg, const std::string& name) {
  const auto begin = svg.find("<" + name + " ");
  return svg.substr(begin, svg.find('>', begin) + 1 - begin);
}

// The lower edge of the paper, from its lower right corner on.
std::string lowerEdgeOf(const std::string& svg) {
  const std::string sheet = tagOf(svg, "path");
  const auto begin = sheet.find('V');
  return sheet.substr(begin, sheet.find('"', begin) - begin);
}

TEST(Svg, StandsAlone) {
  const std::string whole = svg(kWideRoll, {TextItem{"a", 24}});
  EXPECT_EQ(
      whole.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/"
                  "2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" ",
                  0),
      0U);
  EXPECT_EQ(whole.substr(whole.size() - 7), "</svg>\n");
}

TEST(Svg, IsAsLargeAsThePaperWithAMarginOf3Mm) {
  // 464 dots and twice 24; 24 above the text, 800 of paper, and twice 24.
  EXPECT_TRUE(has(tagOf(svg(kWideRoll, {FeedItem{800}, CutItem{100}}), "svg"),
                  "width=\"64mm\" height=\"109mm\" viewBox=\"-64 -48 512 872\""));
}

TEST(Svg, GrowsWithThePaper) {
  const auto viewBox = [](int length) {
    const std::string tag = tagOf(svg(kWideRoll, {FeedItem{length}, CutItem{100}}), "svg");
    return tag.substr(tag.find("viewBox"));
  };
  EXPECT_EQ(viewBox(80), "viewBox=\"-64 -48 512 152\">");
  EXPECT_EQ(viewBox(81), "viewBox=\"-64 -48 512 153\">");
}

TEST(Svg, DrawsEmptyPaper) {
  EXPECT_TRUE(has(tagOf(svg(kWideRoll, {}), "svg"), "viewBox=\"-64 -48 512 112\""));
  EXPECT_EQ(countOf(svg(kTallLabels, {}), "stroke=\"#cfc7a8\""), 1);
}

TEST(Svg, HoldsEachLineOfTextInItsPlace) {
  const TextItem title{"Title", 48, 24};
  const TextItem line{"<line> & more", 24};
  const std::string whole = svg(kWideRoll, {title, FeedItem{10}, line});
  EXPECT_TRUE(has(whole, svgTextOf(title, 0) + svgTextOf(line, 70)));
}

TEST(Svg, EmbedsPicturesDotByDot) {
  const Bitmap logo = picture({"##.", "#.#"});
  const std::string whole = svg(kWideRoll, {FeedItem{16}, ImageItem{logo, 40}});
  EXPECT_TRUE(has(whole,
                  "<image x=\"40\" y=\"16\" width=\"3\" height=\"2\" class=\"dots\" "
                  "xlink:href=\"data:image/png;base64," +
                      base64Of(encodePng(logo)) + "\"/>"));
}

TEST(Svg, EncodesEachPictureOnce) {
  const Bitmap logo = picture({"##.", "#.#"});
  Paper paper = paperOf(kWideRoll, {ImageItem{logo}});
  const auto pngFor = [&paper](const Bitmap& bitmap) {
    return std::get<ImageItem>(paper.items()[0]).png.of(bitmap);
  };
  const std::string whole = svgOf(paper);
  EXPECT_EQ(pngFor(Bitmap(1, 1)), encodePng(logo));
  paper.forgetDrawing();
  EXPECT_EQ(svgOf(paper), whole);
  paper.forgetDrawing();
  EXPECT_EQ(pngFor(Bitmap(1, 1)), encodePng(Bitmap(1, 1)));
}

TEST(Svg, LeavesOutPicturesWithoutDots) {
  EXPECT_FALSE(has(svg(kWideRoll, {ImageItem{Bitmap(0, 8)}, ImageItem{Bitmap(8, 0)}}), "<image"));
}

TEST(Svg, ShowsTheContentWithinThePrintableWidthOnly) {
  const std::string whole = svg(kWideRoll, {TextItem{"a", 24}, CutItem{100}});
  EXPECT_TRUE(has(whole,
                  "<clipPath id=\"printable\">\n"
                  "<rect x=\"0\" y=\"-24\" width=\"384\" height=\"54\"/>\n</clipPath>"));
  EXPECT_LT(whole.find("<g clip-path=\"url(#printable)\""), whole.find("<text"));
  EXPECT_GT(whole.find("</g>"), whole.find("</text>"));
}

TEST(Svg, PutsThePrintableWidthIntoTheMiddleOfThePaper) {
  EXPECT_TRUE(has(svg(kWideRoll, {}), "d=\"M-40 -24H424V"));
}

TEST(Svg, EndsInAStraightEdgeAfterACut) {
  EXPECT_EQ(lowerEdgeOf(svg(kWideRoll, {FeedItem{80}, CutItem{100}})), "V80H-40Z");
}

TEST(Svg, EndsInTheBridgeOfAPartialCut) {
  // A tenth of 464 dots around the middle.
  EXPECT_EQ(lowerEdgeOf(svg(kWideRoll, {FeedItem{80}, CutItem{90}})),
            "V80H215.2L203.6 87L192 83.5L180.4 87L168.8 80H-40Z");
}

TEST(Svg, EndsInTeethWhereItWasTornOff) {
  const std::string torn = lowerEdgeOf(svg(kWideRoll, {FeedItem{80}}));
  EXPECT_EQ(torn.rfind("V120L414 ", 0), 0U);
  EXPECT_EQ(countOf(torn, "L"), 47);
  EXPECT_EQ(torn.substr(torn.find("L-40")), "L-40 120Z");
  EXPECT_EQ(torn, lowerEdgeOf(svg(kWideRoll, {FeedItem{80}, CutItem{0}})));
  EXPECT_EQ(torn, lowerEdgeOf(svg(kWideRoll, {FeedItem{40}, CutItem{100}, FeedItem{40}})));
}

TEST(Svg, MarksEarlierCutsFromBothSides) {
  const std::string whole = svg(kWideRoll, {FeedItem{80}, CutItem{100}, FeedItem{80}, CutItem{50},
                                            FeedItem{8}, CutItem{100}});
  EXPECT_EQ(countOf(whole, "stroke-dasharray"), 2);
  EXPECT_TRUE(has(whole, "<path d=\"M-40 80h232M424 80h-232\""));
  EXPECT_TRUE(has(whole, "<path d=\"M-40 160h116M424 160h-116\""));
}

TEST(Svg, TakesAnyPercentage) {
  constexpr int kMost = std::numeric_limits<int>::max();
  EXPECT_EQ(lowerEdgeOf(svg(kWideRoll, {FeedItem{80}, CutItem{kMost}})), "V80H-40Z");
  EXPECT_TRUE(has(svg(kWideRoll, {CutItem{kMost}, FeedItem{8}}), "\"M-40 0h232M424 0h-232\""));
}

TEST(SvgLabels, LieOnTheirBackingWithGaps) {
  const std::string whole = svg(kTallLabels, {TextItem{"a", 24}, FeedItem{300}, TextItem{"b", 24}});
  EXPECT_TRUE(has(whole,
                  "<rect x=\"-40\" y=\"0\" width=\"400\" height=\"240\" rx=\"12\" fill=\"#fff\" "
                  "stroke=\"#cfc7a8\"/>\n"
                  "<rect x=\"-40\" y=\"264\" width=\"400\" height=\"240\" rx=\"12\" fill=\"#fff\" "
                  "stroke=\"#cfc7a8\"/>\n<clipPath"));
  // The backing reaches 16 dots beyond them, above and below half a gap and 8.
  EXPECT_TRUE(has(whole, "d=\"M-56 -20H376V524"));
}

TEST(SvgLabels, AreShownWholeToTheLastOne) {
  const auto labels = [](int length) {
    return countOf(svg(kTallLabels, {FeedItem{length}}), "stroke=\"#cfc7a8\"");
  };
  EXPECT_EQ(labels(1), 1);
  EXPECT_EQ(labels(240), 1);
  EXPECT_EQ(labels(264), 1);
  EXPECT_EQ(labels(265), 2);
}

TEST(SvgLabels, ShowNothingBetweenThemAndAllOfTheirCorners) {
  const std::string whole = svg(kTallLabels, {ImageItem{Bitmap(8, 300)}});
  EXPECT_TRUE(has(whole,
                  "<clipPath id=\"printable\">\n"
                  "<rect x=\"0\" y=\"0\" width=\"320\" height=\"240\"/>\n"
                  "<rect x=\"0\" y=\"264\" width=\"320\" height=\"240\"/>\n</clipPath>"));
}

TEST(SvgLabels, EndInAStraightEdgeAfterACut) {
  EXPECT_EQ(lowerEdgeOf(svg(kTallLabels, {FeedItem{240}, CutItem{100}})), "V260H-56Z");
  EXPECT_EQ(lowerEdgeOf(svg(kTallLabels, {TextItem{"a", 24}, CutItem{100}})), "V260H-56Z");
}

TEST(SvgLabels, MarkEarlierCutsBelowTheLabel) {
  EXPECT_TRUE(has(svg(kTallLabels, {TextItem{"a", 24}, CutItem{100}, TextItem{"b", 24}}),
                  "\"M-56 240h216M376 240h-216\""));
}

}  // namespace
}  // namespace tolvex::sim
