/* The spectrum of five real samples, of which the bins 0 to 2 are enough, and back. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[5] = {1, 2, 3, 4, 5};
    Orb32fc spectrum[3];
    Orb32f back[5];
    OrbsDFTSpec_R_32f* dft;
    if (orbsDFTInitAlloc_R_32f(&dft, 5, ORB_FFT_SCALE_INV, orbAlgHintNone) != orbStsNoErr)
        return 1;
    orbsDFTFwd_RToCCS_32f(x, (Orb32f*)spectrum, dft, NULL);
    orbsDFTInv_CCSToR_32f((Orb32f*)spectrum, back, dft, NULL);
    for (int k = 0; k < 3; ++k) printf("%.3f %+.3fi\n", spectrum[k].re, spectrum[k].im);
    for (int n = 0; n < 5; ++n) printf("%.3f%c", back[n], n < 4 ? ' ' : '\n');
    orbsDFTFree_R_32f(dft);
    return 0;
}

/*
15.000 +0.000i
-2.500 +3.441i
-2.500 +0.812i
1.000 2.000 3.000 4.000 5.000
*/
