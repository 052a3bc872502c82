"""The fifth level: an island round a lake, with iron on the islet in it, and the way out beyond a channel.

The bridge to the islet opens the iron, and iron opens the bridge over the channel. In the northern corner stands a bunker of
the enemy; a line of fences with two gates shuts it in.
"""
import math

SIZE = (1200, 600)
POINTS = [
    (115, 300, 0), (215, 290, 0), (300, 225, 0), (232, 400, 0), (328, 345, 0), (212, 150, 0), (130, 478, 0), (345, 472, 0),
    (400, 165, 0), (449, 302, 0), (500, 108, 0), (615, 92, 0), (718, 138, 0), (465, 476, 0), (580, 504, 0), (692, 482, 0),
    (800, 412, 0), (890, 484, 0), (795, 186, 0), (825, 322, 0), (606, 302, 0), (762, 82, 0), (872, 238, 0), (938, 226, 0),
    (888, 122, 0), (938, 346, 0), (1066, 342, 0), (1104, 428, 0), (1108, 256, 0), (900, 404, 0),
]
ROADS = [(0, 1), (1, 2), (1, 3), (2, 5)]
GROUND = [(1, 4), (2, 4), (3, 4), (3, 6), (3, 7), (4, 7), (2, 8), (8, 9), (4, 9), (8, 10), (10, 11), (11, 12), (12, 18), (18, 19), (22, 19),
          (7, 13), (13, 14), (14, 15), (15, 16), (16, 19), (16, 17), (19, 25), (29, 25), (16, 29), (29, 17), (26, 27), (26, 28)]
FENCE = {"Money": 10, "Wood": 3}  # of the whole line
OTHER_ARCS = [  # p1, p2, type, price
    (9, 20, 10, {"Wood": 4, "Stone": 2}), (25, 26, 10, {"Wood": 4, "Stone": 3, "Iron": 2}),
    (21, 18, 5, FENCE), (18, 22, 5, FENCE), (22, 23, 5, FENCE),
    (18, 24, 2, {}), (22, 24, 2, {}),
]
BUILDINGS = [
    {"Type": 8, "point": 0, "Capacity": 30, "PrevLevel": 3, "MenAmount": 7, "MaxAmount": 14, "Angle": 180,
     "Money": 220, "Food": 10, "Wood": 8, "Stone": 4, "ManCost": {"Money": 10, "Food": 1}},
    {"Type": 13, "point": 5, "Level": 1, "MinLevel": 0},
    {"Type": 12, "point": 6, "Level": 1, "MinLevel": 0},
    {"Type": 9, "point": 7, "Level": 1, "MinLevel": 1},
    {"Type": 11, "point": 17, "Level": 0, "MinLevel": 0},
    {"Type": 10, "point": 20, "Level": 1, "MinLevel": 0},
    {"Type": 9, "point": 28, "Level": 0, "MinLevel": 0},
    {"Type": 17, "point": 3, "Tasks": [
        {"id": "warehouse_plan", "index": 0, "depends": "no", "repeat": 0, "product_id": 22, "src_cargo": {"Money": 25, "Wood": 2}},
        {"id": "mine_plan", "index": 1, "depends": "no", "repeat": 0, "product_id": 7, "src_cargo": {"Money": 40, "Food": 3}},
        {"id": "sell_food", "index": 2, "depends": "no", "repeat": 1, "src_cargo": {"Food": 2}, "dst_cargo": {"Money": 15}},
        {"id": "buy_wood", "index": 3, "depends": "no", "start_time": 30, "length": 90, "delay": 60, "repeat": 1,
         "src_cargo": {"Money": 15}, "dst_cargo": {"Wood": 2}},
        {"id": "buy_stone", "index": 4, "depends": "no", "start_time": 60, "length": 60, "delay": 90, "repeat": 1,
         "src_cargo": {"Money": 15}, "dst_cargo": {"Stone": 2}},
        {"id": "sell_iron", "index": 5, "depends": "mine_plan", "start_time": 60, "repeat": 1, "src_cargo": {"Iron": 1}, "dst_cargo": {"Money": 30}}]},
    {"Type": 15, "point": 24, "Tasks": [
        {"id": "raid", "depends": "no", "goal_type": 0, "task_parameter": 0, "goal_src": 22, "goal_dst": 19, "start_time": 300, "delay": 180,
         "repeat": 1}]},
    {"Type": 14, "point": 27, "BridgeNumber": 4, "NextLevel": -1, "Angle": 0, "GoldTime": 575, "SilverTime": 205,
     "Upgrades": [{"Money": 40, "Wood": 8, "Stone": 5, "Iron": 4, "MenAmount": 4, "UpgradeTime": 10, "Capacity": 0},
                  {"Money": 0, "Food": 12, "Wood": 6, "Iron": 5, "MenAmount": 2, "UpgradeTime": 4, "Capacity": 0}]},
]
LAND = [(38, 300), (56, 220), (100, 160), (140, 92), (230, 62), (320, 80), (400, 92), (480, 45), (600, 30), (720, 42), (800, 32), (900, 44),
        (980, 76), (1040, 150), (1120, 176), (1174, 240), (1178, 330), (1182, 430), (1152, 500), (1080, 540), (1010, 530), (940, 562), (860, 560),
        (780, 540), (700, 566), (580, 576), (470, 560), (390, 556), (300, 574), (200, 562), (110, 562), (56, 500), (66, 420), (44, 360)]
MOAT = [(606 + 102 * math.cos(i * math.pi / 8), 302 + 102 * math.sin(i * math.pi / 8)) for i in range(17)]  # round the islet
RIVERS = [(60, MOAT), (60, [(1010, -20), (1000, 80), (1005, 180), (1000, 260), (1003, 340), (998, 420), (1004, 500), (1000, 630)])]
WOODS = [(130, 210, 26, 4), (300, 130, 26, 4), (90, 390, 18, 2), (260, 500, 30, 5), (180, 330, 14, 1), (390, 250, 16, 2), (400, 400, 22, 3),
         (440, 90, 16, 2), (470, 215, 18, 2), (560, 160, 18, 2), (660, 60, 20, 3), (400, 530, 20, 3), (520, 545, 26, 4), (640, 540, 24, 3),
         (530, 440, 20, 2), (760, 250, 24, 4), (764, 350, 20, 3), (760, 530, 24, 3), (835, 520, 20, 2), (960, 500, 22, 4), (830, 80, 20, 2),
         (950, 150, 18, 2), (1060, 210, 18, 2), (1140, 330, 18, 3), (1060, 480, 26, 4), (1140, 490, 14, 1), (940, 430, 12, 1)]
FIELDS = [(372, 256, 56, 26), (864, 368, 48, 22)]
LILIES = [(606, 204), (1000, 290), (1004, 460), (30, 440), (760, 590), (520, 330)]
WASTE = [(888, 108, 84)]  # burnt ground: middle and radius
