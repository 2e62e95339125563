/* The number of threads is set for all calls, and does not change results. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    OrbStatus status = orbSetNumThreads(2);
    printf("%d: %s\n", orbGetNumThreads(), orbGetStatusString(status));
    printf("%s\n", orbGetStatusString(orbSetNumThreads(0)));
    return 0;
}

/*
2: no error
a length is below the least that the call accepts
*/
