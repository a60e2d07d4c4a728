-- Who may sign on, and for which department.
USE PASSWORD;
GO

CREATE TABLE dbo.tbPasswordMain (
    EmployeeID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL PRIMARY KEY,
    LastName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    FirstName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    MiddleName varchar(30) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    Initial varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL DEFAULT '',
    PasswordHash varchar(128) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    Active bit NOT NULL DEFAULT 1
);
GO

-- DeptCode '*' stands for every department.
CREATE TABLE dbo.tbPasswordDept (
    EmployeeID varchar(10) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    DeptCode varchar(5) COLLATE SQL_Latin1_General_CP1_CI_AS NOT NULL,
    PRIMARY KEY (EmployeeID, DeptCode)
);
GO
