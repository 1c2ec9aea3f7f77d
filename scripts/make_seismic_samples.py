#!/usr/bin/env python3
"""Writes the demo seismic soundings of data/samples: a QRD FIELDBOX .SEI, a PX DAS .SMC, a
QRD FIELDBOX .SLG log and an FLDACQ series. The ground is a soft clay over dense sand, shear wave
velocity rising from about 150 m/s at the surface to about 290 m/s at 18 m, struck 0.6 m from the
rods; the waves are Ricker pulses with noise, a trigger transient and a weak P precursor."""
import math
import os
import random

OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data", "samples")
HAMMER = 0.6
CRLF = "\r\n"


def vs(z):
    return 150.0 + 8.0 * z


def travel_ms(z, v_of=vs):
    # Vertical slowness integrated to depth, applied along the slant path.
    steps = 200
    slowness = sum(1.0 / v_of(z * (k + 0.5) / steps) for k in range(steps)) / steps
    return math.sqrt(z * z + HAMMER * HAMMER) * slowness * 1000.0


def ricker(t_ms, f_hz):
    a = (math.pi * f_hz * t_ms / 1000.0) ** 2
    return (1 - 2 * a) * math.exp(-a)


def wave(rng, n, dt_ms, z, polarity, trigger_ms=1.5, vp=1500.0):
    t_s = trigger_ms + travel_ms(z)
    t_p = trigger_ms + math.sqrt(z * z + HAMMER * HAMMER) / vp * 1000.0
    amp = 0.9 * math.sqrt(1.5 / z)
    f = 70.0
    # The pulse's centre stands this far behind the first break, where the picks of the file lie.
    lead = 0.75 / f * 1000.0
    out = []
    for s in range(1, n + 1):
        t = s * dt_ms
        v = polarity * amp * ricker(t - t_s - lead, f)
        v += 0.04 * amp * ricker(t - t_p - 0.4, 250.0)
        v += rng.gauss(0.0, 0.004)
        if s <= 6:
            v += 0.25 * (-1) ** s * (7 - s) / 6
        out.append(max(-0.999, min(0.999, v)))
    return out, t_s


QRD_HEADER = [
    "KORVAN FILE VER: SEI.08.11.2015",
    "ACME GEOTECHNICAL LTD.",
    "QRD FIELDBOX SEISMIC ACQUISITION",
    " ",
    "SCPT-A01 => Test Id",
    "J. Ferreira | D. Okafor => Operator / Crew",
    "Fraser River Crossing => Project",
    "North Abutment => Site",
    "Station 12+350 => Location",
    "Downhole seismic, 1.5 m spacing => Comments",
    "14/05/2026 => Test Date",
    "09:42 => Start Time",
    "49.2031N,122.9157W,4.2,9,2  => GPS Data (Lat, Lon, Elev, NSat, Qual)",
    "Ministry of Transportation => Client",
    "R. Lindqvist => Client Representative",
    "Overcast, 12 C => Weather",
    " ",
    "QRD FIELDBOX 4.2.7 => Version",
    " ",
    "FB-2208 => DAS System",
    " ",
    "DSC1042 => Probe Serial",
]


def sei(path, depths, dt_ms=0.1, n=1300):
    rng = random.Random(11)
    lines = list(QRD_HEADER)
    while len(lines) < 55:
        lines.append("3 => Channels" if len(lines) == 32 else " ")
    lines.append("")
    for z in depths:
        a, t_s = wave(rng, n, dt_ms, z, +1)
        b, _ = wave(rng, n, dt_ms, z, -1)
        pick = int(round(t_s / dt_ms))
        lines += ["%06.2f m" % z, ("%.8f" % (dt_ms / 1000.0))[1:], "%5d" % 0, "%5d" % n, "%5dA" % pick,
                  "A(SGEO1)B(SGEO2)",
                  "A" + "".join("%05d" % (32768 + round(v * 65536 / 2)) for v in a) +
                  "B" + "".join("%05d" % (32768 + round(v * 65536 / 2)) for v in b)]
    with open(path, "w", newline="") as f:
        f.write(CRLF.join(lines))


def table_row(value):
    return " " * 12 + str(value).rjust(20)


