"""Four plots with a day of samples each as a page of SVG: what a browser would be asked to draw instead of ours."""

import math

SIZE = (1000, 776)
SAMPLES = 1440
CURVES = [("Outdoor Temperature", "°C", 12, 9, 10, 12), ("Outdoor Humidity", "%", 65, 25, 510, 12),
          ("Wind Speed", "m/s", 6, 5, 10, 404), ("Outdoor Dew Point", "°C", 6, 5, 510, 404)]
LEFT, TOP, WIDTH, HEIGHT = 44, 40, 420, 290


def values(curve, run):
    _, _, level, swing, _, _ = curve
    for sample in range(SAMPLES):
        day = 2 * math.pi * sample / SAMPLES
        yield level + swing * (0.7 * math.sin(day + run) + 0.2 * math.sin(17 * day) + 0.1 * math.sin(211 * day))


def points(curve, run):
    _, _, level, swing, _, _ = curve
    for sample, value in enumerate(values(curve, run)):
        yield (LEFT + WIDTH * sample / (SAMPLES - 1), TOP + HEIGHT * (0.5 - (value - level) / swing / 2.2))


def line(curve, run):
    return "M" + "L".join(f"{x:.2f} {y:.2f}" for x, y in points(curve, run))


def area(curve, run):
    return line(curve, run) + f"L{LEFT + WIDTH} {TOP + HEIGHT}L{LEFT} {TOP + HEIGHT}Z"


def plot(number, curve, run):
    title, unit, level, swing, x, y = curve
    parts = [f'<g transform="translate({x} {y})"><rect x=".5" y=".5" width="479" height="359" rx="8" fill="#fff" '
             'stroke="#ccc"/>',
             f'<text class="title" x="14" y="30">{title}</text>',
             f'<text class="value" x="{LEFT + WIDTH}" y="30" text-anchor="end">{level:.1f} {unit}</text>']
    for step in range(7):
        at = TOP + HEIGHT * step / 6
        parts.append(f'<path d="M{LEFT} {at:.1f}H{LEFT + WIDTH}" stroke="#ddd"/>'
                     f'<text x="{LEFT - 6}" y="{at + 4:.1f}" text-anchor="end">{level + swing * (3 - step) / 3:.0f}</text>')
    for step in range(9):
        at = LEFT + WIDTH * step / 8
        parts.append(f'<path d="M{at:.1f} {TOP}V{TOP + HEIGHT}" stroke="#ddd"/>'
                     f'<text x="{at:.1f}" y="{TOP + HEIGHT + 18}" text-anchor="middle">{3 * step:02}:00</text>')
    parts.append(f'<path id="area{number}" d="{area(curve, run)}" fill="url(#fade)"/>'
                 f'<path id="line{number}" d="{line(curve, run)}" fill="none" stroke="#0a6ed1" stroke-width="1.6" '
                 'stroke-linejoin="round" stroke-linecap="round"/></g>')
    return "".join(parts)


def page(run=0):
    width, height = SIZE
    plots = "".join(plot(number, curve, run) for number, curve in enumerate(CURVES))
    return ('<!DOCTYPE html><meta charset="utf-8"><style>@page{margin:0}body{margin:0;background:#fff}svg{display:block}'
            'text{font:12px sans-serif;fill:#6e6e73}.title{font:bold 15px sans-serif;fill:#1d1d1f}'
            '.value{font:bold 16px sans-serif;fill:#0a6ed1}</style>'
            f'<svg width="{width}" height="{height}" xmlns="http://www.w3.org/2000/svg">'
            '<linearGradient id="fade" gradientUnits="userSpaceOnUse" x1="0" x2="0" '
            f'y1="{TOP}" y2="{TOP + HEIGHT}"><stop stop-color="#0a6ed1" stop-opacity=".34"/>'
            '<stop offset="1" stop-color="#0a6ed1" stop-opacity=".03"/></linearGradient>'
            f'{plots}</svg>')


def change(run):
    """A script that gives the page other values."""
    return ";".join(f'document.getElementById("line{number}").setAttribute("d","{line(curve, run)}");'
                    f'document.getElementById("area{number}").setAttribute("d","{area(curve, run)}")'
                    for number, curve in enumerate(CURVES)) + ";0"
