#pragma once
// The compressed rows of a picture, by all processors.

#include <cstddef>
#include <functional>
#include <string>

namespace kx::qt {

/// What a picture file holds of its pixels: Count rows of RowBytes bytes each, in this order.
struct TPixelRows {
    int Count = 0;
    std::size_t RowBytes = 0;
    /// Writes the RowBytes bytes of one row to To. Called by several threads at once.
    std::function<void(int Row, unsigned char* To)> Fill;
};

/// The rows as one zlib stream (RFC 1950), each behind a 0, the PNG filter type "none". Long pictures are
/// compressed in parts side by side; a part may refer to the 32 KB before it, and where parts end does not
/// depend on the number of processors: the same rows give the same bytes everywhere. Level as zlib's, 1 to 9.
/// Raises std::bad_alloc.
std::string DeflateRows(const TPixelRows& Rows, int Level);

} // namespace kx::qt
