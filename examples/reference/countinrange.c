/* How many elements lie strictly between two bounds. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32s x[6] = {1, 5, 10, 15, 20, 7};
    Orb32s count;
    orbsCountInRange_32s(x, 6, &count, 5, 20);
    printf("%d\n", count);
    return 0;
}

/*
3
*/
