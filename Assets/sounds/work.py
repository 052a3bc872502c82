"""The sounds of a level: men at work, goods that come and go, things that go wrong. Made as those of effects.py are.

What a man does goes on for as long as he does it: these are loops, their tails wrapped round to the beginning.
"""
import numpy

from effects import RATE, blow, low_pass, noise, placed, seconds, struck


def looped(length, *parts):
    """Parts, each at its time in seconds, in a loop of that length: what rings beyond its end is heard at its start."""
    out = numpy.zeros(int(length * RATE))
    for at, part in parts:
        places = (int(at * RATE) + numpy.arange(len(part))) % len(out)
        numpy.add.at(out, places, part)
    return out


def swell(length, rise):
    """From 0 up to 1 and down again; rise is the part of the length after which it is loudest."""
    t = seconds(length) / length
    return numpy.where(t < rise, numpy.sin(0.5 * numpy.pi * t / rise), numpy.cos(0.5 * numpy.pi * (t - rise) / (1 - rise))) ** 2


def band(length, low, high, seed):
    """Noise between two frequencies, without hiss above them."""
    rough = low_pass(low_pass(noise(length, seed), high), high)
    return rough - low_pass(rough, low)


# Men at work ----------------------------------------------------------------------------------------------------------

def nail(pitch, seed):
    """A hammer on a nail in a plank."""
    wood = struck(0.30, [(210 * pitch, 1.0, 0.035), (455 * pitch, 0.7, 0.022), (980 * pitch, 0.3, 0.012)])
    return wood + struck(0.30, [(2350 * pitch, 0.22, 0.05), (3620 * pitch, 0.10, 0.03)]) + 1.6 * blow(0.30, 1500, 0.007, seed)


def building_upgrade():
    """Two hammers, a beat and a half apart."""
    return looped(1.84, (0.04, nail(1.0, 11)), (0.96, 0.85 * nail(1.04, 12)), (0.62, 0.45 * nail(0.84, 13)), (1.54, 0.5 * nail(0.86, 14)))


def build_road():
    """A spade in gravel, and a stone that is set."""
    dig = band(0.42, 500, 3200, 21) * swell(0.42, 0.25)
    stone = struck(0.25, [(730, 0.6, 0.02), (1210, 0.5, 0.014), (2050, 0.25, 0.008)]) + 1.2 * blow(0.25, 1800, 0.006, 22)
    pour = band(0.34, 900, 4200, 23) * swell(0.34, 0.15)
    return looped(1.42, (0.05, 1.4 * dig), (0.66, 0.7 * pour), (0.92, 0.5 * stone))


def mining_food():
    """The millstone goes round; its wood creaks once a turn."""
    length = 2.2
    turn = 2 * numpy.pi * seconds(length) / length
    edge = int(0.4 * RATE)
    rough = band(length + 0.4, 70, 420, 31)
    weight = numpy.linspace(0, 1, edge)
    joined = rough[:-edge].copy()
    joined[:edge] = joined[:edge] * weight ** 0.5 + rough[-edge:] * (1 - weight) ** 0.5
    rumble = joined * (1 + 0.35 * numpy.sin(3 * turn))
    t = seconds(0.30)
    creak = numpy.sin(2 * numpy.pi * (330 * t + 120 * t * t)) * (0.6 + 0.4 * numpy.sin(2 * numpy.pi * 46 * t)) * swell(0.30, 0.4)
    return rumble / numpy.abs(rumble).max() + looped(length, (0.5, 0.18 * creak), (1.55, 0.12 * creak))


def mining_wood():
    """A saw, there and back."""
    def stroke(length, low, high, seed):
        teeth = 1 + 0.5 * numpy.sin(2 * numpy.pi * 58 * seconds(length))
        return band(length, low, high, seed) * teeth * swell(length, 0.55)
    return looped(1.5, (0.05, stroke(0.62, 700, 3000, 41)), (0.80, 0.75 * stroke(0.58, 500, 2300, 42)))


def pick(pitch, seed):
    """A pick on rock, and chips that fall."""
    rock = struck(0.32, [(1320 * pitch, 0.7, 0.03), (2140 * pitch, 0.5, 0.022), (3370 * pitch, 0.25, 0.014), (480 * pitch, 0.5, 0.02)])
    chips = placed(0.32, *[(0.07 + 0.05 * i, 0.18 * blow(0.1, 4200, 0.006, seed + i)) for i in range(3)])
    return rock + 1.3 * blow(0.32, 2600, 0.006, seed) + chips


