// Conversion between sample formats, beside VOLK and the rules written as loops.
#include "members.h"
#include "orbs.h"
#include "vectors.h"
#include "volk_kernels.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <emmintrin.h>

namespace {

using members::addUnary;
using members::with;
using vectors::add;
using vectors::buffer;

// One conversion each, which the library's own function is not without further options.
Orb32s rounded(float x) {
    return _mm_cvtss_si32(_mm_set_ss(x));
}
Orb32s rounded(double x) {
    return _mm_cvtsd_si32(_mm_set_sd(x));
}

// 2^-3 with ties to even, or 2^3, of the exact value, saturated.
template <class Dst>
Dst scaledDown(Orb64s x, Orb64s lowest, Orb64s highest) {
    return static_cast<Dst>(std::clamp((x + 3 + (x >> 3 & 1)) >> 3, lowest, highest));
}
Orb16s scaledUp(Orb64s x) {
    return static_cast<Orb16s>(std::clamp<Orb64s>(x * 8, -32768, 32767));
}
Orb24s packed24(Orb32s x) {
    return {{static_cast<Orb8u>(x), static_cast<Orb8u>(x >> 8), static_cast<Orb8u>(x >> 16)}};
}
Orb32s unpacked24(Orb24s t) {
    return static_cast<Orb32s>(Orb32u{t.b[0]} << 8 | Orb32u{t.b[1]} << 16 | Orb32u{t.b[2]} << 24) >> 8;
}

template <class Dst>
Dst nearest(float x, float lowest, float highest) {
    return static_cast<Dst>(rounded(std::max(lowest, std::min(x * 0.125f, highest))));
}

Orb32f floatOfHalf(Orb16f half) {
    const int magnitude = half & 0x7fff;
    Orb32u bits = static_cast<Orb32u>(magnitude << 13) + (112u << 23);
    if (magnitude > 0x7bff) bits += 112u << 23;
    Orb32f value;
    std::memcpy(&value, &bits, sizeof value);
    if (magnitude < 0x400) value = static_cast<float>(magnitude) * 0x1p-24f;
    return half < 0 ? -value : value;
}
Orb16f halfOfFloat(Orb32f x) {
    const float scaled = std::min(std::fabs(x), 65536.0f) * 0x1p-112f;
    Orb32u bits, sign;
    std::memcpy(&bits, &scaled, sizeof bits);
    std::memcpy(&sign, &x, sizeof sign);
    return static_cast<Orb16f>((bits + 0xfff + (bits >> 13 & 1)) >> 13 | (sign >> 16 & 0x8000));
}

template <class T, class Rule>
void joinLoop(const Orb32f* const* src, int channels, int len, T* dst, Rule rule) {
    for (int n = 0; n < len; ++n)
        for (int c = 0; c < channels; ++c) dst[n * channels + c] = rule(src[c][n]);
}
template <class T, class Rule>
void splitLoop(const T* src, Orb32f* const* dst, int channels, int len, Rule rule) {
    for (int n = 0; n < len; ++n)
        for (int c = 0; c < channels; ++c) dst[c][n] = rule(src[n * channels + c]);
}

void addPlain() {
    auto* s8 = buffer<Orb8s>(0);
    auto* s16 = buffer<Orb16s>(0);
    auto* s32 = buffer<Orb32s>(0);
    auto* to32f = buffer<Orb32f>(2);
    constexpr auto same = [](auto x) { return x; };
    addUnary("Convert_8s16s", s8, orbsConvert_8s16s, same);
    addUnary("Convert_8s32f", s8, orbsConvert_8s32f, same);
    addUnary("Convert_16s32s", s16, orbsConvert_16s32s, same);
    addUnary("Convert_16s32f", s16, orbsConvert_16s32f, same);
    add("Convert_16s32f", "volk", [=](int len) { volk_16i_s32f_convert_32f(to32f, s16, 1, volk::count(len)); });
    addUnary(
        "Convert_16s32f_Sfs", s16, orbsConvert_16s32f_Sfs, [](Orb16s x) { return static_cast<float>(x) * 0.125f; }, 3);
    addUnary("Convert_32s32f", s32, orbsConvert_32s32f, same);
    addUnary("Convert_32s64f", s32, orbsConvert_32s64f, same);
    addUnary("Convert_32f64f", buffer<Orb32f>(0), orbsConvert_32f64f, same);
    addUnary("Convert_64f32f", buffer<Orb64f>(0), orbsConvert_64f32f, same);
    addUnary(
        "Convert_16s64f_Sfs", s16, orbsConvert_16s64f_Sfs, [](Orb16s x) { return x * 0.125; }, 3);
}

void addIntegers() {
    auto* s32 = buffer<Orb32s>(0);
    auto* s24 = buffer<Orb24s>(0);
    addUnary("Convert_32s16s", s32, orbsConvert_32s16s,
             [](Orb32s x) { return static_cast<Orb16s>(std::clamp(x, -32768, 32767)); });
    addUnary(
        "Convert_32s16s_Sfs", s32, orbsConvert_32s16s_Sfs,
        [](Orb32s x) { return scaledDown<Orb16s>(x, -32768, 32767); }, 3);
    addUnary(
        "Convert_32s16s_Sfs", s32, orbsConvert_32s16s_Sfs, [](Orb32s x) { return scaledUp(x); }, -3);
    addUnary(
        "Convert_32s24s_Sfs", s32, orbsConvert_32s24s_Sfs,
        [](Orb32s x) { return packed24(scaledDown<Orb32s>(x, -8388608, 8388607)); }, 3);
    for (const int s : {0, 3, 40}) {
        const Orb64s half = s == 0 ? 0 : (Orb64s{1} << (s - 1)) - 1, odd = s == 0 ? 0 : 1;
        addUnary(
            "Convert_64s32s_Sfs", buffer<Orb64s>(0), orbsConvert_64s32s_Sfs,
            [=](Orb64s x) { return std::clamp<Orb64s>((x + half + (x >> s & odd)) >> s, -0x80000000LL, 0x7fffffff); },
            orbRndNear, s);
    }
    addUnary("Convert_24s32s", s24, orbsConvert_24s32s, [](Orb24s t) { return unpacked24(t); });
    addUnary("Convert_24s32f", s24, orbsConvert_24s32f, [](Orb24s t) { return static_cast<float>(unpacked24(t)); });
}

void addFloats() {
    auto* f32 = buffer<Orb32f>(0);
    auto* s16 = buffer<Orb16s>(0);
    auto* to8 = buffer<Orb8s>(2);
    auto* to16 = buffer<Orb16s>(2);
    auto* to32 = buffer<Orb32s>(2);
    addUnary(
        "Convert_32f8s_Sfs", f32, orbsConvert_32f8s_Sfs, [](float x) { return nearest<Orb8s>(x, -128, 127); },
        orbRndNear, 3);
    add("Convert_32f8s_Sfs(3)", "volk", [=](int len) { volk_32f_s32f_convert_8i(to8, f32, 0.125f, volk::count(len)); });
    addUnary(
        "Convert_32f8u_Sfs", f32, orbsConvert_32f8u_Sfs, [](float x) { return nearest<Orb8u>(x, 0, 255); }, orbRndNear,
        3);
    addUnary(
        "Convert_32f16s_Sfs", f32, orbsConvert_32f16s_Sfs, [](float x) { return nearest<Orb16s>(x, -32768, 32767); },
        orbRndNear, 3);
    add("Convert_32f16s_Sfs(3)", "volk",
        [=](int len) { volk_32f_s32f_convert_16i(to16, f32, 0.125f, volk::count(len)); });
    addUnary(
        "Convert_32f16u_Sfs", f32, orbsConvert_32f16u_Sfs, [](float x) { return nearest<Orb16u>(x, 0, 65535); },
        orbRndNear, 3);
    add("Convert_32f32s_Sfs(3)", "orbs", [=](int len) { orbsConvert_32f32s_Sfs(f32, to32, len, orbRndNear, 3); });
    add("Convert_32f32s_Sfs(3)", "volk",
        [=](int len) { volk_32f_s32f_convert_32i(to32, f32, 0.125f, volk::count(len)); });
    addUnary(
        "Convert_64f32s_Sfs", buffer<Orb64f>(0), orbsConvert_64f32s_Sfs,
        [](double x) { return rounded(std::max(-2147483648.0, std::min(x * 0.125, 2147483647.0))); }, orbRndNear, 3);
    addUnary(
        "Convert_32f24s_Sfs", f32, orbsConvert_32f24s_Sfs,
        [](float x) { return packed24(nearest<Orb32s>(x, -8388608, 8388607)); }, 3);

    addUnary("Convert_16f32f", s16, orbsConvert_16f32f, [](Orb16f x) { return floatOfHalf(x); });
    addUnary(
        "Convert_32f16f", f32, orbsConvert_32f16f, [](float x) { return halfOfFloat(x); }, orbRndNear);
    addUnary(
        "Convert_16s16f", s16, orbsConvert_16s16f, [](Orb16s x) { return halfOfFloat(static_cast<float>(x)); },
        orbRndNear);
    addUnary(
        "Convert_16f16s_Sfs", s16, orbsConvert_16f16s_Sfs,
        [](Orb16f x) { return nearest<Orb16s>(floatOfHalf(x), -32768, 32767); }, orbRndNear, 3);
}

void addChannels() {
    static const Orb32f* channels[8];
    static Orb32f* toChannels[8];
    for (int c = 0; c < 8; ++c) {
        channels[c] = buffer<Orb32f>(0) + c * (vectors::longest / 8);
        toChannels[c] = buffer<Orb32f>(2) + c * (vectors::longest / 8);
    }
    auto *s16 = buffer<Orb16s>(0), *to16 = buffer<Orb16s>(2);
    auto *s24 = buffer<Orb24s>(0), *to24 = buffer<Orb24s>(2);
    constexpr auto full16 = [](float x) {
        return static_cast<Orb16s>(rounded(std::max(-1.0f, std::min(x, 1.0f)) * 32767.5f - 0.5f));
    };
    constexpr auto full24 = [](float x) {
        return packed24(
            static_cast<Orb32s>(rounded(std::max(-1.0, std::min(static_cast<double>(x), 1.0)) * 8388607.5 - 0.5)));
    };
    constexpr auto from16 = [](Orb16s x) { return x * 3.0518044e-5f + 1.5259022e-5f; };
    constexpr auto from24 = [](Orb24s x) {
        return static_cast<float>(unpacked24(x) * 1.19209296656209e-7 + 5.96046483281045e-8);
    };
    for (int count : {1, 2, 3, 8}) {
        add(with("JoinScaled_32f16s", count), "orbs",
            [=](int len) { orbsJoinScaled_32f16s_D2L(channels, count, len / 8, to16); });
        add(with("JoinScaled_32f16s", count), "loop",
            [=](int len) { joinLoop(channels, count, len / 8, to16, full16); });
        add(with("JoinScaled_32f24s", count), "orbs",
            [=](int len) { orbsJoinScaled_32f24s_D2L(channels, count, len / 8, to24); });
        add(with("JoinScaled_32f24s", count), "loop",
            [=](int len) { joinLoop(channels, count, len / 8, to24, full24); });
        add(with("SplitScaled_16s32f", count), "orbs",
            [=](int len) { orbsSplitScaled_16s32f_D2L(s16, toChannels, count, len / 8); });
        add(with("SplitScaled_16s32f", count), "loop",
            [=](int len) { splitLoop(s16, toChannels, count, len / 8, from16); });
        add(with("SplitScaled_24s32f", count), "orbs",
            [=](int len) { orbsSplitScaled_24s32f_D2L(s24, toChannels, count, len / 8); });
        add(with("SplitScaled_24s32f", count), "loop",
            [=](int len) { splitLoop(s24, toChannels, count, len / 8, from24); });
    }
}

[[maybe_unused]] const bool registered = [] {
    addPlain();
    addIntegers();
    addFloats();
    addChannels();
    return true;
}();

} // namespace
