// The members of the library as the sweep sees them: a table made from the public headers (generate.py), whose types
// the compiler tells.
#pragma once

#include "orbdefs.h"
#include "support/data.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace sweep {

// An argument on its way into a call, of any type.
class Value {
public:
    Value() = default;
    template <class T>
    Value(T t) {
        static_assert(sizeof(T) <= sizeof bytes_);
        std::memcpy(bytes_, &t, sizeof t);
    }
    template <class T>
    T as() const {
        T t;
        std::memcpy(&t, bytes_, sizeof t);
        return t;
    }
    void* bytes() { return bytes_; }

private:
    alignas(16) unsigned char bytes_[16] = {};
};

enum class Kind {
    element,   // an element or number by value
    vector,    // pointer to elements
    vectors,   // array of such pointers
    object,    // pointer to an opaque object
    objectSlot // where a pointer to an object is stored
};

// What the compiler tells of an argument. Sizes are those of one element.
struct Type {
    Kind kind;
    bool isConst;
    std::size_t size, alignment;                                   // that of the parts of a complex element
    std::size_t floatSize;                                         // of those parts, 0 if they are integers
    void (*fill)(void* to, std::size_t count, std::uint64_t seed); // with reproducible values
    void (*set)(void* to, double value);                           // one element
    void (*setImaginary)(void* to, double value);                  // of a complex element, else null
};

// Reproducible values; of floats every fourth far from 1.
template <class T>
std::vector<T> makeStock() {
    std::vector<T> stock = support::randomVector<T>(1 << 12);
    if constexpr (std::is_floating_point_v<support::Part<T>>) {
        for (std::size_t n = 3; n < stock.size(); n += 4) {
            auto* part = reinterpret_cast<support::Part<T>*>(&stock[n]);
            const int exponent = static_cast<int>(n / 4 % 25) - 12;
            for (std::size_t k = 0; k < sizeof(T) / sizeof *part; ++k) part[k] = std::ldexp(part[k], exponent);
        }
    }
    return stock;
}

template <class T>
void fillElements(void* to, std::size_t count, std::uint64_t seed) {
    static const std::vector<T> stock = makeStock<T>();
    char* p = static_cast<char*>(to);
    for (std::size_t at = seed * 257 % stock.size(); count > 0; at = 0) {
        const std::size_t run = std::min(count, stock.size() - at);
        std::memcpy(p, &stock[at], run * sizeof(T));
        p += run * sizeof(T);
        count -= run;
    }
}

// Integers wrap; the parts of a short complex one are the halves of the number, re the lower.
template <class T>
void setElement(void* to, double value) {
    T element{};
    if constexpr (std::is_integral_v<T>) {
        element = static_cast<T>(static_cast<std::int64_t>(value));
    } else if constexpr (std::is_floating_point_v<T>) {
        element = static_cast<T>(value);
    } else if constexpr (std::is_same_v<T, Orb16sc>) {
        const auto both = static_cast<Orb32s>(value);
        std::memcpy(&element, &both, sizeof element);
    } else if constexpr (requires { element.re; }) {
        element.re = static_cast<support::Part<T>>(value);
    }
    std::memcpy(to, &element, sizeof element);
}

template <class T>
void setImaginaryPart(void* to, double value) {
    T element;
    std::memcpy(&element, to, sizeof element);
    element.im = static_cast<support::Part<T>>(value);
    std::memcpy(to, &element, sizeof element);
}

template <class T>
constexpr auto imaginarySetter() -> void (*)(void*, double) {
    if constexpr (support::isComplex<T>) return setImaginaryPart<T>;
    return nullptr;
}

template <class A>
constexpr Type typeOf() {
    using T = std::remove_const_t<std::remove_pointer_t<A>>;
    if constexpr (std::is_pointer_v<T>) {
        if constexpr (requires { sizeof(std::remove_pointer_t<T>); }) {
            Type type = typeOf<T>();
            type.kind = Kind::vectors;
            return type;
        }
    }
    constexpr Kind pointerKind = std::is_pointer_v<T> ? Kind::objectSlot : Kind::object;
    if constexpr (std::is_pointer_v<T> || !requires { sizeof(T); }) {
        return {
            pointerKind, std::is_const_v<std::remove_pointer_t<A>>, sizeof(void*), alignof(void*), 0, nullptr, nullptr,
            nullptr};
    } else {
        using Part = support::Part<T>;
        constexpr bool isArray = requires(T t) {
            t.b;
        }; // 24 bits
        return {std::is_pointer_v<A> ? Kind::vector : Kind::element,
                std::is_const_v<std::remove_pointer_t<A>>,
                sizeof(T),
                isArray ? 1 : sizeof(Part),
                std::is_floating_point_v<Part> ? sizeof(Part) : 0,
                fillElements<T>,
                setElement<T>,
                imaginarySetter<T>()};
    }
}

using Function = void (*)();

// How to call a function of one type. Those that return no status are called by tests of their own.
struct Signature {
    std::span<const Type> types;
    OrbStatus (*call)(Function, const Value*) = nullptr;
    void* (*allocate)(Function, int) = nullptr;
};

template <class... A>
const Signature& signatureOf(OrbStatus (*)(A...)) {
    static constexpr Type types[] = {typeOf<A>()...};
    static constexpr Signature signature{.types = types, .call = [](Function function, const Value* values) {
                                             return [&]<std::size_t... I>(std::index_sequence<I...>) {
                                                 return reinterpret_cast<OrbStatus (*)(A...)>(function)(
                                                     values[I].template as<A>()...);
                                             }
                                             (std::index_sequence_for<A...>());
                                         }};
    return signature;
}
template <class T>
const Signature& signatureOf(T* (*)(int)) {
    static constexpr Signature signature{.types = {}, .allocate = [](Function function, int len) -> void* {
                                             return reinterpret_cast<T* (*)(int)>(function)(len);
                                         }};
    return signature;
}
inline const Signature& signatureOf(void (*)(void*)) {
    static constexpr Signature signature{};
    return signature;
}
inline const Signature& signatureOf(const OrbLibraryVersion* (*)()) {
    static constexpr Signature signature{};
    return signature;
}

struct Member {
    std::string_view name, family, arguments;
    Function function;
    const Signature* signature;
    bool anyAlignment; // the family promises that vectors may lie on any byte
};

template <class F>
Member member(const char* name, const char* family, const char* arguments, F* function, bool anyAlignment) {
    return {name, family, arguments, reinterpret_cast<Function>(function), &signatureOf(function), anyAlignment};
}

// Made from the headers.
const std::vector<Member>& members();
const std::vector<std::string>& notUnderstood();
std::size_t declaredMembers();

} // namespace sweep
