/* Floats made doubles exactly, and 32 bits narrowed to 16 by a scale factor. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[2] = {0.1f, 3};
    const Orb32s wide[3] = {100000, 8, -24};
    Orb64f doubles[2];
    Orb16s narrow[3];
    orbsConvert_32f64f(x, doubles, 2);
    orbsConvert_32s16s_Sfs(wide, narrow, 3, 4);
    printf("%.10f %g\n%d %d %d\n", doubles[0], doubles[1], narrow[0], narrow[1], narrow[2]);
    return 0;
}

/*
0.1000000015 3
6250 0 -2
*/
