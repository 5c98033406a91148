#include "tables/diagnosis.h"

#include "tables/record_fields.h"

CTDiagRaw::CTDiagRaw() = default;
CTDiagRaw::CTDiagRaw(const CTDiagRaw& other) = default;
CTDiagRaw& CTDiagRaw::operator=(const CTDiagRaw& other) = default;
CTDiagRaw::~CTDiagRaw() = default;

void CTDiagRaw::CopyFrom(const tagTDIAGNOSIS& record) {
  m_lDiagID = record.lDiagID;
  m_lImgID = record.lImgID;
  m_lDrID = record.lDrID;
  m_strRegio = fields::Text(record.szRegio);
  m_ts = fields::Time(&record.ts);
  m_strCode = fields::Text(record.szCode);
  m_strText = fields::Text(record.szText);
}
