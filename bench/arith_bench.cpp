// Sums, products, squares and absolute values beside VOLK and the loop that a compiler makes of the rule.
#include "loops.h"
#include "members.h"
#include "orbs.h"
#include "vectors.h"
#include "volk_kernels.h"

#include <cmath>

namespace {

using members::addBinary;
using members::addConstant;
using members::addUnary;
using vectors::add;
using vectors::buffer;
using vectors::Row;
using volk::count;

constexpr auto plus = [](auto a, auto b) { return a + b; };
constexpr auto minus = [](auto a, auto b) { return b - a; };
constexpr auto times = [](auto a, auto b) { return a * b; };

void addFloats() {
    auto *a = buffer<Orb32f>(0), *b = buffer<Orb32f>(1), *dst = buffer<Orb32f>(2);
    const Row sum = {"Add_32f", vectors::alsoShort};
    addBinary(sum, orbsAdd_32f, plus);
    add(sum, "volk", [=](int len) { volk_32f_x2_add_32f(dst, a, b, count(len)); });
    add("Add_32f", "volk-tier", [=](int len) { volk_32f_x2_add_32f_manual(dst, a, b, count(len), volk::floats); });
    addBinary("Sub_32f", orbsSub_32f, minus);
    add("Sub_32f", "volk", [=](int len) { volk_32f_x2_subtract_32f(dst, b, a, count(len)); });
    add("Sub_32f", "volk-tier", [=](int len) { volk_32f_x2_subtract_32f_manual(dst, b, a, count(len), volk::floats); });
    addBinary("Mul_32f", orbsMul_32f, times);
    add("Mul_32f", "volk", [=](int len) { volk_32f_x2_multiply_32f(dst, a, b, count(len)); });
    add("Mul_32f", "volk-tier", [=](int len) { volk_32f_x2_multiply_32f_manual(dst, a, b, count(len), volk::floats); });
    addConstant("AddC_32f", orbsAddC_32f, 3.0f, plus);
    add("AddC_32f", "volk", [=](int len) { volk_32f_s32f_add_32f(dst, a, 3.0f, count(len)); });
    addConstant("MulC_32f", orbsMulC_32f, 3.0f, times);
    add("MulC_32f", "volk", [=](int len) { volk_32f_s32f_multiply_32f(dst, a, 3.0f, count(len)); });
    add("AddProduct_32f", "orbs", [=](int len) { orbsAddProduct_32f(a, b, dst, len); });
    add("AddProduct_32f", "loop", [=](int len) {
        for (int n = 0; n < len; ++n) dst[n] += a[n] * b[n];
    });
}

void addDoubles() {
    auto *a = buffer<Orb64f>(0), *b = buffer<Orb64f>(1), *dst = buffer<Orb64f>(2);
    addBinary("Add_64f", orbsAdd_64f, plus);
    add("Add_64f", "volk", [=](int len) { volk_64f_x2_add_64f(dst, a, b, count(len)); });
    addBinary("Sub_64f", orbsSub_64f, minus);
    addBinary("Mul_64f", orbsMul_64f, times);
    add("Mul_64f", "volk", [=](int len) { volk_64f_x2_multiply_64f(dst, a, b, count(len)); });
    addConstant("MulC_64f", orbsMulC_64f, 3.0, times);
}

void addComplexFloats() {
    auto *a = buffer<Orb32fc>(0), *b = buffer<Orb32fc>(1), *dst = buffer<Orb32fc>(2);
    const Orb32fc val = {3.0f, -2.0f};
    const auto product = [](Orb32fc x, Orb32fc y) {
        return Orb32fc{x.re * y.re - x.im * y.im, x.re * y.im + x.im * y.re};
    };
    addBinary("Mul_32fc", orbsMul_32fc, product);
    add("Mul_32fc", "volk",
        [=](int len) { volk_32fc_x2_multiply_32fc(volk::cast(dst), volk::cast(a), volk::cast(b), count(len)); });
    add("Mul_32fc", "volk-tier", [=](int len) {
        volk_32fc_x2_multiply_32fc_manual(volk::cast(dst), volk::cast(a), volk::cast(b), count(len),
                                          volk::complexFloats);
    });
    addConstant("MulC_32fc", orbsMulC_32fc, val, product);
    add("MulC_32fc", "volk", [=](int len) {
        volk_32fc_s32fc_multiply_32fc(volk::cast(dst), volk::cast(a), {val.re, val.im}, count(len));
    });
}

// At scale factors of every kernel.
template <class Wide, class T, class Operation>
void addScaled(const char* name, OrbStatus (*member)(const T*, const T*, T*, int, int), Operation operation) {
    for (const int s : {0, 1, 3, -2}) addBinary(name, member, loops::scaling<Wide>(operation, s), s);
}
template <class Wide, class T, class Operation>
void addScaledConstant(const char* name, OrbStatus (*member)(const T*, T, T*, int, int), Operation operation) {
    for (const int s : {0, 3, -2}) addConstant(name, member, 3, loops::scaling<Wide>(operation, s), s);
}
template <class C>
void addScaledComplex(const char* name, OrbStatus (*member)(const C*, const C*, C*, int, int)) {
    using Part = decltype(C::re);
    for (const int s : {0, 3}) {
        addBinary(
            name, member,
            [=](C a, C b) {
                const Orb64s ar = a.re, ai = a.im, br = b.re, bi = b.im;
                return C{loops::scaled<Part>(ar * br - ai * bi, s), loops::scaled<Part>(ar * bi + ai * br, s)};
            },
            s);
    }
}

void addIntegers() {
    addBinary({"Add_16s", vectors::alsoShort}, orbsAdd_16s, loops::scaling<int>(plus, 0));
    addBinary("Sub_16s", orbsSub_16s, loops::scaling<int>(minus, 0));
    addBinary("Mul_16s", orbsMul_16s, loops::scaling<int>(times, 0));
    addScaled<int>("Add_8u_Sfs", orbsAdd_8u_Sfs, plus);
    addScaled<int>("Add_16u_Sfs", orbsAdd_16u_Sfs, plus);
    addScaled<int>("Add_16s_Sfs", orbsAdd_16s_Sfs, plus);
    addScaled<Orb64s>("Add_32s_Sfs", orbsAdd_32s_Sfs, plus);
    addScaled<int>("Sub_8u_Sfs", orbsSub_8u_Sfs, minus);
    addScaled<int>("Sub_16u_Sfs", orbsSub_16u_Sfs, minus);
    addScaled<int>("Sub_16s_Sfs", orbsSub_16s_Sfs, minus);
    addScaled<Orb64s>("Sub_32s_Sfs", orbsSub_32s_Sfs, minus);
    addScaled<int>("Mul_8u_Sfs", orbsMul_8u_Sfs, times);
    addScaled<Orb64s>("Mul_16u_Sfs", orbsMul_16u_Sfs, times);
    addScaled<int>("Mul_16s_Sfs", orbsMul_16s_Sfs, times);
    addScaled<Orb64s>("Mul_32s_Sfs", orbsMul_32s_Sfs, times);
    addScaledComplex("Mul_16sc_Sfs", orbsMul_16sc_Sfs);
    addScaledComplex("Mul_32sc_Sfs", orbsMul_32sc_Sfs);
    addScaledConstant<int>("AddC_8u_Sfs", orbsAddC_8u_Sfs, plus);
    addScaledConstant<int>("AddC_16s_Sfs", orbsAddC_16s_Sfs, plus);
    addScaledConstant<Orb64s>("AddC_32s_Sfs", orbsAddC_32s_Sfs, plus);
    addScaledConstant<int>("SubC_16s_Sfs", orbsSubC_16s_Sfs, [](auto a, auto val) { return a - val; });
    addScaledConstant<int>("MulC_8u_Sfs", orbsMulC_8u_Sfs, times);
    addScaledConstant<int>("MulC_16s_Sfs", orbsMulC_16s_Sfs, times);
    addScaledConstant<Orb64s>("MulC_16u_Sfs", orbsMulC_16u_Sfs, times);
    addScaledConstant<Orb64s>("MulC_32s_Sfs", orbsMulC_32s_Sfs, times);
}

template <class Wide, class T>
void addSquares(const char* name, OrbStatus (*member)(const T*, T*, int, int), int s) {
    addUnary(
        name, buffer<T>(0), member, [=](T x) { return loops::scaled<T, Wide>(Wide{x} * x, s); }, s);
}

void addSquaresAndAbs() {
    addSquares<Orb32s>("Sqr_8u_Sfs", orbsSqr_8u_Sfs, 3);
    addSquares<Orb32s>("Sqr_16s_Sfs", orbsSqr_16s_Sfs, 3);
    addSquares<Orb64s>("Sqr_16u_Sfs", orbsSqr_16u_Sfs, 3);
    addSquares<Orb64s>("Sqr_16u_Sfs", orbsSqr_16u_Sfs, 20);
    addUnary(
        "Sqr_16sc_Sfs", buffer<Orb16sc>(0), orbsSqr_16sc_Sfs,
        [](Orb16sc z) {
            const Orb64s re = z.re, im = z.im;
            return Orb16sc{loops::scaled<Orb16s>(re * re - im * im, 3), loops::scaled<Orb16s>(2 * re * im, 3)};
        },
        3);
    addUnary("Sqr_32f", buffer<Orb32f>(0), orbsSqr_32f, [](float x) { return x * x; });
    addUnary("Sqr_64f", buffer<Orb64f>(0), orbsSqr_64f, [](double x) { return x * x; });

    addUnary("Abs_16s", buffer<Orb16s>(0), orbsAbs_16s, [](Orb16s x) { return x < 0 ? std::min(-x, 32767) : x; });
    addUnary("Abs_32s", buffer<Orb32s>(0), orbsAbs_32s, [](Orb32s x) { return std::abs(std::max(x, -0x7fffffff)); });
    addUnary("Abs_32f", buffer<Orb32f>(0), orbsAbs_32f, [](float x) { return std::fabs(x); });
    addUnary("Abs_64f", buffer<Orb64f>(0), orbsAbs_64f, [](double x) { return std::fabs(x); });
}

[[maybe_unused]] const bool registered = [] {
    addFloats();
    addDoubles();
    addComplexFloats();
    addIntegers();
    addSquaresAndAbs();
    return true;
}();

} // namespace
