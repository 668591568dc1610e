// Texts that are to be printed.
#pragma once

#include <string>
#include <vector>

namespace tolvex::ctl {

/// Reads a text in UTF-8 from a file, or from standard input for "-". Throws a Failure when it can
/// not be read, is not UTF-8 (the message names the line), has a NUL, is empty or longer than 8 MiB.
/// A byte order mark at the head is left out.
std::string readText(const std::string& file);

/// Its lines without their ends (LF or CR LF); a line end at the end begins no further line.
std::vector<std::string> linesOf(const std::string& text);

/// Throws a Failure with code 6 that names the first line of more than 2048 bytes.
void checkLineLengths(const std::string& text);

/// The text in the system's ANSI code page. Throws a Failure that names the first character that the
/// code page lacks, and its line.
std::string inAnsi(const std::string& text);

/// A path for an export that takes ANSI text, made absolute. Throws a Failure when there is no such
/// file, or when the code page lacks one of its characters.
std::string imagePath(const std::string& file);

}  // namespace tolvex::ctl
