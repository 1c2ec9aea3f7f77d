#!/usr/bin/env python3
"""Writes the demo PX DAS soundings of data/samples.

PXC-E05.CPT: a 20 m piezocone sounding on a delta: sandy fill, soft silty clay, an interbedded
silty sand, a firm clay and dense sand at the base, water table at 1.8 m. Tip, sleeve and u2 in kPa
ranges, two inclinometers and the cone's temperature, a reading every 2 cm with depths to two
decimals, a slowing of the push at each rod change, one u2 reading lost where the filter lost
saturation in the sand, and the closing baseline line.

PXC-F02.CPT: a 15 m ball penetrometer sounding in soft estuarine clay under a dry crust, water
table at 0.9 m: a 113 mm ball on a load cell set up for a standard 1000 mm^2 cone, u2 behind the
ball, inclinations and temperature, a reading every 5 cm with depths to three decimals. Its heading
gives the standard cone's area ("AREA"), so it opens without asking for it.

The field computer writes each channel as counts: counts = zero + value / range * sensitivity.
"""
import math
import os
import random

OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data", "samples")
CRLF = "\r\n"
WATER_KPA_PER_M = 9.81


def cell(text):
    return str(text).rjust(20)


def table_row(cells):
    return " " * 13 + "".join(cell(c) for c in cells)


class Channel:
    def __init__(self, name, sensitivity, zero, range_value, unit, serial, gain="1.000"):
        self.name = name
        self.sensitivity = sensitivity
        self.zero = zero
        self.range_value = range_value
        self.unit = unit
        self.serial = serial
        self.gain = gain

    def counts(self, value):
        if value is None:
            return -32768
        raw = round(self.zero + value / self.range_value * self.sensitivity)
        return max(-32767, min(32767, raw))


def header_lines(texts, water_table, channels, heading):
    lines = list(texts) + ["%.2f" % water_table, "", ""]
    lines.append(table_row(range(1, len(channels) + 1)))
    lines.append(table_row(c.name for c in channels))
    lines.append(table_row(c.sensitivity for c in channels))
    lines.append(table_row("%.5f" % c.zero for c in channels))
    lines.append(table_row("%g %s" % (c.range_value, c.unit) for c in channels))
    lines.append(table_row(c.serial for c in channels))
    lines.append(table_row(c.gain for c in channels))
    lines.append(heading)
    return lines


def data_line(depth, speed, counts, decimals):
    if decimals == 2:
        prefix = ("%.2f" % depth).rjust(6) + ("%.2f" % speed).rjust(7)
    else:
        prefix = ("%.3f" % depth).rjust(7) + ("%.2f" % speed).rjust(6)
    return prefix + "".join(cell(c) for c in counts)


class Wander:
    """Slowly wandering noise: each step keeps most of the last one."""

    def __init__(self, rng, sigma, keep):
        self.rng, self.sigma, self.keep, self.value = rng, sigma, keep, 0.0

    def next(self):
        self.value = self.keep * self.value + self.rng.gauss(0.0, self.sigma)
        return self.value


def smoothstep(z, z0, width):
    t = (z - z0) / width
    return 0.0 if t <= 0 else 1.0 if t >= 1 else t * t * (3 - 2 * t)


def push_speed(rng, z, step):
    # The push slows at each metre as a rod is added.
    metre_fraction = z - math.floor(z)
    speed = 2.0 + rng.gauss(0.0, 0.04)
    if metre_fraction < step * 0.99:
        speed = 0.2 + rng.random() * 0.2
    elif metre_fraction < 2 * step * 0.99:
        speed = 1.2 + rng.random() * 0.3
    return speed


