/* orbdefs.h: element types, status codes and flags shared by all of orbs.
 *
 * Integers are two's complement, floats IEEE 754, multi-byte elements little-endian. A complex element is its real
 * part followed by its imaginary part without a gap, so an array of complex elements is an interleaved real array of
 * twice the length. */
#ifndef ORBDEFS_H
#define ORBDEFS_H

#ifdef __cplusplus
#define ORBS_LANGUAGE_BEGIN extern "C" {
#define ORBS_LANGUAGE_END }
#else
#define ORBS_LANGUAGE_BEGIN
#define ORBS_LANGUAGE_END
#endif

/* Stand around the declarations of every public header: C names, visible outside the library. */
#define ORBS_DECLARATIONS_BEGIN ORBS_LANGUAGE_BEGIN _Pragma("GCC visibility push(default)")
#define ORBS_DECLARATIONS_END _Pragma("GCC visibility pop") ORBS_LANGUAGE_END

typedef unsigned char Orb8u;
typedef signed char Orb8s;
typedef unsigned short Orb16u;
typedef short Orb16s;
typedef Orb16s Orb16f; /* IEEE binary16, held as raw bits */
typedef unsigned int Orb32u;
typedef int Orb32s;
typedef unsigned long long Orb64u;
typedef long long Orb64s;
typedef float Orb32f;
typedef double Orb64f;
typedef struct { Orb8u b[3]; } Orb24u; /* three bytes, low byte first, no padding */
typedef struct { Orb8u b[3]; } Orb24s;
typedef struct { Orb8s re; Orb8s im; } Orb8sc;
typedef struct { Orb16s re; Orb16s im; } Orb16sc;
typedef struct { Orb32s re; Orb32s im; } Orb32sc;
typedef struct { Orb64s re; Orb64s im; } Orb64sc;
typedef struct { Orb32f re; Orb32f im; } Orb32fc;
typedef struct { Orb64f re; Orb64f im; } Orb64fc;

/* What a call reports. 0: done. Negative: refused, no output defined. Positive: a warning, all results written.
 * Saturation and overflow are never reported. orbGetStatusString (orbcore.h) gives each code's text. The table is that of
 * the whole library: a number means one thing for good, whether or not a member of this build reports it. */
typedef Orb32s OrbStatus;
enum {
    orbStsNoErr = 0,
    orbStsSqrtNegArg = 3,
    orbStsEvenMedianMaskSize = 5,
    orbStsDivByZero = 6,
    orbStsLnZeroArg = 7,
    orbStsLnNegArg = 8,
    orbStsNanArg = 9,
    orbStsBitLenLimited = 27,
    orbStsBadArgErr = -5,
    orbStsSizeErr = -6,
    orbStsNullPtrErr = -8,
    orbStsMemAllocErr = -9,
    orbStsDivByZeroErr = -10,
    orbStsIIRScaleErr = -13,
    orbStsFftOrderErr = -15,
    orbStsFftFlagErr = -16,
    orbStsContextMatchErr = -17,
    orbStsThreshValOrderErr = -18,
    orbStsThreshNegLevelErr = -19,
    orbStsDlyLineIndexErr = -24,
    orbStsIIROrderErr = -25,
    orbStsFIRLenErr = -26,
    orbStsRelFreqErr = -27,
    orbStsFIRMRPhaseErr = -28,
    orbStsFIRMRFactorErr = -29,
    orbStsSamplePhaseErr = -30,
    orbStsSampleFactorErr = -31,
    orbStsShiftErr = -32,
    orbStsMaskSizeErr = -33,
    orbStsWtOffsetErr = -35,
    orbStsJaehneErr = -38,
    orbStsWinKaiserErr = -39,
    orbStsTriangleAsymErr = -40,
    orbStsTrianglePhaseErr = -41,
    orbStsTriangleFreqErr = -42,
    orbStsTriangleMagnErr = -43,
    orbStsTonePhaseErr = -44,
    orbStsToneFreqErr = -45,
    orbStsToneMagnErr = -46,
    orbStsStrideMatrixErr = -182,
    orbStsSparseIndexErr = -194,
    orbStsSingularErr = -195,
    orbStsIIRGenOrderErr = -206,
    orbStsIIRGenFreqErr = -208,
    orbStsIIRGenPassbandErr = -209
};

/* Accuracy hint. Only orbAlgHintFast selects the fast path; every other value, known or not, the accurate one. */
typedef Orb32s OrbHintAlgorithm;
enum { orbAlgHintNone = 0, orbAlgHintFast = 1, orbAlgHintAccurate = 2 };

/* Rounding of a conversion: toward zero, or to nearest with ties to even. */
enum { orbRndZero = 0, orbRndNear = 1 };

/* Relation of a threshold: what is limited. Every value but orbCmpGreater means orbCmpLess. */
enum { orbCmpLess = 0, orbCmpGreater = 4 };

/* Which library this is; see orbsGetLibVersion. */
typedef struct {
    Orb32s major;
    Orb32s minor;
    Orb32s majorBuild;
    Orb32s build;
    char targetCpu[4];
    const char* Name;
    const char* Version;
    const char* BuildDate;
} OrbLibraryVersion;

/* Scaling of a transform of N points: which direction is divided by N (SQRT: both by the root of N). */
enum { ORB_FFT_SCALE_FWD = 1, ORB_FFT_SCALE_INV = 2, ORB_FFT_SCALE_SQRT = 4, ORB_FFT_SCALE_NONE = 8 };

#endif
