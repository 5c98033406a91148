// The root of the framework's classes: run-time class record and the three operations that every
// record set inherits in the slots before its own.
#ifndef KYODBC_PLATFORM_COBJECT_H
#define KYODBC_PLATFORM_COBJECT_H

#include "types.h"

class CArchive;      // never defined here: the library serializes nothing
class CDumpContext;  // never defined here: the library dumps nothing

// Names a class and its base. Records are static; compare their addresses.
struct KYODBC_API CRuntimeClass {
  const char* m_lpszClassName;
  const CRuntimeClass* m_pBaseClass;  // null for CObject

  // True when this class is `base` or derives from it.
  bool IsDerivedFrom(const CRuntimeClass* base) const;
};

class KYODBC_API CObject {
 public:
  static const CRuntimeClass classCObject;

  virtual const CRuntimeClass* GetRuntimeClass() const;
  virtual ~CObject();
  virtual void Serialize(CArchive& archive);
  virtual void AssertValid() const;
  virtual void Dump(CDumpContext& context) const;

  // True when the object's class is `runtime_class` or derives from it.
  bool IsKindOf(const CRuntimeClass* runtime_class) const;
};

#endif
