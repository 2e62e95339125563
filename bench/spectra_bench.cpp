// Packed spectra: products bin by bin, beside VOLK's product of as many complex elements, and whole spectra from their
// halves, beside plain loops.
#include "orbs.h"
#include "vectors.h"
#include "volk_kernels.h"

namespace {

using vectors::add;
using vectors::buffer;
using volk::count;

// X[k] for k up to N/2 stands at pSrc[k]; the rest are conjugates.
template <class C>
void conjugates(const C* src, C* dst, int len) {
    for (int k = 0; k <= len / 2; ++k) dst[k] = src[k];
    for (int k = 1; k < (len + 1) / 2; ++k) dst[len - k] = {src[k].re, -src[k].im};
}

void product(const Orb32f* a, const Orb32f* b, Orb32f* dst, int len) {
    dst[0] = a[0] * b[0];
    dst[1] = a[1] * b[1];
    for (int n = 2; n < len; n += 2) {
        dst[n] = a[n] * b[n] - a[n + 1] * b[n + 1];
        dst[n + 1] = a[n] * b[n + 1] + a[n + 1] * b[n];
    }
}

[[maybe_unused]] const bool registered = [] {
    auto *a = buffer<Orb32f>(0), *b = buffer<Orb32f>(1), *dst = buffer<Orb32f>(2);
    const auto complex = [](Orb32f* p) { return reinterpret_cast<lv_32fc_t*>(p); };
    add("MulPerm_32f", "orbs", [=](int len) { orbsMulPerm_32f(a, b, dst, len); });
    add("MulPerm_32f", "loop", [=](int len) { product(a, b, dst, len); });
    add("MulPerm_32f", "volk",
        [=](int len) { volk_32fc_x2_multiply_32fc(complex(dst), complex(a), complex(b), count(len / 2)); });
    add("MulPerm_32f", "volk-tier", [=](int len) {
        volk_32fc_x2_multiply_32fc_manual(complex(dst), complex(a), complex(b), count(len / 2), volk::complexFloats);
    });
    add("MulPack_32f", "orbs", [=](int len) { orbsMulPack_32f(a, b, dst, len); });
    add("MulPack_32f", "loop", [=](int len) { product(a, b, dst, len); });

    auto *z = buffer<Orb32fc>(0), *toZ = buffer<Orb32fc>(2);
    add("ConjCcs_32fc", "orbs", [=](int len) { orbsConjCcs_32fc(z, toZ, len); });
    add("ConjCcs_32fc", "loop", [=](int len) { conjugates(z, toZ, len); });
    auto *w = buffer<Orb64fc>(0), *toW = buffer<Orb64fc>(2);
    add("ConjCcs_64fc", "orbs", [=](int len) { orbsConjCcs_64fc(w, toW, len); });
    add("ConjCcs_64fc", "loop", [=](int len) { conjugates(w, toW, len); });
    return true;
}();

} // namespace
