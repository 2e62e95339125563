// orbs/base.hpp: what orbs.hpp stands on: statuses, vectors, complex elements, objects and their copies. C++17.
//
// Everything here is inline and adds nothing to a call that the optimiser leaves standing, but the test of a status and
// the comparison of lengths that must be equal.
#pragma once

#include <orbs.h>

#include <complex>
#include <cstddef>
#include <cstring>
#include <exception>
#include <iterator>
#include <limits>
#include <new>
#include <type_traits>
#include <utility>

namespace orbs {

// ---- Statuses --------------------------------------------------------------------------------------------------
// What a call reports: done, a warning (all results are written), or an error (none is).
class Status {
public:
    constexpr Status(OrbStatus code = orbStsNoErr) noexcept : code_(code) {}
    constexpr OrbStatus code() const noexcept { return code_; }
    constexpr bool isError() const noexcept { return code_ < 0; }
    constexpr bool isWarning() const noexcept { return code_ > 0; }
    const char* text() const noexcept { return orbGetStatusString(code_); }
    friend constexpr bool operator==(Status a, Status b) noexcept { return a.code_ == b.code_; }
    friend constexpr bool operator!=(Status a, Status b) noexcept { return a.code_ != b.code_; }

private:
    OrbStatus code_;
};

// A status that a caller must look at.
class [[nodiscard]] Result : public Status {
public:
    using Status::Status;
    constexpr explicit operator bool() const noexcept { return !isError(); }
};

class Error : public std::exception {
public:
    explicit Error(Status status) noexcept : status_(status) {}
    Status status() const noexcept { return status_; }
    const char* what() const noexcept override { return status_.text(); }

private:
    Status status_;
};

[[noreturn, gnu::cold, gnu::noinline]] inline void raise(OrbStatus status) {
    throw Error(status);
}

// How a call reports, its first template argument: Add(a, b, sum) throws an Error and returns the status otherwise,
// which is a warning or success; Add<Return>(a, b, sum) throws nothing and returns a Result.
struct Throw {
    using Report = Status;
    static Report report(OrbStatus status) {
        if (status < 0) raise(status);
        return status;
    }
};
struct Return {
    using Report = Result;
    static Report report(OrbStatus status) noexcept { return status; }
};

// ---- Complex elements ------------------------------------------------------------------------------------------
// The standard's type for a pair of the C interface, of the same layout: std::complex<float> for Orb32fc. The standard
// promises something for complex numbers of floats only; those of integers are as the C++ library has them.
template <class T>
struct Twin {
    using type = void;
};
template <class Pair, class Part>
struct TwinOfPair {
    using type = std::complex<Part>;
};
template <>
struct Twin<Orb8sc> : TwinOfPair<Orb8sc, Orb8s> {};
template <>
struct Twin<Orb16sc> : TwinOfPair<Orb16sc, Orb16s> {};
template <>
struct Twin<Orb32sc> : TwinOfPair<Orb32sc, Orb32s> {};
template <>
struct Twin<Orb64sc> : TwinOfPair<Orb64sc, Orb64s> {};
template <>
struct Twin<Orb32fc> : TwinOfPair<Orb32fc, Orb32f> {};
template <>
struct Twin<Orb64fc> : TwinOfPair<Orb64fc, Orb64f> {};

// That of T with the const of T.
template <class T>
using TwinOf = std::conditional_t<std::is_const_v<T>, const typename Twin<std::remove_const_t<T>>::type,
                                  typename Twin<std::remove_const_t<T>>::type>;

// A pointer to complex elements, given as one to either type.
template <class T>
class Pointer {
public:
    constexpr Pointer(T* p) noexcept : p_(p) {}
    Pointer(TwinOf<T>* p) noexcept : p_(reinterpret_cast<T*>(p)) {}
    constexpr Pointer(std::nullptr_t) noexcept : p_(nullptr) {}
    constexpr operator T*() const noexcept { return p_; }

private:
    T* p_;
};

// A complex element that a call writes or reads and writes.
template <class T>
class Reference {
public:
    constexpr Reference(T& element) noexcept : p_(&element) {}
    Reference(TwinOf<T>& element) noexcept : p_(reinterpret_cast<T*>(&element)) {}
    constexpr T* operator&() const noexcept { return p_; }

private:
    T* p_;
};

// A complex value.
template <class T>
class Value {
public:
    constexpr Value(T value) noexcept : value_(value) {}
    template <class Complex, class = std::enable_if_t<std::is_same_v<Complex, typename Twin<T>::type>>>
    constexpr Value(const Complex& value) noexcept : value_{value.real(), value.imag()} {}
    constexpr operator T() const noexcept { return value_; }

private:
    T value_;
};

// ---- Vectors ---------------------------------------------------------------------------------------------------
// The elements of whatever lies in a row: an array, std::array, std::vector, std::span. As std::span it owns nothing. A
// vector of std::complex is one of pairs.
template <class T>
class Block {
    template <class Range>
    using Element = std::remove_pointer_t<decltype(std::data(std::declval<Range&>()))>;
    // E is Wanted, and const where that is.
    template <class E, class Wanted>
    static constexpr bool is = std::conjunction_v<std::negation<std::is_void<Wanted>>,
                                                  std::is_same<std::remove_const_t<E>, std::remove_const_t<Wanted>>,
                                                  std::is_convertible<E*, Wanted*>>;

public:
    constexpr Block(T* data, std::size_t size) noexcept : data_(data), size_(size) {}
    template <class Range, class E = Element<Range>, std::enable_if_t<is<E, T>, int> = 0>
    constexpr Block(Range&& range) : data_(std::data(range)), size_(std::size(range)) {}
    template <class Range, class E = Element<Range>, std::enable_if_t<is<E, TwinOf<T>>, long> = 0>
    Block(Range&& range) : data_(reinterpret_cast<T*>(std::data(range))), size_(std::size(range)) {}
    constexpr T* data() const noexcept { return data_; }
    constexpr std::size_t size() const noexcept { return size_; }

private:
    T* data_;
    std::size_t size_;
};

// The length of vectors as a call takes it: 0 where they are not of one length, or of one that an int cannot tell, or
// where `also` does not hold. Every member refuses that, with orbStsSizeErr or, of taps, orbStsFIRLenErr.
template <class First, class... Others>
constexpr int length(bool also, const First& first, const Others&... others) noexcept {
    const std::size_t size = first.size();
    const bool told = also && ((size == others.size()) && ...) && size <= std::size_t{std::numeric_limits<int>::max()};
    return told ? static_cast<int>(size) : 0;
}

// ---- Objects ---------------------------------------------------------------------------------------------------
// Where the calls of an object find it. For members that orbs.hpp has not got: get(). An object that there is none of
// is a null pointer, which calls refuse with orbStsNullPtrErr.
template <class T>
class Access {
public:
    using Object = T;
    T* get() const noexcept { return object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }

protected:
    Access() = default;
    Access(Access&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Access& operator=(Access&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Access() = default;
    T* object_ = nullptr;
};

// An object that InitAlloc makes and Free releases: FIR_32f filter(taps, tapsLen). It may be moved.
template <class Calls>
class Owned : public Calls {
    using Object = typename Calls::Object;

public:
    using WithCalls = Calls;

    Owned() = default;
    // Takes what InitAlloc takes behind the pointer to the object.
    template <class First, class... Arguments, class = std::enable_if_t<!std::is_same_v<std::decay_t<First>, Owned>>>
    explicit Owned(First&& first, Arguments&&... arguments) {
        InitAlloc(std::forward<First>(first), std::forward<Arguments>(arguments)...);
    }
    Owned(Owned&&) = default;
    Owned& operator=(Owned&&) = default;
    ~Owned() {
        if (this->object_) Calls::release(this->object_);
    }

    // The same; after an error the object that was there before stays.
    template <class Mode = Throw, class... Arguments>
    typename Mode::Report InitAlloc(Arguments&&... arguments) {
        Owned made;
        const OrbStatus status = Calls::make(&made.object_, std::forward<Arguments>(arguments)...);
        if (status >= 0) *this = std::move(made);
        return Mode::report(status);
    }
};

// The bytes that an object takes, those that building it needs, and those of a buffer, which calls take by themselves
// where they are given none.
struct Sizes {
    int object = 0, work = 0, buffer = 0;
};

// Bytes at an alignment that suits every object.
class Memory {
public:
    Memory() = default;
    explicit Memory(int size) noexcept {
        if (size < 0) return;
        size_ = static_cast<std::size_t>(size);
        bytes_ = static_cast<Orb8u*>(::operator new(size_ + 1, alignment, std::nothrow));
    }
    Memory(Memory&& other) noexcept : bytes_(std::exchange(other.bytes_, nullptr)), size_(other.size_) {}
    Memory& operator=(Memory&& other) noexcept {
        std::swap(bytes_, other.bytes_);
        std::swap(size_, other.size_);
        return *this;
    }
    ~Memory() { ::operator delete(bytes_, alignment); }
    Orb8u* bytes() const noexcept { return bytes_; }
    std::size_t size() const noexcept { return size_; }

private:
    static constexpr std::align_val_t alignment{64};
    Orb8u* bytes_ = nullptr;
    std::size_t size_ = 0;
};

// An object that Init builds in memory of its own, and of which copies can be made.
template <class Calls>
class Placed : public Calls {
    using Object = typename Calls::Object;

public:
    Placed() = default;
    // Takes what Init takes between the pointer to the object and the memory.
    template <class First, class... Arguments, class = std::enable_if_t<!std::is_same_v<std::decay_t<First>, Placed>>>
    explicit Placed(First&& first, Arguments&&... arguments) {
        Init(std::forward<First>(first), std::forward<Arguments>(arguments)...);
    }
    Placed(Placed&&) = default;
    Placed& operator=(Placed&&) = default;
    Placed(const Placed& other) : Calls() {
        if (!other) return;
        memory_ = Memory(static_cast<int>(other.memory_.size()));
        if (!memory_.bytes()) throw std::bad_alloc();
        std::memcpy(memory_.bytes(), other.memory_.bytes(), memory_.size());
        const auto offset = reinterpret_cast<const Orb8u*>(other.get()) - other.memory_.bytes();
        this->object_ = reinterpret_cast<Object*>(memory_.bytes() + offset);
    }
    Placed& operator=(const Placed& other) {
        if (this != &other) *this = Placed(other);
        return *this;
    }
    ~Placed() = default; // such an object needs no Free

    // The same; after an error the object that was there before stays.
    template <class Mode = Throw, class... Arguments>
    typename Mode::Report Init(Arguments&&... arguments) {
        Sizes sizes;
        OrbStatus status = Calls::measure(sizes, arguments...);
        if (status < 0) return Mode::report(status);
        Placed made;
        made.memory_ = Memory(sizes.object);
        const Memory work(sizes.work);
        if (!made.memory_.bytes() || !work.bytes()) return Mode::report(orbStsMemAllocErr);
        status = Calls::place(&made.object_, made.memory_.bytes(), work.bytes(), arguments...);
        if (status >= 0) *this = std::move(made);
        return Mode::report(status);
    }

private:
    Memory memory_;
};

// Copyable<IIR_32f> is an IIR_32f that can be copied, in the middle of its stream, too. Only a FIR filter is slower for
// it: it filters directly, without the FFT that long ones have else.
template <class Object>
using Copyable = Placed<typename Object::WithCalls>;

} // namespace orbs
