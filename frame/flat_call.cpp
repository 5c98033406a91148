#include "frame/flat_call.h"

#include <exception>
#include <new>

#include "platform/cdbexception.h"
#include "platform/log.h"

namespace flat {
namespace {

void RequeryIfOpen(CKyRecSet* set) {
  if (set != nullptr && set->IsOpen()) set->Requery();
}

}  // namespace

WORD CodeOfCurrentException() {
  try {
    throw;
  } catch (CDBException* exception) {
    return klog::Caught(exception, kDbException);
  } catch (CException* exception) {
    exception->Delete();
  } catch (const std::bad_alloc&) {
    return kOutOfMemory;
  } catch (const std::exception& exception) {
    klog::Error(exception.what());
  } catch (...) {
    klog::Error("unknown exception");
  }
  return kDbException;
}

WORD Open(CKyRecSet* set) {
  return Code(set, [&] { return set->Open(set->m_nOpenType, nullptr, 0) ? kOk : kNotOpened; });
}

WORD Close(CKyRecSet* set) {
  return Code(set, [&] {
    set->Close();
    return set->IsOpen() ? kCloseFailed : kOk;
  });
}

BOOL IsOpen(const CKyRecSet* set, BOOL after_exception) {
  if (set == nullptr) return FALSE;
  try {
    return set->IsOpen();
  } catch (...) {
    CodeOfCurrentException();
    return after_exception;
  }
}

LONG IndexPos(const CKyRecSet* set) {
  return Position(set, [&] { return set->GetIndexPos(); });
}

LONG MoveToPos(CKyRecSet* set, LONG position) {
  return Position(set, [&] { return set->MoveToPos(position); });
}

LONG MoveToDelta(CKyRecSet* set, LONG delta) {
  return Position(set, [&] { return set->MoveToDelta(delta); });
}

LONG MoveToIntID(CKyRecSet* set, LONG id) {
  return Position(set, [&] { return set->MoveToIntID(id); });
}

WORD SetFilter(CKyRecSet* set, LONG fields, LONG operators, const void* value1, const void* value2,
               const void* value3, const void* value4) {
  // The record sets' operation has always taken plain pointers; it only reads what they point to.
  const auto value = [](const void* pointer) { return const_cast<void*>(pointer); };
  return Code(set, [&] {
    return set->SetFilter(fields, operators, value(value1), value(value2), value(value3), value(value4));
  });
}

WORD SetSortIndex(CKyRecSet* set, LONG sort_index) {
  return Code(set, [&] { return set->SetSortIndex(sort_index); });
}

WORD DeleteByPos(CKyRecSet* set, LONG position) {
  return Code(set, [&] { return set->DeleteByPos(position); });
}

WORD MaxPos(CKyRecSet* set, LONG* count) {
  return CodeWith(set, count, [&] {
    Put(count, LONG{0});
    LONG rows = 0;
    const WORD code = set->GetMaxPos(&rows);
    Put(count, rows);
    return code;
  });
}

WORD RequeryAfter(WORD code, CKyRecSet* set, CKyRecSet* joined) {
  if (code != kOk) return code;
  RequeryIfOpen(set);
  RequeryIfOpen(joined);
  return kOk;
}

}  // namespace flat
