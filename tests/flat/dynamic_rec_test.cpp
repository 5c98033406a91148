// Stored procedures: running them by name and reading whatever columns they have.
#include "tests/support/fixtures.h"

namespace {

// The code of the database exception that the action throws; 0 for none.
template <class Action>
RETCODE Thrown(Action action) {
  try {
    action();
  } catch (CDBException* exception) {
    const RETCODE code = exception->m_nRetCode;
    exception->Delete();
    return code;
  }
  return 0;
}

constexpr short kKey = 0, kName = 1, kBirthday = 2, kLastDisplay = 3, kSelected = 4, kColumns = 5;

class DynamicSets : public support::ConnectedTest {
 protected:
  explicit DynamicSets(support::PracticeOptions options = {}) : ConnectedTest(options) {}

  void MakeProcedure(const std::string& name, const std::string& select) {
    for (const std::string& sql : support::CurrentKind().ProcedureStatements(name, select)) Raw().Exec(sql);
  }
  void AddPatient(int key, const std::string& values) {
    Raw().Exec(
        "INSERT INTO TPatient (tPatCulIntPatIDPk, tPatSName, tPatDBirthday, tPatTsLastDisp, tPatFSelect) "
        "VALUES (" +
        std::to_string(key) + ", " + values + ")");
  }
  // Three patients and the procedure "recall", which lists them; the third has nothing but its key.
  void SetUp() override {
    ConnectedTest::SetUp();
    AddPatient(70001, "'Müller', '1960-02-03', '2001-05-06 10:11:12', 1");
    AddPatient(70002, "'O''Neil', '1899-12-30', '2002-06-07 00:00:00', 0");
    AddPatient(70003, "NULL, NULL, NULL, NULL");
    MakeProcedure("recall",
                  "SELECT tPatCulIntPatIDPk, tPatSName, tPatDBirthday, tPatTsLastDisp, tPatFSelect "
                  "FROM TPatient ORDER BY tPatCulIntPatIDPk");
  }
};

// What ExecuteSProc asks Open for.
class AskedSet : public CDynamicRec {
 public:
  BOOL Open(UINT open_type, const char* sql, DWORD options) override {
    m_asked.Format("%s, type %u, options %u", CString(sql), open_type, options);
    return m_answer;
  }
  CString m_asked;
  BOOL m_answer = TRUE;
};

TEST_F(DynamicSets, ASetTakesTheLibrarysConnectionAndOwner) {
  const CDynamicRec set;
  EXPECT_EQ(set.m_pDatabase, DB_GetDatabase());
  EXPECT_STREQ(set.m_strOwner, m_practice.Owner().c_str());
  EXPECT_EQ(set.IsOpen(), 0);
}

TEST_F(DynamicSets, AProcedureIsCalledByItsNameBehindTheOwnerUnpreparedAndAsASnapshot) {
  AskedSet set;
  set.m_strOwner = "";
  EXPECT_TRUE(set.ExecuteSProc("spky_ping"));
  EXPECT_STREQ(set.m_asked, "{call spky_ping}, type 1, options 8192");
  set.m_strOwner = "dbo.";
  EXPECT_TRUE(set.ExecuteSProc("spky_ping"));
  EXPECT_STREQ(set.m_asked, "{call dbo.spky_ping}, type 1, options 8192");
}

TEST_F(DynamicSets, ExecutingAnswersWhatOpenAnswers) {
  AskedSet set;
  set.m_answer = FALSE;
  EXPECT_FALSE(set.ExecuteSProc("spky_ping"));
}

TEST_F(DynamicSets, ThePingProcedureRuns) {
  CDynamicRec set;
  EXPECT_TRUE(set.ExecuteSProc("spky_ping"));
  EXPECT_NE(set.IsOpen(), 0);
}

TEST_F(DynamicSets, ColumnsHaveNames) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("recall"));
  ASSERT_EQ(set.GetODBCFieldCount(), kColumns);
  LONG error = 7;
  EXPECT_EQ(set.GetFieldName(0, &error).CompareNoCase("tPatCulIntPatIDPk"), 0);
  EXPECT_EQ(error, 0);
  EXPECT_EQ(set.GetFieldName(kColumns - 1, nullptr).CompareNoCase("tPatFSelect"), 0);
}

TEST_F(DynamicSets, OutsideTheColumnsTheNameIsEmptyAndTheErrorOne) {
  CDynamicRec set;
  LONG error = 7;
  EXPECT_TRUE(set.GetFieldName(0, &error).IsEmpty());
  EXPECT_EQ(error, 1);
  ASSERT_TRUE(set.ExecuteSProc("recall"));
  for (const LONG column : {-1, LONG{kColumns}, 65536, INT32_MIN, INT32_MAX}) {
    error = 7;
    EXPECT_TRUE(set.GetFieldName(column, &error).IsEmpty()) << column;
    EXPECT_EQ(error, 1) << column;
    EXPECT_TRUE(set.GetFieldName(column, nullptr).IsEmpty()) << column;
  }
}

