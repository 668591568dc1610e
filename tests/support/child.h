// A program that a test runs.
#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tolvex::test {

/// Variables that a program gets beside those of the test; nothing: it does not get this one.
using Environment = std::map<std::string, std::optional<std::string>>;

/// What a program left behind.
struct Finished {
  int exitCode = -1;
  std::string out;
  std::string err;
};

/// A running program. Its output is collected while it runs; line ends are LF on every system.
class Child {
 public:
  /// Starts the program: its path and its arguments, all in UTF-8. Throws std::runtime_error when it
  /// does not start.
  explicit Child(const std::vector<std::string>& command, const Environment& environment = {});
  /// Ends the program if it still runs.
  ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  /// Writes to its standard input.
  void write(const std::string& text);
  void closeInput();

  /// Waits for the next line of its standard output that has not been read yet, without its line
  /// end. Nothing when the output ends before, or after 60 seconds.
  std::optional<std::string> readLine();

  /// Waits until it has closed its output, as at its end; false when the time is over before.
  bool endsUntil(std::chrono::steady_clock::time_point limit);

  /// Ends it at once.
  void kill();

  /// Closes its standard input and waits for its end.
  Finished finish();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

/// Runs a program to its end, with this text as its standard input.
Finished run(const std::vector<std::string>& command, const std::string& input = "",
             const Environment& environment = {});

}  // namespace tolvex::test
