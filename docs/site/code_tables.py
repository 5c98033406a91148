#!/usr/bin/env python3
"""The tables of the guides that the code knows better: field ids, records and masks, operators, result codes.

usage: code_tables.py [--write]    without --write only tells which pages are out of date

A page holds such a table between the lines "<!-- table: NAME -->" and "<!-- end of table -->".
"""
import ctypes
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGES = ROOT / "docs"
sys.path.insert(0, str(ROOT / "bindings" / "python"))

from kyodbc import records, values  # noqa: E402

PLACE = re.compile(r"(^<!-- table: (\S+) -->\n)(.*?)(^<!-- end of table -->$)", re.M | re.S)

# The browse sets in the order in which they are created: as functions name them, their source, their record,
# and how masks name their table.
SETS = (("TDr", "dr", "tagTDOCTOR", "DR"), ("TStat", "stat", "tagTSTATION", "STAT"),
        ("TUnit", "unit", "tagTUNIT", "UNIT"), ("TPat", "pat", "tagTPATIENT", "PAT"),
        ("PatEx", "patex", "tagTPATIENTEX", None), ("TImg", "img", "tagTIMAGE", "IMG"),
        ("TMak", "mak", "tagTMAKRO", "MAK"), ("TGrp", "grp", "tagTGROUP", "GRP"),
        ("TDiag", "diag", "tagTDIAGNOSIS", "DIAG"), ("TCfg", "cfg", "tagTCONFIG", "CFG"),
        ("TTest", "test", "tagTTEST", "TEST"))
VALUES = {"kInteger": "`LONG`", "kText": "text", "kDate": "`TIMESTAMP_STRUCT`, its date",
          "kTimestamp": "`TIMESTAMP_STRUCT`, date and time"}
RECORDS = {record.__name__: record for record in records.RECORDS}


def read(name):
    return (ROOT / name).read_text(encoding="utf-8")


def found(pattern, text, what):
    """The first match. The tables follow the code, so a form that is not understood must not go unnoticed."""
    match = re.search(pattern, text, re.S | re.M)
    if not match:
        sys.exit(f"code_tables.py: not understood: {what}")
    return match


def row_list(source, name):
    """The rows between the braces of an array."""
    return found(rf"{name}\[\] = \{{(.*?)\n\}};", read(source), f"{name} of {source}")[1]


def one_line(text):
    """A comment's words on one line, fit for a cell."""
    return " ".join(re.sub(r"\n\s*\*", " ", text).split()).replace("|", "\\|")


def table(titles, rows):
    lines = ["| " + " | ".join(titles) + " |", "|" + "---|" * len(titles)]
    lines += ["| " + " | ".join(str(cell) for cell in row) + " |" for row in rows]
    return "\n".join(lines) + "\n"


def constants(prefix):
    """Names and numbers of the named constants that begin so, in the order of the headers."""
    return [(name, number) for name, number in vars(records).items() if name.startswith(prefix)]


# ---- Field ids

def value_types():
    body = row_list("recset/filter_sort.cpp", "kValueTypes")
    return [(int(first), int(last), VALUES[kind]) for first, last, kind in
            re.findall(r"\{(\d+),\s*(\d+),\s*ValueType::(\w+)\s*\}", body)]


def listed_ids(source):
    """Field id and column, as the set's own list has them."""
    body = row_list(f"recset/{source}_rec.cpp", "kFieldIds")
    return [(int(number), column) for number, column in re.findall(r'\{(\d+),\s*"?(\w+)"?\s*\}', body)]


def field_ids(source):
    if source != "patex":
        return listed_ids(source)
    text = read("recset/patex_rec.cpp")
    more = [int(found(rf"constexpr LONG {name} = (\d+);", text, name)[1])
            for name in ("kDoctorName", "kLastDisplay")]
    columns = found(r'return field == kDoctorName \? "td\.(\w+)" : "tp\.(\w+)";', text, "the joined view")
    return sorted(listed_ids("pat") + list(zip(more, columns.groups())))


def slots(source):
    """Column, record field and mask bit of every column of a set."""
    body = row_list(f"recset/{source}_rec.cpp", "kColumns")
    rows = re.findall(r'\{"?(?:\w+\.)?(\w+)"?,\s*Kind::\w+,[^,]+,\s*'
                      r"SLOT\(\w+, (\w+)\),\s*(0x[0-9A-F]+|0)\s*\}", body)
    if len(rows) != body.count("SLOT("):
        sys.exit(f"code_tables.py: not understood: columns of {source}")
    return [(column, field, int(bit, 0)) for column, field, bit in rows]


def field_id_rows():
    names = {number: name for name, number in constants("KYODBC_FIELD_")}
    for tag, source, record, _ in SETS:
        fields = {column: field for column, field, _ in slots(source)}
        for number, column in field_ids(source):
            kind = next(kind for first, last, kind in value_types() if first <= number <= last)
            field = fields.get(column)
            yield (number, f"`{names[number]}`", kind, f"`{tag}`", f"`{column}`",
                   f"`{field}`" if field else "the table has no such column: 31")


def field_id_table():
    return table(("id", "constant", "value", "set", "column", "field of the record"), sorted(field_id_rows()))


