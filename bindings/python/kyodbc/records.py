"""The records, constants and functions of the library.

Written by generate.py from the C headers; not to be edited.
"""
import ctypes

from .values import BOOL, BYTE, DWORD, LONG, TIMESTAMP_STRUCT, WORD, Record, Text, Value


class tagDBCONNECT(Record):
    _pack_ = 1
    _fields_ = [
        ("szDSN", ctypes.c_char * 33),
        ("szUID", ctypes.c_char * 33),
        ("szPWD", ctypes.c_char * 33),
        ("szOwner", ctypes.c_char * 260),
        ("bExclusive", BOOL),
    ]
    szDSN: "str"
    szUID: "str"
    szPWD: "str"
    szOwner: "str"
    bExclusive: "int"


class tagDBINFO(Record):
    _pack_ = 1
    _fields_ = [
        ("szDSN", ctypes.c_char * 33),
        ("szDatabase", ctypes.c_char * 33),
        ("abReserved", BYTE * 15),
    ]
    szDSN: "str"
    szDatabase: "str"
    abReserved: "ctypes.Array[ctypes.c_ubyte]"


class tagTCONFIG(Record):
    _pack_ = 1
    _fields_ = [
        ("lCfgID", LONG),
        ("lDrID", LONG),
        ("lStatID", LONG),
        ("szKey", ctypes.c_char * 25),
        ("szSet", ctypes.c_char * 129),
    ]
    lCfgID: "int"
    lDrID: "int"
    lStatID: "int"
    szKey: "str"
    szSet: "str"


class tagTDIAGNOSIS(Record):
    _pack_ = 1
    _fields_ = [
        ("lDiagID", LONG),
        ("lImgID", LONG),
        ("lDrID", LONG),
        ("szRegio", ctypes.c_char * 17),
        ("ts", TIMESTAMP_STRUCT),
        ("szCode", ctypes.c_char * 33),
        ("szText", ctypes.c_char * 256),
    ]
    lDiagID: "int"
    lImgID: "int"
    lDrID: "int"
    szRegio: "str"
    ts: "TIMESTAMP_STRUCT"
    szCode: "str"
    szText: "str"


class tagTDOCTOR(Record):
    _pack_ = 1
    _fields_ = [
        ("lDrID", LONG),
        ("szName", ctypes.c_char * 33),
        ("szSrvID", ctypes.c_char * 65),
    ]
    lDrID: "int"
    szName: "str"
    szSrvID: "str"


class tagTGROUP(Record):
    _pack_ = 1
    _fields_ = [
        ("lGrpID", LONG),
        ("lPatID", LONG),
        ("szName", ctypes.c_char * 33),
        ("ts", TIMESTAMP_STRUCT),
        ("szLoc", ctypes.c_char * 2),
        ("szFile", ctypes.c_char * 48),
        ("wMakNo", WORD),
        ("szPvwFile", ctypes.c_char * 48),
        ("szPvwLoc", ctypes.c_char * 2),
    ]
    lGrpID: "int"
    lPatID: "int"
    szName: "str"
    ts: "TIMESTAMP_STRUCT"
    szLoc: "str"
    szFile: "str"
    wMakNo: "int"
    szPvwFile: "str"
    szPvwLoc: "str"


class tagTIMAGE(Record):
    _pack_ = 1
    _fields_ = [
        ("lImgID", LONG),
        ("lPatID", LONG),
        ("lUnitID", LONG),
        ("lDrID", LONG),
        ("szType", ctypes.c_char * 5),
        ("szRegio", ctypes.c_char * 17),
        ("szName", ctypes.c_char * 33),
        ("ts", TIMESTAMP_STRUCT),
        ("szPreg", ctypes.c_char * 2),
        ("szOrdType", ctypes.c_char * 5),
        ("szOrdRegio", ctypes.c_char * 17),
        ("szOrdReason", ctypes.c_char * 65),
        ("szArcType", ctypes.c_char * 5),
        ("szArcLoc", ctypes.c_char * 2),
        ("szArcFile", ctypes.c_char * 48),
        ("szArcVol", ctypes.c_char * 11),
        ("dArcOut", TIMESTAMP_STRUCT),
        ("dArcIn", TIMESTAMP_STRUCT),
        ("szPvwLoc", ctypes.c_char * 2),
        ("szPvwFile", ctypes.c_char * 48),
        ("szLoc", ctypes.c_char * 2),
        ("szFile", ctypes.c_char * 48),
        ("lMakIDLast", LONG),
    ]
    lImgID: "int"
    lPatID: "int"
    lUnitID: "int"
    lDrID: "int"
    szType: "str"
    szRegio: "str"
    szName: "str"
    ts: "TIMESTAMP_STRUCT"
    szPreg: "str"
    szOrdType: "str"
    szOrdRegio: "str"
    szOrdReason: "str"
    szArcType: "str"
    szArcLoc: "str"
    szArcFile: "str"
    szArcVol: "str"
    dArcOut: "TIMESTAMP_STRUCT"
    dArcIn: "TIMESTAMP_STRUCT"
    szPvwLoc: "str"
    szPvwFile: "str"
    szLoc: "str"
    szFile: "str"
    lMakIDLast: "int"


