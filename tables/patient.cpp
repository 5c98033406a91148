#include "tables/patient.h"

#include "tables/record_fields.h"

CTPatientRaw::CTPatientRaw() = default;
CTPatientRaw::CTPatientRaw(const CTPatientRaw& other) = default;
CTPatientRaw& CTPatientRaw::operator=(const CTPatientRaw& other) = default;
CTPatientRaw::~CTPatientRaw() = default;

void CTPatientRaw::CopyFrom(const tagTPATIENT& record) {
  m_lPatID = record.lPatID;
  m_lDrID = record.lDrID;
  m_strExtPatID = fields::Text(record.szExtPatID);
  m_strSrvID = fields::Text(record.szSrvID);
  m_strSlidaID = fields::Text(record.szSlidaID);
  m_strSocID = fields::Text(record.szSocID);
  m_strName = fields::Text(record.szName);
  m_strFirstname = fields::Text(record.szFirstname);
  m_dBirthday = fields::Time(&record.dBirthday);
  m_strSex = fields::Text(record.szSex);
  m_dEntry = fields::Time(&record.dEntry);
  m_tsLastDisp = fields::Time(&record.tsLastDisp);
  m_strIDDisp = fields::Text(record.szIDDisp);
  m_bSelect = record.lSelect;
}
