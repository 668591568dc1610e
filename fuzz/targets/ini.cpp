#include <map>
#include <string>

#include "config/ini_reader.h"
#include "log/fake_disk.h"
#include "support/target.h"

namespace tolvex::fuzz {
namespace {

constexpr std::size_t kFileForEach = 8;  // for each so many lengths, which saves half of the time

// The rules of docs/configuration.md, line by line and byte by byte.
class IniModel {
 public:
  explicit IniModel(std::string_view text) {
    std::string line;
    for (const char c : text) {
      if (c != '\n') {
        line += c;
        continue;
      }
      if (!line.empty() && line[line.size() - 1] == '\r') line.erase(line.size() - 1);
      add(line);
      line.clear();
    }
    add(line);  // a last line without an end; a carriage return there is part of it
  }

  std::map<std::string, std::string> entries;

 private:
  void add(const std::string& line) {
    if (line.empty() || line[0] == ';') return;
    if (line[0] == '[' && line[line.size() - 1] == ']') {
      section_ = line.substr(1, line.size() - 2);
      return;
    }
    std::string key;
    std::string value;
    bool behind = false;
    for (const char c : line) {
      if (!behind && c == '=') {
        behind = true;
      } else {
        (behind ? value : key) += c;
      }
    }
    entries[section_ + "." + key] = value;
  }

  std::string section_;
};

}  // namespace

void targets::ini(std::string_view input) {
  const config::IniMap entries = config::parseIni(input);
  require(entries == IniModel(input).entries, "each line is read by the rules");

  const std::string key = "zelkad.ip_addr";
  const auto entry = entries.find(key);
  require(config::lookUp(entries, key) == (entry == entries.end() ? "" : entry->second),
          "the address is that of its key, or none");

  if (input.size() % kFileForEach != 0) return;
  test::disk.files["settings.ini"] = input;
  require(config::readIniFile("settings.ini") == entries, "a file reads like its text");
}

}  // namespace tolvex::fuzz
