// Patients and units of callers that keep the compact record: conversions, and the operations over the row
// workers. Operations return the workers' codes and let a CDBException of a browse set pass; none requeries
// a browse set.
#ifndef KYODBC_ROWOPS_COMPACT_H
#define KYODBC_ROWOPS_COMPACT_H

#include "platform/types.h"
#include "tables/records.h"

class CPatExRec;
class CPatRec;
class CUnitRec;

namespace compact {

// What the compact record has no field for is empty or zero, the doctor's key included.
tagTPATIENTEX ToPatient(const tagPATIENTCOMPACT& record);
// An identifier other than the Slida identifier comes as "}" and at most 19 bytes.
void FromPatient(const tagTPATIENTEX& patient, tagPATIENTCOMPACT* record);
// After an add or edit: leaves the doctor's name and the reserved byte as they are, and gives an external
// identifier as "}" alone.
void FromWrittenPatient(const tagTPATIENT& patient, tagPATIENTCOMPACT* record);

// The type, which the compact record has no field for, becomes "X?".
tagTUNIT ToUnit(const tagPATIENTCOMPACT& record);
// Texts that do not fit a packed field together are cut at its end.
void FromUnit(const tagTUNIT& unit, tagPATIENTCOMPACT* record);

// The doctor is found by name: 1 for an empty name, 64 or 52 when none or several have it; nothing is
// written then. On 0 the record holds what was written, with its key.
WORD AddPatient(CPatRec* patients, tagPATIENTCOMPACT* record);
// Of `mask` only the bits of the fields that the compact record has, without the last display, count.
WORD EditPatient(CPatRec* patients, tagPATIENTCOMPACT* record, DWORD mask);
WORD DeletePatient(CPatRec* patients, const tagPATIENTCOMPACT* record);
WORD GetPatient(CPatExRec* view, tagPATIENTCOMPACT* record);
WORD GetPatientByPos(CPatExRec* view, tagPATIENTCOMPACT* record, LONG position);

WORD AddUnit(CUnitRec* units, tagPATIENTCOMPACT* record);
WORD EditUnit(CUnitRec* units, tagPATIENTCOMPACT* record);
WORD EditSelectedUnit(CUnitRec* units, const tagPATIENTCOMPACT* record, DWORD mask);
WORD DeleteUnit(CUnitRec* units, const tagPATIENTCOMPACT* record);
WORD GetUnit(CUnitRec* units, tagPATIENTCOMPACT* record);
WORD GetUnitByPos(CUnitRec* units, tagPATIENTCOMPACT* record, LONG position);

}  // namespace compact

#endif
