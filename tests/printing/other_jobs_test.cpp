// The job types that leave the queue alone: calibrations, and those that do nothing.
#include <ostream>

#include "printing/begin_print_test.h"

namespace tolvex {
namespace {

struct Calibration {
  int number;
  const char* name;
  const char* request;
};

void PrintTo(const Calibration& type, std::ostream* out) { *out << type.number; }

const Calibration kCalibrations[] = {
    {80, "80_CALIB_LBL", R"({"cmd":"calibrateLabelGap","printerType":"0"})"},
    {90, "90", R"({"cmd":"calibrateLabelGap","printerType":"0"})"},
    {81, "81_CALIB_TKT", R"({"cmd":"calibrateOutOfPaper","printerType":"1"})"},
    {91, "91", R"({"cmd":"calibrateOutOfPaper","printerType":"1"})"},
};

const Records kQueued = {{PrintJobKind::kText, 24, 0, "a"}, {PrintJobKind::kText, 24, 0, "b"}};

class CalibrationJob : public BeginPrintTest, public ::testing::WithParamInterface<Calibration> {
 protected:
  void expectJob(int verdict, std::int32_t lastError, const std::string& logged) {
    expectRun(GetParam().number, GetParam().name, verdict, lastError, {GetParam().request},
              {logged});
  }

  static std::string done() {
    return std::string("[T] L:714 M:DLL [printing_test][BeginPrint] ") + GetParam().name + " OK";
  }
  static std::string failed() {
    return std::string("[W] L:711 M:DLL [printing_test][BeginPrint] ") + GetParam().name +
           " Err, ret:0xff";
  }
};

TEST_P(CalibrationJob, CalibratesWithAnEmptyQueue) {
  expectJob(240, 0, done());
  EXPECT_TRUE(client.printJob().isEmpty());
}

TEST_P(CalibrationJob, LeavesTheQueueAlone) {
  queueLine("a");
  queueLine("b");
  expectJob(240, 0, done());
  EXPECT_FALSE(client.printJob().isEmpty());
  EXPECT_EQ(queued(), kQueued);
}

TEST_P(CalibrationJob, FailsWithItsCommand) {
  queueLine("a");
  queueLine("b");
  answerWith({"2008"});
  expectJob(255, 2008, failed());
  EXPECT_EQ(queued(), kQueued);
}

TEST_P(CalibrationJob, FailsWithAnUnreadableReply) {
  printing.reply = R"({"result":0})";
  expectJob(255, -1, failed());
}

TEST_P(CalibrationJob, LeavesItsQueueToTheNextJob) {
  queueLine("a");
  runPrintJob(client, GetParam().number);
  printing.requests.clear();
  EXPECT_EQ(runPrintJob(client, 0), kOk);
  EXPECT_EQ(printing.requests, (Texts{lineRequest("a", 1), beginPrintRequest(1)}));
}

INSTANTIATE_TEST_SUITE_P(Of, CalibrationJob, ::testing::ValuesIn(kCalibrations),
                         [](const auto& type) { return std::to_string(type.param.number); });

class IdleJob : public BeginPrintTest, public ::testing::WithParamInterface<int> {
 protected:
  void expectIdle() {
    const std::string name = std::to_string(GetParam());
    expectRun(GetParam(), name, kOk, 77, {},
              {"[T] L:700 M:DLL [printing_test][BeginPrint] " + name + " OK"});
  }
};

TEST_P(IdleJob, SendsNothing) {
  expectIdle();
  EXPECT_TRUE(client.printJob().isEmpty());
}

TEST_P(IdleJob, LeavesTheQueueAlone) {
  queueLine("a");
  queueLine("b");
  expectIdle();
  EXPECT_FALSE(client.printJob().isEmpty());
  EXPECT_EQ(queued(), kQueued);
}

TEST_P(IdleJob, NeedsNoConnection) {
  VcoClientApi none(nullptr, nullptr);
  EXPECT_EQ(runPrintJob(none, GetParam()), kOk);
  EXPECT_EQ(none.getLastErrCode(), 0);
}

INSTANTIATE_TEST_SUITE_P(Of, IdleJob, ::testing::Values(6, 106, 209, 306),
                         [](const auto& type) { return std::to_string(type.param); });

}  // namespace
}  // namespace tolvex
