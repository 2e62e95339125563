/* The range of a vector, and where its greatest element is. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[5] = {3, -7, 5, 5, 0};
    Orb32f least, greatest;
    Orb32s place;
    orbsMinMax_32f(x, 5, &least, &greatest);
    orbsMaxIndx_32f(x, 5, &greatest, &place);
    printf("%g to %g, first at %d\n", least, greatest, place);
    return 0;
}

/*
-7 to 5, first at 2
*/
