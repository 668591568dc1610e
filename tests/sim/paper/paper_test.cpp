#include "paper/paper.h"

#include <gtest/gtest.h>

#include <limits>

#include "samples.h"

namespace tolvex::sim {
namespace {

constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kMin = std::numeric_limits<int>::min();

using Tops = std::vector<int>;

TextItem text(int fontSize) { return {"text", fontSize}; }
ImageItem image(int height) { return {Bitmap(10, height)}; }

TEST(HeightOf, IsThatOfThePictureOrTheFeed) {
  EXPECT_EQ(heightOf(image(33)), 33);
  EXPECT_EQ(heightOf(FeedItem{80}), 80);
}

TEST(HeightOf, IsAQuarterMoreThanTheFont) {
  EXPECT_EQ(heightOf(text(24)), 30);
  EXPECT_EQ(heightOf(text(27)), 33);
}

TEST(HeightOf, IsNothingForACut) { EXPECT_EQ(heightOf(CutItem{100}), 0); }

TEST(HeightOf, StaysWithinItsLimits) {
  EXPECT_EQ(heightOf(FeedItem{kMaxItemHeight}), kMaxItemHeight);
  EXPECT_EQ(heightOf(FeedItem{kMaxItemHeight + 1}), kMaxItemHeight);
  EXPECT_EQ(heightOf(FeedItem{kMax}), kMaxItemHeight);
  EXPECT_EQ(heightOf(FeedItem{-1}), 0);
  EXPECT_EQ(heightOf(text(kMax)), kMaxItemHeight);
  EXPECT_EQ(heightOf(text(kMin)), 0);
}

TEST(Paper, IsEmptyAtFirst) {
  const Paper paper(kWideRoll);
  EXPECT_TRUE(paper.isEmpty());
  EXPECT_EQ(paper.length(), 0);
  EXPECT_EQ(paper.tops(), Tops{});
}

TEST(Paper, PutsItemsBelowEachOther) {
  const Paper paper =
      paperOf(kWideRoll, {text(24), FeedItem{10}, image(50), CutItem{100}, text(16)});
  EXPECT_FALSE(paper.isEmpty());
  EXPECT_EQ(paper.tops(), (Tops{0, 30, 40, 90, 90}));
  EXPECT_EQ(paper.length(), 110);
}

TEST(Paper, IsCopiedWithAllThatStandsOnIt) {
  Paper paper = paperOf(kWideRoll, {text(24)});
  const Paper copy = paper;
  paper.add(text(24));
  EXPECT_EQ(copy.items().size(), 1U);
  EXPECT_EQ(copy.length(), 30);
}

TEST(Paper, GrowsToALimit) {
  Paper paper(kWideRoll);
  for (int i = 0; i < 30000; ++i) paper.add(FeedItem{kMax});
  EXPECT_EQ(paper.length(), 1'000'000'000);
}

TEST(Labels, AreFilledToTheirEnd) {
  const Paper paper = paperOf(kShortLabels, {image(60), image(40)});
  EXPECT_EQ(paper.tops(), (Tops{0, 60}));
  EXPECT_EQ(paper.length(), 100);
}

TEST(Labels, PassWhatDoesNotFitToTheNextOne) {
  const Paper paper = paperOf(kShortLabels, {image(60), image(41), text(48), text(16)});
  EXPECT_EQ(paper.tops(), (Tops{0, 120, 240, 300}));
  EXPECT_EQ(paper.length(), 320);
}

TEST(Labels, BeginTheNextOneAfterAFullOne) {
  EXPECT_EQ(paperOf(kShortLabels, {image(100), image(10)}).tops(), (Tops{0, 120}));
}

TEST(Labels, LetWhatIsHigherThanALabelBeginWhereItStands) {
  const Paper paper = paperOf(kShortLabels, {image(20), image(101), image(10)});
  EXPECT_EQ(paper.tops(), (Tops{0, 20, 121}));
  EXPECT_EQ(paper.length(), 131);
}

TEST(Labels, FeedAcrossGaps) {
  const Paper paper = paperOf(kShortLabels, {image(20), FeedItem{110}, image(20)});
  EXPECT_EQ(paper.tops(), (Tops{0, 20, 130}));
}

TEST(Labels, PrintNothingIntoGaps) {
  const Paper paper = paperOf(kShortLabels, {image(20), FeedItem{90}, image(20)});
  EXPECT_EQ(paper.tops(), (Tops{0, 20, 120}));
}

TEST(Labels, AreCutAtTheirEnd) {
  const Paper paper = paperOf(kShortLabels, {image(60), CutItem{100}});
  EXPECT_EQ(paper.tops(), (Tops{0, 100}));
  EXPECT_EQ(paper.length(), 100);
  EXPECT_EQ(paperOf(kShortLabels, {image(60), image(60), CutItem{100}}).tops(),
            (Tops{0, 120, 220}));
  EXPECT_EQ(paperOf(kShortLabels, {image(1), CutItem{70}, CutItem{70}}).tops(),
            (Tops{0, 100, 100}));
}

TEST(Labels, AreCutBetweenThemWhereThePaperStands) {
  EXPECT_EQ(paperOf(kShortLabels, {image(100), CutItem{100}, image(10)}).tops(),
            (Tops{0, 100, 120}));
  EXPECT_EQ(paperOf(kShortLabels, {FeedItem{119}, CutItem{100}}).tops(), (Tops{0, 119}));
  EXPECT_EQ(paperOf(kShortLabels, {FeedItem{120}, CutItem{100}}).tops(), (Tops{0, 120}));
  EXPECT_EQ(paperOf(kShortLabels, {FeedItem{121}, CutItem{100}}).tops(), (Tops{0, 220}));
  EXPECT_EQ(paperOf(kShortLabels, {CutItem{100}}).tops(), Tops{0});
}

TEST(Labels, MayFollowWithoutAGap) {
  const PaperFormat format{464, 384, 100, 0};
  EXPECT_EQ(paperOf(format, {image(60), image(60)}).tops(), (Tops{0, 100}));
  EXPECT_EQ(paperOf(format, {image(100), CutItem{100}}).tops(), (Tops{0, 100}));
}

TEST(Labels, GrowToALimit) {
  Paper paper(kShortLabels);
  for (int i = 0; i < 30000; ++i) paper.add(FeedItem{kMax});
  paper.add(image(100));
  EXPECT_EQ(paper.length(), 1'000'000'000);
}

}  // namespace
}  // namespace tolvex::sim
