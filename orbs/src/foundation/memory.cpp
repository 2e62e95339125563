// Aligned allocation: malloc with room to align, the raw pointer hidden in the word below the aligned one.
#include "orbs/foundation.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::uintptr_t alignment = 32;

template <class T>
T* allocate(int len) {
    if (len < 1) return nullptr;
    // The count wraps in 32 bits, and the block is then shorter than len elements, but always holds the hidden word.
    constexpr Orb32u overhead = alignment + sizeof(void*);
    const Orb32u bytes = static_cast<Orb32u>(len) * Orb32u{sizeof(T)} + overhead;
    void* raw = std::malloc(std::max(bytes, overhead));
    if (!raw) return nullptr;
    const auto address = reinterpret_cast<std::uintptr_t>(raw);
    const auto aligned = (address + sizeof(void*) + alignment - 1) & ~(alignment - 1);
    char* block = static_cast<char*>(raw) + (aligned - address);
    std::memcpy(block - sizeof(void*), &raw, sizeof raw);
    return reinterpret_cast<T*>(block);
}

constexpr OrbLibraryVersion version = {5, 2, 108, 414, {'v', '8', 0, 0}, "liborbsv8.so.5.2", "5.2", "Jul 11 2007"};

} // namespace

// clang-format off
extern "C" {

Orb8u* orbsMalloc_8u(int len) { return allocate<Orb8u>(len); }
Orb8s* orbsMalloc_8s(int len) { return allocate<Orb8s>(len); }
Orb16u* orbsMalloc_16u(int len) { return allocate<Orb16u>(len); }
Orb16s* orbsMalloc_16s(int len) { return allocate<Orb16s>(len); }
Orb8sc* orbsMalloc_8sc(int len) { return allocate<Orb8sc>(len); }
Orb32u* orbsMalloc_32u(int len) { return allocate<Orb32u>(len); }
Orb32s* orbsMalloc_32s(int len) { return allocate<Orb32s>(len); }
Orb32f* orbsMalloc_32f(int len) { return allocate<Orb32f>(len); }
Orb16sc* orbsMalloc_16sc(int len) { return allocate<Orb16sc>(len); }
Orb64s* orbsMalloc_64s(int len) { return allocate<Orb64s>(len); }
Orb64f* orbsMalloc_64f(int len) { return allocate<Orb64f>(len); }
Orb32sc* orbsMalloc_32sc(int len) { return allocate<Orb32sc>(len); }
Orb32fc* orbsMalloc_32fc(int len) { return allocate<Orb32fc>(len); }
Orb64sc* orbsMalloc_64sc(int len) { return allocate<Orb64sc>(len); }
Orb64fc* orbsMalloc_64fc(int len) { return allocate<Orb64fc>(len); }

void orbsFree(void* ptr) {
    if (!ptr) return;
    void* raw;
    std::memcpy(&raw, static_cast<char*>(ptr) - sizeof raw, sizeof raw);
    std::free(raw);
}

const OrbLibraryVersion* orbsGetLibVersion(void) { return &version; }

}
// clang-format on
