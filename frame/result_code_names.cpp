#include "frame/result_code_names.h"

#include "platform/result_codes.h"

namespace {

struct CodeName {
  WORD code;
  const char* name;
};

constexpr CodeName kNames[] = {
    {KYODBC_OK,                "KYODBC_OK"               },
    {KYODBC_BAD_ARGUMENT,      "KYODBC_BAD_ARGUMENT"     },
    {KYODBC_NOT_OPENED,        "KYODBC_NOT_OPENED"       },
    {KYODBC_CLOSE_FAILED,      "KYODBC_CLOSE_FAILED"     },
    {KYODBC_COUNT_FAILED,      "KYODBC_COUNT_FAILED"     },
    {KYODBC_WRITE_FAILED,      "KYODBC_WRITE_FAILED"     },
    {KYODBC_DELETE_FAILED,     "KYODBC_DELETE_FAILED"    },
    {KYODBC_OUT_OF_MEMORY,     "KYODBC_OUT_OF_MEMORY"    },
    {KYODBC_PATIENT_NOT_FOUND, "KYODBC_PATIENT_NOT_FOUND"},
    {KYODBC_CONNECT_FAILED,    "KYODBC_CONNECT_FAILED"   },
    {KYODBC_DB_EXCEPTION,      "KYODBC_DB_EXCEPTION"     },
    {KYODBC_NOT_UNIQUE,        "KYODBC_NOT_UNIQUE"       },
    {KYODBC_NO_TRANSACTIONS,   "KYODBC_NO_TRANSACTIONS"  },
    {KYODBC_SCHEMA_TOO_OLD,    "KYODBC_SCHEMA_TOO_OLD"   },
    {KYODBC_RECONNECTED,       "KYODBC_RECONNECTED"      },
    {KYODBC_NO_ROW,            "KYODBC_NO_ROW"           },
    {KYODBC_IMAGE_NOT_FOUND,   "KYODBC_IMAGE_NOT_FOUND"  },
    {KYODBC_UNIT_NOT_FOUND,    "KYODBC_UNIT_NOT_FOUND"   },
    {KYODBC_TEST_NOT_FOUND,    "KYODBC_TEST_NOT_FOUND"   },
    {KYODBC_SETS_NOT_CREATED,  "KYODBC_SETS_NOT_CREATED" },
};

}  // namespace

const char* ResultCodeName(WORD code) {
  for (const CodeName& row : kNames) {
    if (row.code == code) return row.name;
  }
  return "unknown code";
}
