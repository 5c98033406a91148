// Every kind of call as the first to meet the loss: its code, nothing changed, and all is well afterwards.
#include <algorithm>
#include <string>
#include <vector>

#include "frame/KyODBCDiag.h"
#include "tests/flat/every_call.h"
#include "tests/loss/loss_test_base.h"

namespace loss {
namespace {

using support::Loss;
using Codes = std::vector<LONG>;

constexpr LONG kNameFields = 1;  // one field id in the lowest byte

struct Meeting {
  const char* name;
  LONG (*run)(LONG patient);  // a code or a position
  Codes meets;                // what it may answer when it meets the loss
  Codes after;                // what it may answer once the loss is known
};

tagTPATIENT WithKey(LONG key) {
  tagTPATIENT patient = Patient("Lost", "After");
  patient.lPatID = key;
  return patient;
}

tagPATIENTCOMPACT Compact(LONG key) {
  tagPATIENTCOMPACT patient{};
  support::SetText(patient.szName, "Lost");
  support::SetText(patient.szFirstname, "After");
  patient.wYear = 1970;
  patient.byMonth = 1;
  patient.byDay = 2;
  support::SetText(patient.szDrName, "-");
  patient.dwID = static_cast<DWORD>(key);
  return patient;
}

LONG ReadPatientAt1() {
  tagTPATIENT patient{};
  const WORD code = DB_GetTPatByPos(1, &patient);
  if (code == 0) {
    EXPECT_EQ(support::Text(patient.szFirstname), "Before");
  }
  return code;
}

LONG ReadSetting() {
  char value[129] = {};
  const WORD code = DB_GetProfileString("DBVersion", "-", "default", value, sizeof value, nullptr);
  EXPECT_STREQ(value, "default");
  return code;
}

template <auto SetFilter>
LONG FilterByKey() {
  const LONG key = 1;
  return SetFilter(KYODBC_FIELD_KEY, KYODBC_EQUAL, &key, nullptr, nullptr, nullptr);
}

LONG AddImage(LONG patient) {
  tagTIMAGE image{};
  image.lPatID = patient;
  image.lUnitID = image.lDrID = 1;
  image.ts = support::Ts(2020, 1, 2, 3, 4, 5);
  return DB_AddNewTImg(&image);
}

// clang-format off
const Meeting kMeetings[] = {
    // The rows of an open set are held by the client: it may go on reading them.
    {"MoveByPos", [](LONG) { return DB_MoveToTPatByPos(1); }, {0, 1}, {0}},
    {"MoveByDelta", [](LONG) { return DB_MoveToTPatByDelta(0); }, {0, 1}, {0}},
    {"MoveByIntID", [](LONG key) { return DB_MoveToTPatByIntID(key); }, {0, 1}, {0}},
    {"MoveInViewByIntID", [](LONG key) { return DB_MoveToPatExByIntID(key); }, {0, 1}, {0}},
    {"MoveByString", [](LONG) { return DB_MoveToTPatByString("Lost"); }, {0}, {0}},
    {"GetByPos", [](LONG) { return ReadPatientAt1(); }, {0, 64}, {31, 64}},
    {"IndexPos", [](LONG) { return DB_GetTPatIndexPos(); }, {1}, {0}},
    {"IsOpen", [](LONG) -> LONG { return DB_IsTPatOpen() != 0; }, {1}, {0}},
    {"CloseSet", [](LONG) -> LONG { return DB_CloseTPat(); }, {0}, {0}},
    {"Open", [](LONG) -> LONG { return DB_OpenTStat(); }, {31}, {31}},
    {"Filter", [](LONG) { return FilterByKey<DB_SetTPatFilter>(); }, {31}, {0}},
    {"FilterView", [](LONG) { return FilterByKey<DB_SetPatExFilter>(); }, {31}, {0}},
    {"Sort", [](LONG) -> LONG { return DB_SetTPatSortIndex(kNameFields); }, {31}, {0}},
    {"MaxPos", [](LONG) -> LONG { LONG n = 0; return DB_GetTPatMaxPos(&n); }, {31}, {31}},
    {"Num", [](LONG) -> LONG { LONG n = 0; return DB_GetNumTPat(&n); }, {31}, {31}},
    {"NumInView", [](LONG) -> LONG { LONG n = 0; return DB_GetNumPatEx(&n); }, {31}, {31}},
    {"NumImages", [](LONG key) -> LONG { LONG n = 0; return DB_GetNumTImg(key, &n); }, {3}, {3}},
    {"LastID", [](LONG) -> LONG { LONG id = 0; return DB_GetLastPatID(&id); }, {31}, {31}},
    {"LastDate", [](LONG key) -> LONG { return DB_GetLastTImgDate(key, nullptr, nullptr); }, {3}, {3}},
    {"Get", [](LONG key) -> LONG { tagTPATIENT p = WithKey(key); return DB_GetTPat(&p); }, {3}, {3}},
    {"AddPatient", [](LONG) -> LONG { tagTPATIENT p = WithKey(0); return DB_AddNewTPat(&p); }, {6}, {6}},
    {"AddStation", [](LONG) -> LONG { tagTSTATION s{0, "Lost"}; return DB_AddNewTStat(&s); }, {6}, {6}},
    // It looks first for the image that it would replace.
    {"AddImage", AddImage, {3}, {3}},
    {"Edit", [](LONG key) -> LONG { tagTPATIENT p = WithKey(key); return DB_EditTPat(&p); }, {3}, {3}},
    {"Delete", [](LONG key) -> LONG { tagTPATIENT p = WithKey(key); return DB_DeleteTPat(&p); }, {3}, {3}},
    {"DeleteByPos", [](LONG) -> LONG { return DB_DeleteTPatByPos(1); }, {8}, {8, 64}},
    {"CompactGet", [](LONG key) -> LONG { auto p = Compact(key); return DB_GetPat(&p); }, {31}, {31}},
    {"CompactAdd", [](LONG) -> LONG { auto p = Compact(0); return DB_AddNewPat(&p); }, {3}, {3}},
    {"CompactEdit", [](LONG key) -> LONG { auto p = Compact(key); return DB_EditPat(&p); }, {3}, {3}},
    {"CompactDelete", [](LONG key) -> LONG { auto p = Compact(key); return DB_DeletePat(&p); }, {3}, {3}},
    {"ReadSetting", [](LONG) { return ReadSetting(); }, {0}, {0}},
    {"WriteSetting", [](LONG) -> LONG { return DB_WriteProfileString("Lost", "-", "1"); }, {3}, {3}},
    // One driver sends the begin with the first statement only.
    {"Begin", [](LONG) -> LONG { return DB_BeginTransaction(); }, {0, 1}, {3}},
    {"Commit", [](LONG) -> LONG { return DB_CommitTransaction(); }, {1}, {3}},
    {"Rollback", [](LONG) -> LONG { return DB_RollbackTransaction(); }, {1}, {3}},
    {"OpenPatients", [](LONG) -> LONG { return DB_OpenTPat(); }, {0}, {0}},
    {"OpenView", [](LONG) -> LONG { return DB_OpenPatEx(); }, {0}, {0}},
};
// clang-format on

struct Way {
  const char* name;
  void (*lose)(support::Relay& relay);  // null: the session is ended at the server
};

const Way kWays[] = {
    {"SessionEnded", nullptr                                                 },
    {"Reset",        [](support::Relay& relay) { relay.Lose(Loss::kReset); } },
    {"Finished",     [](support::Relay& relay) { relay.Lose(Loss::kFinish); }},
};

void ExpectOneOf(const Codes& codes, LONG answer) {
  EXPECT_TRUE(std::find(codes.begin(), codes.end(), answer) != codes.end())
      << "answered " << answer << " instead of " << testing::PrintToString(codes);
}

class Meets : public LossTest {
 protected:
  void SetUp() override {
    LossTest::SetUp();
    ASSERT_EQ(DB_OpenTPat(), 0);
    ASSERT_EQ(DB_OpenPatEx(), 0);
    ASSERT_EQ(DB_MoveToTPatByPos(1), 1);
  }
  void ExpectUnchanged() {
    EXPECT_EQ(Raw().Count("TPatient"), 1);
    EXPECT_EQ(Raw().Text("SELECT tPatSFirstname FROM TPatient"), "Before");
    EXPECT_EQ(Raw().Count("TImage"), 0);
    EXPECT_EQ(Raw().Count("TStation"), 1);
    EXPECT_EQ(Raw().Count("TConfig", "tCfgSKey = 'Lost'"), 0);
  }
};

class AtTheLoss : public Meets, public testing::WithParamInterface<Way> {
 protected:
  void Lose() {
    if (GetParam().lose == nullptr) {
      EndSession();
    } else {
      GetParam().lose(TheRelay());
    }
  }
};
INSTANTIATE_TEST_SUITE_P(Ways, AtTheLoss, testing::ValuesIn(kWays),
                         [](const auto& way) { return std::string(way.param.name); });

TEST_P(AtTheLoss, EveryKindOfCallGivesItsCodeAndChangesNothing) {
  for (const Meeting& meeting : kMeetings) {
    SCOPED_TRACE(meeting.name);
    Lose();
    ExpectOneOf(meeting.meets, meeting.run(m_patient));
    ExpectUnchanged();
    ExpectHealed();
  }
}

using OnceTheLossIsKnown = Meets;

TEST_F(OnceTheLossIsKnown, EveryKindOfCallGivesItsCodeAndChangesNothing) {
  for (const Meeting& meeting : kMeetings) {
    SCOPED_TRACE(meeting.name);
    TheRelay().Lose(Loss::kReset);
    LONG count = 0;
    EXPECT_EQ(DB_GetNumTPat(&count), 31);
    EXPECT_EQ(DB_IsDatabaseOpen(), 0);
    EXPECT_EQ(DB_CommitTransaction(), 3);
    ExpectOneOf(meeting.after, meeting.run(m_patient));
    ExpectUnchanged();
    ExpectHealed();
  }
}

using EveryExportedFunction = Meets;

TEST_F(EveryExportedFunction, SurvivesTheLossAndTheConnectionHeals) {
  for (const every::Call& call : every::Calls()) {
    SCOPED_TRACE(call.name);
    TheRelay().Lose(Loss::kReset);
    call.run();
    // These two leave nothing to heal: one closes, the other takes new parameters.
    const std::string name = call.name;
    if (name == "DB_CloseDatabase" || name == "DB_InitDatabase") {
      DB_CloseDatabase();
      ASSERT_EQ(Connect(), 0);
    }
    ASSERT_EQ(DB_OpenTPat(), 0);
  }
  ExpectUnchanged();
  ExpectHealed();
}

TEST_P(AtTheLoss, ClosingIsHarmlessAndConnectingWorks) {
  Lose();
  EXPECT_EQ(DB_CloseDatabase(), 0);
  EXPECT_EQ(Connect(), 0);
  ExpectHealed();
}

TEST_P(AtTheLoss, InitialisingWhileTheLossIsUnknownIsRefusedAndHarmless) {
  Lose();
  EXPECT_EQ(Connect(), 3);
  ExpectHealed();
}

TEST_P(AtTheLoss, InitialisingOnceTheLossIsKnownConnects) {
  Lose();
  LONG count = 0;
  EXPECT_EQ(DB_GetNumTPat(&count), 31);
  EXPECT_EQ(Connect(), 0);
  ExpectHealed();
}

using DetailOfALoss = LossTest;

// A row that is gone and one that cannot be read give the same code: who shows rows must know which it is.
TEST_F(DetailOfALoss, ARowThatCannotBeReadIsToldFromOneThatIsGone) {
  ASSERT_EQ(DB_OpenTPat(), 0);
  tagDBERRORDETAIL detail{};
  EXPECT_EQ(DB_MoveToTPatByPos(2), 0);
  ASSERT_EQ(DB_GetLastErrorDetail(&detail, sizeof detail), 0);
  EXPECT_EQ(detail.wCode, 64);
  EXPECT_STREQ(detail.szState, "");
  TheRelay().Lose(Loss::kReset);
  EXPECT_EQ(DB_MoveToTPatByPos(1), 0);
  ASSERT_EQ(DB_GetLastErrorDetail(&detail, sizeof detail), 0);
  EXPECT_STRNE(detail.szState, "");
  tagTPATIENT patient{};
  EXPECT_NE(DB_GetTPatByPos(1, &patient), 0);
  ASSERT_EQ(DB_GetLastErrorDetail(&detail, sizeof detail), 0);
  EXPECT_STRNE(detail.szState, "");
  ExpectHealed();
}

}  // namespace
}  // namespace loss
