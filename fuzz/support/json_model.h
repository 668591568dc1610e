// JSON, read the slow and simple way, to compare the library's reading with.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tolvex::fuzz {

struct JsonModel {
  enum class Verdict {
    kJson,
    kNotJson,
    kEither,  // a number near the end of what a double holds: both are fine
  };
  struct Member {
    std::string name;
    std::optional<std::string> text;  // of a string; nothing for another kind of value
  };

  Verdict verdict = Verdict::kNotJson;
  std::vector<Member> members;  // of the object that the text is, in order

  // The first member's text of this name, up to its NUL; nothing when there is none.
  std::optional<std::string> text(std::string_view name) const;
};

// Bytes from 80 to FF stand for themselves; nobody asks whether they are UTF-8.
JsonModel readJson(std::string_view text);

// The code of a reply, as the library tells it: -1 without one.
int resultOf(const JsonModel& reply);

// The number that a text begins with, the nearest one within 32 bits.
int numberIn(const std::string& text);

}  // namespace tolvex::fuzz
