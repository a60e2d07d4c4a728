#include "support/smallhospital/SmallHospital.h"

#include "support/smallhospital/GatewayTexts.h"

using namespace Qt::StringLiterals;

namespace {

const QString kTables = uR"(USE Clinical_Area;
GO
CREATE TABLE dbo.tbPatient (
    HospNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    LastName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    FirstName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    BirthDate date NULL,
    Active bit NOT NULL DEFAULT 1
);
CREATE INDEX ixPatientName ON dbo.tbPatient (LastName, FirstName);

CREATE TABLE dbo.tbCharge (
    ChargeID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
    HospNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Quantity int NOT NULL,
    Amount money NOT NULL,
    Rate decimal(9,2) NULL,
    Ratio float NULL,
    ChargeDate datetime NOT NULL,
    Entered datetime NOT NULL DEFAULT GETDATE(),
    Remark nvarchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NULL DEFAULT 'none'
);

CREATE TABLE dbo.tbSlip (ChargeSlip int NOT NULL);
CREATE TABLE dbo.tbPrint (
    Line int IDENTITY(1,1) NOT NULL PRIMARY KEY,
    [Slip #] varchar(12) COLLATE SQL_Latin1_General_CP1_CI_AS NULL
);
GO
USE BILLING;
GO
CREATE TABLE dbo.tbCharge (Number bigint NOT NULL, Code char(4) COLLATE SQL_Latin1_General_CP1_CI_AS NULL);
CREATE UNIQUE INDEX ixNumber ON dbo.tbCharge (Number);
GO
USE PASSWORD;
GO
CREATE TABLE dbo.tbSmallUser (EmployeeID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY);
GO
)"_s;

QString ProcedureText(const QString& text) {
    return u"USE Clinical_Area;\nGO\nCREATE PROCEDURE dbo."_s + text + u"\nGO\n"_s;
}

const QString kGetPatient = ProcedureText(uR"(spGetPatient
    @Search varchar(30)
AS
BEGIN
    SET NOCOUNT ON;
    SELECT HospNum AS [hospital #], CONCAT(LastName, ', ', FirstName) AS [Patient Name]
    FROM Clinical_Area..tbPatient
    WHERE LastName >= @Search AND LastName <= CONCAT(@Search, REPLICATE('Z', 30))
      AND LEFT(LastName, LEN(@Search)) = @Search
    ORDER BY LastName, FirstName;
END)"_s);

const QString kAddCharge = ProcedureText(uR"(spAddCharge
    @HospNum varchar(10), @Quantity int, @Amount money, @Date datetime, @Remark nvarchar(20) = N'by default'
AS
BEGIN
    SET NOCOUNT ON;
    SET XACT_ABORT ON;
    BEGIN TRANSACTION;
    UPDATE Clinical_Area..tbSlip SET ChargeSlip = ChargeSlip + 1;
    INSERT INTO Clinical_Area..tbCharge (HospNum, Quantity, Amount, ChargeDate, Remark)
    VALUES (@HospNum, @Quantity, @Amount, @Date, @Remark);
    COMMIT TRANSACTION;
END)"_s);

const QString kAddThenFail = ProcedureText(uR"(spAddThenFail
    @Text varchar(20)
AS
BEGIN
    SET NOCOUNT ON;
    SET XACT_ABORT ON;
    BEGIN TRANSACTION;
    UPDATE Clinical_Area..tbSlip SET ChargeSlip = ChargeSlip + 1;
    DELETE FROM Clinical_Area..tbPatient;
    INSERT INTO Clinical_Area..tbSlip (ChargeSlip) SELECT CAST(@Text AS int);
    COMMIT TRANSACTION;
END)"_s);

const QString kEcho = ProcedureText(uR"(spEcho
    @Text varchar(10) = 'empty', @Number int = 0, @Amount money = 0, @Moment datetime = NULL, @Real float = 0,
    @Flag bit = 0, @Day date = NULL, @Rate decimal(9,2) = 0
AS
BEGIN
    SET NOCOUNT ON;
    SELECT @Text AS Text, @Number AS Number, @Amount AS Amount, @Moment AS Moment, @Real AS Real, @Flag AS Flag,
           @Day AS Day, @Rate AS Rate;
END)"_s);

const QString kLong = ProcedureText(uR"(spPrint
    @Slip varchar(12)
AS
BEGIN
    SET NOCOUNT ON;
    INSERT INTO Clinical_Area..tbPrint ([Slip #]) VALUES (@Slip);
    SELECT COUNT(*) AS Lines FROM Clinical_Area..tbPrint;
    SELECT 'unseen' AS Unseen;
END)"_s);

const QString kData = uR"(USE Clinical_Area;
GO
INSERT INTO Clinical_Area..tbPatient (HospNum, LastName, FirstName, BirthDate, Active) VALUES
('1001', 'DELA CRUZ', 'JUAN', '1960-05-17', 1),
('1002', 'NUNEZ', 'ANA', '1971-01-02', 1),
('1003', N'NUÑEZ', 'BEA', '1982-03-04', 1),
('1004', 'NUNO', 'CARL', NULL, 0),
('1005', 'O''BRIEN', 'PAT', '1990-12-31', 1),
('1006', 'DELOS REYES', NULL, '1955-08-09', 1);
INSERT INTO Clinical_Area..tbCharge (HospNum, Quantity, Amount, Rate, Ratio, ChargeDate) VALUES
('1001', 2, 1250.5, 12.345, 0.1, '2026-11-20'),
('1001', 1, 0.1, NULL, NULL, '2026-11-21 14:02:03.456');
INSERT INTO Clinical_Area..tbSlip (ChargeSlip) VALUES (100);
INSERT INTO PASSWORD..tbSmallUser (EmployeeID) VALUES ('NURSE');
GO
)"_s;

} // namespace

std::vector<Script> SmallHospitalScripts() {
    return {
        {u"schema/10-all.sql"_s, kTables},
        {u"procedures/Clinical_Area/spGetPatient.sql"_s, kGetPatient},
        {u"procedures/Clinical_Area/spAddCharge.sql"_s, kAddCharge},
        {u"procedures/Clinical_Area/spAddThenFail.sql"_s, kAddThenFail},
        {u"procedures/Clinical_Area/spEcho.sql"_s, kEcho},
        {u"procedures/Clinical_Area/spPrint.sql"_s, kLong},
        {u"demo/10-data.sql"_s, kData},
    };
}

QStringList ContentOf(CommandGateway& gateway) {
    QStringList content;
    for (const QString& table :
         {u"Clinical_Area..tbPatient"_s, u"Clinical_Area..tbCharge"_s, u"Clinical_Area..tbSlip"_s,
          u"Clinical_Area..tbPrint"_s, u"BILLING..tbCharge"_s, u"PASSWORD..tbSmallUser"_s})
        content << table << RowTexts(gateway, u"select * from "_s + table + u" order by 1"_s);
    return content;
}

SmallHospital::SmallHospital() {
    HospitalFile::Create(Path(), SmallHospitalScripts());
    mGateway = Connect();
}

std::unique_ptr<EmbeddedGateway> SmallHospital::Connect() const {
    auto gateway = HospitalFile::Open(Path(), SmallHospitalScripts());
    gateway->SetDefaultDatabase(QStringLiteral("PASSWORD"));
    return gateway;
}
