/* A complex exponential of three turns has all of its spectrum in bin 3. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    OrbsDFTSpec_C_32fc* dft;
    Orb32fc x[6];
    Orb32f size[6], phase = 0;
    if (orbsDFTInitAlloc_C_32fc(&dft, 6, ORB_FFT_SCALE_FWD, orbAlgHintNone) != orbStsNoErr)
        return 1;
    orbsTone_Direct_32fc(x, 6, 1, 3.0f / 6, &phase, orbAlgHintAccurate);
    orbsDFTFwd_CToC_32fc(x, x, dft, NULL);
    orbsMagnitude_32fc(x, size, 6);
    for (int k = 0; k < 6; ++k) printf("%.3f%c", size[k], k < 5 ? ' ' : '\n');
    orbsDFTFree_C_32fc(dft);
    return 0;
}

/*
0.000 0.000 0.000 1.000 0.000 0.000
*/