def operator_table():
    body = found(r"/\* Filter operators\.(.*?)\};", read("frame/field_words.h"), "operators")[1]
    signs = dict(re.findall(r'\{(\w+),\s*"([A-Z<>=]+)"\s*\}', read("recset/filter_sort.cpp")))
    for name, number in re.findall(r"constexpr LONG (k\w+) = (\d+);", read("recset/filter_sort.cpp")):
        if name in signs:
            signs[number] = signs.pop(name)
    rows = re.findall(r"(KYODBC_\w+) = (\d+),?\s*(?:/\* (.*?) \*/)?", body)
    return table(("code", "constant", "SQL", "remark"), [
        (code, f"`{name}`", f"`{signs.get(code, '=')}`", one_line(note)) for name, code, note in rows])


# ---- Records and masks

def described_records():
    """Name and comment of every record of the call interface, and type and comment of its fields by name."""
    comment = r"/\* ((?:(?!\*/).)*?) \*/"
    for note, name, body in re.findall(comment + r"\ntypedef struct (\w+) \{(.*?)\n\} \2;",
                                       read("tables/records.h"), re.S):
        fields = re.findall(r"^  (\w+) (\w+)(\[\d+\])?;\s*" + comment, body, re.S | re.M)
        yield name, one_line(note), {field: (kind + size, one_line(words))
                                     for kind, field, size, words in fields}


def mask_names(name):
    """Record field: name of the mask bit. A bit that no column copies stands for the field that is left."""
    source, tag = next(((source, tag) for _, source, record, tag in SETS if record == name), (None, None))
    if tag is None:
        return {}
    bits = {number: mask for mask, number in constants(f"KYODBC_MASK_{tag}_")}
    named = {field: bits.pop(bit) for _, field, bit in slots(source) if bit}
    left = [field for field, _ in RECORDS[name]._fields_[1:] if field not in named]
    if len(left) != len(bits):
        sys.exit(f"code_tables.py: masks and fields of {name} do not fit")
    return {**named, **dict(zip(left, bits.values()))}


def record_table(name, fields):
    masks, rows = mask_names(name), []
    numbers = dict(constants("KYODBC_MASK_"))
    for field, _ in RECORDS[name]._fields_:
        place = getattr(RECORDS[name], field)
        kind, note = fields[field]
        column, meaning = found(r"^(t[A-Z]\w+)? *(.*)$", note, field).groups()
        cells = [f"`{field}`", f"`{kind}`", place.offset, place.size, meaning]
        if name.startswith("tagT"):
            cells.append(f"`{column}`")
        if masks:
            cells.append(f"`{masks[field]}` 0x{numbers[masks[field]]:X}" if field in masks else "")
        rows.append(cells)
    titles = ["field", "type", "offset", "bytes", "meaning"]
    return table(titles + ["column"] * name.startswith("tagT") + ["mask bit"] * bool(masks), rows)


def record_tables():
    parts = []
    for name, note, fields in described_records():
        size = ctypes.sizeof(RECORDS[name])
        parts.append(f"## {name}\n\n{note} {size} bytes.\n\n{record_table(name, fields)}")
    return "\n".join(parts)


def record_sizes():
    return table(("record", "bytes"), [
        (f"`{name}`", ctypes.sizeof(RECORDS[name])) for name, _, _ in described_records()])


def widths():
    numbers = {name: getattr(values, name) for name in ("BYTE", "WORD", "DWORD", "LONG", "BOOL")}
    rows = [(f"`{name}`", ctypes.sizeof(kind), "signed" if kind(-1).value < 0 else "unsigned")
            for name, kind in numbers.items()]
    rows.append(("`TIMESTAMP_STRUCT`", ctypes.sizeof(values.TIMESTAMP_STRUCT), "seven fields, `year` signed"))
    return table(("type", "bytes", "is"), rows)


# ---- Result codes

def result_codes():
    """Number, name and meaning of every result code, in the order of the numbers."""
    body = found(r"\nenum \{(.*?)\n\};", read("platform/result_codes.h"), "result codes")[1]
    rows = re.findall(r"/\* (.*?) \*/\s*(KYODBC_\w+) = (\d+)", body, re.S)
    return sorted((int(number), name, one_line(meaning)) for meaning, name, number in rows)


def result_code_table():
    return table(("code", "constant", "meaning"), [
        (f"[{number}](#{number}-{name.lower()})", f"`{name}`", meaning)
        for number, name, meaning in result_codes()])


TABLES = {"field-ids": field_id_table, "operators": operator_table, "records": record_tables,
          "record-sizes": record_sizes, "widths": widths, "result-codes": result_code_table}


def up_to_date(text):
    return PLACE.sub(lambda match: f"{match[1]}\n{TABLES[match[2]]()}\n{match[4]}", text)


def main(arguments):
    if arguments not in ([], ["--write"]):
        return __doc__
    old = [path for path in sorted(PAGES.rglob("*.md")) if path.read_text() != up_to_date(path.read_text())]
    for path in old if arguments else ():
        path.write_text(up_to_date(path.read_text()))
    return "\n".join(f"{path.relative_to(ROOT)}: run docs/site/code_tables.py --write" for path in old) \
        if not arguments else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]) or 0)
