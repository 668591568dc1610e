#include "paper/kept_png.h"

#include <gtest/gtest.h>

#include <vector>

#include "paper/image_file.h"
#include "samples.h"

namespace tolvex::sim {
namespace {

const Bitmap kFlag = picture({"##.", "#.."});
// Stands for the picture wherever it must not be looked at again.
const Bitmap kOther = picture({"#"});

TEST(KeptPng, IsTheFileOfThePicture) { EXPECT_EQ(KeptPng().of(kFlag), encodePng(kFlag)); }

TEST(KeptPng, IsEncodedOnce) {
  const KeptPng png;
  png.of(kFlag);
  EXPECT_EQ(png.of(kOther), encodePng(kFlag));
}

TEST(KeptPng, IsSharedByCopies) {
  const std::vector<KeptPng> copies(2, KeptPng());
  copies[0].of(kFlag);
  EXPECT_EQ(copies[1].of(kOther), encodePng(kFlag));
}

TEST(KeptPng, IsEncodedAgainOnceForgotten) {
  KeptPng png;
  png.of(kFlag);
  png.forget();
  EXPECT_EQ(png.of(kOther), encodePng(kOther));
}

}  // namespace
}  // namespace tolvex::sim
