-- Takes away what the program's roles were granted in a database, so that rights.sql begins from nothing: what once
-- stood in it does not stay granted. Runs before the grants, in their batch. What an administrator denied to a
-- role stays denied. A grant that the role may pass on (state W) goes too, with all that was passed on by it. Whole
-- tables and procedures come first, and take along their columns; then what is left of columns.
DECLARE @revoke nvarchar(max) = N'';
SELECT @revoke += N'REVOKE ' + p.permission_name COLLATE DATABASE_DEFAULT
    + N' ON ' + QUOTENAME(SCHEMA_NAME(o.schema_id)) + N'.' + QUOTENAME(o.name) + N' FROM ' + QUOTENAME(r.name) + N' CASCADE; '
FROM sys.database_permissions AS p
INNER JOIN sys.objects AS o ON o.object_id = p.major_id
INNER JOIN sys.database_principals AS r ON r.principal_id = p.grantee_principal_id
WHERE r.name IN (N'tarven_hemodialysis', N'tarven_hemodialysis_standby')
    AND p.class = 1 AND p.state IN ('G', 'W') AND p.minor_id = 0;
EXEC (@revoke);
SET @revoke = N'';
SELECT @revoke += N'REVOKE ' + p.permission_name COLLATE DATABASE_DEFAULT
    + N' ON ' + QUOTENAME(SCHEMA_NAME(o.schema_id)) + N'.' + QUOTENAME(o.name)
    + N' (' + QUOTENAME(COL_NAME(p.major_id, p.minor_id)) + N') FROM ' + QUOTENAME(r.name) + N' CASCADE; '
FROM sys.database_permissions AS p
INNER JOIN sys.objects AS o ON o.object_id = p.major_id
INNER JOIN sys.database_principals AS r ON r.principal_id = p.grantee_principal_id
WHERE r.name IN (N'tarven_hemodialysis', N'tarven_hemodialysis_standby')
    AND p.class = 1 AND p.state IN ('G', 'W') AND p.minor_id > 0;
EXEC (@revoke);
