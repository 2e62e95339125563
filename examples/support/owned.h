// The library's objects, given back by the function that belongs to them:
//     Owned<orbsFIRFree_32f> filter;
//     check(orbsFIRInitAlloc_32f(filter.out(), taps, count, nullptr));
//     check(orbsFIR_32f(input, output, length, filter));
#pragma once

#include <orbs.h>

#include <utility>

template <class Function>
struct FreedBy;
template <class Object>
struct FreedBy<OrbStatus (*)(Object*)> {
    using type = Object;
};

template <auto free>
class Owned {
public:
    using Object = typename FreedBy<decltype(free)>::type;

    Owned() = default;
    Owned(Owned&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Owned& operator=(Owned&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Owned() {
        if (object_) free(object_);
    }

    operator Object*() const { return object_; }
    Object** out() { return &object_; } // for the call that makes the object, once

private:
    Object* object_ = nullptr;
};