def piezocone(path):
    rng = random.Random(1405)
    water_table = 1.8
    channels = [
        Channel("TIP", 30000, 112, 50000, "kPa", "T15-4152"),
        Channel("FRICTION", 30000, -64, 1000, "kPa", "F15-4152"),
        Channel("U2", 30000, 287, 2000, "kPa", "P15-4152"),
        Channel("X Incl", 20000, 15, 20, "deg", "I15-0873"),
        Channel("Y Incl", 20000, -22, 20, "deg", "I15-0873"),
        Channel("TEMP", 10000, 0, 100, "C", "C15-0873"),
    ]
    texts = ["FRASER DELTA INTERCHANGE - PIEZOCONE SOUNDING", "Lower Mainland Transportation Authority",
             "R. Okonkwo", "PX15-0412", "Ramp C, Station 2+140", "LMT-2026-031", "CPT-E05",
             "14/10/2026 08:55", "Predrilled through asphalt 0.25 m", "Filter saturated with glycerine",
             "Cone 10 cm2, net area ratio 0.80", "49.1382,-123.0691,2.6"]
    lines = header_lines(texts, water_table, channels, "   (m) (cm/s)")
    tip_noise, sleeve_noise, u_noise = Wander(rng, 0.05, 0.8), Wander(rng, 0.05, 0.8), Wander(rng, 0.03, 0.85)
    incl_x, incl_y = 0.25, -0.15
    temperature = 17.6
    step = 0.02
    for i in range(1, 1001):
        z = round(i * step, 2)
        u0 = max(0.0, (z - water_table) * WATER_KPA_PER_M)
        sigma_v = 18.0 * min(z, water_table) + 17.0 * max(0.0, z - water_table)
        sigma_eff = sigma_v - u0
        # Layers, blended over a few centimetres at each boundary.
        fill = 1 - smoothstep(z, 1.45, 0.15)
        sand1 = smoothstep(z, 5.9, 0.2) * (1 - smoothstep(z, 8.9, 0.25))
        clay2 = smoothstep(z, 8.9, 0.25) * (1 - smoothstep(z, 15.8, 0.3))
        sand2 = smoothstep(z, 15.8, 0.3)
        clay1 = max(0.0, 1 - fill - sand1 - clay2 - sand2)
        # Sand lenses in the upper clay, and the interbedding of the silty sand.
        lens = math.exp(-((z - 3.7) / 0.08) ** 2) + 0.7 * math.exp(-((z - 4.9) / 0.06) ** 2)
        layering = 0.5 + 0.5 * math.sin(z * 9.0)
        # Each clay's cone resistance from its undrained strength, Nkt 14.
        qt_clay1 = sigma_v + 14.0 * (12.0 + 0.25 * sigma_eff)
        qt_clay2 = sigma_v + 14.0 * (45 + 2.5 * (z - 9))
        noise = math.exp(tip_noise.next())
        qc = (fill * (5200 + 1800 * math.sin(z * 7))
              + clay1 * (qt_clay1 + lens * 3200)
              + sand1 * (5500 + 4500 * layering + 400 * (z - 6))
              + clay2 * qt_clay2
              + sand2 * (16000 + 2600 * (z - 15.8) + 3000 * math.sin(z * 4.3)))
        qc = max(qc * noise, 150.0)
        ratio = (fill * 1.4 + clay1 * (3.6 - 2.4 * min(lens, 1.0)) + sand1 * (1.2 - 0.5 * layering)
                 + clay2 * 3.0 + sand2 * 0.7)
        fs = qc * ratio / 100 * math.exp(sleeve_noise.next())
        # The clays' excess pore pressure from their own net resistance (Bq about 0.55 and 0.6); the
        # silty sand drains but partly, the dense sand dilates a little.
        excess = (clay1 * 0.55 * (qt_clay1 - sigma_v) * noise * (1 - 0.8 * min(lens, 1.0))
                  + clay2 * 0.6 * (qt_clay2 - sigma_v) * noise + sand1 * (1 - layering) * 40 - sand2 * 15)
        u2 = u0 + max(-u0 - 20, excess) + 4 * u_noise.next()
        if z <= water_table:
            u2 = -2.0 + 3 * u_noise.next() + (fill * 5.0)
        if abs(z - 17.34) < 0.005:
            u2 = None
        incl_x += rng.gauss(0.0008, 0.003)
        incl_y += rng.gauss(0.0011, 0.003)
        # Towards the ground's 10.5 C, warmed by friction in the dense sand.
        temperature += (10.5 - temperature) * 0.012 + sand2 * 0.004 * qc / 20000 + rng.gauss(0, 0.004)
        speed = push_speed(rng, z, step)
        counts = [channels[0].counts(qc), channels[1].counts(fs), channels[2].counts(u2),
                  channels[3].counts(incl_x), channels[4].counts(incl_y), channels[5].counts(temperature)]
        lines.append(data_line(z, speed, counts, 2))
    # The zero-load reading after the cone came back up, a little off the starting zeroes.
    lines.append(" " * 13 + "".join(cell(round(c.zero + d)) for c, d in zip(channels, (9, -2, 6, 1, -1, 1480))))
    with open(path, "w", newline="") as f:
        f.write(CRLF.join(lines) + CRLF)


