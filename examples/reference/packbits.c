/* Fields of 3, 5 and 8 bits, one behind the other. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32u fields[3] = {5, 17, 255};
    const Orb32s lengths[3] = {3, 5, 8};
    Orb8u stream[2];
    Orb32s bits;
    orbsPackBits_32u8u(fields, lengths, 3, stream, 0, &bits);
    printf("%02x %02x, %d bits\n", stream[0], stream[1], bits);
    return 0;
}

/*
b1 ff, 16 bits
*/
