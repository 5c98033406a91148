// The row workers, written once. Each makes a short-lived record set like the browse set it is called on,
// picks its row by the record's key or natural key, does its work and ends; the browse set's filter, sort
// and position stay as they are. No CDBException leaves a worker.
//
// To add a rule: a constant or a hook in TableRules with what most tables do, the table's own version in
// rowops/<table>.cpp, a test in tests/db/row_operations_test.cpp. A table whose steps differ, not only its
// values, has that worker written out in its own file.
#ifndef KYODBC_ROWOPS_ROW_WORKER_H
#define KYODBC_ROWOPS_ROW_WORKER_H

#include <cstring>

#include "platform/field_access.h"
#include "platform/log.h"
#include "platform/refusal.h"
#include "platform/result_codes.h"
#include "recset/key_filter.h"
#include "recset/kyrecset.h"
#include "recset/restore.h"
#include "rowops/newest.h"

namespace rowops {

inline constexpr DWORD kAllFields = 0xFFFFFFFF;

// How an add learns the key that the database gave the new row.
enum class NewKey {
  kReread,     // the set of the add is requeried with the natural key
  kGetWorker,  // the get worker reads the row by its natural key
  kNone,       // not at all: the table has no natural key
};

// What most tables do. A table's rules derive from this and name only what differs.
template <class SetType, class RecordType>
struct TableRules {
  using Set = SetType;
  using Record = RecordType;

  static constexpr WORD kNotFound = kNoRow;           // what edit, delete and get answer for no row
  static constexpr bool kProtectsDefaultRow = false;  // the row named "-" or with key 1 cannot change
  static constexpr DWORD kNeverEdited = 0;            // mask bits that an edit drops
  static constexpr NewKey kNewKey = NewKey::kReread;

  // Runs before an add touches the database; anything but 0 refuses the add with that code.
  static WORD BeforeAdd(const Set&, Record*) { return kOk; }
  // Runs between copy-in and Update, on the set that adds or edits.
  static void AfterCopyIn(Set&) {}
  // Runs after the row was added, edited or deleted. `written` are the mask bits that were in force.
  static void AfterWrite(const Set&, const Record&, DWORD /*written*/) {}
};

// The record set of one operation: class, database and owner are those of `browse`. Its end closes it.
template <class Set>
class ShortLived : public Set {
 public:
  explicit ShortLived(const Set& browse) : Set(browse.m_pDatabase, browse.m_strOwner) {
    this->HoldRows(CRecordset::fewRows);
  }

  // Opens with the filter and sort just set.
  bool OpenRows() { return this->Open(this->m_nOpenType, nullptr, 0) && this->IsOpen(); }

