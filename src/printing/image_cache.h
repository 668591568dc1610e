// Copies of the images that are queued, so that the application may change its own meanwhile.
#pragma once

#include <cstdint>

namespace tolvex {

class VcoClientApi;

// Copies the image into the library's folder, under the next of kCachedImages names that are used
// over and over, and queues the copy's path as a record of the print job. Where the copy fails, the
// caller's own path is queued. The path is in the system's ANSI code page.
// Throws std::bad_alloc; then nothing is queued.
void cacheImage(VcoClientApi& client, const char* path, std::uint16_t angle, std::uint16_t align);

}  // namespace tolvex
