// Conversion between sample formats, beside VOLK and the rules written as loops.
#include "orbs.h"
#include "vectors.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <emmintrin.h>
#include <volk/volk.h>

namespace {

using vectors::add;
using vectors::buffer;

// One conversion each, which the library's own function is not without further options.
Orb32s rounded(float x) {
    return _mm_cvtss_si32(_mm_set_ss(x));
}
Orb32s rounded(double x) {
    return _mm_cvtsd_si32(_mm_set_sd(x));
}

template <auto rule, class Src, class Dst>
void loop(const Src* src, Dst* dst, int len) {
    for (int n = 0; n < len; ++n) dst[n] = rule(src[n]);
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
    auto *s16 = buffer<Orb16s>(0), *to16 = buffer<Orb16s>(1);
    auto *s32 = buffer<Orb32s>(0), *to32 = buffer<Orb32s>(1);
    auto *f32 = buffer<Orb32f>(0), *to32f = buffer<Orb32f>(1);
    auto *f64 = buffer<Orb64f>(0), *to64f = buffer<Orb64f>(1);
    constexpr auto same = [](auto x) { return x; };
    add("Convert_8s16s", "orbs", [=](int len) { orbsConvert_8s16s(s8, to16, len); });
    add("Convert_8s16s", "loop", [=](int len) { loop<same>(s8, to16, len); });
    add("Convert_8s32f", "orbs", [=](int len) { orbsConvert_8s32f(s8, to32f, len); });
    add("Convert_8s32f", "loop", [=](int len) { loop<same>(s8, to32f, len); });
    add("Convert_16s32s", "orbs", [=](int len) { orbsConvert_16s32s(s16, to32, len); });
    add("Convert_16s32s", "loop", [=](int len) { loop<same>(s16, to32, len); });
    add("Convert_16s32f", "orbs", [=](int len) { orbsConvert_16s32f(s16, to32f, len); });
    add("Convert_16s32f", "loop", [=](int len) { loop<same>(s16, to32f, len); });
    add("Convert_16s32f", "volk",
        [=](int len) { volk_16i_s32f_convert_32f(to32f, s16, 1, static_cast<unsigned>(len)); });
    add("Convert_16s32f_Sfs(3)", "orbs", [=](int len) { orbsConvert_16s32f_Sfs(s16, to32f, len, 3); });
    add("Convert_16s32f_Sfs(3)", "loop",
        [=](int len) { loop<[](Orb16s x) { return static_cast<float>(x) * 0.125f; }>(s16, to32f, len); });
    add("Convert_32s32f", "orbs", [=](int len) { orbsConvert_32s32f(s32, to32f, len); });
    add("Convert_32s32f", "loop", [=](int len) { loop<same>(s32, to32f, len); });
    add("Convert_32s64f", "orbs", [=](int len) { orbsConvert_32s64f(s32, to64f, len); });
    add("Convert_32s64f", "loop", [=](int len) { loop<same>(s32, to64f, len); });
    add("Convert_32f64f", "orbs", [=](int len) { orbsConvert_32f64f(f32, to64f, len); });
    add("Convert_32f64f", "loop", [=](int len) { loop<same>(f32, to64f, len); });
    add("Convert_64f32f", "orbs", [=](int len) { orbsConvert_64f32f(f64, to32f, len); });
    add("Convert_64f32f", "loop", [=](int len) { loop<same>(f64, to32f, len); });
    add("Convert_16s64f_Sfs(3)", "orbs", [=](int len) { orbsConvert_16s64f_Sfs(s16, to64f, len, 3); });
    add("Convert_16s64f_Sfs(3)", "loop", [=](int len) { loop<[](Orb16s x) { return x * 0.125; }>(s16, to64f, len); });
}

void addIntegers() {
    auto *s32 = buffer<Orb32s>(0), *to32 = buffer<Orb32s>(1);
    auto* s64 = buffer<Orb64s>(0);
    auto* to16 = buffer<Orb16s>(1);
    auto* to24 = reinterpret_cast<Orb24s*>(to32);
    const auto* s24 = reinterpret_cast<const Orb24s*>(s32);
    auto* to32f = buffer<Orb32f>(1);
    add("Convert_32s16s", "orbs", [=](int len) { orbsConvert_32s16s(s32, to16, len); });
    add("Convert_32s16s", "loop", [=](int len) {
        loop<[](Orb32s x) { return static_cast<Orb16s>(std::clamp(x, -32768, 32767)); }>(s32, to16, len);
    });
    add("Convert_32s16s_Sfs(3)", "orbs", [=](int len) { orbsConvert_32s16s_Sfs(s32, to16, len, 3); });
    add("Convert_32s16s_Sfs(3)", "loop",
        [=](int len) { loop<[](Orb32s x) { return scaledDown<Orb16s>(x, -32768, 32767); }>(s32, to16, len); });
    add("Convert_32s16s_Sfs(-3)", "orbs", [=](int len) { orbsConvert_32s16s_Sfs(s32, to16, len, -3); });
    add("Convert_32s16s_Sfs(-3)", "loop", [=](int len) { loop<[](Orb32s x) { return scaledUp(x); }>(s32, to16, len); });
    add("Convert_32s24s_Sfs(3)", "orbs", [=](int len) { orbsConvert_32s24s_Sfs(s32, to24, len, 3); });
    add("Convert_32s24s_Sfs(3)", "loop", [=](int len) {
        loop<[](Orb32s x) { return packed24(scaledDown<Orb32s>(x, -8388608, 8388607)); }>(s32, to24, len);
    });
    for (int scale : {0, 3, 40}) {
        const std::string name = "Convert_64s32s_Sfs(" + std::to_string(scale) + ")";
        add(name, "orbs", [=](int len) { orbsConvert_64s32s_Sfs(s64, to32, len, orbRndNear, scale); });
        add(name, "loop", [=](int len) {
            const Orb64s half = scale == 0 ? 0 : (Orb64s{1} << (scale - 1)) - 1, odd = scale == 0 ? 0 : 1;
            for (int n = 0; n < len; ++n) {
                const Orb64s v = (s64[n] + half + (s64[n] >> scale & odd)) >> scale;
                to32[n] = static_cast<Orb32s>(std::clamp<Orb64s>(v, -0x80000000LL, 0x7fffffff));
            }
        });
    }
    add("Convert_24s32s", "orbs", [=](int len) { orbsConvert_24s32s(s24, to32, len); });
    add("Convert_24s32s", "loop", [=](int len) { loop<unpacked24>(s24, to32, len); });
    add("Convert_24s32f", "orbs", [=](int len) { orbsConvert_24s32f(s24, to32f, len); });
    add("Convert_24s32f", "loop",
        [=](int len) { loop<[](Orb24s t) { return static_cast<float>(unpacked24(t)); }>(s24, to32f, len); });
}

void addFloats() {
    auto *f32 = buffer<Orb32f>(0), *to32f = buffer<Orb32f>(1);
    auto* f64 = buffer<Orb64f>(0);
    auto* to8 = buffer<Orb8s>(1);
    auto* to8u = buffer<Orb8u>(1);
    auto *s16 = buffer<Orb16s>(0), *to16 = buffer<Orb16s>(1);
    auto* to16u = buffer<Orb16u>(1);
    auto* to32 = buffer<Orb32s>(1);
    auto* to24 = reinterpret_cast<Orb24s*>(to32);
    add("Convert_32f8s_Sfs(3)", "orbs", [=](int len) { orbsConvert_32f8s_Sfs(f32, to8, len, orbRndNear, 3); });
    add("Convert_32f8s_Sfs(3)", "loop",
        [=](int len) { loop<[](float x) { return nearest<Orb8s>(x, -128, 127); }>(f32, to8, len); });
    add("Convert_32f8s_Sfs(3)", "volk",
        [=](int len) { volk_32f_s32f_convert_8i(to8, f32, 0.125f, static_cast<unsigned>(len)); });
    add("Convert_32f8u_Sfs(3)", "orbs", [=](int len) { orbsConvert_32f8u_Sfs(f32, to8u, len, orbRndNear, 3); });
    add("Convert_32f8u_Sfs(3)", "loop",
        [=](int len) { loop<[](float x) { return nearest<Orb8u>(x, 0, 255); }>(f32, to8u, len); });
    add("Convert_32f16s_Sfs(3)", "orbs", [=](int len) { orbsConvert_32f16s_Sfs(f32, to16, len, orbRndNear, 3); });
    add("Convert_32f16s_Sfs(3)", "loop",
        [=](int len) { loop<[](float x) { return nearest<Orb16s>(x, -32768, 32767); }>(f32, to16, len); });
    add("Convert_32f16s_Sfs(3)", "volk",
        [=](int len) { volk_32f_s32f_convert_16i(to16, f32, 0.125f, static_cast<unsigned>(len)); });
    add("Convert_32f16u_Sfs(3)", "orbs", [=](int len) { orbsConvert_32f16u_Sfs(f32, to16u, len, orbRndNear, 3); });
    add("Convert_32f16u_Sfs(3)", "loop",
        [=](int len) { loop<[](float x) { return nearest<Orb16u>(x, 0, 65535); }>(f32, to16u, len); });
    add("Convert_32f32s_Sfs(3)", "orbs", [=](int len) { orbsConvert_32f32s_Sfs(f32, to32, len, orbRndNear, 3); });
    add("Convert_32f32s_Sfs(3)", "volk",
        [=](int len) { volk_32f_s32f_convert_32i(to32, f32, 0.125f, static_cast<unsigned>(len)); });
    add("Convert_64f32s_Sfs(3)", "orbs", [=](int len) { orbsConvert_64f32s_Sfs(f64, to32, len, orbRndNear, 3); });
    add("Convert_64f32s_Sfs(3)", "loop", [=](int len) {
        for (int n = 0; n < len; ++n)
            to32[n] = static_cast<Orb32s>(rounded(std::max(-2147483648.0, std::min(f64[n] * 0.125, 2147483647.0))));
    });
    add("Convert_32f24s_Sfs(3)", "orbs", [=](int len) { orbsConvert_32f24s_Sfs(f32, to24, len, 3); });
    add("Convert_32f24s_Sfs(3)", "loop", [=](int len) {
        loop<[](float x) { return packed24(nearest<Orb32s>(x, -8388608, 8388607)); }>(f32, to24, len);
    });

    add("Convert_16f32f", "orbs", [=](int len) { orbsConvert_16f32f(s16, to32f, len); });
    add("Convert_16f32f", "loop", [=](int len) { loop<floatOfHalf>(s16, to32f, len); });
    add("Convert_32f16f", "orbs", [=](int len) { orbsConvert_32f16f(f32, to16, len, orbRndNear); });
    add("Convert_32f16f", "loop", [=](int len) { loop<halfOfFloat>(f32, to16, len); });
    add("Convert_16s16f", "orbs", [=](int len) { orbsConvert_16s16f(s16, to16, len, orbRndNear); });
    add("Convert_16s16f", "loop",
        [=](int len) { loop<[](Orb16s x) { return halfOfFloat(static_cast<float>(x)); }>(s16, to16, len); });
    add("Convert_16f16s_Sfs(3)", "orbs", [=](int len) { orbsConvert_16f16s_Sfs(s16, to16, len, orbRndNear, 3); });
    add("Convert_16f16s_Sfs(3)", "loop", [=](int len) {
        loop<[](Orb16f x) { return nearest<Orb16s>(floatOfHalf(x), -32768, 32767); }>(s16, to16, len);
    });
}

void addChannels() {
    static const Orb32f* channels[8];
    static Orb32f* toChannels[8];
    for (int c = 0; c < 8; ++c) {
        channels[c] = buffer<Orb32f>(0) + c * (vectors::sizes[1] / 8);
        toChannels[c] = buffer<Orb32f>(1) + c * (vectors::sizes[1] / 8);
    }
    auto *s16 = buffer<Orb16s>(0), *to16 = buffer<Orb16s>(1);
    auto* to24 = reinterpret_cast<Orb24s*>(buffer<Orb32s>(1));
    const auto* s24 = reinterpret_cast<const Orb24s*>(buffer<Orb32s>(0));
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
        const std::string of = "(" + std::to_string(count) + ")";
        add("JoinScaled_32f16s" + of, "orbs",
            [=](int len) { orbsJoinScaled_32f16s_D2L(channels, count, len / 8, to16); });
        add("JoinScaled_32f16s" + of, "loop", [=](int len) { joinLoop(channels, count, len / 8, to16, full16); });
        add("JoinScaled_32f24s" + of, "orbs",
            [=](int len) { orbsJoinScaled_32f24s_D2L(channels, count, len / 8, to24); });
        add("JoinScaled_32f24s" + of, "loop", [=](int len) { joinLoop(channels, count, len / 8, to24, full24); });
        add("SplitScaled_16s32f" + of, "orbs",
            [=](int len) { orbsSplitScaled_16s32f_D2L(s16, toChannels, count, len / 8); });
        add("SplitScaled_16s32f" + of, "loop", [=](int len) { splitLoop(s16, toChannels, count, len / 8, from16); });
        add("SplitScaled_24s32f" + of, "orbs",
            [=](int len) { orbsSplitScaled_24s32f_D2L(s24, toChannels, count, len / 8); });
        add("SplitScaled_24s32f" + of, "loop", [=](int len) { splitLoop(s24, toChannels, count, len / 8, from24); });
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
