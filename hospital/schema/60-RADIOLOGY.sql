-- The wards' requests to the departments.
USE RADIOLOGY;
GO

-- One row a requested item. Status P is pending, D charged (SlipNo tells on which slip), X revoked.
CREATE TABLE dbo.tbNurseRequest (
    RequestNum int IDENTITY(1,1) NOT NULL PRIMARY KEY,
    RequestDate datetime NOT NULL,
    DeptCode varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    HospNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    IdNum varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    StationID varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    DoctorID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    RequestedBy varchar(60) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    RevenueID varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    ItemID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Quantity int NOT NULL,
    Remarks varchar(100) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    Status char(1) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT 'P',
    SlipNo varchar(20) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    ClosedBy varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NULL,
    ClosedDate datetime NULL
);
CREATE INDEX ixNurseRequestStatus ON dbo.tbNurseRequest (DeptCode, Status);
CREATE INDEX ixNurseRequestIdNum ON dbo.tbNurseRequest (IdNum);
GO
