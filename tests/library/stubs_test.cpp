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

TEST_F(Stubs, CreateNoContextConnectionOrLog) {
  ::testing::internal::CaptureStderr();
  for (const Stub& stub : kStubs) host.call(stub.function);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(service.weighing().connections(), 0U);
  EXPECT_EQ(service.printing().connections(), 0U);
  EXPECT_TRUE(std::filesystem::is_empty(host.logFolder()));
  EXPECT_TRUE(std::filesystem::is_empty(host.defaultLogFolder()));
}

TEST_F(Stubs, LeaveTheLastErrorAlone) {
  service.answers(R"({"result":"1003"})");
  WeightBuffer record;
  EXPECT_EQ(host.call(read_standard, record), TOLVEX_UNDER_LOAD);
  for (const Stub& stub : kStubs) host.call(stub.function);
  EXPECT_EQ(host.call(getLastErrCode), 1003);
}

}  // namespace
}  // namespace tolvex::test
