#!/usr/bin/env python3
"""Writes the table of advance widths of the report face from its font files.

    scripts/face_widths.py LiberationSans-Regular.ttf LiberationSans-Bold.ttf > src/platform/reports/FaceWidths.cpp

Widths are in units of 2048 to the em. Covered are ASCII, Latin-1 and Latin Extended-A as one plain table, and, one by one,
the signs outside it that a document may hold.
"""
import struct
import sys

FIRST, LAST = 0x20, 0x17F
OTHERS = [0x192, 0x218, 0x219, 0x21A, 0x21B, 0x2C6, 0x2C7, 0x2D8, 0x2D9, 0x2DA, 0x2DB, 0x2DC, 0x2DD,
          0x2013, 0x2014, 0x2018, 0x2019, 0x201A, 0x201C, 0x201D, 0x201E, 0x2020, 0x2021, 0x2022, 0x2026,
          0x2030, 0x2032, 0x2033, 0x2039, 0x203A, 0x20AC, 0x2116, 0x2122, 0x2126, 0x2190, 0x2191, 0x2192,
          0x2193, 0x2202, 0x2206, 0x220F, 0x2211, 0x2212, 0x221A, 0x221E, 0x2248, 0x2260, 0x2264, 0x2265]


def tables(data):
    count = struct.unpack('>H', data[4:6])[0]
    for i in range(count):
        tag, _, offset, length = struct.unpack('>4sIII', data[12 + 16 * i:28 + 16 * i])
        yield tag.decode(), data[offset:offset + length]


def character_map(cmap):
    for i in range(struct.unpack('>H', cmap[2:4])[0]):
        platform, encoding, offset = struct.unpack('>HHI', cmap[4 + 8 * i:12 + 8 * i])
        sub = cmap[offset:]
        if (platform, encoding) == (3, 1) and struct.unpack('>H', sub[:2])[0] == 4:
            break
    else:
        sys.exit('no Unicode map of format 4')
    n = struct.unpack('>H', sub[6:8])[0] // 2
    ends = struct.unpack(f'>{n}H', sub[14:14 + 2 * n])
    starts = struct.unpack(f'>{n}H', sub[16 + 2 * n:16 + 4 * n])
    deltas = struct.unpack(f'>{n}h', sub[16 + 4 * n:16 + 6 * n])
    base = 16 + 6 * n
    offsets = struct.unpack(f'>{n}H', sub[base:base + 2 * n])
    result = {}
    for k in range(n):
        for code in range(starts[k], min(ends[k], 0xFFFE) + 1):
            if offsets[k] == 0:
                glyph = (code + deltas[k]) & 0xFFFF
            else:
                at = base + 2 * k + offsets[k] + 2 * (code - starts[k])
                glyph = struct.unpack('>H', sub[at:at + 2])[0]
                if glyph:
                    glyph = (glyph + deltas[k]) & 0xFFFF
            if glyph:
                result[code] = glyph
    return result


def advances(path):
    with open(path, 'rb') as file:
        font = dict(tables(file.read()))
    assert struct.unpack('>H', font['head'][18:20])[0] == 2048
    count = struct.unpack('>H', font['hhea'][34:36])[0]
    widths = [struct.unpack('>H', font['hmtx'][4 * i:4 * i + 2])[0] for i in range(count)]
    return {code: widths[min(glyph, count - 1)] for code, glyph in character_map(font['cmap']).items()}


def main():
    normal, bold = advances(sys.argv[1]), advances(sys.argv[2])
    print('// Made by scripts/face_widths.py from the font files; not to be edited.')
    print('#include "platform/reports/FaceWidths.h"\n')
    print('namespace bravona::detail {\n')
    print('// clang-format off')
    for name, table in (('plainNormal', normal), ('plainBold', bold)):
        print(f'const std::array<std::uint16_t, plainCount> {name} = {{')
        values = [table.get(code, 0) for code in range(FIRST, LAST + 1)]
        for i in range(0, len(values), 16):
            print('    ' + ' '.join(f'{v},' for v in values[i:i + 16]))
        print('};\n')
    others = [code for code in OTHERS if code in normal and code in bold]
    print('const std::array<SignWidth, signCount> signs = {{')
    for code in others:
        print(f'    {{0x{code:04X}, {normal[code]}, {bold[code]}}},')
    print('}};')
    print('// clang-format on\n')
    print('}  // namespace bravona::detail')
    sys.stderr.write(f'{len(others)} signs\n')


main()
