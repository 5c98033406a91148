-- A practice database of version 4.0 for SQLite.
--
-- Every table is reached under two names. The short name (TPatient) is the table; the full name
-- (TPatientRaw) is a view over it that takes inserts, updates and deletes.
--
-- Keys are assigned here when an insert leaves them out or gives NULL, and a key is never given twice. No
-- foreign key is declared: a deleted patient's images stay, and 0 in a key column means "none".
-- Natural keys are not unique either; a caller that finds two rows for one is told so.
--
-- Applying this file to a practice that has all this already changes nothing. Paragraphs are set apart by
-- empty lines; each but this first one is exactly one statement, so a program can run them one by one.

-- Doctors. The natural key is the server identifier, then the name.
CREATE TABLE IF NOT EXISTS TDoctor (
  tDrCulIntDrIDPk INTEGER PRIMARY KEY AUTOINCREMENT,
  tDrSSrvID       VARCHAR(255),
  tDrSName        VARCHAR(255),
  tDrFAct         SMALLINT,
  tDrSAdd         VARCHAR(1000000)
);

CREATE INDEX IF NOT EXISTS TDoctor_SSrvID ON TDoctor (tDrSSrvID);

CREATE INDEX IF NOT EXISTS TDoctor_SName ON TDoctor (tDrSName);

-- Workstations, found by name.
CREATE TABLE IF NOT EXISTS TStation (
  tStatCulIntStatIDPk INTEGER PRIMARY KEY AUTOINCREMENT,
  tStatSName          VARCHAR(255),
  tStatSAdd           VARCHAR(1000000)
);

CREATE INDEX IF NOT EXISTS TStation_SName ON TStation (tStatSName);

-- X-ray units with the serial numbers of their components, found by name.
CREATE TABLE IF NOT EXISTS TUnit (
  tUnitCulIntUnitIDPk INTEGER PRIMARY KEY AUTOINCREMENT,
  tUnitSType          VARCHAR(255),
  tUnitSName          VARCHAR(255),
  tUnitDAccept        DATE,
  tUnitSCtrlUnitSNo   VARCHAR(255),
  tUnitSSensSNo       VARCHAR(255),
  tUnitSGenSNo        VARCHAR(255),
  tUnitSTubeSNo       VARCHAR(255),
  tUnitSCtrlElemSNo   VARCHAR(255),
  tUnitSConeSNo       VARCHAR(255),
  tUnitSTestBodySNo   VARCHAR(255),
  tUnitSAdd           VARCHAR(1000000)
);

CREATE INDEX IF NOT EXISTS TUnit_SName ON TUnit (tUnitSName);

-- Patients, each with a doctor. Found by Slida id, then server id, then name, first name and birthday.
CREATE TABLE IF NOT EXISTS TPatient (
  tPatCulIntPatIDPk INTEGER PRIMARY KEY AUTOINCREMENT,
  tPatCulIntDrIDFk  INTEGER,
  tPatSExtPatID     VARCHAR(255),
  tPatSSrvID        VARCHAR(255),
  tPatSSlidaID      VARCHAR(255),
  tPatSSocID        VARCHAR(255),
  tPatSName         VARCHAR(255),
  tPatSFirstname    VARCHAR(255),
  tPatDBirthday     DATE,
  tPatSSex          VARCHAR(255),
  tPatDEntry        DATE,
  tPatTsLastDisp    TIMESTAMP,
  tPatSIDDisp       VARCHAR(255),
  tPatFSelect       SMALLINT,
  tPatSResponsible  VARCHAR(255),
  tPatSAdd          VARCHAR(1000000)
);

CREATE INDEX IF NOT EXISTS TPatient_CulIntDrIDFk ON TPatient (tPatCulIntDrIDFk);

CREATE INDEX IF NOT EXISTS TPatient_SSlidaID ON TPatient (tPatSSlidaID);

CREATE INDEX IF NOT EXISTS TPatient_SSrvID ON TPatient (tPatSSrvID);

CREATE INDEX IF NOT EXISTS TPatient_SName_SFirstname_DBirthday
  ON TPatient (tPatSName, tPatSFirstname, tPatDBirthday);

