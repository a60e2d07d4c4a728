#include "check/questions.h"

using namespace Qt::StringLiterals;

QString SessionQuestion() {
    return u"SELECT s.language AS Language, s.date_format AS DateOrder, "
           "s.transaction_isolation_level AS Isolation, GETDATE() AS Clock, "
           "DATEDIFF(minute, GETUTCDATE(), GETDATE()) AS Zone "
           "FROM sys.dm_exec_sessions AS s WHERE s.session_id = @@SPID"_s;
}

QString DatabasesQuestion() {
    return u"SELECT d.name AS DatabaseName, d.collation_name AS CollationName, d.state_desc AS State, "
           "d.is_db_chaining_on AS Chaining, d.is_read_only AS ReadOnly, "
           "d.is_read_committed_snapshot_on AS Snapshot, CONVERT(varchar(200), d.owner_sid, 2) AS Owner FROM sys.databases AS d"_s;
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
