"""The pieces of Data/Music: their notes, and how they become sound.

Most go AABA, and each return of a phrase brings another voice.
"""
import os
import subprocess
import tempfile
import wave

import numpy

import midi
from score import DRUMS, Score

SOUND_FONT = "/usr/share/sounds/sf2/FluidR3_GM.sf2"
RATE = 44100

FLUTE, OBOE, HARP, GUITAR, STRINGS, CELLO, BASS, CLARINET = 0, 1, 2, 3, 4, 5, 6, 7


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


def islands():
    """A barcarole in F, six quavers a bar: the harp rocks, a horn sings, then the flute, then both."""
    piece = midi.Piece(tempo=96, beats=3 * 40)
    piece.part(FLUTE, 73, 84, 78)
    piece.part(OBOE, 60, 78, 46)  # a horn
    piece.part(HARP, 46, 92, 60)
    piece.part(GUITAR, 11, 34, 90)  # a vibraphone, far off
    piece.part(STRINGS, 48, 62, 64, 90)
    piece.part(CELLO, 42, 66, 50)
    piece.part(BASS, 32, 70, 64, 30)
    piece.part(CLARINET, 71, 78, 70)
    piece.part(DRUMS, 0, 38, 64, 70)
    score = Score(piece, 3, 17, half=1.5)

    begin = "c5:1 f5:.5 a5:1 g5:.5 | f5:1.5 d5:1.5 | d5:1 f5:.5 bb5:1 a5:.5 | g5:2.5 -:.5 | "
    a = begin + "a5:1 g5:.5 f5:1 e5:.5 | d5:1.5 f5:1 d5:.5 | c5:1 d5:.5 e5:1 f5:.5 | g5:2.5 -:.5"
    a_end = begin + "a5:1 g5:.5 f5:1 e5:.5 | d5:1.5 bb5:1 a5:.5 | g5:1 a5:.5 g5:1 e5:.5 | f5:2.5 -:.5"
    b = ("f5:1 e5:.5 d5:1 e5:.5 | f5:1.5 a5:1.5 | g5:1 f5:.5 e5:1 f5:.5 | g5:1.5 c6:1.5 |"
         "a5:1 g5:.5 f5:1 g5:.5 | a5:1.5 d6:1.5 | c6:1 bb5:.5 a5:1 f5:.5 | g5:2.5 -:.5")
    chords_a = ["F", "Dm", "Bb", "C", "Dm", "Bb", "C", "C7"]
    chords_end = ["F", "Dm", "Bb", "C", "Dm", "Bb", "C7", "F"]
    chords_b = ["Dm", "F", "C", "C", "F", "Dm", "F", "C7"]
    under = "a4:3 | f4:3 | f4:3 | e4:3 | f4:3 | f4:3 | e4:1.5 g4:1.5 | a4:3"
    rock = [0, 2, 3, 4, 3, 2]

    plan = [(4, chords_a, a), (12, chords_end, a_end), (20, chords_b, b), (28, chords_end, a_end)]
    for bar, chords, text in [(0, ["F", "Bb", "F", "C7"], None), *plan, (36, ["F", "Bb", "C7", "F"], None)]:
        score.plucked(HARP, bar, chords, rock, 41, 66)
        score.bass(BASS, bar, chords, 29, 58, halves=4 <= bar < 36)
        score.held(STRINGS, bar, chords, 53, 44 if bar < 12 or bar == 36 else 54)
        if bar >= 12:
            score.plucked(GUITAR, bar, chords, [None, None, 5, None, None, 4], 53, 48)
            score.drums(bar, len(chords), [(0, 81, -8), (1.5, 70, -14)], 44)
        if bar == 4:
            score.melody(OBOE, bar, text, 70, up=-12)
        elif bar == 12:
            score.melody(FLUTE, bar, text, 76)
            score.bass(CELLO, bar, chords, 41, 50, halves=False)
        elif bar == 20:
            score.melody(CLARINET, bar, text, 74, up=-12)
            score.bass(CELLO, bar, chords, 41, 52, halves=False)
        elif bar == 28:
            score.melody(FLUTE, bar, text, 78)
            score.melody(OBOE, bar, under, 56)
            score.melody(CLARINET, bar, text, 56, up=-12)
    score.melody(HARP, 36, "a5:1 g5:.5 f5:1.5 | d5:1.5 f5:1.5 | e5:1 g5:.5 c6:1.5 | a5:2.5 -:.5", 62)
    return piece


