#include "control/printer_lookup.h"

#include <nlohmann/json.hpp>

#include "base/list.h"
#include "control/control_error.h"
#include "control/json.h"

namespace tolvex::sim {

std::vector<std::string> namesOf(const Printers& printers) {
  std::vector<std::string> names;
  for (const Printer& printer : printers.all()) names.push_back(printer.name());
  return names;
}

Printer& printerNamed(Printers& printers, const std::string& name) {
  if (Printer* printer = printers.findName(name)) return *printer;
  std::string list;
  for (const std::string& known : namesOf(printers)) addToList(list, known);
  throw ControlError(404, "there is no printer " + shown(name), "The printers are " + list + ".");
}

}  // namespace tolvex::sim
