// Patients in the compact record, and single rows of the joined view.
#include "tests/differential/model.h"

namespace differential {
namespace {

constexpr std::uint32_t kCompactMask = 0x1EB;
// The field of the identifier less its zero byte, and the brace of an external one.
constexpr std::size_t kExternalInCompact = 19;

Time DateFrom(const Packed& compact, const char* year, const char* month, const char* day) {
  return {compact.Number(year), compact.Number(month), compact.Number(day), 0, 0, 0};
}

void SetDate(Packed* compact, const Time& time, const char* year, const char* month, const char* day) {
  compact->SetNumber(year, time[0]);
  compact->SetNumber(month, time[1]);
  compact->SetNumber(day, time[2]);
}

void SetShared(const Packed& patient, Packed* compact) {
  compact->SetNumber("dwID", patient.Number("lPatID"));
  compact->SetText("szName", patient.Text("szName"));
  compact->SetText("szFirstname", patient.Text("szFirstname"));
  SetDate(compact, patient.Moment("dBirthday"), "wYear", "byMonth", "byDay");
  SetDate(compact, patient.Moment("tsLastDisp"), "wDispYear", "byDispMonth", "byDispDay");
  const std::string sex = patient.Text("szSex");
  compact->SetNumber("bySex", sex == "m" ? 1 : sex == "f" ? 2 : 0);
}

Packed PatientOf(const Packed& joined) {
  const std::size_t size = LayoutOf(Stem::kPat).size;
  return Packed(Stem::kPat, joined.Bytes().substr(0, size));
}

}  // namespace

Packed JoinedOf(const Packed& compact) {
  Packed joined = Packed::Empty(Stem::kPatEx);
  joined.SetNumber("lPatID", compact.Number("dwID"));
  joined.SetText("szName", compact.Text("szName"));
  joined.SetText("szFirstname", compact.Text("szFirstname"));
  joined.SetMoment("dBirthday", DateFrom(compact, "wYear", "byMonth", "byDay"));
  joined.SetMoment("tsLastDisp", DateFrom(compact, "wDispYear", "byDispMonth", "byDispDay"));
  joined.SetText("szDrName", compact.Text("szDrName"));
  const std::string ident = compact.Text("szIdent");
  const bool external = !ident.empty() && ident[0] == '}';
  joined.SetText(external ? "szExtPatID" : "szSlidaID", external ? ident.substr(1) : ident);
  const int sex = compact.Number("bySex");
  joined.SetText("szSex", sex == 1 ? "m" : sex == 2 ? "f" : "-");
  return joined;
}

void CompactOfJoined(const Packed& joined, Packed* compact) {
  SetShared(joined, compact);
  const std::string slida = joined.Text("szSlidaID");
  const std::string external = "}" + Cut(joined.Text("szExtPatID"), kExternalInCompact);
  compact->SetText("szIdent", slida.empty() ? external : slida);
  compact->SetText("szDrName", joined.Text("szDrName"));
  compact->SetNumber("byReserved", 0);
}

// An external identifier comes back as the brace alone.
void CompactOfPatient(const Packed& patient, Packed* compact) {
  SetShared(patient, compact);
  const std::string slida = patient.Text("szSlidaID");
  compact->SetText("szIdent", slida.empty() ? "}" : slida);
}

int Model::ChangePatient(const Call& call, Packed* record) {
  Packed joined = JoinedOf(*record);
  Packed doctor = Packed::Empty(Stem::kDr);
  doctor.SetText("szName", joined.Text("szDrName"));
  int code = Get(Stem::kDr, &doctor);
  if (code != 0) return code;
  joined.SetNumber("lDrID", doctor.Number("lDrID"));
  Packed patient = PatientOf(joined);
  const std::uint32_t mask = call.verb == Verb::kEditPat ? kCompactMask : static_cast<std::uint32_t>(call.b);
  code = call.verb == Verb::kAddPat ? AddNew(Stem::kPat, &patient)
                                    : EditSel(Stem::kPat, &patient, mask & kCompactMask);
  if (code == 0) CompactOfPatient(patient, record);
  return code;
}

int Model::GetJoined(Packed* patient_ex) {
  std::uint32_t unused = 0;
  const std::optional<Rows> named = Find(Stem::kPat, PatientOf(*patient_ex), &unused);
  if (!named) return 1;
  Rows shown;
  for (const RowPtr& joined : Everything(Stem::kPatEx)) {
    for (const RowPtr& row : *named) {
      if ((*joined)[0] == (*row)[0]) shown.push_back(joined);
    }
  }
  if (shown.size() != 1) return shown.empty() ? NotFound(Stem::kPatEx) : 52;
  CopyOut(*shown.front(), patient_ex);
  return 0;
}

int Model::RunPatient(const Call& call, Packed* record) {
  switch (call.verb) {
    case Verb::kDeletePat:
      return AfterChange(Stem::kPat, Delete(Stem::kPat, PatientOf(JoinedOf(*record))), 0, false);
    case Verb::kGetPat: {
      Packed joined = JoinedOf(*record);
      const int code = GetJoined(&joined);
      if (code == 0) CompactOfJoined(joined, record);
      return code;
    }
    case Verb::kGetPatByPos: {
      RowPtr row;
      const int code = Show(Stem::kPatEx, call.a, &row);
      if (code != 0) return code;
      Packed joined(Stem::kPatEx);
      CopyOut(*row, &joined);
      CompactOfJoined(joined, record);
      return 0;
    }
    default:
      return AfterChange(Stem::kPat, ChangePatient(call, record), 0, false);
  }
}

}  // namespace differential
