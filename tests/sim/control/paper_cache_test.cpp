#include "control/paper_cache.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

class PaperCacheTest : public ::testing::Test {
 protected:
  static Job job(int number, std::uint64_t revision) {
    Job job(number, "Ticket", {640, 576});
    job.setRevision(revision);
    return job;
  }

  /// The picture that is kept, "none" if there is none.
  std::string kept(const Job& job, Form form = Form::Picture) {
    const auto picture = cache_.find(job, form);
    return picture ? *picture : "none";
  }

  PaperCache cache_;
};

TEST_F(PaperCacheTest, KeepsEachFormOfAJobAsItIsNow) {
  EXPECT_EQ(kept(job(1, 5)), "none");
  EXPECT_EQ(*cache_.keep(job(1, 5), Form::Picture, "picture"), "picture");
  cache_.keep(job(1, 5), Form::Strip, "strip");
  cache_.keep(job(2, 6), Form::Picture, "other");
  EXPECT_EQ(kept(job(1, 5)), "picture");
  EXPECT_EQ(kept(job(1, 5), Form::Strip), "strip");
  EXPECT_EQ(kept(job(2, 6)), "other");
  EXPECT_EQ(kept(job(2, 6), Form::Strip), "none");
  EXPECT_EQ(kept(job(1, 7)), "none");
  EXPECT_EQ(kept(job(2, 5)), "none");
}

TEST_F(PaperCacheTest, WhatAJobWasBeforeIsForgotten) {
  cache_.keep(job(1, 5), Form::Picture, "before");
  cache_.keep(job(1, 6), Form::Picture, "after");
  EXPECT_EQ(kept(job(1, 5)), "none");
  EXPECT_EQ(kept(job(1, 6)), "after");
  EXPECT_EQ(cache_.bytes(), 5U);
}

TEST_F(PaperCacheTest, OnlySoManyBytesAreKept) {
  const std::string half(PaperCache::kMaxBytes / 2, 'x');
  cache_.keep(job(1, 1), Form::Picture, half);
  cache_.keep(job(2, 2), Form::Picture, half);
  EXPECT_EQ(cache_.bytes(), PaperCache::kMaxBytes);
  // The one that was not asked for the longest goes first.
  EXPECT_NE(cache_.find(job(1, 1), Form::Picture), nullptr);
  cache_.keep(job(3, 3), Form::Picture, "x");
  EXPECT_NE(cache_.find(job(1, 1), Form::Picture), nullptr);
  EXPECT_EQ(cache_.find(job(2, 2), Form::Picture), nullptr);
  EXPECT_EQ(kept(job(3, 3)), "x");
  EXPECT_EQ(cache_.bytes(), PaperCache::kMaxBytes / 2 + 1);
}

TEST_F(PaperCacheTest, APictureThatIsTooLargeIsHandedOutAllTheSame) {
  cache_.keep(job(1, 1), Form::Picture, "small");
  const std::string large(PaperCache::kMaxBytes + 1, 'x');
  EXPECT_EQ(cache_.keep(job(2, 2), Form::Picture, large)->size(), large.size());
  EXPECT_EQ(cache_.find(job(2, 2), Form::Picture), nullptr);
  EXPECT_EQ(kept(job(1, 1)), "small");
}

TEST_F(PaperCacheTest, OnlySoManyPicturesAreKept) {
  const int most = static_cast<int>(PaperCache::kMaxPictures);
  for (int number = 1; number <= most + 1; ++number) {
    cache_.keep(job(number, 100), Form::Picture, "x");
  }
  EXPECT_EQ(kept(job(1, 100)), "none");
  EXPECT_EQ(kept(job(2, 100)), "x");
  EXPECT_EQ(cache_.bytes(), PaperCache::kMaxPictures);
}

}  // namespace
}  // namespace tolvex::sim
