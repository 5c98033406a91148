"""KyODBC from Python: a practice's tables to iterate, and the flat call interface below them.

    import kyodbc

    with kyodbc.Practice("practice") as practice:
        for patient in practice.patients.browse((kyodbc.KYODBC_FIELD_NAME, kyodbc.KYODBC_LIKE, "M%")):
            print(patient.szName, patient.szFirstname)

The flat calls have the names, arguments and codes of KyODBC.h, which documents them:

    db = kyodbc.load()
    kyodbc.check(db, db.DB_InitDatabase(kyodbc.tagDBCONNECT(szDSN="practice")))
"""
from .library import LIBRARY, Error, NotFound, check, last_error, load, number, pack, text  # noqa: F401
from .practice import ChangeableTable, Practice, Table  # noqa: F401
from .records import *  # noqa: F401,F403 the whole interface
from .values import TIMESTAMP_STRUCT, Record, decode, encode  # noqa: F401
