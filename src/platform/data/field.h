#pragma once
// Fields: the columns of a data set, through which the record that it stands on is read and edited.

#include <kxgraph/platform/base/exceptions.h>

#include <cstdint>
#include <string>
#include <variant>

namespace kx {

enum TFieldType {
    ftText,
    ftInteger, ///< whole numbers of 64 bits, exact
    ftNumber,
    ftDate,    ///< a day: the seconds since 1970-01-01 00:00 at its begin
    ftDateTime ///< a moment: seconds since 1970-01-01 00:00, as clocks there show it, or UTC
};

/// What a record holds in a field: nothing, or a text (ftText), a whole number (ftInteger), a number, date or
/// date-time (the rest).
using TFieldValue = std::variant<std::monostate, std::string, std::int64_t, double>;

/// What a field asks of its data set: the value in the record of the moment, and to take another one.
class TFieldOwner {
public:
    virtual TFieldValue GetFieldValue(int Index) const = 0;
    virtual void SetFieldValue(int Index, TFieldValue Value) = 0;

protected:
    ~TFieldOwner() = default;
};

/// One column of an open data set, which owns it and makes it anew with every opening: who keeps a field
/// longer hears of that by a data link. Reads the record that the data set stands on; without one it is null.
/// Setting needs a data set that is being edited; it raises EDataSetError, and EConvertError for a value that
/// the type does not take ("'abc' is not a number (field u)").
class TField {
public:
    TField(TFieldOwner& Owner, int Index, std::string Name, TFieldType Type)
        : FOwner(Owner), FIndex(Index), FFieldName(std::move(Name)), FDataType(Type) {}
    TField(const TField&) = delete;
    TField& operator=(const TField&) = delete;

    const std::string& GetFieldName() const { return FFieldName; }
    TFieldType GetDataType() const { return FDataType; }
    /// Among the fields of the data set.
    int GetIndex() const { return FIndex; }
    bool IsDate() const { return FDataType == ftDate || FDataType == ftDateTime; }
    /// One that is read only raises EDataSetError when it is set.
    bool GetReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool ReadOnly) { FReadOnly = ReadOnly; }

    TFieldValue GetValue() const { return FOwner.GetFieldValue(FIndex); }
    bool GetIsNull() const { return GetValue().index() == 0; }
    /// A date in seconds since 1970; null or an empty text is 0. Raises EConvertError for a text that is no
    /// number.
    double GetAsFloat() const;
    /// A number in full, with a decimal point; a date as "2003-09-19", a date-time as "2003-09-19 13:05:07".
    /// Null is empty.
    std::string GetAsString() const;
    /// As a person is shown it: numbers with 15 digits and the decimal separator.
    std::string GetDisplayText() const;
    /// Whether the display text is empty: null, or an empty text.
    bool IsBlank() const;

    /// Raises EConvertError, too, for a fraction in a field of whole numbers.
    void SetAsFloat(double Value);
    /// Of a field that is no text, an empty text is null; dates are read as MomentOfText does.
    void SetAsString(const std::string& Text);
    /// A value of any kind, converted to that of the field.
    void SetValue(const TFieldValue& Value);
    void Clear() { FOwner.SetFieldValue(FIndex, {}); }

private:
    TFieldValue FromText(const std::string& Text) const;
    TFieldValue FromFloat(double Value) const;
    [[noreturn]] void Refuse(const std::string& Text) const;

    TFieldOwner& FOwner;
    int FIndex;
    std::string FFieldName;
    TFieldType FDataType;
    bool FReadOnly = false;
};

} // namespace kx
