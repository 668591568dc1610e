#include "api/exports.h"
#include "torture/network/call_rows.h"

namespace tolvex::test {
namespace {

constexpr unsigned kNarrow = 20;

void addWeighing(std::vector<Call>& all) {
  const auto tare = [](const char* name, const char* cmd, Send run) {
    return reading(weighing(name, Kind::kTare, command(cmd), std::move(run)), "tare", "0.12", 10);
  };
  Call info =
      weighing("read_baseinfo", Kind::kBaseInfo,
               command("getbaseinfo", R"("VcoVersion":"3.0.3.2")"), RUN(read_baseinfo(buffer)));
  info.size = 64;
  all.push_back(info);
  Call weight =
      weighing("read_standard", Kind::kWeight, command("getweight"), RUN(read_standard(buffer)));
  weight.size = 24;
  all.push_back(weight);
  all.push_back(weighing("send_zero", Kind::kVerdict, command("setzero"), RUN(send_zero())));
  all.push_back(tare("set_tare_bykey", "settarebykey", RUN(set_tare_bykey(buffer))));
  all.push_back(tare("send_tare", "settarebykey", RUN(send_tare(buffer))));
  all.push_back(tare("send_pre_tare", "clear_tare", RUN(send_pre_tare(buffer))));
  all.push_back(tare("clear_tare", "clear_tare", RUN(clear_tare(buffer))));
  const Call version = weighing("getLCVersion", Kind::kReply, command("getLCVersion"),
                                RUN(getLCVersion(buffer, kRoomy)));
  all.push_back(sized(version, kRoomy));
  Call narrow = sized(about(version, "20 bytes"), kNarrow);
  narrow.run = RUN(getLCVersion(buffer, kNarrow));
  all.push_back(narrow);
  all.push_back(weighing("checkConnection", Kind::kReached, command("checkConnection"),
                         RUN(checkConnection())));
  const Call raw =
      weighing("sendRawCmdToLC", Kind::kReply, command("selftest", R"("paramList":"1,2")"),
               RUN(sendRawCmdToLC("selftest", "1,2", buffer, kRoomy, wait)));
  all.push_back(waiting(sized(raw, kRoomy)));
  Call deaf = waiting(about(raw, "no buffer"));
  deaf.kind = Kind::kCode;
  deaf.run = RUN(sendRawCmdToLC("selftest", "1,2", nullptr, kRoomy, wait));
  all.push_back(deaf);
}

void addLogLevels(std::vector<Call>& all) {
  const std::string scale = R"("module":"loadcell")";
  const std::string print = R"("module":"print")";
  const std::string level = R"(,"level":"2")";
  all.push_back(reading(about(weighing("getLogLevel", Kind::kLevel, command("getloglevel", scale),
                                       RUN(getLogLevel("loadcell", buffer, 64))),
                              "loadcell"),
                        "level", "5", 64));
  all.push_back(reading(about(printing("getLogLevel", Kind::kLevel, command("getloglevel", print),
                                       RUN(getLogLevel("print", buffer, 64))),
                              "print"),
                        "level", "5", 64));
  all.push_back(about(weighing("setLogLevel", Kind::kCode, command("setloglevel", scale + level),
                               RUN(setLogLevel("loadcell", "2"))),
                      "loadcell"));
  all.push_back(about(printing("setLogLevel", Kind::kCode, command("setloglevel", print + level),
                               RUN(setLogLevel("print", "2"))),
                      "print"));
}

}  // namespace

Member textMember(const std::string& name, const std::string& text) {
  return {name, "\"" + text + "\"", text};
}

std::string objectOf(const Members& members) {
  std::string object = "{";
  for (const Member& member : members) {
    if (object.size() > 1) object += ",";
    object += "\"" + member.name + "\":" + member.json;
  }
  return object + "}";
}

Members Call::goodReply() const {
  Members all = {textMember("result", "0")};
  if (kind == Kind::kBaseInfo) {
    const char* const numbers[][2] = {
        {"maxRange1", "3"},       {"maxRange2", "6"},       {"maxRange3", "15"},
        {"minRange", ":0.02"},    {"maxTare", "6"},         {"maxPreTare", "3"},
        {"resolution1", "0.001"}, {"resolution2", "0.002"}, {"resolution3", "0.005"},
        {"weightUnit", "kg"},     {"systemVersion", "5.1"}};
    for (const auto& row : numbers) all.push_back(textMember(row[0], row[1]));
  } else if (kind == Kind::kWeight) {
    const char* const texts[][2] = {
        {"net", "0.356"}, {"tare", "0.12"}, {"zero", "0"}, {"tareType", "T"}};
    for (const auto& row : texts) all.push_back(textMember(row[0], row[1]));
  } else if (!member.empty()) {
    all.push_back(textMember(member, value));
  }
  return all;
}

const std::vector<Call>& allCalls() {
  static const std::vector<Call> calls = [] {
    std::vector<Call> all;
    addWeighing(all);
    addLogLevels(all);
    addPrintingCalls(all);
    return all;
  }();
  return calls;
}

}  // namespace tolvex::test
