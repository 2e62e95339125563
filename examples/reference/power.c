/* Magnitudes, phases and powers of a spectrum's bins. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32fc bins[3] = {{5, 0}, {3, 4}, {-1, 1}};
    Orb32f magnitude[3], phase[3], power[3];
    orbsMagnitude_32fc(bins, magnitude, 3);
    orbsPhase_32fc(bins, phase, 3);
    orbsPowerSpectr_32fc(bins, power, 3);
    for (int k = 0; k < 3; ++k) printf("%.4f %.4f %g\n", magnitude[k], phase[k], power[k]);
    return 0;
}

/*
5.0000 0.0000 25
5.0000 0.9273 25
1.4142 2.3562 2
*/
