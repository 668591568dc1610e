// Measures one claim in this process.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "claims/claims.h"
#include "support/command_line.h"
#include "support/own_output.h"

namespace {

using bench::Claim;
using Json = nlohmann::ordered_json;

struct Options {
  std::string claim;
  long pairs = 0;  // 0: the claim's own default
  long cores = 1;
  std::string library;
  bool json = false;
  bool list = false;
};

Json limitOf(const Claim& claim, long cores) {
  if (claim.limit == bench::kNoLimit || cores != 1) return nullptr;
  return claim.limit;
}

Json described(const Claim& claim, long cores) {
  return {{"claim", claim.name}, {"what", claim.what}, {"against", claim.against},
          {"unit", claim.unit},  {"cores", cores},     {"limit", limitOf(claim, cores)}};
}

Json everyRow() {
  Json rows = Json::array();
  for (const long cores : {1, 2}) {
    for (const Claim& claim : bench::claims()) {
      if (cores == 1 || claim.twoCores) rows.push_back(described(claim, cores));
    }
  }
  return rows;
}

// How this program, and with it the library beside it, was made.
Json buildOfProgram() {
  return {{"compiler", TOLVEX_BENCH_COMPILER}, {"type", TOLVEX_BENCH_BUILD_TYPE}};
}

const Claim& claimOf(const std::string& name) {
  const auto& rows = bench::claims();
  const auto row = std::find_if(rows.begin(), rows.end(),
                                [&name](const Claim& claim) { return name == claim.name; });
  if (row != rows.end()) return *row;
  throw std::runtime_error("there is no claim \"" + name + "\"; --list shows them");
}

std::string asText(const Claim& claim, const Options& options, const bench::Figure& figure) {
  char line[256];
  std::snprintf(line, sizeof(line), "%-20s %.3f %s [%.3f, %.3f]", claim.name, figure.value,
                claim.unit, figure.lower, figure.upper);
  std::string text = line;
  if (claim.limit != bench::kNoLimit && options.cores == 1) {
    std::snprintf(line, sizeof(line), ", at most %g", claim.limit);
    text += line;
  }
  text += '\n';
  for (const auto& [name, value] : figure.details) {
    std::snprintf(line, sizeof(line), "  %-20s %.3f\n", name.c_str(), value);
    text += line;
  }
  return text;
}

void measure(const Options& options) {
  const Claim& claim = claimOf(options.claim);
  const bench::OwnOutput output;
  const bench::Setting setting{
      options.pairs != 0 ? static_cast<std::size_t>(options.pairs) : claim.pairs,
      static_cast<int>(options.cores), std::filesystem::absolute(options.library).string()};
  const bench::Figure figure = claim.measure(setting);
  std::string text;
  if (options.json) {
    Json result = described(claim, options.cores);
    result.update({{"pairs", setting.pairs},
                   {"value", figure.value},
                   {"lower", figure.lower},
                   {"upper", figure.upper},
                   {"details", figure.details}});
    text = result.dump() + '\n';
  } else {
    text = asText(claim, options, figure);
  }
  output.tell(text);
}

int run(int argc, char** argv) {
  Options options;
  options.library =
      (std::filesystem::canonical("/proc/self/exe").parent_path() / "libtolvex_dll.so").string();
  bench::CommandLine words("Measures one claim about the library's speed.", "claims_bench");
  words.text("claim", options.claim, "The name of the claim");
  words.number("--pairs", options.pairs,
               "Pairs of batches (calls, processes); each claim has its own default", 1, 100000000);
  words.number("--cores", options.cores,
               "1: caller and service on one core, which is the default; 2: on one each", 1, 2);
  words.file("--library", options.library, "The library to load; log_* measure what is linked in");
  words.flag("--json", options.json, "The figure as JSON");
  words.flag("--list", options.list, "What there is to measure, as JSON");
  if (const auto status = words.parse(argc, argv)) return *status;
  if (options.list) {
    std::cout << Json{{"build", buildOfProgram()}, {"rows", everyRow()}}.dump(2) << '\n';
    return 0;
  }
  if (options.claim.empty()) throw std::runtime_error("which claim? --list shows them");
  measure(options);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& failure) {
    std::cerr << "claims_bench: " << failure.what() << '\n';
    return 1;
  }
}
