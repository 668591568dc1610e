#include "scenario/names.h"

#include "base/list.h"
#include "devices/printers.h"

namespace tolvex::sim {

Half checkPort(const std::string& name, const JsonValue& value) {
  for (const Half half : {Half::Weighing, Half::Printing}) {
    if (name == sim::name(half)) return half;
  }
  value.refuse("there is no port \"" + name + "\"", "Ports are weighing and printing.");
}

void checkPrinter(const std::string& name, const JsonValue& value) {
  Printers printers;
  if (printers.findName(name) != nullptr) return;
  std::string list;
  for (const Printer& printer : printers.all()) addToList(list, printer.name());
  value.refuse("there is no printer \"" + name + "\"", "Printers are: " + list + ".");
}

}  // namespace tolvex::sim
