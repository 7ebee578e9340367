#pragma once
// A table that grows: its text so far, and what has come.

#include "kxplot/follow/growingfile.h"
#include "kxplot/plan/plan.h"

#include <kxgraph/table/Kxtable.h>

#include <cstddef>
#include <deque>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kxplot {

/// The table of Options.Data.File. How it is written, its columns and their types are those of the first
/// lines that make a table. Later lines that do not fit are left out: of each kind the first is told, with
/// its line.
class TFollowedTable {
public:
    explicit TFollowedTable(const TOptions& Options);

    enum class TNews {
        None, ///< nothing that matters
        Rows, ///< GetNew has what came
        Anew  ///< what came before is gone: the table begins anew, or begins at all
    };
    /// Reads what there is, without waiting. What is wrong with lines is told to standard error. Raises
    /// kx::EFileError.
    TNews Poll();
    /// The plan of the rows that the last Poll found alone.
    const TPlan& GetNew() const { return FNew; }
    /// The plan of all rows that are kept.
    TPlan GetWhole() const;
    /// Whether nothing can come any more.
    bool HasEnded() const { return FFile.HasEnded(); }

    /// The head and the rows that are kept, which can be read as a table.
    std::string GetText() const;

private:
    std::string TakeLines(std::string Bytes);
    TNews Begin(const std::string& Lines);
    TNews Continue(const std::string& Lines);
    bool Take(std::string_view Lines, long Line);
    bool IsRow(std::string_view Line) const;
    void Keep(std::string_view Lines);
    void ForgetRows();
    void LearnFormat(const kx::TKxTable& Table);
    void Complain(const std::string& What, const std::string& Kind);
    TPlan PlanOf(const kx::TKxTable& Table) const;

    const TOptions FAsked;
    const TOptions FOptions;    ///< without what rows alone do not have
    kx::TKxTableFormat FFormat; ///< with what the first rows have told
    TGrowingFile FFile;
    std::string FPartial;           ///< a last line without an end
    std::string FHead;              ///< what stands before the first row; all of it before there is one
    std::deque<std::string> FLines; ///< rows, and the comments between them
    int FRows = 0;
    std::optional<kx::TKxTableShape> FShape; ///< once there is one
    long FLine = 1;                          ///< number of the next line
    TPlan FNew;
    std::set<std::string> FTold;
};

} // namespace kxplot
