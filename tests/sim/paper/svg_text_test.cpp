#include "paper/svg_text.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

// The text at the top of the paper in a font of 20 dots: cells of 10, narrow glyphs of 16.6.
std::string line(const std::string& text, int indent = 0) {
  return svgTextOf(TextItem{text, 20, indent}, 0);
}

std::string textElement(const std::string& spans) {
  return "<text y=\"18.5\" xml:space=\"preserve\">" + spans + "</text>\n";
}

std::string narrow(const std::string& places, const std::string& text) {
  return "<tspan x=\"" + places + "\" font-size=\"16.6\">" + text + "</tspan>";
}

std::string wide(const std::string& places, const std::string& text) {
  return "<tspan x=\"" + places + "\" font-size=\"18.4\">" + text + "</tspan>";
}

std::string joined(const std::string& attributes, const std::string& text) {
  return "<tspan " + attributes + " lengthAdjust=\"spacingAndGlyphs\">" + text + "</tspan>";
}

TEST(SvgNumber, HasNoMoreDigitsThanItNeeds) {
  EXPECT_EQ(svgNumber(0), "0");
  EXPECT_EQ(svgNumber(12), "12");
  EXPECT_EQ(svgNumber(-7), "-7");
  EXPECT_EQ(svgNumber(12.5), "12.5");
  EXPECT_EQ(svgNumber(0.125), "0.125");
  EXPECT_EQ(svgNumber(-0.05), "-0.05");
  EXPECT_EQ(svgNumber(1.0 / 3), "0.333");
  EXPECT_EQ(svgNumber(0.9996), "1");
  EXPECT_EQ(svgNumber(2147483647.0), "2147483647");
}

TEST(SvgText, PutsEachGlyphIntoItsCell) {
  EXPECT_EQ(line("a 1"), textElement(narrow("0 10 20", "a 1")));
  EXPECT_EQ(line("a1", 7), textElement(narrow("7 17", "a1")));
}

TEST(SvgText, StandsBelowItsTop) {
  EXPECT_EQ(svgTextOf(TextItem{"a", 20, 0}, 100),
            "<text y=\"118.5\" xml:space=\"preserve\">" + narrow("0", "a") + "</text>\n");
}

TEST(SvgText, PlacesOddFontsOnHalfDots) {
  EXPECT_EQ(svgTextOf(TextItem{"abc", 25, 0}, 0),
            "<text y=\"23.125\" xml:space=\"preserve\"><tspan x=\"0 12.5 25\" "
            "font-size=\"20.75\">abc</tspan></text>\n");
}

TEST(SvgText, CentresWideGlyphsInTheirCells) {
  EXPECT_EQ(line("\u4EF7\u683C 1"),
            textElement(wide("0.8 20.8", "\u4EF7\u683C") + narrow("40 50", " 1")));
}

TEST(SvgText, KeepsMarksWithTheirGlyph) {
  EXPECT_EQ(line("e\u0301x"),
            textElement(joined("x=\"0\" font-size=\"16.6\" textLength=\"10\"", "e\u0301") +
                        narrow("10", "x")));
}

TEST(SvgText, PlacesEmojiAsAWhole) {
  EXPECT_EQ(line("\U0001F34Ex"),
            textElement(joined("x=\"0.8\" font-size=\"18.4\" textLength=\"18.4\"", "\U0001F34E") +
                        narrow("20", "x")));
}

TEST(SvgText, PutsEachOfSeveralEmojiIntoItsCell) {
  EXPECT_EQ(line("\U0001F34E\U0001F34C"),
            textElement(joined("x=\"0.8\" font-size=\"18.4\" textLength=\"18.4\"", "\U0001F34E") +
                        joined("x=\"20.8\" font-size=\"18.4\" textLength=\"18.4\"", "\U0001F34C")));
}

TEST(SvgText, PutsEachOfSeveralGlyphsWithMarksIntoItsCell) {
  EXPECT_EQ(line("e\u0301o\u0308"),
            textElement(joined("x=\"0\" font-size=\"16.6\" textLength=\"10\"", "e\u0301") +
                        joined("x=\"10\" font-size=\"16.6\" textLength=\"10\"", "o\u0308")));
}

TEST(SvgText, LeavesTheTwoHalvesOfAFlagTogether) {
  const std::string german = "\U0001F1E9\U0001F1EA";
  const std::string swiss = "\U0001F1E8\U0001F1ED";
  EXPECT_EQ(line(german + swiss),
            textElement(joined("x=\"0\" font-size=\"16.6\" textLength=\"20\"", german) +
                        joined("x=\"20\" font-size=\"16.6\" textLength=\"20\"", swiss)));
}

TEST(SvgText, LeavesWordsThatAreShapedInOnePiece) {
  EXPECT_EQ(
      line("\u05D0\u05D1 \u05D2 1"),
      textElement(joined("x=\"0\" font-size=\"16.6\" textLength=\"40\"", "\u05D0\u05D1 \u05D2") +
                  narrow("40 50", " 1")));
  EXPECT_EQ(line("\u05D0 1 \u05D1"),
            textElement(joined("x=\"0\" font-size=\"16.6\" textLength=\"10\"", "\u05D0") +
                        narrow("10 20 30", " 1 ") +
                        joined("x=\"40\" font-size=\"16.6\" textLength=\"10\"", "\u05D1")));
  // With marks, and beyond the first plane.
  const std::string marked = "\u0628\u064E\u0628";
  EXPECT_EQ(line(marked),
            textElement(joined("x=\"0\" font-size=\"16.6\" textLength=\"20\"", marked)));
  const std::string adlam = "\U0001E900\U0001E901";
  EXPECT_EQ(line(adlam),
            textElement(joined("x=\"0\" font-size=\"16.6\" textLength=\"20\"", adlam)));
}

TEST(SvgText, EscapesMarkup) {
  EXPECT_EQ(line("<&>\"'"), textElement(narrow("0 10 20 30 40", "&lt;&amp;&gt;&quot;'")));
  EXPECT_EQ(line("]]>"), textElement(narrow("0 10 20", "]]&gt;")));
}

TEST(SvgText, HoldsNothingThatXmlDoesNotAllow) {
  EXPECT_EQ(line("a\x01\x1B\x7F\nb"), textElement(narrow("0 10", "ab")));
  EXPECT_EQ(line("a\uFFFE\uFFFFb"), textElement(narrow("0 10 20 30", "a\uFFFD\uFFFDb")));
  EXPECT_EQ(line("\xED\xA0\x80"), textElement(narrow("0 10 20", "\uFFFD\uFFFD\uFFFD")));
}

TEST(SvgText, IsNothingForAnEmptyLine) { EXPECT_EQ(line(""), ""); }

}  // namespace
}  // namespace tolvex::sim
