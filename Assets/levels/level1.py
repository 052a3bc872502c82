"""The second level: food, wood and stone, a market that buys bread, and two ways round to the bridge.

In the corner behind the northern one the enemy has his first bunker; a line of fences with two gates shuts it in.
"""

SIZE = (800, 600)
POINTS = [
    (110, 240, 0), (207, 212, 0), (302, 180, 0), (212, 330, 0), (312, 293, 0), (398, 128, 0), (412, 228, 0),
    (130, 405, 0), (277, 408, 0), (384, 388, 0), (330, 497, 0), (500, 305, 2), (484, 432, 0), (522, 165, 0),
    (602, 240, 0), (596, 385, 0), (693, 300, 0), (634, 140, 0), (594, 490, 0), (495, 110, 0), (700, 214, 0),
]
ROADS = [(0, 1), (1, 3), (1, 2), (2, 5)]
GROUND = [(2, 4), (3, 4), (2, 6), (4, 6), (3, 7), (3, 8), (4, 9), (8, 9), (8, 10), (9, 10), (6, 11), (9, 12), (11, 12),
          (6, 13), (11, 14), (14, 16), (12, 15), (11, 15), (15, 16), (12, 18), (15, 18)]
FENCE = {"Money": 10, "Wood": 3}  # of the whole line
OTHER_ARCS = [  # p1, p2, type, price
    (13, 19, 5, FENCE), (13, 14, 5, FENCE), (14, 20, 5, FENCE),
    (13, 17, 2, {}), (14, 17, 2, {}),
]
BUILDINGS = [
    {"Type": 8, "point": 0, "Capacity": 20, "PrevLevel": 0, "MenAmount": 4, "MaxAmount": 9, "Angle": 180,
     "Money": 180, "Food": 6, "Wood": 4, "ManCost": {"Money": 10, "Food": 1}},
    {"Type": 13, "point": 5, "Level": 1, "MinLevel": 0},
    {"Type": 12, "point": 7, "Level": 0, "MinLevel": 0},
    {"Type": 9, "point": 10, "Level": 1, "MinLevel": 0},
    {"Type": 17, "point": 3, "Tasks": [
        {"id": "sell_food", "index": 0, "depends": "no", "repeat": 1, "src_cargo": {"Food": 2}, "dst_cargo": {"Money": 15}},
        {"id": "buy_wood", "index": 1, "depends": "no", "repeat": 1, "src_cargo": {"Money": 15}, "dst_cargo": {"Wood": 2}}]},
    {"Type": 11, "point": 18, "Level": 0, "MinLevel": 0},
    {"Type": 15, "point": 17, "Tasks": [
        {"id": "raid", "depends": "no", "goal_type": 0, "task_parameter": 0, "goal_src": 14, "goal_dst": 16, "start_time": 240, "delay": 150,
         "repeat": 1}]},
    {"Type": 14, "point": 16, "BridgeNumber": 1, "NextLevel": 2, "Angle": 0, "GoldTime": 325, "SilverTime": 115,
     "Upgrades": [{"Money": 20, "Wood": 6, "Stone": 3, "MenAmount": 3, "UpgradeTime": 8, "Capacity": 0},
                  {"Money": 0, "Food": 8, "Wood": 6, "MenAmount": 2, "UpgradeTime": 4, "Capacity": 0}]},
]
LAND = [(34, 250), (48, 180), (120, 158), (190, 138), (262, 96), (330, 50), (430, 36), (540, 72), (640, 58), (712, 110),
        (718, 190), (764, 258), (768, 350), (716, 400), (690, 480), (640, 556), (530, 560), (450, 522), (400, 574),
        (280, 578), (210, 520), (120, 500), (58, 440), (52, 366), (96, 312)]
RIVERS = []
WOODS = [(250, 125, 30, 5), (470, 90, 36, 7), (590, 90, 34, 5), (680, 200, 30, 5), (350, 240, 16, 2), (440, 330, 22, 4), (150, 310, 34, 5),
         (200, 470, 44, 8), (430, 470, 30, 5), (540, 490, 26, 4), (690, 420, 34, 6), (90, 470, 24, 2), (560, 205, 14, 1),
         (540, 380, 18, 2), (80, 185, 22, 2)]
FIELDS = [(260, 246, 66, 32), (508, 232, 48, 28)]
LILIES = [(44, 330), (770, 210), (420, 590), (250, 70)]
WASTE = [(626, 132, 78)]  # burnt ground: middle and radius
