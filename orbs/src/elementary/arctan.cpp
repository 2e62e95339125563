// Arctan: arctangents of floats.
#include "elementary/quad.h"
#include "orbs/elementary.h"
#include "vectors/elementwise.h"
#include "vectors/lookup.h"

#include <array>

namespace {

using namespace orbs;

// arctan |x| = base + arctan t:
//   up to 2/3    t = |x|
//   up to 2      t = (|x| - 1) / (|x| + 1), base = pi/4
//   above        t = -1 / |x|, base = pi/2
struct Arctan {
    template <class D, class V>
    static HWY_INLINE V result(D d, V x) {
        const V one = hn::Set(d, 1.0f), magnitude = hn::Abs(x);
        const auto middle = hn::Gt(magnitude, hn::Set(d, 2.0f / 3)), large = hn::Gt(magnitude, hn::Set(d, 2.0f));
        const V numerator = magnitude - hn::IfThenElseZero(middle, one);
        const V denominator = one + hn::IfThenElseZero(middle, magnitude);
        const V t = hn::IfThenElse(large, hn::Set(d, -1.0f), numerator) / hn::IfThenElse(large, magnitude, denominator);
        const auto base = [=](Orb32f quarterPi) HWY_ATTR {
            const V part = hn::Set(d, quarterPi);
            return hn::IfThenElseZero(middle, part) + hn::IfThenElseZero(large, part);
        };
        // arctan t = t + t^3 * series
        const V z = t * t, z2 = z * z;
        const V c0 = hn::Set(d, -0x1.55554cp-2f) + z * hn::Set(d, 0x1.999566p-3f);
        const V c1 = hn::Set(d, -0x1.243e7ap-3f) + z * hn::Set(d, 0x1.c0c5fep-4f);
        const V c2 = hn::Set(d, -0x1.5264f6p-4f) + z * hn::Set(d, 0x1.a07cc2p-5f);
        const V series = (c0 + z2 * c1) + z2 * z2 * (c2 + z2 * hn::Set(d, -0x1.1af8aap-6f));
        const V y = base(0x1.921fb6p-1f) + (t + (t * z * series + base(-0x1.777a5cp-26f)));
        return hn::CopySignToAbs(y, x);
    }
};

// Cells of eight to the octave from 2^-5 to 36; c is the middle of one.
constexpr int cellBits = 3;
constexpr int belowCell = 52 - cellBits;
constexpr int firstCell = (1023 - 5) << cellBits, lastCell = (1023 + 5) << cellBits;

// arctan c of every cell, behind the 0 for what lies below them.
constexpr auto arctanRows = [] {
    std::array<Orb64f, 2 * (lastCell - firstCell + 2)> rows{};
    for (int cell = firstCell; cell <= lastCell; ++cell) {
        Quad c = 1 + static_cast<Quad>(2 * (cell % (1 << cellBits)) + 1) / (2 << cellBits);
        const int octave = (cell >> cellBits) - 1023;
        c = octave < 0 ? c / (1 << -octave) : c * (1 << octave);
        const HighLow arctan(c < 1 ? quadArctan(c) : quadPi / 2 - quadArctan(1 / c));
        const auto row = static_cast<std::size_t>(2 * (cell - firstCell + 1));
        rows[row] = arctan.high;
        rows[row + 1] = arctan.low;
    }
    return rows;
}();

// arctan |x| = arctan c + arctan t, t = (|x| - c) / (1 + c |x|), of the c that is nearest: |t| is at most 1/32. Far
// above the last c, t is 1 / c.
struct Arctan64 {
    template <class D, class V>
    static HWY_INLINE V result(D d, V x) {
        const hn::RebindToSigned<D> di;
        const hn::Repartition<Orb16s, D> words;
        const V magnitude = hn::Min(hn::Set(d, 0x1p60), hn::Abs(x)); // the second one if either is NaN
        const auto bits = hn::BitCast(hn::RebindToUnsigned<D>(), magnitude);
        // Two numbers of 14 bits, in lanes for which every processor has a minimum and a maximum.
        const auto limit = [=](int cell) HWY_ATTR { return hn::BitCast(words, hn::Set(di, cell)); };
        const auto cell = hn::BitCast(words, hn::ShiftRight<belowCell>(bits));
        const auto limited = hn::BitCast(di, hn::Min(hn::Max(cell, limit(firstCell - 1)), limit(lastCell)));
        const Rows<D, 2> rows(limited - hn::Set(di, firstCell - 1));
        const auto [high, low] = rows.columns(arctanRows.data());
        const V middle =
            hn::BitCast(d, hn::Or(hn::ShiftLeft<belowCell>(limited), hn::Set(di, Orb64s{1} << (belowCell - 1))));
        const V c = hn::IfThenElseZero(hn::Ge(magnitude, hn::Set(d, 0x1p-5)), middle);

        const V t = (magnitude - c) / (hn::Set(d, 1.0) + c * magnitude);
        const V z = t * t;
        const V series = (hn::Set(d, -0x1.55555555554a5p-2) + z * hn::Set(d, 0x1.99999996ab1f8p-3)) +
                         z * z * (hn::Set(d, -0x1.24922a1f85a9cp-3) + z * hn::Set(d, 0x1.c619b24af56e8p-4));
        return hn::CopySignToAbs(high + (t + (t * z * series + low)), x);
    }
};

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsArctan_32f(const Orb32f* pSrc, Orb32f* pDst, int len) { return elementwise(Arctan{}, len, pDst, pSrc); }
OrbStatus orbsArctan_32f_I(Orb32f* pSrcDst, int len) { return elementwise(Arctan{}, len, pSrcDst, pSrcDst); }
OrbStatus orbsArctan_64f(const Orb64f* pSrc, Orb64f* pDst, int len) { return elementwise(Arctan64{}, len, pDst, pSrc); }
OrbStatus orbsArctan_64f_I(Orb64f* pSrcDst, int len) { return elementwise(Arctan64{}, len, pSrcDst, pSrcDst); }

}
