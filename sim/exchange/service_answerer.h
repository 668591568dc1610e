// The service as a source of replies.
#pragma once

#include "exchange/answerer.h"
#include "protocol/service.h"

namespace tolvex::sim {

/// The service must outlive it.
class ServiceAnswerer : public Answerer {
 public:
  explicit ServiceAnswerer(Service& service) : service_(service) {}

  Answer answer(Half half, std::string_view request, TimePoint now) override {
    return {service_.answer(half, request, now).json(), After::Keep};
  }

 private:
  Service& service_;
};

}  // namespace tolvex::sim
