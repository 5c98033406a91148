-- A practice database of version 4.0 for SQLite, the other way round: the full names (TPatientRaw) are the
-- tables, the short names (TPatient) are views over them that take inserts, updates and deletes.
--
-- Practices that were set up like this exist, and the library must not care. Holds the same columns, indexes
-- and rows as schema/sqlite.sql, and is kept by hand beside it: neither is made from the other.
-- Each paragraph but this first one is exactly one statement.

-- Doctors. The natural key is the server identifier, then the name.
CREATE TABLE IF NOT EXISTS TDoctorRaw (
  tDrCulIntDrIDPk INTEGER PRIMARY KEY AUTOINCREMENT,
  tDrSSrvID       VARCHAR(255),
  tDrSName        VARCHAR(255),
  tDrFAct         SMALLINT,
  tDrSAdd         VARCHAR(1000000)
);

CREATE INDEX IF NOT EXISTS TDoctorRaw_SSrvID ON TDoctorRaw (tDrSSrvID);

CREATE INDEX IF NOT EXISTS TDoctorRaw_SName ON TDoctorRaw (tDrSName);

-- Workstations, found by name.
CREATE TABLE IF NOT EXISTS TStationRaw (
  tStatCulIntStatIDPk INTEGER PRIMARY KEY AUTOINCREMENT,
  tStatSName          VARCHAR(255),
  tStatSAdd           VARCHAR(1000000)
);

CREATE INDEX IF NOT EXISTS TStationRaw_SName ON TStationRaw (tStatSName);

