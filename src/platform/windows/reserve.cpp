// A reserve of memory for the compiler's run-time library, which is linked into this one.
//
// Throwing std::bad_alloc takes memory itself on this system: for the lock of the emergency pool, for
// what a thread keeps about its exceptions and its locks. Where the run-time library does not get it,
// it throws once more, without end, or ends the process. So its malloc() and calloc() are led here by
// the linker (--wrap) and get one of a few pieces when the heap has nothing left. What the library's
// own code takes, by operator new or in large blocks, is refused then, as it should be.
#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

namespace {

// Enough for the first exceptions of a dozen threads; each takes four pieces.
constexpr std::size_t kPieces = 64;
constexpr std::size_t kPieceSize = 1024;

alignas(std::max_align_t) unsigned char pieces[kPieces][kPieceSize];
std::atomic<std::uint64_t> taken{0};

bool isPiece(const void* block) {
  const auto* const byte = static_cast<const unsigned char*>(block);
  return byte >= &pieces[0][0] && byte < &pieces[0][0] + sizeof(pieces);
}

void* takePiece(std::size_t size) {
  if (size > kPieceSize) return nullptr;
  for (std::size_t i = 0; i < kPieces; ++i) {
    const std::uint64_t bit = std::uint64_t{1} << i;
    if ((taken.fetch_or(bit) & bit) == 0) return pieces[i];
  }
  return nullptr;
}

void givePieceBack(void* block) {
  const auto offset = static_cast<std::size_t>(static_cast<unsigned char*>(block) - &pieces[0][0]);
  taken.fetch_and(~(std::uint64_t{1} << offset / kPieceSize));
}

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the linker's names
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);
void __wrap_free(void* block);

void* __wrap_malloc(std::size_t size) {
  void* const block = __real_malloc(size);
  return block != nullptr ? block : takePiece(size);
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
  void* const block = __real_calloc(count, size);
  if (block != nullptr || size == 0 || count > kPieceSize / size) return block;
  void* const piece = takePiece(count * size);
  if (piece != nullptr) std::memset(piece, 0, kPieceSize);
  return piece;
}

void* __wrap_realloc(void* block, std::size_t size) {
  if (block == nullptr) return __wrap_malloc(size);
  const bool fromReserve = isPiece(block);
  if (fromReserve && size <= kPieceSize) return block;
  void* const grown = fromReserve ? __real_malloc(size) : __real_realloc(block, size);
  if (grown != nullptr && !fromReserve) return grown;
  void* const moved = grown != nullptr ? grown : takePiece(size);
  if (moved == nullptr) return nullptr;
  std::memcpy(moved, block, fromReserve ? kPieceSize : std::min(size, _msize(block)));
  __wrap_free(block);
  return moved;
}

void __wrap_free(void* block) {
  if (isPiece(block)) {
    givePieceBack(block);
  } else {
    __real_free(block);
  }
}
}

// What the library's own code asks for: from the heap, or not at all.
void* operator new(std::size_t size) {
  void* const block = __real_malloc(size > 0 ? size : 1);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void operator delete(void* block) noexcept { __real_free(block); }
void operator delete(void* block, std::size_t) noexcept { __real_free(block); }
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
