"""The first level: one mill, one store, one bridge to mend. A loop of paths, and a meadow for a second start."""

SIZE = (800, 600)
POINTS = [  # x, y, and what may be set up there: 1 a catapult, 2 an idol
    (120, 330, 0), (222, 300, 0), (315, 250, 0), (255, 405, 0), (370, 360, 0), (395, 165, 0),
    (470, 290, 0), (365, 480, 0), (565, 225, 0), (680, 270, 0), (575, 385, 0),
]
ROADS = [(0, 1)]
GROUND = [(1, 2), (1, 3), (2, 4), (3, 4), (2, 5), (4, 6), (3, 7), (4, 7), (6, 8), (8, 9), (6, 10), (10, 9)]
OTHER_ARCS = []
BUILDINGS = [
    {"Type": 8, "point": 0, "Capacity": 20, "PrevLevel": -1, "MenAmount": 3, "MaxAmount": 6, "Angle": 180,
     "Money": 120, "Food": 4, "ManCost": {"Money": 10, "Food": 1}},
    {"Type": 13, "point": 5, "Level": 0, "MinLevel": 0},
    {"Type": 9, "point": 7, "Level": 1, "MinLevel": 0},
    {"Type": 14, "point": 9, "BridgeNumber": 0, "NextLevel": 1, "Angle": 0, "GoldTime": 250, "SilverTime": 90,
     "Upgrades": [{"Money": 20, "Food": 3, "MenAmount": 2, "UpgradeTime": 6, "Capacity": 0},
                  {"Money": 0, "Food": 8, "MenAmount": 1, "UpgradeTime": 3, "Capacity": 0}]},
]
LAND = [(38, 330), (52, 250), (130, 222), (190, 176), (262, 128), (330, 62), (440, 48), (520, 96), (600, 130), (690, 158),
        (757, 232), (762, 318), (726, 400), (700, 462), (610, 500), (520, 520), (450, 566), (330, 572), (250, 532),
        (196, 470), (118, 430), (60, 392)]
RIVERS = []
WOODS = [(180, 215, 40, 7), (530, 140, 44, 9), (650, 190, 30, 4), (240, 495, 36, 6), (470, 470, 52, 11), (655, 430, 42, 8),
         (300, 335, 22, 3), (475, 190, 28, 5), (110, 245, 26, 3), (120, 400, 18, 2), (400, 420, 16, 1), (330, 120, 26, 4)]
FIELDS = [(572, 300, 84, 34), (200, 372, 46, 26)]  # of wheat: middle and size
LILIES = [(60, 440), (742, 180), (560, 540), (270, 90)]  # where they grow on the water
WASTE = []
