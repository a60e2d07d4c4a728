#include "text/RunTimeError.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<std::pair<int, const char*>, 17> kTexts = {{
    {RunTime::kOverflow, "Overflow"},
    {RunTime::kOutOfMemory, "Out of memory"},
    {RunTime::kSubscriptOutOfRange, "Subscript out of range"},
    {RunTime::kTypeMismatch, "Type mismatch"},
    {RunTime::kFileNotFound, "File not found"},
    {RunTime::kPathFileAccess, "Path/File access error"},
    {RunTime::kObjectNotSet, "Object variable or With block variable not set"},
    {RunTime::kInvalidUseOfNull, "Invalid use of Null"},
    {RunTime::kInvalidPropertyValue, "Invalid property value"},
    {RunTime::kCannotCreateObject, "ActiveX component can't create object"},
    {RunTime::kNoCurrentRecord,
     "Either BOF or EOF is True, or the current record has been deleted. Requested "
     "operation requires a current record."},
    {RunTime::kNotUpdatable,
     "Current Recordset does not support updating. This may be a limitation of the provider, or of the "
     "selected locktype."},
    {RunTime::kItemNotFound,
     "Item cannot be found in the collection corresponding to the requested name or ordinal."},
    {RunTime::kObjectClosed, "Operation is not allowed when the object is closed."},
    {RunTime::kInvalidRow, "Invalid Row value"},
    {RunTime::kInvalidCol, "Invalid Col value"},
    {RunTime::kRowChanged,
     "Row cannot be located for updating. Some values may have been changed since it was "
     "last read."},
}};

} // namespace

RunTimeError::RunTimeError(int number, const QString& description, const QString& state)
    : mNumber(number)
    , mDescription(description)
    , mState(state)
    , mWhat(description.toUtf8()) {}

QString RunTime::TextOf(int number) {
    for (const auto& [known, text] : kTexts) {
        if (known == number)
            return QString::fromLatin1(text);
    }
    return {};
}

RunTimeError RunTime::Error(int number) {
    return RunTimeError(number, TextOf(number));
}
