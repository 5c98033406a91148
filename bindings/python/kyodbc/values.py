"""How values of Python travel through the library: texts, numbers and times."""
import ctypes
import datetime
from typing import Any, Optional, Union

BYTE, WORD, DWORD = ctypes.c_uint8, ctypes.c_uint16, ctypes.c_uint32
LONG = BOOL = ctypes.c_int32

# Bytes that are no UTF-8 (the separator 0xBB of compact records) become lone surrogates and back.
_ERRORS = "surrogateescape"


def encode(text: str, size: Optional[int] = None) -> bytes:
    """The text as UTF-8 bytes up to its first zero character; with a `size`, at most size-1 bytes of it, never
    a part of a character. That is how the library cuts too."""
    text = text.split("\0", 1)[0]
    if size is None:
        return text.encode("utf-8", _ERRORS)
    kept = bytearray()
    for character in text:
        more = character.encode("utf-8", _ERRORS)
        if len(kept) + len(more) > size - 1:
            break
        kept += more
    return bytes(kept)


def decode(data: Union[bytes, bytearray]) -> str:
    """The bytes up to the first zero byte as a text."""
    return bytes(data).split(b"\0", 1)[0].decode("utf-8", _ERRORS)


class TIMESTAMP_STRUCT(ctypes.Structure):
    """A date and time. Years from 1 on convert to and from datetime; all fields 0 is no date."""
    _fields_ = [("year", ctypes.c_int16), ("month", WORD), ("day", WORD), ("hour", WORD), ("minute", WORD),
                ("second", WORD), ("fraction", DWORD)]

    @classmethod
    def of(cls, value: Optional[datetime.date]) -> "TIMESTAMP_STRUCT":
        """From a datetime or a date; None gives all fields 0. The fraction counts nanoseconds."""
        if value is None:
            return cls()
        if not isinstance(value, datetime.datetime):
            return cls(value.year, value.month, value.day)
        return cls(value.year, value.month, value.day, value.hour, value.minute, value.second,
                   value.microsecond * 1000)

    def datetime(self) -> Optional[datetime.datetime]:
        """As a datetime; None for what the calendar does not know."""
        try:
            return datetime.datetime(self.year, self.month, self.day, self.hour, self.minute, self.second,
                                     self.fraction // 1000)
        except ValueError:
            return None


class Record(ctypes.Structure):
    """A packed record. Its text fields read and write as str, cut to the field as the library cuts; times take
    a TIMESTAMP_STRUCT, a datetime, a date or None."""

    def __init__(self, **values: Any) -> None:
        super().__init__()
        for name, value in values.items():
            if name not in dict(self._fields_):
                raise AttributeError(f"{type(self).__name__} has no field {name}")
            setattr(self, name, value)

    def __getattribute__(self, name: str) -> Any:
        value = super().__getattribute__(name)
        return decode(value) if isinstance(value, bytes) else value

    def __setattr__(self, name: str, value: Any) -> None:
        kind = dict(self._fields_).get(name)
        if kind is None:
            raise AttributeError(f"{type(self).__name__} has no field {name}")
        if isinstance(value, str):
            value = encode(value, ctypes.sizeof(kind))
            # ctypes would leave the tail of a longer text behind.
            place = getattr(type(self), name)
            ctypes.memset(ctypes.addressof(self) + place.offset, 0, place.size)
        elif kind is TIMESTAMP_STRUCT and not isinstance(value, TIMESTAMP_STRUCT):
            value = TIMESTAMP_STRUCT.of(value)
        super().__setattr__(name, value)


class Text:
    """An argument of type const char*: a str, bytes or None."""

    @staticmethod
    def from_param(value: Any) -> Any:
        return ctypes.c_char_p.from_param(encode(value) if isinstance(value, str) else value)


class Value:
    """The value of a filter clause: an int for keys, a str, a date or datetime, or None for an unused one."""

    @staticmethod
    def from_param(value: Any) -> Any:
        if isinstance(value, str):
            return ctypes.c_char_p.from_param(encode(value))
        if isinstance(value, int):
            return ctypes.byref(LONG(value))
        if isinstance(value, datetime.date):
            return ctypes.byref(TIMESTAMP_STRUCT.of(value))
        if isinstance(value, ctypes.Structure):
            return ctypes.byref(value)
        return ctypes.c_void_p.from_param(value)
