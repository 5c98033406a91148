"""The library itself: loading it, and the plain ways to call it."""
import ctypes
from typing import Any, Callable

from .records import (CODE_NAMES, FUNCTIONS, KYODBC_IMAGE_NOT_FOUND, KYODBC_NO_ROW, KYODBC_OK,
                      KYODBC_PATIENT_NOT_FOUND, KYODBC_TEST_NOT_FOUND, KYODBC_UNIT_NOT_FOUND, tagDBERRORDETAIL)
from .values import LONG, decode

LIBRARY = "libKyODBC.so.1"
_NOT_FOUND = (KYODBC_NO_ROW, KYODBC_PATIENT_NOT_FOUND, KYODBC_IMAGE_NOT_FOUND, KYODBC_UNIT_NOT_FOUND,
              KYODBC_TEST_NOT_FOUND)


class Error(Exception):
    """A call that failed; `code` is its result code, `name` the code's name, `detail` the tagDBERRORDETAIL of
    the last failure."""

    def __init__(self, code: int, detail: tagDBERRORDETAIL) -> None:
        super().__init__(f"{detail.szFunction}: code {code}: {detail.szMessage}")
        self.code = code
        self.name: str = CODE_NAMES.get(code, "unknown code")
        self.detail = detail


class NotFound(Error):
    """There is no such row: code 21, 64, 65, 66 or 67."""


def load(path: str = LIBRARY) -> ctypes.CDLL:
    """Loads the library and gives all its functions their arguments and results. Keep the result: the library
    has one connection per process, whatever is loaded how often."""
    library = ctypes.CDLL(path)
    for name, result, arguments in FUNCTIONS:
        function = getattr(library, name)
        function.restype = result
        function.argtypes = arguments
    return library


def last_error(library: ctypes.CDLL) -> tagDBERRORDETAIL:
    """The last failure as a tagDBERRORDETAIL; its code is 0 when there was none."""
    detail = tagDBERRORDETAIL()
    library.DB_GetLastErrorDetail(ctypes.byref(detail), ctypes.sizeof(detail))
    return detail


def check(library: ctypes.CDLL, code: int) -> None:
    """Raises Error for any code but 0. Call it right behind the call that gave the code."""
    if code != KYODBC_OK:
        raise (NotFound if code in _NOT_FOUND else Error)(code, last_error(library))


def pack(first: int, second: int = 0, third: int = 0, fourth: int = 0) -> int:
    """Four entries of a filter or sort word, as KYODBC_PACK."""
    return LONG(first | second << 8 | third << 16 | fourth << 24).value


def number(function: Callable[..., int], *arguments: Any) -> "tuple[int, int]":
    """What a function writes to its last argument, a LONG*: number(db.DB_GetNumTPat). Gives code and number."""
    value = LONG()
    return function(*arguments, ctypes.byref(value)), value.value


def text(function: Callable[..., int], *arguments: Any, size: int = 260) -> "tuple[int, str]":
    """What a function with a buffer and its size writes: text(db.DB_GetDBMS). Gives code and text."""
    buffer = ctypes.create_string_buffer(size)
    return function(*arguments, buffer, size), decode(buffer.raw)
