#include "trial/sqlite/SqlFunctions.h"

#include "gateway/Boundary.h"
#include "trial/sqlite/Collation.h"
#include "trial/sqlite/DateFunctions.h"
#include "trial/sqlite/SqliteDatabase.h"
#include "trial/sqlite/TextFunctions.h"
#include "tsql/ArithmeticType.h"
#include "tsql/Decimals.h"
#include "tsql/ServerError.h"
#include "tsql/SqlType.h"
#include "tsql/Units.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <span>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
constexpr int kAnyCount = -1;
constexpr int kMostPlaces = 15;

using Arguments = std::span<sqlite3_value*>;
using Function = Cell (*)(Arguments);

bool IsNull(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}
bool AnyNull(Arguments arguments) {
    return std::any_of(arguments.begin(), arguments.end(), IsNull);
}
qint64 Whole(sqlite3_value* value) {
    return sqlite3_value_int64(value);
}

QByteArrayView Text(sqlite3_value* value) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {bytes, sqlite3_value_bytes(value)};
}

QByteArray OwnText(sqlite3_value* value) {
    return Text(value).toByteArray();
}

void SetResult(sqlite3_context* context, const Cell& cell) {
    if (const auto* whole = std::get_if<qint64>(&cell))
        sqlite3_result_int64(context, *whole);
    else if (const auto* real = std::get_if<double>(&cell))
        sqlite3_result_double(context, *real);
    else if (const auto* text = std::get_if<QByteArray>(&cell))
        sqlite3_result_text64(context, text->constData(), static_cast<sqlite3_uint64>(text->size()),
                              SQLITE_TRANSIENT, SQLITE_UTF8);
    else
        sqlite3_result_null(context);
}

SqliteDatabase& DatabaseOf(sqlite3_context* context) {
    return *static_cast<SqliteDatabase*>(sqlite3_user_data(context));
}

/// No exception may pass through SQLite: what was raised waits at the database until the statement has
/// failed.
template <class Action> void Guard(sqlite3_context* context, Action action) noexcept {
    try {
        action();
    } catch (...) {
        DatabaseOf(context).FunctionError() = FailureInHand();
        sqlite3_result_error(context, "a function failed", -1);
    }
}

template <Function F> void Call(sqlite3_context* context, int count, sqlite3_value** values) {
    Guard(context, [&] { SetResult(context, F({values, static_cast<size_t>(count)})); });
}

/// A function that may take long, and is Null where any argument is.
template <Cell (*F)(Arguments, const WorkStep&)>
void CallLong(sqlite3_context* context, int count, sqlite3_value** values) {
    Guard(context, [&] {
        SqliteDatabase& database = DatabaseOf(context);
        const Arguments arguments{values, static_cast<size_t>(count)};
        const WorkStep step = [&database] { database.CountStep(); };
        SetResult(context, AnyNull(arguments) ? Cell() : F(arguments, step));
    });
}

[[noreturn]] void RaiseBigIntOverflow() {
    throw ServerError(Fault::Overflow, {SqlType::BigInt().Name()});
}

template <Function F> Cell NullIfAnyNull(Arguments a) {
    return AnyNull(a) ? Cell() : F(a);
}

