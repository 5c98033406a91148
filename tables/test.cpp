#include "tables/test.h"

#include "tables/record_fields.h"

CTTestRaw::CTTestRaw() = default;
CTTestRaw::CTTestRaw(const CTTestRaw& other) = default;
CTTestRaw& CTTestRaw::operator=(const CTTestRaw& other) = default;
CTTestRaw::~CTTestRaw() = default;

void CTTestRaw::CopyFrom(const tagTTEST& record) {
  m_lTstID = record.lTstID;
  m_lUnitID = record.lUnitID;
  m_strPerson = fields::Text(record.szPerson);
  m_strType = fields::Text(record.szType);
  m_strRegio = fields::Text(record.szRegio);
  m_strName = fields::Text(record.szName);
  m_ts = fields::Time(&record.ts);
  m_strResult = fields::Text(record.szResult);
  m_strLoc = fields::Text(record.szLoc);
  m_strFile = fields::Text(record.szFile);
  m_strArcLoc = fields::Text(record.szArcLoc);
  m_strArcFile = fields::Text(record.szArcFile);
  m_strArcVol = fields::Text(record.szArcVol);
  m_strArcType = fields::Text(record.szArcType);
  m_dArcOut = fields::Time(&record.dArcOut);
  m_dArcIn = fields::Time(&record.dArcIn);
}