def mining_stone():
    return looped(1.84, (0.05, pick(1.0, 51)), (0.97, 0.85 * pick(0.94, 55)))


def mining_iron():
    """An anvil, struck and tapped, before the breath of the bellows."""
    def anvil(loud):
        return loud * (struck(0.9, [(1046, 0.6, 0.16), (1690, 0.4, 0.20), (2730, 0.3, 0.14), (4120, 0.12, 0.06)]) + placed(0.9, (0, 0.9 * blow(0.1, 2600, 0.005, 61))))
    breath = band(0.8, 120, 700, 62) * swell(0.8, 0.6)
    return looped(1.84, (0.04, anvil(0.7)), (0.42, anvil(0.25)), (0.80, 1.6 * breath))


# Goods and signs ------------------------------------------------------------------------------------------------------

def bar(frequency, fall=0.16):
    """A wooden bar of a marimba."""
    return struck(0.7, [(frequency, 1.0, fall), (frequency * 3.93, 0.22, fall * 0.3), (frequency * 9.2, 0.06, fall * 0.1)])


def new_resource():
    return placed(0.8, (0.0, 0.7 * bar(659.26)), (0.085, bar(987.77)))


def warehouse_full():
    """A full barrel, knocked at twice, and a falling third."""
    barrel = struck(0.3, [(164.8, 1.0, 0.07), (287, 0.5, 0.04), (520, 0.25, 0.02)]) + 0.8 * blow(0.3, 800, 0.01, 71)
    return placed(0.9, (0.0, barrel), (0.14, 0.9 * barrel), (0.28, 0.5 * bar(440.0)), (0.42, 0.5 * bar(349.23)))


def coin(frequency):
    return struck(0.5, [(frequency, 0.8, 0.12), (frequency * 1.52, 0.4, 0.08), (frequency * 2.41, 0.15, 0.04)])


def market_action():
    return placed(0.8, *[(at, loud * coin(pitch)) for at, loud, pitch in ((0, 0.8, 2350), (0.07, 0.6, 2790), (0.13, 0.9, 2110), (0.22, 0.5, 2980), (0.29, 0.7, 2510))])


def steal_item():
    """A quick hand in a sack."""
    rustle = band(0.26, 900, 5000, 81) * swell(0.26, 0.3)
    return placed(0.5, (0, rustle), (0.16, 0.35 * bar(587.33, 0.06)), (0.23, 0.3 * bar(466.16, 0.06)))


def next_level():
    """A call of bells: up a chord, the last one long."""
    def bell(frequency, fall):
        return struck(1.9, [(frequency, 1.0, fall), (frequency * 2.0, 0.35, fall * 0.6), (frequency * 2.76, 0.2, fall * 0.4)])
    return placed(2.0, *[(i * 0.12, loud * bell(f, 0.3 + 0.12 * i)) for i, (f, loud) in enumerate(((523.25, 0.6), (659.26, 0.65), (783.99, 0.7), (1046.5, 0.9)))])


def destroy():
    """Timber and stone come down."""
    boom = low_pass(noise(1.4, 91), 160) * numpy.exp(-seconds(1.4) / 0.30) * 5
    rubble = [(0.06 + 0.09 * i, (0.9 - 0.08 * i) * (blow(0.3, 1500 - 90 * i, 0.03, 92 + i) + 0.3 * struck(0.3, [(310 + 37 * (i * 5 % 7), 0.6, 0.03)]))) for i in range(9)]
    return placed(1.5, (0, boom), *rubble)


def friend_falls():
    """A slip and a soft landing."""
    t = seconds(0.25)
    slip = numpy.sin(2 * numpy.pi * (620 * t - 900 * t * t)) * swell(0.25, 0.3)
    thud = struck(0.3, [(96, 1.0, 0.06), (150, 0.5, 0.04)]) + 1.2 * blow(0.3, 500, 0.02, 99)
    return placed(0.7, (0, 0.35 * slip), (0.22, thud), (0.36, 0.4 * thud))


# The caravan and its flags --------------------------------------------------------------------------------------------

