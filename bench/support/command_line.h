// What the benchmarks' programs are told, apart from the parser, whose headers take long to compile.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace bench {

// Each function adds a word that the program knows, and where its value goes; what is there before is the default.
class CommandLine {
 public:
  CommandLine(const char* description, const char* program);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  // Name: "--name", or "name" for a word by its place. Choices: one of them, or anything where they are empty.
  void text(const char* name, std::string& value, const char* help,
            const std::vector<std::string>& choices = {});
  void file(const char* name, std::string& value, const char* help);  // which has to be there
  void number(const char* name, long& value, const char* help, long least, long most);
  void flag(const char* name, bool& value, const char* help);

  // Returns an exit status where the program is to end at once: help was asked for and given, or something
  // was wrong, which is told on standard error.
  std::optional<int> parse(int argc, char** argv);

 private:
  const std::unique_ptr<CLI::App> app_;
};

}  // namespace bench
