/* The spectrum of 16-bit samples with 32 bits, no scaling needed, and back. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb16s x[8] = {100, 200, 300, 400, 400, 300, 200, 100};
    Orb32s spectrum[10];
    Orb16s back[8];
    OrbsFFTSpec_R_16s32s* fft;
    if (orbsFFTInitAlloc_R_16s32s(&fft, 3, ORB_FFT_SCALE_INV, orbAlgHintAccurate) !=
        orbStsNoErr)
        return 1;
    orbsFFTFwd_RToCCS_16s32s_Sfs(x, spectrum, fft, 0, NULL);
    orbsFFTInv_CCSToR_32s16s_Sfs(spectrum, back, fft, 0, NULL);
    for (int k = 0; k < 5; ++k)
        printf("%d%+di%c", spectrum[2 * k], spectrum[2 * k + 1], k < 4 ? ' ' : '\n');
    for (int n = 0; n < 8; ++n) printf("%d%c", back[n], n < 7 ? ' ' : '\n');
    orbsFFTFree_R_16s32s(fft);
    return 0;
}

/*
2000+0i -583-241i 0+0i -17-41i 0+0i
100 200 300 400 400 300 200 100
*/
