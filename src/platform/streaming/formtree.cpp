#include <kxgraph/platform/streaming/formtree.h>

#include <kxgraph/platform/text/text.h>

#include <string>
#include <utility>

namespace kx {

namespace {

class TParser {
public:
    explicit TParser(const TFormText& Text) : FText(Text) {}

    TFormObject Parse() {
        if (!IsWord("object")) FText.RaiseExpected(FAt, "'object'");
        TFormObject form = ParseObject(1);
        if (Kind() != TTokenKind::End) FText.Raise(FAt, "the file goes on behind the end of its form");
        return form;
    }

    std::vector<TFormObject> ParseAll() {
        std::vector<TFormObject> objects;
        while (Kind() != TTokenKind::End) {
            if (!IsWord("object")) FText.RaiseExpected(FAt, "'object'");
            DemandLine();
            objects.push_back(ParseObject(1));
        }
        return objects;
    }

private:
    TTokenKind Kind() const { return FText.GetToken(FAt).Kind; }
    bool IsWord(std::string_view Word) const {
        return Kind() == TTokenKind::Word && SameText(FText.TextOf(FAt), Word);
    }
    std::size_t Take(TTokenKind Expected, const char* What) {
        if (Kind() != Expected) FText.RaiseExpected(FAt, What);
        return FAt++;
    }
    void DemandLine() const {
        if (!FText.GetToken(FAt).BeginsLine) FText.Raise(FAt, "a new line is expected here");
    }

    TFormObject ParseObject(int Depth) {
        if (Depth > CDeepestNesting)
            FText.Raise(FAt, "objects stand in one another more than " + std::to_string(CDeepestNesting) +
                                 " deep");
        TFormObject object;
        const std::size_t start = FAt++;
        object.Class = Take(TTokenKind::Word, "the name of an object");
        if (Kind() == TTokenKind::Colon) {
            object.Name = object.Class;
            ++FAt;
            object.Class = Take(TTokenKind::Word, "the name of a class");
        }
        ParseContents(object, start, Depth);
        return object;
    }

    void ParseContents(TFormObject& Object, std::size_t Start, int Depth) {
        for (;;) {
            if (Kind() == TTokenKind::End)
                FText.Raise(FAt, "the file ends before the 'end' of " + Told(Object, Start));
            DemandLine();
            if (IsWord("end")) break;
            if (IsWord("object"))
                Object.Objects.push_back(ParseObject(Depth + 1));
            else
                Object.Properties.push_back(ParseProperty());
        }
        ++FAt;
    }

    std::string Told(const TFormObject& Object, std::size_t Start) const {
        return "'" + Abridged(FText.TextOf(Object.Name == Object.CNoName ? Start : Object.Name)) + "'";
    }

    TFormProperty ParseProperty() {
        const std::size_t name = Take(TTokenKind::Word, "a property, 'object' or 'end'");
        Take(TTokenKind::Equals, "'='");
        const std::size_t first = FAt;
        if (Kind() == TTokenKind::End || FText.GetToken(FAt).BeginsLine)
            FText.Raise(FAt - 1, "a value is expected behind '='");
        SkipValue();
        return {name, first, FAt};
    }

    /// A single token, or all between a bracket and the one that closes it.
    void SkipValue() {
        std::vector<TTokenKind> open;
        do {
            switch (Kind()) {
            case TTokenKind::Open:
            case TTokenKind::OpenSet: Enter(open); break;
            case TTokenKind::Close:
            case TTokenKind::CloseSet: Leave(open); break;
            case TTokenKind::Comma:
                if (open.empty() || open.back() != TTokenKind::OpenSet) FText.RaiseExpected(FAt, "a value");
                break;
            case TTokenKind::Word:
            case TTokenKind::Number:
            case TTokenKind::Text: break;
            default: FText.RaiseExpected(FAt, open.empty() ? "a value" : "a value or the end of the list");
            }
            ++FAt;
        } while (!open.empty());
    }

    void Enter(std::vector<TTokenKind>& Open) const {
        if (Open.size() == CDeepestNesting)
            FText.Raise(FAt,
                        "lists stand in one another more than " + std::to_string(CDeepestNesting) + " deep");
        Open.push_back(Kind());
    }

    void Leave(std::vector<TTokenKind>& Open) const {
        const TTokenKind other = Kind() == TTokenKind::Close ? TTokenKind::Open : TTokenKind::OpenSet;
        if (Open.empty() || Open.back() != other) FText.RaiseExpected(FAt, "expected here");
        Open.pop_back();
    }

    const TFormText& FText;
    std::size_t FAt = 0;
};

} // namespace

std::vector<TFormObject> ParseFormObjects(const TFormText& Text) { return TParser(Text).ParseAll(); }

TFormObject ParseForm(const TFormText& Text) { return TParser(Text).Parse(); }

} // namespace kx
