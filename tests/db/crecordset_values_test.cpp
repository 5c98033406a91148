// Reading columns of the current row on demand, and what is known of columns.
#include "tests/db/toy_set.h"

namespace {

using toys::CodeOf;
using toys::ToySet;

class RecordSetValues : public toys::ToyTest {
 protected:
  RecordSetValues() : m_set(&m_database) {
    const support::ColumnTypes types = support::CurrentKind().Types();
    m_raw.Exec(
        "CREATE TABLE Kinds (kSmall SMALLINT, kNumber INTEGER, kReal REAL, kDouble DOUBLE PRECISION, kDay "
        "DATE, "
        "kTime " +
        types.timestamp + ", kText VARCHAR(40), kNull INTEGER, kLong " + types.long_text +
        ", kSum NUMERIC(10,2))");
    m_raw.Exec(
        "INSERT INTO Kinds VALUES (7,70000,1.5,2.25,'2001-05-06','2001-05-06 10:11:12','O''Neil',NULL,'" +
        std::string(20000, 'l') + "',12.5)");
    m_raw.Exec("INSERT INTO Kinds (kSmall, kText) VALUES (8,'second')");
    m_set.m_strSort = "kSmall";
    m_set.Open(CRecordset::snapshot, "SELECT * FROM Kinds");
  }
  std::string Text(const char* name) {
    CString text = "before";
    m_set.GetFieldValue(name, text);
    return text.GetString();
  }
  CDBVariant Variant(const char* name, short type = DEFAULT_FIELD_TYPE) {
    CDBVariant value;
    value.SetLong(4711);
    m_set.GetFieldValue(name, value, type);
    return value;
  }
  CRecordset m_set;
};

TEST_F(RecordSetValues, EveryTypeIsReadAsText) {
  EXPECT_EQ(Text("kSmall"), "7");
  EXPECT_EQ(Text("kNumber"), "70000");
  EXPECT_EQ(Text("kDouble"), "2.25");
  EXPECT_EQ(Text("kDay"), "2001-05-06");
  EXPECT_EQ(Text("kTime").substr(0, 19), "2001-05-06 10:11:12");
  EXPECT_EQ(Text("kText"), "O'Neil");
  EXPECT_EQ(Text("kLong"), std::string(20000, 'l'));
}

TEST_F(RecordSetValues, NullIsAnEmptyTextAndANullVariant) {
  EXPECT_EQ(Text("kNull"), "");
  EXPECT_EQ(Variant("kNull").m_dwType, DBVT_NULL);
  EXPECT_EQ(Variant("kNull").m_lVal, 0);
  m_set.MoveNext();
  EXPECT_EQ(Text("kLong"), "");
  EXPECT_EQ(Variant("kTime").m_dwType, DBVT_NULL);
  EXPECT_EQ(Variant("kLong").m_dwType, DBVT_NULL);
}

TEST_F(RecordSetValues, TheDefaultTypeFollowsTheColumn) {
  const CDBVariant small = Variant("kSmall");
  EXPECT_EQ(small.m_dwType, DBVT_SHORT);
  EXPECT_EQ(small.m_iVal, 7);
  EXPECT_EQ(small.m_lVal, 7);
  const CDBVariant number = Variant("kNumber");
  EXPECT_EQ(number.m_dwType, DBVT_LONG);
  EXPECT_EQ(number.m_lVal, 70000);
  const CDBVariant precise = Variant("kDouble");
  EXPECT_EQ(precise.m_dwType, DBVT_DOUBLE);
  EXPECT_EQ(precise.m_dblVal, 2.25);
  const CDBVariant text = Variant("kText");
  ASSERT_EQ(text.m_dwType, DBVT_STRING);
  EXPECT_STREQ(*text.m_pstring, "O'Neil");
  const CDBVariant day = Variant("kDay");
  ASSERT_EQ(day.m_dwType, DBVT_DATE);
  EXPECT_EQ(support::TimeText(*day.m_pdate), "2001-05-06 00:00:00");
  const CDBVariant time = Variant("kTime");
  ASSERT_EQ(time.m_dwType, DBVT_DATE);
  EXPECT_EQ(support::TimeText(*time.m_pdate), "2001-05-06 10:11:12");
}

TEST_F(RecordSetValues, AnExplicitTypeGoesBeforeTheDefault) {
  EXPECT_EQ(Variant("kSmall", SQL_C_SLONG).m_dwType, DBVT_LONG);
  EXPECT_EQ(Variant("kNumber", SQL_C_DOUBLE).m_dblVal, 70000.0);
  EXPECT_EQ(Variant("kSmall", SQL_C_BIT).m_dwType, DBVT_BOOL);
  EXPECT_EQ(Variant("kSmall", SQL_C_UTINYINT).m_chVal, 7);
  EXPECT_EQ(Variant("kReal", SQL_C_FLOAT).m_fltVal, 1.5F);
  EXPECT_EQ(Variant("kText", SQL_C_BINARY).m_dwType, DBVT_BINARY);
  EXPECT_STREQ(*Variant("kNumber", SQL_C_CHAR).m_pstring, "70000");
}

TEST_F(RecordSetValues, TheOlderNamesOfTypesAreUnderstood) {
  EXPECT_EQ(Variant("kNumber", SQL_C_LONG).m_lVal, 70000);
  EXPECT_EQ(Variant("kSmall", SQL_C_SHORT).m_iVal, 7);
  EXPECT_EQ(Variant("kSmall", SQL_C_TINYINT).m_chVal, 7);
  const CDBVariant time = Variant("kTime", SQL_C_TIMESTAMP);
  ASSERT_EQ(time.m_dwType, DBVT_DATE);
  EXPECT_EQ(support::TimeText(*time.m_pdate), "2001-05-06 10:11:12");
}

TEST_F(RecordSetValues, ATypeThatNoVariantHoldsThrowsAndIsNotRead) {
  for (const short type : {short{SQL_C_NUMERIC}, short{SQL_C_GUID}, short{SQL_C_INTERVAL_DAY_TO_SECOND},
                           short{SQL_C_WCHAR}, short{4711}}) {
    EXPECT_EQ(CodeOf([&] { Variant("kNumber", type); }), AFX_SQL_ERROR_NOT_SUPPORTED) << type;
  }
  EXPECT_EQ(Text("kNumber"), "70000");
}

TEST_F(RecordSetValues, ACountIsReadAsANumberWhenAskedFor) {
  m_set.m_strSort.Empty();
  m_set.Open(CRecordset::snapshot, "SELECT COUNT(*) AS TIntCount FROM Kinds");
  const CDBVariant count = Variant("TIntCount", SQL_C_SLONG);
  EXPECT_EQ(count.m_dwType, DBVT_LONG);
  EXPECT_EQ(count.m_lVal, 2);
}

TEST_F(RecordSetValues, NamesMatchWithoutRegardToCase) {
  EXPECT_EQ(Text("KNUMBER"), "70000");
  EXPECT_EQ(Text("knumber"), "70000");
}

TEST_F(RecordSetValues, ColumnsAreReadInAnyOrderAndRepeatedly) {
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(Text("kText"), "O'Neil");
    EXPECT_EQ(Text("kSmall"), "7");
    EXPECT_EQ(Text("kSmall"), "7");
    EXPECT_EQ(Variant("kSmall").m_iVal, 7);
    EXPECT_EQ(Text("kLong").size(), 20000u);
    EXPECT_EQ(Variant("kTime").m_pdate->year, 2001);
    EXPECT_EQ(Text("kNumber"), "70000");
  }
  m_set.MoveNext();
  EXPECT_EQ(Text("kText"), "second");
  EXPECT_EQ(Text("kSmall"), "8");
  EXPECT_EQ(Text("kText"), "second");
  m_set.MovePrev();
  EXPECT_EQ(Text("kText"), "O'Neil");
}

