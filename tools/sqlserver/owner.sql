-- The login that owns the hospital's databases and does nothing else. Nobody can sign on with it: it is disabled, and
-- its password is made of random bytes here on the server and told to no one. What stands before the bytes satisfies
-- every policy for passwords.
USE master;
GO
IF SUSER_ID('tarven_owner') IS NULL
BEGIN
    DECLARE @make nvarchar(400) = N'CREATE LOGIN tarven_owner WITH PASSWORD = N''aA1-'
        + CONVERT(varchar(64), CRYPT_GEN_RANDOM(32), 2) + N''', CHECK_POLICY = ON, CHECK_EXPIRATION = OFF';
    EXEC (@make);
END;
ALTER LOGIN tarven_owner DISABLE;
GO
