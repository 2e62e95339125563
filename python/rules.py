"""What the names of arguments mean to Python: sizes, defaults, what is read and written.

Rows are matched in their order, by whole names: of the member without its prefix, and of the argument. Expressions are
over the numbers of the member by their C names; `size` is that of the array itself, `state.x` what an object remembers.
"""
import re

# How many elements an array has, and which number of the member follows from that. An array of one element is a number
# to Python. Without a row: those of the member's own length, or the points of its object.
SIZES = [
    # Bit strings.
    (r"Copy_1u", r"pSrc", "bits_as_bytes(srcBitOffset, len)", ""),
    (r"Copy_1u", r"pDst", "bits_as_bytes(dstBitOffset, len)", ""),
    (r"PackBits_.*", r"pDst", "packed_bytes(pSrcBitsLen, dstBitOffset)", ""),
    (r"PackBits_.*", r"pDstBitLen", "1", ""),
    # Channels.
    (r"Join.*", r"pDst", "nChannels * chanLen", ""),
    (r"Split.*", r"pSrc", "nChannels * chanLen", ""),
    # Packed spectra.
    (r"ConjCcs_\d+f?s?c", r"pSrc", "lenDst // 2 + 1", ""),
    (r"[FD]FTFwd_RToCCS_.*", r"pDst|pSrcDst", "2 * (state.points // 2 + 1)", ""),
    (r"[FD]FTInv_CCSToR_.*", r"pSrc|pSrcDst", "2 * (state.points // 2 + 1)", ""),
    # Sampling.
    (r"Sample(Up|Down)_.*", r"pDstLen|pPhase", "1", ""),
    (r"SampleUp_.*", r"pDst", "srcLen * factor", ""),
    (r"SampleDown_.*", r"pDst", "kept(srcLen, pPhase, factor)", ""),
    (r"SumWindow_.*", r"pSrc", "len + maskSize", "len = size - maskSize"),
    # Trellis decoding.
    (r"GetVarPointDV_.*", r"pSrc|pDstPoint", "1", ""),
    (r"GetVarPointDV_.*", r"pVariance", "(4 if state == 16 else 8)", ""),
    (r"GetVarPointDV_.*", r"pLabel", "16", ""),
    (r"BuildSymblTableDV4D_.*", r"pVariance", "16", ""),
    (r"BuildSymblTableDV4D_.*", r"pDst", "trellis_states(state)", ""),
    (r"CalcStatesDV_.*", r"pNextState", "16 * trellis_states(state)", ""),
    (r"CalcStatesDV_.*", r"pBranch", "64", ""),
    (r"CalcStatesDV_.*", r"pHistory", "room_for(presentIndex, trellis_states(state), size)", ""),
    (r".*DV_.*", r"pMin.*", "1", ""),
    (r".*DV_.*", r"p(Branch|Path)Error", "trellis_states(state)", ""),
    (r"Update(Linear|Power)_.*", r"pSrcDst", "1", ""),
    # Filter design.
    (r"FIRGen.*", r"pTaps", "tapsLen", "tapsLen = size"),
    (r"IIRGen.*", r"pTaps", "2 * order + 2", ""),
    # Adaptive filters.
    (r"FIRLMSOne_Direct.*", r"pTapsInv", "tapsLen", "tapsLen = size"),
    (r"FIR.*_Direct.*", r"pDlyLineIndex|pDstVal|pSrcDstVal", "1", ""),
    (r"FIRLMS(MR)?(Set|Get)DlyLine.*", r"pDlyLine", "state.line", ""),
    (r"FIRLMSMRInit.*", r"pDlyLine", "tapsLen * dlyStep + updateDly", ""),
    (r"FIRLMS(MR)?GetDlyLine.*", r"pDlyLineIndex", "1", ""),
    (r"FIRLMSMR.*", r"pVal|pDstVal", "1", ""),
    # Filters with few taps: feed-forward ones, then recursive ones.
    (r"IIRSparseInit.*", r"pNZTaps", "nzTapsLen1 + nzTapsLen2", "nzTapsLen2 = size - nzTapsLen1"),
    (r"IIRSparseInit.*", r"pNZTapPos", "nzTapsLen1 + max(nzTapsLen2, 1)", ""),
    (r"IIRSparseInit.*", r"pDlyLine",
     "last(pNZTapPos, nzTapsLen1) + last(pNZTapPos, nzTapsLen1 + nzTapsLen2, nzTapsLen1)", ""),
    (r"FIRSparseInit.*", r"pNZTaps|pNZTapPos", "nzTapsLen", "nzTapsLen = size"),
    (r"FIRSparseInit.*", r"pDlyLine", "last(pNZTapPos, nzTapsLen)", ""),
    # FIR filters, some of which change the rate.
    (r"FIRMR\w*_Direct_.*", r"pDlyLine", "rate_line(tapsLen, upFactor)", ""),
    (r"FIRMRInit.*", r"pDlyLine", "rate_line(tapsLen, upFactor)", ""),
    (r"FIRMR\w*_Direct_.*", r"pSrc", "numIters * downFactor", "numIters = size // max(downFactor, 1)"),
    (r"FIRMR\w*_Direct_.*", r"pDst", "numIters * upFactor", ""),
    (r"FIRMR\w*_Direct_.*", r"pSrcDst", "numIters * max(upFactor, downFactor)",
     "numIters = size // max(upFactor, downFactor, 1)"),
    (r"FIR\w*_Direct_.*", r"pSrc|pDst|pSrcDst", "numIters", "numIters = size"),
    (r"FIR\w*_Direct.*", r"pDlyLine", "2 * tapsLen", ""),
    (r"FIR(LMS(MR)?)?[SG]etTaps.*", r"pTaps", "state.taps_len", ""),
    (r"FIR\w*[SG]etTaps.*", r"pTapsFactor", "1", ""),
    (r"FIR[SG]etDlyLine.*", r"pDlyLine", "state.line", ""),
    (r"FIR\w*(Init|_Direct).*", r"pTaps|pTapsQ15", "tapsLen", "tapsLen = size"),
    (r"FIR(LMS)?Init.*", r"pDlyLine", "tapsLen", ""),
    (r"FIROne.*|IIROne.*", r"pDstVal|pSrcDstVal", "1", ""),
    (r"FIR(MR)?[\d_].*", r"pSrc", "numIters * state.down", "numIters = size // state.down"),
    (r"FIR(MR)?[\d_].*", r"pDst", "numIters * state.up", ""),
    (r"FIR(MR)?[\d_].*", r"pSrcDst", "numIters * max(state.up, state.down)",
     "numIters = size // max(state.up, state.down)"),
    (r"FIRLMS[\d_].*", r"pRef", "len", "len = size"),
    # IIR filters of any order, and of sections.
    (r"IIR[SG]etDlyLine.*", r"pDlyLine", "state.line", ""),
    (r"IIRSetTaps.*", r"pTaps", "state.taps_len", ""),
    (r"IIR\w*_BiQuad(Direct)?_.*", r"pTaps", "6 * numBq", "numBq = size // 6"),
    (r"IIR\w*_BiQuad(Direct)?_.*", r"pDlyLine", "2 * numBq", ""),
    (r"IIR.*", r"pTaps", "2 * order + 2", "order = size // 2 - 1"),
    (r"IIR.*", r"pDlyLine", "order", ""),
    # Convolution and correlation.
    (r"ConvCyclic8x8_.*", r".*", "8", ""),
    (r"ConvCyclic4x4_.*", r".*", "4", ""),
    (r"(Conv|CrossCorr).*", r"pSrc1", "src1Len", "src1Len = size"),
    (r"(Conv|CrossCorr).*", r"pSrc2", "src2Len", "src2Len = size"),
    (r"(ConvBiased|CrossCorr|AutoCorr).*", r"pDst", "dstLen", "dstLen = size"),
    (r"AutoCorr.*", r"pSrc", "srcLen", "srcLen = size"),
    (r"Conv(Direct|FFT)?_.*", r"pDst", "src1Len + src2Len - 1", ""),
    # Extremes, counts, tables.
    (r"FindNearest.*", r"pTable", "tblLen", "tblLen = size"),
    (r"FindNearestOne_.*", r"pOutVal|pOutIndx", "1", ""),
    (r"FindNearest_.*", r"pVals|pOutVals|pOutIndexes", "len", "len = size"),
    (r"(Min|Max).*", r"p(Min|Max)(Abs)?|p(Min|Max)?Indx|pOrder", "1", ""),
    (r"CountInRange_.*", r"pCounts", "1", ""),
    (r"SortIndex.*", r"pDstIdx", "len", ""),
    (r".*", r"p(Sum|Mean|StdDev|Norm|Dp)", "1", ""),
    (r"GoertzTwo.*", r"pVal|rFreq(Q15)?", "2", ""),
    (r"Goertz.*", r"pVal", "1", ""),
    # Wavelets.
    (r"WTHaarFwd_.*", r"pDstLow", "(len + 1) // 2", ""),
    (r"WTHaarFwd_.*", r"pDstHigh", "len // 2", ""),
    (r"WTHaarInv_.*", r"pSrcLow", "(len + 1) // 2", "len = size + pSrcHigh.size"),
    (r"WTHaarInv_.*", r"pSrcHigh", "len // 2", ""),
    (r"WT\w*InitAlloc_.*", r"pTapsLow", "lenLow", "lenLow = size"),
    (r"WT\w*InitAlloc_.*", r"pTapsHigh", "lenHigh", "lenHigh = size"),
    (r"WT.*", r"pDlyLow", "state.line_low", ""),
    (r"WT.*", r"pDlyHigh", "state.line_high", ""),
    (r"WTFwd_.*", r"pSrc", "2 * dstLen", "dstLen = size // 2"),
    (r"WTInv_.*", r"pDst", "2 * srcLen", ""),
    (r".*", r"pPhase|pSeed|p\w*Size", "1", ""),
]

