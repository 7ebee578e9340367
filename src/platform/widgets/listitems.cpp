#include <kxgraph/platform/widgets/listitems.h>

#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>

namespace kx {

void TListItems::DrawItem(TCanvas& Canvas, int Index, const TRect& Rect, TDrawState) {
    constexpr int CPadding = CFieldPadding - 1; // the frame of list or field is no part of the item
    const TRect inside{Rect.Left + CPadding, Rect.Top, Rect.Right - CPadding, Rect.Bottom};
    PaintText(Canvas, inside, ItemText(Index), taLeftJustify);
}

int TListItems::FindItem(std::string_view Prefix, int After) const {
    const int count = ItemCount();
    for (int i = 1; i <= count; ++i) {
        const int index = (std::max(After, -1) + i) % count;
        if (ItemEnabled(index) && StartsWithText(ItemText(index), Prefix)) return index;
    }
    return -1;
}

int TListItems::StepFrom(int Index, int Steps) const {
    const int last = ItemCount() - 1, step = Steps < 0 ? -1 : 1;
    int at = std::clamp(Index + Steps, 0, std::max(last, 0));
    for (int i = at; i >= 0 && i <= last; i += step)
        if (ItemEnabled(i)) return i;
    for (; at >= 0 && at <= last; at -= step)
        if (ItemEnabled(at)) return at;
    return Index;
}

int TListItems::KeyTarget(int Key, int At, int Page) const {
    switch (Key) {
    case kcUp: return StepFrom(At, At < 0 ? 0 : -1);
    case kcDown: return StepFrom(At, 1);
    case kcPageUp: return StepFrom(At, -Page);
    case kcPageDown: return StepFrom(At, Page);
    case kcHome: return StepFrom(0, 0);
    case kcEnd: return StepFrom(ItemCount() - 1, 0);
    default: return -1;
    }
}

int TListItems::TypedTarget(TTypedPrefix& Prefix, std::string_view Text, int At) const {
    bool asNext = false;
    const std::string& prefix = Prefix.Add(Text, asNext);
    return FindItem(prefix, asNext ? At : At - 1);
}

std::string JoinLines(const std::vector<std::string>& Lines) {
    std::string text;
    for (const auto& line : Lines) text.append(&line == Lines.data() ? "" : "\n").append(line);
    return text;
}

std::vector<std::string> SplitLines(std::string_view Text) {
    std::vector<std::string> lines;
    while (!Text.empty()) {
        const std::size_t end = std::min(Text.find('\n'), Text.size());
        const bool returns = end > 0 && Text[end - 1] == '\r';
        lines.emplace_back(Text.substr(0, returns ? end - 1 : end));
        Text.remove_prefix(std::min(end + 1, Text.size()));
    }
    return lines;
}

const std::string& TTypedPrefix::Add(std::string_view Text, bool& AsNext) {
    constexpr int CMemory = 1000; // milliseconds
    const bool repeats = FText == Text;
    AsNext = FText.empty() || repeats;
    if (!repeats) FText += Text;
    FTimer =
        TApplication::Instance().GetHost().StartTimer(CMemory, TEvent<>::Of<&TTypedPrefix::Elapsed>(this));
    return FText;
}

void TTypedPrefix::Clear() {
    FText.clear();
    FTimer.reset();
}

void TTypedPrefix::Elapsed() { Clear(); }

} // namespace kx
