#pragma once
// The values of vectors as a grid: a column for each of the edited vectors, on a copy until it is applied.

#include <kxgraph/design/Kxpropertyplace.h>

#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Cells are texts: numbers with a point or a comma before the fraction. An empty one between others is a
/// value that is no number. Rows and columns count from 0. What raises EPropertyError leaves the grid as it
/// was, and says in which row it failed, counted from 1.
class TKxValuesGrid {
public:
    /// Place is the property "Values" of vectors.
    explicit TKxValuesGrid(TKxPropertyPlace Place);

    int GetColumnCount() const { return int(FColumns.size()); }
    /// Of the longest column.
    int GetRowCount() const;
    /// The name of the vector.
    const std::string& GetHeader(int Column) const { return FHeaders[std::size_t(Column)]; }
    /// Empty where there is no value.
    std::string GetText(int Row, int Column) const;
    /// At RowCount or below the column grows.
    void SetText(int Row, int Column, const std::string& Text);
    /// Empty rows before Row, in all columns.
    void Insert(int Row, int Count = 1);
    void Delete(int Row, int Count = 1);
    /// What was copied from a spreadsheet, or from a text: rows of cells, with tabs between them, or with
    /// semicolons or blanks where there are no tabs. A first row without numbers is a header and left out.
    /// Writes over what is there, from a cell on; cells beyond the last column are refused.
    void Paste(int Row, int Column, std::string_view Text);
    /// The rows First to Last, with the same separators; for the clipboard.
    std::string Copy(int First, int Last) const;
    /// Formula gives the cells First to Last of Column. x is the cell as it is, i the number of the row from
    /// 1, n their number; other names are vectors of the form, those of the grid as they are in it. Raises
    /// for a text that is no formula, and for a name that there is not. Rows behind the last one are made.
    void Fill(int Column, int First, int Last, const std::string& Formula);
    /// The columns of a text table that can be loaded. Raises EFileError and ETableError, as does LoadColumn.
    static std::vector<std::string> ColumnsOfTable(const std::string& FileName);
    /// The column gets all values of one of the table, by header or number from 1, and no others.
    void LoadColumn(int Column, const std::string& FileName, const std::string& From);

    bool IsChanged() const { return FIsChanged; }
    /// Gives the vectors their values, as one step of the history.
    void Apply();
    /// Takes the vectors' present values.
    void Revert();

private:
    using TColumn = std::vector<double>;
    void Change(int Column, TColumn Values);
    std::vector<double> ValuesOf(const std::string& Name, std::size_t Count) const;

    TKxPropertyPlace FPlace;
    std::vector<std::string> FHeaders;
    std::vector<TColumn> FColumns;
    bool FIsChanged = false;
};

} // namespace kx
