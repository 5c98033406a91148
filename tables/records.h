/* The plain records: fixed layouts that the flat calls take and fill. Readable from C11 and C++20.
 *
 * 1. Every record is packed to bytes: fields follow each other without padding, so dates and numbers may lie
 *    at odd addresses. Copy a field to a local before use; never keep a pointer or reference to one.
 * 2. A text field char[N] holds at most N-1 bytes of UTF-8 and a zero byte. N counts bytes, not characters.
 *    The library cuts longer texts silently, never inside a character, and always writes the zero byte.
 * 3. A key of 0 means "no row": a record with key 0 is not stored yet, a reference of 0 is not given.
 * 4. Dates are TIMESTAMP_STRUCT, 16 bytes, in local time. All zero stands for an empty column. Where only the
 *    date counts, the time of day and the fraction are zero.
 * 5. The comment behind a field names its column. The order of the fields after the key is the order of the
 *    field-mask bits, except for the two preview fields of the groups (see there).
 *
 * Zero a record before filling it: `memset(&record, 0, sizeof record)`.
 */
#ifndef KYODBC_TABLES_RECORDS_H
#define KYODBC_TABLES_RECORDS_H

#include <assert.h>
#include <stddef.h>

#include "../platform/types.h"

#pragma pack(push, 1)

/* What to connect to. */
typedef struct tagDBCONNECT {
  char szDSN[33];    /* name of the ODBC data source; must not be empty */
  char szUID[33];    /* user name; empty: not given */
  char szPWD[33];    /* password; empty: not given */
  char szOwner[260]; /* put directly before every table and procedure name, e.g. "dbo."; empty: none */
  BOOL bExclusive;   /* not 0: ask for exclusive use of the data source named szDSN + "Exclusive" */
} tagDBCONNECT;
static_assert(sizeof(tagDBCONNECT) == 363, "layout of tagDBCONNECT");
static_assert(offsetof(tagDBCONNECT, bExclusive) == 359, "layout of tagDBCONNECT");

/* What the library is connected to. */
typedef struct tagDBINFO {
  char szDSN[33];      /* data source as opened, with the suffix "Exclusive" if that was asked for */
  char szDatabase[33]; /* database name that the connection reports */
  BYTE abReserved[15]; /* always zero */
} tagDBINFO;
static_assert(sizeof(tagDBINFO) == 81, "layout of tagDBINFO");
static_assert(offsetof(tagDBINFO, abReserved) == 66, "layout of tagDBINFO");

/* A configuration entry: one setting of a doctor on a station. */
typedef struct tagTCONFIG {
  LONG lCfgID;     /* tCfgCulIntCfgIDPk   key of the entry */
  LONG lDrID;      /* tCfgCulIntDrIDFk    doctor */
  LONG lStatID;    /* tCfgCulIntStatIDFk  station */
  char szKey[25];  /* tCfgSKey            name of the setting */
  char szSet[129]; /* tCfgSSet            its value */
} tagTCONFIG;
static_assert(sizeof(tagTCONFIG) == 166, "layout of tagTCONFIG");
static_assert(offsetof(tagTCONFIG, szSet) == 37, "layout of tagTCONFIG");

/* A diagnosis recorded on an image. */
typedef struct tagTDIAGNOSIS {
  LONG lDiagID;        /* tDiagCulIntDiagIDPk  key of the diagnosis */
  LONG lImgID;         /* tDiagCulIntImgIDFk   image */
  LONG lDrID;          /* tDiagCulIntDrIDFk    diagnosing doctor */
  char szRegio[17];    /* tDiagSRegio          region */
  TIMESTAMP_STRUCT ts; /* tDiagTs              time of the diagnosis */
  char szCode[33];     /* tDiagSCode           code */
  char szText[256];    /* tDiagSText           text; the column holds more than this field shows */
} tagTDIAGNOSIS;
static_assert(sizeof(tagTDIAGNOSIS) == 334, "layout of tagTDIAGNOSIS");
static_assert(offsetof(tagTDIAGNOSIS, szText) == 78, "layout of tagTDIAGNOSIS");

