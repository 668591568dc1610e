// The implementation of the picture library. Nothing else belongs here: its macros cast as C does.
#include <cstddef>
#include <cstdlib>

namespace {

// A file of a few kilobytes can ask for gigabytes. The largest buffer that a picture within the
// limits needs stays well below this one.
constexpr std::size_t kMaxBuffer = std::size_t{192} << 20U;

void* allocate(std::size_t size) { return size <= kMaxBuffer ? std::malloc(size) : nullptr; }

void* reallocate(void* buffer, std::size_t size) {
  return size <= kMaxBuffer ? std::realloc(buffer, size) : nullptr;
}

}  // namespace

#define STBI_MALLOC(size) allocate(size)
#define STBI_REALLOC(buffer, size) reallocate(buffer, size)
#define STBI_FREE(buffer) std::free(buffer)
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_WRITE_IMPLEMENTATION
#include "paper/stb.h"
