// A file size limit of the process stands in for a full disk.
#include <sys/resource.h>

#include <csignal>

#include "log/logger_test.h"

namespace tolvex {
namespace {

using test::Lines;

class FileSizeLimit : public test::LoggerTest {
 protected:
  FileSizeLimit() {
    std::signal(SIGXFSZ, SIG_IGN);  // a write beyond the limit fails instead
    open();
    log("first");
  }
  ~FileSizeLimit() override { allow(RLIM_INFINITY); }

  static void allow(rlim_t bytes) {
    rlimit limit = {};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  rlim_t size() const { return test::sizeOf(file(0)); }
};

TEST_F(FileSizeLimit, LosesARecordAndGoesOnAfterwards) {
  allow(size());
  log("second");
  allow(RLIM_INFINITY);
  log("third");
  EXPECT_EQ(lines(), (Lines{record("first"), record("third")}));
}

TEST_F(FileSizeLimit, EndsATornRecordBeforeTheNext) {
  allow(size() + 30);
  log("second");
  log("third");
  allow(RLIM_INFINITY);
  log("fourth");
  EXPECT_EQ(lines(), (Lines{record("first"), record("second").substr(0, 30), record("fourth")}));
}

TEST_F(FileSizeLimit, PrintsNothing) {
  allow(size());
  const std::string printed = printedBy([] {
    log("second");
    allow(RLIM_INFINITY);  // before the captured text is written to its own file
  });
  EXPECT_EQ(printed, "");
}

TEST_F(FileSizeLimit, StillShowsTheRecordToTheDebugger) {
  allow(size());
  log("second");
  EXPECT_EQ(test::debuggerTexts, (Lines{record("first"), record("second")}));
}

}  // namespace
}  // namespace tolvex
