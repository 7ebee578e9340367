#include "kxplot/follow/followedtable.h"

#include "kxplot/messages.h"
#include "kxplot/plan/expressions.h"
#include "kxplot/plan/planner.h"
#include "kxplot/plan/remedies.h"

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/files.h>

#include <algorithm>
#include <utility>

namespace kxplot {

namespace {

/// Calls Use for each line with its end.
template <class F>
void ForEachLine(std::string_view Text, F Use) {
    while (!Text.empty()) {
        const std::size_t end = std::min(Text.find('\n'), Text.size() - 1) + 1;
        Use(Text.substr(0, end));
        Text.remove_prefix(end);
    }
}

/// A message without the numbers, names and cells in it, by which two are of one kind.
std::string KindOf(const std::string& Message) {
    std::string kind;
    bool quoted = false;
    for (const char c : Message) {
        quoted ^= c == '\'';
        if (!quoted && (c < '0' || c > '9')) kind += c;
    }
    return kind;
}

/// A few rows have no histogram.
TOptions OfRows(TOptions Options) {
    Options.Drawing.Bins.reset();
    return Options;
}

} // namespace

TFollowedTable::TFollowedTable(const TOptions& Options)
    : FAsked(Options), FOptions(OfRows(Options)), FFormat(FormatOf(Options)), FFile(Options.Data.File) {}

TPlan TFollowedTable::PlanOf(const kx::TKxTable& Table) const {
    kx::TKxTable table = Table;
    AddExpressions(table, FOptions);
    return MakePlan(table, FOptions);
}

void TFollowedTable::Complain(const std::string& What, const std::string& Kind) {
    if (FTold.insert(KindOf(Kind)).second) Tell(What);
}

/// The lines that Bytes complete.
std::string TFollowedTable::TakeLines(std::string Bytes) {
    std::string lines = std::exchange(FPartial, {}) + std::move(Bytes);
    const std::size_t end = lines.rfind('\n') + 1; // 0 without one
    FPartial = FFile.HasEnded() ? "" : lines.substr(end);
    if (!FFile.HasEnded()) lines.resize(end);
    return lines;
}

void TFollowedTable::ForgetRows() {
    FPartial.clear();
    FHead.clear();
    FLines.clear();
    FRows = 0;
    FShape.reset();
    FLine = 1;
}

TFollowedTable::TNews TFollowedTable::Poll() {
    TGrowingFile::TNews news = FFile.Read();
    if (news.IsAnew) ForgetRows();
    const std::string lines = TakeLines(std::move(news.Bytes));
    if (lines.empty()) return TNews::None;
    return FShape ? Continue(lines) : Begin(lines);
}

TFollowedTable::TNews TFollowedTable::Begin(const std::string& Lines) {
    FHead += Lines;
    if (FHead.starts_with(kx::CByteOrderMark)) FHead.erase(0, kx::CByteOrderMark.size());
    FFormat = FormatOf(FOptions);
    try {
        const kx::TKxTable table(FHead, FOptions.Data.File, FFormat);
        if (table.GetShape().WasUtf16) throw kx::Exception("--follow: a table in UTF-16 cannot be followed");
        FNew = PlanOf(table);
        LearnFormat(table);
    } catch (const kx::ETableError& error) { // a head without rows is no fault yet
        if (std::count(FHead.begin(), FHead.end(), '\n') > 1)
            Complain(std::string("waiting for a table: ") + error.what(), error.what());
        return TNews::None;
    }
    const std::string rows = FHead.substr(FShape->BodyAt);
    FHead.resize(FShape->BodyAt);
    FLine = FShape->BodyLine;
    Keep(rows);
    return TNews::Anew;
}

/// Later rows by themselves may not tell what the first ones did.
void TFollowedTable::LearnFormat(const kx::TKxTable& Table) {
    FShape = Table.GetShape();
    for (int column = 0; column < Table.GetColumnCount(); ++column) {
        const kx::TKxColumnWay way = Table.LearnWay(column);
        if (Table.IsDate(column) && way.DateOrder) FFormat.DateOrder = way.DateOrder;
        if (Table.IsNumeric(column) && way.Grouping != kx::TKxGrouping::None)
            FFormat.DecimalSign = FShape->DecimalComma ? ',' : '.';
    }
}

TFollowedTable::TNews TFollowedTable::Continue(const std::string& Lines) {
    if (Take(Lines, FLine)) {
        Keep(Lines);
        return TNews::Rows;
    }
    // Something is wrong in it: every line by itself.
    std::string good;
    long line = FLine;
    ForEachLine(Lines, [&](std::string_view Line) {
        if (Take(Line, line++)) good += Line;
    });
    const long next = line;
    if (!good.empty() && Take(good, FLine)) Keep(good);
    FLine = next;
    return good.empty() ? TNews::None : TNews::Rows;
}

/// Whether Lines, of which the first has the number Line, are rows of the table; their plan then is FNew.
bool TFollowedTable::Take(std::string_view Lines, long Line) {
    kx::TKxTableShape shape = *FShape;
    shape.BodyAt = 0;
    shape.BodyLine = Line;
    try {
        FNew = PlanOf(kx::TKxTable(Lines, FOptions.Data.File, FFormat, shape));
        return true;
    } catch (const kx::ETableError& error) {
        const bool one = std::count(Lines.begin(), Lines.end(), '\n') <= 1;
        if (one)
            Complain(std::string(error.what()) + "; the line is left out, and others like it", error.what());
        return false;
    }
}

/// Whether a line counts in the window.
bool TFollowedTable::IsRow(std::string_view Line) const {
    const auto first = Line.find_first_not_of(" \t\r\n");
    return first != Line.npos && FShape->Comments.find(Line[first]) == std::string::npos;
}

/// Takes lines, and lets the oldest go that are beyond the window.
void TFollowedTable::Keep(std::string_view Lines) {
    ForEachLine(Lines, [this](std::string_view Line) {
        FLines.emplace_back(Line);
        FRows += IsRow(Line);
        ++FLine;
        const auto& window = FOptions.Follow.Window;
        for (; window && FRows > *window; FLines.pop_front()) FRows -= IsRow(FLines.front());
    });
}

TPlan TFollowedTable::GetWhole() const {
    const std::string text = GetText();
    kx::TKxTable table(text, FOptions.Data.File, FFormat);
    AddExpressions(table, FAsked);
    return MakePlan(table, FAsked);
}

std::string TFollowedTable::GetText() const {
    std::string text = FHead;
    for (const std::string& line : FLines) text += line;
    return FShape ? text : text + FPartial;
}

} // namespace kxplot
