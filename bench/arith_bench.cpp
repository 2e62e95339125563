// Sums and products of packed spectra, beside VOLK and the loop that a compiler vectorises. VOLK chooses its widest
// kernels, of 512 bits or with fused multiply-adds where the processor has them; volk-avx has vectors as wide as ours.
#include "orbs.h"
#include "vectors.h"

#include <algorithm>
#include <volk/volk.h>

namespace {

using vectors::add;
using vectors::buffer;

void addSaturated(const Orb16s* a, const Orb16s* b, Orb16s* dst, int len) {
    for (int n = 0; n < len; ++n) dst[n] = static_cast<Orb16s>(std::clamp(a[n] + b[n], -32768, 32767));
}

// 2^-3 with ties to even.
void addScaled(const Orb16s* a, const Orb16s* b, Orb16s* dst, int len) {
    for (int n = 0; n < len; ++n) {
        const int sum = a[n] + b[n];
        dst[n] = static_cast<Orb16s>((sum + 3 + (sum >> 3 & 1)) >> 3);
    }
}

[[maybe_unused]] const bool registered = [] {
    auto *a = buffer<Orb32f>(0), *b = buffer<Orb32f>(1), *dst = buffer<Orb32f>(2);
    add("Add_32f", "orbs", [=](int len) { orbsAdd_32f(a, b, dst, len); });
    add("Add_32f", "volk", [=](int len) { volk_32f_x2_add_32f(dst, a, b, static_cast<unsigned>(len)); });
    add("Add_32f", "volk-avx",
        [=](int len) { volk_32f_x2_add_32f_manual(dst, a, b, static_cast<unsigned>(len), "a_avx"); });

    auto *a16 = buffer<Orb16s>(0), *b16 = buffer<Orb16s>(1), *dst16 = buffer<Orb16s>(2);
    add("Add_16s", "orbs", [=](int len) { orbsAdd_16s(a16, b16, dst16, len); });
    add("Add_16s", "loop", [=](int len) { addSaturated(a16, b16, dst16, len); });
    add("Add_16s_Sfs(3)", "orbs", [=](int len) { orbsAdd_16s_Sfs(a16, b16, dst16, len, 3); });
    add("Add_16s_Sfs(3)", "loop", [=](int len) { addScaled(a16, b16, dst16, len); });

    // VOLK multiplies the same number of complex elements, all of them complex bins.
    add("MulPerm_32f", "orbs", [=](int len) { orbsMulPerm_32f(a, b, dst, len); });
    auto *za = reinterpret_cast<lv_32fc_t*>(a), *zb = reinterpret_cast<lv_32fc_t*>(b),
         *zdst = reinterpret_cast<lv_32fc_t*>(dst);
    add("MulPerm_32f", "volk",
        [=](int len) { volk_32fc_x2_multiply_32fc(zdst, za, zb, static_cast<unsigned>(len / 2)); });
    add("MulPerm_32f", "volk-avx",
        [=](int len) { volk_32fc_x2_multiply_32fc_manual(zdst, za, zb, static_cast<unsigned>(len / 2), "a_avx"); });
    return true;
}();

} // namespace
