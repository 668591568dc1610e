// How the cost of what the library does grows with what it is given.
//
// usage: scale_bench CURVE [--json] [--library PATH] [--simulator PATH] [--quick] [--only N]
#include <cstdio>
#include <exception>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "scale/curve.h"
#include "support/command_line.h"

namespace {

using bench::scale::Equipment;
using Curve = nlohmann::json (*)(const Equipment& equipment);

const std::map<std::string, Curve> kCurves = {
    {"job", bench::scale::measureJobs},        {"reply", bench::scale::measureReplies},
    {"threads", bench::scale::measureThreads}, {"clients", bench::scale::measureClients},
    {"log", bench::scale::measureLog},
};

// One member of a point as a person reads it: a spread as its median.
std::string shown(const nlohmann::json& value) {
  const nlohmann::json& figure = value.is_object() ? value.at("median") : value;
  if (!figure.is_number_float()) return figure.dump();
  char text[32];
  std::snprintf(text, sizeof(text), "%.4g", figure.get<double>());
  return text;
}

void print(const nlohmann::json& curve) {
  std::printf("%s\n", curve.at("setting").get<std::string>().c_str());
  for (const nlohmann::json& point : curve.at("points")) {
    for (const auto& [name, value] : point.items()) {
      std::printf("  %s %s", name.c_str(), shown(value).c_str());
    }
    std::printf("\n");
  }
}

}  // namespace

int main(int argc, char** argv) {
  Equipment equipment = {"build/linux/bin/libtolvex_dll.so", "build/linux/bin/zelkad-sim"};
  std::string name;
  bool json = false;
  std::vector<std::string> names;
  for (const auto& curve : kCurves) names.push_back(curve.first);
  bench::CommandLine words("Measures how cost grows along a curve.", "scale_bench");
  words.text("curve", name, "What to measure", names);
  words.flag("--json", json, "Print everything as JSON");
  words.file("--library", equipment.library, "The library");
  words.file("--simulator", equipment.simulator, "The simulator");
  words.flag("--quick", equipment.quick, "A few points with few repetitions: does it work?");
  words.number("--only", equipment.only, "One point: so many lines, bytes, threads or clients", 1,
               1000000);
  if (const auto status = words.parse(argc, argv)) return *status;
  if (name.empty()) {
    std::fprintf(stderr, "scale_bench: which curve? --help shows them\n");
    return 1;
  }
  try {
    equipment.library = std::filesystem::absolute(equipment.library).string();
    const nlohmann::json curve = kCurves.at(name)(equipment);
    if (curve.at("points").empty()) throw std::runtime_error("there is no such point");
    if (json) {
      std::printf("%s\n", curve.dump(1).c_str());
    } else {
      print(curve);
    }
    return 0;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "scale_bench %s: %s\n", name.c_str(), failure.what());
    return 1;
  }
}
