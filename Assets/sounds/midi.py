"""A piece as notes, and its writing as a MIDI file. Times are beats from the start, a quarter note being one."""
import struct

TICKS = 480  # a beat


class Piece:
    """@param tempo  beats a minute"""

    def __init__(self, tempo, beats):
        self.tempo = tempo
        self.beats = beats
        self.notes = []  # (beat, length, channel, key, velocity)
        self.parts = {}  # channel: (program, volume, pan, reverb)

    @property
    def seconds(self):
        return self.beats * 60.0 / self.tempo

    def part(self, channel, program, volume, pan, reverb=60):
        self.parts[channel] = (program, volume, pan, reverb)

    def note(self, channel, beat, length, key, velocity):
        self.notes.append((beat, length, channel, key, max(1, min(127, int(velocity)))))

    def write(self, path, passes):
        """The piece, played that many times one after the other without a gap."""
        events = []  # (tick, order, bytes): at one time, what ends comes before what begins
        for channel, (program, volume, pan, reverb) in self.parts.items():
            for order, data in enumerate((bytes([0xC0 | channel, program]), bytes([0xB0 | channel, 7, volume]),
                                          bytes([0xB0 | channel, 10, pan]), bytes([0xB0 | channel, 91, reverb]))):
                events.append((0, order - 10, data))
        for turn in range(passes):
            for beat, length, channel, key, velocity in self.notes:
                start = round((beat + turn * self.beats) * TICKS)
                end = start + max(1, round(length * TICKS))
                events.append((max(0, start), 1, bytes([0x90 | channel, key, velocity])))
                events.append((max(1, end), 0, bytes([0x80 | channel, key, 0])))
        track = b"\x00\xff\x51\x03" + struct.pack(">I", round(60e6 / self.tempo))[1:]
        last = 0
        for tick, _, data in sorted(events):
            track += variable(tick - last) + data
            last = tick
        track += b"\x00\xff\x2f\x00"
        with open(path, "wb") as file:
            file.write(b"MThd" + struct.pack(">IHHH", 6, 0, 1, TICKS) + b"MTrk" + struct.pack(">I", len(track)) + track)


def variable(value):
    """A MIDI number of seven bits a byte."""
    out = [value & 0x7F]
    while value >= 0x80:
        value >>= 7
        out.insert(0, value & 0x7F | 0x80)
    return bytes(out)
