#include "torture/network/faults.h"

namespace tolvex::test {
namespace {

constexpr std::size_t kDepth = 1000;

Answer good(const Call& call) { return objectAnswer(call.goodReply()); }

Answer unreadable(const std::string& bytes) {
  Answer answer;
  answer.bytes = bytes;
  answer.isObject = false;
  return answer;
}

// The good reply with one more member that makes it so many bytes long.
Answer ofLength(const Call& call, std::size_t length) {
  Members members = call.goodReply();
  members.push_back(textMember("more", ""));
  const std::size_t shorter = objectOf(members).size();
  members.back() = textMember("more", std::string(length - shorter, 'x'));
  return objectAnswer(members);
}

Answer inParts(const Call& call, std::size_t first) {
  const std::string whole = good(call).bytes;
  Answer answer = unreadable(whole.substr(0, first));
  answer.later = {whole.substr(first)};
  return answer;
}

Answer inBytes(const Call& call) {
  const std::string whole = good(call).bytes;
  Answer answer = unreadable(whole.substr(0, 1));
  for (std::size_t at = 1; at < whole.size(); ++at) answer.later.push_back(whole.substr(at, 1));
  return answer;
}

Answer withMember(const Call& call, const std::string& name, const std::string& json) {
  Members members = call.goodReply();
  members.push_back({name, json, std::nullopt});
  return objectAnswer(members);
}

std::string repeated(const std::string& text, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) all += text;
  return all;
}

std::string arrays(std::size_t depth) { return repeated("[", depth) + repeated("]", depth); }

std::string objects(std::size_t depth) {
  return repeated("{\"a\":", depth) + "0" + repeated("}", depth);
}

Answer unasked(const Call& call) {
  Answer answer = good(call);
  answer.unasked = true;
  answer.later = {answer.bytes};
  answer.codeOfTheRest = 0;
  return answer;
}

Answer late(const Call& call) {
  Answer answer = good(call);
  answer.later = {answer.bytes};
  answer.codeOfTheRest = 0;
  return answer;
}

// Where nothing came before, and the call ends with the exchange, so that it can be played.
bool atOneExchange(const Call& call) { return call.requests.size() == 1; }
bool withOwnWait(const Call& call) { return call.ownWait; }

using Make = std::function<Answer(const Call&)>;

void addConnection(std::vector<Fault>& all) {
  const auto add = [&](const char* name, Act act, bool atAnyExchange) {
    Fault fault;
    fault.name = name;
    fault.act = act;
    fault.answer = good;
    if (!atAnyExchange) fault.fits = atOneExchange;
    all.push_back(fault);
  };
  add("none at all", Act::kAnswers, true);
  add("refused", Act::kRefusesConnects, false);
  add("no answer to connect", Act::kIgnoresConnects, false);
  add("accepted, then closed", Act::kClosesAccepted, false);
  add("accepted, then reset", Act::kResetsAccepted, false);
  add("closed after the request", Act::kClosesAfterRequest, true);
  add("reset after the request", Act::kResetsAfterRequest, true);
  add("sending side shut", Act::kShutsSending, true);
  add("restarted between calls", Act::kRestartsBefore, false);
  add("restarted twice between calls", Act::kRestartsTwice, false);
  add("closed between calls", Act::kClosesBefore, false);
  add("receiving side shut", Act::kShutsReceiving, false);
  add("silence", Act::kSilent, false);
  add("reply just after the wait", Act::kAnswersLate, false);
  add("reply just before the end of the wait", Act::kAnswersInTime, false);
  for (Fault& fault : all) {
    const bool waits = fault.act == Act::kSilent || fault.act == Act::kAnswersLate ||
                       fault.act == Act::kAnswersInTime;
    if (waits) fault.fits = withOwnWait;
    if (fault.act == Act::kAnswersLate) fault.answer = late;
  }
}

void addReplies(std::vector<Fault>& all) {
  const auto add = [&](const char* name, Make answer) {
    all.push_back({name, Act::kAnswers, std::move(answer), nullptr});
  };
  const auto bytes = [&](const char* name, const std::string& text) {
    add(name, [text](const Call&) { return unreadable(text); });
  };
  add("reply in two parts", [](const Call& c) { return inParts(c, good(c).bytes.size() / 2); });
  add("reply a byte at a time", inBytes);
  add("all but the last byte", [](const Call& c) { return inParts(c, good(c).bytes.size() - 1); });
  add("two replies in one segment",
      [](const Call& c) { return unreadable(good(c).bytes + good(c).bytes); });
  all.push_back({"a reply nobody asked for", Act::kAnswers, unasked, atOneExchange});
  add("1024 bytes", [](const Call& c) { return ofLength(c, 1024); });
  add("1025 bytes", [](const Call& c) { return ofLength(c, 1025); });
  add("2047 bytes", [](const Call& c) { return ofLength(c, 2047); });
  add("2048 bytes", [](const Call& c) { return ofLength(c, 2048); });
  add("2049 bytes", [](const Call& c) { return ofLength(c, 2049); });
  add("65536 bytes", [](const Call& c) { return ofLength(c, 65536); });
  add("JSON that breaks off", [](const Call& c) {
    const std::string whole = good(c).bytes;
    return unreadable(whole.substr(0, whole.size() - 1));
  });
  bytes("no JSON", "HTTP/1.1 400 Bad Request\r\n\r\n");
  bytes("blanks", "  \r\n");
  bytes("NUL alone", std::string(1, '\0'));
  add("NUL behind the reply", [](const Call& c) {
    Answer answer = good(c);
    answer.bytes += std::string(1, '\0') + "rest";
    return answer;
  });
  add("NUL in the reply", [](const Call& c) {
    std::string text = good(c).bytes;
    text[text.size() - 2] = '\0';
    return unreadable(text);
  });
  add("no UTF-8 in a text",
      [](const Call& c) { return withMember(c, "more", "\"\xff\xfe\xc0\""); });
  bytes("no UTF-8 at all", "\xff\xfe{\"result\":\"0\"}");
  add("blanks around the reply", [](const Call& c) {
    Answer answer = good(c);
    answer.bytes = " \r\n" + answer.bytes + "\r\n";
    return answer;
  });
}

void addShapes(std::vector<Fault>& all) {
  const auto bytes = [&](const char* name, const std::string& text) {
    all.push_back({name, Act::kAnswers, [text](const Call&) { return unreadable(text); }, nullptr});
  };
  const auto member = [&](const char* name, const std::string& json) {
    all.push_back({name, Act::kAnswers,
                   [json](const Call& c) { return withMember(c, "more", json); }, nullptr});
  };
  bytes("an array", "[\"0\"]");
  bytes("an object in an array", "[{\"result\":\"0\"}]");
  bytes("a text", "\"0\"");
  bytes("a number", "0");
  bytes("null", "null");
  bytes("true", "true");
  bytes("an empty object", "{}");
  bytes("1000 arrays", arrays(kDepth));
  bytes("1000 arrays that stay open", repeated("[", kDepth));
  bytes("1000 objects", objects(kDepth));
  bytes("340 objects", objects(340));
  member("900 arrays in a member", arrays(900));
  member("1000 arrays in a member", arrays(kDepth));
  member("250 objects in a member", objects(250));
}

}  // namespace

Answer objectAnswer(const Members& members) {
  Answer answer;
  answer.bytes = objectOf(members);
  answer.members = members;
  return answer;
}

std::vector<Fault> wireFaults() {
  std::vector<Fault> all;
  addConnection(all);
  addReplies(all);
  addShapes(all);
  for (Fault& fault : all) {
    if (!fault.fits) fault.fits = [](const Call&) { return true; };
  }
  return all;
}

}  // namespace tolvex::test
