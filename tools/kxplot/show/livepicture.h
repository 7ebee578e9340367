#pragma once
// A picture that follows a table.

#include "kxplot/follow/followedtable.h"
#include "kxplot/form/picture.h"

namespace kxplot {

/// Brings what a table has got into the vectors of its picture; all else follows by itself.
class TLivePicture {
public:
    /// Refers to all of them. The picture was made of what the table has.
    TLivePicture(TPicture& Picture, TFollowedTable& Table, const TOptions& Options);
    /// What has come since the last call. Raises kx::EFileError.
    void Poll();

private:
    bool HasBars() const;
    void Append(const TPlan& New);
    void Replace();

    TPicture& FPicture;
    TFollowedTable& FTable;
    const TOptions& FOptions;
};

} // namespace kxplot
