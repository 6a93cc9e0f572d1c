#!/usr/bin/env python3
"""Makes pop.wav: a tone that falls in pitch and dies away within a seventh of a second."""
import math
import struct
import wave
from pathlib import Path

RATE = 44100  # samples a second
LENGTH = 0.14  # seconds
HIGH, LOW = 900.0, 320.0  # hertz
LOUDNESS = 0.5

samples = []
phase = 0.0
for i in range(int(RATE * LENGTH)):
    t = i / RATE
    pitch = LOW + (HIGH - LOW) * math.exp(-t / 0.018)
    phase += 2 * math.pi * pitch / RATE
    attack = min(1.0, t / 0.0015)
    decay = math.exp(-t / 0.028) * min(1.0, (LENGTH - t) / 0.02)
    samples.append(int(32767 * LOUDNESS * attack * decay * math.sin(phase)))

with wave.open(str(Path(__file__).with_name("pop.wav")), "wb") as sound:
    sound.setnchannels(1)
    sound.setsampwidth(2)
    sound.setframerate(RATE)
    sound.writeframes(struct.pack(f"<{len(samples)}h", *samples))
