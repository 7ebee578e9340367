// Companions: who is told, the room that they are given, and their part of the outfit.

#include <kxgraph/graph/Kxgraph2d.h>

#include <algorithm>

namespace kx {

void TKx2DGraph::RegisterCompanion(TComponent* Component, TKxGraphCompanion* Companion) {
    UnregisterCompanion(Component);
    FCompanions.push_back({Component, Companion});
    Component->FreeNotification(this);
    Modified();
}

void TKx2DGraph::UnregisterCompanion(TComponent* Component) {
    const auto gone =
        std::erase_if(FCompanions, [Component](const TCompanion& C) { return C.Component == Component; });
    if (gone) Modified();
}

void TKx2DGraph::ItemsModified() {
    for (const auto& [component, companion] : FCompanions) companion->ItemsModified();
}

std::vector<TKxGraphCompanion*> TKx2DGraph::CompanionsInOrder() const {
    std::vector<TCompanion> sorted = FCompanions;
    std::stable_sort(sorted.begin(), sorted.end(), [](const TCompanion& A, const TCompanion& B) {
        return A.Component->GetComponentIndex() < B.Component->GetComponentIndex();
    });
    std::vector<TKxGraphCompanion*> companions;
    companions.reserve(sorted.size());
    for (const auto& [component, companion] : sorted) companions.push_back(companion);
    return companions;
}

namespace {

/// The strip of Area whose inner edge lies From pixels from the side.
TRect StripOf(const TKxCompanionRoom& Room, int From, const TRect& Area) {
    return Room.Side.Band(Area, Room.Side.OuterPixel(Area) - Room.Side.Outward() * (From - 1), Room.Extent);
}

} // namespace

std::vector<TKx2DGraph::TGivenRoom> TKx2DGraph::ReserveRoom(TKxLayoutInput& Input) const {
    std::vector<TGivenRoom> rooms;
    if (FCompanions.empty()) return rooms;
    const TSize world = LayOutGraph(Input).DrawingWorld.Size();
    TSize left{world.Width / 2, world.Height / 2};
    const TSize area{Input.Graph.Width, Input.Graph.Height - Input.TitleHeight};
    for (TKxGraphCompanion* companion : CompanionsInOrder()) {
        TKxCompanionRoom room = companion->GetRoom(area, left);
        if (!room.Side.IsFree()) {
            int& rest = room.Side.AcrossOf(left);
            room.Extent = std::clamp(room.Extent, 0, rest);
            rest -= room.Extent;
            room.Side.Of(Input.Reserved) += room.Extent;
        }
        rooms.push_back({companion, room});
    }
    return rooms;
}

void TKx2DGraph::PlaceCompanions(const std::vector<TGivenRoom>& Rooms, const TKxLayoutInput& Input,
                                 const TRect& Inside) const {
    const TRect area{0, Input.TitleHeight, Input.Graph.Width, Input.Graph.Height};
    TRect from = Input.Reserved; // the first one of a side lies innermost
    for (const auto& [companion, room] : Rooms) {
        TRect strip;
        if (!room.Side.IsFree()) {
            strip = StripOf(room, room.Side.Of(from), area);
            room.Side.Of(from) -= room.Extent;
        }
        companion->TakePlace({strip, FWorld->GetBoundsRect(), Inside});
    }
}

namespace {

AnsiString CompanionSection(const AnsiString& Section, int Number) {
    return Section + ".Legend" + (Number > 1 ? "(" + std::to_string(Number) + ")" : "");
}

} // namespace

void TKx2DGraph::SaveCompanions(const AnsiString& Section, TKxIniList& Ini) const {
    int number = 0;
    for (TKxGraphCompanion* companion : CompanionsInOrder())
        companion->SaveOutfit(CompanionSection(Section, ++number), Ini);
    // What an earlier save has left of more companions would dress a new one.
    while (Ini.SectionExists(CompanionSection(Section, ++number)))
        Ini.EraseSection(CompanionSection(Section, number));
}

void TKx2DGraph::LoadCompanions(const AnsiString& Section, TKxIniList& Ini) const {
    int number = 0;
    for (TKxGraphCompanion* companion : CompanionsInOrder()) {
        const AnsiString section = CompanionSection(Section, ++number);
        if (Ini.SectionExists(section)) companion->LoadOutfit(section, Ini);
    }
}

} // namespace kx
