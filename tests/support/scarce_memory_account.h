// Between scarce_memory.cpp and the file of the system that takes the allocations in.
#pragma once

#include <cstddef>

namespace tolvex::test::account {

// Asked before an allocation of so many bytes: whether it may be made.
bool mayAllocate(std::size_t bytes);
// Told of a block that was made, and of one before it is freed or changes its size. Null is none.
void made(const void* block);
void gone(const void* block);

// Around a function of the system that leaves blocks behind where memory runs out in it: those that
// it made are no account of the library's, if it failed.
void systemBegins();
void systemEnds(bool failed);

}  // namespace tolvex::test::account
