#include <kxgraph/table/Kxfilevector.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/objects/published.h>
#include <kxgraph/platform/streaming/filer.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/table/Kxtable.h>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace kx {

std::string TKxFileVector::Path() const {
    const bool isRelative = std::filesystem::path(FFileName).is_relative();
    return isRelative ? FDirectory + FFileName : FFileName;
}

void TKxFileVector::SetFileName(const std::string& FileName) { Change(FFileName, FileName); }
void TKxFileVector::SetColumn(const std::string& Column) { Change(FColumn, Column); }

void TKxFileVector::Change(std::string& Field, const std::string& Value) {
    if (Field == Value) return;
    const std::string before = std::exchange(Field, Value);
    if (IsIn(csLoading)) return;
    try {
        Reload();
    } catch (...) {
        Field = before;
        throw;
    }
}

void TKxFileVector::Reload() {
    if (!ReadsFile()) return Clear();
    Fill({this}, Path());
}

void TKxFileVector::Rebase(const std::string& FormFile) {
    namespace fs = std::filesystem;
    const fs::path table = FFileName;
    if (!FFileName.empty() && table.is_relative()) {
        const fs::path full = fs::absolute(Path()).lexically_normal();
        const fs::path folder = FormFile.empty() ? fs::current_path() : fs::absolute(FormFile).parent_path();
        FFileName = full.lexically_proximate(folder.lexically_normal()).string();
    }
    FDirectory = ExtractFilePath(FormFile);
}

void TKxFileVector::DefineProperties(TFiler& Filer) {
    TKxLiveVector::DefineProperties(Filer);
    if (IsIn(csLoading)) FDirectory = ExtractFilePath(Filer.GetFileName());
    FIsWaiting = IsIn(csLoading);
}

// The first one of a file reads it for all of them.
void TKxFileVector::Loaded() {
    TKxLiveVector::Loaded();
    if (std::exchange(FIsWaiting, false) && ReadsFile()) Fill(WaitingFor(Path()), Path());
}

std::vector<TKxFileVector*> TKxFileVector::WaitingFor(const std::string& Path) {
    std::vector<TKxFileVector*> all{this};
    if (!GetOwner()) return all;
    for (TComponent* component : GetOwner()->GetComponents()) {
        auto* vector = dynamic_cast<TKxFileVector*>(component);
        if (!vector || !vector->FIsWaiting || !vector->ReadsFile() || vector->Path() != Path) continue;
        vector->FIsWaiting = false;
        all.push_back(vector);
    }
    return all;
}

void TKxFileVector::Fill(const std::vector<TKxFileVector*>& Vectors, const std::string& Path) {
    const std::string text = ReadFile(Path);
    const TKxTable table(text, Path);
    std::vector<int> places, columns;
    for (const TKxFileVector* vector : Vectors) places.push_back(table.FindNumericColumn(vector->FColumn));
    columns = places;
    std::ranges::sort(columns);
    columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
    const auto values = table.ReadColumns(columns);
    for (std::size_t i = 0; i < Vectors.size(); ++i) {
        const auto at = std::ranges::lower_bound(columns, places[i]) - columns.begin();
        Vectors[i]->Clear();
        Vectors[i]->AddValues(values[std::size_t(at)]);
    }
}

const TPropertyTable& TKxFileVector::Properties() {
    using T = TKxFileVector;
    static const TPropertyTable table(
        "TKxFileVector", &TKxLiveVector::Properties(),
        {Published<&T::GetFileName, &T::SetFileName>("FileName", "",
                                                     "text table, beside the form file where it is relative"),
         Published<&T::GetColumn, &T::SetColumn>("Column", "", "header, or number from 1, of the column")});
    return table;
}

void RegisterTableClasses() { RegisterClass<TKxFileVector>("TKxFileVector", CGeneralPage); }

} // namespace kx
