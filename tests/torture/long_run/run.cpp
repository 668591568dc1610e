#include "run.h"

#include <chrono>
#include <cstdio>
#include <exception>

#include "support/os_support.h"

namespace tolvex::test {
namespace {

constexpr double kMillion = 1e6;
constexpr double kAllowedRise = 65536;

std::string kibibytes(double bytes) { return std::to_string(static_cast<long>(bytes / 1024)); }

std::uint64_t seedOfNow() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(now.count()) / 1000 % 1000000000;
}

}  // namespace

void mustHold(bool condition, const std::string& what) {
  if (!condition) throw Broken(what);
}

std::string Options::text(const std::string& name, const std::string& otherwise) const {
  for (std::size_t i = 0; i + 1 < words_.size(); i += 2) {
    if (words_[i] == name) return words_[i + 1];
  }
  return otherwise;
}

std::uint64_t Options::number(const std::string& name, std::uint64_t otherwise) const {
  const std::string value = text(name, "");
  return value.empty() ? otherwise : std::stoull(value);
}

int runProof(int count, char** arguments,
             const std::function<std::string(const Options&, std::uint64_t)>& proof) {
  const Options options(count, arguments);
  const std::uint64_t seed = options.number("--seed", seedOfNow());
  std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
  std::fflush(stdout);
  try {
    const std::string figure = proof(options, seed);
    std::printf("FIGURE: %s\n", figure.c_str());
    return 0;
  } catch (const std::exception& broken) {
    std::printf("BROKEN: %s\nTo see it again: the same command with --seed %llu\n", broken.what(),
                static_cast<unsigned long long>(seed));
    return 1;
  }
}

unsigned Dice::below(unsigned below) {
  state_ += 0x9E3779B97F4A7C15;
  std::uint64_t mixed = state_;
  mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9;
  mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
  return static_cast<unsigned>((mixed ^ mixed >> 31) % below);
}

void Growth::note(std::uint64_t exchanges) {
  const MemoryUse memory = memoryUse();
  points_.push_back({exchanges, handleCount(), memory.heap, memory.resident});
}

double Growth::risePerMillion(std::size_t Point::*what) const {
  double count = 0, sumX = 0, sumY = 0, sumXX = 0, sumXY = 0;
  for (std::size_t i = points_.size() / 10; i < points_.size(); ++i) {
    const auto x = static_cast<double>(points_[i].exchanges) / kMillion;
    const auto y = static_cast<double>(points_[i].*what);
    ++count, sumX += x, sumY += y, sumXX += x * x, sumXY += x * y;
  }
  const double slope = (count * sumXY - sumX * sumY) / (count * sumXX - sumX * sumX);
  const double length = static_cast<double>(points_.back().exchanges) / kMillion;
  return length < 1 ? slope * length : slope;
}

std::string Growth::check() const {
  mustHold(points_.size() > 2, "too few exchanges to tell whether anything grows");
  for (const Point& point : points_) {
    mustHold(point.handles >= points_.front().handles &&
                 point.handles <= points_.front().handles + kHandlesOfLocks,
             std::to_string(points_.front().handles) + " handles at first, " +
                 std::to_string(point.handles) + " after " + std::to_string(point.exchanges) +
                 " exchanges");
  }
  const double heap = risePerMillion(&Point::heap);
  const double resident = risePerMillion(&Point::resident);
  const std::string figure = "handles " + std::to_string(points_.front().handles) + " -> " +
                             std::to_string(points_.back().handles) + ", heap " + kibibytes(heap) +
                             " KiB, memory " + kibibytes(resident) + " KiB";
  mustHold(heap < kAllowedRise && resident < kAllowedRise, "it grows: " + figure);
  return figure;
}

}  // namespace tolvex::test
