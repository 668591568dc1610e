#include "support/command_line.h"

#include <CLI/CLI.hpp>

namespace bench {

CommandLine::CommandLine(const char* description, const char* program)
    : app_(std::make_unique<CLI::App>(description, program)) {}

CommandLine::~CommandLine() = default;

void CommandLine::text(const char* name, std::string& value, const char* help,
                       const std::vector<std::string>& choices) {
  CLI::Option* const option = app_->add_option(name, value, help);
  if (!choices.empty()) option->check(CLI::IsMember(choices));
}

void CommandLine::file(const char* name, std::string& value, const char* help) {
  app_->add_option(name, value, help)->check(CLI::ExistingFile);
}

void CommandLine::number(const char* name, long& value, const char* help, long least, long most) {
  app_->add_option(name, value, help)->check(CLI::Range(least, most));
}

void CommandLine::flag(const char* name, bool& value, const char* help) {
  app_->add_flag(name, value, help);
}

std::optional<int> CommandLine::parse(int argc, char** argv) {
  try {
    app_->parse(argc, argv);
    return std::nullopt;
  } catch (const CLI::ParseError& ending) {
    return app_->exit(ending);
  }
}

}  // namespace bench
