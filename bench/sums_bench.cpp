// Sums, means, deviations and sums of logarithms, beside VOLK, Eigen, and loops: "loop" in the order of the elements,
// "fastmath" one that the compiler may reorder.
#include "orbs.h"
#include "vectors.h"
#include "volk_kernels.h"

#include <cmath>
#include <eigen3/Eigen/Core>

#pragma GCC optimize("fast-math")

namespace {

using vectors::add;
using vectors::buffer;
using vectors::positive;
using vectors::Row;

template <class Sum, class T>
Sum sumOf(const T* x, int len) {
    Sum sum = 0;
    for (int n = 0; n < len; ++n) sum += static_cast<Sum>(x[n]);
    return sum;
}
template <class Sum, class T>
Sum deviationOf(const T* x, int len) {
    Sum sum = 0, squares = 0;
    for (int n = 0; n < len; ++n) {
        const Sum v = static_cast<Sum>(x[n]);
        sum += v;
        squares += v * v;
    }
    const auto n = static_cast<Sum>(len);
    return static_cast<Sum>(std::sqrt((squares * n - sum * sum) / (n * (n - 1))));
}

// Keeps what a peer computes.
template <class F>
auto kept(F f) {
    return [=](int len) { benchmark::DoNotOptimize(f(len)); };
}

template <class T>
auto eigen(const T* x, int len) {
    return Eigen::Map<const Eigen::Array<T, Eigen::Dynamic, 1>>(x, len);
}

void addSums() {
    static Orb32f sum;
    static Orb64f sum64;
    static Orb32fc sumComplex;
    const auto* x = buffer<Orb32f>(0);
    const auto* x64 = buffer<Orb64f>(0);
    const auto* z = buffer<Orb32fc>(0);
    const auto peers = [=](const Row& row) {
        add(row, "volk", [=](int len) { volk_32f_accumulator_s32f(&sum, x, volk::count(len)); });
        add(row, "eigen", kept([=](int len) { return eigen(x, len).sum(); }));
    };
    const Row fast = {"Sum_32f(fast)", vectors::alsoShort}, accurate = {"Sum_32f(accurate)", vectors::alsoShort};
    add(fast, "orbs", [=](int len) { orbsSum_32f(x, len, &sum, orbAlgHintFast); });
    add(fast, "fastmath", kept([=](int len) { return sumOf<Orb32f>(x, len); }));
    peers(fast);
    add(accurate, "orbs", [=](int len) { orbsSum_32f(x, len, &sum, orbAlgHintAccurate); });
    add(accurate, "fastmath", kept([=](int len) { return sumOf<Orb64f>(x, len); }));
    add(accurate, "fastmath-single", kept([=](int len) { return sumOf<Orb32f>(x, len); }));
    peers(accurate);
    add("Sum_64f", "orbs", [=](int len) { orbsSum_64f(x64, len, &sum64); });
    add("Sum_64f", "fastmath", kept([=](int len) { return sumOf<Orb64f>(x64, len); }));
    add("Sum_64f", "eigen", kept([=](int len) { return eigen(x64, len).sum(); }));
    add("Sum_32fc(fast)", "orbs", [=](int len) { orbsSum_32fc(z, len, &sumComplex, orbAlgHintFast); });
    add("Sum_32fc(fast)", "eigen",
        kept([=](int len) { return eigen(reinterpret_cast<const std::complex<float>*>(z), len).sum(); }));
    add("Mean_32f(fast)", "orbs", [=](int len) { orbsMean_32f(x, len, &sum, orbAlgHintFast); });
    add("Mean_32f(fast)", "eigen", kept([=](int len) { return eigen(x, len).mean(); }));
}

void addDeviations() {
    static Orb32f result;
    static Orb32s integer;
    const auto* x = buffer<Orb32f>(0);
    add("StdDev_32f(fast)", "orbs", [=](int len) { orbsStdDev_32f(x, len, &result, orbAlgHintFast); });
    add("StdDev_32f(fast)", "fastmath", kept([=](int len) { return deviationOf<Orb32f>(x, len); }));
    add("StdDev_32f(fast)", "volk", [=](int len) {
        float mean;
        volk_32f_stddev_and_mean_32f_x2(&result, &mean, x, volk::count(len));
    });
    add("StdDev_32f(accurate)", "orbs", [=](int len) { orbsStdDev_32f(x, len, &result, orbAlgHintNone); });
    add("StdDev_32f(accurate)", "fastmath", kept([=](int len) { return deviationOf<Orb64f>(x, len); }));
    const auto* i = buffer<Orb16s>(0);
    add("StdDev_16s32s_Sfs(0)", "orbs", [=](int len) { orbsStdDev_16s32s_Sfs(i, len, &integer, 0); });
    add("StdDev_16s32s_Sfs(0)", "loop", kept([=](int len) {
            long long sum = 0, squares = 0;
            for (int n = 0; n < len; ++n) {
                sum += i[n];
                squares += i[n] * i[n];
            }
            return std::sqrt(static_cast<double>(squares * len - sum * sum));
        }));
}

void addIntegers() {
    static Orb32s sum;
    const auto* x = buffer<Orb16s>(0);
    const Row row = {"Sum_16s32s_Sfs(0)", vectors::alsoShort};
    add(row, "orbs", [=](int len) { orbsSum_16s32s_Sfs(x, len, &sum, 0); });
    add(row, "loop", kept([=](int len) { return sumOf<long long>(x, len); }));
    add(row, "loop-32", kept([=](int len) { return sumOf<int>(x, len); })); // which may overflow
    const auto* y = buffer<Orb32s>(0);
    add("Sum_32s_Sfs(0)", "orbs", [=](int len) { orbsSum_32s_Sfs(y, len, &sum, 0); });
    add("Sum_32s_Sfs(0)", "loop", kept([=](int len) { return sumOf<long long>(y, len); }));
}

template <class T, class R>
void addLn(const char* name, OrbStatus (*member)(const T*, int, R*)) {
    static R sum;
    const T* const x = positive<T>();
    add(name, "orbs", [=](int len) { member(x, len, &sum); });
    add(name, "loop", kept([=](int len) {
            double all = 0;
            for (int n = 0; n < len; ++n)
                all += std::log(static_cast<std::conditional_t<sizeof(T) == 8, double, float>>(x[n]));
            return all;
        }));
}

[[maybe_unused]] const bool registered = [] {
    addSums();
    addDeviations();
    addIntegers();
    addLn("SumLn_32f", orbsSumLn_32f);
    addLn("SumLn_64f", orbsSumLn_64f);
    addLn("SumLn_16s32f", orbsSumLn_16s32f);
    return true;
}();

} // namespace
