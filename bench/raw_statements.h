// The statements that the bare program keeps prepared, with the buffers bound to them.
#ifndef KYODBC_BENCH_RAW_STATEMENTS_H
#define KYODBC_BENCH_RAW_STATEMENTS_H

#include "bench/queries.h"
#include "bench/raw_rows.h"

namespace bench {

// A kept statement that reads patients.
struct PatientReader {
  PatientReader(const Connection& connection, bool is_static) : statement(connection, is_static) {
    row.Bind(statement);
  }
  PatientRow row{};
  Statement statement;
};

struct ByKey : PatientReader {
  explicit ByKey(const Connection& connection) : PatientReader(connection, false) {
    statement.Prepare(kPatientByKey);
    statement.Parameter(1, &key);
  }
  bool Read(SQLINTEGER number, tagTPATIENT* record) {
    key = number;
    statement.Execute();
    if (!statement.Fetch()) return false;
    row.CopyTo(record);
    statement.CloseRows();
    return true;
  }
  SQLINTEGER key = 0;
};

struct Editor {
  explicit Editor(const Connection& connection) : statement(connection, false) {
    statement.Prepare(kEditPatient);
    statement.Parameter(1, text, kText - 1);
    statement.Parameter(2, &key);
  }
  char text[kText] = "";
  SQLINTEGER key = 0;
  Statement statement;
};

struct Adder {
  explicit Adder(const Connection& connection) : insert(connection, false), reader(connection, false) {
    insert.Prepare(kAddPatient);
    row.Bind(insert);
    reader.statement.Prepare(kPatientBySlida);
    reader.statement.Parameter(1, row.slida, kText - 1);
  }
  NewPatientRow row;
  Statement insert;
  PatientReader reader;
};

struct NewestImage {
  explicit NewestImage(const Connection& connection) : statement(connection, false) {
    statement.Prepare(kNewestImage);
    statement.Parameter(1, &patient);
    statement.Column(1, SQL_C_SLONG, &key, 0);
    statement.Column(2, SQL_C_TYPE_TIMESTAMP, &time, 0);
  }
  SQLINTEGER patient = 0, key = 0;
  TIMESTAMP_STRUCT time{};
  Statement statement;
};

// A query that gives one number.
struct NumberQuery {
  NumberQuery(const Connection& connection, const char* sql) : statement(connection, false) {
    statement.Prepare(sql);
    statement.Column(1, SQL_C_SLONG, &number, 0);
  }
  SQLINTEGER number = 0, key = 0;
  char text[kText] = "";
  Statement statement;
};

}  // namespace bench

#endif
