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
    /// Writes the RowBytes bytes of one row to To. A row may be asked for more than once.
    std::function<void(int Row, unsigned char* To)> Fill;
};

/// Quick takes a tenth of zlib's time for files larger by a quarter, Small two thirds of it for the same
/// size.
enum class TDeflation { Quick, Small };

/// The rows as one zlib stream (RFC 1950), each behind a 0, the PNG filter type "none": plots are flat, and
/// prediction costs more than it saves. The same rows give the same bytes. Raises std::bad_alloc.
std::string DeflateRows(const TPixelRows& Rows, TDeflation Deflation);

} // namespace kx::qt
