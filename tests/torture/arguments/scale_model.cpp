#include "outcomes.h"

namespace tolvex::test {
namespace {

// ---- The scale ----

std::string weightRecord() { return padded(std::string("\x05") + "01.5000P00.2500", 24); }

std::string baseInfo() {
  std::string record(64, '\0');
  record[0] = 15;
  record.replace(36, 2, "kg");
  record.replace(44, 1, "7");
  return record;
}

Expected record(const Values& v, const std::string& text, const std::string& bytes) {
  return v[0].isNull ? refused(255) : writing(sent(240, text), bytes);
}

bool highResolution = false;

Expected setMode(const Values& v) {
  highResolution = v[0].number != 0;
  return silently(0);
}

// The weight in the reply has one resolution: in the other mode there is no net weight.
Expected weight(const Values& v) {
  std::string bytes = weightRecord();
  if (highResolution) bytes.replace(1, 7, 7, '\0');
  return record(v, request("getweight"), bytes);
}

}  // namespace

Models scaleModels() {
  const auto tare = [](const char* command) {
    return [command](const Values& v) { return record(v, request(command), padded("0.25", 10)); };
  };
  return {
      {"read_baseinfo",
       [](const Values& v) {
         return record(v, request("getbaseinfo", {{"VcoVersion", "3.0.3.2"}}), baseInfo());
       }},
      {"read_standard", weight},
      {"send_zero", [](const Values&) { return sent(240, request("setzero")); }},
      {"set_tare_bykey", tare("settarebykey")},
      {"send_tare", tare("settarebykey")},
      {"send_pre_tare", tare("clear_tare")},
      {"clear_tare", tare("clear_tare")},
      {"getLCVersion",
       [](const Values& v) { return wholeReply(request("getLCVersion"), v[0], v[1], 0, 5); }},
      {"setOverloadAlarm",
       [](const Values& v) {
         return sent(0, request("setOverloadAlarm", {{"enable", v[0].number}}));
       }},
      {"setHighResWeightMode", setMode},
      {"getHighResWeightMode", [](const Values&) { return silently(highResolution ? 1 : 0); }},
  };
}

}  // namespace tolvex::test
