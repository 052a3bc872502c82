"""The third level: two banks of a river, and an enemy in the east who likes the player's roads for breakfast."""

SIZE = (1400, 600)
POINTS = [
    (110, 330, 0), (208, 302, 0), (302, 262, 0), (225, 402, 0), (332, 370, 0), (300, 150, 0), (410, 205, 0), (422, 312, 0),
    (150, 495, 0), (318, 480, 0), (432, 432, 0), (522, 262, 0), (532, 382, 2), (604, 318, 0), (512, 142, 0), (734, 304, 0),
    (822, 240, 0), (826, 352, 0), (792, 138, 0), (918, 300, 0), (902, 432, 0), (790, 470, 2), (1012, 242, 1), (1014, 372, 2),
    (915, 172, 1), (1112, 300, 0), (1204, 240, 0), (1294, 272, 0), (1094, 432, 0), (1184, 386, 0), (1240, 484, 0),
    (936, 226, 0), (902, 374, 0), (1040, 486, 0),
]
ROADS = [(0, 1), (1, 3), (1, 2), (2, 5)]
GROUND = [(2, 4), (3, 4), (2, 6), (6, 7), (4, 7), (3, 8), (3, 9), (4, 9), (9, 10), (7, 10), (6, 11), (7, 11), (7, 12), (10, 12),
          (11, 12), (11, 13), (12, 13), (6, 14), (11, 14), (15, 16), (15, 17), (16, 17), (16, 18), (16, 19), (17, 19), (17, 20),
          (17, 21), (20, 21), (16, 24), (22, 24), (19, 22), (19, 23), (20, 23), (22, 25), (23, 25), (25, 26), (26, 27)]
OTHER_ARCS = [  # p1, p2, type, price
    (13, 15, 10, {"Wood": 5, "Stone": 3}),
    (19, 31, 5, {"Wood": 4, "Iron": 1}), (19, 32, 5, {"Wood": 4, "Iron": 1}),
    (29, 30, 2, {}), (28, 29, 2, {}), (23, 28, 2, {}), (28, 33, 4, {}),
]
BUILDINGS = [
    {"Type": 8, "point": 0, "Capacity": 30, "PrevLevel": 1, "MenAmount": 5, "MaxAmount": 12, "Angle": 180,
     "Money": 260, "Food": 8, "Wood": 6, "Stone": 2, "ManCost": {"Money": 10, "Food": 1}},
    {"Type": 13, "point": 5, "Level": 1, "MinLevel": 0},
    {"Type": 12, "point": 8, "Level": 1, "MinLevel": 0},
    {"Type": 9, "point": 9, "Level": 1, "MinLevel": 1},
    {"Type": 11, "point": 14, "Level": 1, "MinLevel": 0},
    {"Type": 10, "point": 18, "Level": 0, "MinLevel": 0},
    {"Type": 9, "point": 21, "Level": 0, "MinLevel": 0},
    {"Type": 17, "point": 3, "Tasks": [
        {"id": "farm_plan", "index": 0, "depends": "no", "repeat": 0, "product_id": 17, "src_cargo": {"Money": 30, "Wood": 2}},
        {"id": "idol_plan", "index": 1, "depends": "no", "repeat": 0, "product_id": 26, "src_cargo": {"Money": 40, "Food": 4}},
        {"id": "sell_food", "index": 2, "depends": "no", "repeat": 1, "src_cargo": {"Food": 2}, "dst_cargo": {"Money": 15}},
        {"id": "buy_wood", "index": 3, "depends": "no", "repeat": 1, "src_cargo": {"Money": 12}, "dst_cargo": {"Wood": 2}},
        {"id": "buy_stone", "index": 4, "depends": "no", "start_time": 60, "length": 90, "delay": 60, "repeat": 1,
         "src_cargo": {"Money": 15}, "dst_cargo": {"Stone": 2}},
        {"id": "first_iron", "index": 5, "depends": "farm_plan", "start_time": 30, "length": 240, "repeat": 0,
         "src_cargo": {"Wood": 4}, "dst_cargo": {"Iron": 2}}]},
    {"Type": 15, "point": 30, "Tasks": [
        {"id": "first_raid", "depends": "no", "goal_type": 0, "task_parameter": 0, "goal_src": 23, "goal_dst": 25,
         "start_time": 240, "delay": 150, "repeat": 1},
        {"id": "thief", "depends": "no", "goal_type": 0, "task_parameter": 0, "goal_src": 19, "goal_dst": 23,
         "start_time": 330, "delay": 180, "repeat": 1}]},
    {"Type": 14, "point": 27, "BridgeNumber": 2, "NextLevel": 3, "Angle": 0, "GoldTime": 560, "SilverTime": 205,
     "Upgrades": [{"Money": 30, "Wood": 6, "Stone": 4, "Iron": 2, "MenAmount": 4, "UpgradeTime": 10, "Capacity": 0},
                  {"Money": 0, "Food": 8, "Wood": 4, "Iron": 2, "MenAmount": 2, "UpgradeTime": 4, "Capacity": 0}]},
]
LAND = [(34, 340), (46, 262), (110, 236), (180, 196), (226, 110), (300, 62), (420, 70), (520, 52), (640, 40), (760, 56), (860, 70), (960, 92),
        (1060, 130), (1150, 150), (1250, 168), (1350, 210), (1368, 280), (1338, 346), (1318, 420), (1330, 510), (1250, 562),
        (1120, 552), (1020, 566), (900, 528), (780, 566), (660, 574), (520, 556), (430, 530), (330, 576), (180, 580), (70, 552), (52, 470),
        (80, 410)]
RIVERS = [(62, [(640, -20), (652, 70), (690, 160), (664, 240), (670, 310), (668, 380), (700, 460), (676, 540), (690, 630)])]
WOODS = [(200, 240, 28, 4), (370, 130, 34, 6), (440, 110, 30, 5), (250, 335, 22, 3), (470, 250, 14, 2), (100, 410, 24, 3),
         (235, 480, 20, 3), (395, 500, 22, 3), (490, 480, 44, 9), (590, 470, 40, 7), (600, 180, 40, 7), (475, 350, 14, 2), (720, 200, 30, 5),
         (735, 410, 30, 4), (870, 110, 40, 7), (860, 500, 30, 5), (960, 480, 30, 5), (960, 150, 24, 3), (1080, 200, 44, 8), (1110, 370, 16, 2),
         (1240, 350, 34, 6), (1280, 400, 24, 4), (1150, 500, 30, 4), (1300, 215, 18, 2), (80, 265, 18, 1)]
FIELDS = [(364, 288, 66, 32), (1022, 306, 74, 32)]
LILIES = [(664, 190), (676, 440), (40, 430), (1390, 420), (560, 30)]
WASTE = [(1196, 448, 118)]  # burnt ground: middle and radius
