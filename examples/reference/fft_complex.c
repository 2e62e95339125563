/* The transform of a pulse is the same in every bin. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32fc x[4] = {{1, 0}, {0, 0}, {0, 0}, {0, 0}};
    OrbsFFTSpec_C_32fc* fft;
    if (orbsFFTInitAlloc_C_32fc(&fft, 2, ORB_FFT_SCALE_NONE, orbAlgHintNone) != orbStsNoErr)
        return 1;
    orbsFFTFwd_CToC_32fc_I(x, fft, NULL);
    for (int k = 0; k < 4; ++k) printf("%g%+gi%c", x[k].re, x[k].im, k < 3 ? ' ' : '\n');
    orbsFFTFree_C_32fc(fft);
    return 0;
}

/*
1+0i 1+0i 1+0i 1+0i
*/
