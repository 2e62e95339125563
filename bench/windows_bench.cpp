// Windows beside loops that call the C library's cosine for every weight, and beside liquid-dsp's.
#include "orbs.h"
#include "vectors.h"

#include <algorithm>
#include <cmath>
#include <liquid/liquid.h>
#include <numbers>

namespace {

constexpr int lengths[] = {33, 4096, 100000};

template <class T, class Weight>
void addLoop(const char* name, const char* who, const T* x, T* y, Weight weight) {
    vectors::add({name, lengths}, who, [=](int len) {
        for (int n = 0; n < len; ++n) y[n] = x[n] * static_cast<T>(weight(n, len));
    });
}
template <class T, class Member, class... More>
void addMember(const char* name, Member member, const T* x, T* y, More... more) {
    vectors::add({name, lengths}, "orbs", [=](int len) { member(x, y, len, more...); });
}

template <class T>
T angle(int n, int len) {
    return 2 * std::numbers::pi_v<T> * static_cast<T>(n) / static_cast<T>(len - 1);
}
template <class T>
T hann(int n, int len) {
    return static_cast<T>(0.5) - static_cast<T>(0.5) * std::cos(angle<T>(n, len));
}
template <class T>
T blackman(int n, int len) {
    const T a = angle<T>(n, len);
    return static_cast<T>(0.42) - static_cast<T>(0.5) * std::cos(a) + static_cast<T>(0.08) * std::cos(2 * a);
}
float liquidBeta(int) {
    return 8;
}

[[maybe_unused]] const bool registered = [] {
    const Orb32f* const x = vectors::buffer<Orb32f>(0);
    Orb32f* const y = vectors::room<Orb32f>(1);
    const Orb64f* const u = vectors::buffer<Orb64f>(0);
    Orb64f* const v = vectors::room<Orb64f>(1);
    const Orb16s* const s = vectors::buffer<Orb16s>(0);
    Orb16s* const t = vectors::room<Orb16s>(1);

    addMember("WinBartlett_32f", orbsWinBartlett_32f, x, y);
    addLoop("WinBartlett_32f", "loop", x, y, [](int n, int len) {
        return 2 * static_cast<float>(std::min(n, len - 1 - n)) / static_cast<float>(len - 1);
    });
    addMember("WinHann_32f", orbsWinHann_32f, x, y);
    addLoop("WinHann_32f", "std::cos", x, y, hann<float>);
    addLoop("WinHann_32f", "liquid", x, y,
            [](int n, int len) { return liquid_hann(static_cast<unsigned>(n), static_cast<unsigned>(len)); });
    addMember("WinHann_64f", orbsWinHann_64f, u, v);
    addLoop("WinHann_64f", "std::cos", u, v, hann<double>);
    addMember("WinHann_16s", orbsWinHann_16s, s, t);
    addMember("WinBlackman_32f", orbsWinBlackman_32f, x, y, -0.16f);
    addLoop("WinBlackman_32f", "std::cos", x, y, blackman<float>);
    addMember("WinBlackman_64f", orbsWinBlackman_64f, u, v, -0.16);
    addLoop("WinBlackman_64f", "std::cos", u, v, blackman<double>);
    // The same window at every length.
    vectors::add({"WinKaiser_32f", lengths}, "orbs",
                 [=](int len) { orbsWinKaiser_32f(x, y, len, 2 * liquidBeta(len) / static_cast<float>(len - 1)); });
    addLoop("WinKaiser_32f", "std::cos", x, y, hann<float>);
    addLoop("WinKaiser_32f", "liquid", x, y, [](int n, int len) {
        return liquid_kaiser(static_cast<unsigned>(n), static_cast<unsigned>(len), liquidBeta(len));
    });
    vectors::add({"WinKaiser_64f", lengths}, "orbs",
                 [=](int len) { orbsWinKaiser_64f(u, v, len, 2 * liquidBeta(len) / static_cast<float>(len - 1)); });
    addLoop("WinKaiser_64f", "std::cos", u, v, hann<double>);
    return true;
}();

} // namespace
