// Rounding and saturation of plain loops: the scale rule in integers, and the way by floating point, which a compiler
// may vectorise.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace loops {

// r * 2^-s to nearest with ties to even, saturated, in integers wide enough for r.
template <class T, class Wide>
T scaled(Wide r, int s) {
    constexpr Wide least = std::numeric_limits<T>::min(), most = std::numeric_limits<T>::max();
    if (s > 0) r = (r + (Wide{1} << (s - 1)) - 1 + (r >> s & 1)) >> s;
    if (s < 0) r = std::clamp(r, least, most) * (Wide{1} << -s);
    return static_cast<T>(std::clamp(r, least, most));
}

// The scale rule behind an operation on integers that Wide has room for.
template <class Wide, class Operation>
auto scaling(Operation operation, int s) {
    return [=](auto a, auto b) { return scaled<decltype(a), Wide>(operation(Wide{a}, Wide{b}), s); };
}

template <class R, class Real>
R nearest(Real v) {
    return static_cast<R>(std::rint(std::clamp<Real>(v, std::numeric_limits<R>::min(), std::numeric_limits<R>::max())));
}

} // namespace loops
