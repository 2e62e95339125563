// The members of the transforms by the type of their object, for the rooms that build on them.
#pragma once

#include "orbs/fft.h"

namespace orbs::fft {

template <class Spec>
struct Members;

template <>
struct Members<OrbsFFTSpec_C_32fc> {
    static constexpr auto getSize = orbsFFTGetSize_C_32fc;
    static constexpr auto init = orbsFFTInit_C_32fc;
    static constexpr auto bufferSize = orbsFFTGetBufSize_C_32fc;
    static constexpr auto forward = orbsFFTFwd_CToC_32fc;
    static constexpr auto inverse = orbsFFTInv_CToC_32fc;
};
template <>
struct Members<OrbsFFTSpec_C_64fc> {
    static constexpr auto getSize = orbsFFTGetSize_C_64fc;
    static constexpr auto init = orbsFFTInit_C_64fc;
    static constexpr auto bufferSize = orbsFFTGetBufSize_C_64fc;
    static constexpr auto forward = orbsFFTFwd_CToC_64fc;
    static constexpr auto inverse = orbsFFTInv_CToC_64fc;
};
template <>
struct Members<OrbsFFTSpec_C_32f> {
    static constexpr auto getSize = orbsFFTGetSize_C_32f;
    static constexpr auto init = orbsFFTInit_C_32f;
    static constexpr auto bufferSize = orbsFFTGetBufSize_C_32f;
    static constexpr auto forward = orbsFFTFwd_CToC_32f;
    static constexpr auto inverse = orbsFFTInv_CToC_32f;
};
template <>
struct Members<OrbsFFTSpec_C_64f> {
    static constexpr auto getSize = orbsFFTGetSize_C_64f;
    static constexpr auto init = orbsFFTInit_C_64f;
    static constexpr auto bufferSize = orbsFFTGetBufSize_C_64f;
    static constexpr auto forward = orbsFFTFwd_CToC_64f;
    static constexpr auto inverse = orbsFFTInv_CToC_64f;
};
// Real: forward to Perm, inverse from Perm; and by format, CCS, Pack and Perm.
template <>
struct Members<OrbsFFTSpec_R_32f> {
    static constexpr auto getSize = orbsFFTGetSize_R_32f;
    static constexpr auto init = orbsFFTInit_R_32f;
    static constexpr auto bufferSize = orbsFFTGetBufSize_R_32f;
    static constexpr auto forward = orbsFFTFwd_RToPerm_32f;
    static constexpr auto inverse = orbsFFTInv_PermToR_32f;
    static constexpr decltype(&orbsFFTFwd_RToPerm_32f) forwardTo[] = {orbsFFTFwd_RToCCS_32f, orbsFFTFwd_RToPack_32f,
                                                                      orbsFFTFwd_RToPerm_32f};
    static constexpr decltype(&orbsFFTInv_PermToR_32f) inverseFrom[] = {orbsFFTInv_CCSToR_32f, orbsFFTInv_PackToR_32f,
                                                                        orbsFFTInv_PermToR_32f};
};
template <>
struct Members<OrbsFFTSpec_R_64f> {
    static constexpr auto getSize = orbsFFTGetSize_R_64f;
    static constexpr auto init = orbsFFTInit_R_64f;
    static constexpr auto bufferSize = orbsFFTGetBufSize_R_64f;
    static constexpr auto forward = orbsFFTFwd_RToPerm_64f;
    static constexpr auto inverse = orbsFFTInv_PermToR_64f;
    static constexpr decltype(&orbsFFTFwd_RToPerm_64f) forwardTo[] = {orbsFFTFwd_RToCCS_64f, orbsFFTFwd_RToPack_64f,
                                                                      orbsFFTFwd_RToPerm_64f};
    static constexpr decltype(&orbsFFTInv_PermToR_64f) inverseFrom[] = {orbsFFTInv_CCSToR_64f, orbsFFTInv_PackToR_64f,
                                                                        orbsFFTInv_PermToR_64f};
};

// The objects by the type of their numbers.
template <class T>
struct Specs;
template <>
struct Specs<Orb32f> {
    using Interleaved = OrbsFFTSpec_C_32fc;
    using Planes = OrbsFFTSpec_C_32f;
    using Real = OrbsFFTSpec_R_32f;
};
template <>
struct Specs<Orb64f> {
    using Interleaved = OrbsFFTSpec_C_64fc;
    using Planes = OrbsFFTSpec_C_64f;
    using Real = OrbsFFTSpec_R_64f;
};

} // namespace orbs::fft
