"""The two pieces of Data/Music: their notes, and how they become sound.

A tune is written as text: "g4:1.5 a4:.5 -:1 | ..." is note and length in beats, "-" a rest, "|" for the eye alone.
Chords are one name a bar. Both pieces go AABA, and each return of a phrase brings another voice.
"""
import os
import random
import subprocess
import tempfile
import wave

import numpy

import midi

SOUND_FONT = "/usr/share/sounds/sf2/FluidR3_GM.sf2"
RATE = 44100
STEPS = {"c": 0, "d": 2, "e": 4, "f": 5, "g": 7, "a": 9, "b": 11}
QUALITIES = {"": (0, 4, 7), "m": (0, 3, 7), "7": (0, 4, 7, 10), "m7": (0, 3, 7, 10), "maj7": (0, 4, 7, 11),
             "sus": (0, 5, 7)}

FLUTE, OBOE, HARP, GUITAR, STRINGS, CELLO, BASS, CLARINET, DRUMS = 0, 1, 2, 3, 4, 5, 6, 7, 9


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
    """Writes voices into a piece with a player's small unevenness."""

    def __init__(self, piece, bar, seed):
        self.piece = piece
        self.bar = bar
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
                second = self.bar / 2 if self.bar == 4 else 2
                self.play(channel, at, second * 0.9, root, velocity)
                self.play(channel, at + second, (self.bar - second) * 0.9, nearest((root + 7) % 12, low), velocity - 9)
            else:
                self.play(channel, at, self.bar * 0.95, root, velocity)

    def drums(self, bar, bars, hits, velocity):
        """Hits are (beat, key, velocity above or below)."""
        for i in range(bars):
            for beat, key, weight in hits:
                self.play(DRUMS, (bar + i) * self.bar + beat, 0.2, key, velocity + weight)


def menu():
    """A country dance in G, three beats a bar: 8 bars of harp, then A A B A A of 8 bars each, fuller every time."""
    piece = midi.Piece(tempo=112, beats=3 * 48)
    piece.part(FLUTE, 73, 96, 74)
    piece.part(OBOE, 68, 74, 50)
    piece.part(HARP, 46, 88, 40)
    piece.part(GUITAR, 24, 82, 90)
    piece.part(STRINGS, 48, 58, 64, 80)
    piece.part(CELLO, 42, 72, 54)
    piece.part(BASS, 32, 80, 64, 30)
    piece.part(CLARINET, 71, 76, 84)
    piece.part(DRUMS, 0, 62, 64, 50)
    score = Score(piece, 3, 7)

    a = ("d5:1 g5:1.5 a5:.5 | b5:1.5 a5:.5 g5:1 | e5:1 g5:1 e5:1 | d5:2 b4:1 |"
         "c5:1 e5:1 g5:1 | f#5:1.5 e5:.5 d5:1 | {} ").format
    open_end, closed = a("e5:1.5 f#5:.5 g5:1 | a5:2 -:1"), a("a5:1 f#5:1 d5:1 | g5:2 -:1")
    b = ("b5:1.5 c6:.5 b5:1 | a5:1 g5:1 f#5:1 | g5:1.5 a5:.5 g5:1 | f#5:1 e5:1 d#5:1 |"
         "e5:1 g5:1 c6:1 | b5:1.5 a5:.5 g5:1 | a5:1 b5:1 c6:1 | d6:2 -:1")
    a_open = ["G", "G", "C", "G", "C", "D", "C", "D7"]
    a_closed = ["G", "G", "C", "G", "C", "D", "D7", "G"]
    b_chords = ["Em", "Am", "Em", "B7", "C", "G", "Am7", "D7"]
    counter_a = ("b4:3 | d5:2 b4:1 | c5:3 | b4:2 g4:1 | e4:1 g4:1 c5:1 | a4:3 | f#4:1 a4:1 c5:1 | b4:2 -:1")
    counter_b = ("g4:3 | c5:2 a4:1 | b4:3 | d#5:2 b4:1 | c5:3 | d5:2 b4:1 | c5:2 e5:1 | f#5:2 -:1")
    wave_up = [0, 2, 3, 4, 3, 2]

    sections = [  # first bar, chords, tune, who plays it
        (0, a_closed, None), (8, a_open, "flute"), (16, a_closed, "flute"), (24, b_chords, "clarinet"),
        (32, a_open, "both"), (40, a_closed, "both")]
    tunes = {8: open_end, 16: closed, 24: b, 32: open_end, 40: closed}
    for bar, chords, who in sections:
        score.plucked(HARP, bar, chords, wave_up, 48, 62 if bar else 68)
        score.bass(BASS, bar, chords, 31, 66, halves=bar >= 16)
        if who in ("flute", "both"):
            score.melody(FLUTE, bar, tunes[bar], 82)
        if who == "clarinet":
            score.melody(CLARINET, bar, tunes[bar], 80, up=-12)
            score.melody(FLUTE, bar, counter_b, 58, up=12)
        if who == "both":
            score.melody(OBOE, bar, counter_a if chords is a_closed else counter_a.replace(
                "f#4:1 a4:1 c5:1 | b4:2 -:1", "c5:1.5 d5:.5 e5:1 | f#5:2 -:1"), 70)
        if bar >= 16:
            score.held(STRINGS, bar, chords, 55, 52 if bar < 32 else 62)
            score.plucked(GUITAR, bar, chords, [None, 3, None, 4, None, 3], 52, 58)
        if bar >= 24:
            score.bass(CELLO, bar, chords, 43, 58, halves=False)
        if bar >= 8:
            score.drums(bar, 8, [(0, 54, -6), (1, 70, -18), (2, 70, -14), (2.5, 70, -24)], 54)
    # The harp alone plays the dance's first bars as an overture, an octave below the flute.
    score.melody(HARP, 4, "c5:1 e5:1 g5:1 | f#5:1.5 e5:.5 d5:1 | a4:1 f#4:1 d4:1 | g4:2 -:1", 74)
    return piece


