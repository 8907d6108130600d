#!/usr/bin/env python3
"""Remakes Vestrel's wave files: 22050 Hz, mono, 16-bit.

    python3 make_sounds.py [folder]      (default: the folder of this script)

Everything is synthesised here with the standard library, so the sounds can be
changed and rebuilt without any other tool. Noise comes from a seeded generator,
so a rebuild gives the same bytes.
"""

import math
import os
import random
import struct
import sys
import wave

RATE = 22050
TAU = 2.0 * math.pi


def tone(freqs, seconds, partials=(1.0,), attack=0.01, decay=None, release=0.04):
    """A sum of sine notes. `partials` weights the harmonics of each note;
    `decay` is an exponential time constant in seconds (None: held). The note
    is let go over `release` seconds, as it may end while others sound."""
    n = int(seconds * RATE)
    out = []
    for i in range(n):
        t = i / RATE
        v = 0.0
        for f in freqs:
            for k, w in enumerate(partials, start=1):
                v += w * math.sin(TAU * f * k * t)
        env = min(1.0, t / attack) if attack > 0 else 1.0
        if decay:
            env *= math.exp(-t / decay)
        out.append(v * env)
    return fade(out, 0.0, release)


def sweep(f0, f1, seconds, partials=(1.0,)):
    """Exponential glide from f0 to f1; the phase is integrated so the glide
    stays smooth."""
    n = int(seconds * RATE)
    out, phase = [], 0.0
    for i in range(n):
        f = f0 * (f1 / f0) ** (i / n)
        phase += TAU * f / RATE
        out.append(sum(w * math.sin(k * phase) for k, w in enumerate(partials, start=1)))
    return out


def noise(seconds, smooth, seed):
    """Noise through a one-pole low-pass: `smooth` near 1 gives a duller sound."""
    rng = random.Random(seed)
    out, y = [], 0.0
    for _ in range(int(seconds * RATE)):
        y = smooth * y + (1.0 - smooth) * rng.uniform(-1.0, 1.0)
        out.append(y)
    return out


def mix(*tracks, at=None):
    """Adds tracks; `at` gives each track's start in seconds."""
    at = at or [0.0] * len(tracks)
    starts = [int(a * RATE) for a in at]
    out = [0.0] * max(s + len(t) for s, t in zip(starts, tracks))
    for s, t in zip(starts, tracks):
        for i, v in enumerate(t):
            out[s + i] += v
    return out


def fade(samples, fade_in=0.005, fade_out=0.03):
    """Raised-cosine ends, so no sound starts or stops with a click."""
    n = len(samples)
    a, b = int(fade_in * RATE), int(fade_out * RATE)
    out = list(samples)
    for i in range(min(a, n)):
        out[i] *= 0.5 - 0.5 * math.cos(math.pi * i / a)
    for i in range(min(b, n)):
        out[n - 1 - i] *= 0.5 - 0.5 * math.cos(math.pi * i / b)
    return out


def normalise(samples, peak):
    top = max(abs(v) for v in samples) or 1.0
    return [v * peak / top for v in samples]


def write(folder, name, samples, peak):
    data = normalise(fade(samples), peak)
    frames = b"".join(struct.pack("<h", int(round(v * 32767))) for v in data)
    with wave.open(os.path.join(folder, name), "wb") as w:
        w.setnchannels(1)
        w.setsampwidth(2)
        w.setframerate(RATE)
        w.writeframes(frames)


def note(name):
    """Equal-tempered frequency of a note such as "C5" or "F#3"."""
    steps = {"C": -9, "D": -7, "E": -5, "F": -4, "G": -2, "A": 0, "B": 2}
    semis = steps[name[0]] + name.count("#") - name.count("b")
    octave = int(name.lstrip("ABCDEFG#b"))
    return 440.0 * 2.0 ** ((semis + 12 * (octave - 4)) / 12.0)


BELL = (1.0, 0.35, 0.12, 0.05)
ORGAN = (1.0, 0.45, 0.2)


def laser():
    # A quick fall from high to low, with a touch of edge from the harmonics.
    s = sweep(1900.0, 260.0, 0.32, partials=(1.0, 0.3, 0.15))
    env = [math.exp(-3.0 * i / len(s)) for i in range(len(s))]
    return [v * e for v, e in zip(s, env)]


def clunk():
    # Heard at every refused move, often many times an evening: a soft, low,
    # short knock with no ring.
    body = sweep(120.0, 60.0, 0.12, partials=(1.0, 0.25))
    body = [v * math.exp(-i / (0.035 * RATE)) for i, v in enumerate(body)]
    knock = noise(0.03, 0.9, seed=2)
    knock = [v * math.exp(-i / (0.006 * RATE)) * 2.5 for i, v in enumerate(knock)]
    return mix(body, knock)


def carbrake():
    # A short squeal that wavers and sinks, over a hiss of tyres.
    n = int(0.55 * RATE)
    out, phase = [], 0.0
    for i in range(n):
        t = i / RATE
        f = 2300.0 - 500.0 * t + 60.0 * math.sin(TAU * 11.0 * t)
        phase += TAU * f / RATE
        swell = math.sin(math.pi * min(1.0, t / 0.55))
        out.append((math.sin(phase) + 0.2 * math.sin(2 * phase)) * swell)
    hiss = noise(0.55, 0.55, seed=3)
    hiss = [v * 1.2 * (1.0 - i / len(hiss)) for i, v in enumerate(hiss)]
    return mix([v * 0.45 for v in out], hiss)


def filedone():
    return mix(tone([note("E5")], 0.16, BELL, decay=0.12),
               tone([note("A5")], 0.34, BELL, decay=0.16),
               at=[0.0, 0.14])


def welcome():
    return mix(tone([note("C5")], 0.9, BELL, decay=0.35),
               tone([note("E5")], 0.9, BELL, decay=0.35),
               tone([note("G5")], 1.0, BELL, decay=0.4),
               at=[0.0, 0.16, 0.32])


def splash():
    # A soft chord that builds from the bottom note up and fades away.
    notes = ["C4", "E4", "G4", "C5"]
    parts = [tone([note(x)], 0.8 - 0.09 * k, ORGAN, attack=0.08, decay=0.6)
             for k, x in enumerate(notes)]
    return mix(*parts, at=[0.09 * k for k in range(len(notes))])


def amen():
    # Two chords, the top voice falling a step: a small closing cadence.
    first = tone([note("F3"), note("C4"), note("A4")], 0.5, ORGAN, attack=0.04, decay=1.2)
    second = tone([note("C3"), note("E4"), note("G4")], 0.85, ORGAN, attack=0.04, decay=0.5)
    return mix(first, second, at=[0.0, 0.48])


def ring():
    # Two bursts of a bell struck twenty times a second, as an old telephone.
    def burst(seconds):
        b = tone([1040.0, 1310.0], seconds, (1.0, 0.2), attack=0.005, release=0.02)
        return [v * (0.55 + 0.45 * math.sin(TAU * 20.0 * i / RATE)) for i, v in enumerate(b)]
    return mix(burst(0.4), burst(0.4), at=[0.0, 0.58])


SOUNDS = [
    ("S01.wav", laser, 0.55),
    ("S02.wav", clunk, 0.5),
    ("S03.wav", carbrake, 0.45),
    ("S04.wav", filedone, 0.55),
    ("S05.wav", welcome, 0.55),
    ("S06.wav", splash, 0.45),
    ("amen.wav", amen, 0.5),
    ("ring.wav", ring, 0.5),
]


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.abspath(__file__))
    for name, make, peak in SOUNDS:
        write(folder, name, make(), peak)


if __name__ == "__main__":
    main()
