/* The words that describe filters, sort orders and partial edits: four bytes per word, one entry per byte,
 * the lowest byte first; and the bits of the field masks. Readable from C11 and C++20.
 *
 * Example: surname like M%, and born from 1 January 1960 on; sorted by surname, then by birthday descending:
 *
 *   fields    = KYODBC_PACK(KYODBC_FIELD_NAME, KYODBC_FIELD_DATE, 0, 0)
 *   operators = KYODBC_PACK(KYODBC_LIKE, KYODBC_GREATER_EQUAL, 0, 0)
 *   sort      = KYODBC_PACK(KYODBC_FIELD_NAME, KYODBC_FIELD_DATE | KYODBC_DESCENDING, 0, 0)
 */
#ifndef KYODBC_FRAME_FIELD_WORDS_H
#define KYODBC_FRAME_FIELD_WORDS_H

#include "../platform/types.h"

/* Packs four entries of 0 to 255 into a word. A constant expression for constant entries. */
#define KYODBC_PACK(first, second, third, fourth) \
  ((LONG)((DWORD)(first) | ((DWORD)(second) << 8) | ((DWORD)(third) << 16) | ((DWORD)(fourth) << 24)))

/* Field ids. An id means the same in every table; the tables that know it stand behind it. The id also fixes
 * what the value pointer of a filter clause points to. */
enum {
  /* Keys; the value is a LONG. */
  KYODBC_FIELD_KEY = 1,            /* every table's own key */
  KYODBC_FIELD_IMAGE_KEY = 2,      /* Img, Diag, Mak */
  KYODBC_FIELD_DOCTOR_KEY = 3,     /* Dr, Cfg, Diag, Img, Pat, PatEx */
  KYODBC_FIELD_PATIENT_KEY = 4,    /* Pat, PatEx, Grp, Img */
  KYODBC_FIELD_UNIT_KEY = 5,       /* Unit, Test; Img names a column here that the table does not have: 31 */
  KYODBC_FIELD_STATION_KEY = 6,    /* Stat, Cfg */
  KYODBC_FIELD_CONFIG_KEY = 7,     /* Cfg */
  KYODBC_FIELD_TEST_KEY = 8,       /* Test */
  KYODBC_FIELD_GROUP_KEY = 9,      /* Grp */
  KYODBC_FIELD_MAKRO_KEY = 10,     /* Mak */
  KYODBC_FIELD_DIAGNOSIS_KEY = 11, /* Diag */

  /* Texts; the value is a zero-terminated text. */
  KYODBC_FIELD_NAME = 17,        /* name or surname: Dr, Stat, Unit, Pat, PatEx, Img, Mak, Grp, Test */
  KYODBC_FIELD_PERSON = 18,      /* Test */
  KYODBC_FIELD_SURNAME = 19,     /* Pat, PatEx */
  KYODBC_FIELD_DOCTOR_NAME = 20, /* Dr, PatEx */
  KYODBC_FIELD_FIRSTNAME = 22,   /* Pat, PatEx */
  KYODBC_FIELD_UNIT_NAME = 23,   /* Unit */
  KYODBC_FIELD_IMAGE_NAME = 24,  /* Img */
  KYODBC_FIELD_TEST_NAME = 25,   /* Test */
  KYODBC_FIELD_MAKRO_NAME = 26,  /* Mak */
  KYODBC_FIELD_SETTING_KEY = 42, /* Cfg */
  KYODBC_FIELD_SETTING = 43,     /* Cfg */
  KYODBC_FIELD_EXTERNAL_ID = 49, /* Pat, PatEx */
  KYODBC_FIELD_SERVER_ID = 50,   /* Dr, Pat, PatEx */
  KYODBC_FIELD_SLIDA_ID = 51,    /* Pat, PatEx */
  KYODBC_FIELD_SOCIAL_ID = 52,   /* Pat, PatEx */
  KYODBC_FIELD_DISPLAY_ID = 53,  /* Pat, PatEx */
  KYODBC_FIELD_TYPE = 58,        /* Unit, Img, Test */
  KYODBC_FIELD_REGION = 59,      /* Img, Diag, Test */