def game():
    """A quiet walk in D, four beats a bar: guitar and clarinet first, then flute and strings."""
    piece = midi.Piece(tempo=80, beats=4 * 24)
    piece.part(FLUTE, 73, 84, 72)
    piece.part(OBOE, 68, 70, 52)
    piece.part(HARP, 46, 76, 44)
    piece.part(GUITAR, 24, 92, 84)
    piece.part(STRINGS, 48, 58, 64, 80)
    piece.part(CELLO, 42, 70, 56)
    piece.part(BASS, 32, 76, 64, 30)
    piece.part(CLARINET, 71, 86, 60)
    piece.part(DRUMS, 0, 44, 64, 50)
    score = Score(piece, 4, 11)

    a = "f#4:1.5 g4:.5 a4:2 | b4:1 a4:1 f#4:2 | g4:1.5 a4:.5 b4:1 g4:1 | a4:3 -:1"
    a_end = "f#4:1.5 g4:.5 a4:2 | b4:1 c#5:1 d5:2 | b4:1 g4:1 e4:1 f#4:1 | d4:3 -:1"
    b = ("d5:1.5 c#5:.5 b4:2 | c#5:1 b4:1 a4:2 | b4:1.5 a4:.5 g4:1 b4:1 | a4:3 f#4:1 |"
         "g4:1 b4:1 d5:2 | f#5:1.5 e5:.5 d5:2 | e5:1 d5:1 c#5:1 b4:1 | a4:3 -:1")
    chords_a = ["D", "Bm", "G", "A"]
    chords_end = ["D", "G", "Em7", "D"]
    chords_b = ["Bm", "A", "G", "D", "G", "Bm", "Em7", "A7"]
    roll = [0, 2, 3, 4, 5, 4, 3, 2]

    plan = [(0, chords_a, a), (4, chords_end, a_end), (8, chords_b, b), (16, chords_a, a), (20, chords_end, a_end)]
    for bar, chords, text in plan:
        score.plucked(GUITAR, bar, chords, roll, 45, 60)
        score.bass(BASS, bar, chords, 31, 60, halves=bar >= 8)
        if bar < 8:
            score.melody(CLARINET, bar, text, 74)
        elif bar < 16:
            score.melody(FLUTE, bar, text, 74)
            score.melody(OBOE, bar, "f#4:4 | e4:4 | g4:2 d4:2 | f#4:4 | d4:2 g4:2 | b4:4 | g4:4 | e4:2 c#4:2", 54)
        else:
            score.melody(FLUTE, bar, text, 76, up=12)
            score.melody(CLARINET, bar, "a4:4 | f#4:4 | d4:4 | e4:4" if chords is chords_a else
                         "a4:4 | g4:4 | g4:2 e4:2 | f#4:3 -:1", 58)
        if bar >= 4:
            score.held(STRINGS, bar, chords, 54, 46 if bar < 16 else 56)
        if bar >= 8:
            score.bass(CELLO, bar, chords, 38, 54, halves=False)
            score.plucked(HARP, bar, chords, [None, 6, None, 7], 45, 50)
        if bar >= 8:
            score.drums(bar, len(chords), [(1, 70, -10), (2.5, 70, -18), (3, 70, -10)], 46)
    return piece


PIECES = {"menu": ("Menu", menu), "game": ("Game", game)}
RMS = -20.0  # dB below full scale, of both pieces
PEAK = -1.5  # the most that a sample may reach


def render(piece):
    """The second of three passes: it begins with the first one's reverberation, as it ends.

    The player places notes in blocks of 64 samples, so the passes are not equal to the sample. For a loop without a seam
    the third pass' beginning, which goes on from the second's end, becomes the second's beginning.
    """
    with tempfile.TemporaryDirectory() as folder:
        score, sound = os.path.join(folder, "score.mid"), os.path.join(folder, "sound.wav")
        piece.write(score, passes=3)
        subprocess.run(["fluidsynth", "-ni", "-q", "-g", "0.5", "-r", str(RATE), "-o", "synth.chorus.active=0",
                        "-o", "synth.reverb.room-size=0.5", "-o", "synth.reverb.level=0.5", "-F", sound, SOUND_FONT,
                        score], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        with wave.open(sound) as file:
            frames = numpy.frombuffer(file.readframes(file.getnframes()), "<i2").reshape(-1, 2) / 32768.0
    length = round(piece.seconds * RATE)
    loop = frames[length:2 * length].copy()
    blend = RATE * 30 // 1000
    weight = numpy.linspace(0, 1, blend)[:, None]
    loop[:blend] = frames[2 * length:2 * length + blend] * (1 - weight) + loop[:blend] * weight
    return loop


def make(name):
    """The samples of one piece, levelled: to RMS, with what would stand out above PEAK rounded off."""
    samples = render(PIECES[name][1]())
    samples = samples * (10 ** (RMS / 20) / numpy.sqrt((samples ** 2).mean()))
    top = 10 ** (PEAK / 20)
    knee = top * 0.7
    over = numpy.abs(samples) > knee
    rounded = knee + (top - knee) * numpy.tanh((numpy.abs(samples) - knee) / (top - knee))
    return numpy.where(over, numpy.sign(samples) * rounded, samples)
