// Data movement, beside the C and C++ libraries and VOLK.
#include "orbs.h"
#include "vectors.h"
#include "volk_kernels.h"

#include <algorithm>
#include <cstring>

namespace {

using vectors::add;
using vectors::buffer;
using volk::count;

void shiftBits(const Orb8u* src, Orb8u* dst, int bytes) {
    for (int n = 0; n < bytes; ++n) dst[n] = static_cast<Orb8u>(src[n] << 3 | src[n + 1] >> 5);
}

[[maybe_unused]] const bool registered = [] {
    auto *bytes = buffer<Orb8u>(0), *toBytes = buffer<Orb8u>(2);
    add("Copy_8u", "orbs", [=](int len) { orbsCopy_8u(bytes, toBytes, len); });
    add("Copy_8u", "std", [=](int len) { std::memcpy(toBytes, bytes, static_cast<std::size_t>(len)); });
    add("Copy_1u", "orbs", [=](int len) { orbsCopy_1u(bytes, 3, toBytes, 0, 8 * (len - 1)); });
    add("Copy_1u", "loop", [=](int len) { shiftBits(bytes, toBytes, len - 1); });
    add("Flip_8u", "orbs", [=](int len) { orbsFlip_8u(bytes, toBytes, len); });
    add("Flip_8u", "std", [=](int len) { std::reverse_copy(bytes, bytes + len, toBytes); });

    auto *a = buffer<Orb32f>(0), *b = buffer<Orb32f>(1), *re = buffer<Orb32f>(2), *im = buffer<Orb32f>(3);
    add("Set_32f", "orbs", [=](int len) { orbsSet_32f(1.5f, re, len); });
    add("Set_32f", "std", [=](int len) { std::fill_n(re, len, 1.5f); });
    add("Flip_32f", "orbs", [=](int len) { orbsFlip_32f(a, re, len); });
    add("Flip_32f", "std", [=](int len) { std::reverse_copy(a, a + len, re); });

    auto *z = buffer<Orb32fc>(0), *toZ = buffer<Orb32fc>(2);
    add("Conj_32fc", "orbs", [=](int len) { orbsConj_32fc(z, toZ, len); });
    add("Conj_32fc", "volk", [=](int len) { volk_32fc_conjugate_32fc(volk::cast(toZ), volk::cast(z), count(len)); });
    add("CplxToReal_32fc", "orbs", [=](int len) { orbsCplxToReal_32fc(z, re, im, len); });
    add("CplxToReal_32fc", "volk", [=](int len) { volk_32fc_deinterleave_32f_x2(re, im, volk::cast(z), count(len)); });
    add("RealToCplx_32f", "orbs", [=](int len) { orbsRealToCplx_32f(a, b, toZ, len); });
    add("RealToCplx_32f", "volk", [=](int len) { volk_32f_x2_interleave_32fc(volk::cast(toZ), a, b, count(len)); });
    return true;
}();

} // namespace
