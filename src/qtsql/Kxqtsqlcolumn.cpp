#include <kxgraph/qtsql/Kxqtsqlcolumn.h>

#include <kxgraph/platform/data/datetext.h>

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>

#include <charconv>
#include <utility>

namespace kx::qt {

namespace {

constexpr double CDay = 86400;

double SecondsOf(const QDate& Date) {
    constexpr qint64 CUnix = 2440588; // as days are counted there
    return double(Date.toJulianDay() - CUnix) * CDay;
}

double SecondsOf(const QTime& Time) { return Time.msecsSinceStartOfDay() / 1000.0; }

TTypedValue MomentOf(const QDateTime& Moment, bool HasZone) {
    if (HasZone && Moment.isValid()) return {ftDateTime, double(Moment.toMSecsSinceEpoch()) / 1000};
    if (HasZone || !Moment.date().isValid()) return {ftDateTime, {}};
    return {ftDateTime, SecondsOf(Moment.date()) + SecondsOf(Moment.time())};
}

template <class T>
std::string Plain(T Value) {
    char text[40];
    return {text, std::to_chars(text, text + sizeof text, Value).ptr};
}

std::string TextOf(const TFieldValue& Value, TFieldType Type) {
    if (const auto* text = std::get_if<std::string>(&Value)) return *text;
    if (const auto* whole = std::get_if<std::int64_t>(&Value)) return Plain(*whole);
    const double number = std::get<double>(Value);
    if (Type == ftNumber) return Plain(number);
    return Type == ftDate ? DateText(number) : DateTimeText(number);
}

TFieldType TypeOf(QMetaType Declared) {
    switch (Declared.id()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong: return ftInteger;
    case QMetaType::Double:
    case QMetaType::Float: return ftNumber;
    case QMetaType::QDate: return ftDate;
    case QMetaType::QTime:
    case QMetaType::QDateTime: return ftDateTime;
    default: return ftText;
    }
}

bool IsDate(TFieldType Type) { return Type == ftDate || Type == ftDateTime; }

/// The narrowest type for values of both.
TFieldType Common(TFieldType A, TFieldType B) {
    if (A == B) return A;
    if (IsDate(A) && IsDate(B)) return ftDateTime;
    const bool areNumbers = (A == ftInteger || A == ftNumber) && (B == ftInteger || B == ftNumber);
    return areNumbers ? ftNumber : ftText;
}

} // namespace

TTypedValue ValueOf(const QVariant& Given, const TColumnFacts& Facts) {
    const TFieldType type = TypeOf(Given.metaType());
    if (Given.isNull()) return {type, {}};
    switch (Given.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float: return {ftNumber, Given.toDouble()};
    case QMetaType::QDate: return {ftDate, SecondsOf(Given.toDate())};
    case QMetaType::QTime: return {ftDateTime, SecondsOf(Given.toTime())};
    case QMetaType::QDateTime: return MomentOf(Given.toDateTime(), Facts.HasZone);
    case QMetaType::QByteArray: return {ftText, Given.toByteArray().toHex().toStdString()};
    default: break;
    }
    if (type == ftInteger) return {ftInteger, std::int64_t(Given.toLongLong())};
    return {ftText, Given.toString().toStdString()};
}

std::optional<TFieldValue> Converted(const TFieldValue& Value, TFieldType From, TFieldType To) {
    if (From == To || Value.index() == 0 || (From == ftDate && To == ftDateTime)) return Value;
    if (To == ftText) return TextOf(Value, From);
    if (From == ftInteger && To == ftNumber) return double(std::get<std::int64_t>(Value));
    if (From == ftText && IsDate(To))
        if (const auto moment = MomentOfText(std::get<std::string>(Value))) return *moment;
    return {};
}

void TColumnReader::Add(const QVariant& Given) {
    TTypedValue value = ValueOf(Given, FFacts);
    const bool isFilled = value.Value.index() != 0;
    if (isFilled) Widen(value.Type);
    FColumn.Filled.push_back(isFilled);
    if (isFilled && value.Type != FType) value.Value = *Converted(value.Value, value.Type, FType);
    std::visit(
        [&]<class T>(std::vector<T>& Values) {
            auto* own = std::get_if<T>(&value.Value);
            Values.push_back(own ? std::move(*own) : T());
        },
        FColumn.Values);
}

void TColumnReader::Widen(TFieldType Type) {
    const TFieldType common = FHasValues ? Common(FType, Type) : Type;
    if (!std::exchange(FHasValues, true) || common != FType) Convert(common);
}

void TColumnReader::Convert(TFieldType Type) {
    TRecordStore::TColumn converted(Type);
    std::visit([&](auto& Values) { Values.resize(FColumn.Filled.size()); }, converted.Values);
    for (std::size_t i = 0; i < FColumn.Filled.size(); ++i) {
        if (!FColumn.Filled[i]) continue;
        const auto value =
            std::visit([&](auto& Values) { return TFieldValue(std::move(Values[i])); }, FColumn.Values);
        const TFieldValue other = *Converted(value, FType, Type);
        std::visit([&]<class T>(std::vector<T>& Values) { Values[i] = std::get<T>(other); },
                   converted.Values);
    }
    converted.Filled = std::move(FColumn.Filled);
    FColumn = std::move(converted);
    FType = Type;
}

void TColumnReader::BecomeDates() {
    auto* texts = std::get_if<std::vector<std::string>>(&FColumn.Values);
    if (!texts) return;
    TFieldType type = ftDate;
    for (std::size_t i = 0; i < texts->size(); ++i) {
        if (!FColumn.Filled[i]) continue;
        if (!MomentOfText((*texts)[i])) return;
        constexpr std::size_t CDateAlone = 10;
        if ((*texts)[i].size() > CDateAlone) type = ftDateTime;
    }
    Convert(type);
}

TRecordStore::TColumn TColumnReader::Take() {
    if (!FHasValues) Convert(TypeOf(FFacts.Declared));
    if (FHasValues && FFacts.MayHoldDates) BecomeDates();
    return std::move(FColumn);
}

} // namespace kx::qt
