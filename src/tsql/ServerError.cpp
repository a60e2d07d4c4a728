#include "tsql/ServerError.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct FaultText {
    Fault fault;
    const char* state;
    const char* text;
};

constexpr std::array kTexts = std::to_array<FaultText>({
    {Fault::IncorrectSyntax, "42000", "Incorrect syntax near '%1'."},
    {Fault::OrderInUnion, "42000",
     "ORDER BY items must appear in the select list if the statement contains a UNION, "
     "INTERSECT or EXCEPT operator."},
    {Fault::UnclosedQuote, "42000", "Unclosed quotation mark after the character string '%1'."},
    {Fault::TooManyTables, "42000", "Too many table names in the query. The maximum allowable is %1."},
    {Fault::OrderPosition, "42000",
     "The ORDER BY position number %1 is out of range of the number of items in the select list."},
    {Fault::FewerValuesThanColumns, "21S01",
     "There are more columns in the INSERT statement than values specified in the VALUES "
     "clause. The number of values in the VALUES clause must match the number of columns "
     "specified in the INSERT statement."},
    {Fault::MoreValuesThanColumns, "21S01",
     "There are fewer columns in the INSERT statement than values specified in the "
     "VALUES clause. The number of values in the VALUES clause must match the number of "
     "columns specified in the INSERT statement."},
    {Fault::UnclosedComment, "42000", "Missing end comment mark '*/'."},
    {Fault::PositionalAfterNamed, "42000",
     "Must pass parameter number %1 and subsequent parameters as '@name = value'. After "
     "the form '@name = value' has been used, all subsequent parameters must be passed "
     "in the form '@name = value'."},
    {Fault::FewerSelectedThanColumns, "21S01",
     "The select list for the INSERT statement contains fewer items than the insert "
     "list. The number of SELECT values must match the number of INSERT columns."},
    {Fault::MoreSelectedThanColumns, "21S01",
     "The select list for the INSERT statement contains more items than the insert list. "
     "The number of SELECT values must match the number of INSERT columns."},
    {Fault::NegativeTop, "42000", "A TOP N or FETCH rowcount value may not be negative."},
    {Fault::NestedAggregate, "42000",
     "Cannot perform an aggregate function on an expression containing an aggregate or a subquery."},
    {Fault::TextTooLong, "42000",
     "The size (%1) given to the type '%2' exceeds the maximum allowed for any data type (8000)."},
    {Fault::UndeclaredVariable, "42000", "Must declare the scalar variable \"%1\"."},
    {Fault::AggregateInGroupBy, "42000",
     "Cannot use an aggregate or a subquery in an expression used for the group by list of a GROUP BY "
     "clause."},
    {Fault::OrderNotSelected, "42000",
     "ORDER BY items must appear in the select list if SELECT DISTINCT is specified."},
    {Fault::AggregateInWhere, "42000",
     "An aggregate may not appear in the WHERE clause unless it is in a subquery contained in a "
     "HAVING clause or a select list, and the column being aggregated is an outer reference."},
    {Fault::UnknownDatePart, "42000", "'%1' is not a recognized %2 option."},
    {Fault::IncorrectSyntaxNearKeyword, "42000", "Incorrect syntax near the keyword '%1'."},
    {Fault::GroupByWithoutColumn, "42000",
     "Each GROUP BY expression must contain at least one column that is not an outer reference."},
    {Fault::ArgumentCount, "42000", "The %1 function requires %2 argument(s)."},
    {Fault::FloatOutOfRange, "42000",
     "The floating point value '%1' is out of the range of computer representation (8 bytes)."},
    {Fault::TooDeep, "42000",
     "Some part of your SQL statement is nested too deeply. Rewrite the query or break "
     "it up into smaller queries."},
    {Fault::ScaleBeyondPrecision, "42000", "The scale must be less than or equal to the precision."},
    {Fault::UnknownFunction, "42000", "'%1' is not a recognized built-in function name."},
    {Fault::MissingArgument, "42000",
     "Procedure or function '%1' expects parameter '%2', which was not supplied."},
    {Fault::UnionLengths, "42000",
     "All queries combined using a UNION, INTERSECT or EXCEPT operator must have an "
     "equal number of expressions in their target lists."},
    {Fault::OperandClash, "22018", "Operand type clash: %1 is incompatible with %2"},
    {Fault::InvalidColumn, "42S22", "Invalid column name '%1'."},
    {Fault::InvalidObject, "42S02", "Invalid object name '%1'."},
    {Fault::AmbiguousColumn, "42000", "Ambiguous column name '%1'."},
    {Fault::ValueListLength, "21S01",
     "Column name or number of supplied values does not match table definition."},
    {Fault::FloatOverflow, "22003", "Arithmetic overflow error for type %1, value = %2."},
    {Fault::MoneyToText, "22003", "There is insufficient result space to convert a money value to %1."},
    {Fault::TextToMoney, "22018",
     "Cannot convert a char value to money. The char value has incorrect syntax."},
    {Fault::TextToDate, "22007", "Conversion failed when converting date and/or time from character string."},
    {Fault::DateOutOfRange, "22007",
     "The conversion of a %1 data type to a %2 data type resulted in an out-of-range value."},
    {Fault::ConversionFailed, "22018",
     "Conversion failed when converting the %1 value '%2' to data type %3."},
    {Fault::TextOverflow, "22003", "The conversion of the %1 value '%2' overflowed an %3 column."},
    {Fault::ImplicitConversion, "42000",
     "Implicit conversion from data type %1 to %2 is not allowed. Use the CONVERT function to run this "
     "query."},
    {Fault::DuplicateColumn, "42000",
     "The column name '%1' is specified more than once in the SET clause or column list "
     "of an INSERT. A column cannot be assigned more than one value in the same clause."},
    {Fault::UnknownStyle, "42000",
     "%1 is not a valid style number when converting from %2 to a character string."},
    {Fault::IncompatibleTypes, "42000", "The data types %1 and %2 are incompatible in the %3 operator."},
    {Fault::ConstantInOrder, "42000",
     "A constant expression was encountered in the ORDER BY list, position %1."},
    {Fault::UnknownCollation, "42000", "Invalid collation '%1'."},
    {Fault::SeveralRows, "21000",
     "Subquery returned more than 1 value. This is not permitted when the subquery follows =, !=, <, <= , >, "
     ">= or when the subquery is used as an expression."},
    {Fault::NullNotAllowed, "23000",
     "Cannot insert the value NULL into column '%1', table '%2'; column does not allow nulls."},
    {Fault::DateAddOverflow, "22007", "Adding a value to a '%1' column caused an overflow."},
    {Fault::ExplicitConversion, "42000", "Explicit conversion from data type %1 to %2 is not allowed."},
    {Fault::DateDiffOverflow, "22003",
     "The datediff function resulted in an overflow. The number of dateparts separating two date/time "
     "instances is too large. Try to use datediff with a less precise datepart."},
    {Fault::NegativeLength, "42000", "Invalid length parameter passed to the %1 function."},
    {Fault::NegativeSubstring, "42000", "Invalid length parameter passed to the LEFT or SUBSTRING function."},
    {Fault::IdentityInsert, "23000",
     "Cannot insert explicit value for identity column in table '%1' when "
     "IDENTITY_INSERT is set to OFF."},
    {Fault::InputOutput, "HY000",
     "The operating system returned an error while the hospital's file '%1' was read or "
     "written (%2)."},
    {Fault::Damaged, "HY000", "The hospital's file '%1' is damaged."},
    {Fault::NoSuchDatabase, "08004",
     "Database '%1' does not exist. Make sure that the name is entered correctly."},
    {Fault::OtherVersion, "HY000",
     "The hospital's file '%1' was made by another version of this program and cannot be "
     "used by this one."},
    {Fault::InvalidLength, "42000", "Line %1: Length or precision specification %2 is invalid."},
    {Fault::NumberTooLong, "42000",
     "The number '%1' is out of the range for numeric representation (maximum precision 38)."},
    {Fault::NamedTwice, "42000", "The correlation name '%1' is specified multiple times in a FROM clause."},
    {Fault::OrderByInSubquery, "42000",
     "The ORDER BY clause is invalid in views, inline functions, derived tables, subqueries, and "
     "common table expressions, unless TOP, OFFSET or FOR XML is also specified."},
    {Fault::InvalidTop, "42000",
     "The number of rows provided for a TOP or FETCH clauses row count parameter must be an integer."},
    {Fault::DiskFull, "HY000", "Could not allocate space for the hospital's file '%1': the disk is full."},
    {Fault::LockTimeout, "42000", "Lock request time out period exceeded."},
    {Fault::DuplicateIndexKey, "23000",
     "Cannot insert duplicate key row in object '%1' with unique index '%2'."},
    {Fault::DuplicateKey, "23000",
     "Violation of PRIMARY KEY or UNIQUE constraint (%2). Cannot insert duplicate key in "
     "object '%1'."},
    {Fault::ObjectExists, "42S01", "There is already an object named '%1' in the database."},
    {Fault::UnknownType, "42000", "Cannot find data type %1."},
    {Fault::NationalTextTooLong, "42000",
     "The size (%1) given to the type '%2' exceeds the maximum allowed (4000)."},
    {Fault::UnknownProcedure, "42000", "Could not find stored procedure '%1'."},
    {Fault::InUse, "42000", "Cannot replace the hospital's file '%1' because it is currently in use."},
    {Fault::ReadOnly, "42000", "Failed to update the hospital's file '%1' because it is read-only."},
    {Fault::UnboundName, "42000", "The multi-part identifier \"%1\" could not be bound."},
    {Fault::CoalesceOfNulls, "42000",
     "At least one of the arguments to COALESCE must be an expression that is not the NULL constant."},
    {Fault::CannotOpen, "HY000", "Unable to open the hospital's file '%1': %2."},
    {Fault::NoHospital, "HY000", "The file '%1' is no hospital of this program: %2."},
    {Fault::IdentityUpdate, "42000", "Cannot update identity column '%1'."},
    {Fault::ArgumentConversion, "42000", "Error converting data type %1 to %2."},
    {Fault::Overflow, "22003", "Arithmetic overflow error converting expression to data type %1."},
    {Fault::InvalidOperand, "42000", "Operand data type %1 is invalid for %2 operator."},
    {Fault::NotGrouped, "42000",
     "Column '%1' is invalid in the select list because it is not contained in either an "
     "aggregate function or the GROUP BY clause."},
    {Fault::OrderNotGrouped, "42000",
     "Column \"%1\" is invalid in the ORDER BY clause because it is not contained in "
     "either an aggregate function or the GROUP BY clause."},
    {Fault::CaseOfNulls, "42000",
     "At least one of the result expressions in a CASE specification must be an expression other than the "
     "NULL constant."},
    {Fault::DivideByZero, "22012", "Divide by zero error encountered."},
    {Fault::SuppliedTwice, "42000", "Parameter '%1' was supplied multiple times."},
    {Fault::TooManyArguments, "42000", "Procedure or function %1 has too many arguments specified."},
    {Fault::NoSuchParameter, "42000", "%1 is not a parameter for procedure %2."},
    {Fault::TextTruncated, "22001", "String or binary data would be truncated."},
    {Fault::CannotPrepare, "42000", "Statement(s) could not be prepared."},
    {Fault::TooComplex, "42000",
     "The query processor ran out of internal resources and could not produce a query plan. This is a rare "
     "event and only expected for extremely complex queries or queries that reference a very large number "
     "of tables or partitions. Please simplify the query."},
    {Fault::DatePartOfDate, "42000",
     "The datepart %1 is not supported by date function %2 for data type date."},
    {Fault::TooManyRows, "42000",
     "The number of row value expressions in the INSERT statement exceeds the maximum "
     "allowed number of 1000 row values."},
    {Fault::LoginFailed, "28000", "Login failed for user '%1'."},
    {Fault::QueryTimeout, "HYT00", "Query timeout expired"},
    {Fault::Cancelled, "HY008", "Operation was canceled."},
});

FaultText TextOf(Fault fault) {
    const auto* known = std::find_if(kTexts.begin(), kTexts.end(),
                                     [fault](const FaultText& text) { return text.fault == fault; });
    return known != kTexts.end() ? *known : FaultText{fault, "HY000", ""};
}

} // namespace

RunTimeError ServerError(Fault fault, const QStringList& parts) {
    const FaultText known = TextOf(fault);
    const QString pattern = QString::fromLatin1(known.text);
    // Not QString::arg: a part may contain "%1" itself, as any text that a clerk keys.
    QString text;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == u'%' && i + 1 < pattern.size() && pattern[i + 1].isDigit())
            text += parts.value(pattern[++i].digitValue() - 1);
        else
            text += pattern[i];
    }
    return RunTimeError(static_cast<int>(fault), text, QString::fromLatin1(known.state));
}
