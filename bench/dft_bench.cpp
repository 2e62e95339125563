// Forward transforms of any length out of place beside FFTW, planned with FFTW_MEASURE, on the same vectors: products
// of small primes, then primes (a chirp, or direct sums).
#include "orbs.h"

#include "fftw.h"

namespace {

constexpr int longest = 100000;
constexpr int complexLengths[] = {12, 60, 120, 360, 1000, 1200, 5000, 44100, longest, 101, 149, 1009, 10007, 22801};
constexpr int realLengths[] = {12,  60,   120,  360, 1000, 1200, 5000,  44100, longest,
                               105, 1155, 3375, 101, 149,  1009, 10007, 22801};

template <class T, class X, class Spec, class Plan>
void add(const std::string& family, std::span<const int> lengths, const fftw::Members<X, X, Spec>& members, Plan plan) {
    static X* const x = vectors::room<X>(0, longest);
    static X* const y = vectors::room<X>(1, longest + 2);
    for (const int len : lengths) fftw::addLength<T>(family, len, len, members, x, y, plan);
}

[[maybe_unused]] const bool registered = [] {
    add<Orb32f, Orb32fc, OrbsDFTSpec_C_32fc>(
        "DFTFwd_CToC_32fc", complexLengths,
        {orbsDFTInitAlloc_C_32fc, orbsDFTGetBufSize_C_32fc, orbsDFTFwd_CToC_32fc, orbsDFTFree_C_32fc},
        fftw::planComplex<Orb32f, Orb32fc>);
    add<Orb64f, Orb64fc, OrbsDFTSpec_C_64fc>(
        "DFTFwd_CToC_64fc", complexLengths,
        {orbsDFTInitAlloc_C_64fc, orbsDFTGetBufSize_C_64fc, orbsDFTFwd_CToC_64fc, orbsDFTFree_C_64fc},
        fftw::planComplex<Orb64f, Orb64fc>);
    add<Orb32f, Orb32f, OrbsDFTSpec_R_32f>(
        "DFTFwd_RToPerm_32f", realLengths,
        {orbsDFTInitAlloc_R_32f, orbsDFTGetBufSize_R_32f, orbsDFTFwd_RToPerm_32f, orbsDFTFree_R_32f},
        fftw::planReal<Orb32f>);
    add<Orb64f, Orb64f, OrbsDFTSpec_R_64f>(
        "DFTFwd_RToPerm_64f", realLengths,
        {orbsDFTInitAlloc_R_64f, orbsDFTGetBufSize_R_64f, orbsDFTFwd_RToPerm_64f, orbsDFTFree_R_64f},
        fftw::planReal<Orb64f>);
    return true;
}();

} // namespace
