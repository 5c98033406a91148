#include "frame/flat_call.h"

#include <exception>
#include <new>

#include "platform/cdbexception.h"
#include "platform/log.h"

namespace flat {
namespace {

// Nobody may look before the next change: then a change costs the same however many rows are open.
void RequeryIfOpen(CKyRecSet* set) {
  if (set != nullptr) set->RequeryLater();
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

WORD Open(CKyRecSet* set, const char* function) {
  return Code(
      set, [&] { return set->Open(set->m_nOpenType, nullptr, 0) ? kOk : kNotOpened; }, function);
}

WORD Close(CKyRecSet* set, const char* function) {
  const auto close = [&] {
    set->Close();
    return set->IsOpen() ? kCloseFailed : kOk;
  };
  return Code(set, close, function);
}

// A closed set is an answer, not a failure, and so is having no connection.
BOOL IsOpen(const CKyRecSet* set, BOOL after_exception, const char* function) {
  if (set == nullptr) return FALSE;
  BOOL open = after_exception;
  const auto ask = [&] {
    open = set->IsOpen();
    return kOk;
  };
  Code(set, ask, function);
  return open;
}

LONG IndexPos(CKyRecSet* set, const char* function) {
  const auto read = [&] {
    set->CatchUp();
    return set->GetIndexPos();
  };
  return Position(set, read, function);
}

LONG MoveToPos(CKyRecSet* set, LONG position, const char* function) {
  return Moved(
      set, [&] { return set->MoveToPos(position); }, function);
}

LONG MoveToDelta(CKyRecSet* set, LONG delta, const char* function) {
  return Moved(
      set, [&] { return set->MoveToDelta(delta); }, function);
}

LONG MoveToIntID(CKyRecSet* set, LONG id, const char* function) {
  return Moved(
      set, [&] { return set->MoveToIntID(id); }, function);
}

WORD SetFilter(CKyRecSet* set, LONG fields, LONG operators, const void* value1, const void* value2,
               const void* value3, const void* value4, const char* function) {
  // The record sets' operation has always taken plain pointers; it only reads what they point to.
  const auto value = [](const void* pointer) { return const_cast<void*>(pointer); };
  const auto filter = [&] {
    return set->SetFilter(fields, operators, value(value1), value(value2), value(value3), value(value4));
  };
  return Code(set, filter, function);
}

WORD SetSortIndex(CKyRecSet* set, LONG sort_index, const char* function) {
  return Code(
      set, [&] { return set->SetSortIndex(sort_index); }, function);
}

WORD DeleteByPos(CKyRecSet* set, LONG position, const char* function) {
  const auto erase = [&] {
    TheConnection().ReadMarkedSets(set, nullptr);
    return set->DeleteByPos(position);
  };
  return Code(set, erase, function);
}

WORD MaxPos(CKyRecSet* set, LONG* count, const char* function) {
  const auto read = [&] {
    Put(count, LONG{0});
    LONG rows = 0;
    const WORD code = set->GetMaxPos(&rows);
    Put(count, rows);
    return code;
  };
  return CodeWith(set, count, read, function);
}

WORD RequeryAfter(WORD code, CKyRecSet* set, CKyRecSet* joined) {
  if (code != kOk) return code;
  RequeryIfOpen(set);
  RequeryIfOpen(joined);
  return kOk;
}

}  // namespace flat
