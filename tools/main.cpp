// tolvexctl: scale, printers and cash drawer by hand, and what is wrong with them.
#include <exception>
#include <iostream>

#include "app/program.h"
#include "platform/process.h"

int main(int argc, char** argv) {
  try {
    return static_cast<int>(tolvex::ctl::runProgram(tolvex::ctl::platform::arguments(argc, argv)));
  } catch (const std::exception& error) {
    std::cerr << "tolvexctl: " << error.what() << std::endl;
    return 1;
  }
}
