// The A-law and mu-law of ITU-T G.711: decoding, encoding and the way from one law to the other.
#include "foundation/frame.h"
#include "orbs/coding.h"
#include "vectors/narrow.h"
#include "vectors/to_integer.h"

namespace {

using namespace orbs;

// The entry of a table that each byte of `index` names; 0 for a byte of 128 and more.
template <class V>
V lookUp(const Orb8u (&table)[16], V index) {
    const hn::Repartition<Orb8u, hn::DFromV<V>> bytes;
    if constexpr (hn::MaxLanes(bytes) > 16) {
        return hn::TableLookupBytes(hn::LoadDup128(bytes, table), index);
    } else {
        return hn::TableLookupBytes(hn::LoadU(hn::Full128<Orb8u>(), table), index);
    }
}

// ---- The laws ----

// 16 * e + (v >> (e + 1)) with e the number of bits of v >> 6, for v up to 8191: what both laws have in common.
template <class D, class V>
V segmented(D d, V v) {
    alignas(16) static constexpr Orb8u bits[16] = {0, 1, 2, 2, 3, 3, 3, 3, 4, 4, 4, 4, 4, 4, 4, 4};
    alignas(16) static constexpr Orb8u bitsOfHighNibble[16] = {0, 5, 6, 6, 7, 7, 7, 7};
    alignas(16) static constexpr Orb8u shiftedRight[16] = {128, 64, 32, 16, 8, 4, 2, 1};
    const V top = hn::ShiftRight<6>(v);
    const V e = hn::Max(lookUp(bits, hn::And(top, hn::Set(d, 15))), lookUp(bitsOfHighNibble, hn::ShiftRight<4>(top)));
    const V highBytes = hn::Or(hn::ShiftLeft<8>(e), hn::Set(d, 0x80));
    const hn::RebindToUnsigned<D> du;
    const auto quotient = hn::MulHigh(hn::BitCast(du, v), hn::BitCast(du, lookUp(shiftedRight, highBytes)));
    return hn::Add(hn::ShiftLeft<4>(e), hn::BitCast(d, quotient));
}

// A code is a sign, a segment of three bits and a step of four, with some of its bits inverted. Encoding is told
// sixteen bits to a lane; `sign` is all ones for negative samples.
struct ALaw {
    static constexpr int inverted = 0x55;

    static constexpr int linear(int code) {
        const int b = code ^ inverted, segment = b >> 4 & 7, step = b & 15;
        const int magnitude = segment == 0 ? step * 16 + 8 : (step * 16 + 0x108) << (segment - 1);
        return b & 0x80 ? magnitude : -magnitude;
    }

    template <class D, class V>
    static V encode(D d, V x, V) {
        const V sign = hn::ShiftRight<15>(x);
        const V v = hn::Xor(hn::ShiftRight<3>(x), sign);
        return hn::Xor(segmented(d, v), hn::Xor(hn::Set(d, 0x80 | inverted), hn::And(sign, hn::Set(d, 0x80))));
    }
};

struct MuLaw {
    static constexpr int inverted = 0xff;

    static constexpr int linear(int code) {
        const int b = code ^ inverted, segment = b >> 4 & 7, step = b & 15;
        const int magnitude = ((step * 8 + 0x84) << segment) - 0x84;
        return b & 0x80 ? -magnitude : magnitude;
    }

    // The complement, not the negation, of negative samples: -4 has the magnitude of 3.
    template <class D, class V>
    static V encode(D d, V x, V sign) {
        const V magnitude = hn::Xor(hn::ShiftRight<2>(x), hn::ShiftRight<15>(x));
        const V v = hn::Min(hn::Add(magnitude, hn::Set(d, 33)), hn::Set(d, 8191));
        const V code = hn::Sub(hn::Set(d, 0x7f + 16), segmented(d, v));
        return hn::Or(code, hn::AndNot(sign, hn::Set(d, 0x80)));
    }
};

// ---- Decoding ----

// The codes with the same upper half, sign and segment, lie on a line over the step: slope * step + start. Lower and
// upper bytes of both.
template <class Law>
struct Lines {
    alignas(16) Orb8u slope[2][16], start[2][16];

