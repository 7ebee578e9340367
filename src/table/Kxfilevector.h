#pragma once
// A vector whose values are a column of a text table, so that forms leave their data where they were
// measured.

#include <kxgraph/numeric/Kxvector.h>

#include <string>
#include <vector>

namespace kx {

class TKxTable;

/// Reads its values when the form that it lies on has been loaded, and when FileName or Column changes
/// afterwards. It holds no values, and reads none, where either is empty. What a program writes into it stays
/// until then.
/// The table is read as TKxTable does by itself: numbers, and dates as seconds since 1970.
class TKxFileVector : public TKxLiveVector {
public:
    using TKxLiveVector::TKxLiveVector;

    /// The table; a relative name begins at the directory of the form file, or, where the vector is of none,
    /// at the present one. Setters raise EFileError where it cannot be read, and ETableError where it has no
    /// such column; the values are then what they were.
    const std::string& GetFileName() const { return FFileName; }
    void SetFileName(const std::string& FileName);
    /// The text of its header, or its number from 1.
    const std::string& GetColumn() const { return FColumn; }
    void SetColumn(const std::string& Column);
    /// The form's file lies, or is going to lie, at FormFile: a relative name is told anew, as seen from
    /// there. Values stay as they are.
    void Rebase(const std::string& FormFile);
    /// Reads the file as it is now. Raises as the setters do.
    void Reload();

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxFileVector>(); }
    void DefineProperties(TFiler& Filer) override;
    void Loaded() override;

private:
    std::string Path() const;
    bool ReadsFile() const { return !FFileName.empty() && !FColumn.empty(); }
    std::vector<TKxFileVector*> WaitingFor(const std::string& Path);
    static void Fill(const std::vector<TKxFileVector*>& Vectors, const std::string& Path);
    void Change(std::string& Field, const std::string& Value);

    std::string FFileName, FColumn, FDirectory;
    bool FIsWaiting = false; // for its form to be loaded
};

/// Enters it in the list of classes.
void RegisterTableClasses();

} // namespace kx
