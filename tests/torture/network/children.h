// The processes that play what takes long, all at the same time.
#pragma once

#include <chrono>
#include <cstdio>
#include <memory>

#include "support/child.h"

namespace tolvex::test {

class Children {
 public:
  // Each runs this program, with arguments of its own.
  explicit Children(std::string program) : program_(std::move(program)) {}

  void start(const std::string& name, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), program_);
    names_.push_back(name);
    running_.push_back(std::make_unique<Child>(arguments));
  }

  // Waits for all and shows what they wrote. Whether each has ended, and well.
  bool endWell() {
    const auto limit = std::chrono::steady_clock::now() + kLongest;
    bool good = true;
    for (std::size_t i = 0; i < names_.size(); ++i) {
      const bool hasEnded = running_[i]->endsUntil(limit);
      if (!hasEnded) running_[i]->kill();
      const Finished finished = running_[i]->finish();
      std::printf("%s%s", finished.out.c_str(), finished.err.c_str());
      if (!hasEnded || finished.exitCode != 0) {
        std::printf("FAILED: %s%s\n", names_[i].c_str(), hasEnded ? "" : " has not ended");
        good = false;
      }
    }
    return good;
  }

 private:
  static constexpr std::chrono::seconds kLongest{300};
  std::string program_;
  std::vector<std::string> names_;
  std::vector<std::unique_ptr<Child>> running_;
};

}  // namespace tolvex::test