    constexpr Lines() : slope(), start() {
        for (int upper = 0; upper < 16; ++upper) {
            const int first = upper << 4 | (Law::inverted & 15);
            const int atFirst = Law::linear(first), rise = Law::linear(first ^ 1) - atFirst;
            for (int byte = 0; byte < 2; ++byte) {
                slope[byte][upper] = static_cast<Orb8u>(rise >> 8 * byte);
                start[byte][upper] = static_cast<Orb8u>(atFirst >> 8 * byte);
            }
        }
    }
};

void store(Orb16s* pDst, int linear) {
    setElement(pDst, static_cast<Orb16s>(linear));
}
void store(Orb32f* pDst, int linear) {
    setElement(pDst, static_cast<Orb32f>(linear) * 0x1p-15f);
}
template <class D, class V>
void store(Orb16s* pDst, D d, V linear) {
    hn::StoreU(linear, d, pDst);
}
template <class D, class V>
void store(Orb32f* pDst, D, V linear) {
    const hn::Repartition<Orb32s, D> di;
    const hn::Repartition<Orb32f, D> df;
    const hn::Half<D> half;
    const auto fractions = [=](auto part) HWY_ATTR {
        return hn::Mul(hn::ConvertTo(df, hn::PromoteTo(di, part)), hn::Set(df, 0x1p-15f));
    };
    hn::StoreU(fractions(hn::LowerHalf(half, linear)), df, pDst);
    hn::StoreU(fractions(hn::UpperHalf(half, linear)), df, pDst + hn::MaxLanes(df));
}

template <class Law, class Dst>
OrbStatus decode(const Orb8u* pSrc, Dst* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    static constexpr Lines<Law> lines;
    const auto count = static_cast<std::size_t>(len);
    std::size_t rest = forWholeVectors<Orb8u>(0, count, [=](auto d, std::size_t n) HWY_ATTR {
        const hn::RepartitionToWide<hn::RebindToSigned<decltype(d)>> wide;
        const auto code = toInterleave(hn::LoadU(d, pSrc + n)), upper = hn::ShiftRight<4>(code);
        const auto step = hn::And(hn::Xor(code, hn::Set(d, Law::inverted)), hn::Set(d, 15));
        const auto onLine = [=](auto interleave) HWY_ATTR {
            const auto words = [=](auto low, auto high) HWY_ATTR { return hn::BitCast(wide, interleave(low, high)); };
            const auto slope = words(lookUp(lines.slope[0], upper), lookUp(lines.slope[1], upper));
            const auto start = words(lookUp(lines.start[0], upper), lookUp(lines.start[1], upper));
            return hn::Add(hn::Mul(slope, words(step, hn::Zero(d))), start);
        };
        store(pDst + n, wide, onLine([=](auto a, auto b) HWY_ATTR { return hn::InterleaveLower(d, a, b); }));
        store(pDst + n + hn::MaxLanes(wide), wide,
              onLine([=](auto a, auto b) HWY_ATTR { return hn::InterleaveUpper(d, a, b); }));
    });
    for (; rest < count; ++rest) store(pDst + rest, Law::linear(pSrc[rest]));
    return orbStsNoErr;
}

// ---- Encoding ----

template <class D, class V>
void storeCodes(D, V codes, Orb8u* pDst) {
    const hn::Rebind<Orb8u, D> bytes;
    hn::StoreU(hn::DemoteTo(bytes, codes), bytes, pDst);
}

template <class Law>
OrbStatus encode(const Orb16s* pSrc, Orb8u* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    forEachVector<Orb16s>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
        const auto x = hn::LoadU(d, pSrc + n);
        storeCodes(d, Law::encode(d, x, hn::ShiftRight<15>(x)), pDst + n);
    });
    return orbStsNoErr;
}

