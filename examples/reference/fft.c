/* A cosine of two turns in eight samples: bins 0 to 4, and the samples again. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[8] = {1, 0, -1, 0, 1, 0, -1, 0};
    Orb32fc bins[5];
    Orb32f back[8];
    OrbsFFTSpec_R_32f* fft;
    if (orbsFFTInitAlloc_R_32f(&fft, 3, ORB_FFT_SCALE_INV, orbAlgHintNone) != orbStsNoErr)
        return 1;
    orbsFFTFwd_RToCCS_32f(x, (Orb32f*)bins, fft, NULL);
    orbsFFTInv_CCSToR_32f((Orb32f*)bins, back, fft, NULL);
    for (int k = 0; k < 5; ++k)
        printf("%g%+gi%c", bins[k].re, bins[k].im, k < 4 ? ' ' : '\n');
    for (int n = 0; n < 8; ++n) printf("%g%c", back[n], n < 7 ? ' ' : '\n');
    orbsFFTFree_R_32f(fft);
    return 0;
}

/*
0+0i 0+0i 4+0i 0+0i 0+0i
1 0 -1 0 1 0 -1 0
*/
