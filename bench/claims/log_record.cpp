// The library's own log against others, without the library around it.
#include <fcntl.h>
#include <spdlog/logger.h>
#include <spdlog/sinks/rotating_file_sink.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "claims/claims.h"
#include "log/nlog.h"
#include "support/cores.h"

namespace bench {
namespace {

using tolvex::kLevelTrace;
using tolvex::kLevelTraffic;
using tolvex::kModuleDll;
using tolvex::NLog;

constexpr char kClient[] = "checkout";
constexpr unsigned kLine = 318;
constexpr int kRecordsPerBatch = 20;
constexpr int kWarmUpRecords = 500;

NLog* libraryLog(const StateFolder& state) {
  return NLog::GetInstance("DLL", state.logFolder().c_str());
}

void record(NLog* log) {
  NLog::Log(log, kModuleDll, kLevelTrace, kLine, "[%s][getWeight] Oh Ye~", kClient);
}

std::string lastLine(const std::string& path) {
  std::ifstream file(path);
  std::string line, last;
  while (std::getline(file, line)) last = line;
  return last;
}

// The lines differ in nothing but the time.
bool sameButTime(std::string one, std::string other) {
  for (std::string* line : {&one, &other}) {
    std::replace_if(
        line->begin(), line->end(), [](unsigned char c) { return std::isdigit(c) != 0; }, '0');
  }
  return one == other && one.find("[checkout][getWeight] Oh Ye~") != std::string::npos;
}

std::string libraryLine(const StateFolder& state) {
  return lastLine(state.logFolder() + "/DLL_0.log");
}

// As many files of the same size, and no record kept back, as with the library's.
spdlog::logger makeSpdlog(const std::string& path) {
  constexpr std::size_t kFileSize = 5242880;
  constexpr std::size_t kFiles = 9;  // beside the one that is written
  auto sink = std::make_shared<spdlog::sinks::rotating_file_sink_mt>(path, kFileSize, kFiles);
  spdlog::logger logger("DLL", std::move(sink));
  logger.set_level(spdlog::level::trace);
  logger.flush_on(spdlog::level::trace);
  logger.set_pattern("%Y-%m-%d %H:%M:%S Ms:%e [%L] L:%# M:%n %v");
  return logger;
}

}  // namespace

Figure logRecordAgainstSpdlog(const Setting& setting) {
  pinned(1);
  const StateFolder state;
  NLog* const log = libraryLog(state);
  const std::string path = state.path() + "/spdlog.log";
  spdlog::logger other = makeSpdlog(path);
  const spdlog::source_loc place(__FILE__, kLine, "getWeight");
  const auto otherRecord = [&] {
    other.log(place, spdlog::level::trace, "[{}][getWeight] Oh Ye~", kClient);
  };
  for (int count = 0; count < kWarmUpRecords; ++count) {
    record(log);
    otherRecord();
  }
  if (!sameButTime(libraryLine(state), lastLine(path))) {
    throw std::runtime_error("the two logs do not hold the same record");
  }
  const Paired paired = measurePairs(
      setting.pairs, kRecordsPerBatch, [&] { record(log); }, otherRecord);
  return ratioOf(paired, "library_us", "spdlog_us");
}

Figure logRecordAgainstWrite(const Setting& setting) {
  pinned(1);
  const StateFolder state;
  NLog* const log = libraryLog(state);
  for (int count = 0; count < kWarmUpRecords; ++count) record(log);
  const std::string line = libraryLine(state) + '\n';
  const std::string path = state.logFolder() + "/plain";
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  const auto bareWrite = [&] {
    if (write(file, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
      throw std::runtime_error("a bare write failed");
    }
  };
  for (int count = 0; count < kWarmUpRecords; ++count) bareWrite();
  const Paired paired = measurePairs(
      setting.pairs, kRecordsPerBatch, [&] { record(log); }, bareWrite);
  close(file);
  Figure figure = ratioOf(paired, "library_us", "write_us");
  figure.details["bytes"] = static_cast<double>(line.size());
  return figure;
}

Figure logRejected(const Setting& setting) {
  constexpr int kCalls = 1000;
  pinned(1);
  const StateFolder state;
  libraryLog(state);
  const auto rejected = [] {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelTraffic, kLine, "[%s][getWeight] Oh Ye~",
              kClient);
  };
  std::vector<double> nanoseconds;
  for (std::size_t batch = 0; batch < setting.pairs; ++batch) {
    nanoseconds.push_back(timedBatch(kCalls, rejected) * 1000);
  }
  if (state.logText().find("getWeight") != std::string::npos) {
    throw std::runtime_error("the record was not rejected");
  }
  record(NLog::GetInstance());
  if (state.logText().find("getWeight") == std::string::npos) {
    throw std::runtime_error("nothing is logged at all");
  }
  return medianOf(nanoseconds);
}

}  // namespace bench
