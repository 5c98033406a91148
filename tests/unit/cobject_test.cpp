#include "platform/cobject.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/cdbexception.h"

namespace {

const CRuntimeClass kMiddleClass = {"Middle", &CObject::classCObject};
const CRuntimeClass kLeafClass = {"Leaf", &kMiddleClass};
const CRuntimeClass kOtherClass = {"Other", &CObject::classCObject};

class Leaf : public CObject {
 public:
  const CRuntimeClass* GetRuntimeClass() const override { return &kLeafClass; }
};

TEST(CObject, ClassRecordNamesTheRoot) {
  EXPECT_STREQ(CObject::classCObject.m_lpszClassName, "CObject");
  EXPECT_EQ(CObject::classCObject.m_pBaseClass, nullptr);
  EXPECT_EQ(CObject().GetRuntimeClass(), &CObject::classCObject);
}

TEST(CObject, ObjectIsOfItsClassAndOfEveryBase) {
  const Leaf leaf;
  EXPECT_TRUE(leaf.IsKindOf(&kLeafClass));
  EXPECT_TRUE(leaf.IsKindOf(&kMiddleClass));
  EXPECT_TRUE(leaf.IsKindOf(&CObject::classCObject));
}

TEST(CObject, ObjectIsNotOfAnotherOrDerivedClass) {
  EXPECT_FALSE(Leaf().IsKindOf(&kOtherClass));
  EXPECT_FALSE(CObject().IsKindOf(&kLeafClass));
  EXPECT_FALSE(kMiddleClass.IsDerivedFrom(&kLeafClass));
}

TEST(CObject, NothingIsOfNoClass) { EXPECT_FALSE(Leaf().IsKindOf(nullptr)); }

TEST(CDBException, CarriesCodeMessageAndRecords) {
  auto* exception =
      new CDBException(AFX_SQL_ERROR_CONNECT_FAIL, "no such server", "State:08001,Native:7,Origin:[x]");
  EXPECT_EQ(exception->m_nRetCode, 1001);
  EXPECT_EQ(exception->m_strError, "no such server");
  EXPECT_EQ(exception->m_strStateNativeOrigin, "State:08001,Native:7,Origin:[x]");
  exception->Delete();
}

TEST(CDBException, IsCaughtAsItselfAndAsTheBaseAndDeletedThere) {
  try {
    throw new CDBException(SQL_ERROR, "a message too long for a string's own buffer", "");
  } catch (CDBException* exception) {
    EXPECT_EQ(exception->m_nRetCode, SQL_ERROR);
    exception->Delete();
  }
  try {
    throw new CDBException(SQL_ERROR, "a message too long for a string's own buffer", "");
  } catch (CException* exception) {
    EXPECT_NE(dynamic_cast<CDBException*>(exception), nullptr);
    exception->Delete();  // through the base: the leak checker holds that all of it goes
  }
}

}  // namespace
