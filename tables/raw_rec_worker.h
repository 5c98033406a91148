// Reading, inserting and editing one row through a direct-access set, written once for the ten of them. A
// set brings its table's rules: SetSelectFilter, SetData, and a step between SetData and Update where it has
// one.
#ifndef KYODBC_TABLES_RAW_REC_WORKER_H
#define KYODBC_TABLES_RAW_REC_WORKER_H

#include "platform/log.h"
#include "platform/result_codes.h"
#include "recset/kyrecset.h"
#include "recset/upcalls.h"

struct RawRecWorker {
  struct NoStep {
    void operator()() const {}
  };

  // The full tables came with version 4.0. Returns 0, or 56 for an older schema.
  static WORD RequireSchema() {
    constexpr double kVersionOfFullTables = 4.0;
    return upcalls::RequireDBVersion(kVersionOfFullTables);
  }

  // Lets a CDBException pass.
  template <class Set, class Record>
  static WORD OpenQuery(Set& set, const Record& record) {
    const WORD refused = RequireSchema();
    if (refused != kOk) return refused;
    if (!set.SetSelectFilter(record)) return kBadArgument;
    if (set.IsOpen()) set.Close();
    set.Open(set.m_nOpenType, nullptr, CRecordset::none);
    return set.IsOpen() ? kOk : kNotOpened;
  }

  template <class Set, class Record, class Step = NoStep>
  static WORD Insert(Set& set, Record& record, LONG Record::*key, LONG mask, Step step = {}) {
    const WORD refused = RequireSchema();
    if (refused != kOk) return refused;
    set.m_dwFieldMask = static_cast<DWORD>(mask);
    if (set.IsOpen() && !set.CanAppend()) return kConnectFailed;
    try {
      set.AddNew();
      set.SetData(record);
      step();
      set.Update();
      record.*key = 0;  // so that the natural key finds the new row, not a key the old one
      const WORD code = FindRow(set, record);
      set.Close();  // the members keep the row
      if (code == kOk) set.GetData(record);
      return code;
    } catch (CDBException* exception) {
      set.Close();
      return klog::Caught(exception, kWriteFailed);
    }
  }

  template <class Set, class Record, class Step = NoStep>
  static WORD Edit(Set& set, Record& record, LONG Record::*key, LONG mask, Step step = {}) {
    const WORD refused = RequireSchema();
    if (refused != kOk) return refused;
    set.m_dwFieldMask = static_cast<DWORD>(mask);
    try {
      const WORD code = FindRow(set, record);
      if (code != kOk) return code;
      set.Edit();
      set.SetData(record);
      step();
      set.Update();
    } catch (CDBException* exception) {
      set.Close();
      return klog::Caught(exception, kWriteFailed);
    }
    // Direct-access sets bind no column to m_lID, so the record's key becomes 0: callers rely on keeping it
    // themselves.
    record.*key = set.m_lID;
    return kOk;
  }

 private:
  template <class Set, class Record>
  static WORD FindRow(Set& set, const Record& record) {
    const WORD code = OpenQuery(set, record);
    return code == kOk ? set.IsUniqueRecord() : code;
  }
};

#endif
