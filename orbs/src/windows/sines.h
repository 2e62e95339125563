// sin^2(pi n / M) along the first half of a window, of which every cosine window is a polynomial: from
//   sin(a + b) = sin a cos b + cos a sin b,
// whose terms are both positive there, so each is within a few units in its last place however small it is. a is the
// angle of a cell, b that of a place in it.
#pragma once

#include "vectors/sincos.h"
#include "windows/window.h"

#include <numbers>

namespace orbs {

class SquaredSines {
public:
    explicit SquaredSines(int len) : step_(std::numbers::pi / (len - 1)) {
        fill(place_, 0, 1, std::min(cell, static_cast<std::size_t>(len) / 2));
    }

    void enter(std::size_t first) { fill(cell_, static_cast<Orb64f>(first), Orb64f{cell}, weightBlock / cell); }

    template <class D>
    HWY_INLINE hn::Vec<D> at(D d, std::size_t k) const {
        const auto sinA = hn::Set(d, cell_.sin[k / cell]), cosA = hn::Set(d, cell_.cos[k / cell]);
        const auto s = sinA * hn::LoadU(d, place_.cos + k % cell) + cosA * hn::LoadU(d, place_.sin + k % cell);
        return s * s;
    }

private:
    static constexpr std::size_t cell = 32;
    template <std::size_t count>
    struct Angles {
        alignas(64) Orb64f sin[count], cos[count];
    };

    // Of the angles from `first` on, `stride` samples apart.
    template <class Table>
    HWY_NOINLINE void fill(Table& table, Orb64f first, Orb64f stride, std::size_t count) const {
        const hn::ScalableTag<Orb64f> d;
        for (std::size_t k = 0; k < count; k += hn::MaxLanes(d)) {
            const auto n = hn::Set(d, first) + hn::Set(d, stride) * hn::Iota(d, static_cast<Orb64f>(k));
            const auto [sine, cosine] = sinCos(d, n * hn::Set(d, step_));
            hn::StoreU(sine, d, table.sin + k);
            hn::StoreU(cosine, d, table.cos + k);
        }
    }

    Orb64f step_;
    Angles<cell> place_;
    Angles<weightBlock / cell> cell_;
};

// A window that is Polynomial::of(d, q) of them.
template <class Polynomial>
class CosineWindow {
public:
    static constexpr bool inSingle = false;

    CosineWindow(int len, Polynomial polynomial) : sines_(len), polynomial_(polynomial) {}

    void enter(std::size_t first) { sines_.enter(first); }
    template <class D>
    HWY_INLINE hn::Vec<D> at(D d, std::size_t k) const {
        return polynomial_.of(d, sines_.at(d, k));
    }

private:
    SquaredSines sines_;
    Polynomial polynomial_;
};

} // namespace orbs
