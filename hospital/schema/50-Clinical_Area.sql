-- The department's slip counter and print tables.
USE Clinical_Area;
GO

-- One row: the number that the next charge slip gets.
CREATE TABLE dbo.tbEarCareChargeSlip (
    ChargeSlip int NOT NULL
);
GO

-- The lines of the slip that is about to be printed, in the order of PrintID. Shared by all workstations and emptied
-- by each save.
CREATE TABLE dbo.tbEarCareChargePrint (
    PrintID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
    ItemID varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Amount money NOT NULL,
    Quantity varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    RevenueID varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Description varchar(100) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    SlipKind char(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT ''
);
GO

-- The hospital's own copy of every assessment slip line that was printed, with its price and who printed it.
CREATE TABLE dbo.tbGlobalChargePrint (
    PrintID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
    ItemID varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Description varchar(100) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Quantity varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Price money NOT NULL,
    Amount money NOT NULL,
    UserID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    PrintDate datetime NOT NULL
);
GO
