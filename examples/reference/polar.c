/* Magnitude and phase at once, and back. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32fc z[2] = {{3, 4}, {0, -2}};
    Orb32f magnitude[2], phase[2];
    Orb32fc back[2];
    orbsCartToPolar_32fc(z, magnitude, phase, 2);
    orbsPolarToCart_32fc(magnitude, phase, back, 2);
    for (int n = 0; n < 2; ++n)
        printf("%g, %.4f rad: %.3f %+.3fi\n", magnitude[n], phase[n], back[n].re,
               back[n].im);
    return 0;
}

/*
5, 0.9273 rad: 3.000 +4.000i
2, -1.5708 rad: -0.000 -2.000i
*/
