#include "console/line_splitter.h"

#include <gtest/gtest.h>

#include <vector>

namespace tolvex::sim {
namespace {

using Lines = std::vector<std::string>;

Lines feed(LineSplitter& splitter, std::string_view bytes) {
  Lines lines;
  splitter.feed(bytes, [&lines](std::string line) { lines.push_back(std::move(line)); });
  return lines;
}

TEST(LineSplitter, YieldsLinesWithoutTheirEnds) {
  LineSplitter splitter;
  EXPECT_EQ(feed(splitter, "load 1\nstatus\r\n\nquit\n"), (Lines{"load 1", "status", "", "quit"}));
  EXPECT_EQ(splitter.rest(), std::nullopt);
}

TEST(LineSplitter, JoinsPortions) {
  LineSplitter splitter;
  EXPECT_EQ(feed(splitter, "sta"), Lines{});
  EXPECT_EQ(feed(splitter, "tus\r"), Lines{});
  EXPECT_EQ(feed(splitter, "\nqu"), Lines{"status"});
  EXPECT_EQ(splitter.rest(), "qu");
  EXPECT_EQ(splitter.rest(), std::nullopt);
}

TEST(LineSplitter, DropsTheRestOfALongLine) {
  LineSplitter splitter;
  const std::string longest(LineSplitter::kMaxLineBytes, 'x');
  EXPECT_EQ(feed(splitter, longest + "yyy\nnext\n"), (Lines{longest, "next"}));
}

}  // namespace
}  // namespace tolvex::sim