# Arrays that are read and changed where they are; numbers among them are given, and their new values come back.
UPDATED = [
    (r".*Direct.*", r"pDlyLine|pDlyLineIndex|pTapsInv|pPhase|pSeed"),
    (r"Sample(Up|Down)_.*", r"pPhase"),
    (r"CalcStatesDV_.*", r"pBranchError|pHistory"),
    (r"UpdatePathMetricsDV_.*", r"pBranchError"),
    (r".*", r"pSrcDst.*"),
]

# Results that Python has anyway.
UNTOLD = [(r"Sample(Up|Down)_.*", r"pDstLen")]

# Arrays that may be absent.
NULLABLE = [
    (r"RealToCplx_.*", r"pSrcRe|pSrcIm"),
    (r".*(Init|SetDlyLine).*", r"pDlyLine"),
]

# What an argument is if it is left out. A state without a past has zeros in its delay line.
DEFAULTS = [
    (r".*", r"hint", "0"),
    (r".*", r"(magn|phase)?[sS]caleFactor", "0"),
    (r".*", r"rndMode", "1"),
    (r"[FD]FT.*", r"flag", "2"),
    (r".*Direct.*", r"pDlyLine", "None"),
    (r".*", r"pDlyLineIndex|dlyLineIndex", "0"),
    (r".*", r"pPhase|upPhase|downPhase|phaseQ15", "0"),
    (r"CrossCorr.*", r"dstLen", "src1Len + src2Len - 1"),
    (r"CrossCorr.*", r"lowLag", "1 - src1Len"),
    (r"AutoCorr.*", r"dstLen", "srcLen"),
    (r"ConvBiased_.*", r"dstLen", "src1Len + src2Len - 1"),
    (r"ConvBiased_.*", r"bias", "0"),
]