TEST_F(DynamicSets, ADatabaseExceptionOverANameGives99) {
  struct Claims : CDynamicRec {
    Claims() { m_nResultCols = 5; }
  };
  Claims closed;
  LONG error = 0;
  EXPECT_TRUE(closed.GetFieldName(2, &error).IsEmpty());
  EXPECT_EQ(error, 99);
}

template <class Value, class Column>
Value Read(CDynamicRec& set, Column column) {
  Value value{};
  set.GetFieldValue(column, value);
  return value;
}

TEST_F(DynamicSets, NumbersAreReadByNameAndByIndexIntoEveryIntegerType) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("recall"));
  EXPECT_EQ(Read<LONG>(set, "tPatCulIntPatIDPk"), 70001);
  EXPECT_EQ(Read<LONG>(set, kKey), 70001);
  EXPECT_EQ(Read<int>(set, "TPATCULINTPATIDPK"), 70001);
  EXPECT_EQ(Read<long>(set, "tPatCulIntPatIDPk"), 70001);
  EXPECT_EQ(Read<long>(set, kKey), 70001);
  EXPECT_EQ(Read<BOOL>(set, "tPatFSelect"), TRUE);
  EXPECT_EQ(Read<short>(set, "tPatFSelect"), 1);
  EXPECT_EQ(Read<short>(set, kSelected), 1);
}

TEST_F(DynamicSets, ANumberIsTakenAsTheTypeAskedForWithoutConversion) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("recall"));
  EXPECT_EQ(Read<short>(set, kKey), static_cast<short>(70001 & 0xFFFF));
}

TEST_F(DynamicSets, TextsAreReadOfEveryColumn) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("recall"));
  EXPECT_STREQ(Read<CString>(set, "tPatSName"), "Müller");
  EXPECT_STREQ(Read<CString>(set, kName), "Müller");
  EXPECT_STREQ(Read<CString>(set, kKey), "70001");
  EXPECT_STREQ(Read<CString>(set, kBirthday), "1960-02-03");
  EXPECT_STREQ(Read<CString>(set, kLastDisplay).Left(19), "2001-05-06 10:11:12");
}

TEST_F(DynamicSets, DatesAndTimesAreReadToTheSecond) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("recall"));
  EXPECT_EQ(Read<COleDateTime>(set, "tPatTsLastDisp"), COleDateTime(2001, 5, 6, 10, 11, 12));
  EXPECT_EQ(Read<COleDateTime>(set, kLastDisplay), COleDateTime(2001, 5, 6, 10, 11, 12));
  EXPECT_EQ(Read<COleDateTime>(set, kBirthday), COleDateTime(1960, 2, 3, 0, 0, 0));
}

TEST_F(DynamicSets, AColumnThatIsNoDateGivesAnInvalidOne) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("recall"));
  EXPECT_EQ(Read<COleDateTime>(set, kKey).GetStatus(), COleDateTime::invalid);
  EXPECT_EQ(Read<COleDateTime>(set, kName).GetStatus(), COleDateTime::invalid);
}

TEST_F(DynamicSets, NullIsZeroEmptyOrANullDate) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("recall"));
  set.MoveLast();
  EXPECT_EQ(Read<LONG>(set, kKey), 70003);
  EXPECT_EQ(Read<LONG>(set, kSelected), 0);
  EXPECT_EQ(Read<short>(set, kSelected), 0);
  EXPECT_TRUE(Read<CString>(set, kName).IsEmpty());
  EXPECT_EQ(Read<COleDateTime>(set, kBirthday).GetStatus(), COleDateTime::null);
  CDBVariant value;
  set.GetFieldValue(kName, value);
  EXPECT_EQ(value.m_dwType, DBVT_NULL);
}

TEST_F(DynamicSets, AColumnIsReadAgainAndInAnyOrder) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("recall"));
  EXPECT_STREQ(Read<CString>(set, kName), "Müller");
  EXPECT_EQ(Read<LONG>(set, kKey), 70001);
  EXPECT_STREQ(Read<CString>(set, kName), "Müller");
  EXPECT_EQ(Read<LONG>(set, kKey), 70001);
}

TEST_F(DynamicSets, UnknownColumnsThrow) {
  CDynamicRec set;
  ASSERT_TRUE(set.ExecuteSProc("recall"));
  LONG number = 5;
  EXPECT_NE(Thrown([&] { set.GetFieldValue("nothing", number); }), 0);
  EXPECT_NE(Thrown([&] { set.GetFieldValue(static_cast<const char*>(nullptr), number); }), 0);
  EXPECT_NE(Thrown([&] { set.GetFieldValue(short{-1}, number); }), 0);
  EXPECT_NE(Thrown([&] { set.GetFieldValue(kColumns, number); }), 0);
  EXPECT_EQ(number, 5);
}

TEST_F(DynamicSets, WithoutACurrentRowReadingThrows) {
  CDynamicRec set;
  CString text;
  EXPECT_NE(Thrown([&] { set.GetFieldValue(kName, text); }), 0);
  ASSERT_TRUE(set.ExecuteSProc("recall"));
  set.MoveLast();
  set.MoveNext();
  EXPECT_TRUE(set.IsEOF());
  EXPECT_NE(Thrown([&] { set.GetFieldValue(kName, text); }), 0);
}

}  // namespace
