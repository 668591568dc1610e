// Texts and paths in the system's ANSI code page: as UTF-8 in a queued job, as they are past the
// queue. Each suite runs in a locale that has its character set.
#include <clocale>

#include "library/printing_test.h"
#include "platform/ansi_texts.h"
#include "support/temporary_folder.h"

namespace tolvex::test {
namespace {

Lines linesOfText(const std::string& text) {
  Lines lines;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find("\r\n", start)) != std::string::npos; start = end + 2) {
    lines.push_back(text.substr(start, end - start));
  }
  lines.push_back(text.substr(start));
  return lines;
}

// The name of a file, as tests know it.
std::string nameOf(const AnsiText& ansiName) {
#ifdef _WIN32
  return ansiName.utf8;
#else
  return ansiName.ansi;  // the system takes any bytes
#endif
}

struct CodePage : PrintingTest, ::testing::WithParamInterface<AnsiText> {
  CodePage() { printer.alwaysAnswers(kOk); }

  // What JSON writes otherwise than it stands is not in these lines.
  const Lines ansi = linesOfText(GetParam().ansi);
  const Lines utf8 = linesOfText(GetParam().utf8);

  Lines expectedJob() const {
    Lines requests;
    for (const std::string& line : utf8) requests.push_back(textRequest(line));
    for (const std::string& line : utf8) requests.push_back(widthRequest(line, 30, 640));
    requests.push_back(confirmation());
    return requests;
  }
  Lines jobOfText() {
    EXPECT_EQ(host.call(PrintText, GetParam().ansi.c_str(), 24U), 240);
    EXPECT_EQ(host.call(PrintTextByPaperWidth, GetParam().ansi.c_str(), 30U, 80U), 240);
    return requestsOfTicket();
  }
};

TEST_P(CodePage, OfQueuedTextBecomesUtf8) { EXPECT_EQ(jobOfText(), expectedJob()); }

TEST_P(CodePage, IsNotThatOfTheHostsSetlocale) {
  for (const char* const locale : {"", "C"}) {
    ASSERT_NE(std::setlocale(LC_ALL, locale), nullptr) << locale;
    EXPECT_EQ(jobOfText(), expectedJob()) << locale;
  }
}

TEST_P(CodePage, DoesNotMatterToTextAndPathsPastTheQueue) {
  for (const std::string& line : ansi) {
    if (line.find('\\') != std::string::npos) continue;  // a second byte, which JSON escapes
    EXPECT_EQ(host.call(printTextById, line.c_str(), 24U, 1U), 0);
    EXPECT_EQ(host.call(printTextByPaperWidthById, line.c_str(), 24U, 58U, 1U), 0);
    EXPECT_EQ(host.call(printBitmapFileById, line.c_str(), 0U, 1U), 0);
    EXPECT_EQ(host.call(setLeftMargin, 1U, line.c_str()), 0);
    EXPECT_EQ(
        newRequests(),
        (Lines{textRequest(line), widthRequest(line, 24, 464), imageRequest(line),
               R"({"cmd":"setLeftMargin","printerName":")" + line + R"(","leftMargin":"1"})"}));
  }
}

TEST_P(CodePage, OfAnImagesPathFindsTheFile) {
  const TemporaryFolder own;
  const AnsiText name{ansi.back() + ".bmp", utf8.back() + ".bmp"};
  writeBytes(own.file(nameOf(name)), "image");
  const std::string path = own.path() + name.ansi;
  EXPECT_EQ(host.call(PrintBitmapFile, path.c_str(), 0), 240);
  const std::string copy = host.logFolder().generic_string() + "/prt_0.bmp";
  EXPECT_EQ(newLines().back(), "[T] L:788 M:DLL [cacheImage] Copy " + path + "(size:5) to " + copy)
      << "the path as the caller wrote it";
  EXPECT_EQ(readBytes(copy), "image");
  EXPECT_EQ(requestsOfTicket(), (Lines{imageRequest(copy), confirmation()}));
}

TEST_P(CodePage, OfAnImagesOwnPathBecomesUtf8) {
  const std::string path = "missing/" + ansi.back() + ".bmp";
  EXPECT_EQ(host.call(PrintBitmapFile, path.c_str(), 0), 240);
  EXPECT_EQ(requestsOfTicket(),
            (Lines{imageRequest("missing/" + utf8.back() + ".bmp"), confirmation()}));
}

INSTANTIATE_TEST_SUITE_P(Gbk, CodePage, ::testing::Values(kGbk));
INSTANTIATE_TEST_SUITE_P(Cp1251, CodePage, ::testing::Values(kCp1251));
INSTANTIATE_TEST_SUITE_P(Latin1, CodePage, ::testing::Values(kLatin1));

// In a locale whose numbers have a comma.
using DecimalComma = PrintingTest;

TEST_F(DecimalComma, OfTheHostIsNotInWeights) {
  ASSERT_NE(std::setlocale(LC_ALL, ""), nullptr);
  service.weighing().answers(R"({"result":"0","net":"1.5","tare":"0.25","zero":"0"})");
  WeightBuffer record;
  EXPECT_EQ(host.call(read_standard, record), 240);
  EXPECT_EQ(record.bytes().substr(1, 14), "01.5000P00.250");
}

#ifdef _WIN32
using InCodePage1252 = PrintingTest;

TEST_F(InCodePage1252, TheEuroSignBecomesUtf8) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(PrintText, "5 \x80\n\x93x\x94", 24U), 240);
  EXPECT_EQ(requestsOfTicket(), (Lines{textRequest("5 \xE2\x82\xAC"),
                                       textRequest("\xE2\x80\x9Cx\xE2\x80\x9D"), confirmation()}));
}
#else
INSTANTIATE_TEST_SUITE_P(Utf8, CodePage,
                         ::testing::Values(AnsiText{kGbk.utf8, kGbk.utf8},
                                           AnsiText{kLatin1.utf8, kLatin1.utf8},
                                           AnsiText{"\xF0\x9F\x8D\x9E", "\xF0\x9F\x8D\x9E"}));

using InUtf8 = PrintingTest;

TEST_F(InUtf8, WhatIsNotValidBecomesTheReplacementCharacterAndTheRestSurvives) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(PrintText, "a\xE4z\n\xC3\xA4", 24U), 240);
  EXPECT_EQ(requestsOfTicket(),
            (Lines{textRequest("a\xEF\xBF\xBDz"), textRequest("\xC3\xA4"), confirmation()}));
}
#endif

}  // namespace
}  // namespace tolvex::test
