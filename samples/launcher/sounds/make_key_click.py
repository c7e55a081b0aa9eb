#!/usr/bin/env python3
"""Writes key.wav beside this file: the launcher's key click, a soft wooden tick of 30 ms."""
import math
import pathlib
import struct
import wave

RATE = 44100
SAMPLES = RATE * 30 // 1000
# Frequency in Hz, strength, decay in 1/s: a body, its knock and a touch of edge.
PARTIALS = ((1150.0, 0.45, 170.0), (2480.0, 0.22, 320.0), (5200.0, 0.08, 700.0))


def sample(i: int) -> int:
    t = i / RATE
    attack = min(1.0, t / 0.0008)
    value = sum(s * math.sin(2 * math.pi * f * t) * math.exp(-d * t) for f, s, d in PARTIALS)
    fade = min(1.0, (SAMPLES - i) / (RATE * 0.004))
    return round(16000 * attack * fade * value)


with wave.open(str(pathlib.Path(__file__).with_name("key.wav")), "wb") as out:
    out.setnchannels(1)
    out.setsampwidth(2)
    out.setframerate(RATE)
    out.writeframes(b"".join(struct.pack("<h", sample(i)) for i in range(SAMPLES)))