TEST_F(RecordSetValues, ByIndexTheFirstColumnIsZero) {
  CDBVariant value;
  m_set.GetFieldValue(short{1}, value);
  EXPECT_EQ(value.m_lVal, 70000);
  CString text;
  m_set.GetFieldValue(short{6}, text);
  EXPECT_STREQ(text, "O'Neil");
  EXPECT_EQ(m_set.GetODBCFieldCount(), 10);
}

TEST_F(RecordSetValues, UnknownNamesAndWildIndexesThrow) {
  CString text = "kept";
  CDBVariant value;
  CODBCFieldInfo info;
  for (const short index : {short{-1}, short{10}, short{32767}, short{-32768}}) {
    EXPECT_EQ(CodeOf([&] { m_set.GetFieldValue(index, text); }), AFX_SQL_ERROR_NO_SUCH_COLUMN);
    EXPECT_EQ(CodeOf([&] { m_set.GetFieldValue(index, value); }), AFX_SQL_ERROR_NO_SUCH_COLUMN);
    EXPECT_EQ(CodeOf([&] { m_set.GetODBCFieldInfo(index, info); }), AFX_SQL_ERROR_NO_SUCH_COLUMN);
  }
  for (const char* name : {"nowhere", "", static_cast<const char*>(nullptr)}) {
    EXPECT_EQ(CodeOf([&] { m_set.GetFieldValue(name, text); }), AFX_SQL_ERROR_NO_SUCH_COLUMN);
    EXPECT_EQ(CodeOf([&] { m_set.GetODBCFieldInfo(name, info); }), AFX_SQL_ERROR_NO_SUCH_COLUMN);
  }
  EXPECT_STREQ(text, "kept");
}

