#include <kxgraph/editing/Kxcaptioncells.h>

#include <algorithm>

namespace kx {

namespace {

constexpr TKxCaptionSwitch CSwitches[] = {
    TKxCaptionSwitch::Symbol,    TKxCaptionSwitch::Bold,      TKxCaptionSwitch::Italic,
    TKxCaptionSwitch::Underline, TKxCaptionSwitch::StrikeOut, TKxCaptionSwitch::Superscript,
    TKxCaptionSwitch::Subscript,
};

/// Appends characters to a caption, and the switches that their looks need.
class TCaptionWriter {
public:
    void Put(const TKxCaptionCell& Cell) {
        TurnTo(Cell.Looks);
        if (Cell.Text == " " && FBehindEscape) FCaption += ' '; // the escape swallows one
        FBehindEscape = Cell.Text == "\\";
        if (FBehindEscape) FCaption += '\\';
        FCaption += Cell.Text;
    }
    TKxCaption Finish() {
        TurnTo({});
        return std::move(FCaption);
    }

private:
    // Those that end come first: the size is that of the one that was switched last.
    void TurnTo(const TKxCaptionLooks& Looks) {
        for (const bool on : {false, true})
            for (const TKxCaptionSwitch which : CSwitches)
                if (HasLook(which, Looks) == on && HasLook(which, FLooks) != on) Toggle(which);
        for (const auto which : {TKxCaptionSwitch::Superscript, TKxCaptionSwitch::Subscript})
            if (FLooks.Small != Looks.Small && HasLook(which, Looks) == Looks.Small) {
                Toggle(which);
                Toggle(which);
            }
    }
    void Toggle(TKxCaptionSwitch Which) {
        ToggleLook(Which, FLooks);
        FCaption += '\\';
        FCaption += CCaptionSigns[std::size_t(Which)];
        FBehindEscape = true;
    }

    TKxCaption FCaption;
    TKxCaptionLooks FLooks;
    bool FBehindEscape = false;
};

void AddCells(std::string_view Text, const TKxCaptionLooks& Looks, TKxCaptionCells& Cells) {
    for (std::size_t at = 0; at < Text.size(); at += Cells.back().Text.size())
        Cells.push_back({std::string(Text.substr(at, std::size_t(DecodeAt(Text, at).Length))), Looks});
}

enum class TSign { Blank, Letter, Other };

TSign SignOf(const TKxCaptionCell& Cell) {
    const char c = Cell.Text.front();
    if (c == ' ' || Cell.Text == "\u00A0") return TSign::Blank;
    const bool isLetter = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                          c == '_' || static_cast<unsigned char>(c) >= 0x80;
    return isLetter ? TSign::Letter : TSign::Other;
}

} // namespace

TKxCaptionCells CellsOf(const TKxCaption& Caption) {
    TKxCaptionCells cells;
    for (const TKxCaptionRun& run : ParseCaption(ToValidUtf8(Caption)).Runs)
        AddCells(run.Text, run.Looks, cells);
    return cells;
}

std::string OneLine(std::string_view Text) {
    std::string line;
    for (std::size_t i = 0; i < Text.size(); ++i) {
        const char c = Text[i];
        if (c == '\t' || c == '\n' || (c == '\r' && Text.substr(i, 2) != "\r\n"))
            line += ' ';
        else if (static_cast<unsigned char>(c) >= ' ' && c != '\x7f')
            line += c;
    }
    return line;
}

TKxCaptionCells CellsOfText(std::string_view Text, const TKxCaptionLooks& Looks) {
    TKxCaptionCells cells;
    AddCells(OneLine(ToValidUtf8(Text)), Looks, cells);
    return cells;
}

TKxCaption CaptionOf(TKxCaptionCellSpan Cells) {
    TCaptionWriter writer;
    for (const TKxCaptionCell& cell : Cells) writer.Put(cell);
    return writer.Finish();
}

std::string TextOf(TKxCaptionCellSpan Cells) {
    std::string text;
    for (const TKxCaptionCell& cell : Cells) text += cell.Text;
    return text;
}

bool ReadsAsMarkup(std::string_view Text) {
    const TKxParsedCaption caption = ParseCaption(Text);
    TKxCaptionLooks looks;
    for (const auto& at : caption.Switches) ToggleLook(at.Switch, looks);
    return !caption.Switches.empty() && looks == TKxCaptionLooks{};
}

void SetLook(TKxCaptionSwitch Which, bool On, TKxCaptionLooks& Looks) {
    if (HasLook(Which, Looks) != On) ToggleLook(Which, Looks);
    const bool isSuper = Which == TKxCaptionSwitch::Superscript, isSub = Which == TKxCaptionSwitch::Subscript;
    if (!isSuper && !isSub) return;
    if (On) (isSuper ? Looks.Subscript : Looks.Superscript) = false;
    Looks.Small = Looks.Superscript || Looks.Subscript;
}

int WordBefore(TKxCaptionCellSpan Cells, int At) {
    const auto sign = [&](int Index) { return SignOf(Cells[std::size_t(Index)]); };
    while (At > 0 && sign(At - 1) == TSign::Blank) --At;
    return At > 0 ? WordAt(Cells, At - 1).Start : 0;
}

int WordBehind(TKxCaptionCellSpan Cells, int At) {
    const int count = int(Cells.size());
    if (At >= count) return count;
    At = WordAt(Cells, At).End;
    while (At < count && SignOf(Cells[std::size_t(At)]) == TSign::Blank) ++At;
    return At;
}

TKxCaptionStretch WordAt(TKxCaptionCellSpan Cells, int At) {
    if (Cells.empty()) return {};
    const int count = int(Cells.size());
    TKxCaptionStretch word{std::clamp(At, 0, count - 1), 0};
    const TSign sign = SignOf(Cells[std::size_t(word.Start)]);
    const auto isSame = [&](int Index) { return SignOf(Cells[std::size_t(Index)]) == sign; };
    word.End = word.Start + 1;
    while (word.Start > 0 && isSame(word.Start - 1)) --word.Start;
    while (word.End < count && isSame(word.End)) ++word.End;
    return word;
}

} // namespace kx
