"""Reads and writes the PNG files of a theme: 8 bits a channel, not interlaced, with nothing but the standard library."""
import collections
import struct
import zlib

SIGNATURE = b"\x89PNG\r\n\x1a\n"
GREY, RGB, GREY_ALPHA, RGBA = 0, 2, 4, 6
CHANNELS = {GREY: 1, RGB: 3, GREY_ALPHA: 2, RGBA: 4}


class PngError(Exception):
    """A file that is no PNG, or one of a kind that no theme has."""


def chunks(data):
    if not data.startswith(SIGNATURE):
        raise PngError("no PNG signature")
    position = len(SIGNATURE)
    while position + 12 <= len(data):
        length, kind = struct.unpack_from(">I4s", data, position)
        body = data[position + 8:position + 8 + length]
        yield kind, body
        position += 12 + length


def header(path):
    """(width, height, colour type) of the file, without decoding its pixels."""
    with open(path, "rb") as file:
        start = file.read(33)
    for kind, body in chunks(start):
        if kind != b"IHDR":
            break
        width, height, depth, colour, _, _, interlace = struct.unpack(">IIBBBBB", body)
        if depth != 8 or interlace or colour not in CHANNELS:
            raise PngError(f"depth {depth}, colour type {colour}, interlace {interlace}")
        return width, height, colour
    raise PngError("no header")


def add_bytes(row, above):
    """Adds two rows byte by byte, modulo 256, as one long number instead of a loop."""
    low = int.from_bytes(b"\x7f" * len(row), "big")
    left, right = int.from_bytes(row, "big"), int.from_bytes(above, "big")
    return (((left & low) + (right & low)) ^ ((left ^ right) & ~low)).to_bytes(len(row), "big")


def subtract_bytes(row, above):
    low = int.from_bytes(b"\x7f" * len(row), "big")
    high = int.from_bytes(b"\x80" * len(row), "big")
    left, right = int.from_bytes(row, "big"), int.from_bytes(above, "big")
    return (((left | high) - (right & low)) ^ ((left ^ ~right) & high)).to_bytes(len(row), "big")


def undo_left_filters(kind, row, above, step):
    """Undoes Sub, Average and Paeth, each of which needs the byte to the left and so goes one by one."""
    row = bytearray(row)
    for i, value in enumerate(row):
        left = row[i - step] if i >= step else 0
        up, corner = above[i], above[i - step] if i >= step else 0
        if kind == 1:
            guess = left
        elif kind == 3:
            guess = (left + up) // 2
        else:
            to_left, to_up, to_corner = abs(up - corner), abs(left - corner), abs(left + up - 2 * corner)
            guess = left if to_left <= to_up and to_left <= to_corner else up if to_up <= to_corner else corner
        row[i] = (value + guess) & 255
    return bytes(row)


def to_rgba(row, colour):
    if colour == RGBA:
        return row
    step = CHANNELS[colour]
    wide = bytearray(b"\xff" * (len(row) // step * 4))
    for channel in range(3):
        wide[channel::4] = row[channel if colour == RGB else 0::step]
    if colour == GREY_ALPHA:
        wide[3::4] = row[1::2]
    return bytes(wide)


def read(path):
    """(width, height, rows), each row the bytes R, G, B, A of its pixels."""
    width, height, colour = header(path)
    with open(path, "rb") as file:
        packed = b"".join(body for kind, body in chunks(file.read()) if kind == b"IDAT")
    data = zlib.decompress(packed)
    step = CHANNELS[colour]
    stride = width * step
    rows, above = [], bytes(stride)
    for y in range(height):
        begin = y * (stride + 1)
        kind, row = data[begin], data[begin + 1:begin + 1 + stride]
        if kind == 2:
            row = add_bytes(row, above)
        elif kind:
            row = undo_left_filters(kind, row, above, step)
        rows.append(to_rgba(row, colour))
        above = row
    return width, height, rows


def fewer_colours(rows, kept):
    """The rows with their most frequent colours as they are, and the rest, those of smooth edges, in coarse steps."""
    counts = collections.Counter(row[x:x + 4] for row in rows for x in range(0, len(row), 4))
    frequent = [colour for colour, _ in sorted(counts.items(), key=lambda item: (-item[1], item[0]))[:kept]]
    coarse = {colour: bytes(min(255, (value + 8) // 16 * 16) for value in colour) for colour in counts}
    coarse.update({colour: colour for colour in frequent})
    return [b"".join(coarse[row[x:x + 4]] for x in range(0, len(row), 4)) for row in rows]


def write(path, width, height, rows, flat=False):
    """Writes rows of R, G, B, A as a 32-bit PNG without a date or any other note, so that equal pictures are equal files.
    Differences to the row above pack gradients well, plain rows a picture of few flat colours."""
    filtered, above = [], bytes(width * 4)
    for row in rows:
        filtered.append(b"\x00" + row if flat else b"\x02" + subtract_bytes(row, above))
        above = row
    parts = ((b"IHDR", struct.pack(">IIBBBBB", width, height, 8, RGBA, 0, 0, 0)),
             (b"IDAT", zlib.compress(b"".join(filtered), 9)), (b"IEND", b""))
    with open(path, "wb") as file:
        file.write(SIGNATURE)
        for kind, body in parts:
            file.write(struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body)))
