// The program's own ends of standard output and standard error.
#pragma once

#include <cstddef>
#include <string>

namespace tolvex::ctl {

/// Where results and diagnostics go. Texts are UTF-8.
class Streams {
 public:
  virtual ~Streams() = default;

  /// Writes a result. Returns whether all of it could be written.
  virtual bool output(const std::string& text) = 0;
  /// Writes a diagnostic. A failure has nowhere to be told.
  virtual void error(const std::string& text) = 0;

  /// Whether results go to a terminal that understands colours.
  virtual bool outputIsTerminal() = 0;

  /// What libraries wrote to the process's standard output and standard error since the program
  /// began, from an offset in bytes on, at most 64 KiB. Lines end in LF.
  virtual std::string captured(std::size_t offset) = 0;
};

namespace platform {

/// Keeps standard output and standard error for the program alone, and points what everything else
/// in the process takes for them to a file that is gone when the process ends. To be called first
/// of all; later calls give the same object. Where no such file can be made, what is written there
/// is lost.
Streams& standardStreams();

/// Reads standard input to its end, as bytes. Stops when there are more than `most` bytes: a result
/// longer than that means that there is more.
std::string readStandardInput(std::size_t most);

}  // namespace platform
}  // namespace tolvex::ctl