# Memory that Init builds an object in: which member tells its size, with which numbers, and which of its results it is.
MEMORY = [
    (r"(FFT|DCTFwd|DCTInv)Init(_.*)", r"pMemSpec", r"\1GetSize\2", "...", 0),
    (r"(FFT|DCTFwd|DCTInv)Init(_.*)", r"pMemInit", r"\1GetSize\2", "...", 1),
    (r"FIRMRInit(.*)", r"pBuffer", r"FIRMRGetStateSize\1", "tapsLen, upFactor, downFactor", None),
    (r"FIRInit(.*)", r"pBuffer", r"FIRGetStateSize\1", "tapsLen", None),
    (r"IIRInit(\w*_BiQuad_.*)", r"pBuffer", r"IIRGetStateSize\1", "numBq", None),
    (r"IIRInit(.*)", r"pBuffer", r"IIRGetStateSize\1", "order", None),
    (r"FIRSparseInit(.*)", r"pBuffer", r"FIRSparseGetStateSize\1",
     "nzTapsLen, max(last(pNZTapPos, nzTapsLen), 1)", None),
    (r"IIRSparseInit(.*)", r"pBuffer", r"IIRSparseGetStateSize\1",
     "nzTapsLen1, nzTapsLen2, last(pNZTapPos, nzTapsLen1),"
     " last(pNZTapPos, nzTapsLen1 + nzTapsLen2, nzTapsLen1)", None),
    (r"(Tone|Triangle)Init(Q15_.*)", r"pState", r"\1GetStateSize\2", "", None),
    (r"(Rand\w+?)Init(_.*)", r"pState", r"\1GetSize\2", "", None),
]