class tagTMAKRO(Record):
    _pack_ = 1
    _fields_ = [
        ("lMakID", LONG),
        ("lImgID", LONG),
        ("szName", ctypes.c_char * 33),
        ("tsLast", TIMESTAMP_STRUCT),
        ("szFile", ctypes.c_char * 48),
        ("szLoc", ctypes.c_char * 2),
        ("wNo", WORD),
    ]
    lMakID: "int"
    lImgID: "int"
    szName: "str"
    tsLast: "TIMESTAMP_STRUCT"
    szFile: "str"
    szLoc: "str"
    wNo: "int"


class tagTPATIENT(Record):
    _pack_ = 1
    _fields_ = [
        ("lPatID", LONG),
        ("lDrID", LONG),
        ("szExtPatID", ctypes.c_char * 33),
        ("szSrvID", ctypes.c_char * 65),
        ("szSlidaID", ctypes.c_char * 21),
        ("szSocID", ctypes.c_char * 17),
        ("szName", ctypes.c_char * 33),
        ("szFirstname", ctypes.c_char * 33),
        ("dBirthday", TIMESTAMP_STRUCT),
        ("szSex", ctypes.c_char * 2),
        ("lSelect", LONG),
        ("dEntry", TIMESTAMP_STRUCT),
        ("szIDDisp", ctypes.c_char * 33),
        ("tsLastDisp", TIMESTAMP_STRUCT),
    ]
    lPatID: "int"
    lDrID: "int"
    szExtPatID: "str"
    szSrvID: "str"
    szSlidaID: "str"
    szSocID: "str"
    szName: "str"
    szFirstname: "str"
    dBirthday: "TIMESTAMP_STRUCT"
    szSex: "str"
    lSelect: "int"
    dEntry: "TIMESTAMP_STRUCT"
    szIDDisp: "str"
    tsLastDisp: "TIMESTAMP_STRUCT"


class tagTPATIENTEX(Record):
    _pack_ = 1
    _fields_ = [
        ("lPatID", LONG),
        ("lDrID", LONG),
        ("szExtPatID", ctypes.c_char * 33),
        ("szSrvID", ctypes.c_char * 65),
        ("szSlidaID", ctypes.c_char * 21),
        ("szSocID", ctypes.c_char * 17),
        ("szName", ctypes.c_char * 33),
        ("szFirstname", ctypes.c_char * 33),
        ("dBirthday", TIMESTAMP_STRUCT),
        ("szSex", ctypes.c_char * 2),
        ("lSelect", LONG),
        ("dEntry", TIMESTAMP_STRUCT),
        ("szIDDisp", ctypes.c_char * 33),
        ("tsLastDisp", TIMESTAMP_STRUCT),
        ("szDrName", ctypes.c_char * 33),
    ]
    lPatID: "int"
    lDrID: "int"
    szExtPatID: "str"
    szSrvID: "str"
    szSlidaID: "str"
    szSocID: "str"
    szName: "str"
    szFirstname: "str"
    dBirthday: "TIMESTAMP_STRUCT"
    szSex: "str"
    lSelect: "int"
    dEntry: "TIMESTAMP_STRUCT"
    szIDDisp: "str"
    tsLastDisp: "TIMESTAMP_STRUCT"
    szDrName: "str"


class tagTSTATION(Record):
    _pack_ = 1
    _fields_ = [
        ("lStatID", LONG),
        ("szName", ctypes.c_char * 17),
    ]
    lStatID: "int"
    szName: "str"


class tagTTEST(Record):
    _pack_ = 1
    _fields_ = [
        ("lTstID", LONG),
        ("lUnitID", LONG),
        ("szPerson", ctypes.c_char * 33),
        ("szType", ctypes.c_char * 5),
        ("szRegio", ctypes.c_char * 17),
        ("szName", ctypes.c_char * 33),
        ("ts", TIMESTAMP_STRUCT),
        ("szResult", ctypes.c_char * 4096),
        ("szArcType", ctypes.c_char * 5),
        ("szArcLoc", ctypes.c_char * 2),
        ("szArcFile", ctypes.c_char * 48),
        ("szArcVol", ctypes.c_char * 11),
        ("dArcOut", TIMESTAMP_STRUCT),
        ("dArcIn", TIMESTAMP_STRUCT),
        ("szLoc", ctypes.c_char * 2),
        ("szFile", ctypes.c_char * 48),
    ]
    lTstID: "int"
    lUnitID: "int"
    szPerson: "str"
    szType: "str"
    szRegio: "str"
    szName: "str"
    ts: "TIMESTAMP_STRUCT"
    szResult: "str"
    szArcType: "str"
    szArcLoc: "str"
    szArcFile: "str"
    szArcVol: "str"
    dArcOut: "TIMESTAMP_STRUCT"
    dArcIn: "TIMESTAMP_STRUCT"
    szLoc: "str"
    szFile: "str"