Cell ConvertCell(Arguments a) {
    return Convert(ReadCell(a[0]), SqlType::Decode(Whole(a[1])), SqlType::Decode(Whole(a[2])),
                   ConversionPlace::Expression, static_cast<int>(Whole(a[3])));
}
Cell AssignCell(Arguments a) {
    return Convert(ReadCell(a[0]), SqlType::Decode(Whole(a[1])), SqlType::Decode(Whole(a[2])),
                   ConversionPlace::Column, static_cast<int>(Whole(a[3])));
}
/// The first argument is the number of characters that the text may have.
Cell Concat(Arguments a) {
    QByteArray joined;
    for (sqlite3_value* value : a.subspan(1))
        joined += IsNull(value) ? QByteArrayView() : Text(value);
    return FirstCharacters(joined, Whole(a[0]));
}
Cell Cut(Arguments a) {
    return FirstCharacters(OwnText(a[0]), Whole(a[1]));
}
Cell Len(Arguments a) {
    return LengthWithoutTail(Text(a[0]));
}
Cell Left(Arguments a) {
    return LeftCharacters(OwnText(a[0]), Whole(a[1]));
}
Cell Right(Arguments a) {
    return LastCharacters(OwnText(a[0]), Whole(a[1]));
}
Cell Substring(Arguments a) {
    return MiddleCharacters(OwnText(a[0]), Whole(a[1]), Whole(a[2]));
}
Cell Upper(Arguments a) {
    return UpperText(Text(a[0]));
}
Cell Lower(Arguments a) {
    return LowerText(Text(a[0]));
}
Cell LTrim(Arguments a) {
    return WithoutHead(Text(a[0]));
}
Cell RTrim(Arguments a) {
    return WithoutTail(Text(a[0]));
}
Cell Replace(Arguments a, const WorkStep& step) {
    return ReplacedText(OwnText(a[0]), OwnText(a[1]), OwnText(a[2]), Whole(a[3]), step);
}
Cell Replicate(Arguments a) {
    return Whole(a[1]) < 0 ? Cell() : RepeatedText(OwnText(a[0]), Whole(a[1]), Whole(a[2]));
}
Cell Like(Arguments a, const WorkStep& step) {
    return qint64(MatchesPattern(Text(a[0]), Text(a[1]), Whole(a[2]) != 0, step));
}
/// The number behind TOP.
Cell Top(Arguments a) {
    if (IsNull(a[0]))
        throw ServerError(Fault::InvalidTop);
    if (Whole(a[0]) < 0)
        throw ServerError(Fault::NegativeTop);
    return Whole(a[0]);
}
Cell DateAdd(Arguments a) {
    return AddToDate(Text(a[0]), Whole(a[1]), Text(a[2]));
}
Cell DateSum(Arguments a) {
    return SumOfDates(Text(a[0]), Whole(a[1]), Text(a[2]));
}
Cell DateDiff(Arguments a) {
    return DateDifference(Text(a[0]), Text(a[1]), Text(a[2]));
}
Cell DatePart(Arguments a) {
    return PartOfDate(Text(a[0]), Text(a[1]));
}

SqlType TypeAt(Arguments a, size_t at) {
    return SqlType::Decode(Whole(a[at]));
}

Units UnitsAt(Arguments a, size_t at, const SqlType& type) {
    return ReadUnits(ReadCell(a[at]), type);
}

Cell Fixed(const std::optional<Units>& units, const SqlType& type) {
    const auto cell = units ? UnitsCell(*units, type) : std::nullopt;
    if (!cell)
        throw ServerError(Fault::Overflow, {type.Name()});
    return *cell;
}

Cell RoundFloat(double value, qint64 places, bool cut) {
    const int kept = static_cast<int>(std::clamp<qint64>(places, -kMostPlaces, kMostPlaces));
    return cut ? TruncateToScale(value, kept) : RoundToScale(value, kept);
}

Cell Round(Arguments a) {
    const SqlType type = TypeAt(a, 3);
    const bool cut = Whole(a[2]) != 0;
    if (type.kind == SqlType::Kind::Float)
        return RoundFloat(sqlite3_value_double(a[0]), Whole(a[1]), cut);
    const int places = static_cast<int>(std::clamp<qint64>(Whole(a[1]), -kMostDigits, kMostDigits));
    if (places >= type.scale)
        return ReadCell(a[0]);
    const Units units = UnitsAt(a, 0, type);
    const auto rounded = cut ? CutBehind(units, type.scale, places)
                             : Rescaled(*Rescaled(units, type.scale, places), places, type.scale);
    if (type.IsFixed())
        return Fixed(rounded, type);
    // A whole number is held to what its own type can hold afterwards.
    const auto whole = rounded ? UnitsCell(*rounded, SqlType::Money()) : std::nullopt;
    if (!whole)
        RaiseBigIntOverflow();
    return *whole;
}

