// A member beside the loop of its rule, as a compiler makes it for the tier that is measured. Further peers are added
// to the row of the same name.
#pragma once

#include "orbs.h"
#include "vectors.h"

#include <initializer_list>
#include <string>
#include <type_traits>

namespace members {

using vectors::Row;

// "JoinScaled_32f16s(8)".
inline Row with(Row row, int argument) {
    row.name.append("(").append(std::to_string(argument)).append(")");
    return row;
}

// A member with a scale factor, which is its last argument, carries it in the name of its row: "Add_16s_Sfs(3)".
inline Row scaled(const Row& row, std::initializer_list<int> arguments) {
    return row.name.ends_with("Sfs") ? with(row, arguments.end()[-1]) : row;
}

// pDst[n] = rule(pSrc[n]), with what the member takes behind the length.
template <class S, class R, class... More, class Rule>
void addUnary(const Row& row, std::type_identity_t<const S>* src, OrbStatus (*member)(const S*, R*, int, More...),
              Rule rule, std::type_identity_t<More>... more) {
    static_assert(std::is_class_v<Rule>, "a lambda, which is inlined; a pointer to a function is not");
    R* const dst = vectors::buffer<R>(2);
    add(scaled(row, {more...}), "orbs", [=](int len) { member(src, dst, len, more...); });
    add(scaled(row, {more...}), "loop", [=](int len) {
        for (int n = 0; n < len; ++n) dst[n] = static_cast<R>(rule(src[n]));
    });
}

// pDst[n] = rule(pSrc1[n], pSrc2[n]).
template <class T, class... More, class Rule>
void addBinary(const Row& row, std::type_identity_t<const T>* src1,
               OrbStatus (*member)(const T*, const T*, T*, int, More...), Rule rule,
               std::type_identity_t<More>... more) {
    const T* const src2 = vectors::buffer<T>(1);
    T* const dst = vectors::buffer<T>(2);
    add(scaled(row, {more...}), "orbs", [=](int len) { member(src1, src2, dst, len, more...); });
    add(scaled(row, {more...}), "loop", [=](int len) {
        for (int n = 0; n < len; ++n) dst[n] = static_cast<T>(rule(src1[n], src2[n]));
    });
}
template <class T, class... More, class Rule>
void addBinary(const Row& row, OrbStatus (*member)(const T*, const T*, T*, int, More...), Rule rule,
               std::type_identity_t<More>... more) {
    addBinary(row, vectors::buffer<T>(0), member, rule, more...);
}

// pDst[n] = rule(pSrc[n], val).
template <class T, class Val, class... More, class Rule>
void addConstant(const Row& row, OrbStatus (*member)(const T*, Val, T*, int, More...), std::type_identity_t<Val> val,
                 Rule rule, std::type_identity_t<More>... more) {
    const T* const src = vectors::buffer<T>(0);
    T* const dst = vectors::buffer<T>(2);
    add(scaled(row, {more...}), "orbs", [=](int len) { member(src, val, dst, len, more...); });
    add(scaled(row, {more...}), "loop", [=](int len) {
        for (int n = 0; n < len; ++n) dst[n] = static_cast<T>(rule(src[n], val));
    });
}

} // namespace members
