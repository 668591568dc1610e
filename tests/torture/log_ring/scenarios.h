// What is done to the ring, and what must hold then. Each adds to the figures.
#pragma once

#include <cstdint>
#include <string>

#include "torture/log_ring/ring_reader.h"

namespace tolvex::test {

struct RingFigures {
  std::uint64_t bytes = 0;
  std::uint64_t lines = 0;
  unsigned kills = 0;
  std::uint64_t torn = 0;
  std::uint64_t joined = 0;
  std::uint64_t largest = 0;

  void add(const RingReader& reader);
};

// Each takes the log's folder, which it empties, and throws std::runtime_error with what was not as
// promised. The ring is filled with more than one file's worth.
void fillFromNearTheLimit(const std::string& folder, RingFigures& figures);
void fill(const std::string& folder, std::uint64_t bytes, RingFigures& figures);
void fillByTwo(const std::string& folder, std::uint64_t bytes, RingFigures& figures);
void deleteAndRestoreFolder(const std::string& folder, RingFigures& figures);
void makeReadOnlyAndRestore(const std::string& folder, RingFigures& figures);
// In a process of its own, for which the parent of the folder becomes a disk of its own: it runs full
// while calls are made, and then there is room again. Returns what there is to say of it.
std::string fillDisk(const std::string& parent);
// Kills at moments that the seed gives; every fourth time beside another writer that goes on.
void killWriters(const std::string& folder, unsigned kills, unsigned seed, RingFigures& figures);

}  // namespace tolvex::test