def meadow():
    """A stroll in C, four beats a bar: pizzicato steps, a bassoon that knows better, a recorder."""
    piece = midi.Piece(tempo=104, beats=4 * 32)
    piece.part(FLUTE, 74, 80, 76)  # a recorder
    piece.part(OBOE, 68, 66, 50)
    piece.part(HARP, 45, 86, 44)  # pizzicato
    piece.part(GUITAR, 24, 66, 90)
    piece.part(STRINGS, 48, 50, 64, 80)
    piece.part(CELLO, 70, 70, 54)  # a bassoon
    piece.part(BASS, 32, 82, 64, 30)
    piece.part(CLARINET, 71, 80, 66)
    piece.part(DRUMS, 0, 46, 64, 40)
    score = Score(piece, 4, 23)

    begin = ("g5:.5 e5:.5 c5:1 e5:.5 g5:.5 a5:1 | g5:1 e5:1 c5:1 -:1 | f5:.5 d5:.5 b4:1 d5:.5 f5:.5 g5:1 |"
             "e5:1.5 f5:.5 g5:1 -:1 | g5:.5 e5:.5 c5:1 e5:.5 g5:.5 c6:1 | b5:1 a5:1 f5:1 -:1 | ")
    a = begin + "e5:.5 d5:.5 c5:.5 d5:.5 e5:1 f#5:1 | g5:2 -:2"
    a_end = begin + "g5:.5 f5:.5 e5:.5 d5:.5 e5:.5 c5:.5 d5:.5 b4:.5 | c5:2 -:2"
    b = ("a5:1 e5:.5 c5:.5 a5:1 b5:1 | c6:1 b5:.5 a5:.5 g5:2 | f5:1 a5:.5 f5:.5 e5:1 g5:1 | d5:1.5 e5:.5 d5:2 |"
         "a5:1 e5:.5 c5:.5 a5:1 b5:1 | c6:1 d6:.5 c6:.5 b5:1 g5:1 | a5:1 f5:1 d5:1 f5:1 | g5:3 -:1")
    answer = "-:3 g3:.5 a3:.5 | c4:1 -:3 | -:3 g3:.5 a3:.5 | c4:1 g3:1 c3:1 -:1 |"
    answers = answer + "-:3 c4:.5 d4:.5 | f4:1 c4:1 a3:1 -:1 | -:2 g3:1 f3:1 | e3:1 g3:1 c3:1 -:1"
    chords_a = ["C", "C", "G7", "C", "C", "F", "C", "G"]
    chords_end = ["C", "C", "G7", "C", "C", "F", "G7", "C"]
    chords_b = ["Am", "C", "F", "G", "Am", "C", "Dm", "G7"]
    steps = [None, 3, None, 4, None, 3, None, 4]

    for bar, chords, text in [(0, chords_a, a), (8, chords_end, a_end), (16, chords_b, b), (24, chords_end, a_end)]:
        score.bass(BASS, bar, chords, 31, 64, halves=True)
        score.plucked(HARP, bar, chords, steps, 48, 60)
        if bar == 0:
            score.melody(CLARINET, bar, text, 72, up=-12)
        elif bar == 8:
            score.melody(FLUTE, bar, text, 74)
            score.melody(CELLO, bar, answers, 66)
        elif bar == 16:
            score.melody(OBOE, bar, text, 70, up=-12)
            score.melody(CELLO, bar, "a3:4 | g3:4 | f3:2 c4:2 | b3:4 | a3:4 | e3:2 g3:2 | d3:2 f3:2 | g3:3 -:1", 58)
        else:
            score.melody(FLUTE, bar, text, 76)
            score.melody(CLARINET, bar, text, 58, up=-12)
            score.melody(CELLO, bar, answers, 66)
        if bar >= 8:
            score.plucked(GUITAR, bar, chords, [0, None, 3, 2, None, 3, 2, None], 48, 50)
            score.drums(bar, 8, [(1, 70, -10), (2.5, 70, -20), (3, 70, -12)], 46)
        if bar >= 16:
            score.held(STRINGS, bar, chords, 55, 48)
    return piece


