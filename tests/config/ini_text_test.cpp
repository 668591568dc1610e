#include <gtest/gtest.h>

#include "config/ini_reader.h"

namespace tolvex::config {
namespace {

TEST(IniText, StoresAnEntryUnderSectionAndKey) {
  EXPECT_EQ(parseIni("; comment\n[zelkad]\nip_addr=10.1.2.3\n"),
            (IniMap{{"zelkad.ip_addr", "10.1.2.3"}}));
}

TEST(IniText, EmptyTextHasNoEntries) { EXPECT_EQ(parseIni(""), IniMap()); }

TEST(IniText, EmptyLinesAreSkipped) { EXPECT_EQ(parseIni("\n\r\n\n[s]\n\r\n\n"), IniMap()); }

TEST(IniText, CommentBeginsInTheFirstColumn) { EXPECT_EQ(parseIni("[s]\n;key=value\n"), IniMap()); }

TEST(IniText, SemicolonAfterABlankIsNoComment) {
  EXPECT_EQ(parseIni("[s]\n ;key=value\n"), (IniMap{{"s. ;key", "value"}}));
}

TEST(IniText, SemicolonAfterAValueBelongsToTheValue) {
  EXPECT_EQ(parseIni("[s]\nkey=value ; note\n"), (IniMap{{"s.key", "value ; note"}}));
}

TEST(IniText, HashIsNoComment) {
  EXPECT_EQ(parseIni("[s]\n#key=value\n"), (IniMap{{"s.#key", "value"}}));
}

TEST(IniText, KeyBeforeAnySectionBeginsWithTheFullStop) {
  EXPECT_EQ(parseIni("ip_addr=1.2.3.4\n"), (IniMap{{".ip_addr", "1.2.3.4"}}));
}

TEST(IniText, SectionHoldsUntilTheNextOne) {
  EXPECT_EQ(parseIni("[a]\nx=1\ny=2\n[b]\nx=3\n"),
            (IniMap{{"a.x", "1"}, {"a.y", "2"}, {"b.x", "3"}}));
}

TEST(IniText, SectionMayComeBack) {
  EXPECT_EQ(parseIni("[a]\nx=1\n[b]\n[a]\ny=2\n"), (IniMap{{"a.x", "1"}, {"a.y", "2"}}));
}

TEST(IniText, EmptySectionNameIsLikeNoSection) {
  EXPECT_EQ(parseIni("[a]\n[]\nx=1\n"), (IniMap{{".x", "1"}}));
}

TEST(IniText, SectionWithoutClosingBracketIsAKey) {
  EXPECT_EQ(parseIni("[a]\n[zelkad\nx=1\n"), (IniMap{{"a.[zelkad", ""}, {"a.x", "1"}}));
}

TEST(IniText, LoneBracketIsAKey) { EXPECT_EQ(parseIni("[\n"), (IniMap{{".[", ""}})); }

TEST(IniText, SectionFollowedByABlankIsAKey) {
  EXPECT_EQ(parseIni("[zelkad] \nx=1\n"), (IniMap{{".[zelkad] ", ""}, {".x", "1"}}));
}

TEST(IniText, SectionAfterABlankIsAKey) {
  EXPECT_EQ(parseIni(" [zelkad]\nx=1\n"), (IniMap{{". [zelkad]", ""}, {".x", "1"}}));
}

TEST(IniText, LineInBracketsIsASectionEvenWithAnEqualsSign) {
  EXPECT_EQ(parseIni("[a=b]\nx=1\n"), (IniMap{{"a=b.x", "1"}}));
}

TEST(IniText, SectionNameKeepsInnerBrackets) {
  EXPECT_EQ(parseIni("[[a]]\nx=1\n"), (IniMap{{"[a].x", "1"}}));
}

TEST(IniText, SectionNameKeepsItsBlanks) {
  const IniMap entries = parseIni("[ zelkad]\nip_addr=1.2.3.4\n");
  EXPECT_EQ(entries, (IniMap{{" zelkad.ip_addr", "1.2.3.4"}}));
  EXPECT_EQ(lookUp(entries, "zelkad.ip_addr"), "");
}

TEST(IniText, SectionNameIsComparedWithItsCase) {
  const IniMap entries = parseIni("[Zelkad]\nip_addr=1.2.3.4\n");
  EXPECT_EQ(lookUp(entries, "zelkad.ip_addr"), "");
  EXPECT_EQ(lookUp(entries, "Zelkad.ip_addr"), "1.2.3.4");
}

TEST(IniText, KeyIsComparedWithItsCase) {
  EXPECT_EQ(lookUp(parseIni("[zelkad]\nIP_ADDR=1.2.3.4\n"), "zelkad.ip_addr"), "");
}

TEST(IniText, BlanksAroundTheEqualsSignStay) {
  EXPECT_EQ(parseIni("[zelkad]\nip_addr = 1.2.3.4\n"), (IniMap{{"zelkad.ip_addr ", " 1.2.3.4"}}));
}

TEST(IniText, BlanksAtTheEndsOfALineStay) {
  EXPECT_EQ(parseIni("\tkey=value \t\n"), (IniMap{{".\tkey", "value \t"}}));
}

TEST(IniText, LineOfBlanksIsAKey) { EXPECT_EQ(parseIni("  \n"), (IniMap{{".  ", ""}})); }

TEST(IniText, ValueMayHoldFurtherEqualsSigns) {
  EXPECT_EQ(parseIni("key=a=b==c\n"), (IniMap{{".key", "a=b==c"}}));
}

TEST(IniText, LineWithoutAnEqualsSignIsAKeyWithoutValue) {
  EXPECT_EQ(parseIni("[s]\nkey\n"), (IniMap{{"s.key", ""}}));
}

TEST(IniText, NothingAfterTheEqualsSignIsAnEmptyValue) {
  EXPECT_EQ(parseIni("[s]\nkey=\n"), (IniMap{{"s.key", ""}}));
}

TEST(IniText, NothingBeforeTheEqualsSignIsAnEmptyKey) {
  EXPECT_EQ(parseIni("[s]\n=value\n"), (IniMap{{"s.", "value"}}));
}

TEST(IniText, LastOfTwoEqualKeysWins) {
  EXPECT_EQ(parseIni("[zelkad]\nip_addr=1.1.1.1\nip_addr=2.2.2.2\n"),
            (IniMap{{"zelkad.ip_addr", "2.2.2.2"}}));
}

TEST(IniText, LaterLineWithoutValueReplacesAnEarlierValue) {
  EXPECT_EQ(parseIni("key=1\nkey\n"), (IniMap{{".key", ""}}));
}

TEST(IniText, LinesMayEndInCrLf) {
  EXPECT_EQ(parseIni("[zelkad]\r\nip_addr=10.1.2.3\r\n"), (IniMap{{"zelkad.ip_addr", "10.1.2.3"}}));
}

TEST(IniText, OnlyOneCrBelongsToTheLineEnd) {
  EXPECT_EQ(parseIni("key=1\r\r\n"), (IniMap{{".key", "1\r"}}));
}

TEST(IniText, CrInsideALineStays) { EXPECT_EQ(parseIni("key=1\r2\n"), (IniMap{{".key", "1\r2"}})); }

TEST(IniText, LastLineNeedsNoLineEnd) {
  EXPECT_EQ(parseIni("[zelkad]\nip_addr=10.1.2.3"), (IniMap{{"zelkad.ip_addr", "10.1.2.3"}}));
}

TEST(IniText, CrAtTheEndOfTheTextIsNoLineEnd) {
  EXPECT_EQ(parseIni("key=1\r"), (IniMap{{".key", "1\r"}}));
}

TEST(IniText, BytesBeyondAsciiStayAsTheyAre) {
  EXPECT_EQ(parseIni("[\xE7\xA7\xA4]\n\xFF=\x80\n"), (IniMap{{"\xE7\xA7\xA4.\xFF", "\x80"}}));
}

TEST(IniText, LookUpOfAMissingKeyIsEmpty) {
  EXPECT_EQ(lookUp(IniMap(), "zelkad.ip_addr"), "");
  EXPECT_EQ(lookUp(parseIni("[zelkad]\nport=1\n"), "zelkad.ip_addr"), "");
}

}  // namespace
}  // namespace tolvex::config
