#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "paper/render.h"
#include "samples.h"

namespace tolvex::sim {
namespace {

// 10 cells of common text wide.
const PaperFormat kNarrowRoll{200, 120};
const PaperFormat kNarrowLabels{200, 120, 120, 24};

std::string textOf(const PaperFormat& format, const std::vector<PaperItem>& items) {
  return plainTextOf(paperOf(format, items));
}

TEST(PlainText, IsEmptyForEmptyPaper) {
  EXPECT_EQ(textOf(kNarrowRoll, {}), "");
  EXPECT_EQ(textOf(kNarrowLabels, {}), "");
}

TEST(PlainText, HasALineForEachPrintedOne) {
  EXPECT_EQ(
      textOf(kNarrowRoll, {TextItem{"one", 24}, TextItem{"", 24}, TextItem{"zwei \u00E4", 48}}),
      "one\n\nzwei \u00E4\n");
}

TEST(PlainText, KeepsTheBlanksOfTheFontThatMostLinesHave) {
  EXPECT_EQ(
      textOf(kNarrowRoll, {TextItem{"a   1", 48}, TextItem{"b   2", 48}, TextItem{"c   3", 24}}),
      "a   1\nb   2\nc   3\n");
}

TEST(PlainText, KeepsTheColumnsOfALargerFont) {
  EXPECT_EQ(
      textOf(kNarrowRoll, {TextItem{"a        1", 24}, TextItem{"b  2", 48}, TextItem{"c", 24}}),
      "a        1\nb      2\nc\n");
}

TEST(PlainText, OfAsManyLinesInTwoFontsKeepsTheSmallerOne) {
  EXPECT_EQ(textOf(kNarrowRoll, {TextItem{"b  2", 48}, TextItem{"a  1", 24}}), "b      2\na  1\n");
}

TEST(PlainText, IsIndentedInProportion) {
  EXPECT_EQ(
      textOf(kNarrowRoll, {TextItem{"a", 48, 36}, TextItem{"b", 24, 11}, TextItem{"c", 24, -50}}),
      "   a\nb\nc\n");
  // At most across the paper.
  EXPECT_EQ(textOf(kNarrowRoll, {TextItem{"a", 24, 2'000'000'000}}), std::string(16, ' ') + "a\n");
}

TEST(PlainText, HasNoBlanksAtTheEndsOfLines) {
  EXPECT_EQ(textOf(kNarrowRoll, {TextItem{"  a  ", 24}, TextItem{"   ", 24, 24}}), "  a\n\n");
}

TEST(PlainText, StaysOneLineForEachItemWhateverTheTextHolds) {
  EXPECT_EQ(textOf(kNarrowRoll, {TextItem{"a\nb\x1B[2J\xFF", 24}}), "ab[2J\uFFFD\n");
}

TEST(PlainText, NamesPicturesBySize) {
  EXPECT_EQ(textOf(kNarrowRoll, {ImageItem{Bitmap(38, 12), 24}}), "  [image 38x12]\n");
}

TEST(PlainText, TurnsBlankPaperIntoEmptyLines) {
  EXPECT_EQ(textOf(kNarrowRoll, {TextItem{"a", 24}, FeedItem{60}, TextItem{"b", 24}}),
            "a\n\n\nb\n");
  EXPECT_EQ(textOf(kNarrowRoll, {TextItem{"a", 24}, FeedItem{14}, TextItem{"b", 24}}), "a\nb\n");
  EXPECT_EQ(textOf(kNarrowRoll, {FeedItem{90}}), "\n\n\n");
}

TEST(PlainText, AddsUpFeeds) {
  EXPECT_EQ(textOf(kNarrowRoll, {TextItem{"a", 24}, FeedItem{10}, FeedItem{10}, FeedItem{10}}),
            "a\n\n");
}

TEST(PlainText, ShowsCuts) {
  EXPECT_EQ(textOf(kNarrowRoll, {TextItem{"a", 24}, FeedItem{30}, CutItem{100}, TextItem{"b", 24}}),
            "a\n\n- - - - -\nb\n");
}

TEST(PlainText, ShowsTheGapsBetweenLabels) {
  EXPECT_EQ(textOf(kNarrowLabels, {TextItem{"a", 48}, TextItem{"b", 48}, TextItem{"c", 96}}),
            "a\nb\n. . . . .\nc\n");
}

TEST(PlainText, ShowsWhatWasLeftOfALabel) {
  EXPECT_EQ(textOf(kNarrowLabels, {TextItem{"a", 24}, TextItem{"b", 96}}),
            "a\n\n\n\n. . . . .\nb\n");
}

TEST(PlainText, ShowsTheCutOfALabelBelowAllOfIt) {
  EXPECT_EQ(textOf(kNarrowLabels, {TextItem{"a", 24}, CutItem{100}}), "a\n\n\n\n- - - - -\n");
}

TEST(PlainText, ShowsLabelsThatWereFed) {
  EXPECT_EQ(textOf(kNarrowLabels, {TextItem{"a", 96}, FeedItem{24 + 120 + 24}, TextItem{"b", 96}}),
            "a\n. . . . .\n\n\n\n\n. . . . .\nb\n");
}

TEST(PlainText, GoesOnBelowAPictureThatIsHigherThanALabel) {
  EXPECT_EQ(textOf(kNarrowLabels, {ImageItem{Bitmap(8, 150)}, TextItem{"b", 24}}),
            "[image 8x150]\n. . . . .\nb\n");
}

}  // namespace
}  // namespace tolvex::sim
