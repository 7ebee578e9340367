#include <kxgraph/platform/objects/lists.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/files.h>

#include <algorithm>
#include <utility>

namespace kx {

std::string TStrings::GetText() const {
    std::string text;
    for (int i = 0; i < GetCount(); ++i) (text += GetLine(i)) += '\n';
    return text;
}

void TStrings::SetText(std::string_view Text) {
    std::vector<std::string> lines;
    while (!Text.empty()) {
        const std::size_t end = std::min(Text.find_first_of("\r\n"), Text.size());
        lines.emplace_back(Text.substr(0, end));
        Text.remove_prefix(end);
        if (Text.starts_with("\r\n"))
            Text.remove_prefix(2);
        else if (!Text.empty())
            Text.remove_prefix(1);
    }
    SetLines(std::move(lines));
}

void TStrings::LoadFromFile(const std::string& FileName) { SetText(ReadTextFile(FileName).Text); }

void TStrings::SaveToFile(const std::string& FileName) const { ReplaceFile(FileName, GetText()); }

void TStrings::Assign(const TPersistent& Source) {
    const auto* lines = dynamic_cast<const TStrings*>(&Source);
    if (!lines) {
        TPersistent::Assign(Source);
        return;
    }
    std::vector<std::string> copy;
    copy.reserve(static_cast<std::size_t>(lines->GetCount()));
    for (int i = 0; i < lines->GetCount(); ++i) copy.push_back(lines->GetLine(i));
    SetLines(std::move(copy));
}

const std::string& TStringList::GetLine(int Index) const {
    return FLines[CheckedIndex(Index, FLines.size())];
}

void TStringList::PutLine(int Index, std::string Line) {
    FLines[CheckedIndex(Index, FLines.size())] = std::move(Line);
}

void TStringList::Insert(int Index, std::string Line) {
    const auto place = static_cast<std::ptrdiff_t>(CheckedIndex(Index, FLines.size() + 1));
    FLines.insert(FLines.begin() + place, std::move(Line));
}

void TStringList::Delete(int Index) {
    const auto place = static_cast<std::ptrdiff_t>(CheckedIndex(Index, FLines.size()));
    FLines.erase(FLines.begin() + place);
}

} // namespace kx
