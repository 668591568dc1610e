// The scale, the printers and the drawer.
#include "control/patches.h"
#include "control/printer_lookup.h"
#include "control/route.h"
#include "control/views.h"

namespace tolvex::sim {

namespace {

using Answer = std::optional<HttpResponse>;

Scale& scaleOf(Call& call) { return call.simulation.devices.scale; }

Answer getScale(Call& call) { return jsonResponse(scaleView(scaleOf(call), call.now)); }

Answer patchScale(Call& call) {
  Plan plan;
  planScale(scaleOf(call), call.body, call.now, plan);
  plan.carryOut();
  return getScale(call);
}

const char* remedyFor(ResultCode code) {
  switch (code) {
    case ResultCode::WeightNotStable:
      return "Wait until the weight is stable: state.scale.reading.stable.";
    case ResultCode::LcNotConnected:
      return "Connect the scale: PATCH /api/scale {\"connected\": true}.";
    case ResultCode::InvalidWeight:
      return "Mend the scale: PATCH /api/scale {\"invalid\": false}.";
    default:
      return "Put another load on the scale: PATCH /api/scale {\"load_kg\": 0}.";
  }
}

// A key of the scale that did what it is for, or a refusal.
Answer pressed(Call& call, const std::string& key, ResultCode code) {
  if (code == ResultCode::Ok) return getScale(call);
  throw ControlError(code, "the scale refuses " + key + ": " + message(code), remedyFor(code));
}

Answer pressZero(Call& call) { return pressed(call, "zero", scaleOf(call).setZero(call.now)); }
Answer pressTare(Call& call) {
  return pressed(call, "the tare", scaleOf(call).tareByKey(call.now));
}

Answer clearTare(Call& call) {
  return pressed(call, "to clear the tare", scaleOf(call).clearTare());
}

Answer presetTare(Call& call) {
  const double most = static_cast<double>(scaleOf(call).config().maxPreTare) /
                      static_cast<double>(kMilligramsPerKilogram);
  const Field field{"tare_kg", FieldType::Number, "0.12", 0, most};
  checkObject(call.body, "a preset tare", {field.name});
  check(field, call.body.contains(field.name) ? call.body.at(field.name) : Json());
  const Milligrams tare = kilograms(call.body.at(field.name).get<double>());
  return pressed(call, "the preset tare", scaleOf(call).presetTare(tare));
}

Printer& printerOf(Call& call) {
  return printerNamed(call.simulation.devices.printers, call.names.at(0));
}

Answer getPrinters(Call& call) {
  return jsonResponse({{"printers", printersView(call.simulation.devices.printers)}});
}

Answer getPrinter(Call& call) { return jsonResponse(printerView(printerOf(call))); }

Answer patchPrinter(Call& call) {
  Plan plan;
  planPrinter(printerOf(call), call.body, plan);
  plan.carryOut();
  return getPrinter(call);
}

Answer tear(Call& call) {
  printerOf(call).tearOff();
  return getPrinter(call);
}

Answer loadPaper(Call& call) {
  Plan plan;
  planPaper(printerOf(call), call.body, plan);
  plan.carryOut();
  return getPrinter(call);
}

// What has to be done so that there is a label gap to be found.
std::string remedyForGap(const Printer& printer) {
  if (!printer.hasLabels()) return "Choose a printer with labels.";
  const std::string patch = "PATCH /api/printers/" + printer.name() + " ";
  switch (printer.stock()->kind) {
    case StockKind::Continuous:
      return "Put labels in, since continuous stock has no gap to be found: " + patch +
             R"({"stock": {"kind": "gap"}}.)";
    case StockKind::Mark:
      return "Set the gap type to 2, which finds marks: " + patch +
             R"({"settings": {"gap-type": 2}}; or put labels with gaps in.)";
    case StockKind::Gap:
      break;
  }
  return "Set the gap type to 1, which finds gaps: " + patch +
         R"({"settings": {"gap-type": 1}}; or put labels with marks in.)";
}

std::string remedyForCalibration(const Printer& printer, ResultCode code) {
  switch (code) {
    case ResultCode::PrtDrvReturnError:
      return remedyForGap(printer);
    case ResultCode::TooMuchToPrint:
      return "Tear the paper off: POST /api/printers/" + printer.name() + "/tear.";
    case ResultCode::OutOfPaper:
      return "Put paper in: POST /api/printers/" + printer.name() + "/load-paper.";
    default:
      return "Mend its faults: PATCH /api/printers/" + printer.name() + ".";
  }
}

Answer calibrate(Call& call) {
  Printer& printer = printerOf(call);
  const ResultCode code = printer.calibrateLabelGap();
  if (code == ResultCode::Ok) return getPrinter(call);
  throw ControlError(code, printer.name() + " refuses to calibrate the label gap: " + message(code),
                     remedyForCalibration(printer, code));
}

Answer getDrawer(Call& call) { return jsonResponse(drawerView(call.simulation.devices.drawer)); }

Answer patchDrawer(Call& call) {
  Plan plan;
  planDrawer(call.simulation.devices.drawer, call.body, plan);
  plan.carryOut();
  return getDrawer(call);
}

}  // namespace

const RouteTable& deviceRoutes() {
  static const std::string printer = "/api/printers/{name}";
  static const RouteTable table = {
      {"GET", "/api/scale", "the scale", Body::None, {}, getScale},
      {"PATCH",
       "/api/scale",
       "changes load and faults of the scale",
       Body::Required,
       {},
       patchScale},
      {"POST", "/api/scale/zero", "presses the zero key", Body::None, {}, pressZero},
      {"POST", "/api/scale/tare", "presses the tare key", Body::None, {}, pressTare},
      {"POST", "/api/scale/clear-tare", "clears the tare", Body::None, {}, clearTare},
      {"POST", "/api/scale/preset-tare", "enters a tare", Body::Required, {}, presetTare},
      {"GET", "/api/printers", "all printers", Body::None, {}, getPrinters},
      {"GET", printer, "a printer", Body::None, {}, getPrinter},
      {"PATCH", printer, "changes faults, paper and settings", Body::Required, {}, patchPrinter},
      {"POST", printer + "/tear", "tears the paper off", Body::None, {}, tear},
      {"POST", printer + "/load-paper", "puts in a new roll", Body::Optional, {}, loadPaper},
      {"POST", printer + "/calibrate", "learns the label gap", Body::None, {}, calibrate},
      {"GET", "/api/drawer", "the drawer", Body::None, {}, getDrawer},
      {"PATCH", "/api/drawer", "opens or closes the drawer", Body::Required, {}, patchDrawer},
  };
  return table;
}

}  // namespace tolvex::sim