// Half away from zero, limited to 16 bits; a NaN becomes -32768.
template <class D, class V>
auto roundedAway(D d, V product) {
    const V limited = hn::Min(hn::Max(product, hn::Set(d, -32768.0f)), hn::Set(d, 32767.0f));
    return truncatedInt32(hn::Add(limited, hn::CopySignToAbs(hn::Set(d, 0.5f), limited)));
}

// The sign that mu-law codes carry is the sample's own: one too small to count still gives the negative zero.
template <class Law>
OrbStatus encode(const Orb32f* pSrc, Orb8u* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    forEachVector<Orb16s>(static_cast<std::size_t>(len), [=](auto d, std::size_t n) HWY_ATTR {
        const auto product = [=](auto df, std::size_t offset)
                                 HWY_ATTR { return hn::Mul(hn::LoadU(df, pSrc + n + offset), hn::Set(df, 32768.0f)); };
        const auto x = narrowed(d, [=](auto di, std::size_t offset) HWY_ATTR {
            const hn::RebindToFloat<decltype(di)> df;
            return roundedAway(df, product(df, offset));
        });
        const auto sign = narrowed(d, [=](auto di, std::size_t offset) HWY_ATTR {
            const hn::RebindToFloat<decltype(di)> df;
            const auto notNegative = hn::VecFromMask(df, hn::Ge(product(df, offset), hn::Zero(df)));
            return hn::Not(hn::BitCast(di, notNegative));
        });
        storeCodes(d, Law::encode(d, x, sign), pDst + n);
    });
    return orbStsNoErr;
}

// ---- From law to law ----

// Codes in the order of their magnitude.
constexpr Orb8u rankOfALaw(Orb8u code) {
    return (code ^ 0x55) & 0x7f;
}
constexpr Orb8u rankOfMuLaw(Orb8u code) {
    return ~code & 0x7f;
}

// clang-format off
constexpr Orb8u muLawRanks[128] = { // by the rank of the A-law code
      1,   3,   5,   7,   9,  11,  13,  15,  16,  17,  18,  19,  20,  21,  22,  23,
     24,  25,  26,  27,  28,  29,  30,  31,  32,  32,  33,  33,  34,  34,  35,  35,
     36,  37,  38,  39,  40,  41,  42,  43,  44,  45,  46,  47,  48,  48,  49,  49,
     50,  51,  52,  53,  54,  55,  56,  57,  58,  59,  60,  61,  62,  63,  64,  64,
     65,  66,  67,  68,  69,  70,  71,  72,  73,  74,  75,  76,  77,  78,  79,  80,
     80,  81,  82,  83,  84,  85,  86,  87,  88,  89,  90,  91,  92,  93,  94,  95,
     96,  97,  98,  99, 100, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111,
    112, 113, 114, 115, 116, 117, 118, 119, 120, 121, 122, 123, 124, 125, 126, 127};
constexpr Orb8u aLawRanks[128] = { // by the rank of the mu-law code
      0,   0,   1,   1,   2,   2,   3,   3,   4,   4,   5,   5,   6,   6,   7,   7,
      8,   9,  10,  11,  12,  13,  14,  15,  16,  17,  18,  19,  20,  21,  22,  23,
     24,  26,  28,  30,  32,  33,  34,  35,  36,  37,  38,  39,  40,  41,  42,  43,
     45,  47,  48,  49,  50,  51,  52,  53,  54,  55,  56,  57,  58,  59,  60,  61,
     63,  64,  65,  66,  67,  68,  69,  70,  71,  72,  73,  74,  75,  76,  77,  78,
     79,  81,  82,  83,  84,  85,  86,  87,  88,  89,  90,  91,  92,  93,  94,  95,
     96,  97,  98,  99, 100, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111,
    112, 113, 114, 115, 116, 117, 118, 119, 120, 121, 122, 123, 124, 125, 126, 127};
