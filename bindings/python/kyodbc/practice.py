"""A practice as programs in Python use it: tables to iterate, transactions as contexts, failures as exceptions.

The records and the named numbers are those of KyODBC.h.
"""
import contextlib
import ctypes
import datetime
from types import TracebackType
from typing import Any, Generic, Iterator, List, Optional, Sequence, Tuple, Type, TypeVar, Union

from . import records
from .library import LIBRARY, check, load, number, pack
from .values import TIMESTAMP_STRUCT, Record, decode

FilterValue = Union[int, str, bytes, datetime.date, TIMESTAMP_STRUCT]
# Field id, operator, value; KYODBC_BETWEEN has a pair of values.
Clause = Tuple[int, int, Union[FilterValue, Tuple[FilterValue, FilterValue]]]
AnyRecord = TypeVar("AnyRecord", bound=Record)

_CLAUSES = 4
_EVERY_ROW: Clause = (records.KYODBC_FIELD_KEY, records.KYODBC_GREATER, 0)


def _filter_arguments(clauses: Sequence[Clause], any_of: bool) -> List[Any]:
    """What the filter functions take. A pair of values uses up the entry of the next clause."""
    fields: List[int] = []
    operators: List[int] = []
    values: List[Any] = []
    for field, operator, value in clauses or (_EVERY_ROW,):
        taken = list(value) if isinstance(value, tuple) else [value]
        joined = records.KYODBC_OR if any_of and fields else 0
        fields += [field | joined] * len(taken)
        operators += [operator] * len(taken)
        values += taken
    if len(values) > _CLAUSES:
        raise ValueError(f"a filter has room for {_CLAUSES} values")
    return [pack(*fields), pack(*operators), *values, *[None] * (_CLAUSES - len(values))]


class Table(Generic[AnyRecord]):
    """The browse set of a table or view. There is one for each, with one filter, sort and position."""

    def __init__(self, library: ctypes.CDLL, name: str, record: Type[AnyRecord]) -> None:
        self._library = library
        self._name = name
        self._record = record
        self._turn = 0

    def _function(self, pattern: str) -> Any:
        return getattr(self._library, pattern.format(self._name))

    def _check(self, code: int) -> None:
        check(self._library, code)

    def _open(self, clauses: Sequence[Clause], sort: Sequence[int], any_of: bool) -> int:
        """Opens the set and gives the number of its rows."""
        self._turn += 1
        self._check(self._function("DB_Set{}Filter")(*_filter_arguments(clauses, any_of)))
        self._check(self._function("DB_Set{}SortIndex")(pack(*(sort or (records.KYODBC_FIELD_KEY,)))))
        if not self._function("DB_Is{}Open")():
            self._check(self._function("DB_Open{}")())
        code, count = number(self._function("DB_Get{}MaxPos"))
        self._check(code)
        return count

    def browse(self, *clauses: Clause, sort: Sequence[int] = (), any_of: bool = False) -> Iterator[AnyRecord]:
        """The rows that all clauses hold for, or any of them with `any_of`, as records of their own; sorted by up
        to four fields, or by key. Rows that somebody deletes meanwhile are left out.

        One walk at a time: when another one of the same table begins, the earlier one raises RuntimeError. After
        a change through this library the set is read again, so collect the rows first: list(...browse())."""
        count = self._open(clauses, sort, any_of)
        return self._walk(count, self._turn)

    def _walk(self, count: int, turn: int) -> Iterator[AnyRecord]:
        get = self._function("DB_Get{}ByPos")
        for position in range(1, count + 1):
            if turn != self._turn:
                raise RuntimeError("another walk through the same table has begun")
            record = self._record()
            code = get(position, record)
            if code == records.KYODBC_NO_ROW:
                continue
            self._check(code)
            yield record

    def __iter__(self) -> Iterator[AnyRecord]:
        return self.browse()

    def count(self, *clauses: Clause, any_of: bool = False) -> int:
        """How many rows the clauses hold for. Ends a walk through the table."""
        return self._open(clauses, (), any_of)

    def get(self, **fields: Any) -> AnyRecord:
        """The row with this key or natural key: get(lPatID=7). Raises NotFound."""
        record = self._record(**fields)
        self._check(self._function("DB_Get{}")(record))
        return record