# What an object remembers of how it was made. `block` is the size of one that is moved as a block of memory.
REMEMBERED = [
    (r"FFTInit.*", {"points": "1 << order"}),
    (r"(DFT|Hilbert).*", {"points": "length"}),
    (r"DCT.*", {"points": "len"}),
    (r"FIRLMSMR.*", {"taps_len": "tapsLen", "line": "tapsLen * dlyStep + updateDly"}),
    (r"FIRLMS.*", {"taps_len": "tapsLen", "line": "tapsLen"}),
    (r"FIRMR.*", {"taps_len": "tapsLen", "line": "rate_line(tapsLen, upFactor)", "up": "upFactor",
                  "down": "downFactor"}),
    (r"FIRSparse.*|IIRSparse.*", {"block": "None"}),
    (r"FIR.*", {"taps_len": "tapsLen", "line": "tapsLen", "up": "1", "down": "1"}),
    (r"IIR\w*BiQuad.*", {"taps_len": "6 * numBq", "line": "2 * numBq"}),
    (r"IIR.*", {"taps_len": "2 * order + 2", "line": "order"}),
    (r"WTFwd.*", {"line_low": "max(lenLow - 1 + offsLow, 0)", "line_high": "max(lenHigh - 1 + offsHigh, 0)"}),
    (r"WTInv.*", {"line_low": "(lenLow - 1 + abs(offsLow)) // 2", "line_high": "(lenHigh - 1 + abs(offsHigh)) // 2"}),
    (r"Tone.*", {"block": "40"}),
    (r"Triangle.*", {"block": "128"}),
    (r"RandUniform\w*_32f", {"block": "52"}),
    (r"RandUniform.*", {"block": "48"}),
    (r"RandGauss\w*_32f", {"block": "68"}),
    (r"RandGauss.*", {"block": "60"}),
]

# Members that may leave elements of their results as they were: new ones are zeros.
PARTIAL = [(r"Copy_1u|PackBits.*|SortIndex.*|GetVarPointDV.*|IIRGen.*|FIRLMSOne_DirectQ15.*",)]

# Members that return this status whatever they have done.
ALWAYS = [(r"IIRSetTaps32sc?_16sc?|IIRSetTaps32sc_16sc32fc", -17)]

# Members that Python has no use for, and why.
REFUSED = [
    (r"Free", "arrays of orbs.Malloc_... give their memory back themselves"),
    (r"FIRLMSMRGetTapsPointer.*", "an address within the state; read and set its taps by FIRLMSMRGetTaps and FIRLMSMRSetTaps"),
]

# How the classes of objects are called: by what their members begin with.
CLASSES = {"FIR": "Fir", "FIRMR": "FirMr", "FIRLMS": "FirLms", "FIRLMSMR": "FirLmsMr", "FIRSparse": "FirSparse",
           "IIR": "Iir", "IIRSparse": "IirSparse", "FFT": "Fft", "DFT": "Dft", "DFTOutOrd": "DftOutOrd",
           "DCTFwd": "DctFwd", "DCTInv": "DctInv", "Hilbert": "Hilbert", "WTFwd": "WtFwd", "WTInv": "WtInv",
           "Tone": "Tone", "Triangle": "Triangle", "RandUniform": "RandUniform", "RandGauss": "RandGauss"}


def find(rows, member, argument=None):
    """The first row that fits; its match of the member's name comes with it."""
    for row in rows:
        found = re.fullmatch(row[0], member)
        if found and (argument is None or re.fullmatch(row[1], argument)):
            return row, found
    return None, None
