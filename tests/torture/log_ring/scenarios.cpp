#include "torture/log_ring/scenarios.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <list>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>

#include "support/os_support.h"
#include "support/temporary_folder.h"
#include "torture/log_ring/sample_calls.h"
#include "torture/log_ring/writer.h"

namespace tolvex::test {
namespace {

namespace fs = std::filesystem;

constexpr unsigned kCallsAtOnce = 2000;  // about 1.5 MiB

// A process goes past the limit by one line of its own, and by what it does not see of others'.
std::uint64_t boundFor(unsigned processes) {
  return kFullFile + (processes == 1 ? 0 : processes * kLookedUpEach) + processes * kLongestLine;
}

std::string fileOf(const std::string& folder, unsigned index) {
  return folder + "DLL_" + std::to_string(index) + ".log";
}

void emptyFolder(const std::string& folder) {
  for (const auto& entry : fs::directory_iterator(fs::u8path(folder))) fs::remove_all(entry);
}

// Where there is less to write than the ring takes, its first nine files are full already.
void prepareToFill(const std::string& folder, std::uint64_t bytes) {
  emptyFolder(folder);
  if (bytes > (kFilesOfTheRing + 1) * kFullFile) return;
  for (unsigned i = 0; i + 1 < kFilesOfTheRing; ++i)
    makeFileOfSize(fileOf(folder, i), kFullFile + 1);
}

// Ends a scenario.
void conclude(const RingReader& reader, RingFigures& figures) {
  figures.add(reader);
  if (reader.problems().empty()) return;
  std::string text;
  for (const std::string& problem : reader.problems()) text += "\n  " + problem;
  throw std::runtime_error(text);
}

std::uint64_t sizeIfThere(const std::string& path) { return exists(path) ? sizeOf(path) : 0; }

void spendMicroseconds(unsigned count) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::microseconds(count);
  while (std::chrono::steady_clock::now() < end) {
  }
}

}  // namespace

void RingFigures::add(const RingReader& reader) {
  lines += reader.lines();
  torn += reader.torn();
  joined += reader.joined();
  largest = std::max(largest, reader.largest());
}

void fillFromNearTheLimit(const std::string& folder, RingFigures& figures) {
  emptyFolder(folder);
  RingReader reader(folder);
  auto probe = std::make_unique<Writer>();
  probe->make(1);
  const std::string bytes = readBytes(fileOf(folder, 0));
  const std::uint64_t ofTheStart = bytes.size() - probe->bytes();
  probe.reset();  // a file that is open cannot be deleted everywhere
  const std::uint64_t first = bytes.find('\n') + 1;
  const std::uint64_t second = bytes.find('\n', first) + 1 - first;
  const struct {
    std::uint64_t before, after;
  } cases[] = {{kFullFile + 1, kFullFile + 1},
               {kFullFile, kFullFile + first},
               {kFullFile - first + 1, kFullFile + 1},
               {kFullFile - first, kFullFile + second},
               {kFullFile - first - 1, kFullFile - 1 + second}};
  for (const auto& limit : cases) {
    emptyFolder(folder);
    makeFileOfSize(fileOf(folder, 0), limit.before);
    Writer writer;
    writer.make(1);
    figures.bytes += writer.bytes();
    reader.expect(sizeOf(fileOf(folder, 0)) == limit.after,
                  "a file of " + std::to_string(limit.before) + " bytes became one of " +
                      std::to_string(sizeOf(fileOf(folder, 0))));
    reader.expect(
        sizeIfThere(fileOf(folder, 1)) + limit.after - limit.before == ofTheStart + writer.bytes(),
        "records are missing behind a file of " + std::to_string(limit.before));
  }
  conclude(reader, figures);
}

void fill(const std::string& folder, std::uint64_t bytes, RingFigures& figures) {
  prepareToFill(folder, bytes);
  RingReader reader(folder);
  Writer writer;
  while (writer.bytes() < bytes) {
    writer.make(kCallsAtOnce);
    reader.checkSizes(boundFor(1));
  }
  reader.readOn();
  reader.expectSuffix(writer.number(), writer.calls());
  reader.expect(reader.torn() == 0, "lines are incomplete");
  figures.bytes += writer.bytes();
  conclude(reader, figures);
}

void fillByTwo(const std::string& folder, std::uint64_t bytes, RingFigures& figures) {
  prepareToFill(folder, bytes);
  RingReader reader(folder);
  Writer first;
  Writer second;
  while (first.bytes() + second.bytes() < bytes) {
    for (Writer* writer : {&first, &second}) writer->begin(kCallsAtOnce);
    for (Writer* writer : {&first, &second}) writer->finish();
    reader.checkSizes(boundFor(2));
  }
  if (appendsAreWhole()) {
    reader.readOn();
    for (const Writer* writer : {&first, &second}) {
      reader.expectSuffix(writer->number(), writer->calls());
    }
    reader.expect(reader.torn() == 0, "lines are incomplete");
  }
  figures.bytes += first.bytes() + second.bytes();
  conclude(reader, figures);
}

