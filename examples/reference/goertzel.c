/* How much of one frequency is in a signal: a tone of amplitude 2 over 8 samples. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f x[8], phase = 0;
    Orb32fc on, off;
    orbsTone_Direct_32f(x, 8, 2, 0.25f, &phase, orbAlgHintAccurate);
    orbsGoertz_32f(x, 8, &on, 0.25f);
    orbsGoertz_32f(x, 8, &off, 0.375f);
    printf("%.3f and %.3f\n", on.re, off.re * off.re + off.im * off.im);
    return 0;
}

/*
8.000 and 0.000
*/
