// The arctangent in double precision by a table:
//   arctan x = arctan c + arctan t, t = (x - c) / (1 + c x), of the c that is nearest: |t| is at most 1/32.
#pragma once

#include "elementary/quad.h"
#include "vectors/lookup.h"

#include <array>

namespace orbs {

// Cells of eight to the octave from 2^-5 to 36; c is the middle of one.
constexpr int arctanCellBits = 3;
constexpr int belowArctanCell = 52 - arctanCellBits;
constexpr int firstArctanCell = (1023 - 5) << arctanCellBits, lastArctanCell = (1023 + 5) << arctanCellBits;

// arctan c of every cell, behind the 0 for what lies below them.
inline constexpr auto arctanRows = [] {
    std::array<Orb64f, 2 * (lastArctanCell - firstArctanCell + 2)> rows{};
    for (int cell = firstArctanCell; cell <= lastArctanCell; ++cell) {
        Quad c = 1 + static_cast<Quad>(2 * (cell % (1 << arctanCellBits)) + 1) / (2 << arctanCellBits);
        const int octave = (cell >> arctanCellBits) - 1023;
        c = octave < 0 ? c / (1 << -octave) : c * (1 << octave);
        const HighLow arctan(c < 1 ? quadArctan(c) : quadPi / 2 - quadArctan(1 / c));
        const auto row = static_cast<std::size_t>(2 * (cell - firstArctanCell + 1));
        rows[row] = arctan.high;
        rows[row + 1] = arctan.low;
    }
    return rows;
}();

// c, which has five significant bits, and arctan c in two parts; all 0 for x below 2^-5. Far above the last c, t is
// 1 / c.
template <class V>
struct ArctanCell {
    V c, high, low;
};
template <class D, class V>
HWY_INLINE ArctanCell<V> arctanCell(D d, V x) {
    const hn::RebindToSigned<D> di;
    const hn::Repartition<Orb16s, D> words;
    const auto bits = hn::BitCast(hn::RebindToUnsigned<D>(), x);
    // Two numbers of 14 bits, in lanes for which every processor has a minimum and a maximum.
    const auto limit = [=](int cell) HWY_ATTR { return hn::BitCast(words, hn::Set(di, cell)); };
    const auto cell = hn::BitCast(words, hn::ShiftRight<belowArctanCell>(bits));
    const auto limited = hn::BitCast(di, hn::Min(hn::Max(cell, limit(firstArctanCell - 1)), limit(lastArctanCell)));
    const Rows<D, 2> rows(limited - hn::Set(di, firstArctanCell - 1));
    const auto [high, low] = rows.columns(arctanRows.data());
    const V middle = hn::BitCast(
        d, hn::Or(hn::ShiftLeft<belowArctanCell>(limited), hn::Set(di, Orb64s{1} << (belowArctanCell - 1))));
    return {hn::IfThenElseZero(hn::Ge(x, hn::Set(d, 0x1p-5)), middle), high, low};
}

// arctan t - t
template <class D, class V>
HWY_INLINE V arctanBeyond(D d, V t) {
    const V z = t * t;
    const V series = (hn::Set(d, -0x1.55555555554a5p-2) + z * hn::Set(d, 0x1.99999996ab1f8p-3)) +
                     z * z * (hn::Set(d, -0x1.24922a1f85a9cp-3) + z * hn::Set(d, 0x1.c619b24af56e8p-4));
    return t * z * series;
}

} // namespace orbs
