// Fills, tears and takes away the log of the library, and holds what it finds against what docs/log.md
// promises.
//
// usage: log_ring_torture [--mib N] [--kills N] [--seed N]
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>

#include "support/os_support.h"
#include "support/temporary_folder.h"
#include "torture/log_ring/scenarios.h"
#include "torture/log_ring/writer.h"

namespace {

using namespace tolvex::test;

constexpr std::uint64_t kMebibyte = 1048576;

struct Options {
  unsigned mib = 11;
  unsigned kills = 30;
  unsigned seed = std::random_device()();
  unsigned writer = 0;
  bool isOrdinaryUser = false;
  std::string fullDisk;  // the folder for it
};

Options read(int count, char** words) {
  Options options;
  for (int i = 1; i < count; ++i) {
    const std::string word = words[i];
    if (word == "--ordinary-user") {
      options.isOrdinaryUser = true;
      continue;
    }
    if (word == "--full-disk" && i + 1 < count) {
      options.fullDisk = words[++i];
      continue;
    }
    const auto number =
        static_cast<unsigned>(std::strtoul(i + 1 < count ? words[++i] : "", nullptr, 10));
    if (word == "--mib") options.mib = number;
    if (word == "--kills") options.kills = number;
    if (word == "--seed") options.seed = number;
    if (word == "--writer") options.writer = number;
  }
  return options;
}

// Any user may write in the log's folder.
std::string openFolder(const std::string& parent) {
  std::string folder = emptyLibraryFolder(parent);
  std::filesystem::permissions(folder, std::filesystem::perms::all);
  return folder;
}

// Its own process plays it, as a disk is made for a process and those that it starts.
std::string playFullDisk() {
  const TemporaryFolder parent;
  const Finished finished = run({Writer::program, "--full-disk", parent.path()});
  if (finished.exitCode != 0) throw std::runtime_error(finished.out + finished.err);
  return finished.out;
}

int runFullDisk(const std::string& parent) {
  try {
    std::printf("%s", fillDisk(parent).c_str());
    return 0;
  } catch (const std::exception& problem) {
    std::printf("%s", problem.what());
    return 1;
  }
}

int runAll(const Options& options) {
  std::printf("seed %u\n", options.seed);
  const TemporaryFolder parent;
  const std::string folder = openFolder(parent.path());
  RingFigures figures;
  std::string disk;
  const std::uint64_t bytes = options.mib * kMebibyte;
  const struct {
    const char* what;
    std::function<void()> run;
  } scenarios[] = {
      {"records around the limit", [&] { fillFromNearTheLimit(folder, figures); }},
      {"one process", [&] { fill(folder, bytes, figures); }},
      {"two processes", [&] { fillByTwo(folder, bytes, figures); }},
      {"the folder deleted and restored", [&] { deleteAndRestoreFolder(folder, figures); }},
      {"files that may only be read", [&] { makeReadOnlyAndRestore(folder, figures); }},
      {"a full disk", [&] { disk = playFullDisk(); }},
      {"killed writers", [&] { killWriters(folder, options.kills, options.seed, figures); }}};
  for (const auto& scenario : scenarios) {
    try {
      std::printf("%s\n", scenario.what);
      std::fflush(stdout);
      scenario.run();
    } catch (const std::exception& problem) {
      std::printf("BROKEN, %s: %s\nrepeat it: log_ring_torture --mib %u --kills %u --seed %u\n",
                  scenario.what, problem.what(), options.mib, options.kills, options.seed);
      return 1;
    }
  }
  std::printf(
      "FIGURE: %llu MiB and %u kills, %llu lines checked: %llu incomplete, %llu of them joined by "
      "another process; largest file %llu bytes; %s\n",
      static_cast<unsigned long long>(figures.bytes / kMebibyte), figures.kills,
      static_cast<unsigned long long>(figures.lines), static_cast<unsigned long long>(figures.torn),
      static_cast<unsigned long long>(figures.joined),
      static_cast<unsigned long long>(figures.largest), disk.c_str());
  return 0;
}

}  // namespace

int main(int count, char** words) {
  Writer::program = words[0];
  const Options options = read(count, words);
  if (!options.fullDisk.empty()) return runFullDisk(options.fullDisk);
  if (options.writer != 0) return writeAsTold(options.writer, options.isOrdinaryUser);
  return runAll(options);
}
