#pragma once
// What components put into form files beside their published properties, as lists of numbers, texts and
// names:
//
//     void TKxRealVector::DefineProperties(TFiler& Filer) {
//         TComponent::DefineProperties(Filer);
//         Filer.DefineProperty("Values", [this](TReader& R) {...}, [this](TWriter& W) {...}, [this] {...});
//     }

#include <kxgraph/platform/streaming/formtext.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

class TComponent;
class TReader;
class TWriter;

using TReadData = std::function<void(TReader&)>;
using TWriteData = std::function<void(TWriter&)>;
using THasData = std::function<bool()>;

/// What reads, or writes, the components of a form. Given to TComponent::DefineProperties.
class TFiler {
public:
    virtual ~TFiler() = default;
    /// Names a piece of data that is no published property. Read is called if the file holds it, Write when a
    /// form is written, if HasData.
    virtual void DefineProperty(std::string_view Name, const TReadData& Read, const TWriteData& Write,
                                const THasData& HasData) = 0;
    /// The same for data that cost much to write: Version is another number after every change, and another
    /// one in every object, so that who keeps what was written need not have it written again.
    virtual void DefineVersioned(std::string_view Name, std::uint64_t /*Version*/, const TReadData& Read,
                                 const TWriteData& Write, const THasData& HasData) {
        DefineProperty(Name, Read, Write, HasData);
    }
    /// The file that is read or written; empty for a text.
    const std::string& GetFileName() const { return FFileName; }

protected:
    explicit TFiler(std::string FileName) : FFileName(std::move(FileName)) {}
    void Define(TComponent& Component);

private:
    std::string FFileName;
};

/// Reads one piece of data, in the order in which it was written. What is read must be there: all raise
/// EFormError, with the place in the file, for anything else.
class TReader : public TFiler {
public:
    /// A piece of data: the tokens First..Last - 1 of Text, under a name in front of them.
    struct TData {
        std::string_view Name;
        std::size_t First, Last;
        bool IsRead = false;
    };

    TReader(const TFormText& Text, std::vector<TData>& Data)
        : TFiler(Text.GetFileName()), FText(Text), FData(Data) {}
    /// Has Component read what of the data it knows. Returns the names that it knows.
    std::vector<std::string> ReadData(TComponent& Component);

    void ReadListBegin();
    void ReadListEnd();
    /// Whether the next thing is the end of the list, or of the data.
    bool EndOfList() const;
    double ReadFloat();
    std::int64_t ReadInteger();
    bool ReadBoolean();
    std::string ReadString();
    /// A bare name.
    std::string ReadIdent();
    /// Refuses what was read last.
    [[noreturn]] void Refuse(const std::string& Message) const;

    void DefineProperty(std::string_view Name, const TReadData& Read, const TWriteData& Write,
                        const THasData& HasData) override;

private:
    std::size_t Next(bool Fits, const char* Expected);
    TTokenKind Kind() const;

    const TFormText& FText;
    std::vector<TData>& FData;
    std::vector<std::string> FNames;
    std::size_t FAt = 0, FLast = 0;
};

/// Writes pieces of data behind the properties of a component. Long lists go on in further lines.
class TWriter : public TFiler {
public:
    /// Appends to Text; each line begins with Indent.
    TWriter(std::string& Text, std::string Indent, std::string FileName)
        : TFiler(std::move(FileName)), FText(Text), FIndent(std::move(Indent)) {}
    void WriteData(TComponent& Component) { Define(Component); }

    void WriteListBegin();
    void WriteListEnd();
    void WriteFloat(double Value);
    void WriteInteger(std::int64_t Value);
    void WriteBoolean(bool Value);
    void WriteString(std::string_view Text);
    /// A bare name: letters, digits and _.
    void WriteIdent(std::string_view Name);

    void DefineProperty(std::string_view Name, const TReadData& Read, const TWriteData& Write,
                        const THasData& HasData) override;

private:
    void WriteItem(std::string_view Text);

    std::string& FText;
    std::string FIndent;
    std::size_t FLineStart = 0;
    bool FIsFirst = true;
};

} // namespace kx
