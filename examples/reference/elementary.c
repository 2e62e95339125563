/* Exponentials and the logarithms that undo them, arctangents and cube roots. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[3] = {-1, 0, 2};
    Orb32f e[3], back[3], angle[3], root[3];
    orbsExp_32f(x, e, 3);
    orbsLn_32f(e, back, 3);
    orbsArctan_32f(x, angle, 3);
    orbsCubrt_32f(x, root, 3);
    for (int n = 0; n < 3; ++n)
        printf("%.4f %g %.4f %.4f\n", e[n], back[n], angle[n], root[n]);
    return 0;
}

/*
0.3679 -1 -0.7854 -1.0000
1.0000 0 0.0000 0.0000
7.3891 2 1.1071 1.2599
*/