def smc(path, depths, dt_ms=0.1, n=900):
    rng = random.Random(23)
    lines = ["PX DAS Seismic File 2015.08.07.1", "SCPT-B07 HARBOUR FILL", "M. Castellanos", "PX15-0331",
             "Pier 4 Laydown Area", "J-2026-118", "SCPT-B07", "02/06/2026", "Hammer 0.6 m from rods",
             "Water table 2.1 m", "Three strikes each side",
             "$GPGGA,152301.00,4916.744,N,12307.112,W,1,08,1.1,3.8,M,-16.9,M,,*5C", "",
             table_row(1), table_row("POS SEISMIC"), table_row(2048), table_row("1 g"), table_row("g"),
             table_row(1), table_row(2048), ""]
    for z in depths:
        a, _ = wave(rng, n, dt_ms, z, +1)
        b, _ = wave(rng, n, dt_ms, z, -1)
        lines += ["%06.2f m" % z, ("%.8f" % (dt_ms / 1000.0))[1:], "%5d" % 0, "%5d" % (n + 1), "%5dN" % 0,
                  "A(SGEO1)B(SGEO2)",
                  "A" + "".join("%04d" % (2048 + round(v * 2047)) for v in a) +
                  "B" + "".join("%04d" % (2048 + round(v * 2047)) for v in b)]
    with open(path, "w", newline="") as f:
        f.write(CRLF.join(lines))


def slg(path, z=9.0, dt_ms=0.25, seconds=4):
    rng = random.Random(5)
    n = int(seconds * 1000 / dt_ms)
    header = list(QRD_HEADER)
    header[0] = "KORVAN FILE VER: SLG.01.01.2015"
    header[4] = "SCPT-C12 => Test Id"
    # The log keeps no line in front of its version and none between the version and the DAS.
    del header[16]
    del header[17]
    while len(header) < 23:
        header.append(" ")
    header.append("Gain: 1")
    columns = {"A": [], "B": []}
    for polarity, key in ((+1, "A"), (-1, "B")):
        samples = [rng.gauss(0.0, 0.003) for _ in range(n)]
        for hit in range(seconds):
            start = int((hit * 1000 + 180 + 90 * (key == "B")) / dt_ms)
            pulse, _ = wave(rng, int(120 / dt_ms), dt_ms, z, polarity, trigger_ms=0.5)
            for k, v in enumerate(pulse[8:]):
                if start + k < n:
                    samples[start + k] += v
        columns[key] = samples
    lines = header + ["%06.2f m" % z, ("%.8f" % (dt_ms / 1000.0))[1:], "%5d" % 0, "%5d" % n, "AB"]
    for key in ("A", "B"):
        lines += [key, "".join("%05d" % (32768 + round(max(-0.49, min(0.49, v)) * 65536)) for v in columns[key])]
    with open(path, "w", newline="") as f:
        f.write(CRLF.join(lines))


def fldacq(stem, depths_ft, dt_ms=0.1, n=700):
    rng = random.Random(31)
    for index, ft in enumerate(depths_ft):
        z = ft / ((100 / 2.54) / 12)
        a, _ = wave(rng, n, dt_ms, z, +1)
        b, _ = wave(rng, n, dt_ms, z, -1)
        p = [0.1 * v for v in wave(rng, n, dt_ms, z, +1)[0]]
        name = "%s%03d" % (stem, index + 1)
        header = ["ACME GEOTECHNICAL LTD.", "FLDACQ Seismic Cone Penetration Test",
                  "%s => Filename" % os.path.basename(name)] + QRD_HEADER[4:16] + [" ", "FLDACQ 2.9 => Version",
                  " ", "FB-1107 => DAS System", " ", "DSC0977 => Probe Serial"]
        header[3] = "SCPT-D03 => Test Id"
        while len(header) < 51:
            header.append(" ")
        header.append("%.2f => Depth (ft)" % ft)
        header.append("   Time(s)       P(V)           SA(V)          SB(V)")
        rows = []
        for s in range(n + 1):
            t = s * dt_ms / 1000.0
            k = min(s, n - 1)
            rows.append("%12.6f%15.6E%15.6E%15.6E" % (t, p[k] * 2.5 + 0.012, a[k] * 2.5 + 0.031, b[k] * 2.5 - 0.018))
        with open(os.path.join(OUT, os.path.basename(name)), "w", newline="") as f:
            f.write(CRLF.join(header + rows) + CRLF)


if __name__ == "__main__":
    sei(os.path.join(OUT, "SCPT-A01.SEI"), [1.5 * k for k in range(1, 13)])
    smc(os.path.join(OUT, "SCPT-B07.SMC"), [2.0 + 1.0 * k for k in range(0, 14)])
    slg(os.path.join(OUT, "SCPT-C12.SLG"))
    # The crew numbered the depths out of order on purpose: the reader sorts them.
    fldacq(os.path.join(OUT, "SCPTD03_"), [9.84, 4.92, 14.76, 19.69, 24.61, 29.53, 34.45, 39.37])
