#pragma once
// Data sets: records in order, a cursor that stands on one of them, and the editing of that one. Who shows or
// uses the values is bound by a data source and a link (datasource.h).

#include <kxgraph/platform/base/event.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/data/field.h>
#include <kxgraph/platform/data/livelist.h>
#include <kxgraph/platform/objects/component.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// A data set cannot do what it was asked for: it is closed, is not being edited, lacks a field or a record.
class EDataSetError : public Exception {
    using Exception::Exception;
};

enum TDataSetState {
    dsInactive, ///< closed
    dsBrowse,   ///< open
    dsEdit,     ///< the record is being edited
    dsInsert    ///< a new record is being filled
};

/// What those hear that are bound to a data set.
enum class TDataEvent {
    StateChange,
    RecordChange,  ///< a value of the record was set, or the cursor stands on another record
    RecordsChange, ///< records came, went or were read anew, and nobody was told of each
    ActiveChange,  ///< opened or closed, or bound to another data set
    Delete,        ///< the record that the cursor stands on is about to be deleted
    UpdateData     ///< the record is about to be posted: who holds a value for it sets it now
};

/// Who hears of a data set.
class TDataListener {
public:
    /// Field is the one whose value was set; null for the whole record.
    virtual void DataEvent(TDataEvent Event, TField* Field) = 0;
    /// What this listens to is being destroyed, and must not be asked any more. An ActiveChange follows.
    virtual void ForgetData() = 0;
    /// Adds the components that show or use the data.
    virtual void CollectControls(std::vector<TComponent*>& Controls) const = 0;

protected:
    ~TDataListener() = default;
};

/// The values that were set in the record that is being edited, by the index of their field.
using TChangedValues = std::map<int, TFieldValue>;

/// The base of all data sets. A closed one has neither fields nor records. A record is edited between Edit,
/// Insert or Append and Post or Cancel; whatever moves the cursor posts it first if a value was set, and
/// cancels it otherwise.
///
/// Records have numbers (RecNo). In a sequenced data set they count the records; in others they name a record
/// and need not follow one another.
///
/// Between DisableControls and EnableControls, which nest, nobody is told but of deletions, and of an opening
/// or closing; the last EnableControls tells once of what has happened.
///
/// Handlers, and who is told, may do anything, also destroy the data set.
class TDataSet : public TComponent, private TFieldOwner {
public:
    ~TDataSet() override;

    bool GetActive() const { return FState != dsInactive; }
    /// Closing drops an edit. Raises what the opening raises, and is closed then. While properties are loaded
    /// it is opened when all are there.
    void SetActive(bool Active);
    void Open() { SetActive(true); }
    void Close() { SetActive(false); }
    /// Reads the records anew, where they lie somewhere else, and the fields, should they be others; the
    /// cursor stays on its record number if there is one. A failure is raised and leaves the records as they
    /// were.
    void Refresh();
    TDataSetState GetState() const { return FState; }
    /// Whether a value of the record was set since it is being edited.
    bool GetModified() const { return FModified; }

    // Fields.
    int GetFieldCount() const { return int(FFields.size()); }
    /// Raises ERangeError for an index outside 0..FieldCount-1.
    TField& GetField(int Index) const { return *FFields[CheckedIndex(Index, FFields.size())]; }
    /// By name, ignoring the case of ASCII letters; null when there is none.
    TField* FindField(std::string_view Name) const;
    /// Raises EDataSetError "There is no field u".
    TField& FieldByName(std::string_view Name) const;

    // The cursor. All of these raise EDataSetError on a closed data set.
    void First() { MoveTo(0, true); }
    void Last();
    void Next() { MoveBy(1); }
    void Prior() { MoveBy(-1); }
    /// Whether a step led beyond the end (in front of the begin), or there are no records. The cursor then
    /// stands on the last (first) one.
    bool GetEof() const { return FEof; }
    /// Also after First.
    bool GetBof() const { return FBof; }
    bool IsEmpty() const { return GetRecordCount() == 0; }
    /// Without the one that is being inserted.
    virtual int GetRecordCount() const = 0;
    /// 0 without a record, -1 of one that is being inserted.
    int GetRecNo() const;
    /// Raises EDataSetError "There is no record 7".
    void SetRecNo(int RecNo);
    virtual bool IsSequenced() const { return true; }
    /// How many records stand in front of the one with that number; RecordCount when there is none. The
    /// cursor stays.
    int IndexOf(int RecNo) const;

