// What the long proofs have in common: their options, how they fail, and how they end.
#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace tolvex::test {

// A promise that did not hold, and where.
struct Broken : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Fails the run unless the condition holds.
void mustHold(bool condition, const std::string& what);

// "--name value" pairs of the command line.
class Options {
 public:
  Options(int count, char** arguments) : words_(arguments + 1, arguments + count) {}

  std::uint64_t number(const std::string& name, std::uint64_t otherwise) const;
  std::string text(const std::string& name, const std::string& otherwise) const;

 private:
  std::vector<std::string> words_;
};

// Runs a proof, which returns its figure, with the seed of "--seed" or one of its own. Returns the
// exit status. The last line that it prints is the figure, or tells how to see the failure again.
int runProof(int count, char** arguments,
             const std::function<std::string(const Options& options, std::uint64_t seed)>& proof);

// A sequence of numbers that looks random and is the same for each seed on every system.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}
  // 0 to below - 1.
  unsigned below(unsigned below);
  // True once in so many times.
  bool onceIn(unsigned times) { return below(times) == 0; }

 private:
  std::uint64_t state_;
};

// Handles and memory of this process over a long run.
class Growth {
 public:
  // Counts what there is now, after so many exchanges.
  void note(std::uint64_t exchanges);

  // Fails the run unless the handles were the same at each point (see kHandlesOfLocks), and heap and resident memory rise
  // by less than 64 KiB in a million exchanges (or in the whole of a shorter run): the slope of the
  // straight line that lies best, without the first points of a tenth of the run.
  // Returns the figures as text.
  std::string check() const;

 private:
  struct Point {
    std::uint64_t exchanges;
    std::size_t handles, heap, resident;
  };
  double risePerMillion(std::size_t Point::*what) const;

  std::vector<Point> points_;
};

}  // namespace tolvex::test
