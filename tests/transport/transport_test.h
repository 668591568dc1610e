// A client, and the log that it writes.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "log/nlog.h"
#include "support/log_lines.h"
#include "support/temporary_folder.h"
#include "transport/tcp_client.h"

namespace tolvex::test {

class TransportTest : public testing::Test {
 protected:
  TransportTest() {
    writeBytes(folder_.file("NLog.ini"), "");
    NLog::GetInstance("DLL", folder_.path().c_str());
  }

  // The records so far, without their times.
  Lines logged() const {
    const std::string path = folder_.file("DLL_0.log");
    return exists(path) ? recordsOf(path) : Lines();
  }
  static std::string error(int number) {
    return "[W] L:108 M:Socket Error: " + std::to_string(number);
  }
  static int send(CTcpClient& client, const std::string& data) {
    return client.Send(data.data(), static_cast<unsigned>(data.size()));
  }

  const TemporaryFolder folder_;
};

}  // namespace tolvex::test
