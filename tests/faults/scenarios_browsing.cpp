// Opening, walking, filtering, sorting and counting each of the eleven browse sets.
#include "tests/faults/scenario.h"

namespace faults {
namespace {

const Codes kOpens = {3, 31};
const Codes kCounts = {3, 5, 31, 64};
const Codes kReads = {3, 31, 64};

struct BrowseSet {
  const char* name;
  WORD (*open)();
  WORD (*close)();
  LONG (*by_pos)(LONG);
  LONG (*by_delta)(LONG);
  WORD (*max_pos)(LONG*);
  WORD (*filter)(LONG, LONG, const void*, const void*, const void*, const void*);
  WORD (*sort)(LONG);
};

#define KYODBC_BROWSE_SET(name)                                                             \
  {                                                                                         \
#name, DB_Open##name, DB_Close##name, DB_MoveTo##name##ByPos, DB_MoveTo##name##ByDelta, \
        DB_Get##name##MaxPos, DB_Set##name##Filter, DB_Set##name##SortIndex                 \
  }

constexpr BrowseSet kSets[] = {
    KYODBC_BROWSE_SET(TDr),   KYODBC_BROWSE_SET(TStat), KYODBC_BROWSE_SET(TUnit), KYODBC_BROWSE_SET(TPat),
    KYODBC_BROWSE_SET(PatEx), KYODBC_BROWSE_SET(TImg),  KYODBC_BROWSE_SET(TMak),  KYODBC_BROWSE_SET(TGrp),
    KYODBC_BROWSE_SET(TDiag), KYODBC_BROWSE_SET(TCfg),  KYODBC_BROWSE_SET(TTest),
};

template <std::size_t index>
void Walk(Answers& answers, const Keys&) {
  const BrowseSet& set = kSets[index];
  LONG rows = 0;
  answers.Code("open", set.open(), kOpens);
  answers.Code("max pos", set.max_pos(&rows), kCounts);
  answers.Number("max pos", rows);
  answers.Position("first", set.by_pos(1));
  answers.Position("last", set.by_pos(rows));
  answers.Position("back", set.by_delta(1 - rows));
  answers.Code("close", set.close(), {3, 4});
}

template <std::size_t index>
void FilterAndSort(Answers& answers, const Keys&) {
  const BrowseSet& set = kSets[index];
  const LONG key = 0;
  answers.Code("open", set.open(), kOpens);
  answers.Code("filter", set.filter(KYODBC_FIELD_KEY, KYODBC_GREATER, &key, nullptr, nullptr, nullptr),
               kOpens);
  answers.Position("first", set.by_pos(1));
  answers.Code("sort", set.sort(KYODBC_FIELD_KEY + KYODBC_DESCENDING), kOpens);
  answers.Position("first of sorted", set.by_pos(1));
}

template <std::size_t... indexes>
void Append(std::vector<Scenario>* scenarios, std::index_sequence<indexes...>) {
  (scenarios->push_back({std::string("Walk") + kSets[indexes].name, Walk<indexes>}), ...);
  (scenarios->push_back({std::string("FilterAndSort") + kSets[indexes].name, FilterAndSort<indexes>}), ...);
}

void FindPatients(Answers& answers, const Keys& keys) {
  answers.Code("open", DB_OpenTPat(), kOpens);
  answers.Code("sort", DB_SetTPatSortIndex(KYODBC_FIELD_NAME), kOpens);
  answers.Position("by key", DB_MoveToTPatByIntID(keys.at("TPat")));
  answers.Position("by text", DB_MoveToTPatByString("Surname"));
  tagTPATIENT patient{};
  answers.Code("by position", DB_GetTPatByPos(1, &patient), kReads);
}

void CountAndDate(Answers& answers, const Keys& keys) {
  LONG number = 0;
  TIMESTAMP_STRUCT time{};
  answers.Code("number of patients", DB_GetNumTPat(&number), kCounts);
  answers.Code("number of images", DB_GetNumTImg(0, &number), kCounts);
  answers.Code("last patient", DB_GetLastPatID(&number), kCounts);
  answers.Code("last image", DB_GetLastTImgDate(0, &number, &time), {3, 31, 65});
  answers.Code("last makro", DB_GetLastTMakDate(0, &number, &time), {3, 31, 64});
  answers.Code("last test", DB_GetLastTTestDate(0, &number, &time), {3, 31, 67});
  tagTPATIENTEX joined{};
  joined.lPatID = keys.at("TPat");
  answers.Code("joined patient", DB_GetPatEx(&joined), {3, 21, 31, 52, 64});
}

}  // namespace

std::vector<Scenario> BrowsingScenarios() {
  std::vector<Scenario> scenarios;
  Append(&scenarios, std::make_index_sequence<std::size(kSets)>());
  scenarios.push_back({"FindPatients", FindPatients});
  scenarios.push_back({"CountAndDate", CountAndDate});
  return scenarios;
}

}  // namespace faults
