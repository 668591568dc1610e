#include "values.h"

#include <algorithm>
#include <climits>

namespace tolvex::test {

const std::string kFormat = "%n%s%x%n%99999d";

Value text(const std::string& bytes) {
  Value value;
  value.kind = Kind::kText;
  value.text = bytes;
  return value;
}

namespace {

Value nothing(Kind kind) {
  Value value;
  value.kind = kind;
  value.isNull = true;
  return value;
}

Value number(long long wanted) {
  Value value;
  value.number = static_cast<int>(static_cast<unsigned>(wanted & 0xFFFFFFFF));
  return value;
}

std::string controls() {
  std::string all;
  for (char c = 1; c < 32; ++c) all += c;
  return all + '\x7f';
}

Value ordinaryText(const Parameter& parameter) {
  if (parameter.name == "module") return text("print");
  if (parameter.name == "ip") return text("127.0.0.1");
  return text("apples");
}

std::vector<Value> hostileTexts(const Parameter& parameter) {
  std::vector<Value> values = {nothing(Kind::kText)};
  for (const std::string& one :
       {std::string(), kFormat, std::string("a\r\nb\n\n\rc\n"), std::string("\n"),
        std::string("\"quoted\" \\back\\ {\"cmd\":\"x\"}"), controls(), std::string("\xff\xfe\xc3"),
        std::string("\x80\xbf"), std::string("\xc0\xaf\xed\xa0\x80"),
        std::string("\xe2\x82\xac \xe7\xa7\xa4 \xf0\x9f\x8d\x8e"), std::string(255, 'x'),
        std::string(256, 'x'), std::string(2047, 'x'), std::string(2048, 'x'),
        std::string(2049, 'x'), std::string("loadcell"), std::string("256.1.1.1")}) {
    values.push_back(text(one));
  }
  if (parameter.name == "printerName") {
    values.push_back(text(std::string(256, 'u')));  // as much as may be read of it
    values.back().terminated = false;
  }
  return values;
}

// That of send_pre_tare holds a text, which is logged.
std::vector<Value> hostileBuffers(const Parameter& parameter) {
  std::vector<Value> values = {nothing(Kind::kBuffer), Value()};
  if (parameter.name != "text") return values;
  for (const Value& one : hostileTexts(parameter)) values.push_back(one);
  return values;
}

std::vector<Value> hostileNumbers(const Parameter& parameter) {
  std::vector<long long> numbers = {0, 1, -1, INT_MAX, INT_MIN, UINT_MAX};
  const auto add = [&numbers](std::initializer_list<long long> more) {
    numbers.insert(numbers.end(), more);
  };
  if (parameter.name == "fontSize") add({11, 12, 72, 73, 65535, 65536, 65548});
  if (parameter.name == "width") add({79, 80, 81, 65536, 0x20000000});
  if (parameter.name == "distance") add({999, 1000, 1001});
  if (parameter.name == "align") add({2, 3});
  if (parameter.name == "angle") add({270, 65535, 65536});
  if (parameter.name == "printerType") add({2, 100});
  if (parameter.name == "jobType") {
    for (int type = 2; type <= 400; ++type) numbers.push_back(type);
  }
  if (parameter.name == "wait") numbers = {20000, INT_MAX, UINT_MAX};
  std::vector<Value> values;
  for (const long long one : numbers) values.push_back(number(one));
  return values;
}

// Each boundary of what may be copied.
std::vector<Value> sizes() {
  std::vector<Value> values;
  const auto whole = static_cast<long long>(kReplyToAll.size());
  const auto list = static_cast<long long>(kPrinters.size());
  const auto level = static_cast<long long>(kLevel.size());
  for (const long long one : {0LL, 1LL, level - 1, level, level + 1, list - 1, list, list + 1,
                              whole - 1, whole, whole + 1, 2048LL, 2049LL, 65536LL}) {
    values.push_back(number(one));
  }
  return values;
}

std::size_t fixedRoom(const std::string& name) {
  if (name.find("read_baseinfo") == 0) return 64;
  return name.find("read_standard") == 0 ? 24 : 10;
}

bool isSize(const ExportUnderTest& one, std::size_t at) {
  return at > 0 && one.parameters[at].name == "size" &&
         one.parameters[at - 1].kind == Kind::kBuffer;
}

}  // namespace

Values choices(const ExportUnderTest& one, std::size_t at) {
  const Parameter& parameter = one.parameters[at];
  if (isSize(one, at)) return sizes();
  switch (parameter.kind) {
    case Kind::kText:
      return hostileTexts(parameter);
    case Kind::kBuffer:
      return hostileBuffers(parameter);
    default:
      return hostileNumbers(parameter);
  }
}

Values ordinaryValues(const ExportUnderTest& one) {
  Values values;
  for (std::size_t at = 0; at < one.parameters.size(); ++at) {
    const Parameter& parameter = one.parameters[at];
    if (parameter.kind == Kind::kText) {
      values.push_back(ordinaryText(parameter));
    } else if (parameter.kind == Kind::kBuffer) {
      values.emplace_back();
    } else if (isSize(one, at)) {
      values.push_back(number(4096));
    } else {
      values.push_back(number(parameter.name == "wait" ? 20000 : 24));
    }
  }
  return values;
}

void settle(const ExportUnderTest& one, Values& values) {
  for (std::size_t at = 0; at < values.size(); ++at) {
    values[at].kind = one.parameters[at].kind;
    if (values[at].kind == Kind::kBuffer && !values[at].isNull) {
      const bool sized = at + 1 < values.size() && isSize(one, at + 1);
      values[at].room = sized ? static_cast<unsigned>(values[at + 1].number)
                              : std::max(fixedRoom(one.name), values[at].text.size() + 1);
    }
  }
}

}  // namespace tolvex::test
