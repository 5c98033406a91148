"""Makes the practices that the benchmark works on: patients and images, the same rows on every database,
loaded by the databases' own fast roads, with ODBC data sources for them."""

import datetime
import glob
import os
import re
import sqlite3
import subprocess

SURNAMES = """
Albrecht Arnold Bauer Baumann Beck Becker Berger Bergmann Böhm Brandt Braun Busch Dietrich Engel Ernst
Fischer Franke Friedrich Fuchs Graf Groß Günther Haas Hahn Hartmann Heinrich Herrmann Hoffmann Horn Huber
Jäger Jung Kaiser Keller Klein Koch König Köhler Krämer Krause Kuhn Lang Lehmann Lorenz Ludwig Maier Martin
Meyer Möller Müller Neumann Otto Peters Pfeiffer Pohl Richter Roth Sauer Schäfer Schmidt Scholz Schreiber
Schubert Schulz Schuster Schwarz Seidel Simon Sommer Stein Thomas Vogel Voigt Wagner Walter Weber Weiß
Werner Winkler Winter Wolf Zimmermann
""".split()
FIRSTNAMES = """
Andreas Anja Anna Barbara Bernd Birgit Brigitte Christian Claudia Daniel Elisabeth Eva Felix Frank Gabriele
Georg Günter Hans Heike Heinz Helga Ingrid Jan Jens Jörg Julia Jürgen Karin Katharina Klaus Laura Lena
Manfred Maria Markus Martina Michael Monika Nicole Paul Peter Petra Ralf Renate Sabine Simon Stefan Susanne
Thomas Ursula Uwe Werner Wolfgang
""".split()
REGIONS = ("11", "16", "21", "26", "31", "36", "41", "46", "OPG", "FRS")
DOCTORS = 20
PAIRS = len(SURNAMES) * len(FIRSTNAMES)
# Neighbouring rows have names far apart.
STEP = 1237

PATIENT_COLUMNS = (
    "tPatCulIntPatIDPk,tPatCulIntDrIDFk,tPatSExtPatID,tPatSSrvID,tPatSSlidaID,tPatSSocID,tPatSName,"
    "tPatSFirstname,tPatDBirthday,tPatSSex,tPatDEntry,tPatTsLastDisp,tPatSIDDisp,tPatFSelect")
IMAGE_COLUMNS = (
    "tImgCulIntImgIDPk,tImgCulIntPatIDFk,tImgCulIntUnitIDFk,tImgCulIntDrIDFk,tImgSType,tImgSRegio,tImgSName,"
    "tImgTs,tImgSPreg,tImgSOrdType,tImgSOrdRegio,tImgSOrdReason,tImgSLoc,tImgSFile,tImgSPvwLoc,tImgSPvwFile,"
    "tImgSArcLoc,tImgSArcFile,tImgSArcType,tImgSArcVol,tImgDArcOut,tImgDArcIn,tImgCulIntMakIDLast")

SCHEMA = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "schema")
USER, PASSWORD = "practice", "secret"


