// How the rows of the table of calls are written.
#pragma once

#include <utility>

#include "torture/network/calls.h"

namespace tolvex::test {

constexpr bool kWeighing = true;
constexpr bool kPrinting = false;
constexpr unsigned kRoomy = 4096;

#define RUN(call)                   \
  [](char* buffer, unsigned wait) { \
    static_cast<void>(buffer);      \
    static_cast<void>(wait);        \
    return call;                    \
  }

inline std::string command(const std::string& cmd, const std::string& members = "") {
  return "{\"cmd\":\"" + cmd + "\"" + (members.empty() ? "" : "," + members) + "}";
}

using Send = std::function<int(char*, unsigned)>;

inline Call weighing(const std::string& name, Kind kind, const std::string& request, Send run) {
  Call call;
  call.name = name;
  call.kind = kind;
  call.weighs = kWeighing;
  call.requests = {request};
  call.run = std::move(run);
  return call;
}

inline Call printing(const std::string& name, Kind kind, const std::string& request, Send run) {
  Call call = weighing(name, kind, request, std::move(run));
  call.weighs = kPrinting;
  return call;
}

inline Call about(Call call, const std::string& what) {
  call.about = what;
  return call;
}

inline Call reading(Call call, const std::string& member, const std::string& value, unsigned size) {
  call.member = member;
  call.value = value;
  call.size = size;
  return call;
}

inline Call sized(Call call, unsigned size) {
  return reading(std::move(call), "version", "4.2", size);
}

inline Call waiting(Call call) {
  call.ownWait = true;
  call.keepsLastError = true;
  return call;
}

inline Call keeping(Call call) {
  call.keepsLastError = true;
  return call;
}

void addPrintingCalls(std::vector<Call>& all);

}  // namespace tolvex::test
