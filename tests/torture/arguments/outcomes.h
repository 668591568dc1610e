// What a call sends and does, as the functions of the model say it.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "model.h"

namespace tolvex::test {

using Values = std::vector<Value>;
using Model = std::function<Expected(const Values&)>;
using Models = std::map<std::string, Model>;  // by the name of the export

Models scaleModels();
Models printingModels();

// ---- Requests ----

struct Member {
  Member(std::string name, const std::string& value) : key(std::move(name)), text(value) {}
  Member(std::string name, int value) : key(std::move(name)), text(std::to_string(value)) {}
  std::string key, text;
};

std::string request(const std::string& command, const std::vector<Member>& members = {});

// ---- Outcomes ----

Expected refused(int result);
Expected silently(int result);
Expected sent(int result, const std::string& text);
Expected writing(Expected expected, const std::string& bytes);

std::string padded(std::string text, std::size_t size);

// A reply that is copied like strncpy.
Expected wholeReply(const std::string& text, const Value& buffer, const Value& size, int good,
                    int tooLong);

// A text that is copied without a NUL.
Expected exactText(const std::string& command, const Value& buffer, const Value& size,
                   const std::string& text, int good, int tooLong);

// ---- Names of printers ----

bool isName(const Value& v);

}  // namespace tolvex::test
