/* Aligned memory, and which library gave it. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32fc* z = orbsMalloc_32fc(1000);
    if (!z) return 1;
    printf("%d bytes off a multiple of 32\n", (int)((size_t)z % 32));
    printf("version %d.%d\n", orbsGetLibVersion()->major, orbsGetLibVersion()->minor);
    orbsFree(z);
    return 0;
}

/*
0 bytes off a multiple of 32
version 5.2
*/
