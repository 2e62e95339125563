// Companding, byte order and packed bits, beside the rules written as loops.
#include "members.h"
#include "orbs.h"
#include "vectors.h"

#include <algorithm>
#include <array>

namespace {

using members::addUnary;
using vectors::add;
using vectors::buffer;

Orb16s aLawToLinear(Orb8u code) {
    const int b = code ^ 0x55, m = b & 15, s = b >> 4 & 7;
    const int magnitude = s == 0 ? m * 16 + 8 : (m * 16 + 0x108) << (s - 1);
    return static_cast<Orb16s>(b & 0x80 ? magnitude : -magnitude);
}
Orb16s muLawToLinear(Orb8u code) {
    const int b = ~code, m = b & 15, s = b >> 4 & 7, t = (m * 8 + 0x84) << s;
    return static_cast<Orb16s>(b & 0x80 ? 0x84 - t : t - 0x84);
}
Orb8u linearToALaw(Orb16s x) {
    constexpr int ends[] = {31, 63, 127, 255, 511, 1023, 2047, 4095};
    int v = x >> 3, mask = 0xd5, seg = 0;
    if (v < 0) {
        mask = 0x55;
        v = -v - 1;
    }
    while (ends[seg] < v) ++seg;
    return static_cast<Orb8u>((seg * 16 + (v >> std::max(seg, 1) & 15)) ^ mask);
}
Orb8u linearToMuLaw(Orb16s x) {
    const int v = std::min(((x < 0 ? ~x : x) >> 2) + 33, 8191), n = 32 - __builtin_clz(static_cast<unsigned>(v >> 5));
    return static_cast<Orb8u>((8 - n) * 16 + 15 - (v >> n & 15) + (x < 0 ? 0 : 0x80));
}
Orb16s rounded(float x) {
    const float product = x * 32768.0f;
    if (product > 32767.0f) return 32767;
    if (!(product >= -32768.0f)) return -32768;
    return static_cast<Orb16s>(product >= 0 ? product + 0.5f : product - 0.5f);
}

template <class Dst>
void table(const std::array<Dst, 256>& entries, const Orb8u* src, Dst* dst, int len) {
    for (int n = 0; n < len; ++n) dst[n] = entries[src[n]];
}

void packBytes(const Orb32u* src, const Orb32s* bits, int len, Orb8u* dst) {
    Orb64u held = 0;
    int pending = 0;
    for (int n = 0; n < len; ++n) {
        held = held << bits[n] | (src[n] & ((Orb64u{1} << bits[n]) - 1));
        for (pending += bits[n]; pending >= 8; pending -= 8) *dst++ = static_cast<Orb8u>(held >> (pending - 8));
    }
    if (pending > 0) *dst = static_cast<Orb8u>(held << (8 - pending));
}

[[maybe_unused]] const bool registered = [] {
    auto *codes = buffer<Orb8u>(0), *toCodes = buffer<Orb8u>(2);
    auto *linear = buffer<Orb16s>(0), *toLinear = buffer<Orb16s>(2);
    auto* floats = buffer<Orb32f>(0);
    std::mt19937 random(1);
    for (int n = 0; n < vectors::longest; ++n) {
        linear[n] = static_cast<Orb16s>(random());
        floats[n] = linear[n] * 0x1p-15f;
        codes[n] = static_cast<Orb8u>(random());
    }
    static std::array<Orb16s, 256> aLaw, muLaw;
    static std::array<Orb8u, 256> toOther;
    for (int code = 0; code < 256; ++code) {
        const auto at = static_cast<std::size_t>(code);
        aLaw[at] = aLawToLinear(static_cast<Orb8u>(code));
        muLaw[at] = muLawToLinear(static_cast<Orb8u>(code));
        toOther[at] = linearToMuLaw(aLaw[at]);
    }
    addUnary("ALawToLin_8u16s", codes, orbsALawToLin_8u16s, [](Orb8u c) { return aLawToLinear(c); });
    add("ALawToLin_8u16s", "table", [=](int len) { table(aLaw, codes, toLinear, len); });
    addUnary("MuLawToLin_8u16s", codes, orbsMuLawToLin_8u16s, [](Orb8u c) { return muLawToLinear(c); });
    add("MuLawToLin_8u16s", "table", [=](int len) { table(muLaw, codes, toLinear, len); });
    addUnary("ALawToLin_8u32f", codes, orbsALawToLin_8u32f, [](Orb8u c) { return aLawToLinear(c) * 0x1p-15f; });
    addUnary("MuLawToLin_8u32f", codes, orbsMuLawToLin_8u32f, [](Orb8u c) { return muLawToLinear(c) * 0x1p-15f; });
    addUnary("LinToALaw_16s8u", linear, orbsLinToALaw_16s8u, [](Orb16s x) { return linearToALaw(x); });
    addUnary("LinToMuLaw_16s8u", linear, orbsLinToMuLaw_16s8u, [](Orb16s x) { return linearToMuLaw(x); });
    addUnary("LinToALaw_32f8u", floats, orbsLinToALaw_32f8u, [](float x) { return linearToALaw(rounded(x)); });
    addUnary("LinToMuLaw_32f8u", floats, orbsLinToMuLaw_32f8u, [](float x) { return linearToMuLaw(rounded(x)); });
    add("ALawToMuLaw_8u", "orbs", [=](int len) { orbsALawToMuLaw_8u(codes, toCodes, len); });
    add("ALawToMuLaw_8u", "table", [=](int len) { table(toOther, codes, toCodes, len); });

    auto* words = buffer<Orb32u>(0);
    addUnary("SwapBytes_32u", words, orbsSwapBytes_32u, [](Orb32u w) { return __builtin_bswap32(w); });
    addUnary("SwapBytes_24u", buffer<Orb24u>(0), orbsSwapBytes_24u, [](Orb24u t) {
        return Orb24u{{t.b[2], t.b[1], t.b[0]}};
    });

    auto* bits = buffer<Orb32s>(2);
    for (int n = 0; n < vectors::longest; ++n) bits[n] = static_cast<Orb32s>(random() % 17);
    auto* stream = reinterpret_cast<Orb8u*>(buffer<Orb32u>(1));
    add("PackBits_32u8u", "orbs", [=](int len) {
        Orb32s length;
        orbsPackBits_32u8u(words, bits, len, stream, 0, &length);
    });
    add("PackBits_32u8u", "loop", [=](int len) { packBytes(words, bits, len, stream); });
    return true;
}();

} // namespace
