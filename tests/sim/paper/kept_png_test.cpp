#include "paper/kept_png.h"

#include <gtest/gtest.h>

#include <vector>

#include "paper/image_file.h"
#include "samples.h"

namespace tolvex::sim {
namespace {

const Bitmap kKept = picture({"##.", "#.."});
// Stands for the picture wherever it must not be looked at again.
const Bitmap kOther = picture({"#"});

TEST(KeptPng, IsTheFileOfThePicture) { EXPECT_EQ(KeptPng().of(kKept), encodePng(kKept)); }

TEST(KeptPng, IsEncodedOnce) {
  const KeptPng png;
  png.of(kKept);
  EXPECT_EQ(png.of(kOther), encodePng(kKept));
}

TEST(KeptPng, IsSharedByCopies) {
  const std::vector<KeptPng> copies(2, KeptPng());
  copies[0].of(kKept);
  EXPECT_EQ(copies[1].of(kOther), encodePng(kKept));
}

TEST(KeptPng, IsEncodedAgainOnceForgotten) {
  KeptPng png;
  png.of(kKept);
  png.forget();
  EXPECT_EQ(png.of(kOther), encodePng(kOther));
}

}  // namespace
}  // namespace tolvex::sim