def cowbell(frequency):
    return struck(0.5, [(frequency, 1.0, 0.09), (frequency * 1.47, 0.7, 0.07), (frequency * 2.36, 0.25, 0.04)])


def caravan_coming():
    """Bells of the ox in its step, wheels over planks under them."""
    wheels = band(2.6, 90, 500, 101) * (1 + 0.6 * numpy.sin(2 * numpy.pi * 5 * seconds(2.6))) * swell(2.6, 0.35)
    bells = [(0.25 + 0.42 * i, (0.7 - 0.08 * i) * cowbell(620 if i % 2 else 560)) for i in range(5)]
    return placed(2.8, (0, 0.8 * wheels / numpy.abs(wheels).max()), *bells)


def caravan_load():
    """Canvas is rolled back, and a board falls open."""
    canvas = band(0.9, 500, 3500, 102) * swell(0.9, 0.5)
    board = struck(0.3, [(190, 1.0, 0.06), (331, 0.5, 0.04)]) + 0.9 * blow(0.3, 900, 0.012, 103)
    return placed(1.5, (0, 0.7 * canvas / numpy.abs(canvas).max()), (0.92, board), (1.08, 0.4 * board), (0.3, 0.3 * cowbell(600)))


def horn(frequency, length):
    """A note of a brass horn."""
    t = seconds(length)
    breath = numpy.minimum(1, t / 0.03) * numpy.minimum(1, (length - t) / 0.08)
    waver = 1 + 0.004 * numpy.sin(2 * numpy.pi * 5.5 * t)
    return breath * sum(numpy.sin(2 * numpy.pi * frequency * k * t * waver) * loud for k, loud in ((1, 1.0), (2, 0.6), (3, 0.42), (4, 0.22), (5, 0.12), (6, 0.06)))


def fanfare(length, notes):
    return placed(length, *[(at, loud * horn(pitch, lasts)) for at, pitch, lasts, loud in notes])


def silver_fanfar():
    return fanfare(1.7, [(0, 392.0, 0.2, 0.6), (0.2, 523.25, 0.2, 0.7), (0.4, 659.26, 1.1, 0.8), (0.4, 523.25, 1.1, 0.45)])


def gold_fanfar():
    return fanfare(2.5, [(0, 392.0, 0.16, 0.6), (0.17, 523.25, 0.16, 0.65), (0.34, 659.26, 0.16, 0.7), (0.51, 783.99, 0.42, 0.85), (0.95, 659.26, 0.18, 0.7),
                         (1.15, 783.99, 1.2, 0.9), (1.15, 659.26, 1.2, 0.5), (1.15, 523.25, 1.2, 0.5)])


def gold_missed():
    return placed(1.1, (0, 0.7 * bar(783.99)), (0.18, 0.7 * bar(659.26)), (0.40, 0.8 * bar(493.88, 0.3)))


def silver_missed():
    return placed(1.2, (0, 0.7 * bar(523.25)), (0.20, 0.7 * bar(415.3)), (0.44, 0.8 * bar(311.13, 0.34)))


# The enemy, idols and catapults ---------------------------------------------------------------------------------------

def enemy_run():
    """Feet on hard ground, two of them, and something that jingles at a belt."""
    def step(seed):
        return struck(0.2, [(118, 1.0, 0.03), (210, 0.5, 0.02)]) + 0.9 * blow(0.2, 900, 0.012, seed)
    steps = [(0.04 + 0.23 * i, (1.0 if i % 2 else 0.8) * step(121 + i)) for i in range(4)]
    jingle = [(0.10 + 0.46 * i, 0.10 * coin(3100 + 240 * i)) for i in range(2)]
    return looped(0.92, *steps, *jingle)


def destroy_road():
    """A crowbar between cobbles, and stones that roll aside."""
    bar_in = struck(0.5, [(870, 0.5, 0.06), (1390, 0.35, 0.05), (2300, 0.15, 0.03)]) + 1.2 * blow(0.5, 2000, 0.008, 131)
    scrape = band(0.4, 600, 3000, 132) * swell(0.4, 0.7)
    stones = [(0.78 + 0.11 * i, (0.5 - 0.1 * i) * struck(0.2, [(640 - 60 * i, 0.7, 0.02), (1130, 0.4, 0.014)])) for i in range(4)]
    return looped(1.42, (0.04, bar_in), (0.34, 0.9 * scrape), *stones)


