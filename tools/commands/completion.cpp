// A script for the shell, made from the command line's own description, so that both are always of
// one mind.
#include <memory>
#include <string>
#include <vector>

#include "commands/commands.h"

namespace tolvex::ctl {
namespace {

constexpr char kCompletionExamples[] =
    "  source <(tolvexctl completion bash)     for this shell\n"
    "  tolvexctl completion bash > /usr/share/bash-completion/completions/tolvexctl\n";

// The words of the command line so far lead to a command; what it offers stands in three tables.
constexpr char kHead[] = R"(# bash completion for tolvexctl; made by: tolvexctl completion bash
declare -gA _tolvexctl_commands _tolvexctl_options _tolvexctl_values
)";

constexpr char kBody[] = R"(
_tolvexctl() {
  local cur=${COMP_WORDS[COMP_CWORD]} path=tolvexctl position=0 i word option=''
  for ((i = 1; i < COMP_CWORD; i++)); do
    word=${COMP_WORDS[i]}
    if [[ -n $option ]]; then
      option=''
    elif [[ $word == -* ]]; then
      option=$(_tolvexctl_option "$path" "$word")
    elif [[ -n ${_tolvexctl_options["$path $word"]+is} ]]; then
      path="$path $word"
    else
      position=$((position + 1))
    fi
  done
  COMPREPLY=()
  if [[ -n $option ]]; then
    _tolvexctl_offer "$option"
  elif [[ $cur == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "${_tolvexctl_options["$path"]} ${_tolvexctl_options[tolvexctl]}" -- "$cur")
  elif [[ -n ${_tolvexctl_commands["$path"]} ]]; then
    mapfile -t COMPREPLY < <(compgen -W "${_tolvexctl_commands["$path"]}" -- "$cur")
  else
    _tolvexctl_offer "$path $position"
  fi
}

# The table's name of an option that takes a value, nothing for a flag.
_tolvexctl_option() {
  if [[ -n ${_tolvexctl_values["$1 $2"]+is} ]]; then
    printf '%s' "$1 $2"
  elif [[ -n ${_tolvexctl_values["tolvexctl $2"]+is} ]]; then
    printf '%s' "tolvexctl $2"
  fi
}

# Files for a slash, else words.
_tolvexctl_offer() {
  local words=${_tolvexctl_values["$1"]}
  if [[ $words == / ]]; then
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
    compopt -o filenames 2>/dev/null || :
  else
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$cur")
  fi
}

complete -F _tolvexctl tolvexctl
)";

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

std::vector<std::string> dashed(const CLI::Option& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  return names;
}

std::string entry(const std::string& table, const std::string& key, const std::string& words) {
  return "_tolvexctl_" + table + "['" + key + "']='" + words + "'\n";
}

// Files and folders are completed by the shell itself.
constexpr char kFiles[] = "/";

bool takesFile(const CLI::Option& option) {
  const std::string kind = option.get_positional() ? option.get_name(true) : option.get_type_name();
  return kind == "FILE" || kind == "PATH";
}

std::string describe(const CLI::App& app, const std::string& path, const Registry& registry) {
  std::string text;
  std::vector<std::string> commands;
  std::vector<std::string> options;
  std::size_t position = 0;
  for (const CLI::Option* const option : app.get_options()) {
    const std::string offered = takesFile(*option) ? kFiles : joined(registry.offered(option));
    if (option->get_positional()) {
      text += entry("values", path + ' ' + std::to_string(position++), offered);
      continue;
    }
    for (const std::string& name : dashed(*option)) {
      options.push_back(name);
      if (option->get_items_expected_max() == 0) continue;
      std::string words = path;
      text += entry("values", words.append(" ").append(name), offered);
    }
  }
  for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
    commands.push_back(command->get_name());
    text += describe(*command, path + ' ' + command->get_name(), registry);
  }
  return entry("commands", path, joined(commands)) + entry("options", path, joined(options)) + text;
}

}  // namespace

void addCompletion(CLI::App& app, Registry& registry) {
  CLI::App* const command = Registry::addCommand(
      app, "completion", "Print a script that completes commands and options in the shell",
      kCompletionExamples);
  auto shell = std::make_shared<std::string>();
  CLI::Option* const name = command->add_option("SHELL", *shell, "bash");
  name->option_text(" ")->required()->check(CLI::IsMember({"bash"}).description(""));
  registry.offers(name, {"bash"});
  registry.does(command, [shell, &app, &registry](Context& context) {
    const std::string script = kHead + describe(app, "tolvexctl", registry) + kBody;
    context.out.result({{"shell", *shell}, {"script", script}}, script);
    return ExitCode::Fine;
  });
}

}  // namespace tolvex::ctl
