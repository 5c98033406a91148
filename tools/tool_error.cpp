#include "tools/tool_error.h"

#include <KyODBCDiag.h>
#include <fmt/format.h>

#include <optional>

#include "tools/text_table.h"

namespace {

struct Meaning {
  WORD code;
  const char* text;
};

// One row per result code, in their order.
constexpr Meaning kMeanings[] = {
    {KYODBC_OK,                "done"                                                  },
    {KYODBC_BAD_ARGUMENT,      "something required is missing or wrong"                },
    {KYODBC_NOT_OPENED,        "no connection, or the table could not be opened"       },
    {KYODBC_CLOSE_FAILED,      "something did not close"                               },
    {KYODBC_COUNT_FAILED,      "the rows could not be counted"                         },
    {KYODBC_WRITE_FAILED,      "the database refused to write"                         },
    {KYODBC_DELETE_FAILED,     "the database refused, or the row is protected"         },
    {KYODBC_OUT_OF_MEMORY,     "out of memory"                                         },
    {KYODBC_PATIENT_NOT_FOUND, "there is no such patient"                              },
    {KYODBC_CONNECT_FAILED,    "the database could not be reached or refused the login"},
    {KYODBC_DB_EXCEPTION,      "the database reported an error"                        },
    {KYODBC_NOT_UNIQUE,        "more than one row matches"                             },
    {KYODBC_NO_TRANSACTIONS,   "the database has no transactions"                      },
    {KYODBC_SCHEMA_TOO_OLD,    "the database schema is too old"                        },
    {KYODBC_RECONNECTED,       "the connection had been lost and was made again"       },
    {KYODBC_NO_ROW,            "there is no such row"                                  },
    {KYODBC_IMAGE_NOT_FOUND,   "there is no such image"                                },
    {KYODBC_UNIT_NOT_FOUND,    "there is no such unit"                                 },
    {KYODBC_TEST_NOT_FOUND,    "there is no such test"                                 },
    {KYODBC_SETS_NOT_CREATED,  "the record sets could not be created"                  },
};

// The driver's words for the failure, which hold no values of rows; nothing when the library itself refused.
std::optional<tagDBERRORDETAIL> SaidByDatabase(WORD code) {
  tagDBERRORDETAIL failure{};
  if (DB_GetLastErrorDetail(&failure, sizeof failure) != KYODBC_OK) return {};
  if (failure.wCode != code || failure.lRecords == 0) return {};
  return failure;
}

}  // namespace

bool IsLoss(std::string_view state) { return state.starts_with("08") || state.starts_with("57P0"); }

std::string MeaningOf(WORD code) {
  for (const Meaning& meaning : kMeanings) {
    if (meaning.code == code) return meaning.text;
  }
  return "unknown";
}

std::string MeaningOf(WORD code, std::string_view state) {
  const bool was_connected = code != KYODBC_CONNECT_FAILED && code != KYODBC_NOT_OPENED;
  return was_connected && IsLoss(state) ? kLost : MeaningOf(code);
}

void Check(WORD code, const std::string& doing) {
  if (code == KYODBC_OK) return;
  const std::optional<tagDBERRORDETAIL> said = SaidByDatabase(code);
  if (!said) throw ToolError(kFailed, fmt::format("{}: {} (code {})", doing, MeaningOf(code), code));
  throw ToolError(
      kFailed, fmt::format("{}: {} (code {}); the database said: {} (SQLSTATE {})", doing,
                           MeaningOf(code, said->szState), code, Printable(said->szMessage), said->szState));
}
