// One comparison for all tests. What fails says which element, what it is and should be, and what it was computed from;
// callOf adds the member and its numbers.
#pragma once

#include "support/data.h"

#include <algorithm>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <iomanip>
#include <sstream>
#include <string>

namespace support {

template <class T>
std::string shown(const T& t) {
    std::ostringstream text;
    if constexpr (isComplex<T>) {
        text << '(' << shown(t.re) << ", " << shown(t.im) << ')';
    } else if constexpr (std::is_floating_point_v<T>) {
        text << std::setprecision(std::numeric_limits<T>::max_digits10) << t;
        if (t != t) { // by its bits
            std::uint64_t bits = 0;
            std::memcpy(&bits, &t, std::min(sizeof t, sizeof bits));
            text << " 0x" << std::hex << bits;
        }
    } else if constexpr (std::is_arithmetic_v<T>) {
        text << +t;
    } else { // 24 bits
        text << "0x" << std::hex << (t.b[0] | t.b[1] << 8 | t.b[2] << 16);
    }
    return text.str();
}

// The bits are the same.
template <class T>
bool identical(const T& x, const T& y) {
    return std::memcmp(&x, &y, sizeof x) == 0;
}
// The same, where a NaN equals any NaN: which payload a sum or product of two NaNs has is left to the processor.
template <class T>
bool same(const T& x, const T& y) {
    if constexpr (isComplex<T>) {
        return same(x.re, y.re) && same(x.im, y.im);
    } else if constexpr (std::is_floating_point_v<T>) {
        return identical(x, y) || (x != x && y != y);
    } else {
        return identical(x, y);
    }
}

// An operand with fewer elements than the result is a constant.
template <class T, class Equal, class... Operands>
testing::AssertionResult compared(Equal equal, const T* got, const T* want, std::size_t count,
                                  const Operands&... operands) {
    std::size_t at = 0;
    if (count == 0 || std::memcmp(got, want, count * sizeof(T)) == 0) return testing::AssertionSuccess(); // mostly
    while (at < count && equal(got[at], want[at])) ++at;
    if (at == count) return testing::AssertionSuccess();
    auto failure = testing::AssertionFailure();
    failure << "element " << at << " of " << count << " is " << shown(got[at]) << ", not " << shown(want[at]);
    [[maybe_unused]] const char* between = ", from ";
    ((failure << between << shown(operands[std::min(at, std::size(operands) - 1)]), between = " and "), ...);
    return failure;
}

template <class T>
constexpr bool isRange = requires(const T& t) {
    t.data();
    t.size();
};

template <class T, class... Operands>
testing::AssertionResult sameBits(const T* got, const T* want, std::size_t count, const Operands&... operands) {
    return compared(identical<T>, got, want, count, operands...);
}
template <class Got, class Want, class... Operands>
requires(isRange<Got>&& isRange<Want>) testing::AssertionResult
    sameBits(const Got& got, const Want& want, const Operands&... operands) {
    if (got.size() != want.size()) return testing::AssertionFailure() << got.size() << " elements, not " << want.size();
    return sameBits(got.data(), want.data(), want.size(), operands...);
}

// As sameBits, where a NaN equals any NaN.
template <class T, class... Operands>
testing::AssertionResult sameValues(const T* got, const T* want, std::size_t count, const Operands&... operands) {
    return compared(same<T>, got, want, count, operands...);
}
template <class Got, class Want, class... Operands>
requires(isRange<Got>&& isRange<Want>) testing::AssertionResult
    sameValues(const Got& got, const Want& want, const Operands&... operands) {
    if (got.size() != want.size()) return testing::AssertionFailure() << got.size() << " elements, not " << want.size();
    return sameValues(got.data(), want.data(), want.size(), operands...);
}

// A member's name, as it is exported; what is no function has none.
template <class Member>
std::string nameOf(Member member) {
    if constexpr (std::is_pointer_v<Member>) {
        Dl_info info;
        if (dladdr(reinterpret_cast<const void*>(member), &info) && info.dli_sname) return info.dli_sname;
    }
    return "call";
}

// "orbsMul_16s_Sfs(..., 3)"
template <class Member, class... Numbers>
std::string callOf(Member member, const Numbers&... numbers) {
    std::string text = nameOf(member) + "(...";
    ((text += ", " + shown(numbers)), ...);
    return text + ")";
}

} // namespace support
