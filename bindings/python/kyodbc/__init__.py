"""The flat call interface of KyODBC through ctypes.

    import kyodbc

    db = kyodbc.load()
    kyodbc.check(db, db.DB_InitDatabase(kyodbc.tagDBCONNECT(szDSN="practice")))

Names, arguments and codes are those of KyODBC.h, which documents them.
"""
import ctypes

from .records import *  # noqa: F401,F403 the whole interface
from .records import FUNCTIONS, KYODBC_OK, tagDBERRORDETAIL
from .values import LONG, TIMESTAMP_STRUCT, Record, decode, encode

LIBRARY = "libKyODBC.so.1"


class Error(Exception):
    """A call that failed; `code` is its result code, `detail` the tagDBERRORDETAIL of the last failure."""

    def __init__(self, code, detail):
        super().__init__(f"{detail.szFunction}: code {code}: {detail.szMessage}")
        self.code = code
        self.detail = detail


def load(path=LIBRARY):
    """Loads the library and gives all its functions their arguments and results. Keep the result: the library
    has one connection per process, whatever is loaded how often."""
    library = ctypes.CDLL(path)
    for name, result, arguments in FUNCTIONS:
        function = getattr(library, name)
        function.restype = result
        function.argtypes = arguments
    return library


def last_error(library):
    """The last failure as a tagDBERRORDETAIL; its code is 0 when there was none."""
    detail = tagDBERRORDETAIL()
    library.DB_GetLastErrorDetail(ctypes.byref(detail), ctypes.sizeof(detail))
    return detail


def check(library, code):
    """Raises Error for any code but 0. Call it right behind the call that gave the code."""
    if code != KYODBC_OK:
        raise Error(code, last_error(library))


def pack(first, second=0, third=0, fourth=0):
    """Four entries of a filter or sort word, as KYODBC_PACK."""
    return LONG(first | second << 8 | third << 16 | fourth << 24).value


def number(function, *arguments):
    """What a function writes to its last argument, a LONG*: number(db.DB_GetNumTPat). Gives code and number."""
    value = LONG()
    return function(*arguments, ctypes.byref(value)), value.value


def text(function, *arguments, size=260):
    """What a function with a buffer and its size writes: text(db.DB_GetDBMS). Gives code and text."""
    buffer = ctypes.create_string_buffer(size)
    return function(*arguments, buffer, size), decode(buffer.raw)
