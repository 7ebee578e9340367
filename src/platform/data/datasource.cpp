#include <kxgraph/platform/data/datasource.h>

#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/platform/objects/published.h>

#include <utility>

namespace kx {

TDataSource::TDataSource(TComponent* Owner) : TComponent(Owner) {}

// All links forget it before the first one acts.
TDataSource::~TDataSource() {
    if (FDataSet) FDataSet->RemoveListener(this);
    FDataSet = nullptr;
    std::vector<TDataLink*> links;
    Guarded([&] {
        FLinks.ForEach([&](TDataLink& Link) {
            Link.FSource = nullptr;
            links.push_back(&Link);
        });
        FLinks.ForEach([](TDataLink& Link) { Link.DataEvent(TDataEvent::ActiveChange, nullptr); });
    });
}

void TDataSource::SetDataSet(TDataSet* DataSet) {
    if (DataSet == FDataSet) return;
    if (FDataSet) FDataSet->RemoveListener(this);
    FDataSet = DataSet;
    if (FDataSet) FDataSet->AddListener(this);
    DataEvent(TDataEvent::ActiveChange, nullptr);
}

// The program's handlers come first: they may veto a value, or adjust it.
void TDataSource::DataEvent(TDataEvent Event, TField* Field) {
    const TComponentRef<TDataSource> self(this);
    TellOwn(Event, Field);
    if (!self) return;
    FLinks.ForEach([&](TDataLink& Link) { Link.DataEvent(Event, Field); });
}

void TDataSource::TellOwn(TDataEvent Event, TField* Field) {
    switch (Event) {
    case TDataEvent::StateChange: return OnStateChange(this);
    case TDataEvent::RecordChange:
    case TDataEvent::RecordsChange: return OnDataChange(this, Field);
    case TDataEvent::UpdateData: return OnUpdateData(this);
    case TDataEvent::ActiveChange: {
        const TComponentRef<TDataSource> self(this);
        OnStateChange(this);
        if (self) OnDataChange(this, nullptr);
        return;
    }
    case TDataEvent::Delete: return;
    }
}

void TDataSource::CollectControls(std::vector<TComponent*>& Controls) const {
    FLinks.ForEach([&](const TDataLink& Link) {
        if (Link.Control) Controls.push_back(Link.Control);
    });
}

const TPropertyTable& TDataSource::Properties() {
    using C = TDataSource;
    static const TPropertyTable table(
        "TDataSource", &TComponent::Properties(),
        {Published<&C::GetDataSet, &C::SetDataSet>("DataSet", nullptr, "Where the data come from"),
         PublishedEvent<&C::OnStateChange>("OnStateChange", "Opened, closed, edited, or no longer"),
         PublishedEvent<&C::OnDataChange>("OnDataChange", "A value has changed, or the record"),
         PublishedEvent<&C::OnUpdateData>("OnUpdateData", "The record is about to be stored")});
    return table;
}

TDataLink::~TDataLink() {
    if (FSource) FSource->FLinks.Remove(this);
}

void TDataLink::SetDataSource(TDataSource* Source) {
    if (Source == FSource) return;
    if (FFixed) throw EDataSetError("The data source is fixed");
    if (FSource) FSource->FLinks.Remove(this);
    FSource = Source;
    if (Source) Source->FLinks.Add(this);
    ActiveChanged();
}

bool TDataLink::Edit() {
    if (GetActive() && FSource->GetState() == dsBrowse) GetDataSet()->Edit();
    return FSource && (FSource->GetState() == dsEdit || FSource->GetState() == dsInsert);
}

void TDataLink::DataEvent(TDataEvent Event, TField* Field) {
    switch (Event) {
    case TDataEvent::StateChange: return;
    case TDataEvent::RecordChange: return RecordChanged(Field);
    case TDataEvent::RecordsChange: return RecordsChanged();
    case TDataEvent::ActiveChange: return ActiveChanged();
    case TDataEvent::Delete: return RecordDeleting();
    case TDataEvent::UpdateData: return UpdateData();
    }
}

TField* TFieldDataLink::GetField() const {
    return GetActive() && !FFieldName.empty() ? GetDataSet()->FindField(FFieldName) : nullptr;
}

void TFieldDataLink::ActiveChanged() {
    FModified = false;
    OnActiveChange();
}

void TFieldDataLink::RecordsChanged() { OnRecordsChange ? OnRecordsChange() : OnDataChange(); }

void TFieldDataLink::RecordChanged(TField* Field) {
    if (!Field || Field == GetField()) OnDataChange();
}

// Before the handler, which may post the record itself.
void TFieldDataLink::UpdateData() {
    if (std::exchange(FModified, false)) OnUpdateData();
}

} // namespace kx