class tagTUNIT(Record):
    _pack_ = 1
    _fields_ = [
        ("lUnitID", LONG),
        ("szType", ctypes.c_char * 3),
        ("szName", ctypes.c_char * 23),
        ("dAccept", TIMESTAMP_STRUCT),
        ("szCtrlUnitSNo", ctypes.c_char * 11),
        ("szSensSNo", ctypes.c_char * 11),
        ("szGenSNo", ctypes.c_char * 11),
        ("szTubeSNo", ctypes.c_char * 11),
        ("szCtrlElemSNo", ctypes.c_char * 11),
        ("szConeSNo", ctypes.c_char * 11),
        ("szTestBodySNo", ctypes.c_char * 11),
    ]
    lUnitID: "int"
    szType: "str"
    szName: "str"
    dAccept: "TIMESTAMP_STRUCT"
    szCtrlUnitSNo: "str"
    szSensSNo: "str"
    szGenSNo: "str"
    szTubeSNo: "str"
    szCtrlElemSNo: "str"
    szConeSNo: "str"
    szTestBodySNo: "str"


class tagPATIENTCOMPACT(Record):
    _pack_ = 1
    _fields_ = [
        ("szName", ctypes.c_char * 33),
        ("szFirstname", ctypes.c_char * 33),
        ("wYear", WORD),
        ("byMonth", BYTE),
        ("byDay", BYTE),
        ("wDispYear", WORD),
        ("byDispMonth", BYTE),
        ("byDispDay", BYTE),
        ("szDrName", ctypes.c_char * 13),
        ("dwID", DWORD),
        ("szIdent", ctypes.c_char * 21),
        ("bySex", BYTE),
        ("byReserved", BYTE),
    ]
    szName: "str"
    szFirstname: "str"
    wYear: "int"
    byMonth: "int"
    byDay: "int"
    wDispYear: "int"
    byDispMonth: "int"
    byDispDay: "int"
    szDrName: "str"
    dwID: "int"
    szIdent: "str"
    bySex: "int"
    byReserved: "int"


class tagDBERRORDETAIL(Record):
    _pack_ = 1
    _fields_ = [
        ("dwSize", DWORD),
        ("wCode", WORD),
        ("szFunction", ctypes.c_char * 32),
        ("szState", ctypes.c_char * 6),
        ("lNative", LONG),
        ("lRecords", LONG),
        ("szMessage", ctypes.c_char * 512),
    ]
    dwSize: "int"
    wCode: "int"
    szFunction: "str"
    szState: "str"
    lNative: "int"
    lRecords: "int"
    szMessage: "str"


RECORDS = (tagDBCONNECT, tagDBINFO, tagTCONFIG, tagTDIAGNOSIS, tagTDOCTOR, tagTGROUP, tagTIMAGE, tagTMAKRO, tagTPATIENT, tagTPATIENTEX, tagTSTATION, tagTTEST, tagTUNIT, tagPATIENTCOMPACT, tagDBERRORDETAIL)

