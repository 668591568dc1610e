// Paper whose labels are not where the printer believes them, and rolls that end: as a picture, as
// a strip and as text.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "paper/render.h"
#include "paper/svg_text.h"
#include "samples.h"

namespace tolvex::sim {
namespace {

bool shows(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

Paper lyingOn(const LabelStock& stock, const std::vector<PaperItem>& items) {
  Paper paper(kTallLabels);
  paper.lieOn(stock);
  for (const PaperItem& item : items) paper.add(item);
  return paper;
}

std::string viewBoxOf(const std::string& svg) {
  const auto begin = svg.find("viewBox=\"") + 9;
  return svg.substr(begin, svg.find('"', begin) - begin);
}

// From the definition of what is printed on to its end.
std::string printableOf(const std::string& svg) {
  const auto begin = svg.find("<clipPath id=\"printable\">\n") + 26;
  return svg.substr(begin, svg.find("</clipPath>", begin) - begin);
}

TEST(Misfeed, ShowsLabelsWhereTheyAre) {
  const std::string svg = svgOf(lyingOn({StockKind::Gap, 160, 16, 100}, {TextItem{"a", 24}}));
  // What is left of the first one begins at the head; the last one is torn off with the paper.
  EXPECT_TRUE(
      shows(svg,
            "<path d=\"M-40 0V48a12 12 0 0 0 12 12H348a12 12 0 0 0 12 -12V0\" fill=\"#fff\" "
            "stroke=\"#cfc7a8\"/>\n"
            "<rect x=\"-40\" y=\"76\" width=\"400\" height=\"160\" rx=\"12\" fill=\"#fff\" "
            "stroke=\"#cfc7a8\"/>\n"
            "<rect x=\"-40\" y=\"252\" width=\"400\" height=\"8\" fill=\"#fff\"/>\n"));
  EXPECT_TRUE(shows(svg, "d=\"M-56 0H376V260"));
  EXPECT_TRUE(shows(svg, "<clipPath id=\"sheet\">"));
}

TEST(Misfeed, PrintsNothingIntoRealGaps) {
  const std::string svg = svgOf(lyingOn({StockKind::Gap, 160, 16, 100}, {TextItem{"a", 24}}));
  EXPECT_EQ(printableOf(svg),
            "<rect x=\"0\" y=\"0\" width=\"320\" height=\"60\"/>\n"
            "<rect x=\"0\" y=\"76\" width=\"320\" height=\"160\"/>\n"
            "<rect x=\"0\" y=\"252\" width=\"320\" height=\"8\"/>\n");
}

TEST(Misfeed, OfMarkedPaperPrintsOverTheMarks) {
  const std::string svg = svgOf(lyingOn({StockKind::Mark, 160, 16, 0}, {TextItem{"a", 24}}));
  EXPECT_EQ(printableOf(svg), "<rect x=\"0\" y=\"-16\" width=\"320\" height=\"276\"/>\n");
  EXPECT_TRUE(shows(svg,
                    "<rect x=\"-56\" y=\"-16\" width=\"24\" height=\"16\" fill=\"#333\"/>\n"
                    "<rect x=\"-56\" y=\"160\" width=\"24\" height=\"16\" fill=\"#333\"/>\n"));
  EXPECT_FALSE(shows(svg, "#e3d9b8"));
  EXPECT_FALSE(shows(svg, "#cfc7a8"));
}

TEST(Misfeed, OfContinuousPaperIsAnUnbrokenRoll) {
  const std::string svg = svgOf(lyingOn({StockKind::Continuous, 160, 16, 30}, {TextItem{"a", 24}}));
  EXPECT_EQ(printableOf(svg), "<rect x=\"0\" y=\"-16\" width=\"320\" height=\"276\"/>\n");
  for (const char* part : {"#333", "#e3d9b8", "#cfc7a8", "id=\"sheet\""}) {
    EXPECT_FALSE(shows(svg, part)) << part;
  }
}

TEST(Misfeed, LosesLinesThatFallIntoGaps) {
  const std::vector<PaperItem> lines(5, TextItem{"line", 24});
  EXPECT_EQ(plainTextOf(lyingOn({StockKind::Gap, 160, 24, 100}, lines)),
            "line\nline\n. . . . . . . . . . . . . .\nline\nline\n");
  EXPECT_EQ(plainTextOf(lyingOn({StockKind::Mark, 160, 24, 100}, lines)),
            "line\nline\nline\n. . . . . . . . . . . . . .\nline\nline\n");
  EXPECT_EQ(plainTextOf(lyingOn({StockKind::Continuous, 160, 24, 100}, lines)),
            "line\nline\nline\nline\nline\n");
}

TEST(Misfeed, IsOverWhereThePrinterHasLearntTheLabels) {
  const LabelStock stock{StockKind::Gap, 160, 16, 100};
  Paper paper = lyingOn(stock, {TextItem{"a", 24}, FeedItem{46 + 176}});
  paper.layOut({StockKind::Gap, 160, 16, 0});
  paper.add(ImageItem{Bitmap(8, 100)});
  paper.add(ImageItem{Bitmap(8, 100)});
  paper.add(CutItem{100});
  EXPECT_EQ(paper.tops(), (std::vector<int>{0, 30, 252, 428, 588}));
  EXPECT_TRUE(
      shows(svgOf(paper), "<rect x=\"-40\" y=\"428\" width=\"400\" height=\"160\" rx=\"12\""));
}

TEST(Strip, OfARollIsThePaperAlone) {
  Paper paper = paperOf(kWideRoll, {TextItem{"a", 24}, FeedItem{70}});
  const std::string open = svgOf(paper, Form::Strip);
  EXPECT_EQ(viewBoxOf(open), "-40 0 464 100");
  EXPECT_TRUE(shows(open,
                    "<path d=\"M-40 0H424V100H-40Z\" fill=\"#fff\"/>\n"
                    "<path d=\"M424 0V100M-40 100V0\" fill=\"none\" stroke=\"#c4c4be\"/>\n"));
  EXPECT_TRUE(shows(open, svgTextOf(TextItem{"a", 24}, 0)));
  EXPECT_FALSE(shows(open, "#e9e9e6"));
  EXPECT_FALSE(shows(open, "opacity"));
  paper.tearOff();
  EXPECT_EQ(viewBoxOf(svgOf(paper, Form::Strip)), "-40 0 464 148");
  EXPECT_TRUE(shows(svgOf(paper, Form::Strip), "\"M424 0V140L414 "));
  paper.add(CutItem{100});
  EXPECT_EQ(viewBoxOf(svgOf(paper, Form::Strip)), "-40 0 464 108");
  EXPECT_TRUE(shows(svgOf(paper, Form::Strip), "\"M424 0V100H-40V0\""));
}

TEST(Strip, OfLabelsReachesToTheNextOne) {
  EXPECT_EQ(viewBoxOf(svgOf(paperOf(kTallLabels, {TextItem{"a", 24}}), Form::Strip)),
            "-56 0 432 264");
  EXPECT_EQ(viewBoxOf(svgOf(paperOf(kTallLabels, {FeedItem{264}}), Form::Strip)), "-56 0 432 264");
  EXPECT_EQ(viewBoxOf(svgOf(paperOf(kTallLabels, {FeedItem{265}}), Form::Strip)), "-56 0 432 528");
  EXPECT_EQ(viewBoxOf(svgOf(paperOf(kTallLabels, {TextItem{"a", 24}, CutItem{100}}), Form::Strip)),
            "-56 0 432 248");
}

TEST(Strip, JoinsLabelsThatWereMisfed) {
  const Paper first = lyingOn({StockKind::Gap, 160, 16, 0}, {TextItem{"a", 24}});
  const Paper second = lyingOn({StockKind::Gap, 160, 16, 264 - 176}, {TextItem{"a", 24}});
  // The label that begins on one strip ends on the other, without an edge between them.
  EXPECT_TRUE(shows(svgOf(first, Form::Strip),
                    "M-40 264V188a12 12 0 0 1 12 -12H348a12 12 0 0 1 12 12V264\""));
  EXPECT_TRUE(
      shows(svgOf(second, Form::Strip), "M-40 0V60a12 12 0 0 0 12 12H348a12 12 0 0 0 12 -12V0\""));
}

TEST(RollEnd, IsAStraightEndWithAStripe) {
  const std::string svg = svgOf(paperOf(kWideRoll, {FeedItem{100}, RollEndItem{}}));
  EXPECT_TRUE(
      shows(svg, "<rect x=\"-40\" y=\"104\" width=\"464\" height=\"32\" fill=\"#d6336c\"/>"));
  EXPECT_TRUE(shows(svg, ">end of the roll</text>"));
  EXPECT_TRUE(shows(svg, "d=\"M-40 -24H424V140H-40Z\""));
  EXPECT_FALSE(shows(svg, "stroke-width=\"3\""));
}

TEST(RollEnd, IsFollowedByTheNewRoll) {
  const std::string svg =
      svgOf(paperOf(kWideRoll, {FeedItem{100}, RollEndItem{}, FeedItem{60}, CutItem{100}}));
  EXPECT_TRUE(shows(svg, "d=\"M-40 -24H424V200H-40Z\""));
  EXPECT_TRUE(shows(svg, "<path d=\"M-40 140h464\" stroke=\"#55554f\" stroke-width=\"3\"/>"));
}

TEST(RollEnd, OfLabelsCutsTheLastOneOff) {
  Paper paper = paperOf(kTallLabels, {FeedItem{100}, RollEndItem{}});
  EXPECT_TRUE(shows(svgOf(paper), "d=\"M-56 -20H376V140H-56Z\""));
  EXPECT_TRUE(shows(svgOf(paper), "\"M-40 140V12a12 12 0 0 1 12 -12H348a12 12 0 0 1 12 12V140\""));
  EXPECT_EQ(viewBoxOf(svgOf(paper, Form::Strip)), "-56 0 432 140");
}

TEST(RollEnd, HasALineOfItsOwn) {
  EXPECT_EQ(plainTextOf(paperOf(kWideRoll, {TextItem{"a", 24}, RollEndItem{}, TextItem{"b", 24}})),
            "a\n~~~~ end of the roll ~~~~\nb\n");
}

TEST(RollEnd, TakesFiveMillimetres) { EXPECT_EQ(heightOf(RollEndItem{}), 40); }

}  // namespace
}  // namespace tolvex::sim