-- Images: who, on which unit, under which doctor, and where the picture, preview and archive files lie.
CREATE TABLE IF NOT EXISTS TImage (
  tImgCulIntImgIDPk   INTEGER PRIMARY KEY AUTOINCREMENT,
  tImgCulIntPatIDFk   INTEGER,
  tImgCulIntUnitIDFk  INTEGER,
  tImgCulIntDrIDFk    INTEGER,
  tImgSType           VARCHAR(255),
  tImgSRegio          VARCHAR(255),
  tImgSName           VARCHAR(255),
  tImgTs              TIMESTAMP,
  tImgSPreg           VARCHAR(255),
  tImgSOrdType        VARCHAR(255),
  tImgSOrdRegio       VARCHAR(255),
  tImgSOrdReason      VARCHAR(255),
  tImgSLoc            VARCHAR(255),
  tImgSFile           VARCHAR(255),
  tImgSPvwLoc         VARCHAR(255),
  tImgSPvwFile        VARCHAR(255),
  tImgSArcLoc         VARCHAR(255),
  tImgSArcFile        VARCHAR(255),
  tImgSArcType        VARCHAR(255),
  tImgSArcVol         VARCHAR(255),
  tImgDArcOut         DATE,
  tImgDArcIn          DATE,
  tImgCulIntMakIDLast INTEGER,
  tImgSResponsible    VARCHAR(255),
  tImgIntRefImgID     INTEGER,
  tImgSAdd            VARCHAR(1000000)
);

CREATE INDEX IF NOT EXISTS TImage_CulIntPatIDFk_Ts ON TImage (tImgCulIntPatIDFk, tImgTs);

CREATE INDEX IF NOT EXISTS TImage_CulIntUnitIDFk ON TImage (tImgCulIntUnitIDFk);

CREATE INDEX IF NOT EXISTS TImage_CulIntDrIDFk ON TImage (tImgCulIntDrIDFk);

CREATE INDEX IF NOT EXISTS TImage_SName ON TImage (tImgSName);

CREATE INDEX IF NOT EXISTS TImage_Ts ON TImage (tImgTs);

-- Makros of an image, numbered within the image.
CREATE TABLE IF NOT EXISTS TMakro (
  tMakCulIntMakIDPk INTEGER PRIMARY KEY AUTOINCREMENT,
  tMakCulIntImgIDFk INTEGER,
  tMakSName         VARCHAR(255),
  tMakTsLast        TIMESTAMP,
  tMakSLoc          VARCHAR(255),
  tMakSFile         VARCHAR(255),
  tMakUwNo          INTEGER,
  tMakSAdd          VARCHAR(1000000),
  tMakSRegio        VARCHAR(255),
  tMakTsCreate      TIMESTAMP
);

CREATE INDEX IF NOT EXISTS TMakro_CulIntImgIDFk_UwNo ON TMakro (tMakCulIntImgIDFk, tMakUwNo);

CREATE INDEX IF NOT EXISTS TMakro_SName ON TMakro (tMakSName);

-- Groups of images of one patient.
CREATE TABLE IF NOT EXISTS TGroup (
  tGrpCulIntGrpIDPk INTEGER PRIMARY KEY AUTOINCREMENT,
  tGrpCulIntPatIDFk INTEGER,
  tGrpSName         VARCHAR(255),
  tGrpTs            TIMESTAMP,
  tGrpSLoc          VARCHAR(255),
  tGrpSFile         VARCHAR(255),
  tGrpUwMakNo       INTEGER,
  tGrpSPvwLoc       VARCHAR(255),
  tGrpSPvwFile      VARCHAR(255),
  tGrpTsLast        TIMESTAMP,
  tGrpSResponsible  VARCHAR(255),
  tGrpSAdd          VARCHAR(1000000)
);

CREATE INDEX IF NOT EXISTS TGroup_CulIntPatIDFk_Ts ON TGroup (tGrpCulIntPatIDFk, tGrpTs);

CREATE INDEX IF NOT EXISTS TGroup_SName ON TGroup (tGrpSName);

-- Diagnoses of an image.
CREATE TABLE IF NOT EXISTS TDiagnosis (
  tDiagCulIntDiagIDPk INTEGER PRIMARY KEY AUTOINCREMENT,
  tDiagCulIntImgIDFk  INTEGER,
  tDiagCulIntDrIDFk   INTEGER,
  tDiagSRegio         VARCHAR(255),
  tDiagTs             TIMESTAMP,
  tDiagSCode          VARCHAR(255),
  tDiagSText          VARCHAR(1000000),
  tDiagSResponsible   VARCHAR(255),
  tDiagIntMakID       INTEGER,
  tDiagSAdd           VARCHAR(1000000)
);

CREATE INDEX IF NOT EXISTS TDiagnosis_CulIntImgIDFk ON TDiagnosis (tDiagCulIntImgIDFk);

CREATE INDEX IF NOT EXISTS TDiagnosis_CulIntDrIDFk ON TDiagnosis (tDiagCulIntDrIDFk);

