#include "orbcore.h"

extern "C" const char* orbGetStatusString(OrbStatus status) {
    switch (status) {
    case orbStsNoErr: return "no error";
    case orbStsSqrtNegArg: return "warning: an element under a root was negative";
    case orbStsEvenMedianMaskSize: return "warning: an even median mask size was reduced by one";
    case orbStsDivByZero: return "warning: a divisor element was zero";
    case orbStsLnZeroArg: return "warning: the argument of a logarithm was zero";
    case orbStsLnNegArg: return "warning: the argument of a logarithm was negative";
    case orbStsNanArg: return "warning: an element was a NaN or infinite";
    case orbStsBitLenLimited: return "warning: a bit length was limited to 0 to 32";
    case orbStsBadArgErr: return "an argument has a value that the call does not accept";
    case orbStsSizeErr: return "a length is below the least that the call accepts";
    case orbStsNullPtrErr: return "a required pointer is null";
    case orbStsMemAllocErr: return "memory could not be allocated, or the object is larger than a size in 32 bits can tell";
    case orbStsDivByZeroErr: return "the divisor is zero";
    case orbStsIIRScaleErr: return "the scale factor of the IIR taps is negative";
    case orbStsFftOrderErr: return "the FFT order is outside the accepted range";
    case orbStsFftFlagErr: return "the scaling flag of a transform is not one of those defined";
    case orbStsContextMatchErr: return "the object is not of the kind that the call works on, or was freed";
    case orbStsThreshValOrderErr: return "the upper threshold is below the lower one";
    case orbStsThreshNegLevelErr: return "a threshold level is negative or a NaN";
    case orbStsDlyLineIndexErr: return "the delay-line index is outside the delay line";
    case orbStsIIROrderErr: return "an IIR order or number of biquads is below 1";
    case orbStsFIRLenErr: return "the number of FIR taps is below 1";
    case orbStsRelFreqErr: return "a relative frequency is outside 0 to 1";
    case orbStsFIRMRPhaseErr: return "a multi-rate phase is outside 0 to its factor minus 1";
    case orbStsFIRMRFactorErr: return "a multi-rate factor is below 1";
    case orbStsSamplePhaseErr: return "a sampling phase is outside 0 to the factor minus 1";
    case orbStsSampleFactorErr: return "a sampling factor is below 1";
    case orbStsShiftErr: return "a shift count is negative";
    case orbStsMaskSizeErr: return "a mask size is below 1";
    case orbStsWtOffsetErr: return "a wavelet filter offset is below -1";
    case orbStsJaehneErr: return "the magnitude of a Jaehne signal is negative or a NaN";
    case orbStsWinKaiserErr: return "alpha times the length of a Kaiser window is too large";
    case orbStsTriangleAsymErr: return "the asymmetry of a triangle is out of range";
    case orbStsTrianglePhaseErr: return "the phase of a triangle is out of range";
    case orbStsTriangleFreqErr: return "the frequency of a triangle is out of range";
    case orbStsTriangleMagnErr: return "the magnitude of a triangle is out of range";
    case orbStsTonePhaseErr: return "the phase of a tone is out of range";
    case orbStsToneFreqErr: return "the frequency of a tone is out of range";
    case orbStsToneMagnErr: return "the magnitude of a tone is not above 0";
    case orbStsStrideMatrixErr: return "a matrix stride is below 1 or not a multiple of 8";
    case orbStsSparseIndexErr: return "sparse tap positions are negative or not strictly increasing";
    case orbStsSingularErr: return "a matrix is singular to working precision";
    case orbStsIIRGenOrderErr: return "the order of an IIR design is outside 1 to 12";
    case orbStsIIRGenFreqErr: return "the cut-off frequency of an IIR design is outside 0 to 0.5";
    case orbStsIIRGenPassbandErr: return "the pass-band limit of an IIR design is out of range";
    default: return "unknown status";
    }
}
