#pragma once
// The object inspector, as a model: what a designer knows of the selected components, and how it is changed.

#include <kxgraph/design/Kxdesignchange.h>
#include <kxgraph/design/Kxpropertyeditor.h>
#include <kxgraph/platform/base/event.h>
#include <kxgraph/platform/objects/component.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// A property of the selected components, or a part of one. Lives, at its address, until the inspector says
/// that there are other rows; its texts are those of the last refresh.
struct TKxInspectorRow {
    std::string Path; ///< "LineStyle.Color": by which it is found again among other rows
    std::string Name, Help;
    std::string_view Category;
    std::string Text;        ///< empty where IsMixed
    bool IsMixed = false;    ///< the components have different values
    bool IsDefault = false;  ///< nobody has changed it: a form file would not hold it
    bool IsReadOnly = false; ///< of an object: its parts are edited
    bool CanReset = false;
    bool IsShown = true; ///< passes search and filter, itself or by a part
    std::unique_ptr<TKxPropertyEditor> Editor;
    std::vector<std::unique_ptr<TKxInspectorRow>> Parts;
};

/// Shows what the selected components have in common. All that it changes goes through a TKxDesignChange.
/// Hears when a component goes; of other changes it is told by Refresh.
class TKxInspector : public TComponent {
public:
    /// Change, not owned, must outlive the inspector.
    explicit TKxInspector(TKxDesignChange& Change);
    ~TKxInspector() override;

    /// Form owns what its components may refer to, and may be one of them. No components: no rows.
    void Select(TComponent& Form, std::span<TComponent* const> Components);
    void Clear();
    const std::vector<TComponent*>& GetSelected() const { return FSelected; }
    /// "Series1: TKxDataSeries", "3 components", or empty.
    std::string GetTitle() const;

    /// The rows of the components themselves, hidden ones too, in the order of their names.
    const std::vector<std::unique_ptr<TKxInspectorRow>>& GetRows() const;
    /// The headings under which rows are shown now, in their order.
    std::vector<std::string_view> GetCategories() const;
    /// The shown rows under a heading; of all headings where it is empty.
    std::vector<TKxInspectorRow*> GetShown(std::string_view Category = {}) const;
    /// Null when there is none, or none any more.
    TKxInspectorRow* Find(std::string_view Path) const;

    /// Only rows that have Text in their name, of themselves or of a part, or in their help. Case counts for
    /// nothing; empty shows all.
    void SetSearch(const std::string& Text);
    const std::string& GetSearch() const { return FSearch; }
    /// Whether what nobody has changed is left out.
    void SetHidesDefaults(bool Hides);
    bool GetHidesDefaults() const { return FHidesDefaults; }

    /// Gives the property at Path a value, or that of an unchanged component. Raise EPropertyError, or what a
    /// setter raises, and leave all as it was. See TKxPropertyEditor::SetText.
    void SetText(std::string_view Path, const std::string& Text, bool IsContinued = false);
    void Reset(std::string_view Path);
    /// Reads all rows anew. To be called after every step of the history that the inspector has not made.
    void Refresh();

    /// True: there are other rows. False: the same ones say something else.
    TEvent<bool> OnChange;

protected:
    bool HearsOfAll() const override { return false; }
    void Notification(TComponent* Component, TOperation Operation) override;

private:
    using TRows = std::vector<std::unique_ptr<TKxInspectorRow>>;

    void Leave();
    void DropRows();
    void MakeRows();
    void AddRow(const TProperty& Row, const std::vector<std::vector<const TProperty*>>& Others);
    static std::unique_ptr<TKxInspectorRow> RowOf(std::unique_ptr<TKxPropertyEditor> Editor,
                                                  std::string_view Category);
    static bool Read(TKxInspectorRow& Row);
    bool Filter(TKxInspectorRow& Row, bool IsFound) const;
    void FilterAll();
    TKxInspectorRow& Row(std::string_view Path) const;
    template <class F>
    void Edit(std::string_view Path, F Action);

    TKxDesignContext FContext;
    std::vector<TComponent*> FSelected;
    TRows FRows;             // made when they are asked for
    std::vector<TRows> FOld; // those of editors that are at work
    bool FIsMade = false, FIsEditing = false;
    std::string FSearch;
    bool FHidesDefaults = false;
};

} // namespace kx
