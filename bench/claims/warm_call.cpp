#include "claims/warm_call.h"

#include <unistd.h>

#include <stdexcept>
#include <utility>

namespace bench {
namespace {

constexpr int kWarmUpCalls = 500;

}  // namespace

WarmCall::WarmCall(const Setting& setting, const std::string& reply, Call call)
    : cores_(pinned(setting.cores)),
      service_(reply, cores_.service),
      library_(loadLibrary(setting.library, service_.address())),
      call_(std::move(call)),
      connection_(connectTo(service_.address(), kWeighingPort)) {
  WarmCall::call();  // the first one does more
  service_.watch().startRecording();
  WarmCall::call();
  const std::vector<std::string> requests = service_.watch().recorded();
  if (requests.size() != 1) throw std::runtime_error("a call is not one exchange");
  request_ = requests.front();
  for (int count = 0; count < kWarmUpCalls; ++count) {
    WarmCall::call();
    bare();
  }
}

WarmCall::~WarmCall() { close(connection_); }

}  // namespace bench
