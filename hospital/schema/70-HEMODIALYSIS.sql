-- What belongs to the hemodialysis unit alone.
USE HEMODIALYSIS;
GO

-- The items of a package. The package itself, with its rates, is an item of the centre YP.
CREATE TABLE dbo.tbhemopackage (
    PackageCode varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    RevenueID varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    ItemID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Quantity float NULL,
    Amount float NULL,
    PRIMARY KEY (PackageCode, RevenueID, ItemID)
);
GO
