// tolvexctl: scale, printers and cash drawer by hand, and what is wrong with them.
#include "app/program.h"
#include "platform/process.h"

int main(int argc, char** argv) {
  return static_cast<int>(tolvex::ctl::runProgram(tolvex::ctl::platform::arguments(argc, argv)));
}