  /* Dates; the value is a TIMESTAMP_STRUCT of which year, month and day count. */
  KYODBC_FIELD_DATE = 33,     /* every table but Dr, Stat and Cfg; of patients the date of birth */
  KYODBC_FIELD_BIRTHDAY = 34, /* Pat, PatEx */

  /* Times; the value is a TIMESTAMP_STRUCT of which all but the fraction counts. */
  KYODBC_FIELD_LAST_DISPLAY = 35, /* PatEx */
  KYODBC_FIELD_TIME = 36,         /* Img, Test */

  /* Added to a field id. */
  KYODBC_OR = 0x80,        /* filter: joins the clause to those before it with OR instead of AND */
  KYODBC_DESCENDING = 0x80 /* sort index: descending order */
};

/* Filter operators. A code that is not listed compares for equality. */
enum {
  KYODBC_EQUAL = 0,
  KYODBC_GREATER_EQUAL = 2,
  KYODBC_GREATER = 3,
  KYODBC_LESS_EQUAL = 4,
  KYODBC_LESS = 5,
  KYODBC_NOT_EQUAL = 7,
  KYODBC_LIKE = 16,   /* with the wildcards % and _ of the database */
  KYODBC_BETWEEN = 17 /* dates and times only; takes this value pointer and the next, and uses up both */
};

/* Field masks: which fields an edit writes. Bits without a field are ignored. The key is never written. */
#define KYODBC_MASK_ALL 0xFFFFFFFFu

enum {
  KYODBC_MASK_CFG_DOCTOR = 0x1,
  KYODBC_MASK_CFG_STATION = 0x2,
  KYODBC_MASK_CFG_KEY = 0x4,
  KYODBC_MASK_CFG_SETTING = 0x8
};

enum {
  KYODBC_MASK_DIAG_IMAGE = 0x1,
  KYODBC_MASK_DIAG_DOCTOR = 0x2,
  KYODBC_MASK_DIAG_REGION = 0x4,
  KYODBC_MASK_DIAG_TIME = 0x8,
  KYODBC_MASK_DIAG_CODE = 0x10,
  KYODBC_MASK_DIAG_TEXT = 0x20
};

enum { KYODBC_MASK_DR_NAME = 0x1, KYODBC_MASK_DR_SERVER_ID = 0x2 };

enum {
  KYODBC_MASK_GRP_PATIENT = 0x1,
  KYODBC_MASK_GRP_NAME = 0x2,
  KYODBC_MASK_GRP_TIME = 0x4,
  KYODBC_MASK_GRP_LOCATION = 0x8,
  KYODBC_MASK_GRP_FILE = 0x10,
  KYODBC_MASK_GRP_MAKRO_COUNT = 0x20,
  KYODBC_MASK_GRP_PREVIEW_LOCATION = 0x40, /* the record holds the preview file first */
  KYODBC_MASK_GRP_PREVIEW_FILE = 0x80
};

enum {
  KYODBC_MASK_IMG_PATIENT = 0x1,
  KYODBC_MASK_IMG_UNIT = 0x2,
  KYODBC_MASK_IMG_DOCTOR = 0x4,
  KYODBC_MASK_IMG_TYPE = 0x8,
  KYODBC_MASK_IMG_REGION = 0x10,
  KYODBC_MASK_IMG_NAME = 0x20,
  KYODBC_MASK_IMG_TIME = 0x40, /* also brings the patient's last display up to date */
  KYODBC_MASK_IMG_PREG = 0x80,
  KYODBC_MASK_IMG_ORDER_TYPE = 0x100,
  KYODBC_MASK_IMG_ORDER_REGION = 0x200,
  KYODBC_MASK_IMG_ORDER_REASON = 0x400,
  KYODBC_MASK_IMG_ARCHIVE_TYPE = 0x800,
  KYODBC_MASK_IMG_ARCHIVE_LOCATION = 0x1000,
  KYODBC_MASK_IMG_ARCHIVE_FILE = 0x2000,
  KYODBC_MASK_IMG_ARCHIVE_VOLUME = 0x4000,
  KYODBC_MASK_IMG_ARCHIVE_OUT = 0x8000,
  KYODBC_MASK_IMG_ARCHIVE_IN = 0x10000,
  KYODBC_MASK_IMG_PREVIEW_LOCATION = 0x20000,
  KYODBC_MASK_IMG_PREVIEW_FILE = 0x40000,
  KYODBC_MASK_IMG_LOCATION = 0x80000,
  KYODBC_MASK_IMG_FILE = 0x100000,
  KYODBC_MASK_IMG_LAST_MAKRO = 0x200000
};

