#include "commands/weight.h"

#include <cstring>
#include <iterator>
#include <locale>
#include <sstream>

#include "base/printable.h"

namespace tolvex::ctl {
namespace {

constexpr double kThousandths = 1000;

// The texts of records may fill their fields to the end.
template <std::size_t size>
std::string field(const char (&bytes)[size]) {
  return std::string(bytes, strnlen(bytes, size));
}

// Whatever the locale: the library writes a full stop.
double number(const std::string& text) {
  std::istringstream in(text);
  in.imbue(std::locale::classic());
  double value = 0;
  in >> value;
  return value;
}

// A tare too long for its field runs on into the rest of the record.
std::string tareIn(const tolvex_weight& record) {
  const std::string tare = field(record.tare);
  return tare.size() < sizeof(record.tare) ? tare : tare + field(record.rest);
}

bool isAllZero(const tolvex_weight& record) {
  static constexpr tolvex_weight kNone{};
  return std::memcmp(&record, &kNone, sizeof(record)) == 0;
}

int codeOf(const Answer& answer) {
  switch (answer.value) {
    case TOLVEX_UNDER_LOAD:
      return TOLVEX_RESULT_UNDER_LOAD;
    case TOLVEX_OVER_LOAD:
      return TOLVEX_RESULT_OVER_LOAD;
    default:
      return answer.lastError != TOLVEX_RESULT_OK ? answer.lastError : answer.value;
  }
}

}  // namespace

std::optional<Weight> weightIn(const tolvex_weight& record) {
  if (isAllZero(record)) return std::nullopt;
  Weight weight;
  weight.net = number(field(record.net));
  weight.tare = number(tareIn(record));
  weight.isStable = (record.status & TOLVEX_WEIGHT_STABLE) != 0;
  weight.isAtZero = (record.status & TOLVEX_WEIGHT_AT_ZERO) != 0;
  weight.isTareActive = (record.status & TOLVEX_WEIGHT_TARE_ACTIVE) != 0;
  return weight;
}

Weight readWeight(Service& service) {
  const Answer answer = service.read(TOLVEX_EXPORT(read_standard), sizeof(tolvex_weight));
  if (answer.value == TOLVEX_FAILED) Service::checkReading("weigh", answer);
  if (answer.value != TOLVEX_OK) throw Failure("cannot weigh", codeOf(answer));
  tolvex_weight record;
  std::memcpy(&record, answer.bytes.data(), sizeof(record));
  const auto weight = weightIn(record);
  if (!weight) throw Failure("cannot weigh", TOLVEX_RESULT_INVALID_WEIGHT);
  return *weight;
}

tolvex_base_info readBaseInfo(Service& service) {
  const Answer answer = service.read(TOLVEX_EXPORT(read_baseinfo), sizeof(tolvex_base_info));
  Service::checkReading("read the scale's base information", answer);
  tolvex_base_info info;
  std::memcpy(&info, answer.bytes.data(), sizeof(info));
  return info;
}

std::string unitOf(const tolvex_base_info& info) { return printable(field(info.weight_unit)); }

ordered_json toJson(const tolvex_base_info& info) {
  ordered_json ranges = ordered_json::array();
  for (std::size_t i = 0; i < std::size(info.max_range); ++i) {
    ranges.push_back(
        {{"max", info.max_range[i]}, {"resolution", info.resolution[i] / kThousandths}});
  }
  return {{"unit", field(info.weight_unit)},
          {"ranges", ranges},
          {"min", info.min_range / kThousandths},
          {"max_tare", info.max_tare / kThousandths},
          {"max_preset_tare", info.max_preset_tare / kThousandths},
          {"system_version", field(info.system_version)}};
}

ordered_json toJson(const Weight& weight, const std::string& unit) {
  return {{"net", weight.net},
          {"tare", weight.tare},
          {"unit", unit},
          {"stable", weight.isStable},
          {"at_zero", weight.isAtZero},
          {"tare_active", weight.isTareActive}};
}

std::string toText(const Weight& weight, const std::string& unit) {
  const std::string withUnit = unit.empty() ? "" : " " + unit;
  std::string text = "net " + toText(weight.net) + withUnit + ", tare " + toText(weight.tare) +
                     withUnit + (weight.isStable ? ", stable" : ", not stable");
  if (weight.isAtZero) text += ", at zero";
  return text;
}

std::string toText(double number) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.precision(10);
  out << number;
  return out.str();
}

}  // namespace tolvex::ctl
