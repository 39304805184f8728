"""What a display shows."""
import ctypes

GROUND = 0xFF00FF  # a colour that the window does not have
ALL_PLANES, Z_PIXMAP = 0xFFFFFFFF, 2


class Image(ctypes.Structure):
    """An XImage, as far as it is used."""
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("offset", ctypes.c_int), ("format", ctypes.c_int),
                ("data", ctypes.c_void_p)]


class Screen:
    """The picture on the display, whose ground has a colour of its own."""

    def __init__(self, name):
        self.x, self.test = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXtst.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.x.XGetImage.restype = ctypes.POINTER(Image)
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(name.encode()))
        self.root = ctypes.c_ulong(self.x.XDefaultRootWindow(self.display))
        self.x.XSetWindowBackground(self.display, self.root, ctypes.c_ulong(GROUND))
        self.x.XClearWindow(self.display, self.root)
        self.width, self.height = (get(self.display, 0) for get in (self.x.XDisplayWidth, self.x.XDisplayHeight))

    def pixels(self, left, top, width, height):
        """Without what a pixel holds beside its colour."""
        image = self.x.XGetImage(self.display, self.root, left, top, width, height, ctypes.c_ulong(ALL_PLANES), Z_PIXMAP)
        data = ctypes.string_at(image.contents.data, width * height * 4)
        self.x.XDestroyImage(image)
        return [pixel & 0xFFFFFF for pixel in memoryview(data).cast("I")]

    def is_painted(self):
        """Whether there is a window with something in it: a row through its middle has more than one colour."""
        row = [pixel for pixel in self.pixels(0, self.height // 2, self.width, 1) if pixel != GROUND]
        return len(set(row)) > 1

    def key(self, code, down):
        self.test.XTestFakeKeyEvent(self.display, code, down, ctypes.c_ulong(0))
        self.x.XFlush(self.display)

    def close(self):
        self.x.XCloseDisplay(self.display)
