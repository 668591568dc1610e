#include "scale/child.h"

#include <fcntl.h>

#include <exception>
#include <stdexcept>
#include <string>

#include "support/fresh_process.h"
#include "support/own_output.h"

namespace bench::scale {

nlohmann::json inFreshProcess(const std::function<nlohmann::json()>& work) {
  const std::string text = toldByFreshProcess([&](int output) {
    fcntl(output, F_SETFD, FD_CLOEXEC);  // programs that it starts do not keep it open
    const OwnOutput nowhere;  // where the library and its logger tell their host something
    nlohmann::json answer;
    try {
      answer["result"] = work();
    } catch (const std::exception& failure) {
      answer["failure"] = failure.what();
    }
    const std::string told = answer.dump();
    writeAll(output, told.data(), told.size());
  });
  nlohmann::json answer = nlohmann::json::parse(text);
  if (answer.contains("failure")) throw std::runtime_error(answer["failure"].get<std::string>());
  return answer["result"];
}

}  // namespace bench::scale
