// What the tests of closing a print job stand on.
#pragma once

#include <string>

#include "printing/begin_print.h"
#include "printing/printing_test.h"

namespace tolvex {

constexpr int kOk = 240;
constexpr int kFailed = 255;

class BeginPrintTest : public PrintingTest {
 protected:
  // The job ends like this, after exactly these requests, with this last error and these records
  // behind the one of its beginning.
  void expectRun(int jobType, const std::string& name, int verdict, std::int32_t lastError,
                 const Texts& requests, const Texts& logged) {
    EXPECT_EQ(runPrintJob(client, jobType), verdict);
    EXPECT_EQ(client.getLastErrCode(), lastError);
    EXPECT_EQ(printing.requests, requests);
    EXPECT_TRUE(weighing.requests.empty());
    Texts expected = {"[T] L:612 M:DLL [printing_test][BeginPrint] " + name + " Begin"};
    expected.insert(expected.end(), logged.begin(), logged.end());
    EXPECT_EQ(log.records(), expected);
  }
};

}  // namespace tolvex
