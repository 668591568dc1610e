// What a program waits for its first weight.
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <functional>
#include <stdexcept>

#include "claims/claims.h"
#include "support/cores.h"
#include "support/fixed_service.h"
#include "support/fresh_process.h"
#include "support/library.h"

namespace bench {
namespace {

// The number that a fresh process tells.
double numberTold(const std::function<void(int output)>& work) {
  const std::string told = toldByFreshProcess(work);
  double number = 0;
  if (told.size() != sizeof(number)) throw std::runtime_error("a fresh process told no number");
  std::memcpy(&number, told.data(), sizeof(number));
  return number;
}

// Milliseconds that the work takes there.
template <typename Work>
double inFreshProcess(Work&& work) {
  return numberTold([&work](int output) {
    const double time = timedBatch(1, work) / 1000;
    char bytes[sizeof(time)];
    std::memcpy(bytes, &time, sizeof(time));
    writeAll(output, bytes, sizeof(bytes));
  });
}

// The same of a program in C, which has to load the C++ run-time library as well.
double inProgramInC(const std::string& library, const std::string& address) {
  const std::string program =
      (std::filesystem::canonical("/proc/self/exe").parent_path() / "first_weight").string();
  return numberTold([&](int output) {
    execl(program.c_str(), program.c_str(), library.c_str(), address.c_str(),
          std::to_string(output).c_str(), static_cast<char*>(nullptr));
    throw std::runtime_error("cannot start " + program);
  });
}

// This program has the C++ run-time library already.
void loadAndRead(const std::string& path, const std::string& address) {
  readWeight(loadLibrary(path, address));
}

void connectAndExchange(const FixedService& service) {
  for (const std::uint16_t port : {kWeighingPort, kPrintingPort}) {
    bareExchange(connectTo(service.address(), port), R"({"cmd":"getweight"})",
                 service.reply().size());
  }
}

// The library, by loadAndReadFrom(address), and the bare exchanges, each in a fresh process, in turns.
template <typename LoadAndRead>
Figure beyondBare(const Setting& setting, LoadAndRead&& loadAndReadFrom) {
  constexpr int kWarmUpProcesses = 10;
  const StateFolder state;
  const Cores cores = pinned(setting.cores);
  const FixedService service(kWeightReply, cores.service);
  const auto library = [&] { return loadAndReadFrom(service.address()); };
  const auto bare = [&] { return inFreshProcess([&] { connectAndExchange(service); }); };
  for (int count = 0; count < kWarmUpProcesses; ++count) {
    library();
    bare();
  }
  const Paired paired = takeTurns(setting.pairs, library, bare);
  std::vector<double> differences;
  for (std::size_t pair = 0; pair < paired.a.size(); ++pair) {
    differences.push_back(paired.a[pair] - paired.b[pair]);
  }
  Figure figure = medianOf(differences);
  const double medians[] = {quantile(paired.a, 0.5), quantile(paired.b, 0.5)};
  figure.value = medians[0] - medians[1];
  figure.details = {{"library_ms", medians[0]}, {"bare_ms", medians[1]}};
  return figure;
}

}  // namespace

Figure load(const Setting& setting) {
  return beyondBare(setting, [&](const std::string& address) {
    return inFreshProcess([&] { loadAndRead(setting.library, address); });
  });
}

Figure loadFromC(const Setting& setting) {
  return beyondBare(
      setting, [&](const std::string& address) { return inProgramInC(setting.library, address); });
}

}  // namespace bench
