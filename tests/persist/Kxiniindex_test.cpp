#include "persist/Kxlargeini.h"
#include "platform/exceptions.h"
#include "platform/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <random>
#include <string>
#include <vector>

namespace kx {
namespace {

/// The store as plain lines that are scanned, word for word as the rules are told.
struct TScannedStore {
    std::vector<std::string> Lines;

    int Count() const { return static_cast<int>(Lines.size()); }
    std::string& At(int Index) { return Lines[static_cast<std::size_t>(Index)]; }
    int Header(const std::string& Section) {
        for (int i = 0; i < Count(); ++i)
            if (UpperCase(At(i)) == UpperCase("[" + Section + "]")) return i;
        return -1;
    }
    bool IsKey(int Index, const std::string& Ident) {
        return UpperCase(At(Index)).rfind(UpperCase(Ident) + "=", 0) == 0;
    }
    std::string Read(const std::string& Section, const std::string& Ident) {
        const int header = Header(Section);
        for (int i = header + 1; header >= 0 && i < Count(); ++i) {
            if (IsKey(i, Ident)) return At(i).substr(Ident.size() + 1);
            if (At(i).rfind('[', 0) == 0) break;
        }
        return "(default)";
    }
    void Write(const std::string& Section, const std::string& Ident, const std::string& Value) {
        const std::string line = Ident + "=" + Value;
        const int header = Header(Section);
        if (header < 0) {
            for (const auto& added : {std::string(), "[" + Section + "]", line}) Lines.push_back(added);
            return;
        }
        int i = header + 1;
        for (; i < Count() && !At(i).empty(); ++i)
            if (IsKey(i, Ident)) {
                At(i) = line;
                return;
            }
        Lines.insert(Lines.begin() + i, line);
    }
    void Erase(const std::string& Section) {
        const int header = Header(Section);
        if (header < 0) return;
        int last = header + 1;
        while (last < Count() && At(last).rfind('[', 0) != 0) ++last;
        Lines.erase(Lines.begin() + header, Lines.begin() + last);
    }
    std::string Text() {
        std::string text;
        for (const auto& line : Lines) text += line + "\n";
        return text;
    }
};

// Names and lines that meet in awkward ways: cases, "=" in names, brackets in keys and in sections.
const std::array<std::string, 7> CSections{"A", "a", "B", "", "x]", "A][B", "[x"};
const std::array<std::string, 9> CIdents{"a", "A", "b", "a=b", "A=", "[x", "", "[b]", "key"};
const std::array<std::string, 20> CLines{"",      "",   "",    "[A]", "[a]",  "[B]",     "[",
                                         "[x",    "[]", "a=1", "A=2", "a=b=", "A=B=4",   "[x=5",
                                         "[b]=6", "=7", "b",   "b=8", " a=9", "[b] = 10"};

class TRandomStores {
public:
    explicit TRandomStores(unsigned Seed) : FRandom(Seed) {}
    int Below(int Count) { return std::uniform_int_distribution(0, Count - 1)(FRandom); }
    template <class L>
    const std::string& OneOf(const L& List) {
        return List[static_cast<std::size_t>(Below(static_cast<int>(List.size())))];
    }

