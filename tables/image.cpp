#include "tables/image.h"

#include "tables/record_fields.h"

CTImageRaw::CTImageRaw() = default;
CTImageRaw::CTImageRaw(const CTImageRaw& other) = default;
CTImageRaw& CTImageRaw::operator=(const CTImageRaw& other) = default;
CTImageRaw::~CTImageRaw() = default;

void CTImageRaw::CopyFrom(const tagTIMAGE& record) {
  m_lImgID = record.lImgID;
  m_lPatID = record.lPatID;
  m_lUnitID = record.lUnitID;
  m_lDrID = record.lDrID;
  m_strType = fields::Text(record.szType);
  m_strRegio = fields::Text(record.szRegio);
  m_strName = fields::Text(record.szName);
  m_ts = fields::Time(&record.ts);
  m_strPreg = fields::Text(record.szPreg);
  m_strOrdType = fields::Text(record.szOrdType);
  m_strOrdRegio = fields::Text(record.szOrdRegio);
  m_strOrdReason = fields::Text(record.szOrdReason);
  m_strArcType = fields::Text(record.szArcType);
  m_strArcLoc = fields::Text(record.szArcLoc);
  m_strArcFile = fields::Text(record.szArcFile);
  m_strArcVol = fields::Text(record.szArcVol);
  m_dArcOut = fields::Time(&record.dArcOut);
  m_dArcIn = fields::Time(&record.dArcIn);
  m_strPvwLoc = fields::Text(record.szPvwLoc);
  m_strPvwFile = fields::Text(record.szPvwFile);
  m_strLoc = fields::Text(record.szLoc);
  m_strFile = fields::Text(record.szFile);
  m_lMakIDLast = record.lMakIDLast;
}
