#include "devices/job_file_name.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

const std::vector<std::string> kPrinters = {"Label", "Ticket"};

TEST(JobFileName, HasTheNumberAndThePrinter) {
  EXPECT_EQ(jobFileName(1, "Ticket"), "job-0001-Ticket");
  EXPECT_EQ(jobFileName(9999, "Label"), "job-9999-Label");
  EXPECT_EQ(jobFileName(10000, "Label"), "job-10000-Label");
}

TEST(JobFileName, IsRecognised) {
  for (const char* name : {"job-0001-Ticket.svg", "job-0001-Ticket.txt", "job-0010-Label.svg",
                           "job-9999-Label.txt", "job-12345-Ticket.svg"}) {
    EXPECT_TRUE(isJobFile(name, kPrinters)) << name;
  }
}

TEST(JobFileName, IsNotTakenForAnother) {
  for (const char* name : {"",
                           "job-",
                           "job-0001",
                           "job--Ticket.svg",
                           "job-0000-Ticket.svg",
                           "job-1-Ticket.svg",
                           "job-001-Ticket.svg",
                           "job-00001-Ticket.svg",
                           "job-000x-Ticket.svg",
                           "job--001-Ticket.svg",
                           "job-99999999999-Ticket.svg",
                           "job-0001-Third.svg",
                           "job-0001-ticket.svg",
                           "job-0001-Ticket.png",
                           "job-0001-Ticket",
                           "job-0001-Ticket.svg.tmp",
                           "job-0001-Ticket.svg~",
                           "job-0001-Ticket-2.svg",
                           "Job-0001-Ticket.svg",
                           "my-job-0001-Ticket.svg",
                           "jot-0001-Ticket.svg",
                           "0001-Ticket.svg",
                           "logo.svg"}) {
    EXPECT_FALSE(isJobFile(name, kPrinters)) << name;
  }
}

}  // namespace
}  // namespace tolvex::sim
