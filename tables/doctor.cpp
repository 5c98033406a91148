#include "tables/doctor.h"

#include "tables/record_fields.h"

CTDrRaw::CTDrRaw() = default;
CTDrRaw::CTDrRaw(const CTDrRaw& other) = default;
CTDrRaw& CTDrRaw::operator=(const CTDrRaw& other) = default;
CTDrRaw::~CTDrRaw() = default;

void CTDrRaw::CopyFrom(const tagTDOCTOR& record) {
  m_lDrID = record.lDrID;
  m_strSrvID = fields::Text(record.szSrvID);
  m_strName = fields::Text(record.szName);
}