TEST_F(RecordSetValues, OffTheRowsReadingThrows) {
  CString text;
  m_set.MovePrev();
  EXPECT_EQ(CodeOf([&] { m_set.GetFieldValue("kText", text); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
  m_set.MoveLast();
  m_set.MoveNext();
  EXPECT_EQ(CodeOf([&] { m_set.GetFieldValue("kText", text); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
  m_set.Close();
  EXPECT_NE(CodeOf([&] { m_set.GetFieldValue("kText", text); }), 0);
  EXPECT_NE(CodeOf([&] { m_set.GetFieldValue(short{0}, text); }), 0);
  CODBCFieldInfo info;
  EXPECT_NE(CodeOf([&] { m_set.GetODBCFieldInfo(short{0}, info); }), 0);
}

TEST_F(RecordSetValues, ColumnsTellNameTypeAndWidth) {
  CODBCFieldInfo info;
  m_set.GetODBCFieldInfo(short{6}, info);
  EXPECT_EQ(info.m_strName.CompareNoCase("kText"), 0);
  EXPECT_EQ(info.m_nPrecision, 40u);
  EXPECT_EQ(ToySet::GetTextLen(info.m_nSQLType, info.m_nPrecision), 41);
  m_set.GetODBCFieldInfo("KNUMBER", info);
  EXPECT_EQ(info.m_nSQLType, SQL_INTEGER);
  m_set.GetODBCFieldInfo("kDay", info);
  EXPECT_EQ(info.m_nSQLType, SQL_TYPE_DATE);
  m_set.GetODBCFieldInfo("kTime", info);
  EXPECT_EQ(info.m_nSQLType, SQL_TYPE_TIMESTAMP);
  static_assert(sizeof info.m_nSQLType == 2 && sizeof info.m_nPrecision == 4 && sizeof info.m_nScale == 2 &&
                sizeof info.m_nNullability == 2);
}

// A time of day with one digit of its second is as wide as a date, ten characters.
TEST_F(RecordSetValues, ATimeOfDayIsNoDateWhateverItsWidth) {
  m_raw.Exec("CREATE TABLE Hours (hNone TIME(0), hOne TIME(1), hTwo TIME(2))");
  m_raw.Exec("INSERT INTO Hours VALUES ('10:11:12','10:11:12.5','10:11:12.25')");
  CRecordset set(&m_database);
  set.Open(CRecordset::snapshot, "SELECT * FROM Hours");
  for (short column = 0; column < 3; ++column) {
    CODBCFieldInfo info;
    set.GetODBCFieldInfo(column, info);
    EXPECT_EQ(info.m_nSQLType, SQL_TYPE_TIME) << column;
    CString text;
    set.GetFieldValue(column, text);
    EXPECT_EQ(std::string(text.GetString()).substr(0, 8), "10:11:12") << column;
  }
}

TEST_F(RecordSetValues, OnlyTextsHaveATextLength) {
  for (const SWORD type :
       {SQL_CHAR, SQL_VARCHAR, SQL_LONGVARCHAR, SQL_WCHAR, SQL_WVARCHAR, SQL_WLONGVARCHAR}) {
    EXPECT_EQ(ToySet::GetTextLen(type, 255), 256) << type;
  }
}

TEST_F(RecordSetValues, ReadingOnDemandLeavesTheBoundMembersAlone) {
  AddToys(2);
  ToySet set(&m_database);
  set.m_strSort = "tToyId";
  set.Open();
  set.m_count = 4711;
  CString name;
  set.GetFieldValue("tToyName", name);
  set.GetFieldValue("tToyName", name);
  EXPECT_STREQ(name, "toy1");
  EXPECT_EQ(set.m_count, 4711);
  set.MoveNext();
  EXPECT_EQ(set.m_count, 20);
}

TEST_F(RecordSetValues, PastADeletedRowTheRightRowIsRead) {
  AddToys(3);
  ToySet set(&m_database);
  set.m_strSort = "tToyId";
  set.Open();
  set.Delete();
  set.MoveNext();
  CString name;
  set.GetFieldValue("tToyName", name);
  EXPECT_STREQ(name, "toy2");
  set.GetFieldValue("tToyName", name);
  EXPECT_STREQ(name, "toy2");
}

}  // namespace
