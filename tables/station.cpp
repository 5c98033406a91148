#include "tables/station.h"

#include "tables/record_fields.h"

CTStatRaw::CTStatRaw() = default;
CTStatRaw::CTStatRaw(const CTStatRaw& other) = default;
CTStatRaw& CTStatRaw::operator=(const CTStatRaw& other) = default;
CTStatRaw::~CTStatRaw() = default;

void CTStatRaw::CopyFrom(const tagTSTATION& record) {
  m_lStatID = record.lStatID;
  m_strName = fields::Text(record.szName);
}