Cell Multiply(Arguments a) {
    const SqlType left = TypeAt(a, 1);
    const SqlType right = TypeAt(a, 3);
    const SqlType type = TypeAt(a, 4);
    return Fixed(Product(UnitsAt(a, 0, left), UnitsAt(a, 2, right), left.scale + right.scale - type.scale),
                 type);
}

template <bool WantsRest> Cell Divide(Arguments a) {
    const SqlType left = TypeAt(a, 1);
    const SqlType right = TypeAt(a, 3);
    const SqlType type = TypeAt(a, 4);
    const Units dividend = UnitsAt(a, 0, left);
    const Units divisor = UnitsAt(a, 2, right);
    if (divisor == 0)
        throw ServerError(Fault::DivideByZero);
    if (WantsRest)
        return Fixed(Remainder(dividend, type.scale - left.scale, divisor, type.scale - right.scale), type);
    return Fixed(Quotient(dividend, divisor, type.scale - left.scale + right.scale), type);
}

/// The sum of ints, looked at after each of them.
Cell IntSum(Arguments a) {
    qint64 sum = 0;
    for (sqlite3_value* term : a) {
        if (IsNull(term))
            return {};
        sum += Whole(term);
        if (sum != static_cast<qint32>(sum))
            throw ServerError(Fault::Overflow, {SqlType::Int().Name()});
    }
    return sum;
}

/// The type of the sum, then each term behind its type; that of a term to subtract is negative.
Cell Total(Arguments a) {
    const SqlType type = TypeAt(a, 0);
    std::optional<Units> sum = 0;
    for (size_t i = 1; i + 1 < a.size() && sum; i += 2) {
        const qint64 code = Whole(a[i]);
        const SqlType termType = SqlType::Decode(std::abs(code));
        const auto term = Rescaled(UnitsAt(a, i + 1, termType), termType.scale, type.scale);
        if (!term)
            sum.reset();
        else
            sum = Rescaled(code < 0 ? *sum - *term : *sum + *term, 0, 0);
    }
    return Fixed(sum, type);
}

Cell Abs(Arguments a) {
    const SqlType type = TypeAt(a, 1);
    const Units units = UnitsAt(a, 0, type);
    return Fixed(units < 0 ? -units : units, type);
}

template <bool WantsRest> Cell DivideNumbers(Arguments a) {
    const bool whole =
        sqlite3_value_type(a[0]) == SQLITE_INTEGER && sqlite3_value_type(a[1]) == SQLITE_INTEGER;
    if (sqlite3_value_double(a[1]) == 0)
        throw ServerError(Fault::DivideByZero);
    if (whole && Whole(a[1]) == -1) {
        qint64 negative = 0;
        if (!WantsRest && __builtin_sub_overflow(qint64(0), Whole(a[0]), &negative))
            RaiseBigIntOverflow();
        return negative;
    }
    if (whole)
        return WantsRest ? Whole(a[0]) % Whole(a[1]) : Whole(a[0]) / Whole(a[1]);
    return sqlite3_value_double(a[0]) / sqlite3_value_double(a[1]);
}

/// Where 64 bits are too few for a whole number SQLite goes on with a real one.
Cell BigInt(Arguments a) {
    if (sqlite3_value_type(a[0]) != SQLITE_INTEGER)
        RaiseBigIntOverflow();
    return Whole(a[0]);
}
Cell Money(Arguments a) {
    if (sqlite3_value_type(a[0]) != SQLITE_INTEGER)
        throw ServerError(Fault::Overflow, {SqlType::Money().Name()});
    return Whole(a[0]);
}
Cell Float(Arguments a) {
    const double value = sqlite3_value_double(a[0]);
    if (!std::isfinite(value))
        throw ServerError(Fault::Overflow, {SqlType::Float().Name()});
    return value;
}

