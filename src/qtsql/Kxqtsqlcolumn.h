#pragma once
// Columns of records as a driver gives them: what type they have, and their values.

#include <kxgraph/platform/data/recordstore.h>

#include <QMetaType>
#include <QVariant>

#include <optional>

namespace kx::qt {

/// Of one column, what its values do not tell.
struct TColumnFacts {
    bool HasZone = false;      ///< moments are instants, not what clocks show
    bool MayHoldDates = false; ///< texts may be dates
    QMetaType Declared;        ///< the type without values
};

/// A value and the type of field that it fits.
struct TTypedValue {
    TFieldType Type;
    TFieldValue Value; ///< nothing for null
};
TTypedValue ValueOf(const QVariant& Given, const TColumnFacts& Facts);

/// Value, of a field of type From, as one of type To; nothing where there is no way.
std::optional<TFieldValue> Converted(const TFieldValue& Value, TFieldType From, TFieldType To);

/// Takes one value after the other; the type is the narrowest that all fit.
class TColumnReader {
public:
    explicit TColumnReader(const TColumnFacts& Facts) : FFacts(Facts) {}

    void Add(const QVariant& Given);
    /// To be called once, when all are there.
    TRecordStore::TColumn Take();
    /// Then.
    TFieldType GetType() const { return FType; }

private:
    void Widen(TFieldType Type);
    void Convert(TFieldType Type);
    void BecomeDates();

    TColumnFacts FFacts;
    TFieldType FType = ftText;
    bool FHasValues = false;
    TRecordStore::TColumn FColumn;
};

} // namespace kx::qt
