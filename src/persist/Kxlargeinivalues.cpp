// Numbers in a store: one or several in a value.

#include <kxgraph/numeric/Kxstrings.h>
#include <kxgraph/persist/Kxlargeini.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <limits>

namespace kx {

namespace {

/// Takes one number after the other out of a value. Each extraction is given a piece that holds the next
/// number and one character behind it: with the whole rest a long value would be copied once per number.
class TNumberReader {
public:
    explicit TNumberReader(std::string_view Text) : FRest(Text) {}

    /// Whether any text is left; after a real this is a number.
    bool HasMore() const { return !FRest.empty(); }
    std::int32_t NextInt() { return Next(&ExtractOneInt); }
    /// What is not finite is read as it is written: INF, -INF or NAN.
    double NextReal() {
        SkipToReal();
        const TWord* word = NotFinite();
        const double value = word ? word->Value : Next(&ExtractOneReal);
        if (word) FRest.remove_prefix(word->Text.size());
        SkipToReal();
        return value;
    }

private:
    static constexpr std::string_view CNumberCharacters = "+-.0123456789Ee";
    struct TWord {
        std::string_view Text;
        double Value;
    };

    static bool IsNumberCharacter(char C) { return CNumberCharacters.find(C) != CNumberCharacters.npos; }
    static bool IsLetter(char C) { return (C >= 'A' && C <= 'Z') || (C >= 'a' && C <= 'z'); }

    void SkipToNumber() {
        FRest.remove_prefix(std::min(FRest.find_first_of(CNumberCharacters), FRest.size()));
    }

    void SkipToReal() {
        for (bool inWord = false; !FRest.empty() && !IsNumberCharacter(FRest[0]); FRest.remove_prefix(1)) {
            if (!inWord && NotFinite()) return;
            inWord = IsLetter(FRest[0]);
        }
    }

    /// The one that the rest begins with, as a word of its own.
    const TWord* NotFinite() const {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        static constexpr TWord words[] = {
            {"INF", infinity}, {"-INF", -infinity}, {"NAN", std::numeric_limits<double>::quiet_NaN()}};
        for (const TWord& word : words) {
            const bool ends = FRest.size() <= word.Text.size() || !IsLetter(FRest[word.Text.size()]);
            if (FRest.starts_with(word.Text) && ends) return &word;
        }
        return nullptr;
    }

    template <class T>
    T Next(T (*Extract)(std::string&)) {
        SkipToNumber();
        const auto stop = FRest.find_first_not_of(CNumberCharacters);
        std::string piece(FRest.substr(0, stop == FRest.npos ? stop : stop + 1));
        const auto length = piece.size();
        const T value = Extract(piece);
        FRest.remove_prefix(length - piece.size());
        return value;
    }

    std::string_view FRest;
};

/// Calls Read with the numbers of a value, unless it is empty.
template <class F>
void ReadNumbers(const TKxIniList& Ini, std::string_view Section, std::string_view Ident, F Read) {
    const std::string text = Ini.ReadString(Section, Ident, "");
    if (text.empty()) return;
    try {
        TNumberReader numbers(text);
        Read(numbers);
    } catch (const Exception& error) {
        throw EIniError(error.Message(), Section, Ident);
    }
}

template <class T, class F>
std::string Joined(const T* Values, int Count, F ToText) {
    std::string text;
    for (int i = 0; i < Count; ++i) (text += i ? ";" : "") += ToText(Values[i]);
    return text;
}

} // namespace

std::int32_t TKxIniList::ReadInteger(std::string_view Section, std::string_view Ident,
                                     std::int32_t Default) const {
    std::string text = ReadString(Section, Ident, "");
    if (text.empty()) return Default;
    try {
        return ExtractOneInt(text);
    } catch (const Exception&) {
        return Default;
    }
}

void TKxIniList::WriteInteger(std::string_view Section, std::string_view Ident, std::int32_t Value) {
    WriteString(Section, Ident, std::to_string(Value));
}

bool TKxIniList::ReadBool(std::string_view Section, std::string_view Ident, bool Default) const {
    const std::string text = ReadString(Section, Ident, "");
    return text.empty() ? Default : text == "1" || SameText(text, "TRUE");
}

void TKxIniList::WriteBool(std::string_view Section, std::string_view Ident, bool Value) {
    WriteString(Section, Ident, Value ? "1" : "0");
}

double TKxIniList::ReadReal(std::string_view Section, std::string_view Ident, double Default) const {
    const std::string text = ReadString(Section, Ident, "");
    if (text.empty()) return Default;
    try {
        return TNumberReader(text).NextReal();
    } catch (const Exception&) {
        return Default;
    }
}

void TKxIniList::WriteReal(std::string_view Section, std::string_view Ident, double X) {
    WriteString(Section, Ident, RealToAmericanStr(X));
}

void TKxIniList::WriteRealDigits(std::string_view Section, std::string_view Ident, double X,
                                 std::int16_t Digits) {
    WriteString(Section, Ident, RealToAmericanStrDigits(X, Digits));
}

void TKxIniList::ReadRealArray(std::string_view Section, std::string_view Ident, double* Values,
                               int High) const {
    ReadNumbers(*this, Section, Ident, [&](TNumberReader& Numbers) {
        for (int i = 0; i <= High; ++i) Values[i] = Numbers.NextReal();
    });
}

void TKxIniList::WriteRealArray(std::string_view Section, std::string_view Ident, const double* Values,
                                int High) {
    WriteString(Section, Ident, Joined(Values, High + 1, &RealToAmericanStr));
}

void TKxIniList::ReadRealVector(std::string_view Section, std::string_view Ident,
                                TKxRealVector& Vector) const {
    Vector.Clear();
    const std::string text = ReadString(Section, Ident, "");
    TNumberReader numbers(text);
    try {
        while (numbers.HasMore()) Vector.Add(numbers.NextReal());
    } catch (const Exception&) {
        // What was read until here is what there is.
    }
}

void TKxIniList::WriteRealVector(std::string_view Section, std::string_view Ident,
                                 const TKxCustomRealVector& Vector) {
    WriteRealArray(Section, Ident, Vector.Values().data(), Vector.GetCount() - 1);
}

void TKxIniList::ReadIntArray(std::string_view Section, std::string_view Ident,
                              const TKxIntegerArray& Array) const {
    ReadNumbers(*this, Section, Ident, [&](TNumberReader& Numbers) {
        for (std::int32_t& value : Array) value = Numbers.NextInt();
    });
}

void TKxIniList::WriteIntArray(std::string_view Section, std::string_view Ident,
                               const TKxIntegerArray& Array) {
    if (Array.IsEmpty()) throw ERangeError("The array to be written is empty");
    WriteString(Section, Ident, Joined(Array.Data(), Array.Length(), [](std::int32_t Value) {
                    return std::to_string(Value);
                }));
}

void TKxIniList::ReadRealPos(std::string_view Section, std::string_view Ident, TKxRealPos& Pos) const {
    ReadNumbers(*this, Section, Ident, [&](TNumberReader& Numbers) {
        Pos.X = Numbers.NextReal();
        Pos.Y = Numbers.NextReal();
    });
}

void TKxIniList::WriteRealPos(std::string_view Section, std::string_view Ident, const TKxRealPos& Pos) {
    const double values[] = {Pos.X, Pos.Y};
    WriteRealArray(Section, Ident, values, 1);
}

} // namespace kx
