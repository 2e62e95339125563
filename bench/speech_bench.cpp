// Running averages, pre-emphasis and sums of windows beside the loops of their formulas.
#include "loops.h"
#include "members.h"

#include <algorithm>

namespace {

using vectors::Row;

template <class Real, class Value>
Orb32s recursion(const Orb16s* src, int len, Orb32s start, Real alpha, Value value) {
    Real y = static_cast<Real>(start);
    for (int n = 0; n < len; ++n) y = alpha * y + (1 - alpha) * static_cast<Real>(value(src[n]));
    return loops::nearest<Orb32s>(y);
}

template <class Real, class Update, class Value>
void addUpdate(const Row& row, Update update, OrbHintAlgorithm hint, Value value) {
    const Orb16s* const src = vectors::buffer<Orb16s>(0);
    Orb32s* const running = vectors::buffer<Orb32s>(1);
    static volatile Orb16s alpha = -1; // not known to the compiler, as it is not to the member
    vectors::add(row, "orbs", [=](int len) { update(src, len, running, 3, alpha, hint); });
    vectors::add(row, "loop",
                 [=](int len) { *running = recursion(src, len, *running, static_cast<Real>(alpha), value); });
}

// In place over and over: with so small a constant, numbers change little.
template <class T>
void addPreemphasis(const char* name, OrbStatus (*member)(T*, int, Orb32f)) {
    T* const data = vectors::room<T>(2);
    std::copy_n(vectors::buffer<T>(0), vectors::longest, data);
    constexpr Orb32f val = 1e-6f;
    vectors::add(name, "orbs", [=](int len) { member(data, len, val); });
    vectors::add(name, "loop", [=](int len) {
        for (int n = len - 1; n > 0; --n) {
            const Orb32f y = static_cast<Orb32f>(data[n]) - val * static_cast<Orb32f>(data[n - 1]);
            if constexpr (std::is_integral_v<T>) {
                data[n] = loops::nearest<T>(y);
            } else {
                data[n] = y;
            }
        }
    });
}

template <class T>
void addSums(const char* name, OrbStatus (*member)(const T*, Orb32f*, int, int), int mask) {
    static constexpr int lengths[] = {100, 4096, 65536};
    const T* const src = vectors::buffer<T>(0);
    Orb32f* const dst = vectors::buffer<Orb32f>(2);
    const Row row = members::with({name, lengths}, mask);
    vectors::add(row, "orbs", [=](int len) { member(src, dst, len, mask); });
    vectors::add(row, "loop", [=](int len) {
        Orb32f sum = 0;
        for (int n = 0; n < mask; ++n) sum += static_cast<Orb32f>(src[n]);
        for (int n = 0; n < len; ++n) {
            dst[n] = sum;
            sum += static_cast<Orb32f>(src[n + mask] - src[n]);
        }
    });
}

[[maybe_unused]] const bool registered = [] {
    const auto shifted = [](Orb16s x) { return x >> 3; };
    const auto square = [](Orb16s x) { return x * x >> 3; };
    addUpdate<double>("UpdateLinear_16s32s_I(accurate)", orbsUpdateLinear_16s32s_I, orbAlgHintNone, shifted);
    addUpdate<float>("UpdateLinear_16s32s_I(fast)", orbsUpdateLinear_16s32s_I, orbAlgHintFast, shifted);
    addUpdate<double>("UpdatePower_16s32s_I(accurate)", orbsUpdatePower_16s32s_I, orbAlgHintNone, square);
    addUpdate<float>("UpdatePower_16s32s_I(fast)", orbsUpdatePower_16s32s_I, orbAlgHintFast, square);
    addPreemphasis<Orb32f>("Preemphasize_32f", orbsPreemphasize_32f);
    addPreemphasis<Orb16s>("Preemphasize_16s", orbsPreemphasize_16s);
    for (const int mask : {16, 513}) {
        addSums<Orb8u>("SumWindow_8u32f", orbsSumWindow_8u32f, mask);
        addSums<Orb16s>("SumWindow_16s32f", orbsSumWindow_16s32f, mask);
    }
    return true;
}();

} // namespace
