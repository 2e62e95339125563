// What the opaque objects are made of: tags, pointers that hold no address, and layouts told once.
#pragma once

#include "orbdefs.h"

#include <cstddef>
#include <cstdint>

namespace orbs {

// A pointer kept as its distance from itself, so that a block of memory that holds pointer and target can be copied or
// mapped anywhere (at equal alignment) and has one size on every ABI. 0 is null.
template <class T>
class RelativePtr {
public:
    RelativePtr() = default;
    RelativePtr(const RelativePtr&) = delete;
    RelativePtr& operator=(const RelativePtr&) = delete;
    RelativePtr& operator=(T* target) {
        distance_ = target ? static_cast<std::int32_t>(reinterpret_cast<const char*>(target) - self()) : 0;
        return *this;
    }
    T* get() const { return distance_ ? reinterpret_cast<T*>(const_cast<char*>(self()) + distance_) : nullptr; }
    operator T*() const { return get(); }
    T* operator->() const { return get(); }

private:
    const char* self() const { return reinterpret_cast<const char*>(this); }
    std::int32_t distance_ = 0;
};

// The first word of an object is the tag of its kind. Objects are saved and read by later builds, so a tag is given
// once, with the contract of its family, and never to a second kind: transforms count from 1, filters take four
// letters. Four letters as such a word, most significant byte first.
constexpr Orb32s tagWord(const char (&letters)[5]) {
    Orb32u word = 0;
    for (int i = 0; i < 4; ++i) word = word << 8 | static_cast<Orb32u>(letters[i]);
    return static_cast<Orb32s>(word);
}

template <class Object>
OrbStatus checkTag(const Object* object, Orb32s tag) {
    return object->tag == tag ? orbStsNoErr : orbStsContextMatchErr;
}

constexpr std::uint64_t roundUp(std::uint64_t value, std::uint64_t multiple) {
    return (value + multiple - 1) / multiple * multiple;
}

template <class T>
T* alignUp(T* p, std::uintptr_t alignment) {
    return reinterpret_cast<T*>(static_cast<std::uintptr_t>(roundUp(reinterpret_cast<std::uintptr_t>(p), alignment)));
}

// Hands out the areas of a block one behind the other. Over a null base it only measures, in 64 bits, and hands out
// null pointers: the same function lays an object out and tells its size. Alignments count from the base, which must
// itself lie on the largest of them.
class Layout {
public:
    explicit Layout(void* base) : base_(static_cast<char*>(base)) {}

    template <class T>
    T* take(std::uint64_t count, std::uint64_t alignment) {
        used_ = roundUp(used_, alignment);
        T* area = base_ ? reinterpret_cast<T*>(base_ + used_) : nullptr;
        used_ += count * sizeof(T);
        return area;
    }
    std::uint64_t used() const { return used_; }

private:
    char* base_;
    std::uint64_t used_ = 0;
};

} // namespace orbs
