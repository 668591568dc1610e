// A record of the log, and the header that each begins with.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "logs/log_time.h"

namespace tolvex::ctl {

// What begins the line that the logger leaves in a ring which it has just emptied.
inline constexpr std::string_view kClearedMark = " ===== Clear All logs =====";

// "2024-03-05 14:07:09 Ms:042 [W] L:044 M:Socket MESSAGE". Texts point into the line.
struct LogHeader {
  LogTime time = 0;
  char letter = '*';        // V D I N W T E for the levels 1 to 7, '*' for any other
  unsigned line = 0;        // of the library's source
  std::string_view module;  // "DLL", "Socket", "NLog"; may be empty
  std::string_view message;
};

// The header at the begin of a line (without its end); nullopt for a line that has none.
std::optional<LogHeader> parseLogHeader(std::string_view line);

// 1 to 7, 0 for '*'; of any other letter, too.
int levelOfLetter(char letter);
// One of "VDINWTE", '*' for a level that is not 1 to 7.
char letterOfLevel(int level);

struct LogRecord {
  std::optional<LogTime> time;  // none: the ring was emptied here, or the begin is lost
  LogTime order = 0;            // where it stands in time: its own, else that of what follows
  int level = 0;                // 0: none, or one that the library does not use
  unsigned line = 0;
  std::string module;
  std::string text;  // UTF-8; lines of a longer text stand apart by '\n'
  std::string file;  // name of the file that holds its begin
};

// What people see of a line of the log: valid UTF-8. Bytes that are no UTF-8 count as text in the
// ANSI code page, as the host application passed it; a character that the end of the line cuts
// becomes U+FFFD.
std::string logTextInUtf8(std::string_view bytes);

// Cuts nothing and changes nothing but control characters, which a terminal would obey: they become
// "\x1B" and the like, all but tab.
std::string withoutControls(std::string_view text);

}  // namespace tolvex::ctl