def ball(path):
    rng = random.Random(2202)
    water_table = 0.9
    ball_mm2 = 3.14159 * (113 / 2) ** 2
    cone_mm2 = 1000.0
    channels = [
        Channel("TIP BALL mm113", 30000, 96, 50000, "kPa", "T15-2208"),
        Channel("U2", 30000, 301, 2000, "kPa", "P15-2208"),
        Channel("X Incl", 20000, -8, 20, "deg", "I15-0455"),
        Channel("Y Incl", 20000, 11, 20, "deg", "I15-0455"),
        Channel("TEMP", 10000, 0, 100, "C", "C15-0455"),
    ]
    texts = ["SEA ISLAND DYKE UPGRADE - BALL PENETROMETER", "Richmond Flood Protection Works",
             "M. Castellanos", "PX15-0331", "Dyke crest, Chainage 1+860", "RFP-2026-112", "BPT-F02",
             "03/11/2026 13:20", "113 mm ball (100 cm2) on 10 cm2 cone load cell",
             "Ball saturated in silicone oil", "Push 2 cm/s", "49.1915,-123.1598,3.1"]
    heading = "    (m)(cm/s) AREA (mm^2)" + cell("%g" % cone_mm2)
    lines = header_lines(texts, water_table, channels, heading)
    ball_noise, u_noise = Wander(rng, 0.03, 0.85), Wander(rng, 0.03, 0.85)
    incl_x, incl_y = -0.1, 0.3
    temperature = 12.4
    step = 0.05
    for i in range(1, 301):
        z = round(i * step, 3)
        u0 = max(0.0, (z - water_table) * WATER_KPA_PER_M)
        # Undrained strength: a desiccated crust, then normally consolidated clay; N ball 10.5.
        crust = 1 - smoothstep(z, 0.9, 0.6)
        su = crust * (38 - 18 * z) + (1 - crust) * (6.5 + 1.35 * z)
        su *= math.exp(ball_noise.next())
        # A silt seam at 7.2 m.
        su += 9 * math.exp(-((z - 7.2) / 0.1) ** 2)
        q_ball = 10.5 * su
        # The load cell reads the ball's load as a cone pressure: over the cone's area, not the ball's.
        reading = q_ball * ball_mm2 / cone_mm2
        u2 = u0 + (1 - crust) * 0.45 * q_ball + 2 * u_noise.next()
        if z <= water_table:
            u2 = -1.5 + 2 * u_noise.next()
        incl_x += rng.gauss(-0.0006, 0.004)
        incl_y += rng.gauss(0.0009, 0.004)
        temperature += (9.8 - temperature) * 0.02 + rng.gauss(0, 0.005)
        speed = push_speed(rng, z, step)
        counts = [channels[0].counts(reading), channels[1].counts(u2), channels[2].counts(incl_x),
                  channels[3].counts(incl_y), channels[4].counts(temperature)]
        lines.append(data_line(z, speed, counts, 3))
    with open(path, "w", newline="") as f:
        f.write(CRLF.join(lines) + CRLF)


if __name__ == "__main__":
    piezocone(os.path.join(OUT, "PXC-E05.CPT"))
    ball(os.path.join(OUT, "PXC-F02.CPT"))
