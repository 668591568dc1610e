// The inputs that are kept of each target, as tests: each of them found something once, a branch or a
// defect, and goes through the target again.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "support/target.h"

namespace tolvex::fuzz {
namespace {

struct Broken {
  const char* promise;
};

struct Target {
  const char* name;
  void (*run)(std::string_view input);
};

#define TOLVEX_FUZZ_ROW(name) {#name, targets::name},
constexpr Target kTargets[] = {TOLVEX_FUZZ_TARGETS(TOLVEX_FUZZ_ROW)};
#undef TOLVEX_FUZZ_ROW

std::vector<std::filesystem::path> filesOf(const std::string& target) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::filesystem::path(TOLVEX_FUZZ_CORPUS) / target)) {
    files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string contentsOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

class Corpus : public testing::TestWithParam<Target> {};

TEST_P(Corpus, KeepsItsPromises) {
  const auto files = filesOf(GetParam().name);
  EXPECT_GE(files.size(), 5U) << "the corpus is not there";
  for (const auto& file : files) {
    SCOPED_TRACE(file.string());
    // A copy of the exact size, so that AddressSanitizer sees what is read beyond it.
    const std::string bytes = contentsOf(file);
    const std::vector<char> input(bytes.begin(), bytes.end());
    try {
      GetParam().run({input.data(), input.size()});
    } catch (const Broken& broken) {
      ADD_FAILURE() << broken.promise;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Fuzz, Corpus, testing::ValuesIn(kTargets),
                         [](const auto& target) { return std::string(target.param.name); });

}  // namespace

void broken(const char* promise) { throw Broken{promise}; }

}  // namespace tolvex::fuzz
