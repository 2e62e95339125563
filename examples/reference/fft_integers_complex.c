/* A complex transform of 16 bits, an eighth of the sums. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb16sc x[8] = {{8000, 0}, {8000, 0}, {8000, 0}, {8000, 0},
                    {8000, 0}, {8000, 0}, {8000, 0}, {0, 0}};
    OrbsFFTSpec_C_16sc* fft;
    if (orbsFFTInitAlloc_C_16sc(&fft, 3, ORB_FFT_SCALE_NONE, orbAlgHintAccurate) !=
        orbStsNoErr)
        return 1;
    orbsFFTFwd_CToC_16sc_ISfs(x, fft, 3, NULL);
    for (int k = 0; k < 8; ++k) printf("%d%+di%c", x[k].re, x[k].im, k < 7 ? ' ' : '\n');
    orbsFFTFree_C_16sc(fft);
    return 0;
}

/*
7000+0i -707-707i 0-1000i 707-707i 1000+0i 707+707i 0+1000i -707+707i
*/
