// Messages of the three databases as they came, with hostile values in them.
#include "platform/masking.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "platform/log.h"
#include "platform/refusal.h"

namespace {

struct Sample {
  const char* state;
  int native;
  const char* message;
  const char* masked;
};

// clang-format off
const Sample kSamples[] = {
    // One line per kind of value: in marks, in parentheses, in details, free.
    {"23505", 1, "ERROR: duplicate key value violates unique constraint \"t_n_key\"\n"
                 "DETAIL: Key (n)=(Me'y) er) already exists.;\nError while executing the query",
     "ERROR: duplicate key value violates unique constraint '?'"},
    {"23514", 1, "ERROR: new row for relation \"t\" violates check constraint \"t_c_check\"\n"
                 "DETAIL: Failing row contains (2, Meyer, 0, null).;\nError while executing the query",
     "ERROR: new row for relation '?'"},
    {"23502", 1, "null value violates a constraint: Failing row contains (2, Meyer (Anna), null).",
     "null value violates a constraint: Failing row contains (?)."},
    {"22P02", 1, "ERROR: invalid input syntax for type integer: \"Me\nyer\";\nError", "ERROR: invalid input syntax for type integer: '?'"},
    {"22P02", 1, "FEHLER: ungültige Eingabesyntax für Typ integer: »Meyer«", "FEHLER: ungültige Eingabesyntax für Typ integer: '?'"},
    {"22P02", 1, "syntaxe en entrée invalide : « Meyer »", "syntaxe en entrée invalide : '?'"},
    {"22P02", 1, "ungültig: „Meyer“ an Stelle 3", "ungültig: '?' an Stelle 3"},
    {"22001", 1, "ERROR: value too long for type character varying(10)", "ERROR: value too long for type character varying(10)"},
    {"22021", 1, "ERROR: invalid byte sequence for encoding \"UTF8\": 0xe4 0x6c", "ERROR: invalid byte sequence for encoding '?': ? ?"},
    {"P0001", 1, "ERROR: Meyer is not welcome", "?"},
    {"42P01", 1, "ERROR: relation \"nope\" does not exist;\nError while executing the query", "ERROR: relation \"nope\" does not exist;"},
    {"23000", 1062, "Duplicate entry 'Me'y) er' for key 'n'", "Duplicate entry '?'"},
    {"23000", 1062, "Doppelter Eintrag 'O'Brien' für Schlüssel 'n'", "Doppelter Eintrag '?'"},
    {"23000", 4025, "CONSTRAINT `t.c` failed for `db`.`t`", "CONSTRAINT '?'"},
    {"22007", 1292, "Incorrect date value: 'Meyer' for column `db`.`t`.`d` at row 1", "Incorrect date value: '?' at row 1"},
    {"45000", 1644, "Meyer is not welcome", "?"},
    {"23000", 1644, "Meyer is not welcome", "?"},
    {"42S02", 1146, "Table 'db.nope' doesn't exist", "Table 'db.nope' doesn't exist"},
    {"HY000", 1146, "Table 'db.nope' doesn't exist", "Table '?' doesn't exist"},
    {"HY000", 19, "UNIQUE constraint failed: t.n (19)", "UNIQUE constraint failed: t.n (19)"},
    {"HY000", 19, "Meyer is not welcome (19)", "?"},
    {"HY000", 19, "Meyer: constraint failed (19)", "?"},
    {"HY000", 1, "near \"'Meyer'\": syntax error (1)", "near '?': syntax error (1)"},
    {"HY000", 1, "unrecognized token: \"'O\" (1)", "unrecognized token: '?'"},
    {"HY000", 1, "(Meyer", "(?)"},
    {"", 0, "", ""},
};
// clang-format on

TEST(MaskedMessages, ShowNoValues) {
  for (const Sample& sample : kSamples)
    EXPECT_EQ(masking::Message(sample.state, sample.native, sample.message), sample.masked);
}

TEST(Refusals, KeepStateNativeCodeAndTheNumberOfRecords) {
  const CDBException exception(SQL_ERROR, "Duplicate entry 'Meyer' for key 'n'",
                               "State:23000,Native:1062,Origin:[a][b]\nState:01000,Native:-7,Origin:");
  refusal::Remember(exception, 6);
  const refusal::Refusal& last = refusal::Last();
  EXPECT_EQ(last.code, 6);
  EXPECT_STREQ(last.state, "23000");
  EXPECT_EQ(last.native, 1062);
  EXPECT_EQ(last.records, 2);
  EXPECT_STREQ(last.message, "Duplicate entry '?'");
  refusal::BecameCode(3);
  EXPECT_EQ(refusal::Last().code, 3);
  refusal::Forget();
  EXPECT_EQ(refusal::Last().code, 0);
  refusal::BecameCode(3);
  EXPECT_EQ(refusal::Last().code, 0);
}

TEST(Refusals, OfTheFrameworkItselfHaveNeitherStateNorRecords) {
  refusal::Remember(CDBException(AFX_SQL_ERROR_NO_CURRENT_RECORD, "There is no current row.", ""), 31);
  EXPECT_STREQ(refusal::Last().state, "");
  EXPECT_EQ(refusal::Last().native, 0);
  EXPECT_EQ(refusal::Last().records, 0);
  EXPECT_STREQ(refusal::Last().message, "There is no current row.");
}

TEST(Refusals, CutLongMessagesAtACharacter) {
  std::string text(510, 'x');
  text += "\xC3\xBC and more";
  refusal::Remember(CDBException(SQL_ERROR, CString(text), "State:HY000,Native:1,Origin:"), 31);
  EXPECT_EQ(std::string(refusal::Last().message), std::string(510, 'x'));
}

TEST(Refusals, ShowNoValuesEvenWhenTheLogDoes) {
  setenv("KYODBC_LOG_VALUES", "1", 1);
  klog::Reconfigure();
  refusal::Remember(CDBException(SQL_ERROR, "near 'Meyer'", "State:HY000,Native:1,Origin:"), 31);
  unsetenv("KYODBC_LOG_VALUES");
  klog::Reconfigure();
  EXPECT_STREQ(refusal::Last().message, "near '?'");
}

}  // namespace
