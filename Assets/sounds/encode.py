"""Writes samples as OGG Vorbis. A fixed serial number and no dates: the same samples give the same bytes."""
import os
import subprocess
import tempfile
import wave

import numpy


def write_wav(path, samples, rate=44100):
    """@param samples  -1 to 1, one row a frame where there are two channels"""
    with wave.open(path, "wb") as file:
        file.setnchannels(1 if samples.ndim == 1 else samples.shape[1])
        file.setsampwidth(2)
        file.setframerate(rate)
        file.writeframes(numpy.round(samples * 32767).astype("<i2").tobytes())


def write_ogg(path, samples, quality, serial):
    with tempfile.TemporaryDirectory() as folder:
        wav = os.path.join(folder, "sound.wav")
        write_wav(wav, samples)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        subprocess.run(["oggenc", "-Q", "-q", str(quality), "-s", str(serial), "-o", path, wav], check=True)
