"""The picture of a virtual screen, read from the memory the X server draws into."""

import mmap
import pathlib
import struct
import zlib


class Screen:
    """The frame buffer that Xvfb keeps in a file (-fbdir); reading it costs the server nothing."""

    HEADER = struct.Struct(">25I")

    def __init__(self, file):
        self._file = open(file, "rb")
        self._memory = mmap.mmap(self._file.fileno(), 0, access=mmap.ACCESS_READ)
        header = self.HEADER.unpack_from(self._memory)
        self.width, self.height = header[4], header[5]
        self._row = header[12]
        colours, colour_size = header[19], 12
        self._start = header[0] + colours * colour_size
        if header[11] != 32:
            raise ValueError(f"{header[11]} bits a pixel instead of 32")

    def close(self):
        self._memory.close()
        self._file.close()

    def area(self, x, y, width, height):
        """The pixels of a rectangle, four bytes each (blue, green, red, unused), row by row."""
        x, y = max(0, x), max(0, y)
        width, height = min(width, self.width - x), min(height, self.height - y)
        first = self._start + y * self._row + x * 4
        return b"".join(self._memory[first + row * self._row:first + row * self._row + width * 4]
                        for row in range(height))

    def everything(self):
        return self.area(0, 0, self.width, self.height)

    def colours(self, x, y, width, height):
        """How many different colours a rectangle shows."""
        pixels = self.area(x, y, width, height)
        return len({pixels[at:at + 3] for at in range(0, len(pixels), 4)})

    def save(self, file, area=None):
        """Writes the screen, or a rectangle of it, as a PNG; readers never see half a file."""
        x, y, width, height = area or (0, 0, self.width, self.height)
        x, y = max(0, x), max(0, y)
        width, height = min(width, self.width - x), min(height, self.height - y)
        file = pathlib.Path(file)
        file.parent.mkdir(parents=True, exist_ok=True)
        temporary = file.with_suffix(".part")
        temporary.write_bytes(png(width, height, self.area(x, y, width, height)))
        temporary.replace(file)


def png(width, height, pixels):
    """A PNG of pixels as `Screen.area` gives them."""
    colours = bytearray(width * height * 3)
    for channel in range(3):
        colours[channel::3] = pixels[2 - channel::4]
    rows = b"".join(b"\0" + bytes(colours[row * width * 3:(row + 1) * width * 3])
                    for row in range(height))
    return (b"\x89PNG\r\n\x1a\n" + _chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
            + _chunk(b"IDAT", zlib.compress(rows, 6)) + _chunk(b"IEND", b""))


def _chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
