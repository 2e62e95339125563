/* Values quantised to a table that ascends. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb16u table[4] = {0, 100, 250, 1000}, values[3] = {60, 175, 900};
    Orb16u nearest[3];
    Orb32s entry[3];
    orbsFindNearest_16u(values, nearest, entry, 3, table, 4);
    for (int n = 0; n < 3; ++n)
        printf("%d: entry %d, %d\n", values[n], entry[n], nearest[n]);
    return 0;
}

/*
60: entry 1, 100
175: entry 1, 100
900: entry 3, 1000
*/
