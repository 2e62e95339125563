/* Three windows of seven points, as weights. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f ones[7] = {1, 1, 1, 1, 1, 1, 1};
    Orb32f hann[7], blackman[7], kaiser[7];
    orbsWinHann_32f(ones, hann, 7);
    orbsWinBlackmanStd_32f(ones, blackman, 7);
    orbsWinKaiser_32f(ones, kaiser, 7, 2);
    for (int n = 0; n < 7; ++n) printf("%.4f %.4f %.4f\n", hann[n], blackman[n], kaiser[n]);
    return 0;
}

/*
0.0000 0.0000 0.0149
0.2500 0.1300 0.2537
0.7500 0.6300 0.7319
1.0000 1.0000 1.0000
0.7500 0.6300 0.7319
0.2500 0.1300 0.2537
0.0000 0.0000 0.0149
*/
