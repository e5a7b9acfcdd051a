// Replaces operator new for the whole program; in a file of its own, so that no call of it is inlined.
#include "app/allocation_count.h"

#include <cstdlib>
#include <new>

namespace {
std::size_t count = 0;
} // namespace

std::size_t tarvik::allocationCount() {
    return count;
}

void* operator new(std::size_t size) {
    ++count;
    if (void* const memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
