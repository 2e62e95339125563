/* The spectrum of 16-bit samples, a sixteenth of it so that it fits. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb16s x[6] = {16000, 16000, 16000, -16000, -16000, -16000};
    Orb16s spectrum[6];
    OrbsDFTSpec_R_16s* dft;
    if (orbsDFTInitAlloc_R_16s(&dft, 6, ORB_FFT_SCALE_NONE, orbAlgHintNone) != orbStsNoErr)
        return 1;
    orbsDFTFwd_RToPack_16s_Sfs(x, spectrum, dft, 4, NULL);
    for (int n = 0; n < 6; ++n) printf("%d%c", spectrum[n], n < 5 ? ' ' : '\n');
    orbsDFTFree_R_16s(dft);
    return 0;
}

/*
0 2000 -3464 0 0 2000
*/
