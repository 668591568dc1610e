// What is kept of the jobs, whatever clients send.
#include "devices/job_log.h"

#include "paper/image_file.h"
#include "paper/render.h"
#include "printer_fixture.h"

namespace tolvex::sim {
namespace {

std::string describe(const Job& job) {
  return std::to_string(job.number()) + (job.isFinished() ? " finished" : " printing");
}

class JobLogTest : public PrinterFixture {
 protected:
  std::size_t bytesKept() const {
    std::size_t bytes = 0;
    for (const auto& job : printers_.jobs().jobs()) bytes += job->bytes();
    return bytes;
  }
};

TEST_F(JobLogTest, KeepsTheLatestJobs) {
  constexpr int kJobs = 20'000;
  for (int i = 1; i <= kJobs; ++i) {
    ASSERT_EQ(ticket_.printText("x", 24), ResultCode::Ok);
    ASSERT_EQ(ticket_.finishJob(), ResultCode::Ok);
  }
  EXPECT_EQ(jobs(), JobLog::kMaxJobs);
  EXPECT_EQ(printers_.jobs().jobs().front()->number(), kJobs - 499);
  EXPECT_EQ(printers_.jobs().jobs().back()->number(), kJobs);
}

TEST_F(JobLogTest, KeepsSoMuchPaper) {
  for (int i = 0; i < 700; ++i) {
    ticket_.printImage(Bitmap(576, 8000));
    ticket_.printImage(Bitmap(576, 8000));
    ticket_.finishJob();
  }
  EXPECT_LT(jobs(), JobLog::kMaxJobs);
  EXPECT_GT(jobs(), 1U);
  EXPECT_LE(bytesKept(), JobLog::kMaxBytes + Job::kMaxBytes);
}

TEST_F(JobLogTest, KeepsWhatIsStillBeingPrinted) {
  ticket_.printText("old", 24);
  for (std::size_t i = 0; i < 2 * JobLog::kMaxJobs; ++i) {
    label_.printText("x", 24);
    label_.finishJob();
  }
  EXPECT_EQ(paperOf(1), (Items{"\"old\"@24"}));
  EXPECT_EQ(jobs(), JobLog::kMaxJobs + 1);
  EXPECT_EQ(printers_.jobs().jobs().at(1)->number(), 502);
  ticket_.finishJob();
  label_.printText("x", 24);
  EXPECT_EQ(jobs(), JobLog::kMaxJobs);
  EXPECT_EQ(printers_.jobs().jobs().front()->number(), 503);
}

TEST_F(JobLogTest, AForgottenJobIsStillTheOneThatItsPrinterCuts) {
  ticket_.printText("old", 24);
  ticket_.finishJob();
  for (std::size_t i = 0; i < JobLog::kMaxJobs; ++i) {
    label_.printText("x", 24);
    label_.finishJob();
  }
  EXPECT_EQ(paperOf(1), Items{});
  Items told;
  printers_.jobs().listen([&](const Job& job) { told = itemsOf(job.paper()); });
  EXPECT_EQ(ticket_.cut(70), ResultCode::Ok);
  EXPECT_EQ(told, (Items{"\"old\"@24", "cut 70"}));
}

TEST_F(JobLogTest, AJobOnlyGrowsSoLong) {
  const std::string megabyte(std::size_t{1} << 20U, 'x');
  EXPECT_EQ(ticket_.printText(megabyte, 24), ResultCode::TooMuchToPrint);
  EXPECT_EQ(ticket_.printText(std::string(megabyte.size(), '\n'), 8), ResultCode::TooMuchToPrint);
  EXPECT_EQ(jobs(), 0U);
  for (int i = 0; i < 10; ++i) ASSERT_EQ(ticket_.feed(1000), ResultCode::Ok);
  ASSERT_EQ(ticket_.printText("x", 24), ResultCode::Ok);
  for (int i = 0; i < 9; ++i) ASSERT_EQ(ticket_.feed(1000), ResultCode::Ok);
  EXPECT_EQ(ticket_.feed(1000), ResultCode::TooMuchToPrint);
  EXPECT_EQ(ticket_.feed(996), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText("x", 24), ResultCode::TooMuchToPrint);
  EXPECT_EQ(ticket_.printImage(Bitmap(1, 3)), ResultCode::TooMuchToPrint);
  EXPECT_EQ(ticket_.printImage(Bitmap(1, 2)), ResultCode::Ok);
  EXPECT_EQ(ticket_.job()->paper().length(), Job::kMaxLength);
  // It can still be finished, and another one begun.
  EXPECT_EQ(ticket_.finishJob(), ResultCode::Ok);
  EXPECT_EQ(ticket_.feed(1), ResultCode::TooMuchToPrint);
  EXPECT_EQ(ticket_.printText("y", 24), ResultCode::Ok);
  EXPECT_EQ(paperOf(2), (Items{"\"y\"@24"}));
}

TEST_F(JobLogTest, FreshPaperIsOnlyFedSoFar) {
  for (int i = 0; i < 10; ++i) ASSERT_EQ(ticket_.feed(1000), ResultCode::Ok);
  EXPECT_EQ(ticket_.feed(1), ResultCode::TooMuchToPrint);
  EXPECT_EQ(ticket_.cut(70), ResultCode::Ok);
  EXPECT_EQ(ticket_.printText("x", 24), ResultCode::Ok);
  EXPECT_EQ(paperOf(1), (Items{"\"x\"@24"}));
}

// What the kept PNG file of the picture that a job begins with answers for another picture: that
// one's file only once it is forgotten.
std::string pngOf(const Job& job, const Bitmap& other) {
  return std::get<ImageItem>(job.paper().items().at(0)).png.of(other);
}

TEST_F(JobLogTest, EncodedPicturesAreKeptAsLongAsThePaperMayChange) {
  const Bitmap logo(3, 2);
  const Bitmap other(1, 1);
  printers_.jobs().listen([](const Job& job) { svgOf(job.paper()); });
  ticket_.printImage(logo);
  const auto first = printers_.jobs().newest();
  ticket_.finishJob();
  ticket_.feed(1);
  EXPECT_EQ(pngOf(*first, other), encodePng(logo));
  ticket_.printImage(logo);
  const auto second = printers_.jobs().newest();
  EXPECT_EQ(pngOf(*first, other), encodePng(other));
  EXPECT_EQ(pngOf(*second, other), encodePng(logo));
  ticket_.cut(70);
  EXPECT_EQ(pngOf(*second, other), encodePng(other));
}

TEST_F(JobLogTest, AJobOnlyTakesSoMuchMemory) {
  // Marks above one letter: a line of a megabyte that is short on the paper.
  std::string marks = "x";
  while (marks.size() < (std::size_t{1} << 20U)) marks += "\xCC\x81";
  ResultCode code = ResultCode::Ok;
  int prints = 0;
  while (code == ResultCode::Ok && prints < 100) {
    code = ticket_.printText(marks, 24);
    ++prints;
  }
  EXPECT_EQ(code, ResultCode::TooMuchToPrint);
  EXPECT_EQ(prints, 16);
  EXPECT_LE(ticket_.job()->bytes(), Job::kMaxBytes);
  EXPECT_EQ(ticket_.cut(70), ResultCode::Ok);
}

TEST_F(JobLogTest, TellsAllWhoListen) {
  Items told;
  printers_.jobs().listen([&](const Job& job) { told.push_back("1: " + describe(job)); });
  printers_.jobs().listen([&](const Job& job) { told.push_back("2: " + describe(job)); });
  ticket_.printText("a", 24);
  ticket_.finishJob();
  EXPECT_EQ(told, (Items{"1: 1 printing", "2: 1 printing", "1: 1 finished", "2: 1 finished"}));
}

TEST_F(JobLogTest, CountsItsChanges) {
  JobLog& log = printers_.jobs();
  EXPECT_EQ(log.changes(), 0U);
  ticket_.printText("a", 24);
  EXPECT_EQ(log.changes(), 1U);
  EXPECT_EQ(log.find(1)->revision(), 1U);
  label_.printText("b", 24);
  ticket_.finishJob();
  EXPECT_EQ(log.changes(), 3U);
  EXPECT_EQ(log.find(1)->revision(), 3U);
  EXPECT_EQ(log.find(2)->revision(), 2U);
  Items told;
  log.listen([&](const Job& job) { told.push_back(describe(job)); });
  ticket_.tearOff();
  EXPECT_EQ(log.find(1)->revision(), 4U);
  EXPECT_EQ(told, Items{});
}

TEST_F(JobLogTest, FindsItsJobs) {
  ticket_.printText("a", 24);
  ASSERT_NE(printers_.jobs().find(1), nullptr);
  EXPECT_EQ(printers_.jobs().find(1)->number(), 1);
  for (const int number : {-1, 0, 2}) EXPECT_EQ(printers_.jobs().find(number), nullptr) << number;
}

TEST_F(JobLogTest, ForgetsFinishedJobs) {
  JobLog& log = printers_.jobs();
  ticket_.printText("a", 24);
  ticket_.finishJob();
  label_.printText("b", 24);
  third_.printText("c", 24);
  third_.finishJob();
  const auto before = log.changes();
  log.clear();
  EXPECT_EQ(jobs(), 1U);
  EXPECT_EQ(log.jobs().front()->number(), 2);
  EXPECT_GT(log.changes(), before);
  EXPECT_EQ(log.nextNumber(), 4);
}

TEST_F(JobLogTest, BeginsAgain) {
  JobLog& log = printers_.jobs();
  ticket_.printText("a", 24);
  const auto before = log.changes();
  log.restart();
  EXPECT_EQ(jobs(), 0U);
  EXPECT_GT(log.changes(), before);
  EXPECT_EQ(log.nextNumber(), 1);
}

TEST_F(JobLogTest, AJobKnowsWhatBecameOfItsPaper) {
  const auto printOne = [this] {
    ticket_.printText("a", 24);
    ticket_.finishJob();
    return printers_.jobs().newest();
  };
  const auto first = printOne();
  EXPECT_EQ(first->end(), JobEnd::Open);
  EXPECT_FALSE(first->continues());
  const auto second = printOne();
  EXPECT_EQ(first->end(), JobEnd::Open);
  EXPECT_TRUE(second->continues());
  ticket_.cut(70);
  EXPECT_EQ(second->end(), JobEnd::Cut);
  const auto third = printOne();
  EXPECT_FALSE(third->continues());
  ticket_.tearOff();
  EXPECT_EQ(third->end(), JobEnd::Torn);
  ticket_.printText("b", 24);
  EXPECT_FALSE(ticket_.job()->continues());
  ticket_.tearOff();
  EXPECT_EQ(printers_.jobs().newest()->end(), JobEnd::Torn);
}

}  // namespace
}  // namespace tolvex::sim
