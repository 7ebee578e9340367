#pragma once
// The section of a store that shows what a calculation has found. It is written when somebody looks: of a
// curve with thousands of extrema that is calculated for every frame hardly anybody ever does.

#include <kxgraph/persist/Kxresults.h>

namespace kx {

/// What stands in the store, once it is looked at, is the same as if each Store had written at once.
class TKxResultSection : public TKxLateWriter {
public:
    explicit TKxResultSection(const TKxResults& Found) : FFound(Found) {}
    ~TKxResultSection() override { Leave(); }
    TKxResultSection(const TKxResultSection&) = delete;
    TKxResultSection& operator=(const TKxResultSection&) = delete;

    /// What was found is new. Ini is where it is to stand in Section from now on. HasSameKeys is whether the
    /// keys are those of the time before. Where they are, the values are replaced in their place. Otherwise
    /// the section is written anew, at the end: a key that has gone, such as the coefficient of a higher
    /// order, must not stay.
    void Store(TKxIniList& Ini, const AnsiString& Section, bool HasSameKeys);
    /// Takes the section away.
    void Erase(TKxIniList& Ini);
    /// The store goes; it must not be written into any more.
    void Forget() { FIni = nullptr; }

    void WriteLate(TKxIniList& Ini) override;

private:
    void Wait(TKxIniList& Ini);
    void Leave();
    bool StandsIn(const TKxIniList& Ini) const;

    const TKxResults& FFound;
    TKxIniList* FIni = nullptr; ///< that it waits in
    AnsiString FSection;
    bool FIsNew = false; ///< whether it is to be written anew, even if the keys in the store are the same
    bool FIsGoing = false;
};

} // namespace kx
