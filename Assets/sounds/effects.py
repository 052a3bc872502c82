#!/usr/bin/python3
"""Makes the effects of Data/Sounds with numpy, and hands them to encode.py. Each is a few struck or bowed partials.

All are mono, 44100 Hz; a function gives samples from -1 to 1, whose peak encode.py sets to the level beside its name.
"""
import numpy

RATE = 44100


def seconds(length):
    return numpy.arange(int(length * RATE)) / RATE


def noise(length, seed):
    return numpy.random.default_rng(seed).standard_normal(int(length * RATE))


def low_pass(signal, frequency):
    """One pole, run twice."""
    keep = numpy.exp(-2 * numpy.pi * frequency / RATE)
    for _ in range(2):
        out = numpy.empty_like(signal)
        last = 0.0
        for i, value in enumerate(signal):
            last = (1 - keep) * value + keep * last
            out[i] = last
        signal = out
    return signal


def struck(length, partials):
    """Partials that ring out after a blow: (frequency in Hz, amplitude, time to fall to 1/e in seconds)."""
    time = seconds(length)
    return sum(a * numpy.sin(2 * numpy.pi * f * time) * numpy.exp(-time / fall) for f, a, fall in partials)


def blow(length, frequency, fall, seed):
    """The short rustle of a mallet on wood."""
    return low_pass(noise(length, seed), frequency) * numpy.exp(-seconds(length) / fall)


def placed(length, *parts):
    """Parts, each at its time in seconds, in one sound."""
    out = numpy.zeros(int(length * RATE))
    for at, part in parts:
        first = int(at * RATE)
        part = part[:len(out) - first]
        out[first:first + len(part)] += part
    return out


def hover():
    return struck(0.09, [(1180, 1.0, 0.012), (2710, 0.35, 0.006), (4300, 0.12, 0.003)]) + 0.6 * blow(0.09, 3500, 0.004, 1)


def click():
    wood = struck(0.22, [(392, 1.0, 0.035), (815, 0.7, 0.022), (1490, 0.4, 0.012), (2600, 0.2, 0.006)])
    return wood + 1.2 * blow(0.22, 2200, 0.006, 2)


def check():
    high = struck(0.12, [(988, 1.0, 0.02), (2230, 0.4, 0.01)]) + 0.5 * blow(0.12, 3000, 0.004, 3)
    low = struck(0.12, [(740, 0.7, 0.02), (1670, 0.3, 0.01)])
    return placed(0.2, (0.0, low), (0.055, high))


def slide():
    return struck(0.05, [(1560, 0.8, 0.007), (3300, 0.3, 0.004)]) + 0.4 * blow(0.05, 4500, 0.003, 4)


def key():
    return struck(0.08, [(620, 0.8, 0.012), (1900, 0.4, 0.006)]) + 0.9 * blow(0.08, 3800, 0.006, 5)


def bell(frequency):
    return struck(1.3, [(frequency, 1.0, 0.42), (frequency * 2.76, 0.32, 0.2), (frequency * 5.4, 0.12, 0.08)])


def dialog():
    """Three little bells, a rising fourth and third."""
    return placed(1.5, (0.0, 0.7 * bell(783.99)), (0.09, 0.8 * bell(1046.5)), (0.18, bell(1318.51)))


def denied():
    """Two low hollow knocks, the second deeper."""
    def hollow(frequency):
        return struck(0.25, [(frequency, 1.0, 0.06), (frequency * 1.51, 0.6, 0.04), (frequency * 2.32, 0.3, 0.02)])
    rustle = 0.8 * blow(0.25, 900, 0.012, 6)
    return placed(0.45, (0.0, hollow(207.65) + rustle), (0.13, hollow(174.61) + rustle))


def bee():
    """A bee in flight, four seconds that loop: all its slow waves fit the length a whole number of times."""
    length = 4.0
    time = seconds(length)
    turn = 2 * numpy.pi * time / length
    pitch = 205 + 14 * numpy.sin(3 * turn) + 6 * numpy.sin(7 * turn + 1)  # the mean fits the length: 820 periods
    phase = 2 * numpy.pi * numpy.cumsum(pitch) / RATE
    wings = sum(numpy.sin(n * phase) / n ** 0.9 for n in range(1, 16))
    nearness = 0.62 + 0.25 * numpy.sin(turn) + 0.12 * numpy.sin(5 * turn + 2)
    flutter = 1 + 0.2 * numpy.sin(88 * turn)
    return wings * nearness * flutter


EFFECTS = {  # name in Data/Sounds: (maker, peak in dB below full scale)
    "hover": (hover, -14),
    "click": (click, -8),
    "check": (check, -9),
    "slide": (slide, -15),
    "type": (key, -13),
    "dialog": (dialog, -9),
    "denied": (denied, -7),
    "bee": (bee, -12),
}


def make(name):
    """The samples of one effect, at its level, with ends that fade so that nothing clicks."""
    maker, level = EFFECTS[name]
    samples = maker()
    samples = samples * (10 ** (level / 20) / numpy.abs(samples).max())
    if name != "bee":
        fade = min(len(samples) // 5, RATE // 50)
        samples[-fade:] *= numpy.linspace(1, 0, fade)
    return samples
