
#include <kxgraph/persist/Kxlargeini.h>

#include "support/testing.h"

#include <kxgraph/platform/text/text.h>

namespace kx::test::iniindex {

/// The store as plain lines that are scanned, word for word as the rules are told.
class TScannedStore : public TStringList {
public:
    std::string Read(const std::string& Section, const std::string& Ident) const {
        const int header = Header(Section);
        for (int i = header + 1; header >= 0 && i < GetCount(); ++i) {
            if (IsKey(i, Ident)) return GetLine(i).substr(Ident.size() + 1);
            if (GetLine(i).starts_with('[')) break;
        }
        return "(default)";
    }
    void Write(const std::string& Section, const std::string& Ident, const std::string& Value) {
        const std::string line = Ident + "=" + Value;
        int i = Header(Section) + 1;
        if (i == 0) return SetText(GetText() + "\n[" + Section + "]\n" + line);
        while (i < GetCount() && !GetLine(i).empty())
            if (IsKey(i++, Ident)) return PutLine(i - 1, line);
        Insert(i, line);
    }
    void Erase(const std::string& Section) {
        const int header = Header(Section);
        if (header < 0) return;
        do Delete(header);
        while (header < GetCount() && !GetLine(header).starts_with('['));
    }

private:
    int Header(const std::string& Section) const {
        for (int i = 0; i < GetCount(); ++i)
            if (UpperCase(GetLine(i)) == UpperCase("[" + Section + "]")) return i;
        return -1;
    }
    bool IsKey(int Index, const std::string& Ident) const {
        return UpperCase(GetLine(Index)).starts_with(UpperCase(Ident) + "=");
    }
};

// Names and lines that meet in awkward ways: cases, "=" in names, brackets in keys and in sections.
const std::array<std::string, 7> CSections{"A", "a", "B", "", "x]", "A][B", "[x"};
const std::array<std::string, 8> CIdents{"a", "A", "a=b", "A=", "[x", "", "[b]", "key"};
const std::array<std::string, 18> CLines{"",    "",     "",      "[A]",  "[a]",   "[B]", "[", "[x",   "[]",
                                         "a=1", "a=b=", "A=B=4", "[x=5", "[b]=6", "=7",  "b", " a=9", "[x]"};

TEST(IniIndex, AnswersLikeAScanAfterAnyChanges) {
    std::mt19937 random(4711);
    const auto below = [&](int Count) { return std::uniform_int_distribution(0, Count - 1)(random); };
    const auto oneOf = [&](const auto& List) { return List[std::size_t(below(int(List.size())))]; };
    TKxIniList ini;
    TScannedStore scanned;
    for (int step = 0; step < 20000; ++step) {
        const std::string line = oneOf(CLines), section = oneOf(CSections), ident = oneOf(CIdents);
        const int what = below(12), count = ini.GetCount(), index = below(count + 1);
        std::string text;
        for (int i = below(30); i > 0; --i) text += oneOf(CLines) + "\n";
        for (TStrings* lines : {static_cast<TStrings*>(&ini), static_cast<TStrings*>(&scanned)}) {
            if (what == 0) lines->SetText(text);
            if (what == 1 && index < count) lines->Delete(index);
            if (what == 2 && index < count) lines->PutLine(index, line);
            if (what == 3) lines->Insert(index, line);
            for (int i = 0; what == 4 && count < 60 && i < 20; ++i) lines->Insert(index + i % 2, line);
        }
        if (what == 5) ini.EraseSection(section), scanned.Erase(section);
        if (what > 5)
            ini.WriteInteger(section, ident, step), scanned.Write(section, ident, std::to_string(step));
        for (int i = 0; i < 3 && ini.GetCount() > 0; ++i) { // before all lines are read in turn
            const int at = below(ini.GetCount());
            ASSERT_EQ(ini.GetLine(at), scanned.GetLine(at)) << "step " << step;
        }
        ASSERT_EQ(ini.GetText(), scanned.GetText()) << "step " << step;
        for (const auto& name : CSections)
            ASSERT_EQ(ini.ReadString(name, ident, "(default)"), scanned.Read(name, ident))
                << name << ini.GetText();
    }
}

TEST(IniIndex, NeverScansItsKeys) {
    TKxIniList ini;
    for (int i = 0; i < 100000; ++i) ini.WriteInteger(std::to_string(i % 1000), std::to_string(i), i);
    for (int i = 0; i < 100000; ++i) // scanning would run into the time limit
        ASSERT_EQ(ini.ReadInteger(std::to_string(i % 1000), std::to_string(i), -1), i);
}

} // namespace kx::test::iniindex