// clang-format on

// A table of 128 bytes, kept as rows of 16, each row xored to the one before it.
struct Transcoding {
    alignas(16) Orb8u code[128], row[8][16];

    constexpr Transcoding(const Orb8u (&ranks)[128], Orb8u (*rankOf)(Orb8u), Orb8u (*codeOf)(Orb8u)) : code(), row() {
        for (int c = 0; c < 128; ++c) {
            code[c] = codeOf(ranks[rankOf(static_cast<Orb8u>(c))]);
            row[c / 16][c % 16] = static_cast<Orb8u>(code[c] ^ (c < 16 ? 0 : code[c - 16]));
        }
    }
};
// A rank and its code are one another's image under the same rule, in either law.
constexpr Transcoding aLawToMuLaw(muLawRanks, rankOfALaw, rankOfMuLaw);
constexpr Transcoding muLawToALaw(aLawRanks, rankOfMuLaw, rankOfALaw);

// A row answers to every index that lies in it or in a row behind it, and the rows up to the index's own xored together
// are the entry. The sign bit stays.
OrbStatus transcode(const Transcoding& table, const Orb8u* pSrc, Orb8u* pDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    const auto count = static_cast<std::size_t>(len);
    std::size_t rest = forWholeVectors<Orb8u>(0, count, [=, &table](auto d, std::size_t n) HWY_ATTR {
        const auto source = hn::LoadU(d, pSrc + n), signBit = hn::Set(d, 0x80);
        auto index = hn::AndNot(signBit, source), code = hn::And(source, signBit);
        for (const auto& row : table.row) {
            code = hn::Xor(code, lookUp(row, index));
            index = hn::Sub(index, hn::Set(d, 16)); // below 0 behind its own row, which gives 0
        }
        hn::StoreU(code, d, pDst + n);
    });
    for (; rest < count; ++rest) pDst[rest] = static_cast<Orb8u>(table.code[pSrc[rest] & 0x7f] | (pSrc[rest] & 0x80));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsALawToLin_8u16s(const Orb8u* pSrc, Orb16s* pDst, int len) { return decode<ALaw>(pSrc, pDst, len); }
OrbStatus orbsMuLawToLin_8u16s(const Orb8u* pSrc, Orb16s* pDst, int len) { return decode<MuLaw>(pSrc, pDst, len); }
OrbStatus orbsALawToLin_8u32f(const Orb8u* pSrc, Orb32f* pDst, int len) { return decode<ALaw>(pSrc, pDst, len); }
OrbStatus orbsMuLawToLin_8u32f(const Orb8u* pSrc, Orb32f* pDst, int len) { return decode<MuLaw>(pSrc, pDst, len); }
OrbStatus orbsLinToALaw_16s8u(const Orb16s* pSrc, Orb8u* pDst, int len) { return encode<ALaw>(pSrc, pDst, len); }
OrbStatus orbsLinToMuLaw_16s8u(const Orb16s* pSrc, Orb8u* pDst, int len) { return encode<MuLaw>(pSrc, pDst, len); }
OrbStatus orbsLinToALaw_32f8u(const Orb32f* pSrc, Orb8u* pDst, int len) { return encode<ALaw>(pSrc, pDst, len); }
OrbStatus orbsLinToMuLaw_32f8u(const Orb32f* pSrc, Orb8u* pDst, int len) { return encode<MuLaw>(pSrc, pDst, len); }
OrbStatus orbsALawToMuLaw_8u(const Orb8u* pSrc, Orb8u* pDst, int len) { return transcode(aLawToMuLaw, pSrc, pDst, len); }
OrbStatus orbsMuLawToALaw_8u(const Orb8u* pSrc, Orb8u* pDst, int len) { return transcode(muLawToALaw, pSrc, pDst, len); }

}
// clang-format on
