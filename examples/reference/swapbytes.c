/* Words of the other byte order. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb16u words[3] = {0x1234, 0x00ff, 0xabcd};
    Orb16u swapped[3];
    orbsSwapBytes_16u(words, swapped, 3);
    for (int n = 0; n < 3; ++n) printf("%04x%c", swapped[n], n < 2 ? ' ' : '\n');
    return 0;
}

/*
3412 ff00 cdab
*/
