#pragma once
// A table of measured data comes onto a form: vectors over its columns, a graph where there is none, and a
// series for each column.

#include <kxgraph/design/Kxdesigndocument.h>
#include <kxgraph/table/Kxtable.h>

#include <string>
#include <vector>

namespace kx {

class TKx2DGraph;

/// What becomes of a table: columns from 0.
struct TKxImportPlan {
    struct TSeries {
        int Y = -1;
        int Error = -1; ///< the column of its errors; -1: none
    };
    int X = -1; ///< -1: the rows are counted
    std::vector<TSeries> Series;
};

/// The first column of numbers or dates is x, and the others are series, but those that by their headers are
/// the errors of the one before ("dU" or "U error" behind "U"; "error", "sd", "sigma", "±"). Raises
/// ETableError for a table without numbers.
TKxImportPlan PlanImport(const TKxTable& Table);

/// Draws FileName on Graph (null: the selected one, or the only one, else a new one, which fills the form).
/// The vectors read the file; it is named as it lies to the form's file, where that is in the same directory
/// or above, else in full. Headers become names and captions; an axis of dates shows dates. One step; what
/// was made of series is selected. Raises EFileError and ETableError; nothing has changed then.
std::vector<TComponent*> ImportTable(TKxDesignDocument& Document, const std::string& FileName,
                                     TKx2DGraph* Graph = nullptr);

} // namespace kx
