// Min, Max, MinMax, MinAbs, MaxAbs, and the same with the places.
#include "extrema/extremes.h"

#include "orbs/extrema.h"

namespace {

using namespace orbs;

template <class Which, class Key = Itself, class T>
OrbStatus extreme(const T* pSrc, int len, T* pExtreme) {
    if (const OrbStatus status = checkVectors(len, pSrc, pExtreme)) return status;
    setElement(pExtreme, extremes<Key, Which>(pSrc, len, false)[0].value);
    return orbStsNoErr;
}

template <class Which, class Key = Itself, class T>
OrbStatus extremeAndPlace(const T* pSrc, int len, T* pExtreme, Orb32s* pIndx) {
    if (const OrbStatus status = checkVectors(len, pSrc, pExtreme, pIndx)) return status;
    const auto [found] = extremes<Key, Which>(pSrc, len, true);
    setElement(pExtreme, found.value);
    setElement(pIndx, static_cast<Orb32s>(found.place));
    return orbStsNoErr;
}

// Without a place to store the place at, the plain form.
template <class Which, class T>
OrbStatus extremeAndAnyPlace(const T* pSrc, int len, T* pExtreme, Orb32s* pIndx) {
    return pIndx ? extremeAndPlace<Which>(pSrc, len, pExtreme, pIndx) : extreme<Which>(pSrc, len, pExtreme);
}

template <class T>
OrbStatus bothExtremes(const T* pSrc, int len, T* pMin, T* pMax) {
    if (const OrbStatus status = checkVectors(len, pSrc, pMin, pMax)) return status;
    const auto [least, greatest] = extremes<Itself, Least, Greatest>(pSrc, len, false);
    setElement(pMin, least.value);
    setElement(pMax, greatest.value);
    return orbStsNoErr;
}

template <class T>
OrbStatus bothExtremesAndPlaces(const T* pSrc, int len, T* pMin, Orb32s* pMinIndx, T* pMax, Orb32s* pMaxIndx) {
    if (const OrbStatus status = checkVectors(len, pSrc, pMin, pMinIndx, pMax, pMaxIndx)) return status;
    const auto [least, greatest] = extremes<Itself, Least, Greatest>(pSrc, len, true);
    setElement(pMin, least.value);
    setElement(pMinIndx, static_cast<Orb32s>(least.place));
    setElement(pMax, greatest.value);
    setElement(pMaxIndx, static_cast<Orb32s>(greatest.place));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsMin_16s(const Orb16s* pSrc, int len, Orb16s* pMin) { return extreme<Least>(pSrc, len, pMin); }
OrbStatus orbsMin_32s(const Orb32s* pSrc, int len, Orb32s* pMin) { return extreme<Least>(pSrc, len, pMin); }
OrbStatus orbsMin_32f(const Orb32f* pSrc, int len, Orb32f* pMin) { return extreme<Least>(pSrc, len, pMin); }
OrbStatus orbsMin_64f(const Orb64f* pSrc, int len, Orb64f* pMin) { return extreme<Least>(pSrc, len, pMin); }
OrbStatus orbsMax_16s(const Orb16s* pSrc, int len, Orb16s* pMax) { return extreme<Greatest>(pSrc, len, pMax); }
OrbStatus orbsMax_32s(const Orb32s* pSrc, int len, Orb32s* pMax) { return extreme<Greatest>(pSrc, len, pMax); }
OrbStatus orbsMax_32f(const Orb32f* pSrc, int len, Orb32f* pMax) { return extreme<Greatest>(pSrc, len, pMax); }
OrbStatus orbsMax_64f(const Orb64f* pSrc, int len, Orb64f* pMax) { return extreme<Greatest>(pSrc, len, pMax); }
OrbStatus orbsMinIndx_16s(const Orb16s* pSrc, int len, Orb16s* pMin, Orb32s* pIndx) { return extremeAndAnyPlace<Least>(pSrc, len, pMin, pIndx); }
OrbStatus orbsMinIndx_32s(const Orb32s* pSrc, int len, Orb32s* pMin, Orb32s* pIndx) { return extremeAndAnyPlace<Least>(pSrc, len, pMin, pIndx); }
OrbStatus orbsMinIndx_32f(const Orb32f* pSrc, int len, Orb32f* pMin, Orb32s* pIndx) { return extremeAndAnyPlace<Least>(pSrc, len, pMin, pIndx); }
OrbStatus orbsMinIndx_64f(const Orb64f* pSrc, int len, Orb64f* pMin, Orb32s* pIndx) { return extremeAndAnyPlace<Least>(pSrc, len, pMin, pIndx); }
OrbStatus orbsMaxIndx_16s(const Orb16s* pSrc, int len, Orb16s* pMax, Orb32s* pIndx) { return extremeAndAnyPlace<Greatest>(pSrc, len, pMax, pIndx); }
OrbStatus orbsMaxIndx_32s(const Orb32s* pSrc, int len, Orb32s* pMax, Orb32s* pIndx) { return extremeAndAnyPlace<Greatest>(pSrc, len, pMax, pIndx); }
OrbStatus orbsMaxIndx_32f(const Orb32f* pSrc, int len, Orb32f* pMax, Orb32s* pIndx) { return extremeAndAnyPlace<Greatest>(pSrc, len, pMax, pIndx); }
OrbStatus orbsMaxIndx_64f(const Orb64f* pSrc, int len, Orb64f* pMax, Orb32s* pIndx) { return extremeAndAnyPlace<Greatest>(pSrc, len, pMax, pIndx); }

OrbStatus orbsMinAbs_16s(const Orb16s* pSrc, int len, Orb16s* pMinAbs) { return extreme<Least, Magnitude>(pSrc, len, pMinAbs); }
OrbStatus orbsMinAbs_32s(const Orb32s* pSrc, int len, Orb32s* pMinAbs) { return extreme<Least, Magnitude>(pSrc, len, pMinAbs); }
OrbStatus orbsMaxAbs_16s(const Orb16s* pSrc, int len, Orb16s* pMaxAbs) { return extreme<Greatest, Magnitude>(pSrc, len, pMaxAbs); }
OrbStatus orbsMaxAbs_32s(const Orb32s* pSrc, int len, Orb32s* pMaxAbs) { return extreme<Greatest, Magnitude>(pSrc, len, pMaxAbs); }
OrbStatus orbsMinAbsIndx_16s(const Orb16s* pSrc, int len, Orb16s* pMinAbs, Orb32s* pIndx) { return extremeAndPlace<Least, Magnitude>(pSrc, len, pMinAbs, pIndx); }
OrbStatus orbsMinAbsIndx_32s(const Orb32s* pSrc, int len, Orb32s* pMinAbs, Orb32s* pIndx) { return extremeAndPlace<Least, Magnitude>(pSrc, len, pMinAbs, pIndx); }
OrbStatus orbsMaxAbsIndx_16s(const Orb16s* pSrc, int len, Orb16s* pMaxAbs, Orb32s* pIndx) { return extremeAndPlace<Greatest, Magnitude>(pSrc, len, pMaxAbs, pIndx); }
OrbStatus orbsMaxAbsIndx_32s(const Orb32s* pSrc, int len, Orb32s* pMaxAbs, Orb32s* pIndx) { return extremeAndPlace<Greatest, Magnitude>(pSrc, len, pMaxAbs, pIndx); }

OrbStatus orbsMinMax_8u(const Orb8u* pSrc, int len, Orb8u* pMin, Orb8u* pMax) { return bothExtremes(pSrc, len, pMin, pMax); }
OrbStatus orbsMinMax_16u(const Orb16u* pSrc, int len, Orb16u* pMin, Orb16u* pMax) { return bothExtremes(pSrc, len, pMin, pMax); }
OrbStatus orbsMinMax_16s(const Orb16s* pSrc, int len, Orb16s* pMin, Orb16s* pMax) { return bothExtremes(pSrc, len, pMin, pMax); }
OrbStatus orbsMinMax_32u(const Orb32u* pSrc, int len, Orb32u* pMin, Orb32u* pMax) { return bothExtremes(pSrc, len, pMin, pMax); }
OrbStatus orbsMinMax_32s(const Orb32s* pSrc, int len, Orb32s* pMin, Orb32s* pMax) { return bothExtremes(pSrc, len, pMin, pMax); }
OrbStatus orbsMinMax_32f(const Orb32f* pSrc, int len, Orb32f* pMin, Orb32f* pMax) { return bothExtremes(pSrc, len, pMin, pMax); }
OrbStatus orbsMinMax_64f(const Orb64f* pSrc, int len, Orb64f* pMin, Orb64f* pMax) { return bothExtremes(pSrc, len, pMin, pMax); }
OrbStatus orbsMinMaxIndx_8u(const Orb8u* pSrc, int len, Orb8u* pMin, Orb32s* pMinIndx, Orb8u* pMax, Orb32s* pMaxIndx) { return bothExtremesAndPlaces(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }
OrbStatus orbsMinMaxIndx_16u(const Orb16u* pSrc, int len, Orb16u* pMin, Orb32s* pMinIndx, Orb16u* pMax, Orb32s* pMaxIndx) { return bothExtremesAndPlaces(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }
OrbStatus orbsMinMaxIndx_16s(const Orb16s* pSrc, int len, Orb16s* pMin, Orb32s* pMinIndx, Orb16s* pMax, Orb32s* pMaxIndx) { return bothExtremesAndPlaces(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }
OrbStatus orbsMinMaxIndx_32u(const Orb32u* pSrc, int len, Orb32u* pMin, Orb32s* pMinIndx, Orb32u* pMax, Orb32s* pMaxIndx) { return bothExtremesAndPlaces(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }
OrbStatus orbsMinMaxIndx_32s(const Orb32s* pSrc, int len, Orb32s* pMin, Orb32s* pMinIndx, Orb32s* pMax, Orb32s* pMaxIndx) { return bothExtremesAndPlaces(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }
OrbStatus orbsMinMaxIndx_32f(const Orb32f* pSrc, int len, Orb32f* pMin, Orb32s* pMinIndx, Orb32f* pMax, Orb32s* pMaxIndx) { return bothExtremesAndPlaces(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }
OrbStatus orbsMinMaxIndx_64f(const Orb64f* pSrc, int len, Orb64f* pMin, Orb32s* pMinIndx, Orb64f* pMax, Orb32s* pMaxIndx) { return bothExtremesAndPlaces(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }

}
// clang-format on
