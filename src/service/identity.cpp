#include "service/identity.h"

namespace tolvex {

std::string identityOf(std::string_view executable, char separator) {
  const std::size_t last = executable.rfind(separator);
  const std::string_view name =
      last == std::string_view::npos ? executable : executable.substr(last + 1);
  return std::string(name.substr(0, name.find('.')));
}

}  // namespace tolvex
