// Moving over the rows of an open set allocates nothing.
#include "tests/db/count_allocations.h"
#include "tests/db/toy_set.h"

namespace {

using toys::ToySet;

class RecordSetMemory : public toys::ToyTest {};

LONG WalkAll(ToySet& set) {
  LONG sum = 0;
  for (set.MoveFirst(); !set.IsEOF(); set.MoveNext()) sum += set.m_count;
  return sum;
}

TEST_F(RecordSetMemory, WalkingAnOpenSetAllocatesNothingOnceItsBuffersExist) {
  constexpr int kRows = 1000;
  AddToys(kRows);
  m_raw.Exec(
      "UPDATE Toy SET tToyName='a name that is too long to be kept without memory of its own', "
      "tToyDay='2001-05-06', tToyTime='2001-05-06 10:00:00'");
  ToySet set(&m_database);
  set.m_strSort = "tToyId DESC";
  set.Open();
  const LONG expected = 10 * kRows * (kRows + 1) / 2;
  EXPECT_EQ(WalkAll(set), expected);
  const int before = AllocationsSoFar();
  const LONG sum = WalkAll(set);
  const int after = AllocationsSoFar();
  EXPECT_EQ(sum, expected);
  EXPECT_EQ(after - before, 0);
}

TEST_F(RecordSetMemory, JumpingToPositionsAllocatesNothingEither) {
  AddToys(100);
  ToySet set(&m_database);
  set.m_strSort = "tToyId";
  set.Open();
  set.MoveLast();
  const int before = AllocationsSoFar();
  LONG sum = 0;
  for (LONG row = 100; row > 0; --row) {
    set.SetAbsolutePosition(row);
    sum += set.m_id;
  }
  const int after = AllocationsSoFar();
  EXPECT_EQ(sum, 5050);
  EXPECT_EQ(after - before, 0);
}

TEST_F(RecordSetMemory, OpeningAllocatesSoTheCounterCounts) {
  AddToys(1);
  ToySet set(&m_database);
  const int before = AllocationsSoFar();
  set.Open();
  EXPECT_GT(AllocationsSoFar(), before);
}

}  // namespace
