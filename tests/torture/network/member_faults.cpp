#include <cstddef>

#include "torture/network/faults.h"

namespace tolvex::test {
namespace {

using Change = std::function<void(Members& members, std::size_t at)>;

Change standsAs(const std::string& json) {
  return [json](Members& members, std::size_t at) {
    members[at].json = json;
    members[at].text.reset();
  };
}

Change reads(const std::string& text) {
  return [text](Members& members, std::size_t at) {
    members[at] = textMember(members[at].name, text);
  };
}

struct Way {
  const char* name;
  Change change;
};

// What any member may be.
std::vector<Way> ways() {
  return {
      {"missing",
       [](Members& members, std::size_t at) {
         members.erase(members.begin() + static_cast<std::ptrdiff_t>(at));
       }},
      {"a number", standsAs("0")},
      {"a fraction", standsAs("0.5")},
      {"true", standsAs("true")},
      {"null", standsAs("null")},
      {"an array", standsAs("[\"0\"]")},
      {"an object", standsAs("{\"result\":\"0\"}")},
      {"empty", reads("")},
      {"twice, the second one another",
       [](Members& members, std::size_t at) {
         members.push_back(textMember(members[at].name, "2006"));
       }},
      {"twice, the first one another",
       [](Members& members, std::size_t at) {
         const Member own = members[at];
         members[at] = textMember(own.name, "2006");
         members.push_back(own);
       }},
      {"twice, the first one a number",
       [](Members& members, std::size_t at) {
         members.push_back(members[at]);
         standsAs("0")(members, at);
       }},
      {"in capitals",
       [](Members& members, std::size_t at) {
         for (char& c : members[at].name) c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c);
       }},
      {"without digits", reads("ready")},
      {"larger than 32 bits", reads("4294967296")},
      {"larger than 64 bits", reads("18446744073709551616")},
      {"far below zero", reads("-99999999999999999999")},
      {"300 digits", reads(std::string(300, '9'))},
      {"a power of ten", reads("1e400")},
      {"a comma for the point", reads("1,5")},
      {"blanks around it", reads("  7 ")},
      {"a sign", reads("+8")},
      {"digits, then letters", reads("9x")},
      {"bytes beyond ASCII", reads("\xc3\xa4\xff")},
  };
}

// Results in their own right.
std::vector<Way> results() {
  std::vector<Way> all;
  for (const char* code :
       {"1",    "4",    "7",    "9",    "10",   "1002",       "1003",       "1004",
        "1005", "1006", "1007", "2005", "2006", "2008",       "7777",       "-1",
        "-2",   "00",   "0.0",  "240",  "255",  "2147483647", "2147483648", "-2147483648"}) {
    all.push_back({code, reads(code)});
  }
  return all;
}

}  // namespace

std::vector<Fault> memberFaults(const Call& call) {
  std::vector<Fault> all;
  const Members whole = call.goodReply();
  const auto add = [&](std::size_t at, const std::string& what, const Way& way) {
    Members changed = whole;
    way.change(changed, at);
    const Answer answer = objectAnswer(changed);
    all.push_back({whole[at].name + what + way.name, Act::kAnswers,
                   [answer](const Call&) { return answer; }, [](const Call&) { return true; }});
  };
  for (std::size_t at = 0; at < whole.size(); ++at) {
    if (whole[at].name == "version") continue;  // goes to the application as it is
    for (const Way& way : ways()) add(at, ": ", way);
  }
  for (const Way& way : results()) add(0, " ", way);
  return all;
}

}  // namespace tolvex::test
