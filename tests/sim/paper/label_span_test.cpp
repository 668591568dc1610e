#include "paper/label_span.h"

#include <gtest/gtest.h>

#include "samples.h"

namespace tolvex::sim {
namespace {

using Spans = std::vector<std::string>;

Spans describe(const std::vector<LabelSpan>& spans) {
  Spans result;
  for (const LabelSpan& span : spans) {
    result.push_back(std::string(name(span.kind)) + (span.begins ? " [" : " ..") +
                     std::to_string(span.top) + " " + std::to_string(span.bottom) +
                     (span.ends ? "]" : ".."));
  }
  return result;
}

Paper lyingOn(const LabelStock& stock) {
  Paper paper(kShortLabels);
  paper.lieOn(stock);
  return paper;
}

TEST(LabelSpan, IsWholeWithinTheBounds) {
  const Paper paper(kShortLabels);
  EXPECT_EQ(describe(labelsOn(paper, 0, 340)),
            (Spans{"gap [0 100]", "gap [120 220]", "gap [240 340]"}));
  EXPECT_EQ(describe(gapsOn(paper, 0, 240)), (Spans{"gap [100 120]", "gap [220 240]"}));
}

TEST(LabelSpan, IsCutOffAtTheBounds) {
  const Paper paper(kShortLabels);
  EXPECT_EQ(describe(labelsOn(paper, 30, 130)), (Spans{"gap ..30 100]", "gap [120 130.."}));
  EXPECT_EQ(describe(labelsOn(paper, 30, 40)), Spans{"gap ..30 40.."});
  EXPECT_EQ(describe(labelsOn(paper, 105, 115)), Spans{});
  EXPECT_EQ(describe(gapsOn(paper, 110, 230)), (Spans{"gap ..110 120]", "gap [220 230.."}));
}

TEST(LabelSpan, BeginsWhereTheStockLies) {
  const Paper paper = lyingOn({StockKind::Gap, 60, 10, 50});
  EXPECT_EQ(describe(labelsOn(paper, 0, 90)), (Spans{"gap ..0 10]", "gap [20 80]"}));
  EXPECT_EQ(describe(labelsOn(paper, -20, 20)), Spans{"gap ..-20 10]"});
}

TEST(LabelSpan, OfMarkedPaperIsAllOfIt) {
  const Paper paper = lyingOn({StockKind::Mark, 60, 10, 50});
  EXPECT_EQ(describe(labelsOn(paper, -8, 90)), Spans{"mark [-8 90]"});
  EXPECT_EQ(describe(marksOn(paper, -8, 90)), (Spans{"mark [10 20]", "mark [80 90]"}));
  EXPECT_EQ(describe(marksOn(paper, 15, 85)), (Spans{"mark ..15 20]", "mark [80 85.."}));
}

TEST(LabelSpan, OfContinuousPaperIsAllOfIt) {
  const Paper paper = lyingOn({StockKind::Continuous, 60, 10, 50});
  EXPECT_EQ(describe(labelsOn(paper, 0, 90)), Spans{"continuous [0 90]"});
  EXPECT_EQ(describe(gapsOn(paper, 0, 90)), Spans{});
  EXPECT_EQ(describe(marksOn(paper, 0, 90)), Spans{});
}

TEST(LabelSpan, EndsWithItsStretch) {
  Paper paper(kShortLabels);
  paper.add(FeedItem{130});
  paper.lieOn({StockKind::Mark, 60, 10, 0});
  paper.add(FeedItem{40});
  paper.lieOn({StockKind::Gap, 60, 10, 30});
  EXPECT_EQ(describe(labelsOn(paper, 0, 210)),
            (Spans{"gap [0 100]", "gap [120 130..", "mark [130 170]", "gap ..170 200]"}));
  EXPECT_EQ(describe(marksOn(paper, 0, 210)), Spans{});
}

TEST(LabelSpan, OfARollIsNothing) {
  const Paper paper(PaperFormat{464, 384});
  EXPECT_EQ(describe(labelsOn(paper, 0, 1000)), Spans{});
  EXPECT_EQ(describe(gapsOn(paper, 0, 1000)), Spans{});
}

TEST(LabelStock, MovesInItsPitch) {
  const LabelStock stock{StockKind::Gap, 100, 20, 110};
  EXPECT_EQ(stock.pitch(), 120);
  EXPECT_EQ(stock.toNextLabel(), 10);
  EXPECT_EQ(stock.moved(10).position, 0);
  EXPECT_EQ(stock.moved(10).toNextLabel(), 0);
  EXPECT_EQ(stock.moved(1211).position, 1);
  EXPECT_EQ(stock.moved(-111).position, 119);
  EXPECT_EQ(stock.moved(-2000).position, 30);
}

}  // namespace
}  // namespace tolvex::sim