/// A sum of money or decimals in their units. In halves, since SQLite's memory has no room for whole ones at
/// the places where they may lie.
struct FixedSum {
    qint64 high = 0;
    quint64 low = 0;
    qint64 count = 0;
    qint64 type = 0;

    Units Get() const { return (Units(high) << 64) | low; }
    void Set(Units units) {
        high = static_cast<qint64>(units >> 64);
        low = static_cast<quint64>(units);
    }
};

void StepSum(sqlite3_context* context, int count, sqlite3_value** values) {
    auto* sum = static_cast<FixedSum*>(sqlite3_aggregate_context(context, sizeof(FixedSum)));
    if (!sum)
        return sqlite3_result_error_nomem(context);
    if (IsNull(values[0]))
        return;
    Guard(context, [&] {
        const Arguments arguments(values, static_cast<size_t>(count));
        const SqlType type = TypeAt(arguments, 1);
        sum->type = Whole(values[1]);
        ++sum->count;
        const auto total = Rescaled(sum->Get() + UnitsAt(arguments, 0, type), 0, 0);
        if (!total)
            throw ServerError(Fault::Overflow, {type.Name()});
        sum->Set(*total);
    });
}

template <bool Average> void FinishSum(sqlite3_context* context) {
    const auto* sum = static_cast<FixedSum*>(sqlite3_aggregate_context(context, 0));
    if (!sum || sum->count == 0)
        return sqlite3_result_null(context);
    Guard(context, [&] {
        const SqlType from = SqlType::Decode(sum->type);
        const SqlType type = Average ? AverageType(from) : SumType(from);
        SetResult(context, Fixed(Average ? Quotient(sum->Get(), sum->count, type.scale - from.scale)
                                         : std::optional(sum->Get()),
                                 type));
    });
}

/// The one row that a subquery may have which stands for a value.
struct OnlyRow {
    bool seen = false;
    sqlite3_value* value = nullptr;
};

void StepOnly(sqlite3_context* context, int, sqlite3_value** values) {
    auto* row = static_cast<OnlyRow*>(sqlite3_aggregate_context(context, sizeof(OnlyRow)));
    if (!row)
        return sqlite3_result_error_nomem(context);
    if (row->seen)
        return Guard(context, [] { throw ServerError(Fault::SeveralRows); });
    row->seen = true;
    row->value = sqlite3_value_dup(values[0]);
    if (!row->value)
        sqlite3_result_error_nomem(context);
}

void FinishOnly(sqlite3_context* context) {
    const auto* row = static_cast<OnlyRow*>(sqlite3_aggregate_context(context, 0));
    if (!row || !row->value)
        return sqlite3_result_null(context);
    sqlite3_result_value(context, row->value);
    sqlite3_value_free(row->value);
}

void SessionUser(sqlite3_context* context, int, sqlite3_value**) {
    const QByteArray& user = static_cast<const SqliteDatabase*>(sqlite3_user_data(context))->SessionUser();
    sqlite3_result_text64(context, user.constData(), static_cast<sqlite3_uint64>(user.size()),
                          SQLITE_TRANSIENT, SQLITE_UTF8);
}

int Collate(void*, int sizeA, const void* a, int sizeB, const void* b) {
    return CompareTexts({static_cast<const char*>(a), sizeA}, {static_cast<const char*>(b), sizeB});
}

struct Entry {
    const char* name;
    int count;
    void (*call)(sqlite3_context*, int, sqlite3_value**);
};

