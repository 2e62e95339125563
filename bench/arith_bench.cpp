// Sums, products, bitwise operations and shifts beside VOLK and the loop that a compiler makes of the rule. VOLK
// chooses its widest kernels, of 512 bits or with fused multiply-adds where the processor has them; volk-avx has
// vectors as wide as ours.
#include "loops.h"
#include "orbs.h"
#include "vectors.h"

#include <string>
#include <volk/volk.h>

namespace {

using vectors::add;
using vectors::buffer;

constexpr auto plus = [](auto a, auto b) { return a + b; };
constexpr auto minus = [](auto a, auto b) { return b - a; };
constexpr auto times = [](auto a, auto b) { return a * b; };

unsigned count(int len) {
    return static_cast<unsigned>(len);
}

template <class T>
struct Buffers {
    T *a = buffer<T>(0), *b = buffer<T>(1), *dst = buffer<T>(2);
};

// A member with a scale factor beside the loop of the rule, at scale factors of every kernel.
template <class Wide, class T, class Combine>
void addScaled(const char* family, OrbStatus (*member)(const T*, const T*, T*, int, int), Combine combine) {
    const Buffers<T> v;
    for (const int s : {0, 1, 3, -2}) {
        const std::string name = std::string(family) + "(" + std::to_string(s) + ")";
        add(name, "orbs", [=](int len) { member(v.a, v.b, v.dst, len, s); });
        add(name, "loop", [=](int len) { loops::map<Wide>(v.a, v.b, v.dst, len, s, combine); });
        add(name, "scalar", [=](int len) { loops::mapScalar<Wide>(v.a, v.b, v.dst, len, s, combine); });
    }
}
template <class Wide, class T, class Combine>
void addScaledConstant(const char* family, OrbStatus (*member)(const T*, T, T*, int, int), Combine combine) {
    const Buffers<T> v;
    const T val = 3;
    for (const int s : {0, 3, -2}) {
        const std::string name = std::string(family) + "(" + std::to_string(s) + ")";
        add(name, "orbs", [=](int len) { member(v.a, val, v.dst, len, s); });
        add(name, "loop", [=](int len) {
            for (int n = 0; n < len; ++n) v.dst[n] = loops::scaled<T, Wide>(combine(Wide{val}, Wide{v.a[n]}), s);
        });
    }
}
template <class C>
void addScaledComplex(const char* family, OrbStatus (*member)(const C*, const C*, C*, int, int)) {
    const Buffers<C> v;
    using Part = decltype(C::re);
    for (const int s : {0, 3}) {
        const std::string name = std::string(family) + "(" + std::to_string(s) + ")";
        add(name, "orbs", [=](int len) { member(v.a, v.b, v.dst, len, s); });
        add(name, "loop", [=](int len) {
            for (int n = 0; n < len; ++n) {
                const Orb64s ar = v.a[n].re, ai = v.a[n].im, br = v.b[n].re, bi = v.b[n].im;
                v.dst[n] = {loops::scaled<Part>(ar * br - ai * bi, s), loops::scaled<Part>(ar * bi + ai * br, s)};
            }
        });
    }
}

// Members over two arrays and of one array and a constant, beside a plain loop.
template <class T, class Combine>
void addBinary(const char* family, OrbStatus (*member)(const T*, const T*, T*, int), Combine combine) {
    const Buffers<T> v;
    add(family, "orbs", [=](int len) { member(v.a, v.b, v.dst, len); });
    add(family, "loop", [=](int len) {
        for (int n = 0; n < len; ++n) v.dst[n] = static_cast<T>(combine(v.a[n], v.b[n]));
    });
}
template <class T, class Val, class Combine>
void addConstant(const char* family, OrbStatus (*member)(const T*, Val, T*, int), Val val, Combine combine) {
    const Buffers<T> v;
    add(family, "orbs", [=](int len) { member(v.a, val, v.dst, len); });
    add(family, "loop", [=](int len) {
        for (int n = 0; n < len; ++n) v.dst[n] = static_cast<T>(combine(v.a[n], val));
    });
}

void addFloats() {
    const Buffers<Orb32f> v;
    addBinary("Add_32f", &orbsAdd_32f, plus);
    add("Add_32f", "volk", [=](int len) { volk_32f_x2_add_32f(v.dst, v.a, v.b, count(len)); });
    add("Add_32f", "volk-avx", [=](int len) { volk_32f_x2_add_32f_manual(v.dst, v.a, v.b, count(len), "a_avx"); });
    addBinary("Sub_32f", &orbsSub_32f, minus);
    add("Sub_32f", "volk", [=](int len) { volk_32f_x2_subtract_32f(v.dst, v.b, v.a, count(len)); });
    add("Sub_32f", "volk-avx", [=](int len) { volk_32f_x2_subtract_32f_manual(v.dst, v.b, v.a, count(len), "a_avx"); });
    addBinary("Mul_32f", &orbsMul_32f, times);
    add("Mul_32f", "volk", [=](int len) { volk_32f_x2_multiply_32f(v.dst, v.a, v.b, count(len)); });
    add("Mul_32f", "volk-avx", [=](int len) { volk_32f_x2_multiply_32f_manual(v.dst, v.a, v.b, count(len), "a_avx"); });
    addConstant("MulC_32f", &orbsMulC_32f, 3.0f, times);
    add("MulC_32f", "volk", [=](int len) { volk_32f_s32f_multiply_32f(v.dst, v.a, 3.0f, count(len)); });
    const Buffers<Orb64f> w;
    addBinary("Add_64f", &orbsAdd_64f, plus);
    add("Add_64f", "volk", [=](int len) { volk_64f_x2_add_64f(w.dst, w.a, w.b, count(len)); });
    addBinary("Mul_64f", &orbsMul_64f, times);
    add("Mul_64f", "volk", [=](int len) { volk_64f_x2_multiply_64f(w.dst, w.a, w.b, count(len)); });
    addBinary("Sub_64f", &orbsSub_64f, minus);
    add("AddProduct_32f", "orbs", [=](int len) { orbsAddProduct_32f(v.a, v.b, v.dst, len); });
    add("AddProduct_32f", "loop", [=](int len) {
        for (int n = 0; n < len; ++n) v.dst[n] += v.a[n] * v.b[n];
    });
}

void addComplexFloats() {
    const Buffers<Orb32fc> v;
    const auto volk = [](Orb32fc* p) { return reinterpret_cast<lv_32fc_t*>(p); };
    auto *a = volk(v.a), *b = volk(v.b), *dst = volk(v.dst);
    const Orb32fc val = {3.0f, -2.0f};
    add("Mul_32fc", "orbs", [=](int len) { orbsMul_32fc(v.a, v.b, v.dst, len); });
    add("Mul_32fc", "volk", [=](int len) { volk_32fc_x2_multiply_32fc(dst, a, b, count(len)); });
    add("Mul_32fc", "volk-avx", [=](int len) { volk_32fc_x2_multiply_32fc_manual(dst, a, b, count(len), "a_avx"); });
    add("MulC_32fc", "orbs", [=](int len) { orbsMulC_32fc(v.a, val, v.dst, len); });
    add("MulC_32fc", "volk", [=](int len) { volk_32fc_s32fc_multiply_32fc(dst, a, {val.re, val.im}, count(len)); });
    // VOLK multiplies the same number of complex elements, all of them complex bins.
    auto *x = buffer<Orb32f>(0), *y = buffer<Orb32f>(1), *r = buffer<Orb32f>(2);
    add("MulPerm_32f", "orbs", [=](int len) { orbsMulPerm_32f(x, y, r, len); });
    add("MulPerm_32f", "volk", [=](int len) { volk_32fc_x2_multiply_32fc(dst, a, b, count(len / 2)); });
    add("MulPerm_32f", "volk-avx",
        [=](int len) { volk_32fc_x2_multiply_32fc_manual(dst, a, b, count(len / 2), "a_avx"); });
}

void addIntegers() {
    const Buffers<Orb16s> v;
    add("Add_16s", "orbs", [=](int len) { orbsAdd_16s(v.a, v.b, v.dst, len); });
    add("Add_16s", "loop", [=](int len) { loops::map<int>(v.a, v.b, v.dst, len, 0, plus); });
    add("Sub_16s", "orbs", [=](int len) { orbsSub_16s(v.a, v.b, v.dst, len); });
    add("Sub_16s", "loop", [=](int len) { loops::map<int>(v.a, v.b, v.dst, len, 0, minus); });
    add("Mul_16s", "orbs", [=](int len) { orbsMul_16s(v.a, v.b, v.dst, len); });
    add("Mul_16s", "loop", [=](int len) { loops::map<int>(v.a, v.b, v.dst, len, 0, times); });
    addScaled<int>("Add_8u_Sfs", &orbsAdd_8u_Sfs, plus);
    addScaled<int>("Add_16u_Sfs", &orbsAdd_16u_Sfs, plus);
    addScaled<int>("Add_16s_Sfs", &orbsAdd_16s_Sfs, plus);
    addScaled<Orb64s>("Add_32s_Sfs", &orbsAdd_32s_Sfs, plus);
    addScaled<int>("Sub_8u_Sfs", &orbsSub_8u_Sfs, minus);
    addScaled<int>("Sub_16u_Sfs", &orbsSub_16u_Sfs, minus);
    addScaled<int>("Sub_16s_Sfs", &orbsSub_16s_Sfs, minus);
    addScaled<Orb64s>("Sub_32s_Sfs", &orbsSub_32s_Sfs, minus);
    addScaled<int>("Mul_8u_Sfs", &orbsMul_8u_Sfs, times);
    addScaled<Orb64s>("Mul_16u_Sfs", &orbsMul_16u_Sfs, times);
    addScaled<int>("Mul_16s_Sfs", &orbsMul_16s_Sfs, times);
    addScaled<Orb64s>("Mul_32s_Sfs", &orbsMul_32s_Sfs, times);
    addScaledComplex("Mul_16sc_Sfs", &orbsMul_16sc_Sfs);
    addScaledComplex("Mul_32sc_Sfs", &orbsMul_32sc_Sfs);
    addScaledConstant<int>("AddC_8u_Sfs", &orbsAddC_8u_Sfs, plus);
    addScaledConstant<int>("AddC_16s_Sfs", &orbsAddC_16s_Sfs, plus);
    addScaledConstant<Orb64s>("AddC_32s_Sfs", &orbsAddC_32s_Sfs, plus);
    addScaledConstant<int>("SubC_16s_Sfs", &orbsSubC_16s_Sfs, minus);
    addScaledConstant<int>("MulC_8u_Sfs", &orbsMulC_8u_Sfs, times);
    addScaledConstant<int>("MulC_16s_Sfs", &orbsMulC_16s_Sfs, times);
    addScaledConstant<Orb64s>("MulC_16u_Sfs", &orbsMulC_16u_Sfs, times);
    addScaledConstant<Orb64s>("MulC_32s_Sfs", &orbsMulC_32s_Sfs, times);
}

void addBits() {
    const auto conjunction = [](auto a, auto b) { return a & b; };
    const auto left = [](auto a, int val) { return a << val; };
    const auto right = [](auto a, int val) { return a >> val; };
    addBinary("And_8u", &orbsAnd_8u, conjunction);
    addBinary("Or_16u", &orbsOr_16u, [](auto a, auto b) { return a | b; });
    addBinary("Xor_32u", &orbsXor_32u, [](auto a, auto b) { return a ^ b; });
    addConstant("AndC_8u", &orbsAndC_8u, Orb8u{0x5a}, conjunction);
    addConstant("LShiftC_8u", &orbsLShiftC_8u, 3, left);
    addConstant("LShiftC_16s", &orbsLShiftC_16s, 3, left);
    addConstant("RShiftC_8u", &orbsRShiftC_8u, 3, right);
    addConstant("RShiftC_16s", &orbsRShiftC_16s, 3, right);
    addConstant("RShiftC_32s", &orbsRShiftC_32s, 3, right);
}

[[maybe_unused]] const bool registered = [] {
    addFloats();
    addComplexFloats();
    addIntegers();
    addBits();
    return true;
}();

} // namespace
