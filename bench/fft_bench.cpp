// Forward transforms out of place beside FFTW, planned with FFTW_MEASURE, on the same vectors.
#include "orbs.h"

#include "fftw.h"

namespace {

using fftw::Members;

constexpr int highestOrder = 22;

template <class T, class X, class Y, class Spec, class Plan>
void addTransform(const std::string& family, int lowestOrder, const Members<X, Y, Spec>& members, Plan plan) {
    constexpr std::size_t count = std::size_t{1} << highestOrder;
    static X* const x = vectors::room<X>(0, count);
    static Y* const y = vectors::room<Y>(1, count + 2);
    for (int order = lowestOrder; order <= highestOrder; ++order)
        fftw::addLength<T>(family, 1 << order, order, members, x, y, plan);
}

template <class T, class X, class Spec>
void addComplex(const std::string& family, const Members<X, X, Spec>& members) {
    addTransform<T>(family, 0, members, fftw::planComplex<T, X>);
}
template <class T, class Spec>
void addReal(const std::string& family, const Members<T, T, Spec>& members) {
    addTransform<T>(family, 1, members, fftw::planReal<T>);
}

[[maybe_unused]] const bool registered = [] {
    addComplex<Orb32f, Orb32fc, OrbsFFTSpec_C_32fc>(
        "FFTFwd_CToC_32fc",
        {orbsFFTInitAlloc_C_32fc, orbsFFTGetBufSize_C_32fc, orbsFFTFwd_CToC_32fc, orbsFFTFree_C_32fc});
    addComplex<Orb64f, Orb64fc, OrbsFFTSpec_C_64fc>(
        "FFTFwd_CToC_64fc",
        {orbsFFTInitAlloc_C_64fc, orbsFFTGetBufSize_C_64fc, orbsFFTFwd_CToC_64fc, orbsFFTFree_C_64fc});
    addReal<Orb32f, OrbsFFTSpec_R_32f>("FFTFwd_RToPerm_32f", {orbsFFTInitAlloc_R_32f, orbsFFTGetBufSize_R_32f,
                                                              orbsFFTFwd_RToPerm_32f, orbsFFTFree_R_32f});
    addReal<Orb64f, OrbsFFTSpec_R_64f>("FFTFwd_RToPerm_64f", {orbsFFTInitAlloc_R_64f, orbsFFTGetBufSize_R_64f,
                                                              orbsFFTFwd_RToPerm_64f, orbsFFTFree_R_64f});
    return true;
}();

} // namespace