constexpr std::array kFunctions = {
    Entry{"tv_convert", 4, Call<ConvertCell>},
    Entry{"tv_assign", 4, Call<AssignCell>},
    Entry{"tv_concat", kAnyCount, Call<Concat>},
    Entry{"tv_cut", 2, Call<NullIfAnyNull<Cut>>},
    Entry{"tv_top", 1, Call<Top>},
    Entry{"tv_len", 1, Call<NullIfAnyNull<Len>>},
    Entry{"tv_left", 2, Call<NullIfAnyNull<Left>>},
    Entry{"tv_right", 2, Call<NullIfAnyNull<Right>>},
    Entry{"tv_substring", 3, Call<NullIfAnyNull<Substring>>},
    Entry{"tv_upper", 1, Call<NullIfAnyNull<Upper>>},
    Entry{"tv_lower", 1, Call<NullIfAnyNull<Lower>>},
    Entry{"tv_ltrim", 1, Call<NullIfAnyNull<LTrim>>},
    Entry{"tv_rtrim", 1, Call<NullIfAnyNull<RTrim>>},
    Entry{"tv_replace", 4, CallLong<Replace>},
    Entry{"tv_replicate", 3, Call<NullIfAnyNull<Replicate>>},
    Entry{"tv_like", 3, CallLong<Like>},
    Entry{"tv_round", 4, Call<NullIfAnyNull<Round>>},
    Entry{"tv_abs", 2, Call<NullIfAnyNull<Abs>>},
    Entry{"tv_bigint", 1, Call<NullIfAnyNull<BigInt>>},
    Entry{"tv_money", 1, Call<NullIfAnyNull<Money>>},
    Entry{"tv_float", 1, Call<NullIfAnyNull<Float>>},
    Entry{"tv_intsum", kAnyCount, Call<IntSum>},
    Entry{"tv_total", kAnyCount, Call<NullIfAnyNull<Total>>},
    Entry{"tv_multiply", 5, Call<NullIfAnyNull<Multiply>>},
    Entry{"tv_divide", 5, Call<NullIfAnyNull<Divide<false>>>},
    Entry{"tv_modulo", 5, Call<NullIfAnyNull<Divide<true>>>},
    Entry{"tv_divide", 2, Call<NullIfAnyNull<DivideNumbers<false>>>},
    Entry{"tv_modulo", 2, Call<NullIfAnyNull<DivideNumbers<true>>>},
    Entry{"tv_dateadd", 3, Call<NullIfAnyNull<DateAdd>>},
    Entry{"tv_datesum", 3, Call<NullIfAnyNull<DateSum>>},
    Entry{"tv_datediff", 3, Call<NullIfAnyNull<DateDiff>>},
    Entry{"tv_datepart", 2, Call<NullIfAnyNull<DatePart>>},
};

} // namespace

void AddSqlFunctions(SqliteDatabase& database) {
    sqlite3* handle = database.Handle();
    const QByteArray collation = CollationName().toUtf8();
    int code =
        sqlite3_create_collation_v2(handle, collation.constData(), SQLITE_UTF8, nullptr, Collate, nullptr);
    for (const Entry& entry : kFunctions)
        code |= sqlite3_create_function_v2(handle, entry.name, entry.count, kFlags, &database, entry.call,
                                           nullptr, nullptr, nullptr);
    code |= sqlite3_create_function_v2(handle, "tv_sum", 2, kFlags, &database, nullptr, StepSum,
                                       FinishSum<false>, nullptr);
    code |= sqlite3_create_function_v2(handle, "tv_avg", 2, kFlags, &database, nullptr, StepSum,
                                       FinishSum<true>, nullptr);
    code |= sqlite3_create_function_v2(handle, "tv_only", 1, kFlags, &database, nullptr, StepOnly, FinishOnly,
                                       nullptr);
    code |= sqlite3_create_function_v2(handle, "tv_user", 0, SQLITE_UTF8 | SQLITE_INNOCUOUS, &database,
                                       SessionUser, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        database.Raise(code);
}

Cell ReadCell(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return sqlite3_value_int64(value);
    case SQLITE_FLOAT:
        return sqlite3_value_double(value);
    case SQLITE_NULL:
        return {};
    default:
        return OwnText(value);
    }
}
