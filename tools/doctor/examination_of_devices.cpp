#include <algorithm>
#include <array>

#include "base/printable.h"
#include "commands/weight.h"
#include "doctor/examination.h"

namespace tolvex::ctl {
namespace {

constexpr unsigned kLongestList = 2048;
constexpr std::array<unsigned, 4> kPrinterTypes = {0, 1, 2, TOLVEX_DEFAULT_PRINTER};

const char* useOf(unsigned type) {
  switch (type) {
    case 0:
      return "label printer";
    case 1:
      return "ticket printer";
    case 2:
      return "third printer";
    default:
      return "default printer";
  }
}

std::string rangesOf(const tolvex_base_info& info) {
  std::string text;
  for (std::size_t i = 0; i < std::size(info.max_range); ++i) {
    if (info.max_range[i] == 0) continue;
    text += (text.empty() ? "" : ", ") + std::to_string(info.max_range[i]) + ' ' + unitOf(info) +
            " in steps of " + toText(info.resolution[i] / 1000.0);
  }
  return text;
}

}  // namespace

Examination::Findings Examination::scale() {
  Findings findings;
  try {
    const Weight weight = readWeight(serviceOfLibrary());
    const tolvex_base_info base = readBaseInfo(serviceOfLibrary());
    const std::string unit = unitOf(base);
    if (weight.isStable) {
      findings.push_back(fine("the scale shows " + toText(weight, unit)));
    } else {
      findings.push_back(warning("the scale shows " + toText(weight, unit), ""));
      findings.back().code = TOLVEX_RESULT_WEIGHT_NOT_STABLE;
    }
    findings.back().facts = toJson(weight, unit);
    const std::string ranges = rangesOf(base);
    if (ranges.empty()) {
      findings.push_back(warning("the scale tells no range", "Set up the scale in the service."));
    } else {
      findings.push_back(fine("it weighs up to " + ranges));
      findings.back().facts = toJson(base);
    }
  } catch (const Failure& failure) {
    findings.push_back(outcomeOf("the scale", failure));
    const CodeText* const row = failure.code ? findCode(*failure.code) : nullptr;
    if (row != nullptr)
      findings.back().text = std::string("no weight from the scale: ") + row->text;
  }
  return findings;
}

Examination::Findings Examination::printers() {
  Findings findings;
  try {
    const Answer answer = serviceOfLibrary().read(TOLVEX_EXPORT(GetPrinterList), kLongestList);
    Service::checkReading("read the list of printers", answer);
    const std::string list = printable(textIn(answer.bytes));
    if (list.empty()) {
      return {failedWith(TOLVEX_RESULT_PRINTER_NOT_FOUND, "the service knows no printer",
                         "Check the printers' cables and power, and set them up in the service.")};
    }
    findings.push_back(fine("the service knows these printers: " + list));
    findings.back().facts = {{"printers", list}};
    for (const unsigned type : kPrinterTypes) findings.push_back(printerStatus(type));
  } catch (const Failure& failure) {
    findings.push_back(outcomeOf("the printers", failure));
  }
  return findings;
}

Finding Examination::printerStatus(unsigned type) {
  const int code = serviceOfLibrary().call(TOLVEX_EXPORT(GetPrinterStatus), type).value;
  const std::string who =
      std::string("the ") + useOf(type) + " (type " + std::to_string(type) + ")";
  Finding finding;
  if (code == TOLVEX_RESULT_OK) {
    finding = fine(who + " is ready");
  } else if (code == TOLVEX_RESULT_PRINTER_NOT_FOUND && type != TOLVEX_DEFAULT_PRINTER) {
    finding = info(who + " is not there");
  } else if (code == TOLVEX_RESULT_PRINTER_IS_BUSY) {
    finding = warning(who + " is busy", "");
    finding.code = code;
  } else if (code == TOLVEX_RESULT_OUT_OF_PAPER) {
    finding = failedWith(code, who + " is out of paper");
  } else {
    finding = failedWith(code, who + " is not ready");
  }
  finding.facts["printer_type"] = type;
  return finding;
}

}  // namespace tolvex::ctl
