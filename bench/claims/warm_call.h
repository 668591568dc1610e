// A call of the library that has been made often, and the bare exchange that is in it.
#pragma once

#include <functional>
#include <string>

#include "claims/claims.h"
#include "support/cores.h"
#include "support/fixed_service.h"
#include "support/library.h"

namespace bench {

constexpr unsigned kWaitMs = 40000;

// Both go to one service. The bare exchange has a connection of its own and sends the bytes that
// the library was seen to send.
class WarmCall {
 public:
  using Call = std::function<void(const Library&)>;

  // The folder of the log has to be there before. The call has to check what it gets.
  WarmCall(const Setting& setting, const std::string& reply, Call call = readWeight);
  ~WarmCall();
  WarmCall(const WarmCall&) = delete;
  WarmCall& operator=(const WarmCall&) = delete;

  void call() const { call_(library_); }
  void bare() const { bareExchange(connection_, request_, service_.reply().size()); }

  const Cores& cores() const { return cores_; }
  const std::string& request() const { return request_; }
  const std::string& reply() const { return service_.reply(); }

 private:
  const Cores cores_;
  FixedService service_;
  const Library library_;
  const Call call_;
  std::string request_;
  int connection_;
};

}  // namespace bench
