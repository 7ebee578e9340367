#pragma once
// A vector of the values of one field of a data set.

#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/data/datasource.h>

#include <cstdint>
#include <string>

namespace kx {

/// Holds a number for each record, in their order, up to the first record whose field is empty, and tells its
/// listeners: of the whole vector when the data set is opened or its records are others, of one value while a
/// record is edited, and of a deletion. A date is the seconds since 1970.
///
/// While the data set is closed, lacks the field, or its controls are disabled, the values stay as they are.
/// Reading all of them goes through the records once for all the vectors on the data set that are to be read
/// anew, and puts the cursor back to where it was. The data set and the source may go first.
class TKxDBVector : public TKxCustomRealVector {
public:
    explicit TKxDBVector(TComponent* Owner);

    TDataSource* GetDataSource() const { return FLink.GetDataSource(); }
    /// Where the source is fixed, nothing happens while properties are loaded, and EDataSetError is raised
    /// later.
    void SetDataSource(TDataSource* Source);
    /// The name of the field.
    const std::string& GetDataField() const { return FLink.GetFieldName(); }
    void SetDataField(const std::string& Name);
    /// Takes an empty field as a value that is no number (NaN) and goes on behind it. Off by default: it ends
    /// the vector.
    bool GetEmptyAsNaN() const { return FEmptyAsNaN; }
    void SetEmptyAsNaN(bool AsNaN);
    /// For whoever edits, or fixes the source.
    TFieldDataLink& CMGetDataLink() { return FLink; }

    /// Reads all values anew. A record that is being edited is posted. Raises what the field raises for a
    /// text that is no number; the vector then ends in front of it.
    void UpdateVector();
    /// Takes the value of the field into the element of the record with that number, below 0 into one behind
    /// all records, and tells.
    void SetRecord(int RecNo);
    /// The element of the record with that number; the number of records when there is none.
    int FindIdx(int RecNo) const;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxDBVector>(); }

private:
    static std::vector<TKxDBVector*> VectorsToRead(TDataSet& Set);
    static void ReadRecords(TDataSet& Set, const std::vector<TKxDBVector*>& Vectors);
    void ReadAll();
    double FieldValue(const TField& Field) const;
    bool TakeRecord(const TField& Field);
    void RecordChanged();
    void RecordDeleting();

    TFieldDataLink FLink;
    std::uint64_t FReadVersion = 0; // of the data set when all values were read
    bool FEmptyAsNaN = false;
};

} // namespace kx
