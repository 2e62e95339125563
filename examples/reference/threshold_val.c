/* What is too small becomes 0; what lies outside of an interval becomes its ends. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f x[5] = {-2, 0.1f, 0.5f, 0.05f, 2}, y[5] = {-2, 0.1f, 0.5f, 0.05f, 2};
    orbsThreshold_LTVal_32f_I(x, 5, 0.2f, 0);
    orbsThreshold_LTValGTVal_32f_I(y, 5, -1, -1, 1, 1);
    for (int n = 0; n < 5; ++n) printf("%g %g\n", x[n], y[n]);
    return 0;
}

/*
0 -1
0 0.1
0.5 0.5
0 0.05
2 1
*/
