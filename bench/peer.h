// What the programs of the other wrappers have in common: how a row of theirs is compared with the plain
// record.
#ifndef KYODBC_BENCH_PEER_H
#define KYODBC_BENCH_PEER_H

#include <algorithm>
#include <cstring>
#include <string>

#include "tables/records.h"

namespace bench {

// A patient as such programs keep one. `Date` and `Time` are the wrapper's own types.
template <class Date, class Time, class Text = std::string>
struct PeerPatient {
  int key = 0, doctor = 0, selected = 0;
  Text external, server, slida, social, name, firstname, sex, display;
  Date birthday{}, entry{};
  Time last_display{};
};

template <std::size_t N>
void Put(char (&field)[N], const std::string& text) {
  std::memcpy(field, text.data(), std::min(text.size(), N - 1));
}

inline TIMESTAMP_STRUCT Moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  TIMESTAMP_STRUCT time{};
  time.year = static_cast<SQLSMALLINT>(year);
  time.month = static_cast<SQLUSMALLINT>(month);
  time.day = static_cast<SQLUSMALLINT>(day);
  time.hour = static_cast<SQLUSMALLINT>(hour);
  time.minute = static_cast<SQLUSMALLINT>(minute);
  time.second = static_cast<SQLUSMALLINT>(second);
  return time;
}

// `text_of` and `moment_of` translate the wrapper's types.
template <class Patient, class TextOf, class MomentOf>
tagTPATIENT RecordOf(const Patient& patient, TextOf text_of, MomentOf moment_of) {
  tagTPATIENT record{};
  record.lPatID = patient.key;
  record.lDrID = patient.doctor;
  Put(record.szExtPatID, text_of(patient.external));
  Put(record.szSrvID, text_of(patient.server));
  Put(record.szSlidaID, text_of(patient.slida));
  Put(record.szSocID, text_of(patient.social));
  Put(record.szName, text_of(patient.name));
  Put(record.szFirstname, text_of(patient.firstname));
  record.dBirthday = moment_of(patient.birthday);
  Put(record.szSex, text_of(patient.sex));
  record.lSelect = patient.selected;
  record.dEntry = moment_of(patient.entry);
  Put(record.szIDDisp, text_of(patient.display));
  record.tsLastDisp = moment_of(patient.last_display);
  return record;
}

}  // namespace bench

#endif
