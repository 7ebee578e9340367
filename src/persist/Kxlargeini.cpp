#include <kxgraph/persist/Kxlargeini.h>

#include <kxgraph/numeric/Kxstrings.h>
#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <exception>
#include <iterator>
#include <new>

namespace kx {

namespace {

/// Calls Do with the lines from First on that are not empty, up to the next that begins with a bracket.
template <class F>
void ForEachLine(const TKxIniLines& Store, TKxIniLines::TPlace First, F Do) {
    for (auto place = First; place != Store.end() && !place->Text.starts_with('['); ++place)
        if (!place->Text.empty()) Do(place->Text);
}

/// The part of Line before "="; nothing if there is none.
std::string NameOf(const std::string& Line) {
    const auto equals = Line.find('=');
    return equals == Line.npos ? std::string() : Line.substr(0, equals);
}

/// Texts end at a zero byte, written or read: what is behind, the end of a quotation say, must not come back.
std::string_view BeforeZero(std::string_view Text) { return Text.substr(0, Text.find('\0')); }

std::string KeyLine(std::string_view Ident, std::string_view Value) {
    std::string line;
    line.reserve(Ident.size() + 1 + Value.size());
    line.append(Ident).append("=").append(Value);
    line.resize(BeforeZero(line).size());
    return line;
}

} // namespace

void TKxIniList::WriteLater(TKxLateWriter& Writer) {
    FLate.push_back(&Writer);
    Modified = true;
}

void TKxIniList::WriteLate() const {
    auto& self = const_cast<TKxIniList&>(*this);
    const bool modified = Modified;       // it was told of this before
    auto late = std::exchange(FLate, {}); // while they write, nobody waits
    auto next = late.begin();
    try {
        for (; next != late.end(); ++next) (*next)->WriteLate(self);
    } catch (...) {
        late.erase(late.begin(), next);
        FLate = std::move(late);
        throw;
    }
    self.Modified = modified;
}

void TKxIniList::ReadSections(TStrings& Strings) const {
    for (const auto& line : Lines()) {
        if (!line.Text.starts_with('[')) continue;
        const auto close = line.Text.find(']');
        Strings.Add(close == line.Text.npos ? std::string() : line.Text.substr(1, close - 1));
    }
}

bool TKxIniList::SectionExists(std::string_view Section) const {
    return Lines().FindHeader(Section) != Lines().end();
}

void TKxIniList::ReadSection(std::string_view Section, TStrings& Strings) const {
    Strings.Clear();
    const auto header = Lines().FindHeader(Section);
    if (header == Lines().end()) return;
    ForEachLine(Lines(), std::next(header), [&](const std::string& Line) { Strings.Add(NameOf(Line)); });
}

void TKxIniList::ReadSectionValues(std::string_view Section, TStrings& Strings) const {
    Strings.Clear();
    const auto header = Lines().FindHeader(Section);
    if (header == Lines().end()) return;
    ForEachLine(Lines(), std::next(header), [&](const std::string& Line) { Strings.Add(Line); });
}

void TKxIniList::EraseSection(std::string_view Section) {
    const auto header = Lines().FindHeader(Section);
    if (header == Lines().end()) return;
    Lines().Delete(header, Lines().NextHeader(header));
    Modified = true;
}

std::string TKxIniList::ReadString(std::string_view Section, std::string_view Ident,
                                   std::string_view Default) const {
    const auto header = Lines().FindHeader(Section);
    if (header == Lines().end()) return std::string(Default);
    const auto key = Lines().FindKey(header, Ident);
    if (key == Lines().end()) return std::string(Default);
    return std::string(BeforeZero(std::string_view(key->Text).substr(Ident.size() + 1)));
}

void TKxIniList::WriteString(std::string_view Section, std::string_view Ident, std::string_view Value) {
    std::string line = KeyLine(Ident, Value);
    const auto header = Lines().FindHeader(Section);
    Modified = true;
    if (header == Lines().end()) return AppendSection(Section, std::move(line));
    // Kept: past headers, as long as no empty line comes.
    for (auto section = header;; section = Lines().NextHeader(section)) {
        const auto key = Lines().FindKey(section, Ident);
        const auto empty = Lines().FirstEmpty(section);
        if (key != Lines().end() && (empty == Lines().end() || TKxIniLines::IsInOrder(key, empty)))
            return Lines().Replace(key, std::move(line));
        if (empty != Lines().end() || Lines().NextHeader(section) == Lines().end()) {
            Lines().Insert(empty, std::move(line));
            return;
        }
    }
}

void TKxIniList::AppendSection(std::string_view Section, std::string Line) {
    const auto empty = Lines().Insert(Lines().end(), {});
    try {
        Lines().Append(std::string("[").append(Section).append("]"));
        Lines().Append(std::move(Line));
    } catch (...) {
        Lines().Delete(empty, Lines().end());
        throw;
    }
}

void TKxIniList::SetLines(std::vector<std::string> Lines) {
    TKxIniLines store;
    for (std::string& line : Lines) store.Append(std::move(line));
    this->Lines().Swap(store);
}

void TKxIniList::ReadXYVector(std::string_view Section, TKxRealVector& X, TKxRealVector& Y) const {
    X.Clear();
    Y.Clear();
    const auto header = Lines().FindHeader(Section);
    // Kept: a file of nothing but points has no header.
    const auto first = header == Lines().end() ? Lines().begin() : std::next(header);
    ForEachLine(Lines(), first, [&](std::string Line) {
        const double x = ExtractOneReal(Line);
        const double y = ExtractOneReal(Line);
        X.Add(x);
        Y.Add(y);
    });
}

void TKxIniList::DeleteLeadingEmptyLines() {
    const auto filled =
        std::find_if(Lines().begin(), Lines().end(), [](auto& Line) { return !Line.Text.empty(); });
    Lines().Delete(Lines().begin(), filled);
}

// A settings file that cannot be read must not keep the program from starting.
TKxLargeIniFile::TKxLargeIniFile(std::string FileName) : FFileName(std::move(FileName)) {
    try {
        if (!IsMissing(FFileName)) Load();
    } catch (const std::bad_alloc&) {
        FLoadError = "no memory";
    } catch (const std::exception& error) {
        FLoadError = error.what();
    }
}

void TKxLargeIniFile::Load() {
    const TTextFile file = ReadTextFile(FFileName);
    SetText(file.Text);
    FHasMark = file.HasMark;
}

TKxLargeIniFile::~TKxLargeIniFile() {
    Guarded([this] { Save(); });
}

void TKxLargeIniFile::Save() {
    if (!Modified) return;
    if (!FLoadError.empty())
        throw EFileError(Escaped(FFileName) + ": not saved, for it could not be read before (" + FLoadError +
                         ")");
    DeleteLeadingEmptyLines();
    ReplaceFile(FFileName, std::string(FHasMark ? CByteOrderMark : "") + GetText());
    Modified = false;
}

} // namespace kx
