#include "tables/group.h"

#include "tables/record_fields.h"

CTGrpRaw::CTGrpRaw() = default;
CTGrpRaw::CTGrpRaw(const CTGrpRaw& other) = default;
CTGrpRaw& CTGrpRaw::operator=(const CTGrpRaw& other) = default;
CTGrpRaw::~CTGrpRaw() = default;

void CTGrpRaw::CopyFrom(const tagTGROUP& record) {
  m_lGrpID = record.lGrpID;
  m_lPatID = record.lPatID;
  m_strName = fields::Text(record.szName);
  m_ts = fields::Time(&record.ts);
  m_strLoc = fields::Text(record.szLoc);
  m_strFile = fields::Text(record.szFile);
  m_lMakNo = record.wMakNo;
  m_strPvwLoc = fields::Text(record.szPvwLoc);
  m_strPvwFile = fields::Text(record.szPvwFile);
}
