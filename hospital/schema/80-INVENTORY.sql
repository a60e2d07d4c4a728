-- Stock items and their cards.
USE INVENTORY;
GO

-- SectionID 1 is the pharmacy's medicines, 52 the unit's supplies.
CREATE TABLE dbo.tbInvMaster (
    ItemID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    ItemName varchar(60) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    GenericName varchar(60) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    Unit varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    SectionID varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    SellingPriceOut money NOT NULL,
    SellingPriceIn money NOT NULL
);
CREATE INDEX ixInvMasterName ON dbo.tbInvMaster (SectionID, ItemName);
GO

-- Every movement of stock. RecordType B brings a balance forward, R is a delivery, I an issue to a patient and C the
-- cancellation of one. What is on hand is the sum of QtyIn less the sum of QtyOut.
CREATE TABLE dbo.tbInvStockCard (
    StockCardID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
    TransDate datetime NOT NULL,
    ItemID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    SectionID varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    RecordType char(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    RefNum varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    QtyIn float NOT NULL DEFAULT 0,
    QtyOut float NOT NULL DEFAULT 0,
    Amount money NOT NULL DEFAULT 0,
    HospNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    IdNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    PatientType varchar(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    RoomID varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    UserID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    PackageID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    EntryDate datetime NOT NULL
);
CREATE INDEX ixInvStockCardItem ON dbo.tbInvStockCard (ItemID, RefNum);
GO
