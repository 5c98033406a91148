#include "tables/config.h"

#include "tables/record_fields.h"

CTCfgRaw::CTCfgRaw() = default;
CTCfgRaw::CTCfgRaw(const CTCfgRaw& other) = default;
CTCfgRaw& CTCfgRaw::operator=(const CTCfgRaw& other) = default;
CTCfgRaw::~CTCfgRaw() = default;

void CTCfgRaw::CopyFrom(const tagTCONFIG& record) {
  m_lCfgID = record.lCfgID;
  m_lDrID = record.lDrID;
  m_lStatID = record.lStatID;
  m_strKey = fields::Text(record.szKey);
  m_strSet = fields::Text(record.szSet);
}
