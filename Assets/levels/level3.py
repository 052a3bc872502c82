"""The fourth level: a horseshoe round a bay, and mills that are worth improving.

What the way out asks for is more than mills of the first level make in time; the market has the plans. By land it is far
from the camp to the way out; whoever bridges the bay has it near.
"""

SIZE = (1000, 600)
POINTS = [
    (118, 390, 0), (220, 372, 0), (300, 300, 0), (222, 482, 0), (345, 400, 0), (165, 245, 0), (290, 170, 0), (400, 235, 0),
    (345, 502, 0), (424, 450, 0), (580, 446, 0), (500, 180, 0), (600, 112, 0), (610, 235, 0), (690, 310, 0), (790, 275, 0),
    (690, 425, 0), (795, 385, 0), (900, 415, 0), (720, 522, 0), (882, 288, 0),
]
ROADS = [(0, 1), (1, 2), (1, 3), (2, 6)]
GROUND = [(1, 4), (3, 4), (2, 4), (1, 5), (2, 7), (6, 7), (4, 8), (3, 8), (4, 9), (8, 9), (7, 11), (11, 12), (11, 13), (12, 13), (13, 14), (14, 15),
          (14, 16), (10, 16), (14, 17), (16, 17), (15, 17), (17, 18), (16, 19), (15, 20), (20, 18)]
OTHER_ARCS = [  # p1, p2, type, price
    (9, 10, 10, {"Wood": 5, "Stone": 2}),
]
BUILDINGS = [
    {"Type": 8, "point": 0, "Capacity": 30, "PrevLevel": 2, "MenAmount": 6, "MaxAmount": 12, "Angle": 180,
     "Money": 220, "Food": 8, "Wood": 6, "Stone": 2, "ManCost": {"Money": 10, "Food": 1}},
    {"Type": 13, "point": 6, "Level": 1, "MinLevel": 0},
    {"Type": 12, "point": 5, "Level": 1, "MinLevel": 0},
    {"Type": 9, "point": 8, "Level": 1, "MinLevel": 1},
    {"Type": 11, "point": 12, "Level": 0, "MinLevel": 0},
    {"Type": 9, "point": 19, "Level": 0, "MinLevel": 0},
    {"Type": 17, "point": 3, "Tasks": [
        {"id": "sawmill_plan", "index": 0, "depends": "no", "repeat": 0, "product_id": 12, "src_cargo": {"Money": 30, "Food": 2}},
        {"id": "quarry_plan", "index": 1, "depends": "no", "repeat": 0, "product_id": 2, "src_cargo": {"Money": 40, "Wood": 4}},
        {"id": "sell_food", "index": 2, "depends": "no", "repeat": 1, "src_cargo": {"Food": 2}, "dst_cargo": {"Money": 15}},
        {"id": "buy_wood", "index": 3, "depends": "no", "start_time": 90, "length": 120, "delay": 60, "repeat": 1,
         "src_cargo": {"Money": 15}, "dst_cargo": {"Wood": 2}},
        {"id": "buy_stone", "index": 4, "depends": "no", "start_time": 40, "length": 60, "delay": 90, "repeat": 1,
         "src_cargo": {"Money": 15}, "dst_cargo": {"Stone": 2}}]},
    {"Type": 14, "point": 18, "BridgeNumber": 3, "NextLevel": 4, "Angle": 0, "GoldTime": 580, "SilverTime": 210,
     "Upgrades": [{"Money": 30, "Wood": 12, "Stone": 8, "MenAmount": 4, "UpgradeTime": 8, "Capacity": 0},
                  {"Money": 0, "Food": 8, "Wood": 10, "Stone": 4, "MenAmount": 2, "UpgradeTime": 4, "Capacity": 0}]},
]
LAND = [(40, 400), (52, 320), (88, 250), (95, 185), (160, 152), (215, 104), (290, 78), (380, 110), (440, 134), (484, 112), (524, 54), (600, 34), (668, 52),
        (712, 126), (760, 190), (850, 205), (935, 235), (962, 320), (972, 420), (950, 490), (880, 520), (810, 560), (720, 584), (630, 560),
        (566, 520), (550, 440), (548, 370), (520, 315), (484, 318), (460, 370), (460, 440), (454, 520), (400, 574), (310, 572), (210, 562),
        (110, 520), (60, 470)]
RIVERS = []
WOODS = [(120, 310, 24, 4), (225, 160, 30, 5), (235, 235, 18, 2), (360, 160, 24, 4), (440, 175, 22, 3), (420, 330, 26, 4), (270, 415, 16, 1),
         (112, 540, 16, 2), (160, 556, 20, 2), (540, 275, 30, 5), (665, 150, 26, 4), (690, 235, 30, 5), (620, 340, 30, 6), (600, 520, 26, 4),
         (820, 530, 24, 3), (840, 235, 26, 3), (880, 350, 18, 2), (930, 490, 20, 2), (640, 480, 16, 2), (410, 530, 20, 2), (945, 300, 14, 2)]
FIELDS = [(480, 262, 58, 26), (808, 466, 70, 32)]
LILIES = [(506, 420), (500, 540), (60, 200), (780, 150), (985, 240)]
WASTE = []
