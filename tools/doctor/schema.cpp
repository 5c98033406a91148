#include "tools/doctor/schema.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

#include "tools/doctor/query.h"
#include "tools/doctor/writing.h"

namespace {

constexpr const char* kApplySchema = "apply the schema file of this database again, or restore the table";

struct TableColumns {
  std::string short_name;
  std::vector<std::string> columns;
};

std::vector<std::string> Split(const std::string& list) {
  std::vector<std::string> parts;
  for (std::size_t start = 0; start < list.size();) {
    const std::size_t end = std::min(list.find(',', start), list.size());
    const std::string part = list.substr(start, end - start);
    if (std::find(parts.begin(), parts.end(), part) == parts.end()) parts.push_back(part);
    start = end + 1;
  }
  return parts;
}

// The library's own list of columns, taken from the query that it forms, whether the query succeeds or not.
// Two of the sets know no other connection than the library's.
template <class Set, class... Arguments>
TableColumns ColumnsOf(const char* short_name, Arguments... arguments) {
  Set set(arguments...);
  set.m_strFilter = "1 = 2";
  Refusal([&] { set.Open(); });
  const std::string sql = set.GetSQL().GetString();
  constexpr std::string_view kSelect = "SELECT ";
  return {short_name, Split(sql.substr(kSelect.size(), sql.find(" FROM ") - kSelect.size()))};
}

std::vector<TableColumns> AllTables(CDatabase& database) {
  return {
      ColumnsOf<CCfgRawRec>("TConfig", &database, nullptr),
      ColumnsOf<CDiagRawRec>("TDiagnosis", &database, nullptr),
      ColumnsOf<CDrRawRec>("TDoctor", &database, nullptr),
      ColumnsOf<CGrpRawRec>("TGroup", &database, nullptr),
      ColumnsOf<CImgRawRec>("TImage", &database, nullptr),
      ColumnsOf<CMakRawRec>("TMakro", &database, nullptr),
      ColumnsOf<CPatientRawRec>("TPatient", &database, nullptr),
      ColumnsOf<CStatRawRec>("TStation", &database, nullptr),
      ColumnsOf<CTestRawRec>("TTest"),
      ColumnsOf<CUnitRawRec>("TUnit"),
  };
}

struct ColumnType {
  std::string_view mark;  // in the column's name, behind that of the table
  const char* name;
  std::vector<int> accepted;  // as ODBC reports them
};

// The longer marks first where one begins like another.
const std::vector<ColumnType>& ColumnTypes() {
  static const std::vector<ColumnType> types = {
      {"Cul", "an integer of 32 bits", {SQL_INTEGER, SQL_SMALLINT}                                                        },
      {"Int", "an integer of 32 bits", {SQL_INTEGER, SQL_SMALLINT}                                                        },
      {"Uw",  "an integer of 32 bits", {SQL_INTEGER, SQL_SMALLINT}                                                        },
      {"F",   "a small integer",       {SQL_INTEGER, SQL_SMALLINT, SQL_TINYINT}                                           },
      {"Ts",  "a date with time",      {SQL_TYPE_TIMESTAMP, SQL_TIMESTAMP}                                                },
      {"D",   "a date",                {SQL_TYPE_DATE, SQL_DATE}                                                          },
      {"S",   "a text",                {SQL_CHAR, SQL_VARCHAR, SQL_LONGVARCHAR, SQL_WCHAR, SQL_WVARCHAR, SQL_WLONGVARCHAR}},
  };
  return types;
}

// The name without "t" and the short name of its table: CulIntStatIDPk, SName.
std::string_view WithoutTable(std::string_view column) {
  for (const std::string_view table :
       {"tCfg", "tDiag", "tDr", "tGrp", "tImg", "tMak", "tPat", "tStat", "tTst", "tUnit"}) {
    if (column.starts_with(table)) return column.substr(table.size());
  }
  return column;
}

const ColumnType* TypeOf(const std::string& column) {
  for (const ColumnType& type : ColumnTypes()) {
    if (WithoutTable(column).starts_with(type.mark)) return &type;
  }
  return nullptr;
}

bool IsText(const std::string& column) { return TypeOf(column) != nullptr && TypeOf(column)->mark == "S"; }

// Bytes or characters that a text column must take.
DWORD RequiredWidth(const std::string& column) {
  const bool long_text = WithoutTable(column) == "SAdd" || column == "tDiagSText" || column == "tTstSResult";
  return long_text ? 1000000 : 255;
}

class NameCheck {
 public:
  NameCheck(CDatabase& database, std::string name, const std::vector<std::string>& columns,
            Findings& findings)
      : m_database(database), m_name(std::move(name)), m_columns(columns), m_findings(findings) {}