def enemy_pray():
    """A low song on two notes, mouths half shut."""
    def hum(frequency, length):
        t = seconds(length)
        waver = 1 + 0.006 * numpy.sin(2 * numpy.pi * 4.5 * t)
        tone = sum(numpy.sin(2 * numpy.pi * frequency * k * t * waver) * loud for k, loud in ((1, 1.0), (2, 0.5), (3, 0.16), (4, 0.08)))
        return tone * swell(length, 0.3)
    voices = [(at, loud * hum(pitch, lasts)) for at, pitch, lasts, loud in
              ((0.0, 110.0, 1.7, 1.0), (0.03, 164.81, 1.7, 0.5), (1.5, 98.0, 1.6, 0.9), (1.52, 146.83, 1.6, 0.45))]
    return looped(3.16, *voices)


def take_idol():
    """Stone grinds on stone and comes off; a hollow tone stays."""
    grind = band(0.9, 90, 900, 141) * (1 + 0.5 * numpy.sin(2 * numpy.pi * 13 * seconds(0.9))) * swell(0.9, 0.8)
    hollow = struck(1.1, [(146.8, 1.0, 0.3), (220.0, 0.6, 0.25), (293.7, 0.35, 0.2), (466.2, 0.2, 0.12)])
    return placed(2.0, (0, 1.1 * grind / numpy.abs(grind).max()), (0.86, hollow))


def shot():
    """The arm of the catapult strikes its beam; the stone is off."""
    beam = struck(0.5, [(92, 1.0, 0.10), (171, 0.8, 0.06), (330, 0.4, 0.04), (705, 0.2, 0.02)]) + 1.3 * blow(0.5, 700, 0.02, 151)
    rope = band(0.16, 300, 1600, 152) * swell(0.16, 0.8)
    away = band(0.7, 400, 2200, 153) * swell(0.7, 0.2)
    return placed(1.1, (0, 0.7 * rope), (0.12, beam), (0.16, 0.5 * away))


def charged():
    """A stone rolls into its bowl, and the ratchet holds."""
    stone = struck(0.4, [(138, 1.0, 0.06), (255, 0.6, 0.04), (610, 0.2, 0.02)]) + 0.9 * blow(0.4, 800, 0.02, 161)
    tooth = struck(0.1, [(1450, 0.7, 0.012), (2380, 0.5, 0.008)]) + 0.6 * blow(0.1, 2600, 0.003, 162)
    return placed(0.9, (0, stone), (0.17, 0.5 * stone), *[(0.34 + 0.11 * i, 0.7 * tooth) for i in range(4)])


WORK = {  # name in Data/Sounds: (maker, peak in dB below full scale, whether it goes round)
    "building_upgrade": (building_upgrade, -14, True),
    "build_road": (build_road, -16, True),
    "mining_food": (mining_food, -17, True),
    "mining_wood": (mining_wood, -15, True),
    "mining_stone": (mining_stone, -10, True),
    "mining_iron": (mining_iron, -16, True),
    "new_resource": (new_resource, -11, False),
    "warehouse_full": (warehouse_full, -9, False),
    "market_action": (market_action, -13, False),
    "steal_item": (steal_item, -11, False),
    "next_level": (next_level, -10, False),
    "destroy": (destroy, -8, False),
    "friend_falls": (friend_falls, -11, False),
    "caravan_coming": (caravan_coming, -13, False),
    "caravan_load": (caravan_load, -12, False),
    "silver_fanfar": (silver_fanfar, -12, False),
    "gold_fanfar": (gold_fanfar, -11, False),
    "gold_missed": (gold_missed, -12, False),
    "silver_missed": (silver_missed, -12, False),
    "enemy_run": (enemy_run, -15, True),
    "destroy_road": (destroy_road, -13, True),
    "enemy_pray": (enemy_pray, -18, True),
    "take_idol": (take_idol, -10, False),
    "shot": (shot, -9, False),
    "charged": (charged, -11, False),
}


def make(name):
    """The samples of one of them at its level; what doesn't go round fades out, so that nothing clicks."""
    maker, level, goes_round = WORK[name]
    samples = maker()
    samples = samples * (10 ** (level / 20) / numpy.abs(samples).max())
    if not goes_round:
        fade = min(len(samples) // 5, RATE // 50)
        samples[-fade:] *= numpy.linspace(1, 0, fade)
    return samples
