// Who the host application is.
#pragma once

#include <string>
#include <string_view>

namespace tolvex {

// The application's name from the path of its executable: what stands after the last separator and
// before the first '.' after it (C:\a.b\shop.exe is "shop", D:\pos\my.app.exe is "my").
std::string identityOf(std::string_view executable, char separator);

}  // namespace tolvex
