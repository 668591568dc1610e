// Copies of files that the host application names. Unlike those of file.h, these paths are the
// host's own: in the ANSI code page on Windows, the bytes that the system takes elsewhere. They are
// never null. Nothing here throws.
#pragma once

#include <cstdint>

namespace tolvex::platform {

// The length in bytes of an ordinary file. 0 where there is none at the path, or where its length
// needs more than 31 bits.
std::int32_t fileSize(const char* path);

// Makes the target a copy of the source's contents; a target that is there is emptied first, one
// that is missing is created. Others may read and write both files meanwhile. A source and a target
// that are the same file, by whatever names, stay as they are, which counts as success.
//
// Returns false where either cannot be opened or is no ordinary file (a folder, a device, a pipe:
// none of them is waited for), and where reading or writing fails, such as on a full disk. The
// target is then left with as much as was copied.
bool copyFile(const char* source, const char* target);

}  // namespace tolvex::platform
