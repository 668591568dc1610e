#include "logs/log_record.h"

#include <gtest/gtest.h>

#include <vector>

#include "log/nlog.h"
#include "logs/record_builder.h"

namespace tolvex::ctl {
namespace {

const std::string kHead = "2024-03-05 14:07:09 Ms:042 [W] L:044 ";

std::string shown(const std::optional<LogHeader>& header) {
  if (!header) return "none";
  return logTimeText(header->time, ' ') + '|' + header->letter + '|' +
         std::to_string(header->line) + '|' + std::string(header->module) + '|' +
         std::string(header->message);
}

// The records that lines make, as "level module: text".
std::vector<std::string> records(const std::vector<std::string>& lines) {
  RecordBuilder builder("DLL_0.log");
  std::vector<std::string> made;
  const auto keep = [&](const std::optional<LogRecord>& record) {
    if (record)
      made.push_back(std::to_string(record->level) + ' ' + record->module + ": " + record->text);
  };
  for (const std::string& line : lines) keep(builder.feed(line));
  keep(builder.finish());
  return made;
}

TEST(LogHeader, IsReadAsTheLoggerWritesIt) {
  EXPECT_EQ(shown(parseLogHeader(kHead + "M:Socket [CTcpClient::Send] Open conn fail")),
            "2024-03-05 14:07:09.042|W|44|Socket|[CTcpClient::Send] Open conn fail");
  EXPECT_EQ(shown(parseLogHeader(kHead + "without a module")),
            "2024-03-05 14:07:09.042|W|44||without a module");
  EXPECT_EQ(shown(parseLogHeader("2024-03-05 14:07:09 Ms:042 [*] L:1012 M:DLL ")),
            "2024-03-05 14:07:09.042|*|1012|DLL|");
}

TEST(LogHeader, IsReadFromWhatTheLoggerMakes) {
  char header[512];
  NLog::FormatHeader("DLL", 7, 39, header, sizeof(header));
  const std::string line = std::string(header) + "text";
  const std::optional<LogHeader> read = parseLogHeader(line);
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->letter, 'E');
  EXPECT_EQ(read->line, 39u);
  EXPECT_EQ(read->module, "DLL");
  EXPECT_EQ(read->message, "text");
}

TEST(LogHeader, IsNotSeenInOtherLines) {
  for (const std::string& line :
       {std::string(), std::string("Milk  1.20"), kHead.substr(0, 33), " " + kHead + "x",
        std::string("2024-13-05 14:07:09 Ms:042 [W] L:044 x"),
        std::string("2024-03-05 14:07:09 Ms:042 [Q] L:044 x"),
        std::string("2024-03-05 14:07:09 Ms:04x [W] L:044 x"),
        std::string("2024-03-05 14:07:09 Ms:042 [W] L:044")}) {
    EXPECT_EQ(shown(parseLogHeader(line)), "none") << line;
  }
}

TEST(LogLevel, HasALetterEach) {
  for (int level = 1; level <= 7; ++level) EXPECT_EQ(levelOfLetter(letterOfLevel(level)), level);
  EXPECT_EQ(letterOfLevel(9), '*');
  EXPECT_EQ(levelOfLetter('*'), 0);
}

TEST(RecordBuilder, KeepsTheLinesOfATextTogether) {
  EXPECT_EQ(
      records({kHead + "M:DLL [client][PrintText] font:24 [Milk", "Bread]", kHead + "M:DLL next"}),
      (std::vector<std::string>{"5 DLL: [client][PrintText] font:24 [Milk\nBread]",
                                "5 DLL: next"}));
}

TEST(RecordBuilder, PutsALongTextBehindItsHeader) {
  EXPECT_EQ(records({kHead + "M:DLL ", "[PrintTextByPaperWidth] Milk", "", "Bread"}),
            (std::vector<std::string>{"5 DLL: [PrintTextByPaperWidth] Milk\n\nBread"}));
}

TEST(RecordBuilder, SetsTheEmptyingOfTheRingApart) {
  EXPECT_EQ(records({std::string(kClearedMark), kHead + "M:DLL next"}),
            (std::vector<std::string>{"0 : ===== Clear All logs =====", "5 DLL: next"}));
}

TEST(RecordBuilder, LeavesOutWhatIsTooLongAndSaysSo) {
  RecordBuilder builder("DLL_0.log");
  const std::string half(kLongestText / 2, 'x');
  builder.feed(kHead + "M:DLL ");
  builder.feed(half);
  builder.feed(half);
  builder.feed("short");
  const std::optional<LogRecord> record = builder.finish();
  ASSERT_TRUE(record.has_value());
  EXPECT_EQ(record->text.substr(half.size()),
            "\n\n[... " + std::to_string(half.size() + 6) + " bytes left out]");
}

TEST(LogText, ReplacesACharacterThatTheEndOfARecordCuts) {
  EXPECT_EQ(logTextInUtf8("Mil\xC3\xA4"), "Mil\xC3\xA4");
  EXPECT_EQ(logTextInUtf8("\xC3\xA4 Mil\xE2\x82"), "\xC3\xA4 Mil\xEF\xBF\xBD");
}

}  // namespace
}  // namespace tolvex::ctl
