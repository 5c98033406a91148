// A made-up practice of any size: the same numbers give the same records, byte by byte, on every machine.
#ifndef KYODBC_TOOLS_SAMPLE_PRACTICE_H
#define KYODBC_TOOLS_SAMPLE_PRACTICE_H

#include <KyODBC.h>

#include <cstdint>

namespace sample {

// Above this number, patients' names and birthdays would repeat.
inline constexpr int kMostPatients = 1'000'000;

// Makes any row of any table in the same short time; keeps none of them and knows no database.
//
// Rows are counted from 0. All records have key 0. The references in them (lPatID, lDrID, ...) are numbers of
// the sample, from 1: the patient that Patient(0) makes is number 1; 0 stands for "none". Whoever stores the
// rows puts the database's keys in their place. Only a setting's doctor is a key, that of the default doctor.
//
// What an add needs to find its row again differs in all rows of a table: names or identifiers, and of
// images, groups and tests the times within a patient or unit. Locations are empty, as an add wants them.
class Practice {
 public:
  // `patients` from 0 to kMostPatients, else std::out_of_range.
  Practice(std::uint64_t seed, int patients);

  int Doctors() const;
  int Stations() const;
  int Units() const;
  int Patients() const { return m_patients; }
  int Images() const;
  int Makros() const;
  int Groups() const;
  int Diagnoses() const;
  int Tests() const;
  int Settings() const;

  tagTDOCTOR Doctor(int row) const;
  tagTSTATION Station(int row) const;
  tagTUNIT Unit(int row) const;
  tagTPATIENT Patient(int row) const;
  tagTIMAGE Image(int row) const;
  tagTMAKRO Makro(int row) const;
  tagTGROUP Group(int row) const;
  tagTDIAGNOSIS Diagnosis(int row) const;
  tagTTEST Test(int row) const;
  tagTCONFIG Setting(int row) const;

 private:
  LONG DoctorOfPatient(int row) const;
  LONG PatientOfImage(int row) const;
  TIMESTAMP_STRUCT TimeOfImage(int row) const;

  std::uint64_t m_seed;
  int m_patients;
};

}  // namespace sample

#endif
