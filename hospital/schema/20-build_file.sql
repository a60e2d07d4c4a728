-- The hospital's code tables.
USE build_file;
GO

-- Revenue centres: a centre has a list of priced items (WithItems 'Y'), or takes its items from the stock section
-- that LocationID names (SearchInventory 1), or neither.
CREATE TABLE dbo.tbCoRevenue (
    RevenueID varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    Revenue varchar(60) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    WithItems char(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT 'N',
    SearchInventory bit NOT NULL DEFAULT 0,
    LocationID varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NULL
);
GO

-- The priced items of the centres, with one rate for each room class.
CREATE TABLE dbo.tbCoOtherRevenue (
    RevenueID varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    ItemID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    OtherRevenue varchar(60) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    RateA money NOT NULL DEFAULT 0,
    RateB money NOT NULL DEFAULT 0,
    RateC money NOT NULL DEFAULT 0,
    RateD money NOT NULL DEFAULT 0,
    RateE money NOT NULL DEFAULT 0,
    RateF money NOT NULL DEFAULT 0,
    RateG money NOT NULL DEFAULT 0,
    RateH money NOT NULL DEFAULT 0,
    PRIMARY KEY (RevenueID, ItemID)
);
CREATE INDEX ixCoOtherRevenueName ON dbo.tbCoOtherRevenue (RevenueID, OtherRevenue);
GO

CREATE TABLE dbo.tbCoDoctor (
    DoctorID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    LastName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    FirstName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    MiddleName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    Specialty varchar(40) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT ''
);
CREATE INDEX ixCoDoctorName ON dbo.tbCoDoctor (LastName, FirstName);
GO

CREATE TABLE dbo.tbCoStation (
    StationID varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    Station varchar(40) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL
);
GO

CREATE TABLE dbo.tbCoRoomClass (
    RoomClassID char(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    RoomClass varchar(40) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL
);
GO

-- One row a bed. The room OPD stands for a patient who has none.
CREATE TABLE dbo.tbCoRoom (
    RoomID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    RoomClassID char(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    StationID varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL
);
GO

CREATE TABLE dbo.tbCoCompany (
    CompanyID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    Company varchar(60) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL
);
GO

CREATE TABLE dbo.tbCoCivilStatus (
    CivilStatusID char(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    CivilStatus varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL
);
GO

-- Towns, keyed by zip code.
CREATE TABLE dbo.tbCoAddress (
    ZipCode varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    Town varchar(40) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Province varchar(40) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL
);
CREATE INDEX ixCoAddressTown ON dbo.tbCoAddress (Town);
GO

CREATE TABLE dbo.tbcoultraexam (
    ultraexamid varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    ultraexam varchar(60) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL
);
CREATE INDEX ixCoUltraExamName ON dbo.tbcoultraexam (ultraexam);
GO
