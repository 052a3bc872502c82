"""What there is to render of buildings and the like: plain Python, for Blender and for what finishes its pictures.

A picture's foot is the place on it where the middle of the thing's ground lies: the position of its control on the map.
GameLogic/NAME.xml repeats sizes, and how far the foot lies below the middle as HeightOffset.
"""
import collections

Look = collections.namedtuple("Look", "size foot states trodden frames moving soil")
SHADOW_WIDER = 80  # units: how much wider, to the right, the picture of ground and shadow is
TURNING = "_turning"


def levels(last, first=0):
    return tuple(f"wait_state_upgrade_{i}" for i in range(first, last + 1))


def look(size, foot, states, trodden=None, frames=1, moving=(), soil="road_edge"):
    """trodden: half axes of the worn ground under it, none without a ground picture, soil its colour; frames: of a run of the states
    that move."""
    return Look(size, foot, states, trodden, frames, moving, soil)


LOOKS = {
    "FoodMill": look((136, 168), (68, 122), levels(3), (52, 34), 16, levels(3, 1)),
    "Warehouse": look((136, 136), (68, 90), levels(3), (54, 34)),
    "WoodMill": look((136, 128), (68, 84), levels(3), (54, 34), 8, levels(3, 2)),
    "StoneMill": look((136, 136), (68, 92), levels(3), (54, 34)),
    "IronMill": look((136, 160), (68, 116), levels(3), (54, 34)),
    "Bridge": look((112, 128), (56, 84), levels(2), (44, 34)),
    "StartPoint": look((128, 144), (64, 100), ("normal_state",), (52, 34)),
    "Bunker": look((140, 140), (70, 92), ("init_state",), (58, 38), soil="log"),
    "Idol": look((96, 112), (48, 84), levels(3, 1), (30, 20)),
    "Shop": look((128, 112), (64, 72), ("init_state",), (54, 32)),
    "Port": look((128, 112), (64, 72), ("init_state",)),
    "PlayerFence_piece": look((22, 72), (11, 36), ("init_state",)),
    "PlayerFence_tower": look((36, 124), (18, 62), ("init_state",)),
    "PlayerFence_site": look((22, 28), (11, 14), ("init_state",)),
    "EnemyFence_piece": look((22, 76), (11, 38), ("init_state",)),
    "EnemyFence_tower": look((36, 152), (18, 76), ("init_state",)),
    "EnemyFence_site": look((22, 28), (11, 14), ("init_state",)),
    "Stone": look((18, 18), (9, 12), ("init_state",)),
    "Goods": look((136, 84), (68, 46), tuple(f"cargo_{i}" for i in range(1, 5))),
    "Caravan": look((96, 72), (48, 50), ("init_state",), None, 8, ("init_state",)),
    "CaravanOpen": look((96, 72), (48, 50), ("init_state",), None, 8, ("init_state",)),
    "CaravanGoods": look((96, 72), (48, 50), tuple(f"cargo_{i}" for i in range(3))),
    "FlagGold": look((56, 80), (14, 72), ("init_state",), None, 8, ("init_state",)),
    "FlagSilver": look((56, 80), (14, 72), ("init_state",), None, 8, ("init_state",)),
    "FlagBlue": look((56, 80), (14, 72), ("init_state",), None, 8, ("init_state",)),
}


def is_moving(name, state):
    return state in LOOKS[name].moving


def is_numbered(state):
    return state.startswith(("wait", "cargo"))


def file_name(name, state):
    """Of the picture, without its ending."""
    return name + ("_" + state.rsplit("_", 1)[1] if is_numbered(state) else "")