/* A doctor. The name comes before the server identifier, unlike in the table. */
typedef struct tagTDOCTOR {
  LONG lDrID;       /* tDrCulIntDrIDPk  key of the doctor */
  char szName[33];  /* tDrSName         name */
  char szSrvID[65]; /* tDrSSrvID        server identifier */
} tagTDOCTOR;
static_assert(sizeof(tagTDOCTOR) == 102, "layout of tagTDOCTOR");
static_assert(offsetof(tagTDOCTOR, szSrvID) == 37, "layout of tagTDOCTOR");

/* A group of images of a patient. The preview file comes before the preview location, unlike in the table and
 * unlike the mask: bit 0x40 selects the preview location, bit 0x80 the preview file. */
typedef struct tagTGROUP {
  LONG lGrpID;         /* tGrpCulIntGrpIDPk  key of the group */
  LONG lPatID;         /* tGrpCulIntPatIDFk  patient */
  char szName[33];     /* tGrpSName          name */
  TIMESTAMP_STRUCT ts; /* tGrpTs             time of the group */
  char szLoc[2];       /* tGrpSLoc           storage location, one character */
  char szFile[48];     /* tGrpSFile          file name */
  WORD wMakNo;         /* tGrpUwMakNo        number of makros, 0 to 65535 */
  char szPvwFile[48];  /* tGrpSPvwFile       file name of the preview */
  char szPvwLoc[2];    /* tGrpSPvwLoc        storage location of the preview */
} tagTGROUP;
static_assert(sizeof(tagTGROUP) == 159, "layout of tagTGROUP");
static_assert(offsetof(tagTGROUP, szPvwLoc) == 157, "layout of tagTGROUP");

/* An image of a patient, taken on a unit. */
typedef struct tagTIMAGE {
  LONG lImgID;              /* tImgCulIntImgIDPk   key of the image */
  LONG lPatID;              /* tImgCulIntPatIDFk   patient */
  LONG lUnitID;             /* tImgCulIntUnitIDFk  unit that took the image */
  LONG lDrID;               /* tImgCulIntDrIDFk    doctor */
  char szType[5];           /* tImgSType           type */
  char szRegio[17];         /* tImgSRegio          region */
  char szName[33];          /* tImgSName           name */
  TIMESTAMP_STRUCT ts;      /* tImgTs              time of the image */
  char szPreg[2];           /* tImgSPreg           one character, free for the caller */
  char szOrdType[5];        /* tImgSOrdType        type that was ordered */
  char szOrdRegio[17];      /* tImgSOrdRegio       region that was ordered */
  char szOrdReason[65];     /* tImgSOrdReason      reason of the order */
  char szArcType[5];        /* tImgSArcType        type of the archive */
  char szArcLoc[2];         /* tImgSArcLoc         location in the archive, one character */
  char szArcFile[48];       /* tImgSArcFile        file name in the archive */
  char szArcVol[11];        /* tImgSArcVol         volume of the archive */
  TIMESTAMP_STRUCT dArcOut; /* tImgDArcOut         date taken out of the archive */
  TIMESTAMP_STRUCT dArcIn;  /* tImgDArcIn          date put into the archive */
  char szPvwLoc[2];         /* tImgSPvwLoc         storage location of the preview, one character */
  char szPvwFile[48];       /* tImgSPvwFile        file name of the preview */
  char szLoc[2];            /* tImgSLoc            storage location, one character */
  char szFile[48];          /* tImgSFile           file name */
  LONG lMakIDLast;          /* tImgCulIntMakIDLast last makro of the image */
} tagTIMAGE;
static_assert(sizeof(tagTIMAGE) == 378, "layout of tagTIMAGE");
static_assert(offsetof(tagTIMAGE, lMakIDLast) == 374, "layout of tagTIMAGE");

/* A makro of an image. The file comes before the location, unlike in the table. */
typedef struct tagTMAKRO {
  LONG lMakID;             /* tMakCulIntMakIDPk  key of the makro */
  LONG lImgID;             /* tMakCulIntImgIDFk  image */
  char szName[33];         /* tMakSName          name */
  TIMESTAMP_STRUCT tsLast; /* tMakTsLast         time of the last change */
  char szFile[48];         /* tMakSFile          file name */
  char szLoc[2];           /* tMakSLoc           storage location, one character */
  WORD wNo;                /* tMakUwNo           ordinal within the image, 0 to 65535 */
} tagTMAKRO;
static_assert(sizeof(tagTMAKRO) == 109, "layout of tagTMAKRO");
static_assert(offsetof(tagTMAKRO, wNo) == 107, "layout of tagTMAKRO");

