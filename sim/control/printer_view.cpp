// Printers as JSON.
#include <nlohmann/json.hpp>

#include "control/views.h"

namespace tolvex::sim {

namespace {

// Lengths are millimetres in JSON, of which a dot is an eighth.
Json inMillimetres(int dots) { return plainNumber(static_cast<double>(dots) / kDotsPerMm); }

Json faultsView(const Printer& printer) {
  Json faults = Json::object();
  for (const PrinterFaultRow& row : printerFaults()) faults[row.name] = printer.hasFault(row.fault);
  return faults;
}

Json paperView(const Printer& printer) {
  const std::optional<int> left = printer.paperLeft();
  return {{"width_mm", inMillimetres(printer.format().width)},
          {"printable_mm", inMillimetres(printer.format().printable)},
          {"left_mm", left ? inMillimetres(*left) : Json()},
          {"fed_mm", inMillimetres(printer.freshPaper())}};
}

Json stockView(const LabelStock* stock) {
  if (stock == nullptr) return nullptr;
  return {{"kind", name(stock->kind)},
          {"label_mm", inMillimetres(stock->label)},
          {"gap_mm", inMillimetres(stock->gap)},
          {"position_mm", inMillimetres(stock->position)}};
}

Json learntView(const LabelStock* stock) {
  Json view = stockView(stock);
  if (stock != nullptr) view.erase("position_mm");
  return view;
}

Json settingsView(const PrinterSettings& settings) {
  Json view = Json::object();
  for (const SettingRow& row : printerSettings()) view[row.name] = settings[row.setting];
  return view;
}

Json jobInPrint(const Printer& printer) {
  const Job* job = printer.job();
  return job == nullptr || job->isFinished() ? Json() : Json(job->number());
}

}  // namespace

Json printerView(const Printer& printer) {
  return {{"name", printer.name()},
          {"type", printer.type()},
          {"result", static_cast<int>(printer.status())},
          {"text", message(printer.status())},
          {"faults", faultsView(printer)},
          {"paper", paperView(printer)},
          {"stock", stockView(printer.stock())},
          {"learnt", learntView(printer.learnt())},
          {"in_register", printer.isInRegister()},
          {"calibrated",
           {{"label_gap", printer.knowsLabelGap()}, {"paper_end", printer.knowsPaperEnd()}}},
          {"settings", settingsView(printer.settings())},
          {"job", jobInPrint(printer)}};
}

Json printersView(const Printers& printers) {
  Json views = Json::array();
  for (const Printer& printer : printers.all()) views.push_back(printerView(printer));
  return views;
}

}  // namespace tolvex::sim
