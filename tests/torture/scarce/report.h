// What a run says: on the standard output that the program was started with, which the library's own
// messages do not reach.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>

namespace tolvex::test {

class Report {
 public:
  // Keeps standard output for itself and sends that of the library to the file.
  void keepOutput(const std::string& libraryOutput);

  // Where the run is; told with what is found there.
  void at(std::string place) { place_ = std::move(place); }
  // Tells what is wrong; nothing where the text is empty.
  void found(const std::string& problem);
  std::size_t problems() const { return problems_; }
  void say(const std::string& line);

  // The last line. Returns the exit code.
  int end(const std::string& figure);

 private:
  std::FILE* out_ = stdout;
  std::string place_;
  std::size_t problems_ = 0;
};

Report& report();

}  // namespace tolvex::test