-- Settings: one value for a doctor, a station and a key.
CREATE TABLE IF NOT EXISTS TConfig (
  tCfgCulIntCfgIDPk  INTEGER PRIMARY KEY AUTOINCREMENT,
  tCfgCulIntDrIDFk   INTEGER,
  tCfgCulIntStatIDFk INTEGER,
  tCfgSKey           VARCHAR(255),
  tCfgSSet           VARCHAR(255),
  tCfgSAdd           VARCHAR(1000000),
  tCfgSPerson        VARCHAR(255)
);

CREATE INDEX IF NOT EXISTS TConfig_CulIntDrIDFk_CulIntStatIDFk_SKey
  ON TConfig (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey);

CREATE INDEX IF NOT EXISTS TConfig_CulIntStatIDFk ON TConfig (tCfgCulIntStatIDFk);

-- Constancy tests of a unit with their results and files.
CREATE TABLE IF NOT EXISTS TTest (
  tTstCulIntTstIDPk  INTEGER PRIMARY KEY AUTOINCREMENT,
  tTstCulIntUnitIDFk INTEGER,
  tTstSPerson        VARCHAR(255),
  tTstSType          VARCHAR(255),
  tTstSRegio         VARCHAR(255),
  tTstSName          VARCHAR(255),
  tTstTs             TIMESTAMP,
  tTstSResult        VARCHAR(1000000),
  tTstSLoc           VARCHAR(255),
  tTstSFile          VARCHAR(255),
  tTstSArcLoc        VARCHAR(255),
  tTstSArcFile       VARCHAR(255),
  tTstSArcVol        VARCHAR(255),
  tTstSArcType       VARCHAR(255),
  tTstDArcOut        DATE,
  tTstDArcIn         DATE,
  tTstSAdd           VARCHAR(1000000)
);

CREATE INDEX IF NOT EXISTS TTest_CulIntUnitIDFk_Ts ON TTest (tTstCulIntUnitIDFk, tTstTs);

CREATE INDEX IF NOT EXISTS TTest_SName ON TTest (tTstSName);

-- The full names.
CREATE VIEW IF NOT EXISTS TDoctorRaw AS SELECT
    tDrCulIntDrIDPk, tDrSSrvID, tDrSName, tDrFAct, tDrSAdd
  FROM TDoctor;

