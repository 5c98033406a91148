#include "tools/doctor/writing.h"

#include <fmt/format.h>

#include "tools/doctor/query.h"

namespace {

constexpr const char* kText = "kyodbc doctor";
constexpr const char* kOtherCase = "KYODBC DOCTOR";
constexpr const char* kForeignText = "kyodbc doctor äß€田🦷";
constexpr const char* kGrantRights =
    "grant the user the rights to add, change and delete, and see that "
    "nothing makes the database read-only";

class Writer {
 public:
  Writer(CDatabase& database, const std::string& name, const std::string& column, Findings& findings)
      : m_database(database), m_name(name), m_column(column), m_findings(findings) {}
  ~Writer() { m_database.Rollback(); }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  // The row is deleted again before the transaction is taken back: some tables know no transactions.
  void Run() {
    if (!Succeeds("added to", fmt::format("INSERT INTO {} ({}) VALUES ('{}')", m_name, m_column, kText)))
      return;
    if (Count(kText) != "1") {
      m_findings.Add(fmt::format("a row added to {} is not found again", m_name),
                     "apply the schema file of this database again");
    }
    CheckComparison();
    if (Succeeds("changed in", Change(kText, kForeignText)) && Count(kForeignText) != "1") {
      m_findings.Add(fmt::format("{} does not keep every character of a text", m_name),
                     "use UTF-8 (on MariaDB utf8mb4) for the database and its tables");
    }
    Succeeds("deleted from", fmt::format("DELETE FROM {} WHERE {} LIKE '{}%'", m_name, m_column, kText));
  }

 private:
  std::string Change(const char* from, const char* to) const {
    return fmt::format("UPDATE {} SET {}='{}' WHERE {}='{}'", m_name, m_column, to, m_column, from);
  }
  std::string Count(const std::string& text) {
    return Answer(m_database, fmt::format("SELECT COUNT(*) FROM {} WHERE {}='{}'", m_name, m_column, text));
  }
  bool Succeeds(const char* done, const std::string& statement) {
    const std::string refusal = Refusal([&] { m_database.ExecuteSQL(statement.c_str()); });
    if (refusal.empty()) return true;
    m_findings.Add(fmt::format("rows cannot be {} {} ({})", done, m_name, refusal), kGrantRights);
    return false;
  }
  void CheckComparison() {
    if (Count(kOtherCase) == "0" && Count(std::string(kText) + " ") == "0") return;
    m_findings.Add(fmt::format("{} compares texts without regard to case or to blanks at the end", m_name),
                   "give its text columns a collation by bytes (on MariaDB utf8mb4_nopad_bin)");
  }

  CDatabase& m_database;
  const std::string& m_name;
  const std::string& m_column;
  Findings& m_findings;
};

}  // namespace

void CheckWriting(CDatabase& database, const std::string& name, const std::string& text_column,
                  Findings& findings) {
  // Without transactions nothing could be taken back; that has been reported already.
  if (database.BeginTrans()) Writer(database, name, text_column, findings).Run();
}
