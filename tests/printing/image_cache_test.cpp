// Copies of the images that are queued.
#include "printing/image_cache.h"

#include <string>

#include "platform/text_encoding.h"
#include "printing/printing_test.h"
#include "support/os_support.h"
#include "support/temporary_folder.h"

namespace tolvex {
namespace {

class ImageCache : public PrintingTest {
 protected:
  // A file of the application with these contents. Returns its path.
  std::string image(const std::string& name, const std::string& contents) {
    std::string path = folder.file(name);
    test::writeBytes(path, contents);
    return path;
  }

  // Caches the image, and returns the path that is queued for it.
  std::string cached(const std::string& path) {
    cacheImage(client, path.c_str(), 90, 2);
    const Records records = queued();
    client.printJob().reset();
    if (records.size() != 1) {
      ADD_FAILURE() << records.size() << " records";
      return {};
    }
    EXPECT_EQ(records[0], (PrintJobRecord{PrintJobKind::kImageFile, 90, 2, records[0].payload}));
    return records[0].payload;
  }

  void skipNumbers(unsigned count) {
    for (unsigned number = 0; number < count; ++number) client.takeImageNumber();
  }

  static std::string copying(const std::string& from, std::size_t size, const std::string& to) {
    return "[T] L:788 M:DLL [cacheImage] Copy " + from + "(size:" + std::to_string(size) + ") to " +
           to;
  }
  static std::string failing(const std::string& from, const std::string& to) {
    return "[W] L:795 M:DLL [cacheImage] Copy " + from + " to " + to + " Fail";
  }

  // The image is copied under this name, with its contents, and the copy is queued.
  void expectCopied(const std::string& path, const std::string& name,
                    const std::string& contents = "image") {
    const std::string copy = cache + name;
    EXPECT_EQ(cached(path), copy);
    EXPECT_EQ(test::readBytes(copy), contents);
    EXPECT_EQ(log.records(), Texts{copying(path, contents.size(), copy)});
  }

  // It cannot be copied to this name, and its own path is queued.
  void expectNotCopied(const std::string& path, std::size_t size, const std::string& name) {
    const std::string copy = cache + name;
    EXPECT_EQ(cached(path), path);
    EXPECT_EQ(log.records(), (Texts{copying(path, size, copy), failing(path, copy)}));
  }