def patients(rows):
    """The values of every patient. No two have surname, first name and birthday in common."""
    first_day = datetime.date(1930, 1, 1)
    days = [(first_day + datetime.timedelta(n)).isoformat() for n in range(29000)]
    for number in range(rows):
        pair = number * STEP % PAIRS
        surname, firstname = divmod(pair, len(FIRSTNAMES))
        birthday = days[(number // PAIRS * 37 + pair * 11) % len(days)]
        key = number + 1
        yield (key, number % DOCTORS + 2, f"X{key * 7:08}", f"srv-{key:09}", f"S{key:08}", f"{key * 13:010}",
               SURNAMES[surname], FIRSTNAMES[firstname], birthday, "mf-"[number % 3],
               days[28000 + number % 900], f"{days[28500 + number % 400]} 08:{number % 60:02}:00",
               f"S{key:08}", 0)


def images(rows):
    """The values of every image: ten for each patient that has any. No two have the same time."""
    first_time = datetime.datetime(2004, 1, 1)
    owners = rows // 10
    for number in range(rows):
        time = first_time + datetime.timedelta(seconds=number * 7919 % rows * 97)
        key = number + 1
        region = REGIONS[number % len(REGIONS)]
        yield (key, number % owners + 1, 1, number % DOCTORS + 2, "XR", region, f"Image {region}", str(time),
               "-", "XR", region, "control of the root", "9", f"{key:09}.img", "9", f"{key:09}.pvw", "1",
               f"arc{key:09}.img", "DVD", f"V{number // 4000:06}", str(time.date()), str(time.date()), 0)


TABLES = (("TPatient", PATIENT_COLUMNS, patients), ("TImage", IMAGE_COLUMNS, images))
DOCTOR_ROWS = ",".join(f"({n + 2},'Dr. {SURNAMES[n * 4]}',1)" for n in range(DOCTORS))
ADD_DOCTORS = f"INSERT INTO TDoctor (tDrCulIntDrIDPk,tDrSName,tDrFAct) VALUES {DOCTOR_ROWS};"


def schema(database, tables_only=False):
    with open(os.path.join(SCHEMA, database + ".sql"), encoding="utf-8") as file:
        text = file.read()
    if not tables_only:
        return text
    # Indexes are made after the rows, at once.
    return "\n".join(re.findall(r"^CREATE TABLE .*?;$", text, re.MULTILINE | re.DOTALL))


def run(arguments, text, **environment):
    done = subprocess.run(arguments, input=text, text=True, capture_output=True,
                          env={**os.environ, **environment})
    if done.returncode != 0:
        raise RuntimeError(f"{arguments[0]}: {done.stderr.strip()[-500:]}")


def write_rows(folder, table, make, rows):
    path = os.path.join(folder, f"{table}.tsv")
    with open(path, "w", encoding="utf-8") as file:
        for values in make(rows):
            file.write("\t".join(map(str, values)) + "\n")
    os.chmod(path, 0o644)
    return path


def driver(name):
    return glob.glob(f"/usr/lib/*/odbc/{name}")[0]


class Sqlite:
    name = "SQLite"

    def __init__(self, folder, servers):
        self.folder = folder

    def load(self, rows):
        file = self.file(rows)
        connection = sqlite3.connect(file)
        connection.executescript("PRAGMA journal_mode=WAL; PRAGMA synchronous=OFF;" + schema("sqlite", True))
        for table, columns, make in TABLES:
            marks = ",".join("?" * len(columns.split(",")))
            connection.executemany(f"INSERT INTO {table} ({columns}) VALUES ({marks})", make(rows))
        connection.commit()
        connection.executescript(schema("sqlite") + ADD_DOCTORS + "ANALYZE;")
        connection.close()

    def file(self, rows):
        return os.path.join(self.folder, f"practice{rows}.db")

    def source(self, rows):
        return {"Driver": driver("libsqlite3odbc.so"), "Database": self.file(rows), "LongNames": "0",
                "JDConv": "0", "BigInt": "0", "Timeout": "5000", "SyncPragma": "NORMAL", "JournalMode": "WAL"}


class Postgresql:
    name = "PostgreSQL"

    def __init__(self, folder, servers):
        self.folder = folder
        with open(os.path.join(servers, "postgresql.port"), encoding="ascii") as file:
            self.port = file.read().strip()

    def psql(self, database, text):
        run(["psql", "-q", "-h", "127.0.0.1", "-p", self.port, "-U", USER, "-d", database,
             "-v", "ON_ERROR_STOP=1"], text, PGPASSWORD=PASSWORD)

    def load(self, rows):
        database = f"bench{rows}"
        self.psql("postgres", f"DROP DATABASE IF EXISTS {database};\nCREATE DATABASE {database};")
        self.psql(database, schema("postgresql", True))
        for table, columns, make in TABLES:
            path = write_rows(self.folder, table, make, rows)
            self.psql(database, f"\\copy {table} ({columns}) FROM '{path}'\n")
            os.remove(path)
        keys = "".join(f"SELECT setval(pg_get_serial_sequence('{table.lower()}',"
                       f"'{columns.split(',')[0].lower()}'),{rows});" for table, columns, make in TABLES)
        self.psql(database, schema("postgresql") + ADD_DOCTORS + keys)
        self.psql(database, "VACUUM ANALYZE;")

    def source(self, rows):
        return {"Driver": driver("psqlodbcw.so"), "Servername": "127.0.0.1", "Port": self.port,
                "Database": f"bench{rows}", "Username": USER, "Password": PASSWORD, "UpdatableCursors": "0",
                "BoolsAsChar": "0", "MaxLongVarcharSize": "1000000", "UseDeclareFetch": "0"}


class Mariadb:
    name = "MariaDB"

    def __init__(self, folder, servers):
        self.folder = folder
        with open(os.path.join(servers, "mariadb.port"), encoding="ascii") as file:
            self.port = file.read().strip()

    def client(self, text, *database):
        run(["mariadb", "--no-defaults", "--local-infile", "-h", "127.0.0.1", "-P", self.port, "-u", USER,
             f"-p{PASSWORD}", *database], text)

    def load(self, rows):
        database = f"bench{rows}"
        self.client(f"DROP DATABASE IF EXISTS {database}; CREATE DATABASE {database} "
                    "CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin")
        self.client(schema("mariadb", True), database)
        for table, columns, make in TABLES:
            path = write_rows(self.folder, table, make, rows)
            self.client(f"SET unique_checks=0; LOAD DATA LOCAL INFILE '{path}' INTO TABLE {table} "
                        f"CHARACTER SET utf8mb4 ({columns});", database)
            os.remove(path)
        self.client(schema("mariadb") + ADD_DOCTORS + "ANALYZE TABLE TPatient, TImage;", database)

    def source(self, rows):
        return {"Driver": driver("libmaodbc.so"), "SERVER": "127.0.0.1", "PORT": self.port,
                "DATABASE": f"bench{rows}", "USER": USER, "PASSWORD": PASSWORD, "OPTION": "2",
                "CONN_TIMEOUT": "30", "CHARSET": "utf8mb4"}


DATABASES = (Sqlite, Postgresql, Mariadb)


def write_sources(folder, databases, sizes):
    """Data sources "SQLite10000" and so on, in files that ODBCSYSINI and ODBCINI then name."""
    with open(os.path.join(folder, "odbc.ini"), "w", encoding="utf-8") as file:
        for database in databases:
            for rows in sizes:
                file.write(f"[{database.name}{rows}]\n")
                file.writelines(f"{key}={value}\n" for key, value in database.source(rows).items())
                file.write("\n")
    with open(os.path.join(folder, "odbcinst.ini"), "w", encoding="utf-8"):
        pass
    os.environ.update(ODBCSYSINI=folder, ODBCINI=os.path.join(folder, "odbc.ini"))