    void Step(TKxIniList& Ini, TScannedStore& Scanned) {
        const std::string section = OneOf(CSections), ident = OneOf(CIdents), line = OneOf(CLines);
        const int count = Scanned.Count(), index = Below(count + 1);
        switch (Below(14)) {
        case 0: // a file made by hand
            Scanned.Lines.clear();
            for (int i = Below(30); i > 0; --i) Scanned.Lines.push_back(OneOf(CLines));
            Ini.SetText(Scanned.Text());
            break;
        case 1:
            Ini.EraseSection(section);
            Scanned.Erase(section);
            break;
        case 2:
        case 3:
            Ini.Insert(index, line);
            Scanned.Lines.insert(Scanned.Lines.begin() + index, line);
            break;
        case 4:
            if (index == count) break;
            Ini.Delete(index);
            Scanned.Lines.erase(Scanned.Lines.begin() + index);
            break;
        case 5:
        case 6:
            if (index == count) break;
            Ini.PutLine(index, line);
            Scanned.At(index) = line;
            break;
        case 7: // the numbers between two lines run out
            if (count > 60) break;
            Ini.Insert(index, line);
            Scanned.Lines.insert(Scanned.Lines.begin() + index, line);
            for (int i = 0; i < 20; ++i) {
                Ini.Insert(index + i % 2, line);
                Scanned.Lines.insert(Scanned.Lines.begin() + index + i % 2, line);
            }
            break;
        default:
            const std::string value = std::to_string(Below(1000));
            Ini.WriteString(section, ident, value);
            Scanned.Write(section, ident, value);
        }
    }

private:
    std::mt19937 FRandom;
};

TEST(IniIndex, AnswersLikeAScanAfterAnyChanges) {
    TRandomStores random(4711);
    TKxIniList ini;
    TScannedStore scanned;
    for (int step = 0; step < 20000; ++step) {
        random.Step(ini, scanned);
        ASSERT_EQ(ini.GetText(), scanned.Text()) << "step " << step;
        for (const auto& section : CSections) {
            ASSERT_EQ(ini.SectionExists(section), scanned.Header(section) >= 0);
            const std::string& ident = random.OneOf(CIdents);
            ASSERT_EQ(ini.ReadString(section, ident, "(default)"), scanned.Read(section, ident))
                << "step " << step << " [" << section << "] " << ident << "\n"
                << scanned.Text();
        }
    }
}

TEST(IniIndex, LinesAreReachedByNumberWithinTheList) {
    TKxIniList ini;
    ini.SetText("[A]\n\n[B]\n");
    EXPECT_EQ(ini.GetLine(2), "[B]");
    ini.WriteString("A", "k", "1"); // moves the lines behind it
    EXPECT_EQ(ini.GetLine(1), "k=1");
    EXPECT_EQ(ini.GetLine(3), "[B]");
    EXPECT_THROW(ini.GetLine(4), ERangeError);
    EXPECT_THROW(ini.Delete(-1), ERangeError);
    EXPECT_THROW(ini.PutLine(4, "x"), ERangeError);
    EXPECT_THROW(ini.Insert(5, "x"), ERangeError);
    EXPECT_EQ(ini.GetCount(), 4);
}

/// Seconds for writing Keys keys in Sections sections, a section after the other or all in turn, and reading
/// them.
double SecondsFor(int Keys, int Sections, bool InTurn) {
    const auto start = std::chrono::steady_clock::now();
    TKxIniList ini;
    const int perSection = Keys / Sections;
    for (int i = 0; i < Keys; ++i) {
        const int section = InTurn ? i % Sections : i / perSection,
                  key = InTurn ? i / Sections : i % perSection;
        ini.WriteInteger("S" + std::to_string(section), "K" + std::to_string(key), i);
    }
    long long sum = 0;
    for (int i = 0; i < Keys; ++i)
        sum += ini.ReadInteger("S" + std::to_string(i % Sections), "K" + std::to_string(i / Sections), -1);
    EXPECT_EQ(sum, static_cast<long long>(Keys) * (Keys - 1) / 2);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

TEST(IniIndex, TheCostOfKeysGrowsWithTheirNumberOnly) {
    for (const bool inTurn : {false, true})
        for (const int sections : {2, 1000}) {
            const double few =
                std::min({SecondsFor(4000, sections, inTurn), SecondsFor(4000, sections, inTurn),
                          SecondsFor(4000, sections, inTurn)});
            // 16 times the keys; a scan would take 256 times as long.
            EXPECT_LT(SecondsFor(64000, sections, inTurn), 100 * few) << sections << " sections";
        }
}

} // namespace
} // namespace kx
