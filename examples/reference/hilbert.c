/* The envelope of a tone is its amplitude everywhere. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f x[16], envelope[16], phase = 0;
    Orb32fc analytic[16];
    OrbsHilbertSpec_32f32fc* hilbert;
    if (orbsHilbertInitAlloc_32f32fc(&hilbert, 16, orbAlgHintNone) != orbStsNoErr) return 1;
    orbsTone_Direct_32f(x, 16, 3, 0.125f, &phase, orbAlgHintAccurate);
    orbsHilbert_32f32fc(x, analytic, hilbert);
    orbsMagnitude_32fc(analytic, envelope, 16);
    for (int n = 0; n < 16; ++n) printf("%.2f%c", envelope[n], n < 15 ? ' ' : '\n');
    orbsHilbertFree_32f32fc(hilbert);
    return 0;
}

/*
3.00 3.00 3.00 3.00 3.00 3.00 3.00 3.00 3.00 3.00 3.00 3.00 3.00 3.00 3.00 3.00
*/
