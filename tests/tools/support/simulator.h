// zelkad-sim beside a test, at an address that belongs to the test's process.
#pragma once

#include <string>
#include <vector>

#include "support/child.h"

namespace tolvex::test {

/// An address of the loopback range for this process alone.
std::string ownAddress();

class Simulator {
 public:
  /// Starts it without its page, settled at once, and waits until it listens. Further options go
  /// behind these. Throws std::runtime_error when it does not come up.
  explicit Simulator(const std::vector<std::string>& options = {});
  /// Ends it.
  ~Simulator();

  const std::string& address() const { return address_; }

  /// Types a line at its console and gives the answer ("ok ..."). An answer that is no "ok" fails
  /// the test.
  std::string type(const std::string& line);

  /// The lines of text on the newest paper of a printer, the cut as a line of dashes.
  std::vector<std::string> paper(const std::string& printer);

 private:
  std::string address_;
  Child child_;
};

}  // namespace tolvex::test
