// An application that loads the library at run time and frees it, again and again.
//   load_unload --library PATH [--times N] [--address-first 0|1]
#include <algorithm>
#include <functional>
#include <thread>

#include "run.h"
#include "support/host.h"
#include "support/os_support.h"
#include "support/scripted_service.h"
#include "support/shared_library.h"

namespace tolvex::test {
namespace {

constexpr char kReply[] = R"({"result":"1005"})";
constexpr int kCodeOfReply = 1005;
constexpr unsigned kPoints = 20;

using NoArguments = int (*)();
using OneText = int (*)(const char*);
using RawCommand = int (*)(const char*, const char*, char*, unsigned, unsigned);

class Loads {
 public:
  Loads(std::string path, unsigned times) : path_(std::move(path)), times_(times) {}

  // The first use is a call that is going on when the library is freed, or the address.
  std::string run(bool addressFirst) {
    std::string figure = std::to_string(times_) + " times each";
    const auto add = [&](const std::string& what, const std::function<void()>& work) {
      figure += "; " + what + ": " + again(what, work);
    };
    add("without use", [this] { const SharedLibrary library(path_); });
    if (addressFirst) add("address only", [this] { setAddress(); });
    ScriptedService service(host_.address());
    ServicePort& port = service.weighing();
    port.keepsNoRequests();
    port.alwaysAnswers(kReply);
    add("freed during a call", [&] { freedDuringACall(port); });
    add("with calls", [this] { withCalls(); });
    mustHold(port.connections() == 1 && service.printing().connections() == 1,
             std::to_string(port.connections()) + " and " +
                 std::to_string(service.printing().connections()) + " connections were made");
    return figure + "; 1 connection to each port";
  }

 private:
  std::string again(const std::string& what, const std::function<void()>& work) {
    work();  // what the first time makes stays
    Growth growth;
    for (unsigned i = 0; i < times_; ++i) {
      if (i % std::max(1U, times_ / kPoints) == 0) growth.note(i);
      work();
    }
    growth.note(times_);
    try {
      return growth.check();
    } catch (const Broken& broken) {
      throw Broken("loaded and freed, " + what + ": " + broken.what());
    }
  }

  void setAddress() {
    const SharedLibrary library(path_);
    mustHold(library.find<OneText>("SetServerIpForRemoteAccess")(host_.address().c_str()) == 240,
             "the address was refused");
    mustHold(library.find<NoArguments>("OpenDisplay")() == 240, "OpenDisplay failed");
    mustHold(library.find<NoArguments>("getHighResWeightMode")() == 0, "the mode is not 0");
  }

  void withCalls() {
    const SharedLibrary library(path_);
    mustHold(library.find<NoArguments>("send_zero")() == 255, "send_zero did not fail");
    const int code = library.find<NoArguments>("getLastErrCode")();
    mustHold(code == kCodeOfReply, "the code is " + std::to_string(code));
  }

  // The last reference goes while another thread waits for its reply.
  void freedDuringACall(ServicePort& port) {
    port.holdsBack("", kReply);
    int code = 0;
    std::thread caller;
    {
      const SharedLibrary library(path_);
      const auto send = library.find<RawCommand>("sendRawCmdToLC");
      caller = std::thread([&code, send] { code = send("probe", nullptr, nullptr, 0, 20000); });
      mustHold(port.holdsSomethingBack(), "waited 10 s for the request to come");
    }
    port.sendsWhatItHeldBack();
    caller.join();
    mustHold(code == kCodeOfReply,
             "the call during which the library was freed got " + std::to_string(code));
  }

  const std::string path_;
  const unsigned times_;
  Host host_;
};

}  // namespace
}  // namespace tolvex::test

int main(int count, char** arguments) {
  tolvex::test::countMemoryExactly(arguments);
  using namespace tolvex::test;
  return runProof(count, arguments, [](const Options& options, std::uint64_t) {
    return Loads(options.text("--library", ""),
                 static_cast<unsigned>(options.number("--times", 1000)))
        .run(options.number("--address-first", 0) != 0);
  });
}
