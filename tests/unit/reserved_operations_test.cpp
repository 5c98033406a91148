// The operations that only hold their places among the virtual ones: callers may call and override them.
#include <gtest/gtest.h>

#include "platform/cdatabase.h"
#include "platform/crecordset.h"
#include "recset/kyrecset.h"

namespace {

template <class Base>
class Overriding : public Base {
 public:
  using Base::Base;
  void Serialize(CArchive& /*archive*/) override { ++serialized; }
  void AssertValid() const override { ++asserted; }
  void Dump(CDumpContext& /*context*/) const override { ++dumped; }

  int serialized = 0;
  mutable int asserted = 0;
  mutable int dumped = 0;
};

// Neither archives nor dumps are looked into, so that any address will do.
char some_byte;
CArchive& AnArchive() { return reinterpret_cast<CArchive&>(some_byte); }
CDumpContext& AContext() { return reinterpret_cast<CDumpContext&>(some_byte); }

void CallAll(CObject& object) {
  object.Serialize(AnArchive());
  object.AssertValid();
  object.Dump(AContext());
}

TEST(ReservedOperations, DoNothingByThemselves) {
  CDatabase database;
  CObject object;
  CRecordset set(&database);
  CKyRecSet own_set(&database, "");
  for (CObject* each : {&object, static_cast<CObject*>(&set), static_cast<CObject*>(&own_set)})
    CallAll(*each);
  EXPECT_FALSE(set.IsOpen());
  EXPECT_FALSE(own_set.IsOpen());
}

template <class Base, class... Arguments>
void ExpectOverridden(Arguments... arguments) {
  Overriding<Base> object(arguments...);
  CallAll(object);
  EXPECT_EQ(object.serialized, 1);
  EXPECT_EQ(object.asserted, 1);
  EXPECT_EQ(object.dumped, 1);
}

TEST(ReservedOperations, AreThoseOfADerivedClassThatHasItsOwn) {
  CDatabase database;
  ExpectOverridden<CObject>();
  ExpectOverridden<CRecordset>(&database);
  ExpectOverridden<CKyRecSet>(&database, "");
}

TEST(ReservedOperations, ARecordSetIsOfItsOwnClass) {
  CDatabase database;
  const CRecordset set(&database);
  EXPECT_TRUE(set.IsKindOf(&CRecordset::classCRecordset));
  EXPECT_TRUE(set.IsKindOf(&CObject::classCObject));
  EXPECT_FALSE(set.IsKindOf(database.GetRuntimeClass()));
}

}  // namespace
