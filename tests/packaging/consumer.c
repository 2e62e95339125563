/* Uses both libraries; exits 0 if they answer as they should. */
#include <orbs.h>

#include <stdio.h>
#include <string.h>

int main(void) {
    const Orb16s half[3] = {1, 3, -1}, zero[3] = {0, 0, 0};
    Orb16s sum[3];
    OrbStatus status = orbsAdd_16s_Sfs(half, zero, sum, 3, 1); /* 0.5, 1.5 and -0.5: ties go to even */
    if (status != orbStsNoErr || sum[0] != 0 || sum[1] != 2 || sum[2] != 0) {
        fprintf(stderr, "wrong sums %d %d %d, %s\n", sum[0], sum[1], sum[2], orbGetStatusString(status));
        return 1;
    }
    if (strcmp(orbsGetLibVersion()->Version, "5.2") != 0) {
        fprintf(stderr, "wrong version %s\n", orbsGetLibVersion()->Version);
        return 1;
    }
    return 0;
}