class ChangeableTable(Table[AnyRecord]):
    """A table, whose rows can be changed."""

    def add(self, record: AnyRecord) -> AnyRecord:
        """Adds the row. The record comes back as it was stored, with its key."""
        self._check(self._function("DB_AddNew{}")(record))
        return record

    def edit(self, record: AnyRecord, mask: int = records.KYODBC_MASK_ALL) -> None:
        """Writes the fields that the mask selects (KYODBC_MASK_...) to the row that the record names."""
        self._check(self._function("DB_EditSel{}")(record, mask))

    def delete(self, record: AnyRecord) -> None:
        """Deletes the row that the record names."""
        self._check(self._function("DB_Delete{}")(record))


class Practice:
    """The connection to a practice. There is one in a process at a time; `library` is the file to load."""

    def __init__(self, source: str, user: str = "", password: str = "", *, owner: str = "",
                 exclusive: bool = False, library: str = LIBRARY) -> None:
        self.library = load(library)
        """For what only the flat calls can do."""
        if self.library.DB_IsDatabaseOpen():
            raise RuntimeError("there is a connection in this process already")
        check(self.library, self.library.DB_InitDatabase(records.tagDBCONNECT(
            szDSN=source, szUID=user, szPWD=password, szOwner=owner, bExclusive=exclusive)))
        db = self.library
        self.settings = ChangeableTable(db, "TCfg", records.tagTCONFIG)
        self.diagnoses = ChangeableTable(db, "TDiag", records.tagTDIAGNOSIS)
        self.doctors = ChangeableTable(db, "TDr", records.tagTDOCTOR)
        self.groups = ChangeableTable(db, "TGrp", records.tagTGROUP)
        self.images = ChangeableTable(db, "TImg", records.tagTIMAGE)
        self.makros = ChangeableTable(db, "TMak", records.tagTMAKRO)
        self.patients = ChangeableTable(db, "TPat", records.tagTPATIENT)
        self.patients_with_doctors = Table(db, "PatEx", records.tagTPATIENTEX)
        self.stations = ChangeableTable(db, "TStat", records.tagTSTATION)
        self.tests = ChangeableTable(db, "TTest", records.tagTTEST)
        self.units = ChangeableTable(db, "TUnit", records.tagTUNIT)

    def close(self) -> None:
        """Closes the connection; done by `with`."""
        check(self.library, self.library.DB_CloseDatabase())

    def __enter__(self) -> "Practice":
        return self

    def __exit__(self, kind: Optional[Type[BaseException]], error: Optional[BaseException],
                 trace: Optional[TracebackType]) -> None:
        if kind is None:
            self.close()
        else:
            # What went wrong first counts.
            self.library.DB_CloseDatabase()

    @contextlib.contextmanager
    def transaction(self) -> Iterator[None]:
        """Changes inside are stored together at the end, or not at all when anything is raised."""
        check(self.library, self.library.DB_BeginTransaction())
        try:
            yield
        except BaseException:
            self.library.DB_RollbackTransaction()
            raise
        check(self.library, self.library.DB_CommitTransaction())

    def setting(self, key: str, default: str = "", *, station: str = "-") -> str:
        """The text of a setting."""
        buffer = ctypes.create_string_buffer(129)
        check(self.library, self.library.DB_GetProfileString(key, station, default, buffer, len(buffer), None))
        return decode(buffer.raw)

    def set_setting(self, key: str, value: str, *, station: str = "-") -> None:
        """Stores a setting. An empty text removes it."""
        check(self.library, self.library.DB_WriteProfileString(key, station, value))
