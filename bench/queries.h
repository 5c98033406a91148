// The queries of the works, the same for every contender that writes its own.
#ifndef KYODBC_BENCH_QUERIES_H
#define KYODBC_BENCH_QUERIES_H

#define BENCH_PATIENT_VALUES                                                                    \
  "tPatCulIntDrIDFk,tPatSExtPatID,tPatSSrvID,tPatSSlidaID,tPatSSocID,tPatSName,tPatSFirstname," \
  "tPatDBirthday,tPatSSex,tPatFSelect,tPatDEntry,tPatSIDDisp,tPatTsLastDisp"
#define BENCH_PATIENTS "SELECT tPatCulIntPatIDPk," BENCH_PATIENT_VALUES " FROM TPatient"
#define BENCH_PATIENT_KEYS "SELECT tPatCulIntPatIDPk FROM TPatient"
// No two patients have all three in common.
#define BENCH_BY_PERSON " ORDER BY tPatSName,tPatSFirstname,tPatDBirthday"
#define BENCH_BY_BIRTHDAY " ORDER BY tPatDBirthday,tPatSName,tPatSFirstname"

#define BENCH_IMAGES                                                                                     \
  "SELECT tImgCulIntImgIDPk,tImgCulIntPatIDFk,tImgCulIntUnitIDFk,tImgCulIntDrIDFk,tImgSType,tImgSRegio," \
  "tImgSName,tImgTs,tImgSPreg,tImgSOrdType,tImgSOrdRegio,tImgSOrdReason,tImgSArcType,tImgSArcLoc,"       \
  "tImgSArcFile,tImgSArcVol,tImgDArcOut,tImgDArcIn,tImgSPvwLoc,tImgSPvwFile,tImgSLoc,tImgSFile,"         \
  "tImgCulIntMakIDLast FROM TImage"
#define BENCH_IMAGE_KEYS "SELECT tImgCulIntImgIDPk FROM TImage"
#define BENCH_BY_TIME " ORDER BY tImgTs"

namespace bench {

inline constexpr char kPatientsByName[] = BENCH_PATIENTS " ORDER BY tPatSName";
inline constexpr char kPatientsByPerson[] = BENCH_PATIENTS BENCH_BY_PERSON;
inline constexpr char kPatientsByBirthday[] = BENCH_PATIENTS BENCH_BY_BIRTHDAY;
inline constexpr char kPatientKeysByName[] = BENCH_PATIENT_KEYS " ORDER BY tPatSName";
inline constexpr char kPatientKeysByPerson[] = BENCH_PATIENT_KEYS BENCH_BY_PERSON;
inline constexpr char kPatientKeysByBirthday[] = BENCH_PATIENT_KEYS BENCH_BY_BIRTHDAY;
inline constexpr char kImages[] = BENCH_IMAGES;
inline constexpr char kImagesByTime[] = BENCH_IMAGES BENCH_BY_TIME;
inline constexpr char kImageKeys[] = BENCH_IMAGE_KEYS;
inline constexpr char kImageKeysByTime[] = BENCH_IMAGE_KEYS BENCH_BY_TIME;

inline constexpr char kPatientByKey[] = BENCH_PATIENTS " WHERE tPatCulIntPatIDPk=?";
inline constexpr char kPatientBySlida[] = BENCH_PATIENTS " WHERE tPatSSlidaID=?";
inline constexpr char kEditPatient[] = "UPDATE TPatient SET tPatSSocID=? WHERE tPatCulIntPatIDPk=?";
inline constexpr char kAddPatient[] =
    "INSERT INTO TPatient (" BENCH_PATIENT_VALUES ") VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)";
inline constexpr char kNewestImage[] =
    "SELECT tImgCulIntImgIDPk,tImgTs FROM TImage WHERE tImgCulIntPatIDFk=? ORDER BY tImgTs DESC LIMIT 1";
inline constexpr char kCountPatients[] = "SELECT COUNT(*) FROM TPatient";
inline constexpr char kLastPatient[] = "SELECT MAX(tPatCulIntPatIDPk) FROM TPatient";

}  // namespace bench

#endif
