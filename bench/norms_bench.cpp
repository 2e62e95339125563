// Norms, dot products and normalisation, beside VOLK, Eigen, and loops: "loop" in the order of the elements, "fastmath"
// one that the compiler may reorder.
#include "orbs.h"
#include "vectors.h"
#include "volk_kernels.h"

#include <cmath>
#include <complex>
#include <cstdlib>
#include <eigen3/Eigen/Core>

#pragma GCC optimize("fast-math")

namespace {

using vectors::add;
using vectors::buffer;
using vectors::Row;

// The sum of f over the elements.
template <class Sum, class F, class... T>
Sum total(F f, int len, const T*... x) {
    Sum sum = 0;
    for (int n = 0; n < len; ++n) sum += static_cast<Sum>(f(x[n]...));
    return sum;
}
template <class Sum, class F, class... T>
Sum largest(F f, int len, const T*... x) {
    Sum most = 0;
    for (int n = 0; n < len; ++n) {
        const auto here = static_cast<Sum>(f(x[n]...));
        most = most < here ? here : most;
    }
    return most;
}

// Keeps what a peer computes.
template <class F>
auto kept(F f) {
    return [=](int len) { benchmark::DoNotOptimize(f(len)); };
}

template <class T>
auto eigen(const T* x, int len) {
    return Eigen::Map<const Eigen::Matrix<T, Eigen::Dynamic, 1>>(x, len);
}

constexpr auto product = [](auto a, auto b) { return a * b; };
// Functions of the C++ library are not inlined into code of other options.
constexpr auto magnitude = [](auto x) { return x < 0 ? -x : x; };
constexpr auto square = [](auto x) { return x * x; };

template <class S1, class S2, class R, class... More>
void addOrbs(const Row& row, OrbStatus (*member)(const S1*, const S2*, int, R*, More...),
             std::type_identity_t<More>... more) {
    static R result;
    const S1* const x = buffer<S1>(0);
    const S2* const y = buffer<S2>(1);
    add(row, "orbs", [=](int len) { member(x, y, len, &result, more...); });
}
template <class S, class R, class... More>
void addOrbs(const Row& row, OrbStatus (*member)(const S*, int, R*, More...), std::type_identity_t<More>... more) {
    static R result;
    const S* const x = buffer<S>(0);
    add(row, "orbs", [=](int len) { member(x, len, &result, more...); });
}

void addDotProducts() {
    const auto *x = buffer<Orb32f>(0), *y = buffer<Orb32f>(1);
    const auto *x64 = buffer<Orb64f>(0), *y64 = buffer<Orb64f>(1);
    const Row single = {"DotProd_32f", vectors::alsoShort};
    addOrbs(single, orbsDotProd_32f);
    add(single, "fastmath", kept([=](int len) { return total<Orb32f>(product, len, x, y); }));
    add(single, "eigen", kept([=](int len) { return eigen(x, len).dot(eigen(y, len)); }));
    static float result;
    add(single, "volk", [=](int len) { volk_32f_x2_dot_prod_32f(&result, x, y, volk::count(len)); });
    add(single, "volk-tier",
        [=](int len) { volk_32f_x2_dot_prod_32f_manual(&result, x, y, volk::count(len), volk::floats); });
    addOrbs("DotProd_64f", orbsDotProd_64f);
    add("DotProd_64f", "fastmath", kept([=](int len) { return total<Orb64f>(product, len, x64, y64); }));
    add("DotProd_64f", "eigen", kept([=](int len) { return eigen(x64, len).dot(eigen(y64, len)); }));
    addOrbs("DotProd_32f64f", orbsDotProd_32f64f);
    add("DotProd_32f64f", "fastmath", kept([=](int len) {
            return total<Orb64f>([](Orb32f a, Orb32f b) { return Orb64f{a} * Orb64f{b}; }, len, x, y);
        }));
    addOrbs("DotProd_32fc", orbsDotProd_32fc);
    auto *z = reinterpret_cast<lv_32fc_t*>(buffer<Orb32fc>(0)), *w = reinterpret_cast<lv_32fc_t*>(buffer<Orb32fc>(1));
    static lv_32fc_t complexResult;
    add("DotProd_32fc", "volk", [=](int len) { volk_32fc_x2_dot_prod_32fc(&complexResult, z, w, volk::count(len)); });
    add("DotProd_32fc", "eigen", kept([=](int len) { return eigen(z, len).cwiseProduct(eigen(w, len)).sum(); }));
    addOrbs("DotProd_32f32fc", orbsDotProd_32f32fc);
    add("DotProd_32f32fc", "volk",
        [=](int len) { volk_32fc_32f_dot_prod_32fc(&complexResult, z, x, volk::count(len)); });

    const auto *a = buffer<Orb16s>(0), *b = buffer<Orb16s>(1);
    const Row shorts = {"DotProd_16s64s", vectors::alsoShort};
    addOrbs(shorts, orbsDotProd_16s64s);
    add(shorts, "loop", kept([=](int len) { return total<long long>(product, len, a, b); }));
    addOrbs("DotProd_16sc64sc", orbsDotProd_16sc64sc);
    const auto *c = buffer<Orb16sc>(0), *d = buffer<Orb16sc>(1);
    add("DotProd_16sc64sc", "loop", kept([=](int len) {
            long long re = 0, im = 0;
            for (int n = 0; n < len; ++n) {
                re += c[n].re * d[n].re - c[n].im * d[n].im;
                im += c[n].re * d[n].im + c[n].im * d[n].re;
            }
            return re ^ im;
        }));
    addOrbs("DotProd_32s_Sfs(3)", orbsDotProd_32s_Sfs, 3);
    const auto *i = buffer<Orb32s>(0), *j = buffer<Orb32s>(1);
    add("DotProd_32s_Sfs(3)", "fastmath",
        kept([=](int len) { return total<double>([](Orb32s p, Orb32s q) { return double{1} * p * q; }, len, i, j); }));
}

void addNorms() {
    const auto* x = buffer<Orb32f>(0);
    const auto* a = buffer<Orb16s>(0);
    addOrbs("Norm_Inf_32f", orbsNorm_Inf_32f);
    add("Norm_Inf_32f", "fastmath", kept([=](int len) { return largest<Orb32f>(magnitude, len, x); }));
    add("Norm_Inf_32f", "eigen", kept([=](int len) { return eigen(x, len).lpNorm<Eigen::Infinity>(); }));
    addOrbs("Norm_L1_32f", orbsNorm_L1_32f);
    add("Norm_L1_32f", "fastmath", kept([=](int len) { return total<Orb32f>(magnitude, len, x); }));
    add("Norm_L1_32f", "eigen", kept([=](int len) { return eigen(x, len).lpNorm<1>(); }));
    addOrbs("Norm_L2_32f", orbsNorm_L2_32f);
    add("Norm_L2_32f", "fastmath", kept([=](int len) { return std::sqrt(total<Orb32f>(square, len, x)); }));
    add("Norm_L2_32f", "eigen", kept([=](int len) { return eigen(x, len).norm(); }));
    addOrbs("NormDiff_L2_32f", orbsNormDiff_L2_32f);
    const auto* y = buffer<Orb32f>(1);
    add("NormDiff_L2_32f", "eigen", kept([=](int len) { return (eigen(x, len) - eigen(y, len)).norm(); }));
    addOrbs("Norm_L1_32fc64f", orbsNorm_L1_32fc64f);
    const auto* z = buffer<Orb32fc>(0);
    add("Norm_L1_32fc64f", "fastmath", kept([=](int len) {
            return total<Orb64f>(
                [](Orb32fc v) { return std::sqrt(Orb64f{v.re} * Orb64f{v.re} + Orb64f{v.im} * Orb64f{v.im}); }, len, z);
        }));
    addOrbs("Norm_Inf_16s32s_Sfs(0)", orbsNorm_Inf_16s32s_Sfs, 0);
    add("Norm_Inf_16s32s_Sfs(0)", "loop", kept([=](int len) { return largest<int>(magnitude, len, a); }));
    addOrbs("Norm_L1_16s64s_Sfs(0)", orbsNorm_L1_16s64s_Sfs, 0);
    add("Norm_L1_16s64s_Sfs(0)", "loop", kept([=](int len) { return total<long long>(magnitude, len, a); }));
    addOrbs("Norm_L2_16s32f", orbsNorm_L2_16s32f);
    add("Norm_L2_16s32f", "loop",
        kept([=](int len) { return std::sqrt(static_cast<double>(total<long long>(square, len, a))); }));
    const auto* b = buffer<Orb16s>(1);
    addOrbs("NormDiff_L1_16s64s_Sfs(0)", orbsNormDiff_L1_16s64s_Sfs, 0);
    add("NormDiff_L1_16s64s_Sfs(0)", "loop",
        kept([=](int len) { return total<long long>([](int p, int q) { return magnitude(p - q); }, len, a, b); }));
    addOrbs("NormDiff_L2Sqr_16s64s_Sfs(0)", orbsNormDiff_L2Sqr_16s64s_Sfs, 0);
    add("NormDiff_L2Sqr_16s64s_Sfs(0)", "loop", kept([=](int len) {
            return total<long long>([](int p, int q) { return static_cast<long long>(p - q) * (p - q); }, len, a, b);
        }));
}

void addNormalize() {
    const auto* x = buffer<Orb32f>(0);
    auto* y = buffer<Orb32f>(2);
    const auto* a = buffer<Orb16s>(0);
    auto* b = buffer<Orb16s>(2);
    add("Normalize_32f", "orbs", [=](int len) { orbsNormalize_32f(x, y, len, 3, 7); });
    add("Normalize_32f", "loop", [=](int len) {
        for (int n = 0; n < len; ++n) y[n] = (x[n] - 3.0f) * (1 / 7.0f);
    });
    add("Normalize_32f", "volk", [=](int len) { volk_32f_s32f_normalize(y, 7, volk::count(len)); });
    add("Normalize_16s_Sfs(-3)", "orbs", [=](int len) { orbsNormalize_16s_Sfs(a, b, len, 3, 7, -3); });
    add("Normalize_16s_Sfs(-3)", "loop", [=](int len) {
        for (int n = 0; n < len; ++n) {
            const float v = static_cast<float>(a[n] - 3) * (8 / 7.0f), most = v < 32767.0f ? v : 32767.0f;
            b[n] = static_cast<Orb16s>(__builtin_rintf(most > -32768.0f ? most : -32768.0f));
        }
    });
}

[[maybe_unused]] const bool registered = [] {
    addDotProducts();
    addNorms();
    addNormalize();
    return true;
}();

} // namespace
