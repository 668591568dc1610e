// How the cost of what the library does grows with what it is given.
//
// usage: scale_bench CURVE [--json] [--library PATH] [--simulator PATH] [--quick] [--only N]
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "scale/curve.h"

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
  CLI::App app("Measures how cost grows along a curve.");
  Equipment equipment = {"build/linux/bin/libtolvex_dll.so", "build/linux/bin/zelkad-sim"};
  std::string name;
  bool json = false;
  app.add_option("curve", name, "job, reply, threads, clients or log")
      ->required()
      ->check(CLI::IsMember(kCurves));
  app.add_flag("--json", json, "Print everything as JSON");
  app.add_option("--library", equipment.library, "The library")->check(CLI::ExistingFile);
  app.add_option("--simulator", equipment.simulator, "The simulator")->check(CLI::ExistingFile);
  app.add_flag("--quick", equipment.quick, "A few points with few repetitions: does it work?");
  app.add_option("--only", equipment.only, "One point: so many lines, bytes, threads or clients");
  CLI11_PARSE(app, argc, argv);
  try {
    equipment.library = std::filesystem::absolute(equipment.library).string();
    const nlohmann::json curve = kCurves.at(name)(equipment);
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
