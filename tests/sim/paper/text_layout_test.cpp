#include "paper/text_layout.h"

#include <gtest/gtest.h>

#include <limits>

namespace tolvex::sim {

namespace {

using Texts = std::vector<std::string>;

// Glyphs as tests write them down: their text and, for wide ones, a star.
Texts shown(const std::vector<Glyph>& glyphs) {
  Texts texts;
  for (const Glyph& glyph : glyphs) texts.push_back(glyph.text + (glyph.cells == 2 ? "*" : ""));
  return texts;
}

// Lines in a font of 24 dots, in so many narrow cells.
Texts wrapped(std::string_view text, int cells) {
  return linesOf(text, 24, 12 * cells, Overflow::Wrap);
}

Texts cut(std::string_view text, int cells) { return linesOf(text, 24, 12 * cells, Overflow::Cut); }

TEST(Glyphs, AreOneForEachCharacter) {
  EXPECT_EQ(shown(glyphsOf("a\u00E4\u0416\u4EF7\U0001F34E")),
            (Texts{"a", "\u00E4", "\u0416", "\u4EF7*", "\U0001F34E*"}));
  EXPECT_EQ(shown(glyphsOf("")), Texts{});
}

TEST(Glyphs, TakeTheirMarksAlong) {
  EXPECT_EQ(shown(glyphsOf("e\u0301\u0323x")), (Texts{"e\u0301\u0323", "x"}));
  EXPECT_EQ(shown(glyphsOf("\u304B\u3099")), (Texts{"\u304B\u3099*"}));
  EXPECT_EQ(shown(glyphsOf("\u2764\uFE0F!")), (Texts{"\u2764\uFE0F", "!"}));
}

TEST(Glyphs, GiveAMarkAtTheBeginningABlankToStandOn) {
  EXPECT_EQ(shown(glyphsOf("\u0301a")), (Texts{" \u0301", "a"}));
}

TEST(Glyphs, LeaveOutJoinersAndSelectorsWithNothingToActOn) {
  EXPECT_EQ(shown(glyphsOf("\u200D\u200C\uFE0Fa")), Texts{"a"});
}

TEST(Glyphs, JoinEmojiOfSeveralParts) {
  const std::string family = "\U0001F468\u200D\U0001F469\u200D\U0001F467";
  EXPECT_EQ(shown(glyphsOf(family + "!")), (Texts{family + "*", "!"}));
  const std::string thumb = "\U0001F44D\U0001F3FD";
  EXPECT_EQ(shown(glyphsOf(thumb)), Texts{thumb + "*"});
  EXPECT_EQ(shown(glyphsOf("\U0001F34E\U0001F34F")), (Texts{"\U0001F34E*", "\U0001F34F*"}));
  EXPECT_EQ(shown(glyphsOf("a\u200D\U0001F34F")), (Texts{"a\u200D", "\U0001F34F*"}));
}

TEST(Glyphs, ReplaceBytesThatAreNoUtf8) {
  EXPECT_EQ(shown(glyphsOf("a\xFF\xC3(")), (Texts{"a", "\uFFFD", "\uFFFD", "("}));
}

TEST(Glyphs, LeaveOutControlCharacters) {
  EXPECT_EQ(shown(glyphsOf(std::string_view("a\0\x1B\r\n\x7F\xC2\x80\xC2\x9F"
                                            "b",
                                            12))),
            (Texts{"a", "b"}));
  EXPECT_EQ(shown(glyphsOf("\uFEFFa\u202Eb\u2066\u200B\u00ADc")), (Texts{"a", "b", "c"}));
  EXPECT_EQ(shown(glyphsOf("a\u00A0b")), (Texts{"a", "\u00A0", "b"}));
}

TEST(Glyphs, BringTabsToTheNextEighthCell) {
  EXPECT_EQ(shown(glyphsOf("\t")), Texts(8, " "));
  EXPECT_EQ(shown(glyphsOf("1234567\tx")), (Texts{"1", "2", "3", "4", "5", "6", "7", " ", "x"}));
  EXPECT_EQ(cellsOf("12345678\tx"), 17);
  EXPECT_EQ(cellsOf("\u4EF7\u4EF7\u4EF7\tx"), 9);
}

TEST(Cells, CountWideGlyphsTwiceAndMarksNotAtAll) {
  EXPECT_EQ(cellsOf(""), 0);
  EXPECT_EQ(cellsOf("Caf\u00E9"), 4);
  EXPECT_EQ(cellsOf("Cafe\u0301"), 4);
  EXPECT_EQ(cellsOf("\u4EF7\u683C 12"), 7);
}

TEST(Lines, AreOneForATextThatFits) {
  EXPECT_EQ(wrapped("12345", 5), Texts{"12345"});
  EXPECT_EQ(wrapped("a  b ", 5), Texts{"a  b "});
  EXPECT_EQ(wrapped("", 5), Texts{""});
  EXPECT_EQ(cut("12345", 5), Texts{"12345"});
  EXPECT_EQ(cut("", 5), Texts{""});
}

TEST(Lines, CarryTheTextAsItIsPrinted) {
  EXPECT_EQ(wrapped("a\xFF\x01\tb", 20), Texts{"a\uFFFD      b"});
}

TEST(Lines, BeginAtLineEnds) {
  EXPECT_EQ(wrapped("a\nb\r\n\nc", 5), (Texts{"a", "b", "", "c"}));
  EXPECT_EQ(cut("abc\ndef", 2), (Texts{"ab", "de"}));
}

TEST(Lines, EndWithALineEndAtTheEnd) {
  EXPECT_EQ(wrapped("a\n", 5), Texts{"a"});
  EXPECT_EQ(wrapped("a\n\n", 5), (Texts{"a", ""}));
  EXPECT_EQ(wrapped("\n", 5), Texts{""});
}

TEST(Lines, CountTabsFromTheirOwnBeginning) {
  EXPECT_EQ(wrapped("123\n\tx", 20), (Texts{"123", "        x"}));
}

TEST(Wrap, BreaksAtTheLastBlank) {
  EXPECT_EQ(wrapped("one two three", 8), (Texts{"one two", "three"}));
  EXPECT_EQ(wrapped("one two three", 7), (Texts{"one two", "three"}));
  EXPECT_EQ(wrapped("one two three", 6), (Texts{"one", "two", "three"}));
}

TEST(Wrap, DropsTheBlanksWhereItBreaks) {
  EXPECT_EQ(wrapped("one   two", 5), (Texts{"one", "two"}));
  EXPECT_EQ(wrapped("one   two", 3), (Texts{"one", "two"}));
  EXPECT_EQ(wrapped("one   ", 3), Texts{"one"});
}

TEST(Wrap, KeepsTheBlanksBeforeTheFirstWord) {
  EXPECT_EQ(wrapped("  one two", 6), (Texts{"  one", "two"}));
  EXPECT_EQ(wrapped("  onetwo", 5), (Texts{"  one", "two"}));
}

TEST(Wrap, BreaksAWordThatIsLongerThanALine) {
  EXPECT_EQ(wrapped("1234567", 3), (Texts{"123", "456", "7"}));
  EXPECT_EQ(wrapped("a 1234567", 3), (Texts{"a", "123", "456", "7"}));
  EXPECT_EQ(wrapped("123456", 3), (Texts{"123", "456"}));
}

TEST(Wrap, LeavesALineOfBlanksOneLine) { EXPECT_EQ(wrapped("       ", 3), Texts{"   "}); }

TEST(Wrap, DoesNotBreakAtANoBreakSpace) {
  EXPECT_EQ(wrapped("a 1\u00A0kg", 5), (Texts{"a", "1\u00A0kg"}));
}

TEST(Wrap, LeavesTheLastCellToNoHalfOfAWideGlyph) {
  EXPECT_EQ(wrapped("\u4EF7\u683C\u8868", 5), (Texts{"\u4EF7\u683C", "\u8868"}));
  EXPECT_EQ(wrapped("a\u4EF7\u683C", 5), Texts{"a\u4EF7\u683C"});
}

TEST(Wrap, KeepsMarksOnTheLineOfTheirGlyph) {
  EXPECT_EQ(wrapped("abe\u0301f", 3), (Texts{"abe\u0301", "f"}));
}

TEST(Cut, DropsWhatDoesNotFit) {
  EXPECT_EQ(cut("123456", 5), Texts{"12345"});
  EXPECT_EQ(cut("one two", 5), Texts{"one t"});
  EXPECT_EQ(cut("\u4EF7\u683C\u8868", 5), Texts{"\u4EF7\u683C"});
  EXPECT_EQ(cut("abe\u0301f", 3), Texts{"abe\u0301"});
}

TEST(Lines, HoldAGlyphEachWhenTheyAreNarrowerThanOne) {
  EXPECT_EQ(wrapped("ab", 0), (Texts{"a", "b"}));
  EXPECT_EQ(wrapped("\u4EF7\u683C", 1), (Texts{"\u4EF7", "\u683C"}));
  EXPECT_EQ(cut("ab", 0), Texts{"a"});
  EXPECT_EQ(linesOf("ab", 24, -100, Overflow::Wrap), (Texts{"a", "b"}));
}

TEST(Lines, TakeHalfDotsOfOddFontsIntoAccount) {
  EXPECT_EQ(linesOf("123456", 15, 37, Overflow::Cut), Texts{"1234"});
  EXPECT_EQ(linesOf("123456", 15, 38, Overflow::Cut), Texts{"12345"});
}

TEST(Lines, TakeAnyNumbers) {
  constexpr int kMost = std::numeric_limits<int>::max();
  EXPECT_EQ(linesOf("ab", kMost, 384, Overflow::Cut), Texts{"a"});
  EXPECT_EQ(linesOf("ab", 0, 384, Overflow::Cut), Texts{"a"});
  EXPECT_EQ(linesOf("ab", -24, 384, Overflow::Cut), Texts{"a"});
  EXPECT_EQ(linesOf("ab", 1, kMost, Overflow::Wrap), Texts{"ab"});
}

}  // namespace
}  // namespace tolvex::sim
