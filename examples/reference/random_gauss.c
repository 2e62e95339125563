/* Gaussian noise in blocks, and what it is like. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    static Orb32f x[100000];
    Orb32f mean, deviation;
    OrbsRandGaussState_32f* noise;
    if (orbsRandGaussInitAlloc_32f(&noise, 10, 2, 1) != orbStsNoErr) return 1;
    for (int block = 0; block < 100; ++block)
        orbsRandGauss_32f(x + 1000 * block, 1000, noise);
    orbsMeanStdDev_32f(x, 100000, &mean, &deviation, orbAlgHintAccurate);
    printf("%.2f %.2f\n", mean, deviation);
    orbsRandGaussFree_32f(noise);
    return 0;
}

/*
9.99 2.01
*/
