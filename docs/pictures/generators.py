"""What the generators make: a tone, a triangle wave and an asymmetric one, a chirp, uniform and Gaussian noise.

orbsTone_Direct_32f orbsTriangle_Direct_32f orbsVectorJaehne_32f orbsRandUniform_Direct_32f orbsRandGauss_Direct_32f
"""
import orbs

SIZE = (8, 4.2)
LENGTH = 200


def draw(figure):
    made = {
        "Tone_Direct": orbs.Tone_Direct_32f(1, 0.02, n=LENGTH)[0],
        "Triangle_Direct": orbs.Triangle_Direct_32f(1, 0.02, 0, n=LENGTH)[0],
        "Triangle_Direct, asym 2.5": orbs.Triangle_Direct_32f(1, 0.02, 2.5, n=LENGTH)[0],
        "VectorJaehne": orbs.VectorJaehne_32f(1, n=LENGTH),
        "RandUniform, -1 to 1": orbs.RandUniform_Direct_32f(-1, 1, 1, n=LENGTH)[0],
        "RandGauss, deviation 0.3": orbs.RandGauss_Direct_32f(0, 0.3, 1, n=LENGTH)[0],
    }
    for number, (place, (name, samples)) in enumerate(zip(figure.subplots(2, 3, sharex=True, sharey=True).flat, made.items())):
        place.plot(samples, color=f"C{number}", linewidth=1)
        place.set(title=name, ylim=(-1.2, 1.2))
