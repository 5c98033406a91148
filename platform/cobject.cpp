#include "platform/cobject.h"

constinit const CRuntimeClass CObject::classCObject = {"CObject", nullptr};

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
  const CRuntimeClass* candidate = this;
  while (candidate != nullptr && candidate != base) candidate = candidate->m_pBaseClass;
  return candidate != nullptr;
}

const CRuntimeClass* CObject::GetRuntimeClass() const { return &classCObject; }

CObject::~CObject() = default;

// The three operations below hold their places in the order of virtual operations; nothing is
// serialized, checked or dumped here, and derived classes may.
void CObject::Serialize(CArchive&) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext&) const {}

bool CObject::IsKindOf(const CRuntimeClass* runtime_class) const {
  return GetRuntimeClass()->IsDerivedFrom(runtime_class);
}
