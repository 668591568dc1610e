// Standard output without the library's part in it.
#pragma once

#include <string>

namespace bench {

// The log of the library tells on standard output which file it opened. From the making of this
// object on that leads nowhere, and what the program has to say goes where it led before.
class OwnOutput {
 public:
  OwnOutput();  // throws std::runtime_error
  ~OwnOutput();
  OwnOutput(const OwnOutput&) = delete;
  OwnOutput& operator=(const OwnOutput&) = delete;

  void tell(const std::string& text) const;  // throws std::runtime_error

 private:
  int output_;
};

}  // namespace bench