/* A patient. */
typedef struct tagTPATIENT {
  LONG lPatID;                 /* tPatCulIntPatIDPk  key of the patient */
  LONG lDrID;                  /* tPatCulIntDrIDFk   responsible doctor */
  char szExtPatID[33];         /* tPatSExtPatID      identifier in an external system */
  char szSrvID[65];            /* tPatSSrvID         server identifier */
  char szSlidaID[21];          /* tPatSSlidaID       Slida identifier, the first one used to find a patient */
  char szSocID[17];            /* tPatSSocID         social-insurance identifier */
  char szName[33];             /* tPatSName          surname */
  char szFirstname[33];        /* tPatSFirstname     first name */
  TIMESTAMP_STRUCT dBirthday;  /* tPatDBirthday      date of birth */
  char szSex[2];               /* tPatSSex           "m", "f" or "-" */
  LONG lSelect;                /* tPatFSelect        1: the patient is selected, 0: not */
  TIMESTAMP_STRUCT dEntry;     /* tPatDEntry         date of entry; stamped when the patient is added */
  char szIDDisp[33];           /* tPatSIDDisp        identifier to display; derived from the others */
  TIMESTAMP_STRUCT tsLastDisp; /* tPatTsLastDisp     time of the last display */
} tagTPATIENT;
static_assert(sizeof(tagTPATIENT) == 297, "layout of tagTPATIENT");
static_assert(offsetof(tagTPATIENT, tsLastDisp) == 281, "layout of tagTPATIENT");

/* A patient with the name of the doctor, as the joined view reads it. The fields up to the last display are
 * those of tagTPATIENT at the same offsets. */
typedef struct tagTPATIENTEX {
  LONG lPatID;                 /* tPatCulIntPatIDPk  key of the patient */
  LONG lDrID;                  /* tPatCulIntDrIDFk   responsible doctor */
  char szExtPatID[33];         /* tPatSExtPatID      identifier in an external system */
  char szSrvID[65];            /* tPatSSrvID         server identifier */
  char szSlidaID[21];          /* tPatSSlidaID       Slida identifier */
  char szSocID[17];            /* tPatSSocID         social-insurance identifier */
  char szName[33];             /* tPatSName          surname */
  char szFirstname[33];        /* tPatSFirstname     first name */
  TIMESTAMP_STRUCT dBirthday;  /* tPatDBirthday      date of birth */
  char szSex[2];               /* tPatSSex           "m", "f" or "-" */
  LONG lSelect;                /* tPatFSelect        1: the patient is selected, 0: not */
  TIMESTAMP_STRUCT dEntry;     /* tPatDEntry         date of entry */
  char szIDDisp[33];           /* tPatSIDDisp        identifier to display */
  TIMESTAMP_STRUCT tsLastDisp; /* tPatTsLastDisp     time of the last display */
  char szDrName[33];           /* tDrSName           name of the doctor */
} tagTPATIENTEX;
static_assert(sizeof(tagTPATIENTEX) == 330, "layout of tagTPATIENTEX");
static_assert(offsetof(tagTPATIENTEX, tsLastDisp) == offsetof(tagTPATIENT, tsLastDisp), "prefix");
static_assert(offsetof(tagTPATIENTEX, szDrName) == sizeof(tagTPATIENT), "layout of tagTPATIENTEX");

/* A workstation. */
typedef struct tagTSTATION {
  LONG lStatID;    /* tStatCulIntStatIDPk  key of the station */
  char szName[17]; /* tStatSName           name; "-" is the station of the library's own settings */
} tagTSTATION;
static_assert(sizeof(tagTSTATION) == 21, "layout of tagTSTATION");
static_assert(offsetof(tagTSTATION, szName) == 4, "layout of tagTSTATION");

