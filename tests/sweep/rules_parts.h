// What the tables of rules are written with: counts and numbers of a case, and lists of cases.
#pragma once

#include "sweep/rules.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <initializer_list>

namespace sweep {

#define COUNT(expression)                                                                                              \
    [](const Case& c [[maybe_unused]]) -> std::size_t { return static_cast<std::size_t>(expression); }
#define NUMBER(expression) [](const Case& c [[maybe_unused]]) -> double { return expression; }

template <auto... choices>
double oneOf(const Case& c) {
    static constexpr double values[] = {choices...};
    return values[static_cast<std::size_t>(c.turn) % std::size(values)];
}

template <int... factors>
int factorOf(int turn) {
    static constexpr int list[] = {factors...};
    return list[static_cast<std::size_t>(turn) % std::size(list)];
}

inline const std::vector<Number> belowOne = {NUMBER(0), NUMBER(-1), NUMBER(INT_MIN)};

// Around every cut between kernels, and far beyond all of them.
inline constexpr int scaleFactors[] = {0,  INT_MIN, -1000, -40, -33, -32, -31, -30, -17, -16, -15,  -14,
                                       -9, -8,      -7,    -2,  -1,  1,   2,   3,   7,   8,   9,    10,
                                       14, 15,      16,    17,  18,  30,  31,  32,  33,  40,  1000, INT_MAX};
inline int scaleFactor(const Case& c) {
    return scaleFactors[static_cast<std::size_t>(c.turn) % std::size(scaleFactors)];
}
inline int turnOfScaleFactor(int s) {
    return static_cast<int>(std::ranges::find(scaleFactors, s) - scaleFactors);
}

// ---- Cases ----

inline Cases operator+(Cases a, const Cases& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}
inline Cases lengthsFrom(int first, int last) {
    Cases cases;
    for (int n = first; n <= last; ++n) cases.push_back({.n = n});
    return cases;
}
inline Cases lengthsUpTo(int last) {
    return lengthsFrom(1, last);
}
inline Cases lengths(std::initializer_list<int> list) {
    Cases cases;
    for (int n : list) cases.push_back({.n = n});
    return cases;
}
inline Cases atLeast(int n, Cases cases) {
    std::erase_if(cases, [=](const Case& c) { return c.n < n; });
    return cases;
}
inline Cases orders(int first, int last, int repeats) {
    Cases cases;
    for (int order = first; order <= last; ++order)
        cases.insert(cases.end(), static_cast<std::size_t>(repeats), {.order = order});
    return cases;
}
// With hints for speed.
inline Cases fast(Cases cases) {
    for (std::size_t k = 0; k < cases.size(); ++k) cases[k].turn = 5 * static_cast<int>(k + 1) + 1;
    return cases;
}
inline Cases withTaps(Cases cases, std::initializer_list<int> taps) {
    std::size_t k = 0;
    for (Case& c : cases) c.taps = taps.begin()[k++ % taps.size()];
    return cases;
}

inline Cases everyPair(const Cases& cases, std::initializer_list<int> taps) {
    Cases pairs;
    for (Case c : cases)
        for (int count : taps) pairs.push_back({.n = c.n, .taps = count});
    return pairs;
}
inline Cases numbered(Cases cases) {
    for (std::size_t k = 0; k < cases.size(); ++k) cases[k].turn = static_cast<int>(k);
    return cases;
}

// The digest's lengths: all up to a vector of 64 bytes and more, those around the blocks that loops are unrolled by,
// and one of each remainder to the longest from which a call spreads over threads.
inline Cases digestLengths() {
    Cases cases = lengthsUpTo(70);
    for (int edge : {96, 128, 192, 256, 320, 512, 1024}) cases = cases + lengthsFrom(edge - 2, edge + 2);
    return numbered(cases + lengths({4099, 32771}));
}
// Each scale factor as well, and on the long vectors one of each kind.
inline Cases digestScales() {
    Cases cases = digestLengths();
    for (int s : scaleFactors) cases.push_back({.n = 261, .turn = turnOfScaleFactor(s)});
    for (int n : {4099, 32771})
        for (int s : {0, -1, 1, 7}) cases.push_back({.n = n, .turn = turnOfScaleFactor(s)});
    return cases;
}

inline Cases longScales() {
    Cases cases;
    for (int s : {-1, 7}) cases.push_back({.n = 4099, .turn = turnOfScaleFactor(s)});
    for (int s : {1, 3}) cases.push_back({.n = 40007, .turn = turnOfScaleFactor(s)});
    return cases;
}

} // namespace sweep
