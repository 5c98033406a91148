#include "tables/unit.h"

#include "tables/record_fields.h"

CTUnitRaw::CTUnitRaw() = default;
CTUnitRaw::CTUnitRaw(const CTUnitRaw& other) = default;
CTUnitRaw& CTUnitRaw::operator=(const CTUnitRaw& other) = default;
CTUnitRaw::~CTUnitRaw() = default;

void CTUnitRaw::CopyFrom(const tagTUNIT& record) {
  m_lUnitID = record.lUnitID;
  m_strType = fields::Text(record.szType);
  m_strName = fields::Text(record.szName);
  m_dAccept = fields::Time(&record.dAccept);
  m_strCtrlUnitSNo = fields::Text(record.szCtrlUnitSNo);
  m_strSensSNo = fields::Text(record.szSensSNo);
  m_strGenSNo = fields::Text(record.szGenSNo);
  m_strTubeSNo = fields::Text(record.szTubeSNo);
  m_strCtrlElemSNo = fields::Text(record.szCtrlElemSNo);
  m_strConeSNo = fields::Text(record.szConeSNo);
  m_strTestBodySNo = fields::Text(record.szTestBodySNo);
}