  void Run() {
    if (IsReadable() && HasAllColumns()) {
      CheckTypes();
      const auto text = std::find_if(m_columns.begin(), m_columns.end(), IsText);
      CheckWriting(m_database, m_name, *text, m_findings);
    }
  }

 private:
  std::string RefusalOf(const std::string& columns) {
    return Refusal([&] { Open(columns); });
  }
  void Open(const std::string& columns) {
    CRecordset set(&m_database);
    set.Open(CRecordset::snapshot, fmt::format("SELECT {} FROM {} WHERE 1 = 2", columns, m_name).c_str(),
             CRecordset::readOnly);
  }
  bool IsReadable() {
    const std::string refusal = RefusalOf("1");
    if (!refusal.empty())
      m_findings.Add(fmt::format("{} cannot be read ({})", m_name, refusal), kApplySchema);
    return refusal.empty();
  }
  bool HasAllColumns() {
    if (RefusalOf(fmt::format("{}", fmt::join(m_columns, ","))).empty()) return true;
    for (const std::string& column : m_columns) {
      const std::string refusal = RefusalOf(column);
      if (refusal.empty()) continue;
      m_findings.Add(fmt::format("{} has no column {} that can be read ({})", m_name, column, refusal),
                     kApplySchema);
    }
    return false;
  }
  void CheckTypes() {
    CRecordset set(&m_database);
    const std::string sql = fmt::format("SELECT {} FROM {} WHERE 1 = 2", fmt::join(m_columns, ","), m_name);
    set.Open(CRecordset::snapshot, sql.c_str(), CRecordset::readOnly);
    short index = 0;
    for (const std::string& column : m_columns) {
      CODBCFieldInfo info;
      set.GetODBCFieldInfo(index++, info);
      CheckType(column, info);
    }
  }
  void CheckType(const std::string& column, const CODBCFieldInfo& info) {
    const ColumnType* type = TypeOf(column);
    if (type == nullptr) return;
    const auto& accepted = type->accepted;
    if (std::find(accepted.begin(), accepted.end(), info.m_nSQLType) == accepted.end()) {
      m_findings.Add(fmt::format("the column {} of {} is not {} (ODBC type {})", column, m_name, type->name,
                                 info.m_nSQLType),
                     fmt::format("declare it as {}", type->name));
    } else if (type->mark == "S" && info.m_nPrecision < RequiredWidth(column)) {
      m_findings.Add(
          fmt::format("the column {} of {} takes {} characters only", column, m_name, info.m_nPrecision),
          fmt::format("make it {} wide", RequiredWidth(column)));
    }
  }

  CDatabase& m_database;
  const std::string m_name;
  const std::vector<std::string>& m_columns;
  Findings& m_findings;
};

}  // namespace

void CheckSchema(CDatabase& database, const std::string& owner, Findings& findings) {
  for (const TableColumns& table : AllTables(database)) {
    for (const char* ending : {"", "Raw"}) {
      NameCheck(database, owner + table.short_name + ending, table.columns, findings).Run();
    }
  }
}
