#include <kxgraph/analysis/Kxresultsection.h>

#include <utility>

namespace kx {

void TKxResultSection::Leave() {
    if (FIni) FIni->DoNotWait(*this);
    FIni = nullptr;
}

void TKxResultSection::Wait(TKxIniList& Ini) {
    Leave();
    Ini.WriteLater(*this);
    FIni = &Ini;
}

void TKxResultSection::Store(TKxIniList& Ini, const AnsiString& Section, bool HasSameKeys) {
    const bool isElsewhere = Section != FSection;
    if (isElsewhere) {
        Erase(Ini);
        FSection = Section;
    }
    // One that is written anew comes behind all others that are.
    const bool isNew = !isElsewhere && !HasSameKeys;
    if (isNew || !FIni) Wait(Ini);
    FIsNew |= isNew;
}

// What waits is written as shortly as can be, for the empty lines that sections leave behind.
void TKxResultSection::Erase(TKxIniList& Ini) {
    FIsGoing = true;
    try {
        Ini.EraseSection(FSection);
    } catch (...) {
        FIsGoing = false;
        throw;
    }
    FIsGoing = FIsNew = false;
    FSection.clear();
}

bool TKxResultSection::StandsIn(const TKxIniList& Ini) const {
    TStringList keys, present;
    FFound.ForEach([&](const TKxResult& Result) { keys.Add(Result.Key); });
    Ini.ReadSection(FSection, present);
    return keys.GetText() == present.GetText();
}

void TKxResultSection::WriteLate(TKxIniList& Ini) {
    if (FIsNew || !Ini.SectionExists(FSection) || (!FIsGoing && !StandsIn(Ini))) {
        Ini.EraseSection(FSection);
        while (Ini.GetCount() > 0 && Ini.GetLine(Ini.GetCount() - 1).empty()) Ini.Delete(Ini.GetCount() - 1);
    }
    if (!FIsGoing)
        WriteResults(FFound, Ini, FSection);
    else if (!Ini.SectionExists(FSection))
        Ini.WriteString(FSection, "Calculation", "");
    FIsNew = false;
    FIni = nullptr;
}

} // namespace kx