  // As IsUniqueRecord, on rows just opened or requeried: the members need not be read again.
  WORD FindUnique() {
    const std::optional<bool> only = FieldAccess::IsOnOnlyRow(*this);
    if (!only) return this->IsUniqueRecord();
    return *only ? kOk : kNotUnique;
  }
};

// The key is the first field of every record.
template <class Record>
void PutKey(Record* record, LONG key) {
  static_assert(sizeof(Record) > sizeof key);
  std::memcpy(static_cast<void*>(record), &key, sizeof key);
}

// Stands `set` on the one row that `record` describes. Returns 0; 1 when the record has neither a key nor a
// complete natural key; the table's code for no row; 52 for several; 3 when the rows cannot be read. A
// database may tell of a conflict as late as here, of any change of the transaction: that gives `conflict`.
template <class Rules>
WORD FindRow(ShortLived<typename Rules::Set>& set, const typename Rules::Record& record,
             WORD conflict = kNotOpened) {
  try {
    if (!set.SelectRow(&record)) return kBadArgument;
    if (!set.OpenRows()) return kNotOpened;
    const WORD code = set.FindUnique();
    return code == kNoRow ? Rules::kNotFound : code;
  } catch (CDBException* exception) {
    return klog::Caught(exception, refusal::IsConflict(*exception) ? conflict : kNotOpened);
  }
}

// As FindRow, and 8 for a protected default row.
template <class Rules>
WORD FindChangeableRow(ShortLived<typename Rules::Set>& set, const typename Rules::Record& record,
                       WORD conflict) {
  const WORD found = FindRow<Rules>(set, record, conflict);
  if (found != kOk) return found;
  if constexpr (Rules::kProtectsDefaultRow) {
    if (set.m_lID == 1 || set.m_strName == "-") return kDeleteFailed;
  }
  return kOk;
}

// Reads the row that `set` has just inserted into `record`, whose key must be 0. Returns 0; 1 when the
// natural key is incomplete or the set cannot be requeried; 64 when the row is not found; 52 when others
// have the same natural key; 3 when the set is closed. Database exceptions pass on.
template <class Set, class Record>
WORD Reread(ShortLived<Set>& set, Record* record) {
  if (!set.IsOpen()) return kNotOpened;
  if (!set.CanRestart()) return kBadArgument;
  const Restore filter(set.m_strFilter);
  const Restore mask(set.m_dwFieldMask);
  if (!set.SelectRow(record) || !set.Requery()) return kBadArgument;
  const WORD code = set.FindUnique();
  if (code == kOk) set.CopyOut(record);
  return code;
}

// Copies the row that `record` describes into `record`.
template <class Rules>
WORD GetRow(const typename Rules::Set& browse, typename Rules::Record* record) {
  ShortLived<typename Rules::Set> set(browse);
  const WORD found = FindRow<Rules>(set, *record);
  if (found == kOk) set.CopyOut(record);
  return found;
}

template <class Rules>
WORD ReadNewKey(ShortLived<typename Rules::Set>& set, typename Rules::Record* record) {
  if constexpr (Rules::kNewKey == NewKey::kNone) return kOk;
  PutKey(record, 0);
  if constexpr (Rules::kNewKey == NewKey::kGetWorker) return GetRow<Rules>(set, record);
  return Reread(set, record);
}

// Inserts `record`; its key is not written. Returns 0, or 6 and nothing was inserted.
template <class Rules>
WORD Insert(ShortLived<typename Rules::Set>& set, const typename Rules::Record& record) {
  try {
    set.m_dwFieldMask = kAllFields;
    set.AddNew();
    set.CopyIn(&record);
    Rules::AfterCopyIn(set);
    set.Update();
    return kOk;
  } catch (CDBException* exception) {
    return klog::Caught(exception, kWriteFailed);
  }
}

// Inserts `record` and reads it back with its new key. When nothing was inserted, the record becomes `given`.
// When only the reading back fails (1, 52, 64, 6), the row stays and the record's key is 0.
template <class Rules>
WORD InsertAndReadBack(const typename Rules::Set& browse, typename Rules::Record* record,
                       const typename Rules::Record& given) {
  ShortLived<typename Rules::Set> set(browse);
  WORD code = Insert<Rules>(set, *record);
  if (code != kOk) {
    *record = given;
    return code;
  }
  try {
    code = ReadNewKey<Rules>(set, record);
  } catch (CDBException* exception) {
    return klog::Caught(exception, kWriteFailed);
  }
  if (code == kOk) Rules::AfterWrite(set, *record, set.m_dwFieldMask);
  return code;
}

// As InsertAndReadBack, with what the table does before an add.
template <class Rules>
WORD Add(const typename Rules::Set& browse, typename Rules::Record* record) {
  const typename Rules::Record given = *record;
  const WORD refused = Rules::BeforeAdd(browse, record);
  if (refused == kOk) return InsertAndReadBack<Rules>(browse, record, given);
  *record = given;
  return refused;
}

// Writes the fields of `record` selected by `mask` into the row that it describes, and the row's key into
// the record. Fields that a natural key was found by are not rewritten.
template <class Rules>
WORD EditSelected(const typename Rules::Set& browse, typename Rules::Record* record, DWORD mask) {
  ShortLived<typename Rules::Set> set(browse);
  set.m_dwFieldMask = mask;
  const WORD found = FindChangeableRow<Rules>(set, *record, kWriteFailed);
  if (found != kOk) return found;
  try {
    set.Edit();
    set.m_dwFieldMask &= ~Rules::kNeverEdited;
    set.CopyIn(record);
    Rules::AfterCopyIn(set);
    set.Update();
  } catch (CDBException* exception) {
    return klog::Caught(exception, kWriteFailed);
  }
  PutKey(record, set.m_lID);
  Rules::AfterWrite(set, *record, set.m_dwFieldMask);
  return kOk;
}

template <class Rules>
WORD DeleteRow(const typename Rules::Set& browse, const typename Rules::Record& record) {
  ShortLived<typename Rules::Set> set(browse);
  const WORD found = FindChangeableRow<Rules>(set, record, kDeleteFailed);
  if (found != kOk) return found;
  try {
    set.Delete();
  } catch (CDBException* exception) {
    return klog::Caught(exception, kDeleteFailed);
  }
  Rules::AfterWrite(set, record, kAllFields);
  return kOk;
}

// Deletes every row of `set`, whose filter is set; `prepare`, which may refuse, runs when there are some.
// Returns 0; `none` when there is no row; 3 when the rows cannot be read, `conflict` when for a conflict; 8
// when one cannot be deleted, those before it being gone, and when `prepare` refused.
template <class Set, class Prepare>
WORD DeleteAllRows(ShortLived<Set>& set, WORD none, WORD conflict, Prepare prepare) {
  try {
    if (!set.OpenRows()) return kNotOpened;
  } catch (CDBException* exception) {
    return klog::Caught(exception, refusal::IsConflict(*exception) ? conflict : kNotOpened);
  }
  if (set.IsEOF()) return none;
  if (!prepare()) return kDeleteFailed;
  try {
    for (set.MoveFirst(); !set.IsEOF(); set.MoveNext()) set.Delete();
  } catch (CDBException* exception) {
    return klog::Caught(exception, kDeleteFailed);
  }
  return kOk;
}

// Counts the rows of one owner (image, patient or unit), or all rows for key 0. `filter` is the owner
// filter with a %d.
template <class Set>
WORD CountRows(const Set& browse, const char* filter, LONG owner_key, LONG* count) {
  ShortLived<Set> set(browse);
  if (owner_key != 0) set.m_strFilter.Format(filter, owner_key);
  try {
    return key_filter::CountRows(set, count);
  } catch (CDBException* exception) {
    return klog::Caught(exception, kNotOpened);
  }
}

// Key and time of the newest row of one owner, or of all rows for key 0. Writes only on 0; null outputs
// are left out.
template <class Set>
WORD Newest(Set& browse, const NewestQuery& query, LONG owner_key, LONG* key, TIMESTAMP_STRUCT* time) {
  NewestRow row;
  try {
    if (!ReadNewest(browse.m_pDatabase, browse.GetDefaultSQL(), query, owner_key, &row)) return kNotOpened;
  } catch (CDBException* exception) {
    return klog::Caught(exception, kNotOpened);
  }
  if (!row.is_there) return query.none;
  // Callers may pass fields of packed records, so the outputs need not be aligned.
  if (key != nullptr) std::memcpy(static_cast<void*>(key), &row.key, sizeof row.key);
  if (time != nullptr) std::memcpy(static_cast<void*>(time), &row.time, sizeof *time);
  return kOk;
}

}  // namespace rowops

#endif
