#include "kxplot/plan/remedies.h"

namespace kxplot {

using namespace kx;

namespace {

const char* RemedyFor(TKxTableRemedy Remedy) {
    switch (Remedy) {
    case TKxTableRemedy::Skip: return "--skip N leaves out N lines in front of the table";
    case TKxTableRemedy::Block: return "--block N takes one of them";
    case TKxTableRemedy::DateOrder: return "--date-order dmy, mdy or ymd decides";
    case TKxTableRemedy::DecimalSign: return "--decimal point or comma decides";
    case TKxTableRemedy::Missing: return "--missing TEXT makes such cells gaps";
    case TKxTableRemedy::SkipOrMissing:
        return "--missing TEXT makes such cells gaps, --skip N leaves out N lines in front of the table";
    case TKxTableRemedy::Column: return "-x and -y name others";
    case TKxTableRemedy::None: break;
    }
    return nullptr;
}

} // namespace

// Bars stand side by side; there is no line that could break between blocks.
TKxTableFormat FormatOf(const TOptions& Options) {
    TKxTableFormat format = Options.Data.Table.Format;
    format.Header = Options.Data.Header;
    format.PartBlocks = !Options.Drawing.HasBars();
    return format;
}

ETableError WithRemedy(const ETableError& Error) {
    const char* const remedy = RemedyFor(Error.GetRemedy());
    return remedy ? ETableError(Error.Message() + "; " + remedy) : Error;
}

} // namespace kxplot
