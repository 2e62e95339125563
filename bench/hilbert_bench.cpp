// Analytic signals beside two transforms of FFTW by hand.
#include "orbs.h"
#include "vectors.h"

#include <algorithm>
#include <fftw3.h>

namespace {

using vectors::room;

constexpr int lengths[] = {64, 1000, 1024, 4096};

[[maybe_unused]] const bool registered = [] {
    const Orb32f* const x = vectors::buffer<Orb32f>(0);
    for (const int& length : lengths) {
        const vectors::Row row("Hilbert_32f32fc", {&length, 1});
        Orb32fc* const y = room<Orb32fc>(1, 4096);
        OrbsHilbertSpec_32f32fc* spec = nullptr;
        orbsHilbertInitAlloc_32f32fc(&spec, length, orbAlgHintNone);
        vectors::add(row, "orbs", [=](int) { orbsHilbert_32f32fc(x, y, spec); });

        auto* const z = reinterpret_cast<fftwf_complex*>(room<Orb32fc>(2, 4096));
        Orb32f* const source = room<Orb32f>(3);
        const fftwf_plan forward = fftwf_plan_dft_r2c_1d(length, source, z, FFTW_MEASURE);
        const fftwf_plan inverse = fftwf_plan_dft_1d(length, z, z, FFTW_BACKWARD, FFTW_MEASURE);
        std::copy_n(x, length, source);
        vectors::add(row, "fftw", [=](int n) {
            fftwf_execute(forward);
            const Orb32f scale = 1 / static_cast<Orb32f>(n);
            const int between = (n - 1) / 2;
            z[0][0] *= scale, z[0][1] *= scale;
            z[n / 2][0] *= scale, z[n / 2][1] *= scale;
            for (int k = 1; k <= between; ++k) z[k][0] *= 2 * scale, z[k][1] *= 2 * scale;
            std::fill_n(&z[n / 2 + 1][0], 2 * between, 0.0f);
            fftwf_execute(inverse);
        });
    }
    return true;
}();

} // namespace
