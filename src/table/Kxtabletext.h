#pragma once
// The bytes of a table as UTF-8.

#include <memory>
#include <string>
#include <string_view>

namespace kx {

/// The text of a table in characters of one byte each, as far as separators and numbers go: a UTF-16 text,
/// which its byte-order mark tells, is converted and owned; of any other a mark is left out, and the bytes
/// stay where they are. Texts of cells are made UTF-8 one by one when they are asked for (TableTextToUtf8).
class TKxTableText {
public:
    /// Bytes must outlive the object and its copies.
    explicit TKxTableText(std::string_view Bytes);

    std::string_view Get() const { return FText; }
    bool WasUtf16() const { return FOwn != nullptr; }

private:
    std::shared_ptr<const std::string> FOwn; // shared: the view of a copy stays valid
    std::string_view FText;
};

/// A text of a table as UTF-8: bytes that are none stand for characters of Latin-1, those from 0x80 to 0x9F,
/// which are none there, for what usual Western code pages have in their place (the euro sign, dashes,
/// typographic quotes).
std::string TableTextToUtf8(std::string_view Text);
/// Whether Text is UTF-8 throughout.
bool IsTableTextUtf8(std::string_view Text);

} // namespace kx
