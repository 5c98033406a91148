#include "tables/makro.h"

#include "tables/record_fields.h"

CTMakRaw::CTMakRaw() = default;
CTMakRaw::CTMakRaw(const CTMakRaw& other) = default;
CTMakRaw& CTMakRaw::operator=(const CTMakRaw& other) = default;
CTMakRaw::~CTMakRaw() = default;

void CTMakRaw::CopyFrom(const tagTMAKRO& record) {
  m_lMakID = record.lMakID;
  m_lImgID = record.lImgID;
  m_strName = fields::Text(record.szName);
  m_tsLast = fields::Time(&record.tsLast);
  m_strLoc = fields::Text(record.szLoc);
  m_strFile = fields::Text(record.szFile);
  m_lNo = record.wNo;
}