-- X-ray units with the serial numbers of their components, found by name.
CREATE TABLE IF NOT EXISTS TUnitRaw (
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

CREATE INDEX IF NOT EXISTS TUnitRaw_SName ON TUnitRaw (tUnitSName);

-- Patients, each with a doctor. Found by Slida id, then server id, then name, first name and birthday.
CREATE TABLE IF NOT EXISTS TPatientRaw (
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

CREATE INDEX IF NOT EXISTS TPatientRaw_CulIntDrIDFk ON TPatientRaw (tPatCulIntDrIDFk);

CREATE INDEX IF NOT EXISTS TPatientRaw_SSlidaID ON TPatientRaw (tPatSSlidaID);

CREATE INDEX IF NOT EXISTS TPatientRaw_SSrvID ON TPatientRaw (tPatSSrvID);

CREATE INDEX IF NOT EXISTS TPatientRaw_SName_SFirstname_DBirthday
  ON TPatientRaw (tPatSName, tPatSFirstname, tPatDBirthday);

-- Images: who, on which unit, under which doctor, and where the picture, preview and archive files lie.
CREATE TABLE IF NOT EXISTS TImageRaw (
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

CREATE INDEX IF NOT EXISTS TImageRaw_CulIntPatIDFk_Ts ON TImageRaw (tImgCulIntPatIDFk, tImgTs);

CREATE INDEX IF NOT EXISTS TImageRaw_CulIntUnitIDFk ON TImageRaw (tImgCulIntUnitIDFk);

CREATE INDEX IF NOT EXISTS TImageRaw_CulIntDrIDFk ON TImageRaw (tImgCulIntDrIDFk);

CREATE INDEX IF NOT EXISTS TImageRaw_SName ON TImageRaw (tImgSName);

CREATE INDEX IF NOT EXISTS TImageRaw_Ts ON TImageRaw (tImgTs);

-- Makros of an image, numbered within the image.
CREATE TABLE IF NOT EXISTS TMakroRaw (
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

CREATE INDEX IF NOT EXISTS TMakroRaw_CulIntImgIDFk_UwNo ON TMakroRaw (tMakCulIntImgIDFk, tMakUwNo);

CREATE INDEX IF NOT EXISTS TMakroRaw_SName ON TMakroRaw (tMakSName);

-- Groups of images of one patient.
CREATE TABLE IF NOT EXISTS TGroupRaw (
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

CREATE INDEX IF NOT EXISTS TGroupRaw_CulIntPatIDFk_Ts ON TGroupRaw (tGrpCulIntPatIDFk, tGrpTs);

CREATE INDEX IF NOT EXISTS TGroupRaw_SName ON TGroupRaw (tGrpSName);

-- Diagnoses of an image.
CREATE TABLE IF NOT EXISTS TDiagnosisRaw (
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

CREATE INDEX IF NOT EXISTS TDiagnosisRaw_CulIntImgIDFk ON TDiagnosisRaw (tDiagCulIntImgIDFk);

CREATE INDEX IF NOT EXISTS TDiagnosisRaw_CulIntDrIDFk ON TDiagnosisRaw (tDiagCulIntDrIDFk);

-- Settings: one value for a doctor, a station and a key.
CREATE TABLE IF NOT EXISTS TConfigRaw (
  tCfgCulIntCfgIDPk  INTEGER PRIMARY KEY AUTOINCREMENT,
  tCfgCulIntDrIDFk   INTEGER,
  tCfgCulIntStatIDFk INTEGER,
  tCfgSKey           VARCHAR(255),
  tCfgSSet           VARCHAR(255),
  tCfgSAdd           VARCHAR(1000000),
  tCfgSPerson        VARCHAR(255)
);

CREATE INDEX IF NOT EXISTS TConfigRaw_CulIntDrIDFk_CulIntStatIDFk_SKey
  ON TConfigRaw (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey);

CREATE INDEX IF NOT EXISTS TConfigRaw_CulIntStatIDFk ON TConfigRaw (tCfgCulIntStatIDFk);

-- Constancy tests of a unit with their results and files.
CREATE TABLE IF NOT EXISTS TTestRaw (
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

CREATE INDEX IF NOT EXISTS TTestRaw_CulIntUnitIDFk_Ts ON TTestRaw (tTstCulIntUnitIDFk, tTstTs);

CREATE INDEX IF NOT EXISTS TTestRaw_SName ON TTestRaw (tTstSName);

-- The short names.
CREATE VIEW IF NOT EXISTS TDoctor AS SELECT
    tDrCulIntDrIDPk, tDrSSrvID, tDrSName, tDrFAct, tDrSAdd
  FROM TDoctorRaw;

CREATE TRIGGER IF NOT EXISTS TDoctor_insert INSTEAD OF INSERT ON TDoctor BEGIN
  INSERT INTO TDoctorRaw (
    tDrCulIntDrIDPk, tDrSSrvID, tDrSName, tDrFAct, tDrSAdd)
  VALUES (
    NEW.tDrCulIntDrIDPk, NEW.tDrSSrvID, NEW.tDrSName, NEW.tDrFAct, NEW.tDrSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TDoctor_update INSTEAD OF UPDATE ON TDoctor BEGIN
  UPDATE TDoctorRaw SET
    tDrCulIntDrIDPk = NEW.tDrCulIntDrIDPk, tDrSSrvID = NEW.tDrSSrvID, tDrSName = NEW.tDrSName,
    tDrFAct = NEW.tDrFAct, tDrSAdd = NEW.tDrSAdd
  WHERE tDrCulIntDrIDPk = OLD.tDrCulIntDrIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TDoctor_delete INSTEAD OF DELETE ON TDoctor BEGIN
  DELETE FROM TDoctorRaw WHERE tDrCulIntDrIDPk = OLD.tDrCulIntDrIDPk;
END;

CREATE VIEW IF NOT EXISTS TStation AS SELECT
    tStatCulIntStatIDPk, tStatSName, tStatSAdd
  FROM TStationRaw;

CREATE TRIGGER IF NOT EXISTS TStation_insert INSTEAD OF INSERT ON TStation BEGIN
  INSERT INTO TStationRaw (
    tStatCulIntStatIDPk, tStatSName, tStatSAdd)
  VALUES (
    NEW.tStatCulIntStatIDPk, NEW.tStatSName, NEW.tStatSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TStation_update INSTEAD OF UPDATE ON TStation BEGIN
  UPDATE TStationRaw SET
    tStatCulIntStatIDPk = NEW.tStatCulIntStatIDPk, tStatSName = NEW.tStatSName, tStatSAdd = NEW.tStatSAdd
  WHERE tStatCulIntStatIDPk = OLD.tStatCulIntStatIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TStation_delete INSTEAD OF DELETE ON TStation BEGIN
  DELETE FROM TStationRaw WHERE tStatCulIntStatIDPk = OLD.tStatCulIntStatIDPk;
END;

CREATE VIEW IF NOT EXISTS TUnit AS SELECT
    tUnitCulIntUnitIDPk, tUnitSType, tUnitSName, tUnitDAccept, tUnitSCtrlUnitSNo, tUnitSSensSNo,
    tUnitSGenSNo, tUnitSTubeSNo, tUnitSCtrlElemSNo, tUnitSConeSNo, tUnitSTestBodySNo, tUnitSAdd
  FROM TUnitRaw;

CREATE TRIGGER IF NOT EXISTS TUnit_insert INSTEAD OF INSERT ON TUnit BEGIN
  INSERT INTO TUnitRaw (
    tUnitCulIntUnitIDPk, tUnitSType, tUnitSName, tUnitDAccept, tUnitSCtrlUnitSNo, tUnitSSensSNo,
    tUnitSGenSNo, tUnitSTubeSNo, tUnitSCtrlElemSNo, tUnitSConeSNo, tUnitSTestBodySNo, tUnitSAdd)
  VALUES (
    NEW.tUnitCulIntUnitIDPk, NEW.tUnitSType, NEW.tUnitSName, NEW.tUnitDAccept, NEW.tUnitSCtrlUnitSNo,
    NEW.tUnitSSensSNo, NEW.tUnitSGenSNo, NEW.tUnitSTubeSNo, NEW.tUnitSCtrlElemSNo, NEW.tUnitSConeSNo,
    NEW.tUnitSTestBodySNo, NEW.tUnitSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TUnit_update INSTEAD OF UPDATE ON TUnit BEGIN
  UPDATE TUnitRaw SET
    tUnitCulIntUnitIDPk = NEW.tUnitCulIntUnitIDPk, tUnitSType = NEW.tUnitSType, tUnitSName = NEW.tUnitSName,
    tUnitDAccept = NEW.tUnitDAccept, tUnitSCtrlUnitSNo = NEW.tUnitSCtrlUnitSNo,
    tUnitSSensSNo = NEW.tUnitSSensSNo, tUnitSGenSNo = NEW.tUnitSGenSNo, tUnitSTubeSNo = NEW.tUnitSTubeSNo,
    tUnitSCtrlElemSNo = NEW.tUnitSCtrlElemSNo, tUnitSConeSNo = NEW.tUnitSConeSNo,
    tUnitSTestBodySNo = NEW.tUnitSTestBodySNo, tUnitSAdd = NEW.tUnitSAdd
  WHERE tUnitCulIntUnitIDPk = OLD.tUnitCulIntUnitIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TUnit_delete INSTEAD OF DELETE ON TUnit BEGIN
  DELETE FROM TUnitRaw WHERE tUnitCulIntUnitIDPk = OLD.tUnitCulIntUnitIDPk;
END;

CREATE VIEW IF NOT EXISTS TPatient AS SELECT
    tPatCulIntPatIDPk, tPatCulIntDrIDFk, tPatSExtPatID, tPatSSrvID, tPatSSlidaID, tPatSSocID, tPatSName,
    tPatSFirstname, tPatDBirthday, tPatSSex, tPatDEntry, tPatTsLastDisp, tPatSIDDisp, tPatFSelect,
    tPatSResponsible, tPatSAdd
  FROM TPatientRaw;

CREATE TRIGGER IF NOT EXISTS TPatient_insert INSTEAD OF INSERT ON TPatient BEGIN
  INSERT INTO TPatientRaw (
    tPatCulIntPatIDPk, tPatCulIntDrIDFk, tPatSExtPatID, tPatSSrvID, tPatSSlidaID, tPatSSocID, tPatSName,
    tPatSFirstname, tPatDBirthday, tPatSSex, tPatDEntry, tPatTsLastDisp, tPatSIDDisp, tPatFSelect,
    tPatSResponsible, tPatSAdd)
  VALUES (
    NEW.tPatCulIntPatIDPk, NEW.tPatCulIntDrIDFk, NEW.tPatSExtPatID, NEW.tPatSSrvID, NEW.tPatSSlidaID,
    NEW.tPatSSocID, NEW.tPatSName, NEW.tPatSFirstname, NEW.tPatDBirthday, NEW.tPatSSex, NEW.tPatDEntry,
    NEW.tPatTsLastDisp, NEW.tPatSIDDisp, NEW.tPatFSelect, NEW.tPatSResponsible, NEW.tPatSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TPatient_update INSTEAD OF UPDATE ON TPatient BEGIN
  UPDATE TPatientRaw SET
    tPatCulIntPatIDPk = NEW.tPatCulIntPatIDPk, tPatCulIntDrIDFk = NEW.tPatCulIntDrIDFk,
    tPatSExtPatID = NEW.tPatSExtPatID, tPatSSrvID = NEW.tPatSSrvID, tPatSSlidaID = NEW.tPatSSlidaID,
    tPatSSocID = NEW.tPatSSocID, tPatSName = NEW.tPatSName, tPatSFirstname = NEW.tPatSFirstname,
    tPatDBirthday = NEW.tPatDBirthday, tPatSSex = NEW.tPatSSex, tPatDEntry = NEW.tPatDEntry,
    tPatTsLastDisp = NEW.tPatTsLastDisp, tPatSIDDisp = NEW.tPatSIDDisp, tPatFSelect = NEW.tPatFSelect,
    tPatSResponsible = NEW.tPatSResponsible, tPatSAdd = NEW.tPatSAdd
  WHERE tPatCulIntPatIDPk = OLD.tPatCulIntPatIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TPatient_delete INSTEAD OF DELETE ON TPatient BEGIN
  DELETE FROM TPatientRaw WHERE tPatCulIntPatIDPk = OLD.tPatCulIntPatIDPk;
END;

CREATE VIEW IF NOT EXISTS TImage AS SELECT
    tImgCulIntImgIDPk, tImgCulIntPatIDFk, tImgCulIntUnitIDFk, tImgCulIntDrIDFk, tImgSType, tImgSRegio,
    tImgSName, tImgTs, tImgSPreg, tImgSOrdType, tImgSOrdRegio, tImgSOrdReason, tImgSLoc, tImgSFile,
    tImgSPvwLoc, tImgSPvwFile, tImgSArcLoc, tImgSArcFile, tImgSArcType, tImgSArcVol, tImgDArcOut,
    tImgDArcIn, tImgCulIntMakIDLast, tImgSResponsible, tImgIntRefImgID, tImgSAdd
  FROM TImageRaw;

CREATE TRIGGER IF NOT EXISTS TImage_insert INSTEAD OF INSERT ON TImage BEGIN
  INSERT INTO TImageRaw (
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

CREATE TRIGGER IF NOT EXISTS TImage_update INSTEAD OF UPDATE ON TImage BEGIN
  UPDATE TImageRaw SET
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

CREATE TRIGGER IF NOT EXISTS TImage_delete INSTEAD OF DELETE ON TImage BEGIN
  DELETE FROM TImageRaw WHERE tImgCulIntImgIDPk = OLD.tImgCulIntImgIDPk;
END;

CREATE VIEW IF NOT EXISTS TMakro AS SELECT
    tMakCulIntMakIDPk, tMakCulIntImgIDFk, tMakSName, tMakTsLast, tMakSLoc, tMakSFile, tMakUwNo, tMakSAdd,
    tMakSRegio, tMakTsCreate
  FROM TMakroRaw;

CREATE TRIGGER IF NOT EXISTS TMakro_insert INSTEAD OF INSERT ON TMakro BEGIN
  INSERT INTO TMakroRaw (
    tMakCulIntMakIDPk, tMakCulIntImgIDFk, tMakSName, tMakTsLast, tMakSLoc, tMakSFile, tMakUwNo, tMakSAdd,
    tMakSRegio, tMakTsCreate)
  VALUES (
    NEW.tMakCulIntMakIDPk, NEW.tMakCulIntImgIDFk, NEW.tMakSName, NEW.tMakTsLast, NEW.tMakSLoc,
    NEW.tMakSFile, NEW.tMakUwNo, NEW.tMakSAdd, NEW.tMakSRegio, NEW.tMakTsCreate);
END;

CREATE TRIGGER IF NOT EXISTS TMakro_update INSTEAD OF UPDATE ON TMakro BEGIN
  UPDATE TMakroRaw SET
    tMakCulIntMakIDPk = NEW.tMakCulIntMakIDPk, tMakCulIntImgIDFk = NEW.tMakCulIntImgIDFk,
    tMakSName = NEW.tMakSName, tMakTsLast = NEW.tMakTsLast, tMakSLoc = NEW.tMakSLoc,
    tMakSFile = NEW.tMakSFile, tMakUwNo = NEW.tMakUwNo, tMakSAdd = NEW.tMakSAdd,
    tMakSRegio = NEW.tMakSRegio, tMakTsCreate = NEW.tMakTsCreate
  WHERE tMakCulIntMakIDPk = OLD.tMakCulIntMakIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TMakro_delete INSTEAD OF DELETE ON TMakro BEGIN
  DELETE FROM TMakroRaw WHERE tMakCulIntMakIDPk = OLD.tMakCulIntMakIDPk;
END;

CREATE VIEW IF NOT EXISTS TGroup AS SELECT
    tGrpCulIntGrpIDPk, tGrpCulIntPatIDFk, tGrpSName, tGrpTs, tGrpSLoc, tGrpSFile, tGrpUwMakNo, tGrpSPvwLoc,
    tGrpSPvwFile, tGrpTsLast, tGrpSResponsible, tGrpSAdd
  FROM TGroupRaw;

CREATE TRIGGER IF NOT EXISTS TGroup_insert INSTEAD OF INSERT ON TGroup BEGIN
  INSERT INTO TGroupRaw (
    tGrpCulIntGrpIDPk, tGrpCulIntPatIDFk, tGrpSName, tGrpTs, tGrpSLoc, tGrpSFile, tGrpUwMakNo, tGrpSPvwLoc,
    tGrpSPvwFile, tGrpTsLast, tGrpSResponsible, tGrpSAdd)
  VALUES (
    NEW.tGrpCulIntGrpIDPk, NEW.tGrpCulIntPatIDFk, NEW.tGrpSName, NEW.tGrpTs, NEW.tGrpSLoc, NEW.tGrpSFile,
    NEW.tGrpUwMakNo, NEW.tGrpSPvwLoc, NEW.tGrpSPvwFile, NEW.tGrpTsLast, NEW.tGrpSResponsible, NEW.tGrpSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TGroup_update INSTEAD OF UPDATE ON TGroup BEGIN
  UPDATE TGroupRaw SET
    tGrpCulIntGrpIDPk = NEW.tGrpCulIntGrpIDPk, tGrpCulIntPatIDFk = NEW.tGrpCulIntPatIDFk,
    tGrpSName = NEW.tGrpSName, tGrpTs = NEW.tGrpTs, tGrpSLoc = NEW.tGrpSLoc, tGrpSFile = NEW.tGrpSFile,
    tGrpUwMakNo = NEW.tGrpUwMakNo, tGrpSPvwLoc = NEW.tGrpSPvwLoc, tGrpSPvwFile = NEW.tGrpSPvwFile,
    tGrpTsLast = NEW.tGrpTsLast, tGrpSResponsible = NEW.tGrpSResponsible, tGrpSAdd = NEW.tGrpSAdd
  WHERE tGrpCulIntGrpIDPk = OLD.tGrpCulIntGrpIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TGroup_delete INSTEAD OF DELETE ON TGroup BEGIN
  DELETE FROM TGroupRaw WHERE tGrpCulIntGrpIDPk = OLD.tGrpCulIntGrpIDPk;
END;

CREATE VIEW IF NOT EXISTS TDiagnosis AS SELECT
    tDiagCulIntDiagIDPk, tDiagCulIntImgIDFk, tDiagCulIntDrIDFk, tDiagSRegio, tDiagTs, tDiagSCode,
    tDiagSText, tDiagSResponsible, tDiagIntMakID, tDiagSAdd
  FROM TDiagnosisRaw;

CREATE TRIGGER IF NOT EXISTS TDiagnosis_insert INSTEAD OF INSERT ON TDiagnosis BEGIN
  INSERT INTO TDiagnosisRaw (
    tDiagCulIntDiagIDPk, tDiagCulIntImgIDFk, tDiagCulIntDrIDFk, tDiagSRegio, tDiagTs, tDiagSCode,
    tDiagSText, tDiagSResponsible, tDiagIntMakID, tDiagSAdd)
  VALUES (
    NEW.tDiagCulIntDiagIDPk, NEW.tDiagCulIntImgIDFk, NEW.tDiagCulIntDrIDFk, NEW.tDiagSRegio, NEW.tDiagTs,
    NEW.tDiagSCode, NEW.tDiagSText, NEW.tDiagSResponsible, NEW.tDiagIntMakID, NEW.tDiagSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TDiagnosis_update INSTEAD OF UPDATE ON TDiagnosis BEGIN
  UPDATE TDiagnosisRaw SET
    tDiagCulIntDiagIDPk = NEW.tDiagCulIntDiagIDPk, tDiagCulIntImgIDFk = NEW.tDiagCulIntImgIDFk,
    tDiagCulIntDrIDFk = NEW.tDiagCulIntDrIDFk, tDiagSRegio = NEW.tDiagSRegio, tDiagTs = NEW.tDiagTs,
    tDiagSCode = NEW.tDiagSCode, tDiagSText = NEW.tDiagSText, tDiagSResponsible = NEW.tDiagSResponsible,
    tDiagIntMakID = NEW.tDiagIntMakID, tDiagSAdd = NEW.tDiagSAdd
  WHERE tDiagCulIntDiagIDPk = OLD.tDiagCulIntDiagIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TDiagnosis_delete INSTEAD OF DELETE ON TDiagnosis BEGIN
  DELETE FROM TDiagnosisRaw WHERE tDiagCulIntDiagIDPk = OLD.tDiagCulIntDiagIDPk;
END;

CREATE VIEW IF NOT EXISTS TConfig AS SELECT
    tCfgCulIntCfgIDPk, tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet, tCfgSAdd, tCfgSPerson
  FROM TConfigRaw;

CREATE TRIGGER IF NOT EXISTS TConfig_insert INSTEAD OF INSERT ON TConfig BEGIN
  INSERT INTO TConfigRaw (
    tCfgCulIntCfgIDPk, tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet, tCfgSAdd, tCfgSPerson)
  VALUES (
    NEW.tCfgCulIntCfgIDPk, NEW.tCfgCulIntDrIDFk, NEW.tCfgCulIntStatIDFk, NEW.tCfgSKey, NEW.tCfgSSet,
    NEW.tCfgSAdd, NEW.tCfgSPerson);
END;

CREATE TRIGGER IF NOT EXISTS TConfig_update INSTEAD OF UPDATE ON TConfig BEGIN
  UPDATE TConfigRaw SET
    tCfgCulIntCfgIDPk = NEW.tCfgCulIntCfgIDPk, tCfgCulIntDrIDFk = NEW.tCfgCulIntDrIDFk,
    tCfgCulIntStatIDFk = NEW.tCfgCulIntStatIDFk, tCfgSKey = NEW.tCfgSKey, tCfgSSet = NEW.tCfgSSet,
    tCfgSAdd = NEW.tCfgSAdd, tCfgSPerson = NEW.tCfgSPerson
  WHERE tCfgCulIntCfgIDPk = OLD.tCfgCulIntCfgIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TConfig_delete INSTEAD OF DELETE ON TConfig BEGIN
  DELETE FROM TConfigRaw WHERE tCfgCulIntCfgIDPk = OLD.tCfgCulIntCfgIDPk;
END;

CREATE VIEW IF NOT EXISTS TTest AS SELECT
    tTstCulIntTstIDPk, tTstCulIntUnitIDFk, tTstSPerson, tTstSType, tTstSRegio, tTstSName, tTstTs,
    tTstSResult, tTstSLoc, tTstSFile, tTstSArcLoc, tTstSArcFile, tTstSArcVol, tTstSArcType, tTstDArcOut,
    tTstDArcIn, tTstSAdd
  FROM TTestRaw;

CREATE TRIGGER IF NOT EXISTS TTest_insert INSTEAD OF INSERT ON TTest BEGIN
  INSERT INTO TTestRaw (
    tTstCulIntTstIDPk, tTstCulIntUnitIDFk, tTstSPerson, tTstSType, tTstSRegio, tTstSName, tTstTs,
    tTstSResult, tTstSLoc, tTstSFile, tTstSArcLoc, tTstSArcFile, tTstSArcVol, tTstSArcType, tTstDArcOut,
    tTstDArcIn, tTstSAdd)
  VALUES (
    NEW.tTstCulIntTstIDPk, NEW.tTstCulIntUnitIDFk, NEW.tTstSPerson, NEW.tTstSType, NEW.tTstSRegio,
    NEW.tTstSName, NEW.tTstTs, NEW.tTstSResult, NEW.tTstSLoc, NEW.tTstSFile, NEW.tTstSArcLoc,
    NEW.tTstSArcFile, NEW.tTstSArcVol, NEW.tTstSArcType, NEW.tTstDArcOut, NEW.tTstDArcIn, NEW.tTstSAdd);
END;

CREATE TRIGGER IF NOT EXISTS TTest_update INSTEAD OF UPDATE ON TTest BEGIN
  UPDATE TTestRaw SET
    tTstCulIntTstIDPk = NEW.tTstCulIntTstIDPk, tTstCulIntUnitIDFk = NEW.tTstCulIntUnitIDFk,
    tTstSPerson = NEW.tTstSPerson, tTstSType = NEW.tTstSType, tTstSRegio = NEW.tTstSRegio,
    tTstSName = NEW.tTstSName, tTstTs = NEW.tTstTs, tTstSResult = NEW.tTstSResult, tTstSLoc = NEW.tTstSLoc,
    tTstSFile = NEW.tTstSFile, tTstSArcLoc = NEW.tTstSArcLoc, tTstSArcFile = NEW.tTstSArcFile,
    tTstSArcVol = NEW.tTstSArcVol, tTstSArcType = NEW.tTstSArcType, tTstDArcOut = NEW.tTstDArcOut,
    tTstDArcIn = NEW.tTstDArcIn, tTstSAdd = NEW.tTstSAdd
  WHERE tTstCulIntTstIDPk = OLD.tTstCulIntTstIDPk;
END;

CREATE TRIGGER IF NOT EXISTS TTest_delete INSTEAD OF DELETE ON TTest BEGIN
  DELETE FROM TTestRaw WHERE tTstCulIntTstIDPk = OLD.tTstCulIntTstIDPk;
END;

-- The default rows, which every reference may point to. They are protected against change.
INSERT OR IGNORE INTO TDoctorRaw (tDrCulIntDrIDPk, tDrSName, tDrFAct) VALUES (1, '-', 1);

INSERT OR IGNORE INTO TStationRaw (tStatCulIntStatIDPk, tStatSName) VALUES (1, '-');

INSERT OR IGNORE INTO TUnitRaw (tUnitCulIntUnitIDPk, tUnitSType, tUnitSName) VALUES (1, '-', '-');

-- The settings read at every connection: for the default doctor and the default station.
INSERT INTO TConfigRaw (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet)
  SELECT 1, 1, 'DBVersion', '4.0' WHERE NOT EXISTS (
    SELECT 1 FROM TConfigRaw
    WHERE tCfgCulIntDrIDFk = 1 AND tCfgCulIntStatIDFk = 1 AND tCfgSKey = 'DBVersion');

INSERT INTO TConfigRaw (tCfgCulIntDrIDFk, tCfgCulIntStatIDFk, tCfgSKey, tCfgSSet)
  SELECT 1, 1, 'DBMS', 'SQLite' WHERE NOT EXISTS (
    SELECT 1 FROM TConfigRaw
    WHERE tCfgCulIntDrIDFk = 1 AND tCfgCulIntStatIDFk = 1 AND tCfgSKey = 'DBMS');

-- Read to see whether the connection lives. SQLite has no procedures; a call of one reads this view.
CREATE VIEW IF NOT EXISTS spky_ping AS SELECT 1 AS alive;
