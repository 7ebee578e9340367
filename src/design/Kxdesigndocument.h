#pragma once
// The form that a designer has open: its file, what is selected, and the history of all that was done to it.
// What can be done with it stands in Kxdesigncommands.h, Kxdesignarrange.h and Kxdesignclipboard.h; the
// document only runs it.

#include <kxgraph/design/Kxdesignchange.h>
#include <kxgraph/design/Kxformstate.h>
#include <kxgraph/platform/controls/form.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Hears of a document. What it is told it may look up in the document; it must not change the form then.
class TKxDesignObserver {
public:
    /// There is another form; the one before is still there while this is called.
    virtual void FormReplaced() {}
    /// Components have come, gone or changed; also the history.
    virtual void FormChanged() {}
    virtual void SelectionChanged() {}
    /// Another file name, or the form is saved.
    virtual void FileChanged() {}

protected:
    ~TKxDesignObserver() = default;
};

/// A form with csDesigning. It and its components have names always: those that a file has without one get
/// one. A change that is not made by Run belongs to the next one that is.
class TKxDesignDocument : public TKxDesignChange {
public:
    /// With an empty form, without a file.
    TKxDesignDocument();
    ~TKxDesignDocument() override;
    TKxDesignDocument(const TKxDesignDocument&) = delete;
    TKxDesignDocument& operator=(const TKxDesignDocument&) = delete;

    TForm& GetForm() const { return *FForm; }
    /// Component of the form, or the form itself, by name; null when there is none.
    TComponent* Find(std::string_view Name) const;
    /// A name that no component has: "Axis2" for a class "TKxAxis" or a name "Axis1".
    std::string UniqueName(std::string_view ClassOrName) const;

    // Files. All raise EFileError and EFormError; the form is then the one before.
    void New();
    void Open(const std::string& FileName);
    /// The same from a text, as what FileName holds or is going to hold; Modified: it does not hold it yet.
    void Read(std::string_view Text, const std::string& FileName, bool Modified);
    void Save();
    /// In another directory tables that are named as they lie to the form get other names; what was done
    /// before cannot be undone then.
    void SaveAs(const std::string& FileName);
    /// Empty: none yet.
    const std::string& GetFileName() const { return FFileName; }
    /// What its window is called: the file without its directory, or "Untitled".
    std::string GetTitle() const;
    bool IsModified() const { return FAt != FSaved; }
    std::string GetText() const;
    /// Another number after every change of the form.
    std::uint64_t GetVersion() const { return FVersion; }

    // History.
    void Run(const TKxDesignStep& Step, const std::function<void()>& Change) override;
    bool CanUndo() const { return FUndone < FSteps.size(); }
    bool CanRedo() const { return FUndone > 0; }
    /// Of the step that would be undone, or redone; empty when there is none.
    std::string GetUndoName() const;
    std::string GetRedoName() const;
    /// Do nothing when there is none, or within a Run. Raise EFormError when the form cannot come to that
    /// state, because a file that it needs has gone; it is then as it was.
    void Undo();
    void Redo();
    /// The next step stands for itself, whatever its key.
    void EndMerge() { FMayMerge = false; }
    /// How often the form had to be made anew, for no setters brought it back.
    int GetRebuilds() const { return FRebuilds; }

    // Selection: components of the form, or the form alone; the last one is the one that others follow.
    std::vector<TComponent*> GetSelection() const;
    /// Null when nothing is selected.
    TComponent* GetPrimary() const;
    bool IsSelected(const TComponent* Component) const;
    void Select(const std::vector<TComponent*>& Components);
    void Select(TComponent* Component) { Select(std::vector{Component}); }
    /// Adds it, or takes it away.
    void ToggleSelected(TComponent* Component);

    /// Not owned; either may go first, but the observer says so.
    void AddObserver(TKxDesignObserver* Observer) { FObservers.push_back(Observer); }
    void RemoveObserver(TKxDesignObserver* Observer) { std::erase(FObservers, Observer); }

private:
    struct TStep {
        std::string Name, MergeKey;
        TKxFormChange Change;
        std::uint64_t Before, After; ///< numbers of the states
    };
    void Take(std::unique_ptr<TForm> Form, std::string FileName, bool Modified);
    void NameAll();
    void DemandOwnNames() const;
    void PartNames(const std::string& Form);
    bool RebaseTables(const std::string& FileName);
    void Settle();
    void RunWhole(const TKxDesignStep& Step, const std::function<void()>& Change);
    void Enter(const TKxDesignStep& Step, TKxFormState Now);
    void Go(TStep& Step, bool Back);
    void BringTo(const TKxFormState& Target);
    void Rebuild(const TKxFormState& Target);
    void Touched();
    void Tell(void (TKxDesignObserver::*What)());

    std::unique_ptr<TForm> FForm;
    std::unique_ptr<TFormWriter> FWriter;
    TKxFormState FState, FBeforeLast; // the latter is what a step that is merged began with
    std::vector<TStep> FSteps;        // the last FUndone of them are undone
    std::size_t FUndone = 0;
    std::uint64_t FAt = 0, FSaved = 0, FLastState = 0, FVersion = 0;
    std::vector<std::string> FSelected;
    std::vector<TKxDesignObserver*> FObservers;
    std::string FFileName;
    int FRebuilds = 0;
    bool FRunning = false, FMayMerge = false;
};

/// Component as the commands call it: its name, or that of its class.
std::string ToldName(const TComponent& Component);

} // namespace kx