KYODBC_OK = 0
KYODBC_BAD_ARGUMENT = 1
KYODBC_NOT_OPENED = 3
KYODBC_CLOSE_FAILED = 4
KYODBC_COUNT_FAILED = 5
KYODBC_WRITE_FAILED = 6
KYODBC_DELETE_FAILED = 8
KYODBC_OUT_OF_MEMORY = 14
KYODBC_PATIENT_NOT_FOUND = 21
KYODBC_CONNECT_FAILED = 30
KYODBC_DB_EXCEPTION = 31
KYODBC_NOT_UNIQUE = 52
KYODBC_NO_TRANSACTIONS = 55
KYODBC_SCHEMA_TOO_OLD = 56
KYODBC_RECONNECTED = 57
KYODBC_NO_ROW = 64
KYODBC_IMAGE_NOT_FOUND = 65
KYODBC_UNIT_NOT_FOUND = 66
KYODBC_TEST_NOT_FOUND = 67
KYODBC_SETS_NOT_CREATED = 99
KYODBC_FIELD_KEY = 1
KYODBC_FIELD_IMAGE_KEY = 2
KYODBC_FIELD_DOCTOR_KEY = 3
KYODBC_FIELD_PATIENT_KEY = 4
KYODBC_FIELD_UNIT_KEY = 5
KYODBC_FIELD_STATION_KEY = 6
KYODBC_FIELD_CONFIG_KEY = 7
KYODBC_FIELD_TEST_KEY = 8
KYODBC_FIELD_GROUP_KEY = 9
KYODBC_FIELD_MAKRO_KEY = 10
KYODBC_FIELD_DIAGNOSIS_KEY = 11
KYODBC_FIELD_NAME = 17
KYODBC_FIELD_PERSON = 18
KYODBC_FIELD_SURNAME = 19
KYODBC_FIELD_DOCTOR_NAME = 20
KYODBC_FIELD_FIRSTNAME = 22
KYODBC_FIELD_UNIT_NAME = 23
KYODBC_FIELD_IMAGE_NAME = 24
KYODBC_FIELD_TEST_NAME = 25
KYODBC_FIELD_MAKRO_NAME = 26
KYODBC_FIELD_SETTING_KEY = 42
KYODBC_FIELD_SETTING = 43
KYODBC_FIELD_EXTERNAL_ID = 49
KYODBC_FIELD_SERVER_ID = 50
KYODBC_FIELD_SLIDA_ID = 51
KYODBC_FIELD_SOCIAL_ID = 52
KYODBC_FIELD_DISPLAY_ID = 53
KYODBC_FIELD_TYPE = 58
KYODBC_FIELD_REGION = 59
KYODBC_FIELD_DATE = 33
KYODBC_FIELD_BIRTHDAY = 34
KYODBC_FIELD_LAST_DISPLAY = 35
KYODBC_FIELD_TIME = 36
KYODBC_OR = 128
KYODBC_DESCENDING = 128
KYODBC_EQUAL = 0
KYODBC_GREATER_EQUAL = 2
KYODBC_GREATER = 3
KYODBC_LESS_EQUAL = 4
KYODBC_LESS = 5
KYODBC_NOT_EQUAL = 7
KYODBC_LIKE = 16
KYODBC_BETWEEN = 17
KYODBC_MASK_CFG_DOCTOR = 1
KYODBC_MASK_CFG_STATION = 2
KYODBC_MASK_CFG_KEY = 4
KYODBC_MASK_CFG_SETTING = 8
KYODBC_MASK_DIAG_IMAGE = 1
KYODBC_MASK_DIAG_DOCTOR = 2
KYODBC_MASK_DIAG_REGION = 4
KYODBC_MASK_DIAG_TIME = 8
KYODBC_MASK_DIAG_CODE = 16
KYODBC_MASK_DIAG_TEXT = 32
KYODBC_MASK_DR_NAME = 1
KYODBC_MASK_DR_SERVER_ID = 2
KYODBC_MASK_GRP_PATIENT = 1
KYODBC_MASK_GRP_NAME = 2
KYODBC_MASK_GRP_TIME = 4
KYODBC_MASK_GRP_LOCATION = 8
KYODBC_MASK_GRP_FILE = 16
KYODBC_MASK_GRP_MAKRO_COUNT = 32
KYODBC_MASK_GRP_PREVIEW_LOCATION = 64
KYODBC_MASK_GRP_PREVIEW_FILE = 128
KYODBC_MASK_IMG_PATIENT = 1
KYODBC_MASK_IMG_UNIT = 2
KYODBC_MASK_IMG_DOCTOR = 4
KYODBC_MASK_IMG_TYPE = 8
KYODBC_MASK_IMG_REGION = 16
KYODBC_MASK_IMG_NAME = 32
KYODBC_MASK_IMG_TIME = 64
KYODBC_MASK_IMG_PREG = 128
KYODBC_MASK_IMG_ORDER_TYPE = 0x100
KYODBC_MASK_IMG_ORDER_REGION = 0x200
KYODBC_MASK_IMG_ORDER_REASON = 0x400
KYODBC_MASK_IMG_ARCHIVE_TYPE = 0x800
KYODBC_MASK_IMG_ARCHIVE_LOCATION = 0x1000
KYODBC_MASK_IMG_ARCHIVE_FILE = 0x2000
KYODBC_MASK_IMG_ARCHIVE_VOLUME = 0x4000
KYODBC_MASK_IMG_ARCHIVE_OUT = 0x8000
KYODBC_MASK_IMG_ARCHIVE_IN = 0x10000
KYODBC_MASK_IMG_PREVIEW_LOCATION = 0x20000
KYODBC_MASK_IMG_PREVIEW_FILE = 0x40000
KYODBC_MASK_IMG_LOCATION = 0x80000
KYODBC_MASK_IMG_FILE = 0x100000
KYODBC_MASK_IMG_LAST_MAKRO = 0x200000
KYODBC_MASK_MAK_IMAGE = 1
KYODBC_MASK_MAK_NAME = 2
KYODBC_MASK_MAK_LAST_CHANGE = 4
KYODBC_MASK_MAK_FILE = 8
KYODBC_MASK_MAK_LOCATION = 16
KYODBC_MASK_MAK_ORDINAL = 32
KYODBC_MASK_PAT_DOCTOR = 1
KYODBC_MASK_PAT_EXTERNAL_ID = 2
KYODBC_MASK_PAT_SERVER_ID = 4
KYODBC_MASK_PAT_SLIDA_ID = 8
KYODBC_MASK_PAT_SOCIAL_ID = 16
KYODBC_MASK_PAT_SURNAME = 32
KYODBC_MASK_PAT_FIRSTNAME = 64
KYODBC_MASK_PAT_BIRTHDAY = 128
KYODBC_MASK_PAT_SEX = 0x100
KYODBC_MASK_PAT_SELECTED = 0x200
KYODBC_MASK_PAT_ENTRY = 0x400
KYODBC_MASK_PAT_DISPLAY_ID = 0x800
KYODBC_MASK_PAT_LAST_DISPLAY = 0x1000
KYODBC_MASK_STAT_NAME = 1
KYODBC_MASK_TEST_UNIT = 1
KYODBC_MASK_TEST_PERSON = 2
KYODBC_MASK_TEST_TYPE = 4
KYODBC_MASK_TEST_REGION = 8
KYODBC_MASK_TEST_NAME = 16
KYODBC_MASK_TEST_TIME = 32
KYODBC_MASK_TEST_RESULT = 64
KYODBC_MASK_TEST_ARCHIVE_TYPE = 128
KYODBC_MASK_TEST_ARCHIVE_LOCATION = 0x100
KYODBC_MASK_TEST_ARCHIVE_FILE = 0x200
KYODBC_MASK_TEST_ARCHIVE_VOLUME = 0x400
KYODBC_MASK_TEST_ARCHIVE_OUT = 0x800
KYODBC_MASK_TEST_ARCHIVE_IN = 0x1000
KYODBC_MASK_TEST_LOCATION = 0x2000
KYODBC_MASK_TEST_FILE = 0x4000
KYODBC_MASK_UNIT_TYPE = 1
KYODBC_MASK_UNIT_NAME = 2
KYODBC_MASK_UNIT_ACCEPTANCE = 4
KYODBC_MASK_UNIT_CONTROL_UNIT = 8
KYODBC_MASK_UNIT_SENSOR = 16
KYODBC_MASK_UNIT_GENERATOR = 32
KYODBC_MASK_UNIT_TUBE = 64
KYODBC_MASK_UNIT_CONTROL_ELEMENT = 128
KYODBC_MASK_UNIT_CONE = 0x100
KYODBC_MASK_UNIT_TEST_BODY = 0x200
KYODBC_MASK_ALL = 0xFFFFFFFF
KYODBC_INTERFACE_VERSION = 0x105
KYODBC_SET_TDR = 1
KYODBC_SET_TSTAT = 2
KYODBC_SET_TUNIT = 3
KYODBC_SET_TPAT = 4
KYODBC_SET_PATEX = 5
KYODBC_SET_TIMG = 6
KYODBC_SET_TMAK = 7
KYODBC_SET_TGRP = 8
KYODBC_SET_TDIAG = 9
KYODBC_SET_TCFG = 10
KYODBC_SET_TTEST = 11
KYODBC_ERROR_DETAIL_SIZE_1 = 0x234

