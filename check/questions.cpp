#include "check/questions.h"

using namespace Qt::StringLiterals;

QString SessionQuestion() {
    return u"SELECT s.language AS Language, s.date_format AS DateOrder, "
           "s.transaction_isolation_level AS Isolation, SUSER_SNAME() AS Login, GETDATE() AS Clock, "
           "DATEPART(tzoffset, SYSDATETIMEOFFSET()) AS Zone "
           "FROM sys.dm_exec_sessions AS s WHERE s.session_id = @@SPID"_s;
}

QString ServerPermissionsQuestion() {
    return u"SELECT p.permission_name AS Permission FROM sys.fn_my_permissions(NULL, 'SERVER') AS p"_s;
}

QString DatabaseQuestion() {
    // The server may let all its databases use each other. A replica is read alone without being marked so.
    return u"SELECT d.collation_name AS CollationName, "
           "CASE WHEN d.is_db_chaining_on = 1 OR EXISTS (SELECT 1 FROM sys.configurations AS c "
           "WHERE c.name = 'cross db ownership chaining' AND CONVERT(int, c.value_in_use) = 1) "
           "THEN 1 ELSE 0 END AS Chaining, "
           "CASE WHEN d.is_read_only = 1 OR "
           "CONVERT(nvarchar(60), DATABASEPROPERTYEX(d.name, 'Updateability')) = 'READ_ONLY' "
           "THEN 1 ELSE 0 END AS ReadOnly, CONVERT(varchar(200), d.owner_sid, 2) AS Owner "
           "FROM sys.databases AS d WHERE d.database_id = DB_ID()"_s;
}

QString ParametersQuestion() {
    return u"SELECT o.name AS ObjectName, p.name AS ParameterName, TYPE_NAME(p.system_type_id) AS TypeName "
           "FROM sys.procedures AS o LEFT JOIN sys.parameters AS p ON p.object_id = o.object_id "
           "WHERE SCHEMA_NAME(o.schema_id) = 'dbo' ORDER BY o.name, p.parameter_id"_s;
}

QString AnswersQuestion() {
    return u"SELECT o.name AS ObjectName, r.name AS ColumnName, r.error_message AS Reason "
           "FROM sys.procedures AS o "
           "CROSS APPLY sys.dm_exec_describe_first_result_set_for_object(o.object_id, 0) AS r "
           "WHERE SCHEMA_NAME(o.schema_id) = 'dbo' ORDER BY o.name, r.column_ordinal"_s;
}

QString ColumnsQuestion() {
    return u"SELECT o.name AS ObjectName, c.name AS ColumnName, TYPE_NAME(c.system_type_id) AS TypeName "
           "FROM sys.objects AS o INNER JOIN sys.columns AS c ON c.object_id = o.object_id "
           "WHERE o.type IN ('U', 'V') AND SCHEMA_NAME(o.schema_id) = 'dbo' ORDER BY o.name, c.column_id"_s;
}

QString PermissionsQuestion() {
    return u"SELECT o.name AS ObjectName, p.subentity_name AS ColumnName, p.permission_name AS Permission, "
           "IS_MEMBER('tarven_hemodialysis_standby') AS Standby FROM sys.objects AS o "
           "CROSS APPLY sys.fn_my_permissions(CONCAT('dbo.', QUOTENAME(o.name)), 'OBJECT') AS p "
           "WHERE o.type IN ('U', 'V', 'P') AND SCHEMA_NAME(o.schema_id) = 'dbo' ORDER BY o.name"_s;
}

QString DatabasePermissionsQuestion() {
    return u"SELECT p.permission_name AS Permission FROM sys.fn_my_permissions(NULL, 'DATABASE') AS p"_s;
}
