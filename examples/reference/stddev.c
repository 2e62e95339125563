/* Mean and deviation in one pass. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[4] = {2, 4, 4, 6};
    Orb32f mean, deviation;
    orbsMeanStdDev_32f(x, 4, &mean, &deviation, orbAlgHintAccurate);
    printf("%g %.4f\n", mean, deviation);
    return 0;
}

/*
4 1.6330
*/
