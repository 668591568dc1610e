// The processes that play what takes long, all at the same time.
#pragma once

#include <cstdio>
#include <memory>

#include "support/child_process.h"

namespace tolvex::test {

class Children {
 public:
  void start(const std::string& name, const std::vector<std::string>& arguments) {
    names_.push_back(name);
    running_.push_back(std::make_unique<ChildProcess>(ownProgram(), arguments));
  }
  bool endWell() {
    const auto limit = std::chrono::steady_clock::now() + kLongest;
    bool good = true;
    for (std::size_t i = 0; i < names_.size(); ++i) {
      bool well = false;
      if (!running_[i]->endsUntil(limit, well)) {
        std::printf("FAILED: %s has not ended\n", names_[i].c_str());
      } else if (!well) {
        std::printf("FAILED: %s\n", names_[i].c_str());
      }
      good = good && well;
    }
    return good;
  }

 private:
  static constexpr std::chrono::seconds kLongest{300};
  std::vector<std::string> names_;
  std::vector<std::unique_ptr<ChildProcess>> running_;
};

}  // namespace tolvex::test
