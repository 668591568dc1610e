// What the doctor found.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "app/output.h"
#include "base/exit_code.h"

namespace tolvex::ctl {

enum class Mark {
  Fine,
  Info,     // worth knowing, nothing to mend
  Warning,  // may be wrong; does not fail the examination
  Failed,
  Skipped,
};

// One thing that was looked at. Texts are UTF-8, in one line each.
struct Finding {  // NOLINT(bugprone-exception-escape): moving JSON throws nothing
  Mark mark = Mark::Fine;
  std::string text;
  std::string fix;                   // what to do; empty: the result code's remedy, or nothing
  std::optional<int> code;           // a result code, whose name and meaning the report tells
  ExitCode exit = ExitCode::Failed;  // of the program, if this is the first that failed
  ordered_json facts;                // more for programs, as members of the JSON finding
};

Finding fine(std::string text);
Finding info(std::string text, std::string fix = "");
Finding warning(std::string text, std::string fix);
Finding failed(std::string text, std::string fix, ExitCode exit = ExitCode::Failed);
// Something that failed with a result code; without a fix of its own the code's remedy counts.
Finding failedWith(int code, std::string text, std::string fix = "");

// Things that belong together and are built upon by the next layer.
struct Layer {
  std::string name;   // for programs and --skip: "ports"
  std::string title;  // for people: "Ports"
  std::vector<Finding> findings;

  // The worst of its findings.
  Mark mark() const;
};

struct Report {
  std::string address;  // of the service, as far as known
  std::vector<Layer> layers;

  // The first finding that failed, null when none did.
  const Finding* headline() const;
  ExitCode exit() const;
};

// "fine", "info", "warning", "failed", "skipped".
const char* wordOf(Mark mark);

// Puts a text in a colour, or leaves it as it is.
using Paint = std::function<std::string(Colour, const std::string&)>;
std::string plainPaint(Colour colour, const std::string& text);

std::string toText(const Report& report, const Paint& paint);
ordered_json toJson(const Report& report);

}  // namespace tolvex::ctl