  const test::TemporaryFolder folder;
  const std::string cache = test::emptyLibraryFolder(folder.path());
};

TEST_F(ImageCache, CopiesTheFirstImageUnderTheFirstName) {
  const std::string path = image("logo.bmp", "BM picture");
  cacheImage(client, path.c_str(), 0, 2);
  const std::string copy = cache + "prt_0.bmp";
  EXPECT_EQ(queued(), (Records{{PrintJobKind::kImageFile, 0, 2, copy}}));
  EXPECT_EQ(test::readBytes(copy), "BM picture");
  EXPECT_EQ(log.records(), Texts{copying(path, 10, copy)});
  expectNothingSent();
  EXPECT_EQ(client.getLastErrCode(), 77);
}

TEST_F(ImageCache, LeavesTheImageItselfAlone) {
  const std::string path = image("logo.bmp", "image");
  cached(path);
  EXPECT_EQ(test::readBytes(path), "image");
}

TEST_F(ImageCache, KeepsEveryByteOfAnImage) {
  std::string contents;
  for (int byte = 0; byte < 256; ++byte) contents += static_cast<char>(byte);
  expectCopied(image("logo.bmp", contents), "prt_0.bmp", contents);
}

TEST_F(ImageCache, CopiesImagesOfAnyLength) {
  for (const std::size_t size : {1023U, 1024U, 1025U, 2048U, 3000001U}) {
    const std::string contents(size, 'i');
    const std::string copy = cached(image("logo.bmp", contents));
    EXPECT_TRUE(test::readBytes(copy) == contents) << size;
  }
}

TEST_F(ImageCache, CopiesAnEmptyImage) { expectCopied(image("logo.bmp", ""), "prt_0.bmp", ""); }

TEST_F(ImageCache, OverwritesALongerImageOfTheSameName) {
  test::writeBytes(cache + "prt_0.bmp", std::string(5000, 'o'));
  expectCopied(image("logo.bmp", "image"), "prt_0.bmp");
}

TEST_F(ImageCache, QueuesAnyAngleAndAlignment) {
  const std::string path = image("logo.bmp", "image");
  cacheImage(client, path.c_str(), static_cast<std::uint16_t>(-90), 1);
  EXPECT_EQ(queued(), (Records{{PrintJobKind::kImageFile, 65446, 1, cache + "prt_0.bmp"}}));
}

// ---- Numbers ----

TEST_F(ImageCache, NumbersItsImages) {
  const std::string path = image("logo.png", "image");
  EXPECT_EQ(cached(path), cache + "prt_0.png");
  EXPECT_EQ(cached(path), cache + "prt_1.png");
  EXPECT_EQ(cached(path), cache + "prt_2.png");
}

TEST_F(ImageCache, BeginsAnewAfterTwoHundredImages) {
  skipNumbers(199);
  const std::string path = image("logo.bmp", "last");
  EXPECT_EQ(cached(path), cache + "prt_199.bmp");
  EXPECT_EQ(cached(path), cache + "prt_0.bmp");
  EXPECT_EQ(cached(path), cache + "prt_1.bmp");
}

TEST_F(ImageCache, OverwritesTheFirstOfTwoHundredAndOneImages) {
  cached(image("logo.bmp", "the very first"));
  for (int count = 1; count < 200; ++count) cached(image("logo.bmp", "another"));
  EXPECT_EQ(test::readBytes(cache + "prt_0.bmp"), "the very first");
  cached(image("logo.bmp", "the 201st"));
  EXPECT_EQ(test::readBytes(cache + "prt_0.bmp"), "the 201st");
  EXPECT_EQ(test::readBytes(cache + "prt_1.bmp"), "another");
  EXPECT_FALSE(test::exists(cache + "prt_200.bmp"));
}

TEST_F(ImageCache, CountsAnImageThatItCannotCopy) {
  cached(folder.file("missing.bmp"));
  EXPECT_EQ(cached(image("logo.bmp", "image")), cache + "prt_1.bmp");
}

TEST_F(ImageCache, NumbersAreThoseOfItsClient) {
  skipNumbers(5);
  VcoClientApi other(nullptr, nullptr);
  EXPECT_EQ(other.takeImageNumber(), 0U);
  EXPECT_EQ(client.takeImageNumber(), 5U);
}

// ---- Extensions ----

TEST_F(ImageCache, TakesWhatFollowsTheLastDot) {
  skipNumbers(7);
  expectCopied(image("shop.logo.PNG", "image"), "prt_7.PNG");
}

TEST_F(ImageCache, TakesAPathWithoutADotForABitmapWithTwo) {
  const std::string path = image("logo", "image");
  ASSERT_EQ(path.find('.'), std::string::npos);
  expectCopied(path, "prt_0..bmp");
}

TEST_F(ImageCache, TakesADotBeforeTheNameForItsOwn) {
  expectCopied(image(".logo", "image"), "prt_0.logo");
}

TEST_F(ImageCache, TakesTheLastDotEvenWhereItIsThatOfAFolder) {
  test::makeFolder(folder.file("img.old"));
  expectNotCopied(image("img.old/logo", "image"), 5, "prt_0.old/logo");
}

TEST_F(ImageCache, CopiesIntoAFolderWhereThatOfThePathExistsThere) {
  test::makeFolder(folder.file("img.old"));
  test::makeFolder(cache + "prt_0.old");
  expectCopied(image("img.old/logo", "image"), "prt_0.old/logo");
}

TEST_F(ImageCache, TakesNothingAfterADotAtTheEnd) {
  expectNotCopied(folder.file("missing."), 0, "prt_0.");
}

// ---- Failures ----

TEST_F(ImageCache, QueuesThePathOfAMissingImage) {
  expectNotCopied(folder.file("missing.bmp"), 0, "prt_0.bmp");
  EXPECT_FALSE(test::exists(cache + "prt_0.bmp"));
}

TEST_F(ImageCache, QueuesThePathOfAFolder) {
  test::makeFolder(folder.file("folder.bmp"));
  expectNotCopied(folder.file("folder.bmp"), 0, "prt_0.bmp");
}

TEST_F(ImageCache, QueuesTheOwnPathWhereTheCopyCannotBeWritten) {
  test::makeFolder(cache + "prt_0.bmp");
  expectNotCopied(image("logo.bmp", "image"), 5, "prt_0.bmp");
}

TEST_F(ImageCache, QueuesNothingForAnEmptyPath) {
  cacheImage(client, "", 0, 1);
  EXPECT_TRUE(client.printJob().isEmpty());
  const std::string copy = cache + "prt_0..bmp";
  EXPECT_EQ(log.records(), (Texts{copying("", 0, copy), failing("", copy)}));
}

TEST_F(ImageCache, CutsAPathAtItsLineFeeds) {
  cacheImage(client, "first\r\n\nlast.bmp", 90, 2);
  EXPECT_EQ(queued(), (Records{{PrintJobKind::kImageFile, 90, 2, "first"},
                               {PrintJobKind::kImageFile, 90, 2, " "},
                               {PrintJobKind::kImageFile, 90, 2, "last.bmp"}}));
}

TEST_F(ImageCache, QueuesAPathInUtf8) {
  const std::string path = "no-such-folder/caf\xE9.bmp";
  EXPECT_EQ(cached(path), platform::AnsiToUtf8(path.c_str()));
}

}  // namespace
}  // namespace tolvex
