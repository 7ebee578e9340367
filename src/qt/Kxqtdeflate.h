#pragma once
// The compressed pixels of a picture file.

#include <cstddef>
#include <functional>
#include <string>

namespace kx::qt {

/// What a picture file holds of its pixels: Count rows of RowBytes bytes each, in this order.
struct TPixelRows {
    int Count = 0;
    std::size_t RowBytes = 0;
    /// Writes the RowBytes bytes of one row to To.
    std::function<void(int Row, unsigned char* To)> Fill;
};

/// The rows as one zlib stream (RFC 1950), each behind a 0, the PNG filter type "none": plots are flat, and
/// prediction costs more than it saves. Raises std::bad_alloc.
std::string DeflateRows(const TPixelRows& Rows);

} // namespace kx::qt
