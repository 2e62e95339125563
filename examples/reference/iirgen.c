/* A Butterworth low pass of order 2: numerator, then denominator. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb64f taps[6];
    orbsIIRGenLowpass_64f(0.1, 0, 2, taps, orbButterworth);
    for (int n = 0; n < 6; ++n) printf("%.4f%c", taps[n], n < 5 ? ' ' : '\n');
    return 0;
}

/*
0.0675 0.1349 0.0675 1.0000 -1.1430 0.4128
*/
