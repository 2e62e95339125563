/* Four bits, from bit 2 of a byte to bit 4 of another. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb8u from[1] = {0x3c};
    Orb8u to[1] = {0xa0};
    orbsCopy_1u(from, 2, to, 4, 4);
    printf("%02x\n", to[0]);
    return 0;
}

/*
af
*/
