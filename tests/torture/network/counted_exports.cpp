#include <cstdio>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "torture/network/calls.h"

namespace tolvex::test {
namespace {

using Names = std::set<std::string>;

std::string wholeText(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

Names matches(const std::string& text, const std::regex& pattern) {
  Names names;
  for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match) {
    names.insert((*match)[1]);
  }
  return names;
}

// The functions whose rows in the table of times say that they have an exchange.
Names talking(const std::string& document) {
  const std::regex row(R"(\n\| (`[^|]+) \|[^|]*\| ([^|]*) \|[^|]*\|)");
  Names names;
  for (std::sregex_iterator match(document.begin(), document.end(), row), end; match != end;
       ++match) {
    const std::string exchanges = (*match)[2];
    if (exchanges.rfind("1", 0) != 0 && exchanges.rfind("one for each", 0) != 0) continue;
    names.merge(matches((*match)[1], std::regex("`(\\w+)`")));
  }
  return names;
}

bool same(const char* what, const Names& found, const Names& wanted) {
  for (const std::string& name : wanted) {
    if (found.count(name) == 0) std::printf("%s: %s is missing\n", what, name.c_str());
  }
  for (const std::string& name : found) {
    if (wanted.count(name) == 0) std::printf("%s: %s is too many\n", what, name.c_str());
  }
  return found == wanted;
}

}  // namespace

unsigned countedExports(const std::string& sourceFolder) {
  const std::string header = wholeText(sourceFolder + "/src/api/exports.h");
  const std::string document = wholeText(sourceFolder + "/docs/integration.md");
  const Names declared = matches(header, std::regex("TOLVEX_API int (\\w+)\\("));
  Names own;
  bool good = !declared.empty();
  for (const std::string& name : declared) {
    const std::size_t suffix = name.rfind("_stdcall");
    if (suffix == std::string::npos) {
      own.insert(name);
    } else if (declared.count(name.substr(0, suffix)) == 0) {
      std::printf("the header: %s is nobody's twin\n", name.c_str());
      good = false;
    }
  }
  const std::size_t begin = document.find("\n## Time");
  const std::string times = document.substr(begin, document.find("\n## Results") - begin);
  // Every function stands in the table of times, and so either talks or does not.
  good = same("the table of times", matches(times, std::regex("[|,] `(\\w+)`")), own) && good;
  Names called;
  for (const Call& call : allCalls()) called.insert(call.name);
  good = same("the calls of this program", called, talking(times)) && good;
  return good ? static_cast<unsigned>(called.size()) : 0;
}

}  // namespace tolvex::test
