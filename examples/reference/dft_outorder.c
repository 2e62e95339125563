/* A circular shift by a product of spectra, whose order of bins does not matter. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32fc x[6] = {{1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}, {6, 0}},
            pulse[6] = {{0, 0}, {1, 0}};
    OrbsDFTOutOrdSpec_C_32fc* dft;
    if (orbsDFTOutOrdInitAlloc_C_32fc(&dft, 6, ORB_FFT_SCALE_INV, orbAlgHintNone) !=
        orbStsNoErr)
        return 1;
    orbsDFTOutOrdFwd_CToC_32fc(x, x, dft, NULL);
    orbsDFTOutOrdFwd_CToC_32fc(pulse, pulse, dft, NULL);
    orbsMul_32fc_I(pulse, x, 6);
    orbsDFTOutOrdInv_CToC_32fc(x, x, dft, NULL);
    for (int n = 0; n < 6; ++n) printf("%.3f%c", x[n].re, n < 5 ? ' ' : '\n');
    orbsDFTOutOrdFree_C_32fc(dft);
    return 0;
}

/*
6.000 1.000 2.000 3.000 4.000 5.000
*/
