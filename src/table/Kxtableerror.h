#pragma once
// What is raised about tables.

#include <kxgraph/platform/base/exceptions.h>

#include <string>
#include <string_view>

namespace kx {

/// What a caller may say (TKxTableFormat) that would help.
enum class TKxTableRemedy { None, Skip, Block, DateOrder, DecimalSign, Missing, SkipOrMissing, Column };

/// A table cannot be read; the message begins with the file's name, and the line where there is one.
class ETableError : public Exception {
public:
    using Exception::Exception;
    ETableError(const std::string& Message, TKxTableRemedy Remedy) : Exception(Message), FRemedy(Remedy) {}
    TKxTableRemedy GetRemedy() const { return FRemedy; }

private:
    TKxTableRemedy FRemedy = TKxTableRemedy::None;
};

/// Raises ETableError about a line of the table Name; 0: about all of it.
[[noreturn]] void FailTable(std::string_view Name, long Line, const std::string& What,
                            TKxTableRemedy Remedy = TKxTableRemedy::None);

/// A cell in a message: within quotes, no longer than messages should be.
std::string QuotedCell(std::string_view Cell);

} // namespace kx
