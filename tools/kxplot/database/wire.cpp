#include "kxplot/database/wire.h"

#include <kxgraph/platform/base/exceptions.h>

#include <cstdint>
#include <cstring>

namespace kxplot {

namespace {

class TWriter {
public:
    std::string Text;

    void Put(std::uint64_t Number) { Append(&Number, sizeof Number); }
    void Put(const std::string& Words) {
        Put(std::uint64_t(Words.size()));
        Text += Words;
    }
    void Put(const std::vector<double>& Values) {
        Put(std::uint64_t(Values.size()));
        Append(Values.data(), Values.size() * sizeof(double));
    }
    void Put(const std::vector<std::string>& All) {
        Put(std::uint64_t(All.size()));
        for (const auto& words : All) Put(words);
    }

private:
    void Append(const void* Bytes, std::size_t Count) { Text.append(static_cast<const char*>(Bytes), Count); }
};

class TReader {
public:
    explicit TReader(std::string_view Text) : FText(Text) {}

    std::uint64_t Number() {
        std::uint64_t number = 0;
        Take(&number, sizeof number);
        return number;
    }
    std::string Words() {
        const std::string_view words = Next(Number());
        return std::string(words);
    }
    std::vector<double> Values() {
        const std::uint64_t count = Number();
        if (count > FText.size() / sizeof(double)) Fail();
        std::vector<double> values(count);
        Take(values.data(), count * sizeof(double));
        return values;
    }
    std::vector<std::string> Texts() {
        std::vector<std::string> all;
        for (std::uint64_t left = Number(); left > 0; --left) all.push_back(Words());
        return all;
    }

private:
    [[noreturn]] static void Fail() { throw kx::Exception("kxplot-db ended before it had answered"); }
    std::string_view Next(std::uint64_t Count) {
        if (Count > FText.size()) Fail();
        const std::string_view next = FText.substr(0, Count);
        FText.remove_prefix(Count);
        return next;
    }
    void Take(void* To, std::size_t Count) {
        const std::string_view next = Next(Count);
        if (Count > 0) std::memcpy(To, next.data(), Count);
    }

    std::string_view FText;
};

} // namespace

std::string ToWire(const TAnswerOfDatabase& Answer) {
    TWriter writer;
    writer.Put(Answer.Failure);
    writer.Put(std::uint64_t(Answer.Columns.size()));
    for (const auto& column : Answer.Columns) {
        writer.Put(column.Header);
        writer.Put(std::uint64_t(column.Kind));
        writer.Put(column.Values);
        writer.Put(column.Texts);
    }
    return std::move(writer.Text);
}

TAnswerOfDatabase FromWire(std::string_view Text) {
    TReader reader(Text);
    TAnswerOfDatabase answer;
    answer.Failure = reader.Words();
    for (std::uint64_t left = reader.Number(); left > 0; --left) {
        kx::TKxGivenColumn& column = answer.Columns.emplace_back();
        column.Header = reader.Words();
        column.Kind = kx::TKxColumnKind(reader.Number());
        column.Values = reader.Values();
        column.Texts = reader.Texts();
    }
    return answer;
}

} // namespace kxplot
