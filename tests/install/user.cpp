#include <KyODBC.h>

int main() {
  tagTSTATION record{};
  record.lStatID = 7;
  CTStatRaw station;
  station.CopyFrom(record);
  const CKyRecSet set(nullptr, nullptr);
  return !set.IsOpen() && DB_GetDatabase() == nullptr ? 0 : 1;
}
