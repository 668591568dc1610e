// What can be set of a printer.
#include <cmath>
#include <optional>

#include "control/members.h"

namespace tolvex::sim {

namespace {

constexpr double kLongestRollMm = 1'000'000;

// The nearest dot.
int dotsOf(const Json& mm) { return static_cast<int>(std::lround(mm.get<double>() * kDotsPerMm)); }

double mmOf(int dots) { return static_cast<double>(dots) / kDotsPerMm; }

Field leftField() {
  Field field{"left_mm", FieldType::Number, "50000", 0, kLongestRollMm};
  field.nullable = true;
  return field;
}

std::optional<int> leftOf(const Json& value) {
  if (value.is_null()) return std::nullopt;
  return dotsOf(value);
}

void setLeft(Printer*& printer, const Json& value) { printer->setPaperLeft(leftOf(value)); }

const std::vector<Member<Printer*>>& paperMembers() {
  static const std::vector<Member<Printer*>> table = {{leftField(), setLeft}};
  return table;
}

void setKind(LabelStock*& stock, const Json& value) {
  for (const StockKind kind : {StockKind::Gap, StockKind::Mark, StockKind::Continuous}) {
    if (value == name(kind)) stock->kind = kind;
  }
}

void setLabel(LabelStock*& stock, const Json& value) { stock->label = dotsOf(value); }
void setGap(LabelStock*& stock, const Json& value) { stock->gap = dotsOf(value); }
void setPosition(LabelStock*& stock, const Json& value) { stock->position = dotsOf(value); }

const std::vector<Member<LabelStock*>>& stockMembers() {
  static const std::vector<Member<LabelStock*>> table = {
      {{"kind", FieldType::Choice, "\"gap\"", 0, 0, {"gap", "mark", "continuous"}}, setKind},
      {{"label_mm", FieldType::Number, "40", mmOf(kSmallestLabel), mmOf(kLargestLabel)}, setLabel},
      {{"gap_mm", FieldType::Number, "3", mmOf(kSmallestGap), mmOf(kLargestGap)}, setGap},
      {{"position_mm", FieldType::Number, "0", 0, mmOf(kLargestLabel + kLargestGap)}, setPosition},
  };
  return table;
}

// The labels that lie in the printer, with what the patch says of them.
LabelStock stockFrom(const Printer& printer, const Json& patch) {
  if (printer.stock() == nullptr) {
    throw badRequest(printer.name() + " prints on a roll without labels and has no stock",
                     "Leave stock out, or send it to a label printer.");
  }
  LabelStock stock = *printer.stock();
  Plan plan;
  planMembers(stockMembers(), "a stock", &stock, patch, plan);
  plan.carryOut();
  if (stock.position < stock.pitch()) return stock;
  if (!patch.contains("position_mm")) {
    stock.position = 0;
    return stock;
  }
  const std::string pitch = shown(plainNumber(mmOf(stock.pitch())));
  throw badRequest("position_mm is " + shown(patch.at("position_mm")) + ", but label and gap are " +
                       pitch + " mm long together",
                   "Send less than " + pitch + ", as in {\"position_mm\": 0}.")
      .in("position_mm");
}

void planStock(Printer& printer, const Json& patch, Plan& plan) {
  plan.add([&printer, stock = stockFrom(printer, patch)] { printer.setStock(stock); });
}

void planFaultsThatAre(bool on, Printer& printer, const Json& patch, Plan& plan) {
  std::vector<std::string> names;
  for (const PrinterFaultRow& row : printerFaults()) names.emplace_back(row.name);
  checkObject(patch, "the faults of a printer", names);
  for (const PrinterFaultRow& row : printerFaults()) {
    const auto found = patch.find(row.name);
    if (found == patch.end()) continue;
    check({row.name, FieldType::Flag, "true"}, *found);
    if (*found == on) plan.add([&printer, fault = row.fault, on] { printer.setFault(fault, on); });
  }
}

void planMendedFaults(Printer& printer, const Json& patch, Plan& plan) {
  planFaultsThatAre(false, printer, patch, plan);
}

void planMadeFaults(Printer& printer, const Json& patch, Plan& plan) {
  planFaultsThatAre(true, printer, patch, plan);
}

struct Wish {
  const SettingRow* row;
  int value;
};

std::vector<Wish> wishesFrom(const Json& patch) {
  std::vector<std::string> names;
  for (const SettingRow& row : printerSettings()) names.emplace_back(row.name);
  checkObject(patch, "the settings of a printer", names);
  std::vector<Wish> wishes;
  for (const SettingRow& row : printerSettings()) {
    const auto found = patch.find(row.name);
    if (found == patch.end()) continue;
    check({row.name, FieldType::Whole, std::to_string(row.initial),
           static_cast<double>(row.smallest), static_cast<double>(row.largest)},
          *found);
    wishes.push_back({&row, found->get<int>()});
  }
  return wishes;
}

// Paper width and margins depend on each other: a value may be fine only after another one is set.
// Tried on a copy of the printer, of which nothing but the settings is touched.
void planSettings(Printer& printer, const Json& patch, Plan& plan) {
  std::vector<Wish> wishes = wishesFrom(patch);
  Printer trial = printer;
  while (!wishes.empty()) {
    const auto fits = std::find_if(wishes.begin(), wishes.end(), [&](const Wish& wish) {
      return trial.set(wish.row->setting, wish.value) == ResultCode::Ok;
    });
    if (fits == wishes.end()) {
      throw badRequest(std::string(wishes.front().row->name) + " can not be " +
                           std::to_string(wishes.front().value) + " on " + printer.name(),
                       "Send a paper width that the printer takes, and margins that leave " +
                           std::to_string(Printer::kNarrowestText) + " dots between them.")
          .in(wishes.front().row->name);
    }
    plan.add([&printer, wish = *fits] { printer.set(wish.row->setting, wish.value); });
    wishes.erase(fits);
  }
}

struct Part {
  const char* name;
  void (*plan)(Printer& printer, const Json& patch, Plan& plan);
};

void planPaperMembers(Printer& printer, const Json& patch, Plan& plan) {
  planMembers(paperMembers(), "the paper of a printer", &printer, patch, plan);
}

}  // namespace

void planPrinter(Printer& printer, const Json& patch, Plan& plan) {
  // Mending a printer that is out of paper puts an endless roll in, and new paper mends that fault:
  // what the same patch says of the paper comes after the one and before the other.
  static const std::vector<Part> parts = {{"faults", planMendedFaults},
                                          {"paper", planPaperMembers},
                                          {"stock", planStock},
                                          {"settings", planSettings},
                                          {"faults", planMadeFaults}};
  checkObject(patch, "a printer", {"faults", "paper", "stock", "settings"});
  for (const Part& part : parts) {
    const auto found = patch.find(part.name);
    if (found != patch.end()) within(part.name, [&] { part.plan(printer, *found, plan); });
  }
}

void planPaper(Printer& printer, const Json& roll, Plan& plan) {
  checkObject(roll, "a roll of paper", {"left_mm", "stock"});
  std::optional<int> left;
  if (const auto found = roll.find("left_mm"); found != roll.end()) {
    check(leftField(), *found);
    left = leftOf(*found);
  }
  std::optional<LabelStock> stock;
  if (const auto found = roll.find("stock"); found != roll.end()) {
    within("stock", [&] { stock = stockFrom(printer, *found); });
  }
  plan.add([&printer, left, stock] { printer.loadPaper(left, stock); });
}

}  // namespace tolvex::sim
