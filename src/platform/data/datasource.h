#pragma once
// What stands between a data set and those that show or use its data: a source, which a form has one of for
// each data set, and the links of those that are bound to it.

#include <kxgraph/platform/data/dataset.h>

#include <string>

namespace kx {

class TDataLink;

/// Passes on what it hears of its data set, which is not owned and may go first. Where that is destroyed or
/// replaced all links hear an ActiveChange.
class TDataSource : public TComponent, private TDataListener {
public:
    explicit TDataSource(TComponent* Owner);
    ~TDataSource() override;

    TDataSet* GetDataSet() const { return FDataSet; }
    void SetDataSet(TDataSet* DataSet);
    /// That of the data set; dsInactive without one.
    TDataSetState GetState() const { return FDataSet ? FDataSet->GetState() : dsInactive; }

    TEvent<TDataSource*> OnStateChange;
    /// The field whose value was set, or null for the whole record or other records.
    TEvent<TDataSource*, TField*> OnDataChange;
    /// The record is about to be posted.
    TEvent<TDataSource*> OnUpdateData;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TDataSource>(); }

private:
    friend class TDataLink;
    void DataEvent(TDataEvent Event, TField* Field) override;
    void ForgetData() override { FDataSet = nullptr; }
    void CollectControls(std::vector<TComponent*>& Controls) const override;
    void TellOwn(TDataEvent Event, TField* Field);

    TDataSet* FDataSet = nullptr;
    mutable TLiveList<TDataLink> FLinks;
};

/// The end of a binding: part of the component that is bound, its Control. The source is not owned and may go
/// first. Handlers must not destroy the link.
class TDataLink {
public:
    TDataLink() = default;
    TDataLink(const TDataLink&) = delete;
    TDataLink& operator=(const TDataLink&) = delete;
    virtual ~TDataLink();

    TDataSource* GetDataSource() const { return FSource; }
    /// Raises EDataSetError "The data source is fixed" where that is so.
    void SetDataSource(TDataSource* Source);
    /// Whether the source was chosen by whoever made the component, and stays.
    bool GetDataSourceFixed() const { return FFixed; }
    void SetDataSourceFixed(bool Fixed) { FFixed = Fixed; }
    /// Null without.
    TDataSet* GetDataSet() const { return FSource ? FSource->GetDataSet() : nullptr; }
    bool GetActive() const { return GetDataSet() && GetDataSet()->GetActive(); }
    /// Begins to edit the record. Returns whether it is being edited.
    bool Edit();

    TComponent* Control = nullptr; ///< who is bound; not owned

protected:
    virtual void ActiveChanged() {}
    /// By default as if the whole record had changed.
    virtual void RecordsChanged() { RecordChanged(nullptr); }
    virtual void RecordChanged(TField*) {}
    virtual void RecordDeleting() {}
    virtual void UpdateData() {}

private:
    friend class TDataSource;
    void DataEvent(TDataEvent Event, TField* Field);

    TDataSource* FSource = nullptr;
    bool FFixed = false;
};

/// A link to one field, by its name.
class TFieldDataLink : public TDataLink {
public:
    const std::string& GetFieldName() const { return FFieldName; }
    /// Tells nobody.
    void SetFieldName(const std::string& Name) { FFieldName = Name; }
    /// Null while the data set is closed, or lacks the field. Looked for with every call: it is never one of
    /// an earlier opening.
    TField* GetField() const;
    /// For who lets the record be edited: Control holds a value that OnUpdateData is to set.
    void Modified() { FModified = true; }

    TEvent<> OnActiveChange;
    /// A value of the field was set, or the cursor stands on another record.
    TEvent<> OnDataChange;
    /// Records came, went or were read anew; OnDataChange is called where there is no handler.
    TEvent<> OnRecordsChange;
    /// The record that the cursor stands on is about to be deleted.
    TEvent<> OnDelete;
    /// The record is about to be posted, and Modified was called since it was last.
    TEvent<> OnUpdateData;

protected:
    void ActiveChanged() override;
    void RecordsChanged() override;
    void RecordChanged(TField* Field) override;
    void RecordDeleting() override { OnDelete(); }
    void UpdateData() override;

private:
    std::string FFieldName;
    bool FModified = false;
};

} // namespace kx
