#include "doctor/report.h"

#include <algorithm>
#include <utility>

#include "base/result_code.h"

namespace tolvex::ctl {
namespace {

struct Look {
  const char* word;
  const char* shown;  // of one width
  Mark mark;
  Colour colour;
};

constexpr Look kLooks[] = {
    {"fine", "[ fine  ]", Mark::Fine, Colour::Good},
    {"info", "[ info  ]", Mark::Info, Colour::Faint},
    {"warning", "[warning]", Mark::Warning, Colour::Warning},
    {"failed", "[FAILED ]", Mark::Failed, Colour::Bad},
    {"skipped", "[skipped]", Mark::Skipped, Colour::Faint},
};
constexpr char kIndent[] = "          ";

const Look& lookOf(Mark mark) {
  return *std::find_if(std::begin(kLooks), std::end(kLooks),
                       [mark](const Look& look) { return look.mark == mark; });
}

// How bad a mark is, for the mark of a layer.
int badness(Mark mark) {
  switch (mark) {
    case Mark::Skipped:
      return 0;
    case Mark::Info:
      return 1;
    case Mark::Fine:
      return 2;
    case Mark::Warning:
      return 3;
    case Mark::Failed:
      return 4;
  }
  return 0;
}

std::string fixOf(const Finding& finding) {
  return finding.fix.empty() && finding.code ? remedyOf(*finding.code) : finding.fix;
}

std::string meaningOf(const Finding& finding) {
  const CodeText* const row = finding.code ? findCode(*finding.code) : nullptr;
  return row != nullptr ? row->meaning : "";
}

void addDetails(std::string& text, const Finding& finding) {
  if (finding.code && *finding.code != 0) {
    const std::string meaning = meaningOf(finding);
    text += kIndent + ("code " + codeLine(*finding.code)) +
            (meaning.empty() ? "" : ": " + meaning) + '\n';
  }
  const std::string fix = fixOf(finding);
  if (!fix.empty()) text += kIndent + ("fix: " + fix) + '\n';
}

ordered_json orNull(const std::string& text) {
  return text.empty() ? ordered_json(nullptr) : ordered_json(text);
}

ordered_json toJson(const Finding& finding) {
  const CodeText* const row = finding.code ? findCode(*finding.code) : nullptr;
  ordered_json value = {{"state", wordOf(finding.mark)}, {"message", finding.text}};
  if (finding.code) {
    value["code"] = *finding.code;
    value["name"] = row != nullptr ? ordered_json(row->name) : ordered_json(nullptr);
    value["meaning"] = orNull(meaningOf(finding));
  }
  if (!fixOf(finding).empty()) value["fix"] = fixOf(finding);
  if (finding.facts.is_object()) value.update(finding.facts);
  return value;
}

// In the form that all failed commands have.
ordered_json errorOf(const Finding& finding) {
  const CodeText* const row = finding.code ? findCode(*finding.code) : nullptr;
  return {{"message", finding.text},
          {"code", finding.code ? ordered_json(*finding.code) : ordered_json(nullptr)},
          {"name", row != nullptr ? ordered_json(row->name) : ordered_json(nullptr)},
          {"meaning", orNull(meaningOf(finding))},
          {"remedy", orNull(fixOf(finding))}};
}

std::string headlineText(const Report& report, const Paint& paint) {
  const Finding* const first = report.headline();
  if (first != nullptr) {
    std::string text = paint(Colour::Bad, "tolvexctl doctor: " + first->text) + '\n';
    const std::string fix = fixOf(*first);
    return fix.empty() ? text : text + "fix: " + fix + '\n';
  }
  const auto isWarning = [](const Layer& layer) { return layer.mark() == Mark::Warning; };
  const bool warned = std::any_of(report.layers.begin(), report.layers.end(), isWarning);
  return warned ? paint(Colour::Warning, "tolvexctl doctor: works, with warnings") + '\n'
                : paint(Colour::Good, "tolvexctl doctor: all is well") + '\n';
}

}  // namespace

Finding fine(std::string text) {
  Finding finding;
  finding.text = std::move(text);
  return finding;
}

Finding info(std::string text, std::string fix) {
  Finding finding = fine(std::move(text));
  finding.mark = Mark::Info;
  finding.fix = std::move(fix);
  return finding;
}

Finding warning(std::string text, std::string fix) {
  Finding finding = info(std::move(text), std::move(fix));
  finding.mark = Mark::Warning;
  return finding;
}

Finding failed(std::string text, std::string fix, ExitCode exit) {
  Finding finding = info(std::move(text), std::move(fix));
  finding.mark = Mark::Failed;
  finding.exit = exit;
  return finding;
}

Finding failedWith(int code, std::string text, std::string fix) {
  Finding finding = failed(std::move(text), std::move(fix), exitOf(code));
  finding.code = code;
  return finding;
}

Mark Layer::mark() const {
  Mark worst = Mark::Skipped;
  for (const Finding& finding : findings) {
    if (badness(finding.mark) > badness(worst)) worst = finding.mark;
  }
  return worst;
}

const Finding* Report::headline() const {
  for (const Layer& layer : layers) {
    for (const Finding& finding : layer.findings) {
      if (finding.mark == Mark::Failed) return &finding;
    }
  }
  return nullptr;
}

ExitCode Report::exit() const {
  const Finding* const first = headline();
  return first != nullptr ? first->exit : ExitCode::Fine;
}

const char* wordOf(Mark mark) { return lookOf(mark).word; }

std::string plainPaint(Colour, const std::string& text) { return text; }

std::string toText(const Report& report, const Paint& paint) {
  std::string text = headlineText(report, paint) + '\n';
  for (const Layer& layer : report.layers) {
    text += paint(Colour::Strong, layer.title) + '\n';
    for (const Finding& finding : layer.findings) {
      const Look& look = lookOf(finding.mark);
      text += paint(look.colour, look.shown) + ' ' + finding.text + '\n';
      addDetails(text, finding);
    }
  }
  return text;
}

ordered_json toJson(const Report& report) {
  const Finding* const first = report.headline();
  ordered_json value = {{"ok", first == nullptr}};
  if (first != nullptr) value["error"] = errorOf(*first);
  value["exit"] = static_cast<int>(report.exit());
  value["address"] = orNull(report.address);
  value["layers"] = ordered_json::array();
  for (const Layer& layer : report.layers) {
    ordered_json findings = ordered_json::array();
    for (const Finding& finding : layer.findings) findings.push_back(toJson(finding));
    value["layers"].push_back({{"layer", layer.name},
                               {"title", layer.title},
                               {"state", wordOf(layer.mark())},
                               {"findings", findings}});
  }
  return value;
}

}  // namespace tolvex::ctl
