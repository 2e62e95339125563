/* A circular convolution by the product of two packed spectra. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f x[8] = {1, 2, 3, 4, 5, 6, 7, 8}, h[8] = {0, 1};
    OrbsFFTSpec_R_32f* fft;
    if (orbsFFTInitAlloc_R_32f(&fft, 3, ORB_FFT_SCALE_INV, orbAlgHintNone) != orbStsNoErr)
        return 1;
    orbsFFTFwd_RToPerm_32f_I(x, fft, NULL);
    orbsFFTFwd_RToPerm_32f_I(h, fft, NULL);
    orbsMulPerm_32f_I(h, x, 8);
    orbsFFTInv_PermToR_32f_I(x, fft, NULL);
    for (int n = 0; n < 8; ++n) printf("%.3f%c", x[n], n < 7 ? ' ' : '\n');
    orbsFFTFree_R_32f(fft);
    return 0;
}

/*
8.000 1.000 2.000 3.000 4.000 5.000 6.000 7.000
*/
