#include "kxplot/fit/fit.h"
#include "kxplot/follow/follow.h"
#include "kxplot/messages.h"
#include "kxplot/plan/joined.h"
#include "kxplot/run/draw.h"
#include "kxplot/show/livepicture.h"
#include "kxplot/show/show.h"
#include "kxplot/write/framefaults.h"
#include "kxplot/write/outputs.h"

#include <exception>
#include <utility>

namespace kxplot {

namespace {

/// Shows what the table has while it grows.
void ShowGrowing(const TWindowPart& Window, TFollowedTable& Table, const TOptions& Options) {
    TPlan plan = Table.GetWhole();
    AddFunctions(plan, Options);
    TPicture picture(std::move(plan));
    if (!Options.Look.Outfit.empty()) picture.LoadOutfit(Options.Look.Outfit);
    picture.Apply();
    const TFindings found = Fit(picture.GetParts());
    picture.Finish(found.Labels);
    TLivePicture live(picture, Table, Options);
    Show(Window, picture, found, Options, [&] {
        try {
            live.Poll();
        } catch (const std::exception& error) { // the window's loop knows no exceptions
            Tell(ReasonOf(error));
            return false;
        }
        return !TEndSignals::HaveCome();
    });
}

} // namespace

int DrawFollowed(TOptions Options) {
    CheckOutputs(Options.Outputs, Options.Data.Files(), Options.Look.Outfit);
    std::string text;
    if (const TWindowPart* window = LoadWindow(Options.Window)) {
        const TEndSignals signals;
        TFollowedTable table(Options);
        if (WaitForTable(table)) ShowGrowing(*window, table, Options);
        text = table.GetText();
        Options.Window.Show = false;
        if (Options.Outputs.AreNone()) return 0;
    } else {
        text = FollowToTheEnd(Options);
    }
    return Draw(Options, &text);
}

} // namespace kxplot
