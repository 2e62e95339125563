/* Sums rounded toward zero for a while, and to nearest again. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f a[1] = {1}, b[1] = {1e-7f};
    Orb32f nearest, cut;
    orbsAdd_32f(a, b, &nearest, 1);
    Orb32u before = orb_set_rc_ssx(0x6000);
    orbsAdd_32f(a, b, &cut, 1);
    orb_set_cw_ssx(before);
    printf("%.8f %.8f\n", nearest, cut);
    return 0;
}

/*
1.00000012 1.00000000
*/
