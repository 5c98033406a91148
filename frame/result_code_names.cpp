#include "frame/result_code_names.h"

#include "platform/result_codes.h"

namespace {

struct CodeName {
  WORD code;
  const char* name;
  const char* meaning;
};

constexpr CodeName kNames[] = {
    {KYODBC_OK,                "KYODBC_OK",                "Success."                                               },
    {KYODBC_BAD_ARGUMENT,      "KYODBC_BAD_ARGUMENT",
     "An argument is missing, empty or not usable, or the operation was refused."                                   },
    {KYODBC_NOT_OPENED,        "KYODBC_NOT_OPENED",
     "There is no connection, or the database or the record set could not be opened."                               },
    {KYODBC_CLOSE_FAILED,      "KYODBC_CLOSE_FAILED",      "Something did not close."                               },
    {KYODBC_COUNT_FAILED,      "KYODBC_COUNT_FAILED",
     "The rows could not be counted, or the connection would not tell its name."                                    },
    {KYODBC_WRITE_FAILED,      "KYODBC_WRITE_FAILED",      "The database refused an insert or an update."           },
    {KYODBC_DELETE_FAILED,     "KYODBC_DELETE_FAILED",     "The database refused a delete, or the row is protected."},
    {KYODBC_OUT_OF_MEMORY,     "KYODBC_OUT_OF_MEMORY",     "Memory ran out."                                        },
    {KYODBC_PATIENT_NOT_FOUND, "KYODBC_PATIENT_NOT_FOUND", "There is no such patient."                              },
    {KYODBC_CONNECT_FAILED,    "KYODBC_CONNECT_FAILED",    "The server could not be reached or refused the login."  },
    {KYODBC_DB_EXCEPTION,      "KYODBC_DB_EXCEPTION",      "The database reported an error."                        },
    {KYODBC_NOT_UNIQUE,        "KYODBC_NOT_UNIQUE",        "More than one row matches."                             },
    {KYODBC_NO_TRANSACTIONS,   "KYODBC_NO_TRANSACTIONS",   "The data source has no transactions."                   },
    {KYODBC_SCHEMA_TOO_OLD,    "KYODBC_SCHEMA_TOO_OLD",
     "The database schema is older than the operation needs."                                                       },
    {KYODBC_RECONNECTED,       "KYODBC_RECONNECTED",       "The connection had been lost and was made again."       },
    {KYODBC_NO_ROW,            "KYODBC_NO_ROW",            "There is no such row."                                  },
    {KYODBC_IMAGE_NOT_FOUND,   "KYODBC_IMAGE_NOT_FOUND",   "There is no such image."                                },
    {KYODBC_UNIT_NOT_FOUND,    "KYODBC_UNIT_NOT_FOUND",    "There is no such unit."                                 },
    {KYODBC_TEST_NOT_FOUND,    "KYODBC_TEST_NOT_FOUND",    "There is no such test."                                 },
    {KYODBC_SETS_NOT_CREATED,  "KYODBC_SETS_NOT_CREATED",  "The browse record sets could not be created."           },
};

const CodeName* Find(WORD code) {
  for (const CodeName& row : kNames) {
    if (row.code == code) return &row;
  }
  return nullptr;
}

}  // namespace

const char* ResultCodeName(WORD code) {
  const CodeName* row = Find(code);
  return row == nullptr ? "unknown code" : row->name;
}

const char* ResultCodeMeaning(WORD code) {
  const CodeName* row = Find(code);
  return row == nullptr ? "The code is not known." : row->meaning;
}