def harbour():
    """A jig on A, six quavers a bar: flute and guitar, a fiddle, then the accordion."""
    piece = midi.Piece(tempo=138, beats=3 * 64)
    piece.part(FLUTE, 73, 80, 76)
    piece.part(OBOE, 40, 70, 50)  # a fiddle
    piece.part(HARP, 46, 66, 44)
    piece.part(GUITAR, 24, 88, 86)
    piece.part(STRINGS, 48, 52, 64, 80)
    piece.part(CELLO, 42, 60, 54)
    piece.part(BASS, 32, 80, 64, 30)
    piece.part(CLARINET, 21, 62, 70)  # an accordion
    piece.part(DRUMS, 0, 50, 64, 50)
    score = Score(piece, 3, 31, half=1.5)

    a = ("a4:.5 b4:.5 c5:.5 e5:1 d5:.5 | c5:.5 b4:.5 a4:.5 e5:1.5 | g4:.5 a4:.5 b4:.5 d5:1 c5:.5 |"
         "b4:.5 a4:.5 g4:.5 d5:1.5 | a4:.5 b4:.5 c5:.5 e5:1 d5:.5 | e5:.5 f#5:.5 g5:.5 a5:1 g5:.5 |"
         "e5:.5 d5:.5 c5:.5 b4:1 g4:.5 | a4:1.5 a4:1 -:.5")
    b = ("a5:1 g5:.5 a5:1 e5:.5 | g5:1 e5:.5 d5:1.5 | c5:.5 d5:.5 e5:.5 g5:1 e5:.5 | d5:1 b4:.5 g4:1.5 |"
         "a5:1 g5:.5 a5:1 b5:.5 | c6:.5 b5:.5 a5:.5 g5:1 e5:.5 | d5:.5 e5:.5 d5:.5 c5:.5 b4:.5 g4:.5 | a4:2.5 -:.5")
    chords_a = ["Am", "Am", "G", "G", "Am", "Em", "G", "Am"]
    chords_b = ["Am", "G", "C", "G", "Am", "C", "G", "Am"]
    strum = [0, None, 3, 4, None, 3]

    plan = [(chords_a, a, "flute"), (chords_a, a, "fiddle"), (chords_b, b, "box"), (chords_b, b, "all"),
            (chords_a, a, "box"), (chords_b, b, "flute"), (chords_b, b, "fiddle"), (chords_a, a, "all")]
    for i, (chords, text, who) in enumerate(plan):
        bar = 8 * i
        score.plucked(GUITAR, bar, chords, strum, 45, 60)
        score.bass(BASS, bar, chords, 31, 62, halves=True)
        if who in ("flute", "all"):
            score.melody(FLUTE, bar, text, 72, up=0 if text is b else 12)
        if who in ("fiddle", "all"):
            score.melody(OBOE, bar, text, 64)
        if who in ("box", "all"):
            score.melody(CLARINET, bar, text, 66 if who == "box" else 52, up=0 if who == "box" else -12)
        if i >= 1:
            score.drums(bar, 8, [(0, 64, -4), (1, 63, -18), (1.5, 64, -10), (2.5, 63, -16)], 46)
        if i >= 2:
            score.held(STRINGS, bar, chords, 52, 42 if i < 6 else 50)
        if who == "all":
            score.plucked(HARP, bar, chords, [None, None, 6, None, None, 7], 45, 52)
    return piece


def dusk():
    """A slow air in E minor, four beats a bar, for lands where somebody watches: oboe, flute, strings, far drums."""
    piece = midi.Piece(tempo=76, beats=4 * 24)
    piece.part(FLUTE, 73, 80, 76)
    piece.part(OBOE, 68, 76, 54)
    piece.part(HARP, 46, 84, 44)
    piece.part(GUITAR, 24, 74, 88)
    piece.part(STRINGS, 48, 66, 64, 90)
    piece.part(CELLO, 42, 82, 58)
    piece.part(BASS, 32, 72, 64, 30)
    piece.part(CLARINET, 71, 72, 72)
    piece.part(DRUMS, 0, 58, 64, 90)
    score = Score(piece, 4, 41)

    a = "e4:1.5 f#4:.5 g4:2 | b4:1.5 a4:.5 f#4:2 | g4:1 a4:1 b4:1 d5:1 | b4:3 -:1"
    a_end = "c5:1.5 b4:.5 a4:2 | b4:1.5 a4:.5 g4:2 | a4:1 g4:1 f#4:1 d#4:1 | e4:3 -:1"
    b = ("g5:1.5 f#5:.5 e5:2 | f#5:1 d5:1 a4:2 | e5:1.5 d5:.5 c5:2 | d5:1 b4:1 g4:2 |"
         "a4:1 b4:1 c5:1 e5:1 | d5:1.5 c5:.5 b4:2 | c5:1 b4:1 a4:1 f#4:1 | b4:3 -:1")
    chords_a, chords_end = ["Em", "Bm", "G", "Em"], ["Am", "Em", "B7", "Em"]
    chords_b = ["C", "D", "Am", "G", "Am", "G", "Am", "B7"]
    roll = [0, 2, 3, 5, 4, 3, 2, 3]

    plan = [(0, chords_a, a), (4, chords_end, a_end), (8, chords_b, b), (16, chords_a, a), (20, chords_end, a_end)]
    for bar, chords, text in plan:
        score.plucked(HARP, bar, chords, roll, 40, 58)
        score.bass(BASS, bar, chords, 28, 58, halves=bar >= 8)
        score.held(STRINGS, bar, chords, 52, 44 if bar < 8 else 54)
        if bar < 8:
            score.melody(OBOE, bar, text, 70)
        elif bar < 16:
            score.melody(FLUTE, bar, text, 72)
            score.melody(CLARINET, bar, "e4:4 | d4:4 | c4:4 | b3:4 | c4:4 | b3:4 | a3:4 | b3:2 d#4:2", 54)
            score.bass(CELLO, bar, chords, 40, 54, halves=False)
        else:
            score.melody(CELLO, bar, text, 76)
            score.melody(FLUTE, bar, text, 58, up=12)
        if bar >= 4:
            score.drums(bar, len(chords), [(0, 41, -6), (2, 41, -16), (3.5, 41, -22)], 50)
        if bar >= 8:
            score.plucked(GUITAR, bar, chords, [None, 3, None, 4], 45, 48)
    return piece


PIECES = {"menu": ("Menu", menu), "game": ("Game", game), "islands": ("Islands", islands), "meadow": ("Meadow", meadow),
          "harbour": ("Harbour", harbour), "dusk": ("Dusk", dusk)}
RMS = -20.0  # dB below full scale, of all pieces
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
