"""How a piece is written: tunes as text, chords by name, and the voices that play them.

A tune is written as text: "g4:1.5 a4:.5 -:1 | ..." is note and length in beats, "-" a rest, "|" for the eye alone.
Chords are one name a bar.
"""
import random

import numpy

STEPS = {"c": 0, "d": 2, "e": 4, "f": 5, "g": 7, "a": 9, "b": 11}
QUALITIES = {"": (0, 4, 7), "m": (0, 3, 7), "7": (0, 4, 7, 10), "m7": (0, 3, 7, 10), "maj7": (0, 4, 7, 11),
             "sus": (0, 5, 7)}

DRUMS = 9  # the channel of what has no pitch


def key_of(name):
    step = STEPS[name[0]] + name.count("#") - name[1:].count("b")
    return step + 12 * (int(name[-1]) + 1)


def tune(text):
    """(beat, length, key or None) of a line of text, and its whole length."""
    beat, out = 0.0, []
    for word in text.replace("|", " ").split():
        name, length = word.split(":")
        out.append((beat, float(length), None if name == "-" else key_of(name)))
        beat += float(length)
    return out, beat


def chord(name):
    """The root, from C up to B, and the steps above it."""
    root = name[:2] if name[1:2] in ("#", "b") else name[:1]
    return (STEPS[root[0].lower()] + root.count("#") - root.count("b")) % 12, QUALITIES[name[len(root):]]


def nearest(pitch_class, low):
    """The lowest key of that name at or above a key."""
    return low + (pitch_class - low) % 12


class Score:
    """Writes voices into a piece with a player's small unevenness.

    @param bar   beats of a bar
    @param half  the beat of the bar on which the bass plays again: the middle of four, the third of three if not told
    """

    def __init__(self, piece, bar, seed, half=None):
        self.piece = piece
        self.bar = bar
        self.half = half
        self.chance = random.Random(seed)

    def play(self, channel, beat, length, key, velocity):
        at = beat + self.chance.gauss(0, 0.008)
        self.piece.note(channel, max(0.0, at), length, key, velocity + self.chance.gauss(0, 3))

    def melody(self, channel, bar, text, velocity, up=0):
        """A phrase swells to its middle and falls; the first beat of a bar weighs more."""
        notes, whole = tune(text)
        for beat, length, key in notes:
            if key is None:
                continue
            swell = 9 * numpy.sin(numpy.pi * (beat % (whole / 2)) / (whole / 2))
            accent = 5 if beat % self.bar == 0 else 0
            self.play(channel, bar * self.bar + beat, length * 0.94, key + up, velocity + swell + accent)

    def plucked(self, channel, bar, chords, pattern, low, velocity):
        """Broken chords: the pattern gives the place of each note in the chord, spread evenly over the bar."""
        step = self.bar / len(pattern)
        for i, name in enumerate(chords):
            root, steps = chord(name)
            base = nearest(root, low)
            keys = [base + s + 12 * octave for octave in range(3) for s in steps[:3]]
            for j, place in enumerate(pattern):
                if place is not None:
                    weight = 8 if j == 0 else -2 if j % 2 else 0
                    self.play(channel, (bar + i) * self.bar + j * step, step * 2.2, keys[place], velocity + weight)

    def held(self, channel, bar, chords, low, velocity):
        """Chords in close position, each voice near where it was; equal neighbours are tied."""
        for i, name in enumerate(chords):
            root, steps = chord(name)
            for s in steps:
                self.play(channel, (bar + i) * self.bar, self.bar * 0.99, nearest((root + s) % 12, low), velocity)

    def bass(self, channel, bar, chords, low, velocity, halves):
        """The root at the bar's head and the fifth behind, or the root alone."""
        for i, name in enumerate(chords):
            root = nearest(chord(name)[0], low)
            at = (bar + i) * self.bar
            if halves:
                second = self.half or (self.bar / 2 if self.bar == 4 else 2)
                self.play(channel, at, second * 0.9, root, velocity)
                self.play(channel, at + second, (self.bar - second) * 0.9, nearest((root + 7) % 12, low), velocity - 9)
            else:
                self.play(channel, at, self.bar * 0.95, root, velocity)

    def drums(self, bar, bars, hits, velocity):
        """Hits are (beat, key, velocity above or below)."""
        for i in range(bars):
            for beat, key, weight in hits:
                self.play(DRUMS, (bar + i) * self.bar + beat, 0.2, key, velocity + weight)
