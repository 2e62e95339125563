// The rules of transforms and wavelets.
#include "sweep/rules_parts.h"

namespace sweep {
namespace {

bool cosinesNeedNoMemory(const Case& c) {
    return (c.n & (c.n - 1)) == 0 ? c.n <= 512 : c.n <= 100;
}

// Of the channels of a filter bank: taps, offset, and what each remembers of its stream.
int highTaps(const Case& c) {
    return c.taps + c.turn % 3;
}
int lowOffset(const Case& c) {
    constexpr int offsets[] = {0, 1, -1, 2, 7, 16, 700};
    return offsets[static_cast<std::size_t>(c.turn) % std::size(offsets)];
}
int highOffset(const Case& c) {
    return c.turn / 2 % 4 - 1;
}
int forwardLine(int taps, int offset) {
    return std::max(taps - 1 + offset, 0);
}
int inverseLine(int taps, int offset) {
    return (taps - 1 + std::abs(offset)) / 2;
}

const ObjectRule objectRules[] = {
    {{"OrbsFFTSpec(\\w+)", ""},
     "FFT",
     "GetSize",
     {{"pMemSpec", "pSpecSize"},
      {"pMemInit", "pSpecBufferSize", [](const Case& c) { return c.order <= 10; }}, // not needed
      {"pBuffer", "pBufferSize", always}}},                                         // the call takes one of its own
    {{"OrbsDCTFwdSpec(\\w+)", ""},
     "DCTFwd",
     "GetSize",
     {{"pMemSpec", "pSpecSize"},
      {"pMemInit", "pSpecBufferSize", cosinesNeedNoMemory},
      {"pBuffer", "pBufferSize", always}}},
    {{"OrbsDCTInvSpec(\\w+)", ""},
     "DCTInv",
     "GetSize",
     {{"pMemSpec", "pSpecSize"},
      {"pMemInit", "pSpecBufferSize", cosinesNeedNoMemory},
      {"pBuffer", "pBufferSize", always}}},
    {{"OrbsDFTSpec(\\w+)", ""}, "DFT", "GetBufSize", {{"pBuffer", "pSize", always}}},
    {{"OrbsDFTOutOrdSpec(\\w+)", ""}, "DFTOutOrd", "GetBufSize", {{"pBuffer", "pSize", always}}},
    {{"OrbsWTFwdState(\\w+)", ""}, "WTFwd", nullptr, {}},
    {{"OrbsWTInvState(\\w+)", ""}, "WTInv", nullptr, {}},
    {{"OrbsHilbertSpec(\\w+)", ""}, "Hilbert", nullptr, {}},
};

const VectorRule vectorRules[] = {
    // CCS: half the spectrum and the middle.
    {{"ConjCcs_.*", "pSrc"}, COUNT(c.n / 2 + 1)},
    {{"FFTFwd_RToCCS_.*", "pDst|pSrcDst"}, COUNT(2 * (c.points() / 2 + 1))},
    {{"FFTInv_CCSToR_.*", "pSrc|pSrcDst"}, COUNT(2 * (c.points() / 2 + 1))},
    {{"FFT(Fwd|Inv)_.*", "p(Src|Dst|SrcDst)(Re|Im)?"}, COUNT(c.points())},
    {{"DFTFwd_RToCCS_.*", "pDst"}, COUNT(2 * (c.n / 2 + 1))},
    {{"DFTInv_CCSToR_.*", "pSrc"}, COUNT(2 * (c.n / 2 + 1))},
    {{"WTHaar(Fwd|Inv)_.*", "p(Src|Dst)Low"}, COUNT((c.n + 1) / 2)},
    {{"WTHaar(Fwd|Inv)_.*", "p(Src|Dst)High"}, COUNT(c.n / 2)},
    {{"WT(Fwd|Inv)InitAlloc_.*", "pTapsLow"}, COUNT(c.taps)},
    {{"WT(Fwd|Inv)InitAlloc_.*", "pTapsHigh"}, COUNT(highTaps(c))},
    {{"WTFwd.*", "pDlyLow"}, COUNT(forwardLine(c.taps, lowOffset(c)))},
    {{"WTFwd.*", "pDlyHigh"}, COUNT(forwardLine(highTaps(c), highOffset(c)))},
    {{"WTInv.*", "pDlyLow"}, COUNT(inverseLine(c.taps, lowOffset(c)))},
    {{"WTInv.*", "pDlyHigh"}, COUNT(inverseLine(highTaps(c), highOffset(c)))},
    {{"WTFwd_.*", "pSrc"}, COUNT(2 * c.n)},
    {{"WTInv_.*", "pDst"}, COUNT(2 * c.n)},
    {{".*", "p(Src|Dst)(Low|High)"}, COUNT(c.n)},
    {{"GoertzTwo.*", "pVal"}, COUNT(2)},
    {{"GoertzTwoQ15_.*", "rFreqQ15"}, COUNT(2), {}, oneOf<3277, 0, 32767, 17, 16384>},
    {{"GoertzTwo_.*", "rFreq"}, COUNT(2), {}, oneOf<0.1, 0, 0.75, 0.0073, 0.25, 0.9999>},
    {{"Goertz.*", "pVal"}, COUNT(1)},
};

const NumberRule numberRules[] = {
    {{"Hilbert.*", "length"}, NUMBER(c.n), belowOne, orbStsSizeErr},
    {{"WT.*", "lenLow"}, NUMBER(c.taps), belowOne, orbStsSizeErr},
    {{"WT.*", "lenHigh"}, NUMBER(highTaps(c)), belowOne, orbStsSizeErr},
    {{"WT.*", "offsLow"}, NUMBER(lowOffset(c)), {NUMBER(-2), NUMBER(INT_MIN)}, orbStsWtOffsetErr},
    {{"WT.*", "offsHigh"}, NUMBER(highOffset(c)), {NUMBER(-2), NUMBER(INT_MIN)}, orbStsWtOffsetErr},
    {{"FFT.*", "order"},
     NUMBER(c.order),
     {NUMBER(-1), NUMBER(31), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsFftOrderErr},
    {{"DFT.*", "length"}, NUMBER(c.n), belowOne, orbStsSizeErr},
    {{"[FD]FT.*", "flag"},
     oneOf<ORB_FFT_SCALE_FWD, ORB_FFT_SCALE_INV, ORB_FFT_SCALE_SQRT, ORB_FFT_SCALE_NONE>,
     {NUMBER(0), NUMBER(3), NUMBER(16), NUMBER(-1)},
     orbStsFftFlagErr},
    {{"Goertz.*Q15_.*", "rFreqQ15"}, oneOf<3277, 0, 32767, 17, 16384>, {NUMBER(-1), NUMBER(-32768)}, orbStsRelFreqErr},
    {{"Goertz_.*", "rFreq"},
     oneOf<0.1, 0, 0.75, 0.0073, 0.25, 0.9999>,
     {NUMBER(1), NUMBER(-1e-9), NUMBER(NAN)},
     orbStsRelFreqErr},
};

const PointeeRule pointeeRules[] = {
    {{"GoertzTwoQ15_.*", "rFreqQ15"}, {NUMBER(-1), NUMBER(-32768)}, orbStsRelFreqErr},
    {{"GoertzTwo_.*", "rFreq"}, {NUMBER(1), NUMBER(-1e-9), NUMBER(NAN)}, orbStsRelFreqErr},
};

const Exception refusalMayWrite[] = {
    {{"FFTInit_.*", "pMemSpec"}},      // the header is begun before the flag and the second buffer are tested
    {{"WT.*InitAlloc_.*", "ppState"}}, // null, without memory
};

const OrderRule orderRules[] = {
    {{"(FFT|DCT|DFT(OutOrd)?)(Fwd|Inv)_.*", ""}, {"pSpec", "pSpec:tag", "*"}},
    {{"FFTGetSize_.*", ""}, {"order", "*", "flag"}},
    {{"DCT...GetSize_.*", ""}, {"len", "*"}},
    {{"DCT...Init_.*", ""}, {"ppSpec", "len", "pMemSpec", "pMemInit"}},
    {{"FFTInit_.*", ""}, {"ppSpec", "order", "pMemSpec", "flag", "pMemInit"}},
    {{"GoertzTwoQ15_.*", ""}, {"rFreqQ15", "rFreqQ15:value", "*"}},
    {{"GoertzQ15_.*", ""}, {"rFreqQ15", "*"}},
    {{"Goertz_.*", ""}, {"pSrc", "pVal", "len", "rFreq"}},
    {{"WT(Fwd|Inv)InitAlloc_.*", ""}, {"ppState", "pTapsLow", "lenLow", "pTapsHigh", "lenHigh", "offsLow", "offsHigh"}},
    {{"WTInv_.*", ""}, {"pState", "pState:tag", "pSrcLow", "pSrcHigh", "srcLen", "pDst"}},
    {{"WT(Fwd|Inv)([GS]etDlyLine)?_.*", ""}, {"pState", "pState:tag", "*"}},
};

const CaseRule caseRules[] = {
    // Of integers: the orders that may have integer arithmetic under each hint, with several scale factors.
    {{"FFT(Fwd|Inv)_.*_I?Sfs", ""},
     orders(0, 3, 10) + orders(4, 7, 4),
     orders(8, 19, 1) + orders(10, 11, 1),
     orders(0, 3, 5) + orders(10, 11, 1),
     numbered(orders(0, 3, 36) + orders(4, 12, 4) + orders(13, 18, 1))},
    // Each order with each flag, and those around the changes between the engines.
    {{"FFT.*", ""},
     orders(0, 7, 4),
     orders(8, 19, 1),
     orders(10, 11, 1),
     numbered(orders(0, 12, 4) + orders(13, 18, 1))},
    // Each plan, and those around the changes between them.
    {{"DCT.*", ""},
     lengthsUpTo(132) + lengths({150, 255, 256, 257}),
     lengths({500, 512, 1000, 1009, 1024, 4096, 5001}),
     lengths({8, 32, 100, 64, 101, 1024}),
     numbered(lengthsUpTo(160) +
              lengths({255, 256, 360, 512, 1000, 1009, 1024, 1025, 2048, 4096, 8192, 10007, 65536}))},
    // Lengths of every plan: all short ones, those around the limits between the plans, products and primes.
    {{"DFT.*", ""},
     lengthsUpTo(80),
     lengthsFrom(81, 160) +
         lengths({179, 180, 181, 302, 343, 500, 945, 1009, 1155, 2000, 2001, 2002, 3375, 5000, 5001}),
     lengths({4, 12, 16, 45, 101, 151, 302, 5001}),
     numbered(lengthsUpTo(160) + lengths({179,  180,  181,  302,  303,  343,  500,  501,  945,   1000,  1009, 1155,
                                          1200, 2000, 2001, 2002, 3375, 5000, 5001, 7200, 22801, 45045, 44100}))},
    // Of every plan of the transforms inside.
    {{"Hilbert.*", ""},
     lengthsUpTo(70),
     lengths({151, 181, 302, 1000, 1009, 1024, 2310, 5003}),
     lengths({1, 3, 9, 60, 64, 101, 302}),
     numbered(lengthsUpTo(70) + lengths({149, 151, 181, 302, 1000, 1009, 1024, 2310, 5003}))},
    // Around a vector, a head of a block, a piece of one, and several.
    {{"WT(Fwd|Inv)([A-Z].*)?_.*", ""},
     withTaps(lengthsUpTo(70), {1, 2, 3, 4, 5, 8, 9, 16, 33}),
     withTaps(lengths({511, 512, 513, 1024, 1025, 1600}), {1, 2, 8, 17, 130}),
     withTaps(lengths({9, 9, 9, 9, 600}), {5, 1, 2, 8}),
     numbered(withTaps(lengthsUpTo(70), {1, 2, 3, 4, 5, 8, 9, 16, 33}) +
              everyPair(lengths({511, 512, 513, 1025, 1600}), {1, 2, 3, 8, 17, 64, 130}))},
};

} // namespace

const Rules& transformRules() {
    static const Rules book{.objects = objectRules,
                            .vectors = vectorRules,
                            .numbers = numberRules,
                            .pointees = pointeeRules,
                            .refusalMayWrite = refusalMayWrite,
                            .orders = orderRules,
                            .cases = caseRules};
    return book;
}

} // namespace sweep