void deleteAndRestoreFolder(const std::string& folder, RingFigures& figures) {
  emptyFolder(folder);
  Writer writer;
  writer.make(100);
  std::error_code inUse;  // where files that are open can not be deleted
  fs::remove_all(fs::u8path(folder), inUse);
  writer.make(100);
  makeFolder(folder);
  // The library asks for its file ten times a second.
  const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!fs::exists(fs::u8path(fileOf(folder, 0))) && std::chrono::steady_clock::now() < limit) {
    writer.make(1);
  }
  writer.make(100);
  RingReader reader(folder);
  reader.readOn();
  reader.expect(reader.torn() == 0, "lines are incomplete");
  reader.expectSuffix(writer.number(), writer.calls());
  figures.bytes += writer.bytes();
  conclude(reader, figures);
}

void makeReadOnlyAndRestore(const std::string& folder, RingFigures& figures) {
  emptyFolder(folder);
  RingReader reader(folder);
  std::list<ReadOnlyFile> files;
  for (unsigned i = 0; i < kFilesOfTheRing; ++i) {
    writeBytes(fileOf(folder, i), "");
    files.emplace_back(fileOf(folder, i));
  }
  Writer writer(true);
  writer.make(100);
  for (unsigned i = 0; i < kFilesOfTheRing; ++i) {
    reader.expect(sizeOf(fileOf(folder, i)) == 0, "a file was written that may only be read");
  }
  files.clear();
  writer.make(100);
  reader.readOn();
  reader.expect(reader.torn() == 0, "lines are incomplete");
  reader.expectSuffix(writer.number(), writer.calls());
  figures.bytes += writer.bytes();
  conclude(reader, figures);
}

std::string fillDisk(const std::string& parent) {
  constexpr std::size_t kRoom = 1 << 20;
  constexpr unsigned kCalls = 300;  // about a quarter of that
  if (!makeDiskOfItsOwn(parent, kRoom))
    return "no full disk, which the system does not let us make";
  const std::string folder = emptyLibraryFolder(parent);
  const std::string filler = parent + "filler";
  RingReader reader(folder);
  Writer writer;
  writer.make(kCalls);
  const std::string page(4096, 'x');
  for (std::ofstream file(fs::u8path(filler), std::ios::binary); file << page << std::flush;) {
  }
  writer.make(kCalls);  // what is left of the log's last page takes some
  const std::uint64_t full = sizeOf(fileOf(folder, 0));
  writer.make(kCalls);
  reader.expect(sizeOf(fileOf(folder, 0)) == full, "the disk is not full");
  reader.readOn();
  reader.forgetCalls();
  fs::remove(fs::u8path(filler));
  writer.make(kCalls);
  reader.readOn();
  reader.expect(reader.torn() <= 1, "more than one line is incomplete");
  reader.expectSuffix(writer.number(), writer.calls(), kCalls);
  RingFigures figures;
  conclude(reader, figures);
  return std::to_string(2 * kCalls) + " calls on a full disk";
}

void killWriters(const std::string& folder, unsigned kills, unsigned seed, RingFigures& figures) {
  constexpr unsigned kLatestMicroseconds = 20000;
  emptyFolder(folder);
  std::minstd_rand random(seed);
  RingReader reader(folder);
  std::uint64_t joinedBeside = 0;
  for (unsigned kill = 1; kill <= kills; ++kill) {
    std::optional<Writer> other;
    if (kill % 4 == 0 && appendsAreWhole()) other.emplace();
    if (other) other->begin(kCallsAtOnce);
    const std::uint64_t joined = reader.joined();
    Writer writer;
    writer.makeCallsWithoutEnd();
    spendMicroseconds(static_cast<unsigned>(random()) % kLatestMicroseconds);
    writer.kill();
    if (other) other->finish();
    reader.readOn();
    reader.checkSizes(boundFor(2));
    if (other) joinedBeside += reader.joined() - joined;
    reader.expect(reader.torn() <= kill, "more incomplete lines than kills");
    reader.expect(reader.joined() == joinedBeside,
                  "a record stands in the line of one that a kill cut off");
    if (!reader.problems().empty()) {
      reader.expect(false, "at kill " + std::to_string(kill));
      break;
    }
  }
  figures.kills += kills;
  conclude(reader, figures);
}

}  // namespace tolvex::test
