// The Haar transform and filter banks, with their numbers of taps in brackets, beside plain loops.
#include "loops.h"
#include "members.h"
#include "orbs.h"
#include "vectors.h"

#pragma GCC optimize("fast-math")

namespace {

using vectors::buffer;
using vectors::room;

constexpr int lengths[] = {100, 4096, 65536};
constexpr int blocks[] = {64, 65536}; // samples at the full rate
constexpr int taps[] = {8, 16};

template <class T, class Forward, class Inverse, class Half>
void addHaar(const char* forwardName, const char* inverseName, Forward forward, Inverse inverse, Half half) {
    const T* const x = buffer<T>(0);
    const T* const y = buffer<T>(1);
    T *const low = room<T>(2), *const high = room<T>(3);
    vectors::add({forwardName, lengths}, "orbs", [=](int len) { forward(x, len, low, high); });
    vectors::add({forwardName, lengths}, "loop", [=](int len) {
        for (int n = 0; n < len / 2; ++n) half(x[2 * n], x[2 * n + 1], low[n], high[n]);
    });
    vectors::add({inverseName, lengths}, "orbs", [=](int len) { inverse(x, y, low, len); });
    vectors::add({inverseName, lengths}, "loop", [=](int len) {
        for (int n = 0; n < len / 2; ++n) {
            if constexpr (std::is_integral_v<T>) {
                low[2 * n] = loops::scaled<T, int>(x[n] - y[n], 0);
                low[2 * n + 1] = loops::scaled<T, int>(x[n] + y[n], 0);
            } else {
                low[2 * n] = x[n] - y[n];
                low[2 * n + 1] = x[n] + y[n];
            }
        }
    });
}

void addBanks() {
    const Orb32f* const x = buffer<Orb32f>(0);
    const Orb32f* const h = buffer<Orb32f>(1);
    const Orb32f* const g = h + 100;
    const int history = 32; // samples in front of the block
    Orb32f *const low = room<Orb32f>(2), *const high = room<Orb32f>(3);
    for (const int count : taps) {
        OrbsWTFwdState_32f* split = nullptr;
        OrbsWTInvState_32f* join = nullptr;
        orbsWTFwdInitAlloc_32f(&split, h, count, 0, g, count, 0);
        orbsWTInvInitAlloc_32f(&join, h, count, 0, g, count, 0);
        const auto forward = members::with({"WTFwd_32f", blocks}, count);
        vectors::add(forward, "orbs", [=](int len) { orbsWTFwd_32f(x, low, high, len / 2, split); });
        vectors::add(forward, "loop", [=](int len) {
            for (int m = 0; m < len / 2; ++m) {
                Orb32f a = 0, b = 0;
                for (int k = 0; k < count; ++k) {
                    a += h[k] * x[history + 2 * m - k];
                    b += g[k] * x[history + 2 * m - k];
                }
                low[m] = a;
                high[m] = b;
            }
        });
        const auto inverse = members::with({"WTInv_32f", blocks}, count);
        const Orb32f* const y = h + history;
        vectors::add(inverse, "orbs", [=](int len) { orbsWTInv_32f(x, y, len / 2, low, join); });
        vectors::add(inverse, "loop", [=](int len) {
            for (int m = 0; m < len / 2; ++m) {
                Orb32f even = 0, odd = 0;
                for (int k = 0; k < count / 2; ++k) {
                    even += h[2 * k] * x[history + m - k] + g[2 * k] * y[m - k];
                    odd += h[2 * k + 1] * x[history + m - k] + g[2 * k + 1] * y[m - k];
                }
                low[2 * m] = even;
                low[2 * m + 1] = odd;
            }
        });
    }
}

[[maybe_unused]] const bool registered = [] {
    const auto floats = [](auto a, auto b, auto& low, auto& high) {
        high = (b - a) / 2;
        low = a + high;
    };
    const auto integers = [](auto a, auto b, auto& low, auto& high) {
        low = loops::scaled<decltype(a), int>(a + b, 1);
        high = loops::scaled<decltype(a), int>(b - a, 1);
    };
    addHaar<Orb32f>("WTHaarFwd_32f", "WTHaarInv_32f", orbsWTHaarFwd_32f, orbsWTHaarInv_32f, floats);
    addHaar<Orb64f>("WTHaarFwd_64f", "WTHaarInv_64f", orbsWTHaarFwd_64f, orbsWTHaarInv_64f, floats);
    addHaar<Orb8s>("WTHaarFwd_8s", "WTHaarInv_8s", orbsWTHaarFwd_8s, orbsWTHaarInv_8s, integers);
    addHaar<Orb16s>("WTHaarFwd_16s", "WTHaarInv_16s", orbsWTHaarFwd_16s, orbsWTHaarInv_16s, integers);
    addBanks();
    return true;
}();

} // namespace
