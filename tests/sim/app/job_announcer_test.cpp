#include "app/job_announcer.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

class JobAnnouncerTest : public ::testing::Test {
 protected:
  // A line of 30 dots.
  static Job job(int number, const std::string& printer = "Ticket") {
    Job job(number, printer, {640, 576});
    job.add({TextItem{"x", 24, 0}});
    return job;
  }

  JobAnnouncer announcer_;
};

TEST_F(JobAnnouncerTest, TellsThePrinterAndTheLengthRoundedUp) {
  Job finished = job(7);
  finished.finish();
  EXPECT_EQ(announcer_.announce(finished), "job 7 on Ticket, 4 mm");
}

TEST_F(JobAnnouncerTest, TellsWhatHasChangedAJob) {
  Job changing = job(1);
  changing.finish();
  EXPECT_EQ(announcer_.announce(changing), "job 1 on Ticket, 4 mm");
  changing.add({FeedItem{104}});
  EXPECT_EQ(announcer_.announce(changing), "job 1 on Ticket, 17 mm, fed");
  changing.cut(70);
  EXPECT_EQ(announcer_.announce(changing), "job 1 on Ticket, 17 mm, cut");
}

TEST_F(JobAnnouncerTest, AFeedBeforeTheEndIsNoChange) {
  Job fed = job(1);
  fed.add({FeedItem{104}});
  fed.finish();
  EXPECT_EQ(announcer_.announce(fed), "job 1 on Ticket, 17 mm");
}

TEST_F(JobAnnouncerTest, AJobThatACutFinishesIsCutFromTheStart) {
  Job cut = job(1);
  cut.cut(70);
  EXPECT_EQ(announcer_.announce(cut), "job 1 on Ticket, 4 mm, cut");
}

TEST_F(JobAnnouncerTest, AJobThatBeginsIsNewWhateverItsNumber) {
  Job before = job(1);
  before.finish();
  announcer_.announce(before);
  Job again = job(1);
  announcer_.printing(again);
  again.finish();
  EXPECT_EQ(announcer_.announce(again), "job 1 on Ticket, 4 mm");
}

TEST_F(JobAnnouncerTest, KnowsTheJobsOfEveryPrinter) {
  Job ticket = job(1);
  ticket.finish();
  Job label = job(2, "Label");
  label.finish();
  EXPECT_EQ(announcer_.announce(ticket), "job 1 on Ticket, 4 mm");
  EXPECT_EQ(announcer_.announce(label), "job 2 on Label, 4 mm");
  ticket.add({FeedItem{8}});
  EXPECT_EQ(announcer_.announce(ticket), "job 1 on Ticket, 5 mm, fed");
  Job next = job(3);
  next.finish();
  EXPECT_EQ(announcer_.announce(next), "job 3 on Ticket, 4 mm");
}

}  // namespace
}  // namespace tolvex::sim