# The names of the result codes.
CODE_NAMES = {
    0: "KYODBC_OK",
    1: "KYODBC_BAD_ARGUMENT",
    3: "KYODBC_NOT_OPENED",
    4: "KYODBC_CLOSE_FAILED",
    5: "KYODBC_COUNT_FAILED",
    6: "KYODBC_WRITE_FAILED",
    8: "KYODBC_DELETE_FAILED",
    14: "KYODBC_OUT_OF_MEMORY",
    21: "KYODBC_PATIENT_NOT_FOUND",
    30: "KYODBC_CONNECT_FAILED",
    31: "KYODBC_DB_EXCEPTION",
    52: "KYODBC_NOT_UNIQUE",
    55: "KYODBC_NO_TRANSACTIONS",
    56: "KYODBC_SCHEMA_TOO_OLD",
    57: "KYODBC_RECONNECTED",
    64: "KYODBC_NO_ROW",
    65: "KYODBC_IMAGE_NOT_FOUND",
    66: "KYODBC_UNIT_NOT_FOUND",
    67: "KYODBC_TEST_NOT_FOUND",
    99: "KYODBC_SETS_NOT_CREATED",
}

# Name, result, arguments.
FUNCTIONS = (
    ("DB_InitDatabase", WORD, (ctypes.POINTER(tagDBCONNECT),)),
    ("DB_CloseDatabase", WORD, ()),
    ("DB_IsDatabaseOpen", BOOL, ()),
    ("DB_GetDatabase", ctypes.c_void_p, ()),
    ("DB_CheckVersion", BOOL, (WORD, ctypes.POINTER(WORD),)),
    ("DB_GetInfo", WORD, (ctypes.POINTER(tagDBINFO),)),
    ("DB_GetDBVersion", WORD, (ctypes.POINTER(ctypes.c_double),)),
    ("DB_GetDBMS", WORD, (ctypes.c_char_p, LONG,)),
    ("DB_GetDBOwner", WORD, (ctypes.c_char_p, LONG,)),
    ("DB_BeginTransaction", WORD, ()),
    ("DB_CommitTransaction", WORD, ()),
    ("DB_RollbackTransaction", WORD, ()),
    ("DB_GetProfileString", WORD, (Text, Text, Text, ctypes.c_char_p, LONG, ctypes.POINTER(LONG),)),
    ("DB_WriteProfileString", WORD, (Text, Text, Text,)),
    ("DB_GetProfileInt", WORD, (Text, Text, LONG, ctypes.POINTER(LONG),)),
    ("DB_WriteProfileInt", WORD, (Text, Text, LONG,)),
    ("DB_OpenTDr", WORD, ()),
    ("DB_OpenTStat", WORD, ()),
    ("DB_OpenTUnit", WORD, ()),
    ("DB_OpenTPat", WORD, ()),
    ("DB_OpenPatEx", WORD, ()),
    ("DB_OpenTImg", WORD, ()),
    ("DB_OpenTMak", WORD, ()),
    ("DB_OpenTGrp", WORD, ()),
    ("DB_OpenTDiag", WORD, ()),
    ("DB_OpenTCfg", WORD, ()),
    ("DB_OpenTTest", WORD, ()),
    ("DB_CloseTDr", WORD, ()),
    ("DB_CloseTStat", WORD, ()),
    ("DB_CloseTUnit", WORD, ()),
    ("DB_CloseTPat", WORD, ()),
    ("DB_ClosePatEx", WORD, ()),
    ("DB_CloseTImg", WORD, ()),
    ("DB_CloseTMak", WORD, ()),
    ("DB_CloseTGrp", WORD, ()),
    ("DB_CloseTDiag", WORD, ()),
    ("DB_CloseTCfg", WORD, ()),
    ("DB_CloseTTest", WORD, ()),
    ("DB_IsTDrOpen", BOOL, ()),
    ("DB_IsTStatOpen", BOOL, ()),
    ("DB_IsTUnitOpen", BOOL, ()),
    ("DB_IsTPatOpen", BOOL, ()),
    ("DB_IsPatExOpen", BOOL, ()),
    ("DB_IsTImgOpen", BOOL, ()),
    ("DB_IsTMakOpen", BOOL, ()),
    ("DB_IsTGrpOpen", BOOL, ()),
    ("DB_IsTDiagOpen", BOOL, ()),
    ("DB_IsTCfgOpen", BOOL, ()),
    ("DB_IsTTestOpen", BOOL, ()),
    ("DB_GetTDrIndexPos", LONG, ()),
    ("DB_GetTStatIndexPos", LONG, ()),
    ("DB_GetTUnitIndexPos", LONG, ()),
    ("DB_GetTPatIndexPos", LONG, ()),
    ("DB_GetPatExIndexPos", LONG, ()),
    ("DB_GetTImgIndexPos", LONG, ()),
    ("DB_GetTMakIndexPos", LONG, ()),
    ("DB_GetTGrpIndexPos", LONG, ()),
    ("DB_GetTDiagIndexPos", LONG, ()),
    ("DB_GetTCfgIndexPos", LONG, ()),
    ("DB_GetTTestIndexPos", LONG, ()),
    ("DB_MoveToTDrByPos", LONG, (LONG,)),
    ("DB_MoveToTStatByPos", LONG, (LONG,)),
    ("DB_MoveToTUnitByPos", LONG, (LONG,)),
    ("DB_MoveToTPatByPos", LONG, (LONG,)),
    ("DB_MoveToPatExByPos", LONG, (LONG,)),
    ("DB_MoveToTImgByPos", LONG, (LONG,)),
    ("DB_MoveToTMakByPos", LONG, (LONG,)),
    ("DB_MoveToTGrpByPos", LONG, (LONG,)),
    ("DB_MoveToTDiagByPos", LONG, (LONG,)),
    ("DB_MoveToTCfgByPos", LONG, (LONG,)),
    ("DB_MoveToTTestByPos", LONG, (LONG,)),
    ("DB_MoveToTDrByDelta", LONG, (LONG,)),
    ("DB_MoveToTStatByDelta", LONG, (LONG,)),
    ("DB_MoveToTUnitByDelta", LONG, (LONG,)),
    ("DB_MoveToTPatByDelta", LONG, (LONG,)),
    ("DB_MoveToPatExByDelta", LONG, (LONG,)),
    ("DB_MoveToTImgByDelta", LONG, (LONG,)),
    ("DB_MoveToTMakByDelta", LONG, (LONG,)),
    ("DB_MoveToTGrpByDelta", LONG, (LONG,)),
    ("DB_MoveToTDiagByDelta", LONG, (LONG,)),
    ("DB_MoveToTCfgByDelta", LONG, (LONG,)),
    ("DB_MoveToTTestByDelta", LONG, (LONG,)),
    ("DB_MoveToTPatByIntID", LONG, (LONG,)),
    ("DB_MoveToTImgByIntID", LONG, (LONG,)),
    ("DB_MoveToPatExByIntID", LONG, (LONG,)),
    ("DB_MoveToTPatByString", LONG, (Text,)),
    ("DB_MoveToPatExByString", LONG, (Text,)),
    ("DB_GetTDrMaxPos", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetTStatMaxPos", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetTUnitMaxPos", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetTPatMaxPos", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetPatExMaxPos", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetTImgMaxPos", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetTMakMaxPos", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetTGrpMaxPos", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetTDiagMaxPos", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetTCfgMaxPos", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetTTestMaxPos", WORD, (ctypes.POINTER(LONG),)),
    ("DB_SetTDrFilter", WORD, (LONG, LONG, Value, Value, Value, Value,)),
    ("DB_SetTStatFilter", WORD, (LONG, LONG, Value, Value, Value, Value,)),
    ("DB_SetTUnitFilter", WORD, (LONG, LONG, Value, Value, Value, Value,)),
    ("DB_SetTPatFilter", WORD, (LONG, LONG, Value, Value, Value, Value,)),
    ("DB_SetPatExFilter", WORD, (LONG, LONG, Value, Value, Value, Value,)),
    ("DB_SetTImgFilter", WORD, (LONG, LONG, Value, Value, Value, Value,)),
    ("DB_SetTMakFilter", WORD, (LONG, LONG, Value, Value, Value, Value,)),
    ("DB_SetTGrpFilter", WORD, (LONG, LONG, Value, Value, Value, Value,)),
    ("DB_SetTDiagFilter", WORD, (LONG, LONG, Value, Value, Value, Value,)),
    ("DB_SetTCfgFilter", WORD, (LONG, LONG, Value, Value, Value, Value,)),
    ("DB_SetTTestFilter", WORD, (LONG, LONG, Value, Value, Value, Value,)),
    ("DB_SetTDrSortIndex", WORD, (LONG,)),
    ("DB_SetTStatSortIndex", WORD, (LONG,)),
    ("DB_SetTUnitSortIndex", WORD, (LONG,)),
    ("DB_SetTPatSortIndex", WORD, (LONG,)),
    ("DB_SetPatExSortIndex", WORD, (LONG,)),
    ("DB_SetTImgSortIndex", WORD, (LONG,)),
    ("DB_SetTMakSortIndex", WORD, (LONG,)),
    ("DB_SetTGrpSortIndex", WORD, (LONG,)),
    ("DB_SetTDiagSortIndex", WORD, (LONG,)),
    ("DB_SetTCfgSortIndex", WORD, (LONG,)),
    ("DB_SetTTestSortIndex", WORD, (LONG,)),
    ("DB_GetTDrByPos", WORD, (LONG, ctypes.POINTER(tagTDOCTOR),)),
    ("DB_GetTStatByPos", WORD, (LONG, ctypes.POINTER(tagTSTATION),)),
    ("DB_GetTUnitByPos", WORD, (LONG, ctypes.POINTER(tagTUNIT),)),
    ("DB_GetTPatByPos", WORD, (LONG, ctypes.POINTER(tagTPATIENT),)),
    ("DB_GetPatExByPos", WORD, (LONG, ctypes.POINTER(tagTPATIENTEX),)),
    ("DB_GetTImgByPos", WORD, (LONG, ctypes.POINTER(tagTIMAGE),)),
    ("DB_GetTMakByPos", WORD, (LONG, ctypes.POINTER(tagTMAKRO),)),
    ("DB_GetTGrpByPos", WORD, (LONG, ctypes.POINTER(tagTGROUP),)),
    ("DB_GetTDiagByPos", WORD, (LONG, ctypes.POINTER(tagTDIAGNOSIS),)),
    ("DB_GetTCfgByPos", WORD, (LONG, ctypes.POINTER(tagTCONFIG),)),
    ("DB_GetTTestByPos", WORD, (LONG, ctypes.POINTER(tagTTEST),)),
    ("DB_DeleteTDrByPos", WORD, (LONG,)),
    ("DB_DeleteTStatByPos", WORD, (LONG,)),
    ("DB_DeleteTUnitByPos", WORD, (LONG,)),
    ("DB_DeleteTPatByPos", WORD, (LONG,)),
    ("DB_DeleteTImgByPos", WORD, (LONG,)),
    ("DB_DeleteTMakByPos", WORD, (LONG,)),
    ("DB_DeleteTGrpByPos", WORD, (LONG,)),
    ("DB_DeleteTDiagByPos", WORD, (LONG,)),
    ("DB_DeleteTCfgByPos", WORD, (LONG,)),
    ("DB_DeleteTTestByPos", WORD, (LONG,)),
    ("DB_AddNewTDr", WORD, (ctypes.POINTER(tagTDOCTOR),)),
    ("DB_AddNewTStat", WORD, (ctypes.POINTER(tagTSTATION),)),
    ("DB_AddNewTUnit", WORD, (ctypes.POINTER(tagTUNIT),)),
    ("DB_AddNewTPat", WORD, (ctypes.POINTER(tagTPATIENT),)),
    ("DB_AddNewTImg", WORD, (ctypes.POINTER(tagTIMAGE),)),
    ("DB_AddNewTMak", WORD, (ctypes.POINTER(tagTMAKRO),)),
    ("DB_AddNewTGrp", WORD, (ctypes.POINTER(tagTGROUP),)),
    ("DB_AddNewTDiag", WORD, (ctypes.POINTER(tagTDIAGNOSIS),)),
    ("DB_AddNewTCfg", WORD, (ctypes.POINTER(tagTCONFIG),)),
    ("DB_AddNewTTest", WORD, (ctypes.POINTER(tagTTEST),)),
    ("DB_EditSelTDr", WORD, (ctypes.POINTER(tagTDOCTOR), DWORD,)),
    ("DB_EditSelTStat", WORD, (ctypes.POINTER(tagTSTATION), DWORD,)),
    ("DB_EditSelTUnit", WORD, (ctypes.POINTER(tagTUNIT), DWORD,)),
    ("DB_EditSelTPat", WORD, (ctypes.POINTER(tagTPATIENT), DWORD,)),
    ("DB_EditSelTImg", WORD, (ctypes.POINTER(tagTIMAGE), DWORD,)),
    ("DB_EditSelTMak", WORD, (ctypes.POINTER(tagTMAKRO), DWORD,)),
    ("DB_EditSelTGrp", WORD, (ctypes.POINTER(tagTGROUP), DWORD,)),
    ("DB_EditSelTDiag", WORD, (ctypes.POINTER(tagTDIAGNOSIS), DWORD,)),
    ("DB_EditSelTCfg", WORD, (ctypes.POINTER(tagTCONFIG), DWORD,)),
    ("DB_EditSelTTest", WORD, (ctypes.POINTER(tagTTEST), DWORD,)),
    ("DB_EditTDr", WORD, (ctypes.POINTER(tagTDOCTOR),)),
    ("DB_EditTStat", WORD, (ctypes.POINTER(tagTSTATION),)),
    ("DB_EditTUnit", WORD, (ctypes.POINTER(tagTUNIT),)),
    ("DB_EditTPat", WORD, (ctypes.POINTER(tagTPATIENT),)),
    ("DB_EditTImg", WORD, (ctypes.POINTER(tagTIMAGE),)),
    ("DB_EditTMak", WORD, (ctypes.POINTER(tagTMAKRO),)),
    ("DB_EditTGrp", WORD, (ctypes.POINTER(tagTGROUP),)),
    ("DB_EditTDiag", WORD, (ctypes.POINTER(tagTDIAGNOSIS),)),
    ("DB_EditTCfg", WORD, (ctypes.POINTER(tagTCONFIG),)),
    ("DB_EditTTest", WORD, (ctypes.POINTER(tagTTEST),)),
    ("DB_DeleteTDr", WORD, (ctypes.POINTER(tagTDOCTOR),)),
    ("DB_DeleteTStat", WORD, (ctypes.POINTER(tagTSTATION),)),
    ("DB_DeleteTUnit", WORD, (ctypes.POINTER(tagTUNIT),)),
    ("DB_DeleteTPat", WORD, (ctypes.POINTER(tagTPATIENT),)),
    ("DB_DeleteTImg", WORD, (ctypes.POINTER(tagTIMAGE),)),
    ("DB_DeleteTMak", WORD, (ctypes.POINTER(tagTMAKRO),)),
    ("DB_DeleteTGrp", WORD, (ctypes.POINTER(tagTGROUP),)),
    ("DB_DeleteTDiag", WORD, (ctypes.POINTER(tagTDIAGNOSIS),)),
    ("DB_DeleteTCfg", WORD, (ctypes.POINTER(tagTCONFIG),)),
    ("DB_DeleteTTest", WORD, (ctypes.POINTER(tagTTEST),)),
    ("DB_GetTDr", WORD, (ctypes.POINTER(tagTDOCTOR),)),
    ("DB_GetTStat", WORD, (ctypes.POINTER(tagTSTATION),)),
    ("DB_GetTUnit", WORD, (ctypes.POINTER(tagTUNIT),)),
    ("DB_GetTPat", WORD, (ctypes.POINTER(tagTPATIENT),)),
    ("DB_GetPatEx", WORD, (ctypes.POINTER(tagTPATIENTEX),)),
    ("DB_GetTImg", WORD, (ctypes.POINTER(tagTIMAGE),)),
    ("DB_GetTMak", WORD, (ctypes.POINTER(tagTMAKRO),)),
    ("DB_GetTGrp", WORD, (ctypes.POINTER(tagTGROUP),)),
    ("DB_GetTDiag", WORD, (ctypes.POINTER(tagTDIAGNOSIS),)),
    ("DB_GetTCfg", WORD, (ctypes.POINTER(tagTCONFIG),)),
    ("DB_GetTTest", WORD, (ctypes.POINTER(tagTTEST),)),
    ("DB_GetNumTDr", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetNumTStat", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetNumTUnit", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetNumTPat", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetNumPatEx", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetNumTDiag", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetNumTCfg", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetNumTImg", WORD, (LONG, ctypes.POINTER(LONG),)),
    ("DB_GetNumTMak", WORD, (LONG, ctypes.POINTER(LONG),)),
    ("DB_GetNumTGrp", WORD, (LONG, ctypes.POINTER(LONG),)),
    ("DB_GetNumTTest", WORD, (LONG, ctypes.POINTER(LONG),)),
    ("DB_GetLastDrID", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetLastStatID", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetLastUnitID", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetLastPatID", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetLastImgID", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetLastMakID", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetLastGrpID", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetLastDiagID", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetLastCfgID", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetLastTestID", WORD, (ctypes.POINTER(LONG),)),
    ("DB_GetLastTImgDate", WORD, (LONG, ctypes.POINTER(LONG), ctypes.POINTER(TIMESTAMP_STRUCT),)),
    ("DB_GetLastTMakDate", WORD, (LONG, ctypes.POINTER(LONG), ctypes.POINTER(TIMESTAMP_STRUCT),)),
    ("DB_GetLastTTestDate", WORD, (LONG, ctypes.POINTER(LONG), ctypes.POINTER(TIMESTAMP_STRUCT),)),
    ("DB_AddNewPat", WORD, (ctypes.POINTER(tagPATIENTCOMPACT),)),
    ("DB_EditPat", WORD, (ctypes.POINTER(tagPATIENTCOMPACT),)),
    ("DB_EditSelPat", WORD, (ctypes.POINTER(tagPATIENTCOMPACT), DWORD,)),
    ("DB_DeletePat", WORD, (ctypes.POINTER(tagPATIENTCOMPACT),)),
    ("DB_GetPat", WORD, (ctypes.POINTER(tagPATIENTCOMPACT),)),
    ("DB_GetPatByPos", WORD, (ctypes.POINTER(tagPATIENTCOMPACT), LONG,)),
    ("DB_AddNewUnit", WORD, (ctypes.POINTER(tagPATIENTCOMPACT),)),
    ("DB_EditUnit", WORD, (ctypes.POINTER(tagPATIENTCOMPACT),)),
    ("DB_EditSelUnit", WORD, (ctypes.POINTER(tagPATIENTCOMPACT), DWORD,)),
    ("DB_DeleteUnit", WORD, (ctypes.POINTER(tagPATIENTCOMPACT),)),
    ("DB_GetUnit", WORD, (ctypes.POINTER(tagPATIENTCOMPACT),)),
    ("DB_GetUnitByPos", WORD, (ctypes.POINTER(tagPATIENTCOMPACT), LONG,)),
    ("DB_GetLastErrorDetail", WORD, (ctypes.POINTER(tagDBERRORDETAIL), DWORD,)),
    ("DB_ReopenAtKey", WORD, (LONG, LONG, ctypes.POINTER(LONG),)),
)
