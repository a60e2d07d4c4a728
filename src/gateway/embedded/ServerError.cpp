#include "gateway/embedded/ServerError.h"

using namespace Qt::StringLiterals;

namespace {

struct FaultText {
    const char* state;
    const char* text;
};

FaultText TextOf(Fault fault) {
    switch (fault) {
    case Fault::IncorrectSyntax:
        return {"42000", "Incorrect syntax near '%1'."};
    case Fault::OrderInUnion:
        return {"42000", "ORDER BY items must appear in the select list if the statement contains a UNION, "
                         "INTERSECT or EXCEPT operator."};
    case Fault::UnclosedQuote:
        return {"42000", "Unclosed quotation mark after the character string '%1'."};
    case Fault::OrderPosition:
        return {"42000",
                "The ORDER BY position number %1 is out of range of the number of items in the select list."};
    case Fault::FewerValuesThanColumns:
        return {"21S01", "There are more columns in the INSERT statement than values specified in the VALUES "
                         "clause. The number of values in the VALUES clause must match the number of columns "
                         "specified in the INSERT statement."};
    case Fault::MoreValuesThanColumns:
        return {"21S01", "There are fewer columns in the INSERT statement than values specified in the "
                         "VALUES clause. The number of values in the VALUES clause must match the number of "
                         "columns specified in the INSERT statement."};
    case Fault::UnclosedComment:
        return {"42000", "Missing end comment mark '*/'."};
    case Fault::PositionalAfterNamed:
        return {"42000", "Must pass parameter number %1 and subsequent parameters as '@name = value'. After "
                         "the form '@name = value' has been used, all subsequent parameters must be passed "
                         "in the form '@name = value'."};
    case Fault::FewerSelectedThanColumns:
        return {"21S01", "The select list for the INSERT statement contains fewer items than the insert "
                         "list. The number of SELECT values must match the number of INSERT columns."};
    case Fault::MoreSelectedThanColumns:
        return {"21S01", "The select list for the INSERT statement contains more items than the insert list. "
                         "The number of SELECT values must match the number of INSERT columns."};
    case Fault::UndeclaredVariable:
        return {"42000", "Must declare the scalar variable \"%1\"."};
    case Fault::OrderNotSelected:
        return {"42000", "ORDER BY items must appear in the select list if SELECT DISTINCT is specified."};
    case Fault::AggregateInWhere:
        return {"42000",
                "An aggregate may not appear in the WHERE clause unless it is in a subquery contained in a "
                "HAVING clause or a select list, and the column being aggregated is an outer reference."};
    case Fault::UnknownDatePart:
        return {"42000", "'%1' is not a recognized %2 option."};
    case Fault::IncorrectSyntaxNearKeyword:
        return {"42000", "Incorrect syntax near the keyword '%1'."};
    case Fault::ArgumentCount:
        return {"42000", "The %1 function requires %2 argument(s)."};
    case Fault::TooDeep:
        return {"42000", "Some part of your SQL statement is nested too deeply. Rewrite the query or break "
                         "it up into smaller queries."};
    case Fault::UnknownFunction:
        return {"42000", "'%1' is not a recognized built-in function name."};
    case Fault::MissingArgument:
        return {"42000", "Procedure or function '%1' expects parameter '%2', which was not supplied."};
    case Fault::UnionLengths:
        return {"42000", "All queries combined using a UNION, INTERSECT or EXCEPT operator must have an "
                         "equal number of expressions in their target lists."};
    case Fault::OperandClash:
        return {"22018", "Operand type clash: %1 is incompatible with %2"};
    case Fault::InvalidColumn:
        return {"42S22", "Invalid column name '%1'."};
    case Fault::InvalidObject:
        return {"42S02", "Invalid object name '%1'."};
    case Fault::AmbiguousColumn:
        return {"42000", "Ambiguous column name '%1'."};
    case Fault::ValueListLength:
        return {"21S01", "Column name or number of supplied values does not match table definition."};
    case Fault::TextToMoney:
        return {"22018", "Cannot convert a char value to money. The char value has incorrect syntax."};
    case Fault::TextToDate:
        return {"22007", "Conversion failed when converting date and/or time from character string."};
    case Fault::DateOutOfRange:
        return {"22007",
                "The conversion of a %1 data type to a %2 data type resulted in an out-of-range value."};
    case Fault::ConversionFailed:
        return {"22018", "Conversion failed when converting the %1 value '%2' to data type %3."};
    case Fault::TextOverflow:
        return {"22003", "The conversion of the %1 value '%2' overflowed an %3 column."};
    case Fault::DuplicateColumn:
        return {"42000", "The column name '%1' is specified more than once in the SET clause or column list "
                         "of an INSERT. A column cannot be assigned more than one value in the same clause."};
    case Fault::UnknownStyle:
        return {"42000", "%1 is not a valid style number when converting from %2 to a character string."};
    case Fault::IncompatibleTypes:
        return {"42000", "The data types %1 and %2 are incompatible in the %3 operator."};
    case Fault::UnknownCollation:
        return {"42000", "Invalid collation '%1'."};
    case Fault::NullNotAllowed:
        return {"23000",
                "Cannot insert the value NULL into column '%1', table '%2'; column does not allow nulls."};
    case Fault::IdentityInsert:
        return {"23000", "Cannot insert explicit value for identity column in table '%1' when "
                         "IDENTITY_INSERT is set to OFF."};
    case Fault::InputOutput:
        return {"HY000", "The operating system returned an error while the hospital's file '%1' was read or "
                         "written (%2)."};
    case Fault::Damaged:
        return {"HY000", "The hospital's file '%1' is damaged (%2)."};
    case Fault::OtherVersion:
        return {"HY000", "The hospital's file '%1' was made by another version of this program and cannot be "
                         "used by this one."};
    case Fault::NamedTwice:
        return {"42000", "The correlation name '%1' is specified multiple times in a FROM clause."};
    case Fault::OrderByInSubquery:
        return {"42000",
                "The ORDER BY clause is invalid in views, inline functions, derived tables, subqueries, and "
                "common table expressions, unless TOP, OFFSET or FOR XML is also specified."};
    case Fault::DiskFull:
        return {"HY000", "Could not allocate space for the hospital's file '%1': the disk is full."};
    case Fault::LockTimeout:
        return {"42000", "Lock request time out period exceeded."};
    case Fault::DuplicateKey:
        return {"23000", "Violation of PRIMARY KEY or UNIQUE constraint (%2). Cannot insert duplicate key in "
                         "object '%1'."};
    case Fault::ObjectExists:
        return {"42S01", "There is already an object named '%1' in the database."};
    case Fault::UnknownType:
        return {"42000", "Cannot find data type %1."};
    case Fault::UnknownProcedure:
        return {"42000", "Could not find stored procedure '%1'."};
    case Fault::ReadOnly:
        return {"42000", "Failed to update the hospital's file '%1' because it is read-only."};
    case Fault::UnboundName:
        return {"42000", "The multi-part identifier \"%1\" could not be bound."};
    case Fault::CannotOpen:
        return {"HY000", "Unable to open the hospital's file '%1': %2."};
    case Fault::NoHospital:
        return {"HY000", "The file '%1' is no hospital of this program: %2."};
    case Fault::IdentityUpdate:
        return {"42000", "Cannot update identity column '%1'."};
    case Fault::ArgumentConversion:
        return {"42000", "Error converting data type %1 to %2."};
    case Fault::Overflow:
        return {"22003", "Arithmetic overflow error converting expression to data type %1."};
    case Fault::InvalidOperand:
        return {"42000", "Operand data type %1 is invalid for %2 operator."};
    case Fault::NotGrouped:
        return {"42000", "Column '%1' is invalid in the select list because it is not contained in either an "
                         "aggregate function or the GROUP BY clause."};
    case Fault::OrderNotGrouped:
        return {"42000", "Column \"%1\" is invalid in the ORDER BY clause because it is not contained in "
                         "either an aggregate function or the GROUP BY clause."};
    case Fault::DivideByZero:
        return {"22012", "Divide by zero error encountered."};
    case Fault::SuppliedTwice:
        return {"42000", "Parameter '%1' was supplied multiple times."};
    case Fault::TooManyArguments:
        return {"42000", "Procedure or function %1 has too many arguments specified."};
    case Fault::NoSuchParameter:
        return {"42000", "%1 is not a parameter for procedure %2."};
    case Fault::TextTruncated:
        return {"22001", "String or binary data would be truncated."};
    case Fault::CannotPrepare:
        return {"42000", "Statement(s) could not be prepared (%1)."};
    case Fault::TooManyRows:
        return {"42000", "The number of row value expressions in the INSERT statement exceeds the maximum "
                         "allowed number of 1000 row values."};
    case Fault::QueryTimeout:
        return {"HYT00", "Query timeout expired"};
    }
    return {"HY000", ""};
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
