// tolvexctl: scale, printers and cash drawer by hand, and what is wrong with them.
#include <exception>

#include "app/program.h"
#include "platform/process.h"
#include "platform/streams.h"

int main(int argc, char** argv) {
  using namespace tolvex::ctl;
  try {
    return static_cast<int>(runProgram(platform::arguments(argc, argv)));
  } catch (const std::exception& error) {
    platform::standardStreams().error(std::string("tolvexctl: ") + error.what() + "\n");
    return static_cast<int>(ExitCode::Failed);
  }
}
