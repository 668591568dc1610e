// Images: the cache and its names, and the paths that go out.
#include <climits>

#include "library/printing_test.h"
#include "support/temporary_folder.h"

namespace tolvex::test {
namespace {

std::string entry(unsigned angle, unsigned align, const std::string& path) {
  return "[T] L:766 M:DLL [library_tests][PrintBitmapFileWithAlign] Angle:" +
         std::to_string(static_cast<int>(angle)) +
         ", Align:" + std::to_string(static_cast<int>(align)) + " [" + path + "]";
}
std::string copying(const std::string& path, std::size_t size, const std::string& copy) {
  return "[T] L:788 M:DLL [cacheImage] Copy " + path + "(size:" + std::to_string(size) + ") to " +
         copy;
}
std::string copyFailed(const std::string& path, const std::string& copy) {
  return "[W] L:795 M:DLL [cacheImage] Copy " + path + " to " + copy + " Fail";
}

struct Image : PrintingTest {
  // The name that the library gives the copy.
  std::string cached(const std::string& rest) const {
    return host.logFolder().generic_string() + "/prt_" + rest;
  }
  // A file of the caller's own; returns its path.
  std::string image(const std::string& name, const std::string& bytes) const {
    writeBytes(own.file(name), bytes);
    return own.file(name);
  }
  int queue(const std::string& path, unsigned angle = 0, unsigned align = 1) {
    return host.call(PrintBitmapFileWithAlign, path.c_str(), angle, align);
  }
  TemporaryFolder own;
};

// Every byte value, over and over.
std::string bytesOf(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + i / 256);
  return bytes;
}

TEST_F(Image, IsCopiedAndTheCopyIsPrintedWithTheAngle) {
  printer.alwaysAnswers(kOk);
  const std::string bytes = bytesOf(5000);
  const std::string logo = image("logo.bmp", bytes);
  EXPECT_EQ(queue(logo, 0, 2), 240);
  EXPECT_EQ(newRequests(), Lines{}) << "nothing is sent before the end of the job";
  EXPECT_EQ(newLines(), (Lines{entry(0, 2, logo), copying(logo, 5000, cached("0.bmp"))}));
  EXPECT_EQ(readBytes(cached("0.bmp")), bytes);
  EXPECT_EQ(queue(logo, 90, 0), 240);
  EXPECT_EQ(requestsOfTicket(), (Lines{imageRequest(cached("0.bmp"), 0),
                                       imageRequest(cached("1.bmp"), 90), confirmation()}));
  EXPECT_EQ(readBytes(cached("1.bmp")), bytes);
  EXPECT_EQ(readBytes(logo), bytes);
  EXPECT_EQ(lastError(), 0);
}

TEST_F(Image, OfAnySizeIsCopiedByteForByte) {
  int number = 0;
  for (const std::size_t size : {0U, 1U, 1023U, 1024U, 1025U, 2048U, 300000U}) {
    const std::string bytes = bytesOf(size);
    const std::string path = image("image.png", bytes);
    EXPECT_EQ(queue(path), 240);
    const std::string copy = cached(std::to_string(number++) + ".png");
    EXPECT_EQ(readBytes(copy), bytes) << size;
    EXPECT_EQ(newLines(), (Lines{entry(0, 1, path), copying(path, size, copy)}));
  }
}

TEST_F(Image, IsTheOneThatWasThereWhenItWasQueued) {
  printer.alwaysAnswers(kOk);
  const std::string logo = image("logo.bmp", "before");
  EXPECT_EQ(queue(logo), 240);
  image("logo.bmp", "after");
  EXPECT_EQ(requestsOfTicket(), (Lines{imageRequest(cached("0.bmp")), confirmation()}));
  EXPECT_EQ(readBytes(cached("0.bmp")), "before");
}

TEST_F(Image, WithoutAnAlignmentHasAlignmentOneAndALineMore) {
  printer.alwaysAnswers(kOk);
  const std::string logo = image("logo.bmp", "x");
  int number = 0;
  for (int (*const print)(const char*, int) : {PrintBitmapFile, PrintBitmapFile_stdcall}) {
    EXPECT_EQ(host.call(print, logo.c_str(), 180), 240);
    const std::string copy = cached(std::to_string(number++) + ".bmp");
    EXPECT_EQ(newLines(),
              (Lines{"[T] L:752 M:DLL [library_tests][PrintBitmapFile] Angle:180 [" + logo + "]",
                     entry(180, 1, logo), copying(logo, 1, copy)}));
    EXPECT_EQ(requestsOfTicket(), (Lines{imageRequest(copy, 180), confirmation()}));
    newLines();
  }
}

TEST_F(Image, IsPrintedWithEveryAlignmentWhichIsLoggedAndNotSent) {
  printer.alwaysAnswers(kOk);
  const std::string logo = image("logo.bmp", "x");
  int number = 0;
  for (const unsigned align : {0U, 1U, 2U, 3U, UINT_MAX, 65536U}) {
    EXPECT_EQ(queue(logo, 0, align), 240);
    const std::string copy = cached(std::to_string(number++) + ".bmp");
    EXPECT_EQ(newLines(), (Lines{entry(0, align, logo), copying(logo, 1, copy)}));
    EXPECT_EQ(requestsOfTicket(), (Lines{imageRequest(copy), confirmation()}));
    newLines();
  }
}

// A queued record holds sixteen bits of it.
TEST_F(Image, HasAnyAngleOfSixteenBits) {
  printer.alwaysAnswers(kOk);
  const std::string logo = image("logo.bmp", "x");
  for (const unsigned angle : {1U, 360U, 65535U, 65536U + 90U, UINT_MAX}) {
    EXPECT_EQ(queue(logo, angle), 240);
  }
  EXPECT_EQ(requestsOfTicket(),
            (Lines{imageRequest(cached("0.bmp"), 1), imageRequest(cached("1.bmp"), 360),
                   imageRequest(cached("2.bmp"), 65535), imageRequest(cached("3.bmp"), 90),
                   imageRequest(cached("4.bmp"), 65535), confirmation()}));
}

TEST_F(Image, ThatIsNullIs255AndOnlyLogged) {
  EXPECT_EQ(host.call(PrintBitmapFileWithAlign, nullptr, 0U, 0U), 255);
  EXPECT_EQ(newLines(), Lines{"[W] L:763 M:DLL [PrintBitmapFileWithAlign] Input param is NULL"});
  for (int (*const print)(const char*, int) : {PrintBitmapFile, PrintBitmapFile_stdcall}) {
    EXPECT_EQ(host.call(print, nullptr, -90), 255);
    EXPECT_EQ(newLines(),
              (Lines{"[T] L:752 M:DLL [library_tests][PrintBitmapFile] Angle:-90 [(null)]",
                     "[W] L:763 M:DLL [PrintBitmapFileWithAlign] Input param is NULL"}));
  }
  EXPECT_EQ(lastError(), 0);
  EXPECT_EQ(host.call(BeginPrint, 0), 255) << "nothing is queued";
  EXPECT_EQ(newRequests(), Lines{});
}

TEST_F(Image, ThatIsMissingIsPrintedFromTheCallersOwnPath) {
  printer.answers(replyWith(2003));
  const std::string path = own.file("missing.bmp");
  EXPECT_EQ(queue(path), 240);
  EXPECT_EQ(newLines(), (Lines{entry(0, 1, path), copying(path, 0, cached("0.bmp")),
                               copyFailed(path, cached("0.bmp"))}));
  EXPECT_EQ(host.call(BeginPrint, 0), 255) << "the service misses it";
  EXPECT_EQ(newRequests(), Lines{imageRequest(path)});
  EXPECT_EQ(lastError(), 2003);
}

TEST_F(Image, WhoseCopyCannotBeWrittenIsPrintedFromTheCallersOwnPath) {
  printer.alwaysAnswers(kOk);
  makeFolder(cached("0.bmp"));  // in the way
  const std::string logo = image("logo.bmp", "xyz");
  EXPECT_EQ(queue(logo, 90), 240);
  EXPECT_EQ(newLines(), (Lines{entry(90, 1, logo), copying(logo, 3, cached("0.bmp")),
                               copyFailed(logo, cached("0.bmp"))}));
  EXPECT_EQ(queue(logo), 240);
  EXPECT_EQ(requestsOfTicket(),
            (Lines{imageRequest(logo, 90), imageRequest(cached("1.bmp")), confirmation()}))
      << "the number is used up all the same";
}

TEST_F(Image, ThatIsAFolderIsPrintedFromTheCallersOwnPath) {
  printer.alwaysAnswers(kOk);
  makeFolder(own.file("folder.bmp"));
  EXPECT_EQ(queue(own.file("folder.bmp")), 240);
  EXPECT_EQ(requestsOfTicket(), (Lines{imageRequest(own.file("folder.bmp")), confirmation()}));
}

TEST_F(Image, ThatIsItsOwnCopyKeepsItsBytes) {
  printer.alwaysAnswers(kOk);
  host.call(getLastErrCode);
  writeBytes(cached("0.bmp"), "mine");
  EXPECT_EQ(queue(cached("0.bmp")), 240);
  EXPECT_EQ(requestsOfTicket(), (Lines{imageRequest(cached("0.bmp")), confirmation()}));
  EXPECT_EQ(readBytes(cached("0.bmp")), "mine");
}

TEST_F(Image, WithoutADotInItsPathHasACopyWithTwoDots) {
  printer.alwaysAnswers(kOk);
  const std::string logo = image("logo", "xyz");
  ASSERT_EQ(logo.find('.'), std::string::npos);
  EXPECT_EQ(queue(logo), 240);
  EXPECT_EQ(newLines(), (Lines{entry(0, 1, logo), copying(logo, 3, cached("0..bmp"))}));
  EXPECT_EQ(readBytes(cached("0..bmp")), "xyz");
  EXPECT_EQ(requestsOfTicket(), (Lines{imageRequest(cached("0..bmp")), confirmation()}));
}

TEST_F(Image, TakesTheLastDotOfTheWholePathForItsExtension) {
  printer.alwaysAnswers(kOk);
  makeFolder(own.file("img.old"));
  const std::string logo = image("img.old/logo", "xyz");
  EXPECT_EQ(queue(logo), 240);
  EXPECT_EQ(newLines(), (Lines{entry(0, 1, logo), copying(logo, 3, cached("0.old/logo")),
                               copyFailed(logo, cached("0.old/logo"))}))
      << "there is no such folder";
  makeFolder(cached("1.old"));
  EXPECT_EQ(queue(logo), 240);
  EXPECT_EQ(readBytes(cached("1.old/logo")), "xyz");
  const std::string twoDots = image("img.old/logo.v2.jpeg", "jpeg");
  EXPECT_EQ(queue(twoDots), 240);
  EXPECT_EQ(requestsOfTicket(), (Lines{imageRequest(logo), imageRequest(cached("1.old/logo")),
                                       imageRequest(cached("2.jpeg")), confirmation()}));
}

TEST_F(Image, WithALineFeedInItsPathIsSeveralRecords) {
  printer.alwaysAnswers(kOk);
  EXPECT_EQ(host.call(PrintBitmapFile, "one.bmp\r\n\ntwo.bmp", 0), 240);
  EXPECT_EQ(requestsOfTicket(), (Lines{imageRequest("one.bmp"), imageRequest(" "),
                                       imageRequest("two.bmp"), confirmation()}));
}

TEST_F(Image, WithAnEmptyPathIsNoRecord) {
  EXPECT_EQ(queue(""), 240);
  EXPECT_EQ(newLines(), (Lines{entry(0, 1, ""), copying("", 0, cached("0..bmp")),
                               copyFailed("", cached("0..bmp"))}));
  EXPECT_EQ(host.call(BeginPrint, 0), 255);
  EXPECT_EQ(newRequests(), Lines{});
}

TEST_F(Image, NumberTwoHundredIs199AndTheNextOneTakesTheFirstName) {
  printer.alwaysAnswers(kOk);
  Lines expected;
  for (int i = 0; i < 202; ++i) {
    EXPECT_EQ(queue(image("image.bmp", "image " + std::to_string(i))), 240);
    expected.push_back(imageRequest(cached(std::to_string(i % 200) + ".bmp")));
  }
  expected.push_back(confirmation());
  EXPECT_EQ(requestsOfTicket(), expected);
  EXPECT_EQ(readBytes(cached("199.bmp")), "image 199");
  EXPECT_EQ(readBytes(cached("0.bmp")), "image 200");
  EXPECT_EQ(readBytes(cached("1.bmp")), "image 201");
  EXPECT_EQ(readBytes(cached("2.bmp")), "image 2");
  EXPECT_FALSE(exists(cached("200.bmp")));
}

TEST_F(Image, GoesOutBetweenTheLinesOfItsJobAndStopsItWhenItCannotBePrinted) {
  EXPECT_EQ(host.call(PrintText, "A", 24U), 240);
  EXPECT_EQ(queue(image("logo.bmp", "x"), 270), 240);
  EXPECT_EQ(host.call(PrintText, "B", 24U), 240);
  newLines();
  printer.answers(kOk);
  printer.answers(replyWith(2003));
  EXPECT_EQ(host.call(BeginPrint, 204), 255);
  EXPECT_EQ(newRequests(), (Lines{textRequest("A", 24, 0), imageRequest(cached("0.bmp"), 270, 0)}));
  EXPECT_EQ(newLines(), (Lines{"[T] L:612 M:DLL [library_tests][BeginPrint] 204_IMG_LBL Begin",
                               "[W] L:725 M:DLL [library_tests][BeginPrint] 204_IMG_LBL Err when "
                               "printing, ret:2003"}));
}

TEST_F(Image, ByIdGoesOutAtOnceFromTheCallersPath) {
  printer.alwaysAnswers(kOk);
  const std::string logo = image("logo.bmp", "x");
  EXPECT_EQ(host.call(printBitmapFileById, logo.c_str(), UINT_MAX, UINT_MAX), 0);
  EXPECT_EQ(host.call(printBitmapFileById, "a\n\xE4", 65626U, 0U), 0);
  EXPECT_EQ(newRequests(), (Lines{imageRequest(logo, -1, -1), imageRequest("a\\n\xE4", 65626, 0)}));
  EXPECT_EQ(newLines(), Lines{});
  EXPECT_FALSE(exists(cached("0.bmp"))) << "no copy is made";
  EXPECT_EQ(host.call(BeginPrint, 0), 255) << "nothing is queued";
}

TEST_F(Image, ByIdThatIsNullOrEmptyIsTwoWithoutARequest) {
  for (const char* const path : {static_cast<const char*>(nullptr), ""}) {
    printer.answers(kOk);
    EXPECT_EQ(host.call(OpenCashDrawerEx), 240);  // so that the last error is 0
    newLines();
    newRequests();
    EXPECT_EQ(host.call(printBitmapFileById, path, 0U, 1U), 2);
    EXPECT_EQ(lastError(), 2);
    EXPECT_EQ(newRequests(), Lines{});
    EXPECT_EQ(newLines(), Lines{});
  }
}

}  // namespace
}  // namespace tolvex::test