enum {
  KYODBC_MASK_MAK_IMAGE = 0x1,
  KYODBC_MASK_MAK_NAME = 0x2,
  KYODBC_MASK_MAK_LAST_CHANGE = 0x4, /* stamps the current local time; the record's value is not used */
  KYODBC_MASK_MAK_FILE = 0x8,
  KYODBC_MASK_MAK_LOCATION = 0x10,
  KYODBC_MASK_MAK_ORDINAL = 0x20
};

enum {
  KYODBC_MASK_PAT_DOCTOR = 0x1,
  KYODBC_MASK_PAT_EXTERNAL_ID = 0x2, /* the display identifier is derived anew */
  KYODBC_MASK_PAT_SERVER_ID = 0x4,
  KYODBC_MASK_PAT_SLIDA_ID = 0x8, /* the display identifier is derived anew */
  KYODBC_MASK_PAT_SOCIAL_ID = 0x10,
  KYODBC_MASK_PAT_SURNAME = 0x20,
  KYODBC_MASK_PAT_FIRSTNAME = 0x40,
  KYODBC_MASK_PAT_BIRTHDAY = 0x80,
  KYODBC_MASK_PAT_SEX = 0x100,
  KYODBC_MASK_PAT_SELECTED = 0x200,
  KYODBC_MASK_PAT_ENTRY = 0x400,        /* ignored by edits: the date of entry never changes */
  KYODBC_MASK_PAT_DISPLAY_ID = 0x800,   /* derived from the identifiers; the record's value is not used */
  KYODBC_MASK_PAT_LAST_DISPLAY = 0x1000 /* derived from the newest image; the record's value is not used */
};

enum { KYODBC_MASK_STAT_NAME = 0x1 };

enum {
  KYODBC_MASK_TEST_UNIT = 0x1,
  KYODBC_MASK_TEST_PERSON = 0x2,
  KYODBC_MASK_TEST_TYPE = 0x4,
  KYODBC_MASK_TEST_REGION = 0x8,
  KYODBC_MASK_TEST_NAME = 0x10,
  KYODBC_MASK_TEST_TIME = 0x20,
  KYODBC_MASK_TEST_RESULT = 0x40,
  KYODBC_MASK_TEST_ARCHIVE_TYPE = 0x80,
  KYODBC_MASK_TEST_ARCHIVE_LOCATION = 0x100,
  KYODBC_MASK_TEST_ARCHIVE_FILE = 0x200,
  KYODBC_MASK_TEST_ARCHIVE_VOLUME = 0x400,
  KYODBC_MASK_TEST_ARCHIVE_OUT = 0x800,
  KYODBC_MASK_TEST_ARCHIVE_IN = 0x1000,
  KYODBC_MASK_TEST_LOCATION = 0x2000,
  KYODBC_MASK_TEST_FILE = 0x4000
};

enum {
  KYODBC_MASK_UNIT_TYPE = 0x1,
  KYODBC_MASK_UNIT_NAME = 0x2,
  KYODBC_MASK_UNIT_ACCEPTANCE = 0x4,
  KYODBC_MASK_UNIT_CONTROL_UNIT = 0x8,
  KYODBC_MASK_UNIT_SENSOR = 0x10,
  KYODBC_MASK_UNIT_GENERATOR = 0x20,
  KYODBC_MASK_UNIT_TUBE = 0x40,
  KYODBC_MASK_UNIT_CONTROL_ELEMENT = 0x80,
  KYODBC_MASK_UNIT_CONE = 0x100,
  KYODBC_MASK_UNIT_TEST_BODY = 0x200
};

#endif
