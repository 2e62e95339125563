// Running medians, with their masks in brackets, beside std::nth_element of each window.
#include "members.h"
#include "orbs.h"
#include "vectors.h"

#include <algorithm>
#include <random>

namespace {

using vectors::room;

constexpr int lengths[] = {100, 65536};
constexpr int masks[] = {3, 5, 9, 31, 255};

template <class T>
void addMedians(const char* member, OrbStatus (*filter)(const T*, T*, int, int)) {
    T *const x = room<T>(0), *const y = room<T>(1), *const window = room<T>(2);
    std::mt19937_64 bits(1);
    for (int n = 0; n < vectors::longest; ++n) x[n] = static_cast<T>(bits() >> 40);
    for (const int mask : masks) {
        const auto row = members::with({member, lengths}, mask);
        vectors::add(row, "orbs", [=](int len) { filter(x, y, len, mask); });
        vectors::add(row, "std", [=](int len) {
            for (int n = 0; n < len; ++n) {
                for (int k = 0; k < mask; ++k) window[k] = x[std::clamp(n + k - mask / 2, 0, len - 1)];
                std::nth_element(window, window + mask / 2, window + mask);
                y[n] = window[mask / 2];
            }
        });
    }
}

[[maybe_unused]] const bool registered = [] {
    addMedians("FilterMedian_8u", orbsFilterMedian_8u);
    addMedians("FilterMedian_16s", orbsFilterMedian_16s);
    addMedians("FilterMedian_32f", orbsFilterMedian_32f);
    addMedians("FilterMedian_64f", orbsFilterMedian_64f);
    return true;
}();

} // namespace
