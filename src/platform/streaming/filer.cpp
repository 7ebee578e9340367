#include <kxgraph/platform/streaming/filer.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/streaming/formvalues.h>
#include <kxgraph/platform/text/text.h>

#include <utility>

namespace kx {

namespace {

constexpr std::size_t CWidth = 100; // of lines that can be broken

} // namespace

void TFiler::Define(TComponent& Component) { Component.DefineProperties(*this); }

std::vector<std::string> TReader::ReadData(TComponent& Component) {
    FNames.clear();
    Define(Component);
    return std::move(FNames);
}

void TReader::DefineProperty(std::string_view Name, const TReadData& Read, const TWriteData&,
                             const THasData&) {
    FNames.emplace_back(Name);
    for (TData& data : FData) {
        if (data.IsRead || !SameText(data.Name, Name)) continue;
        FAt = data.First;
        FLast = data.Last;
        Read(*this);
        if (FAt < FLast) FText.Raise(FAt, "'" + std::string(Name) + "' holds more than is expected");
        data.IsRead = true;
    }
}

TTokenKind TReader::Kind() const { return FAt < FLast ? FText.GetToken(FAt).Kind : TTokenKind::End; }

bool TReader::EndOfList() const { return Kind() == TTokenKind::Close || Kind() == TTokenKind::End; }

std::size_t TReader::Next(bool Fits, const char* Expected) {
    if (!Fits) FText.RaiseExpected(FAt, Expected);
    return FAt++;
}

void TReader::Refuse(const std::string& Message) const { FText.Raise(FAt > 0 ? FAt - 1 : FAt, Message); }

void TReader::ReadListBegin() { Next(Kind() == TTokenKind::Open, "a list in parentheses"); }
void TReader::ReadListEnd() { Next(Kind() == TTokenKind::Close, "the end of the list"); }

double TReader::ReadFloat() {
    return RealOf(FText, Next(Kind() == TTokenKind::Number || Kind() == TTokenKind::Word, "a number"));
}

std::int64_t TReader::ReadInteger() {
    return IntegerOf(FText, Next(Kind() == TTokenKind::Number, "a whole number"));
}

bool TReader::ReadBoolean() { return BoolOf(FText, Next(Kind() == TTokenKind::Word, "True or False")); }

std::string TReader::ReadString() {
    return FText.Unescaped(Next(Kind() == TTokenKind::Text, "a text in quotes"));
}

std::string TReader::ReadIdent() {
    return std::string(FText.TextOf(Next(Kind() == TTokenKind::Word, "a name")));
}

void TWriter::DefineProperty(std::string_view Name, const TReadData&, const TWriteData& Write,
                             const THasData& HasData) {
    if (!HasData()) return;
    FLineStart = FText.size();
    FText.append(FIndent).append(Name).append(" = ");
    FIsFirst = true;
    Write(*this);
    FText += '\n';
}

void TWriter::WriteItem(std::string_view Text) {
    if (!FIsFirst && FText.size() - FLineStart + Text.size() + 1 > CWidth) {
        FText += '\n';
        FLineStart = FText.size();
        FText.append(FIndent).append("  ");
    } else if (!FIsFirst) {
        FText += ' ';
    }
    FText += Text;
    FIsFirst = false;
}

void TWriter::WriteListBegin() {
    WriteItem("(");
    FIsFirst = true;
}

void TWriter::WriteListEnd() {
    FText += ')';
    FIsFirst = false;
}

void TWriter::WriteFloat(double Value) { WriteItem(RealForm(Value)); }
void TWriter::WriteInteger(std::int64_t Value) { WriteItem(std::to_string(Value)); }
void TWriter::WriteBoolean(bool Value) { WriteItem(Value ? "True" : "False"); }
void TWriter::WriteString(std::string_view Text) { WriteItem(QuotedForm(Text)); }
void TWriter::WriteIdent(std::string_view Name) { WriteItem(Name); }

} // namespace kx
