// The exports without a device.
#include "support/library_test.h"

namespace tolvex::test {
namespace {

struct Stub {
  const char* name;
  int (*function)();
  int (*twin)();
  int result;
};

#define STUB(name, result) \
  Stub { #name, name, name##_stdcall, result }

const Stub kStubs[] = {
    STUB(ClosePrinterEx, 240),
    STUB(DisplayUpdate, 240),
    STUB(OpenDisplay, 240),
    STUB(OpenPrinter, 240),
    STUB(SetDataRows, 240),
    STUB(SetHeaderReserveRows, 240),
    STUB(SetInvoiceParameter, 240),
    STUB(SetPrintContrast, 240),
    STUB(SetPrintOffset, 240),
    STUB(SetPrintSpeed, 240),
    STUB(SetRealPrintHeaderWidth, 240),
    STUB(SetScaleType, 240),
    STUB(SetTakeLabelSensor, 240),
    STUB(SetTakeupMotorDirection, 240),
    STUB(SetUSBPrinterDirection, 240),
    STUB(SetUnitPrice, 240),
    STUB(ShowBalance, 240),
    STUB(ShowDisplayText, 240),
    STUB(ShowOrHideForm, 240),
    STUB(ShowProduct, 240),
    STUB(switch_resolution, 240),
    STUB(PrintLabelImage, 255),
    STUB(Version, 240),
    STUB(DisplayText, 240),
    STUB(IncreaseResolution, 240),
    STUB(SetClientName, 240),
};

using Stubs = ServiceTest;

TEST_F(Stubs, ReturnTheirFixedResultUnderBothNames) {
  EXPECT_EQ(std::size(kStubs), 26U);
  for (const Stub& stub : kStubs) {
    EXPECT_EQ(host.call(stub.function), stub.result) << stub.name;
    EXPECT_EQ(host.call(stub.twin), stub.result) << stub.name << "_stdcall";
  }
}

// Applications pass what the fuller interface takes.
TEST_F(Stubs, ReturnTheirFixedResultWhateverTheArguments) {
  using WithArguments = int (*)(const char*, unsigned, int, char*);
  const auto withArguments = [](int (*stub)()) {
    return reinterpret_cast<WithArguments>(reinterpret_cast<void (*)()>(stub));
  };
  for (const Stub& stub : kStubs) {
    CallerBuffer<8> buffer;
    char* const out = buffer;
    EXPECT_EQ(withArguments(stub.function)("text", 7U, -1, out), stub.result) << stub.name;
    EXPECT_EQ(withArguments(stub.twin)(nullptr, 0U, 0, out), stub.result) << stub.name;
    EXPECT_TRUE(buffer.isUntouched()) << stub.name;
  }
}

TEST_F(Stubs, CreateNoContextConnectionOrLog) {
  ::testing::internal::CaptureStderr();
  for (const Stub& stub : kStubs) {
    EXPECT_EQ(host.call(stub.function), stub.result) << stub.name;
    EXPECT_EQ(host.call(stub.twin), stub.result) << stub.name << "_stdcall";
  }
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(service.weighing().connections(), 0U);
  EXPECT_EQ(service.printing().connections(), 0U);
  EXPECT_TRUE(std::filesystem::is_empty(host.logFolder()));
  EXPECT_TRUE(std::filesystem::is_empty(host.defaultLogFolder()));
}

TEST_F(Stubs, LeaveTheLastErrorAndTheQueuedJobAlone) {
  service.answers(R"({"result":"1003"})");
  WeightBuffer record;
  EXPECT_EQ(host.call(read_standard, record), TOLVEX_UNDER_LOAD);
  EXPECT_EQ(host.call(PrintText, "Milch", 24U), 240);
  for (const Stub& stub : kStubs) host.call(stub.function);
  EXPECT_EQ(host.call(getLastErrCode), 1003);
  EXPECT_TRUE(service.printing().requests().empty());
  service.printing().alwaysAnswers(R"({"result":"0"})");
  EXPECT_EQ(host.call(BeginPrint, 0), 240);
  EXPECT_EQ(service.printing().requests().size(), 2U);
}

}  // namespace
}  // namespace tolvex::test