CREATE TRIGGER IF NOT EXISTS TDoctorRaw_insert INSTEAD OF INSERT ON TDoctorRaw BEGIN
  INSERT INTO TDoctor (
    tDrCulIntDrIDPk, tDrSSrvID, tDrSName, tDrFAct, tDrSAdd)
  VALUES (
    NEW.tDrCulIntDrIDPk, NEW.tDrSSrvID, NEW.tDrSName, NEW.tDrFAct, NEW.tDrSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TDoctorRaw_update INSTEAD OF UPDATE ON TDoctorRaw BEGIN
  UPDATE TDoctor SET
    tDrCulIntDrIDPk = NEW.tDrCulIntDrIDPk, tDrSSrvID = NEW.tDrSSrvID, tDrSName = NEW.tDrSName,
    tDrFAct = NEW.tDrFAct, tDrSAdd = NEW.tDrSAdd
  WHERE tDrCulIntDrIDPk = OLD.tDrCulIntDrIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TDoctorRaw_delete INSTEAD OF DELETE ON TDoctorRaw BEGIN
  DELETE FROM TDoctor WHERE tDrCulIntDrIDPk = OLD.tDrCulIntDrIDPk;
END;

CREATE VIEW IF NOT EXISTS TStationRaw AS SELECT
    tStatCulIntStatIDPk, tStatSName, tStatSAdd
  FROM TStation;

CREATE TRIGGER IF NOT EXISTS TStationRaw_insert INSTEAD OF INSERT ON TStationRaw BEGIN
  INSERT INTO TStation (
    tStatCulIntStatIDPk, tStatSName, tStatSAdd)
  VALUES (
    NEW.tStatCulIntStatIDPk, NEW.tStatSName, NEW.tStatSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TStationRaw_update INSTEAD OF UPDATE ON TStationRaw BEGIN
  UPDATE TStation SET
    tStatCulIntStatIDPk = NEW.tStatCulIntStatIDPk, tStatSName = NEW.tStatSName, tStatSAdd = NEW.tStatSAdd
  WHERE tStatCulIntStatIDPk = OLD.tStatCulIntStatIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TStationRaw_delete INSTEAD OF DELETE ON TStationRaw BEGIN
  DELETE FROM TStation WHERE tStatCulIntStatIDPk = OLD.tStatCulIntStatIDPk;
END;

CREATE VIEW IF NOT EXISTS TUnitRaw AS SELECT
    tUnitCulIntUnitIDPk, tUnitSType, tUnitSName, tUnitDAccept, tUnitSCtrlUnitSNo, tUnitSSensSNo,
    tUnitSGenSNo, tUnitSTubeSNo, tUnitSCtrlElemSNo, tUnitSConeSNo, tUnitSTestBodySNo, tUnitSAdd
  FROM TUnit;

CREATE TRIGGER IF NOT EXISTS TUnitRaw_insert INSTEAD OF INSERT ON TUnitRaw BEGIN
  INSERT INTO TUnit (
    tUnitCulIntUnitIDPk, tUnitSType, tUnitSName, tUnitDAccept, tUnitSCtrlUnitSNo, tUnitSSensSNo,
    tUnitSGenSNo, tUnitSTubeSNo, tUnitSCtrlElemSNo, tUnitSConeSNo, tUnitSTestBodySNo, tUnitSAdd)
  VALUES (
    NEW.tUnitCulIntUnitIDPk, NEW.tUnitSType, NEW.tUnitSName, NEW.tUnitDAccept, NEW.tUnitSCtrlUnitSNo,
    NEW.tUnitSSensSNo, NEW.tUnitSGenSNo, NEW.tUnitSTubeSNo, NEW.tUnitSCtrlElemSNo, NEW.tUnitSConeSNo,
    NEW.tUnitSTestBodySNo, NEW.tUnitSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TUnitRaw_update INSTEAD OF UPDATE ON TUnitRaw BEGIN
  UPDATE TUnit SET
    tUnitCulIntUnitIDPk = NEW.tUnitCulIntUnitIDPk, tUnitSType = NEW.tUnitSType, tUnitSName = NEW.tUnitSName,
    tUnitDAccept = NEW.tUnitDAccept, tUnitSCtrlUnitSNo = NEW.tUnitSCtrlUnitSNo,
    tUnitSSensSNo = NEW.tUnitSSensSNo, tUnitSGenSNo = NEW.tUnitSGenSNo, tUnitSTubeSNo = NEW.tUnitSTubeSNo,
    tUnitSCtrlElemSNo = NEW.tUnitSCtrlElemSNo, tUnitSConeSNo = NEW.tUnitSConeSNo,
    tUnitSTestBodySNo = NEW.tUnitSTestBodySNo, tUnitSAdd = NEW.tUnitSAdd
  WHERE tUnitCulIntUnitIDPk = OLD.tUnitCulIntUnitIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TUnitRaw_delete INSTEAD OF DELETE ON TUnitRaw BEGIN
  DELETE FROM TUnit WHERE tUnitCulIntUnitIDPk = OLD.tUnitCulIntUnitIDPk;
END;

CREATE VIEW IF NOT EXISTS TPatientRaw AS SELECT
    tPatCulIntPatIDPk, tPatCulIntDrIDFk, tPatSExtPatID, tPatSSrvID, tPatSSlidaID, tPatSSocID, tPatSName,
    tPatSFirstname, tPatDBirthday, tPatSSex, tPatDEntry, tPatTsLastDisp, tPatSIDDisp, tPatFSelect,
    tPatSResponsible, tPatSAdd
  FROM TPatient;

CREATE TRIGGER IF NOT EXISTS TPatientRaw_insert INSTEAD OF INSERT ON TPatientRaw BEGIN
  INSERT INTO TPatient (
    tPatCulIntPatIDPk, tPatCulIntDrIDFk, tPatSExtPatID, tPatSSrvID, tPatSSlidaID, tPatSSocID, tPatSName,
    tPatSFirstname, tPatDBirthday, tPatSSex, tPatDEntry, tPatTsLastDisp, tPatSIDDisp, tPatFSelect,
    tPatSResponsible, tPatSAdd)
  VALUES (
    NEW.tPatCulIntPatIDPk, NEW.tPatCulIntDrIDFk, NEW.tPatSExtPatID, NEW.tPatSSrvID, NEW.tPatSSlidaID,
    NEW.tPatSSocID, NEW.tPatSName, NEW.tPatSFirstname, NEW.tPatDBirthday, NEW.tPatSSex, NEW.tPatDEntry,
    NEW.tPatTsLastDisp, NEW.tPatSIDDisp, NEW.tPatFSelect, NEW.tPatSResponsible, NEW.tPatSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TPatientRaw_update INSTEAD OF UPDATE ON TPatientRaw BEGIN
  UPDATE TPatient SET
    tPatCulIntPatIDPk = NEW.tPatCulIntPatIDPk, tPatCulIntDrIDFk = NEW.tPatCulIntDrIDFk,
    tPatSExtPatID = NEW.tPatSExtPatID, tPatSSrvID = NEW.tPatSSrvID, tPatSSlidaID = NEW.tPatSSlidaID,
    tPatSSocID = NEW.tPatSSocID, tPatSName = NEW.tPatSName, tPatSFirstname = NEW.tPatSFirstname,
    tPatDBirthday = NEW.tPatDBirthday, tPatSSex = NEW.tPatSSex, tPatDEntry = NEW.tPatDEntry,
    tPatTsLastDisp = NEW.tPatTsLastDisp, tPatSIDDisp = NEW.tPatSIDDisp, tPatFSelect = NEW.tPatFSelect,
    tPatSResponsible = NEW.tPatSResponsible, tPatSAdd = NEW.tPatSAdd
  WHERE tPatCulIntPatIDPk = OLD.tPatCulIntPatIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TPatientRaw_delete INSTEAD OF DELETE ON TPatientRaw BEGIN
  DELETE FROM TPatient WHERE tPatCulIntPatIDPk = OLD.tPatCulIntPatIDPk;
END;

CREATE VIEW IF NOT EXISTS TImageRaw AS SELECT
    tImgCulIntImgIDPk, tImgCulIntPatIDFk, tImgCulIntUnitIDFk, tImgCulIntDrIDFk, tImgSType, tImgSRegio,
    tImgSName, tImgTs, tImgSPreg, tImgSOrdType, tImgSOrdRegio, tImgSOrdReason, tImgSLoc, tImgSFile,
    tImgSPvwLoc, tImgSPvwFile, tImgSArcLoc, tImgSArcFile, tImgSArcType, tImgSArcVol, tImgDArcOut,
    tImgDArcIn, tImgCulIntMakIDLast, tImgSResponsible, tImgIntRefImgID, tImgSAdd
  FROM TImage;

CREATE TRIGGER IF NOT EXISTS TImageRaw_insert INSTEAD OF INSERT ON TImageRaw BEGIN
  INSERT INTO TImage (
    tImgCulIntImgIDPk, tImgCulIntPatIDFk, tImgCulIntUnitIDFk, tImgCulIntDrIDFk, tImgSType, tImgSRegio,
    tImgSName, tImgTs, tImgSPreg, tImgSOrdType, tImgSOrdRegio, tImgSOrdReason, tImgSLoc, tImgSFile,
    tImgSPvwLoc, tImgSPvwFile, tImgSArcLoc, tImgSArcFile, tImgSArcType, tImgSArcVol, tImgDArcOut,
    tImgDArcIn, tImgCulIntMakIDLast, tImgSResponsible, tImgIntRefImgID, tImgSAdd)
  VALUES (
    NEW.tImgCulIntImgIDPk, NEW.tImgCulIntPatIDFk, NEW.tImgCulIntUnitIDFk, NEW.tImgCulIntDrIDFk,
    NEW.tImgSType, NEW.tImgSRegio, NEW.tImgSName, NEW.tImgTs, NEW.tImgSPreg, NEW.tImgSOrdType,
    NEW.tImgSOrdRegio, NEW.tImgSOrdReason, NEW.tImgSLoc, NEW.tImgSFile, NEW.tImgSPvwLoc, NEW.tImgSPvwFile,
    NEW.tImgSArcLoc, NEW.tImgSArcFile, NEW.tImgSArcType, NEW.tImgSArcVol, NEW.tImgDArcOut, NEW.tImgDArcIn,
    NEW.tImgCulIntMakIDLast, NEW.tImgSResponsible, NEW.tImgIntRefImgID, NEW.tImgSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TImageRaw_update INSTEAD OF UPDATE ON TImageRaw BEGIN
  UPDATE TImage SET
    tImgCulIntImgIDPk = NEW.tImgCulIntImgIDPk, tImgCulIntPatIDFk = NEW.tImgCulIntPatIDFk,
    tImgCulIntUnitIDFk = NEW.tImgCulIntUnitIDFk, tImgCulIntDrIDFk = NEW.tImgCulIntDrIDFk,
    tImgSType = NEW.tImgSType, tImgSRegio = NEW.tImgSRegio, tImgSName = NEW.tImgSName, tImgTs = NEW.tImgTs,
    tImgSPreg = NEW.tImgSPreg, tImgSOrdType = NEW.tImgSOrdType, tImgSOrdRegio = NEW.tImgSOrdRegio,
    tImgSOrdReason = NEW.tImgSOrdReason, tImgSLoc = NEW.tImgSLoc, tImgSFile = NEW.tImgSFile,
    tImgSPvwLoc = NEW.tImgSPvwLoc, tImgSPvwFile = NEW.tImgSPvwFile, tImgSArcLoc = NEW.tImgSArcLoc,
    tImgSArcFile = NEW.tImgSArcFile, tImgSArcType = NEW.tImgSArcType, tImgSArcVol = NEW.tImgSArcVol,
    tImgDArcOut = NEW.tImgDArcOut, tImgDArcIn = NEW.tImgDArcIn,
    tImgCulIntMakIDLast = NEW.tImgCulIntMakIDLast, tImgSResponsible = NEW.tImgSResponsible,
    tImgIntRefImgID = NEW.tImgIntRefImgID, tImgSAdd = NEW.tImgSAdd
  WHERE tImgCulIntImgIDPk = OLD.tImgCulIntImgIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TImageRaw_delete INSTEAD OF DELETE ON TImageRaw BEGIN
  DELETE FROM TImage WHERE tImgCulIntImgIDPk = OLD.tImgCulIntImgIDPk;
END;

CREATE VIEW IF NOT EXISTS TMakroRaw AS SELECT
    tMakCulIntMakIDPk, tMakCulIntImgIDFk, tMakSName, tMakTsLast, tMakSLoc, tMakSFile, tMakUwNo, tMakSAdd,
    tMakSRegio, tMakTsCreate
  FROM TMakro;

CREATE TRIGGER IF NOT EXISTS TMakroRaw_insert INSTEAD OF INSERT ON TMakroRaw BEGIN
  INSERT INTO TMakro (
    tMakCulIntMakIDPk, tMakCulIntImgIDFk, tMakSName, tMakTsLast, tMakSLoc, tMakSFile, tMakUwNo, tMakSAdd,
    tMakSRegio, tMakTsCreate)
  VALUES (
    NEW.tMakCulIntMakIDPk, NEW.tMakCulIntImgIDFk, NEW.tMakSName, NEW.tMakTsLast, NEW.tMakSLoc,
    NEW.tMakSFile, NEW.tMakUwNo, NEW.tMakSAdd, NEW.tMakSRegio, NEW.tMakTsCreate);
END;

CREATE TRIGGER IF NOT EXISTS TMakroRaw_update INSTEAD OF UPDATE ON TMakroRaw BEGIN
  UPDATE TMakro SET
    tMakCulIntMakIDPk = NEW.tMakCulIntMakIDPk, tMakCulIntImgIDFk = NEW.tMakCulIntImgIDFk,
    tMakSName = NEW.tMakSName, tMakTsLast = NEW.tMakTsLast, tMakSLoc = NEW.tMakSLoc,
    tMakSFile = NEW.tMakSFile, tMakUwNo = NEW.tMakUwNo, tMakSAdd = NEW.tMakSAdd,
    tMakSRegio = NEW.tMakSRegio, tMakTsCreate = NEW.tMakTsCreate
  WHERE tMakCulIntMakIDPk = OLD.tMakCulIntMakIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TMakroRaw_delete INSTEAD OF DELETE ON TMakroRaw BEGIN
  DELETE FROM TMakro WHERE tMakCulIntMakIDPk = OLD.tMakCulIntMakIDPk;
END;

CREATE VIEW IF NOT EXISTS TGroupRaw AS SELECT
    tGrpCulIntGrpIDPk, tGrpCulIntPatIDFk, tGrpSName, tGrpTs, tGrpSLoc, tGrpSFile, tGrpUwMakNo, tGrpSPvwLoc,
    tGrpSPvwFile, tGrpTsLast, tGrpSResponsible, tGrpSAdd
  FROM TGroup;

CREATE TRIGGER IF NOT EXISTS TGroupRaw_insert INSTEAD OF INSERT ON TGroupRaw BEGIN
  INSERT INTO TGroup (
    tGrpCulIntGrpIDPk, tGrpCulIntPatIDFk, tGrpSName, tGrpTs, tGrpSLoc, tGrpSFile, tGrpUwMakNo, tGrpSPvwLoc,
    tGrpSPvwFile, tGrpTsLast, tGrpSResponsible, tGrpSAdd)
  VALUES (
    NEW.tGrpCulIntGrpIDPk, NEW.tGrpCulIntPatIDFk, NEW.tGrpSName, NEW.tGrpTs, NEW.tGrpSLoc, NEW.tGrpSFile,
    NEW.tGrpUwMakNo, NEW.tGrpSPvwLoc, NEW.tGrpSPvwFile, NEW.tGrpTsLast, NEW.tGrpSResponsible, NEW.tGrpSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TGroupRaw_update INSTEAD OF UPDATE ON TGroupRaw BEGIN
  UPDATE TGroup SET
    tGrpCulIntGrpIDPk = NEW.tGrpCulIntGrpIDPk, tGrpCulIntPatIDFk = NEW.tGrpCulIntPatIDFk,
    tGrpSName = NEW.tGrpSName, tGrpTs = NEW.tGrpTs, tGrpSLoc = NEW.tGrpSLoc, tGrpSFile = NEW.tGrpSFile,
    tGrpUwMakNo = NEW.tGrpUwMakNo, tGrpSPvwLoc = NEW.tGrpSPvwLoc, tGrpSPvwFile = NEW.tGrpSPvwFile,
    tGrpTsLast = NEW.tGrpTsLast, tGrpSResponsible = NEW.tGrpSResponsible, tGrpSAdd = NEW.tGrpSAdd
  WHERE tGrpCulIntGrpIDPk = OLD.tGrpCulIntGrpIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TGroupRaw_delete INSTEAD OF DELETE ON TGroupRaw BEGIN
  DELETE FROM TGroup WHERE tGrpCulIntGrpIDPk = OLD.tGrpCulIntGrpIDPk;
END;

CREATE VIEW IF NOT EXISTS TDiagnosisRaw AS SELECT
    tDiagCulIntDiagIDPk, tDiagCulIntImgIDFk, tDiagCulIntDrIDFk, tDiagSRegio, tDiagTs, tDiagSCode,
    tDiagSText, tDiagSResponsible, tDiagIntMakID, tDiagSAdd
  FROM TDiagnosis;

CREATE TRIGGER IF NOT EXISTS TDiagnosisRaw_insert INSTEAD OF INSERT ON TDiagnosisRaw BEGIN
  INSERT INTO TDiagnosis (
    tDiagCulIntDiagIDPk, tDiagCulIntImgIDFk, tDiagCulIntDrIDFk, tDiagSRegio, tDiagTs, tDiagSCode,
    tDiagSText, tDiagSResponsible, tDiagIntMakID, tDiagSAdd)
  VALUES (
    NEW.tDiagCulIntDiagIDPk, NEW.tDiagCulIntImgIDFk, NEW.tDiagCulIntDrIDFk, NEW.tDiagSRegio, NEW.tDiagTs,
    NEW.tDiagSCode, NEW.tDiagSText, NEW.tDiagSResponsible, NEW.tDiagIntMakID, NEW.tDiagSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TDiagnosisRaw_update INSTEAD OF UPDATE ON TDiagnosisRaw BEGIN
  UPDATE TDiagnosis SET
    tDiagCulIntDiagIDPk = NEW.tDiagCulIntDiagIDPk, tDiagCulIntImgIDFk = NEW.tDiagCulIntImgIDFk,
    tDiagCulIntDrIDFk = NEW.tDiagCulIntDrIDFk, tDiagSRegio = NEW.tDiagSRegio, tDiagTs = NEW.tDiagTs,
    tDiagSCode = NEW.tDiagSCode, tDiagSText = NEW.tDiagSText, tDiagSResponsible = NEW.tDiagSResponsible,
    tDiagIntMakID = NEW.tDiagIntMakID, tDiagSAdd = NEW.tDiagSAdd
  WHERE tDiagCulIntDiagIDPk = OLD.tDiagCulIntDiagIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TDiagnosisRaw_delete INSTEAD OF DELETE ON TDiagnosisRaw BEGIN
  DELETE FROM TDiagnosis WHERE tDiagCulIntDiagIDPk = OLD.tDiagCulIntDiagIDPk;
END;

CREATE VIEW IF NOT EXISTS TConfigRaw AS SELECT
    tCfgCulIntCfgIDPk, tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet, tCfgSAdd, tCfgSPerson
  FROM TConfig;

CREATE TRIGGER IF NOT EXISTS TConfigRaw_insert INSTEAD OF INSERT ON TConfigRaw BEGIN
  INSERT INTO TConfig (
    tCfgCulIntCfgIDPk, tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet, tCfgSAdd, tCfgSPerson)
  VALUES (
    NEW.tCfgCulIntCfgIDPk, NEW.tCfgCulIntDrIDFk, NEW.tCfgCulIntStatIDFk, NEW.tCfgSKey, NEW.tCfgSSet,
    NEW.tCfgSAdd, NEW.tCfgSPerson);
END;

CREATE TRIGGER IF NOT EXISTS TConfigRaw_update INSTEAD OF UPDATE ON TConfigRaw BEGIN
  UPDATE TConfig SET
    tCfgCulIntCfgIDPk = NEW.tCfgCulIntCfgIDPk, tCfgCulIntDrIDFk = NEW.tCfgCulIntDrIDFk,
    tCfgCulIntStatIDFk = NEW.tCfgCulIntStatIDFk, tCfgSKey = NEW.tCfgSKey, tCfgSSet = NEW.tCfgSSet,
    tCfgSAdd = NEW.tCfgSAdd, tCfgSPerson = NEW.tCfgSPerson
  WHERE tCfgCulIntCfgIDPk = OLD.tCfgCulIntCfgIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TConfigRaw_delete INSTEAD OF DELETE ON TConfigRaw BEGIN
  DELETE FROM TConfig WHERE tCfgCulIntCfgIDPk = OLD.tCfgCulIntCfgIDPk;
END;

CREATE VIEW IF NOT EXISTS TTestRaw AS SELECT
    tTstCulIntTstIDPk, tTstCulIntUnitIDFk, tTstSPerson, tTstSType, tTstSRegio, tTstSName, tTstTs,
    tTstSResult, tTstSLoc, tTstSFile, tTstSArcLoc, tTstSArcFile, tTstSArcVol, tTstSArcType, tTstDArcOut,
    tTstDArcIn, tTstSAdd
  FROM TTest;

CREATE TRIGGER IF NOT EXISTS TTestRaw_insert INSTEAD OF INSERT ON TTestRaw BEGIN
  INSERT INTO TTest (
    tTstCulIntTstIDPk, tTstCulIntUnitIDFk, tTstSPerson, tTstSType, tTstSRegio, tTstSName, tTstTs,
    tTstSResult, tTstSLoc, tTstSFile, tTstSArcLoc, tTstSArcFile, tTstSArcVol, tTstSArcType, tTstDArcOut,
    tTstDArcIn, tTstSAdd)
  VALUES (
    NEW.tTstCulIntTstIDPk, NEW.tTstCulIntUnitIDFk, NEW.tTstSPerson, NEW.tTstSType, NEW.tTstSRegio,
    NEW.tTstSName, NEW.tTstTs, NEW.tTstSResult, NEW.tTstSLoc, NEW.tTstSFile, NEW.tTstSArcLoc,
    NEW.tTstSArcFile, NEW.tTstSArcVol, NEW.tTstSArcType, NEW.tTstDArcOut, NEW.tTstDArcIn, NEW.tTstSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TTestRaw_update INSTEAD OF UPDATE ON TTestRaw BEGIN
  UPDATE TTest SET
    tTstCulIntTstIDPk = NEW.tTstCulIntTstIDPk, tTstCulIntUnitIDFk = NEW.tTstCulIntUnitIDFk,
    tTstSPerson = NEW.tTstSPerson, tTstSType = NEW.tTstSType, tTstSRegio = NEW.tTstSRegio,
    tTstSName = NEW.tTstSName, tTstTs = NEW.tTstTs, tTstSResult = NEW.tTstSResult, tTstSLoc = NEW.tTstSLoc,
    tTstSFile = NEW.tTstSFile, tTstSArcLoc = NEW.tTstSArcLoc, tTstSArcFile = NEW.tTstSArcFile,
    tTstSArcVol = NEW.tTstSArcVol, tTstSArcType = NEW.tTstSArcType, tTstDArcOut = NEW.tTstDArcOut,
    tTstDArcIn = NEW.tTstDArcIn, tTstSAdd = NEW.tTstSAdd
  WHERE tTstCulIntTstIDPk = OLD.tTstCulIntTstIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TTestRaw_delete INSTEAD OF DELETE ON TTestRaw BEGIN
  DELETE FROM TTest WHERE tTstCulIntTstIDPk = OLD.tTstCulIntTstIDPk;
END;

-- The default rows, which every reference may point to. They are protected against change.
INSERT OR IGNORE INTO TDoctor (tDrCulIntDrIDPk, tDrSName, tDrFAct) VALUES (1, '-', 1);

INSERT OR IGNORE INTO TStation (tStatCulIntStatIDPk, tStatSName) VALUES (1, '-');

INSERT OR IGNORE INTO TUnit (tUnitCulIntUnitIDPk, tUnitSType, tUnitSName) VALUES (1, '-', '-');

-- The settings read at every connection: for the default doctor and the default station.
INSERT INTO TConfig (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet)
  SELECT 1, 1, 'DBVersion', '4.0' WHERE NOT EXISTS (
    SELECT 1 FROM TConfig
    WHERE tCfgCulIntDrIDFk = 1 AND tCfgCulIntStatIDFk = 1 AND tCfgSKey = 'DBVersion');

INSERT INTO TConfig (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet)
  SELECT 1, 1, 'DBMS', 'SQLite' WHERE NOT EXISTS (
    SELECT 1 FROM TConfig
    WHERE tCfgCulIntDrIDFk = 1 AND tCfgCulIntStatIDFk = 1 AND tCfgSKey = 'DBMS');

-- Read to see whether the connection lives. SQLite has no procedures; a call of one reads this view.
CREATE VIEW IF NOT EXISTS spky_ping AS SELECT 1 AS alive;