/* A constancy test of a unit. */
typedef struct tagTTEST {
  LONG lTstID;              /* tTstCulIntTstIDPk   key of the test */
  LONG lUnitID;             /* tTstCulIntUnitIDFk  unit tested */
  char szPerson[33];        /* tTstSPerson         person who made the test */
  char szType[5];           /* tTstSType           type */
  char szRegio[17];         /* tTstSRegio          region */
  char szName[33];          /* tTstSName           name */
  TIMESTAMP_STRUCT ts;      /* tTstTs              time of the test */
  char szResult[4096];      /* tTstSResult         result */
  char szArcType[5];        /* tTstSArcType        type of the archive */
  char szArcLoc[2];         /* tTstSArcLoc         location in the archive, one character */
  char szArcFile[48];       /* tTstSArcFile        file name in the archive */
  char szArcVol[11];        /* tTstSArcVol         volume of the archive */
  TIMESTAMP_STRUCT dArcOut; /* tTstDArcOut         date taken out of the archive */
  TIMESTAMP_STRUCT dArcIn;  /* tTstDArcIn          date put into the archive */
  char szLoc[2];            /* tTstSLoc            storage location, one character */
  char szFile[48];          /* tTstSFile           file name */
} tagTTEST;
static_assert(sizeof(tagTTEST) == 4356, "layout of tagTTEST");
static_assert(offsetof(tagTTEST, szPerson) == 8, "layout of tagTTEST");
static_assert(offsetof(tagTTEST, szFile) == 4308, "layout of tagTTEST");

/* An X-ray unit with the serial numbers of its components. */
typedef struct tagTUNIT {
  LONG lUnitID;             /* tUnitCulIntUnitIDPk  key of the unit */
  char szType[3];           /* tUnitSType           type */
  char szName[23];          /* tUnitSName           name */
  TIMESTAMP_STRUCT dAccept; /* tUnitDAccept         date of acceptance */
  char szCtrlUnitSNo[11];   /* tUnitSCtrlUnitSNo    serial number of the control unit */
  char szSensSNo[11];       /* tUnitSSensSNo        serial number of the sensor */
  char szGenSNo[11];        /* tUnitSGenSNo         serial number of the generator */
  char szTubeSNo[11];       /* tUnitSTubeSNo        serial number of the tube */
  char szCtrlElemSNo[11];   /* tUnitSCtrlElemSNo    serial number of the control element */
  char szConeSNo[11];       /* tUnitSConeSNo        serial number of the cone */
  char szTestBodySNo[11];   /* tUnitSTestBodySNo    serial number of the test body */
} tagTUNIT;
static_assert(sizeof(tagTUNIT) == 123, "layout of tagTUNIT");
static_assert(offsetof(tagTUNIT, szTestBodySNo) == 112, "layout of tagTUNIT");

/* The compact record of the patients, which the units use as well. In a unit, 0xBB is the single byte that
 * separates packed texts. */
typedef struct tagPATIENTCOMPACT {
  char szName[33];      /* patient: surname; unit: name, 0xBB, serial number of the test body */
  char szFirstname[33]; /* patient: first name; unit: control unit, 0xBB, sensor, 0xBB, generator */
  WORD wYear;           /* patient: date of birth; unit: date of acceptance */
  BYTE byMonth;         /*   1 to 12 */
  BYTE byDay;           /*   1 to 31 */
  WORD wDispYear;       /* patient: date of the last display; unit: 0 */
  BYTE byDispMonth;     /*   1 to 12 */
  BYTE byDispDay;       /*   1 to 31 */
  char szDrName[13];    /* patient: name of the doctor; unit: serial number of the tube */
  DWORD dwID;           /* key of the patient or unit; 0: none */
  char szIdent[21];     /* patient: "}" and the external identifier, or the Slida identifier;
                         * unit: "]", control element, 0xBB, cone */
  BYTE bySex;           /* patient: 1 male, 2 female, 0 unknown; unit: 0 */
  BYTE byReserved;      /* the library writes 0 */
} tagPATIENTCOMPACT;
static_assert(sizeof(tagPATIENTCOMPACT) == 114, "layout of tagPATIENTCOMPACT");
static_assert(offsetof(tagPATIENTCOMPACT, wYear) == 66, "layout of tagPATIENTCOMPACT");
static_assert(offsetof(tagPATIENTCOMPACT, dwID) == 87, "layout of tagPATIENTCOMPACT");
static_assert(offsetof(tagPATIENTCOMPACT, byReserved) == 113, "layout of tagPATIENTCOMPACT");

#pragma pack(pop)

#endif