    // Editing.
    /// Nothing happens to a record that is being edited.
    void Edit();
    /// A new record in front of the present one, or at the end.
    void Insert() { BeginInsert(false); }
    void Append() { BeginInsert(true); }
    /// Raises what the storing raises; the record is then still being edited.
    void Post();
    /// The record is what it was; those that have heard of new values hear of the old ones.
    void Cancel();
    /// Deletes the record, or drops the one that is being inserted. What BeforeDelete raises prevents it.
    void Delete();

    void DisableControls() { ++FDisabled; }
    void EnableControls();
    bool ControlsDisabled() const { return FDisabled > 0; }

    TEvent<TDataSet*> BeforePost, AfterPost;
    /// Called before any of those that are bound are told of the deletion.
    TEvent<TDataSet*> BeforeDelete;
    TEvent<TDataSet*> AfterDelete;

    /// A greater number after every change of the records or of a value, and another one in every data set.
    std::uint64_t GetVersion() const { return FVersion; }
    /// For who is bound: not owned.
    void AddListener(TDataListener* Listener) { FListeners.Add(Listener); }
    void RemoveListener(TDataListener* Listener) { FListeners.Remove(Listener); }
    /// The components that are bound to this data set.
    std::vector<TComponent*> GetControls();

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    explicit TDataSet(TComponent* Owner);
    bool HearsOfAll() const override { return IsBeyond<TDataSet>(); }
    void Loaded() override;

    // What a class of data sets does. Positions are those of records in order, 0..RecordCount-1.
    /// Finds the records and adds the fields.
    virtual void OpenRecords() = 0;
    virtual void CloseRecords() = 0;
    /// Reads them anew, or leaves them and raises.
    virtual void RefreshRecords() {}
    virtual TFieldValue GetRecordValue(int Position, int Field) const = 0;
    // Each does all or raises.
    virtual void UpdateRecord(int Position, const TChangedValues& Values) = 0;
    /// Returns the position that the record has then.
    virtual int InsertRecord(int Position, const TChangedValues& Values) = 0;
    virtual void DeleteRecord(int Position) = 0;
    /// What raises EDataSetError keeps a record from being edited, inserted or deleted.
    virtual void CheckCanModify() const {}
    virtual int RecNoAt(int Position) const { return Position + 1; }

    TField& AddField(const std::string& Name, TFieldType Type);
    /// In RefreshRecords, where the fields are others than before.
    void ClearFields() { FFields.clear(); }
    /// In UpdateRecord and InsertRecord: the record holds other values than were given.
    void ValuesHaveChanged() { FHasOtherValues = true; }
    /// Raises EDataSetError "The data set is closed".
    void RequireActive() const;

private:
    TFieldValue GetFieldValue(int Index) const override;
    void SetFieldValue(int Index, TFieldValue Value) override;
    bool IsEditing() const { return FState == dsEdit || FState == dsInsert; }
    bool HasRecord() const { return GetActive() && FState != dsInsert && FPosition < GetRecordCount(); }
    void RequireEditing() const;
    void DoOpen();
    void DoClose();
    void MoveBy(int Delta);
    void MoveTo(int Position, bool IsFirst = false);
    bool EndEditing();
    void Place(int Position);
    void BeginInsert(bool AtEnd);
    void EndEdit(bool IsUnheard);
    void Tell(TDataEvent Event, TField* Field = nullptr);

    TLiveList<TDataListener> FListeners;
    std::vector<std::unique_ptr<TField>> FFields;
    TChangedValues FChanges;
    TDataSetState FState = dsInactive;
    int FPosition = 0, FInsertAt = 0, FDisabled = 0;
    std::uint64_t FVersion;
    bool FBof = true, FEof = true, FModified = false, FHasOtherValues = false;
    bool FWasUnheard = false; // a change while controls were disabled
    bool FOpenWhenLoaded = false;
};

} // namespace kx
