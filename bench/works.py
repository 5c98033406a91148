"""What is measured, and what must be reached."""

from dataclasses import dataclass, field

SIZES = (10_000, 100_000, 1_000_000)
PAGE = 50


@dataclass(frozen=True)
class Work:
    """Something that contenders do. Works of one group follow each other on what the first one opened."""
    name: str
    count: int  # how often in a round, if that does not take long
    group: str
    peers_up_to: int = 1_000_000  # rows; beyond, only the bare program and the library are measured
    writes: bool = False
    checks: int = 20  # how often when it is checked
    whole: bool = False  # always done so often: each time is another one


WORKS = (
    Work("connect", 10, "connect", peers_up_to=100_000),
    Work("get", 200, "rows"),
    Work("edit", 100, "rows", writes=True),
    Work("add", 100, "rows", writes=True),
    Work("newest", 200, "rows"),
    Work("last_id", 100, "rows", checks=2),
    Work("count", 20, "rows", checks=2),
    Work("open_patients", 1, "open"),
    Work("open_images", 1, "open"),
    Work("open_images_sorted", 1, "open", peers_up_to=100_000),
    Work("walk", 1, "open"),
    Work("positions", 100, "patients", peers_up_to=100_000),
    Work("jump", 10, "patients", peers_up_to=100_000),
    Work("sequence", 100, "patients", peers_up_to=100_000),
    Work("maxpos", 20, "patients", peers_up_to=100_000, checks=2),
    Work("seek_text", 12, "patients", peers_up_to=0, checks=2),
    Work("edit_open", 100, "patients", peers_up_to=0, writes=True, checks=2),
    Work("edit_look", 10, "patients", peers_up_to=100_000, writes=True, checks=2),
    Work("resort", 2, "orders", peers_up_to=100_000),
    Work("refilter", 6, "orders", peers_up_to=100_000, whole=True),
    Work("seek_image", 20, "images", peers_up_to=0, checks=2),
    Work("seek_joined", 10, "joined", peers_up_to=0, checks=2),
)


@dataclass(frozen=True)
class Line:
    """A line of the table: the library's time for a work against the bare program's for a base."""
    title: str
    work: str
    base: str = ""  # what the bare program does in the same turns; the same work when empty
    rows: int = 100_000
    most: dict = field(default_factory=dict)  # database: largest ratio; none: for information
    most_ms: float = 0  # and at most so many milliseconds, whatever the base takes
    flat: bool = False  # does not grow with the rows


def everywhere(ratio):
    return {"SQLite": ratio, "PostgreSQL": ratio, "MariaDB": ratio}


SINGLE_ROW = {"SQLite": 1.25, "PostgreSQL": 1.1, "MariaDB": 1.1}
OPENED = {"SQLite": 0.2, "PostgreSQL": 0.5, "MariaDB": 0.2}

LINES = (
    Line("open the patients by name, first row standing", "open_patients", most=OPENED),
    Line("open the images, first row standing", "open_images", rows=1_000_000, most=everywhere(0.2)),
    Line("open the images by time, first row standing", "open_images_sorted", rows=1_000_000,
         most=everywhere(0.2)),
    Line("the same, against the query of its keys", "open_images_sorted", "open_images_sorted_keys",
         rows=1_000_000),
    Line("open and walk all patients", "walk", most=everywhere(1.2)),
    Line("a random position, against a read by key", "positions", "get", most=everywhere(1.3)),
    Line("a random position, against a static cursor", "positions"),
    Line(f"a jump and a page of {PAGE} rows", "jump"),
    Line("one position after another", "sequence"),
    Line("DB_GetNum...", "count", most=everywhere(1.1)),
    Line("DB_Get...MaxPos, against a count", "maxpos", most=everywhere(1.1)),
    Line("another filter, against a static cursor", "refilter", most=everywhere(0.6)),
    Line("another filter, against the query of its keys", "refilter", "refilter_keys", most=everywhere(1.1)),
    Line("another sort order, against the query of its keys", "resort", "resort_keys", most=everywhere(1.1)),
    Line("get by key", "get", most=SINGLE_ROW),
    Line("edit by key", "edit", most=SINGLE_ROW),
    Line("add and read back", "add", most=SINGLE_ROW),
    Line("add and read back, against a transaction of both", "add", "add_whole"),
    Line("newest image of a patient", "newest", most=SINGLE_ROW),
    Line("edit by key while the patients are open", "edit_open", "edit", flat=True),
    Line("the same and a look at the first row", "edit_look", "edit_look_keys"),
    Line("DB_MoveToTImgByIntID, against a count", "seek_image", rows=1_000_000, most_ms=50),
    Line("DB_MoveToPatExByIntID, against a count", "seek_joined", rows=1_000_000, most_ms=50),
    Line("DB_MoveToTPatByString, against a count", "seek_text", rows=1_000_000, most_ms=50),
    Line("DB_GetLast...ID", "last_id", flat=True),
    Line("connect, with eleven browse sets", "connect", most=everywhere(1.2)),
)

MOST_MEMORY = 120_000_000  # bytes above the empty process with 1,000,000 images open
GROWN = 2.0  # a time that grows less than this over a hundredfold of rows does not grow


def bases_of(work):
    """What the bare program does besides, in the turns of a work."""
    return sorted({line.base for line in LINES if line.work == work.name and line.base})


def base_name(base):
    """Under which name its times stand among those of the contenders."""
    return f"raw {base}" if base else "raw"
