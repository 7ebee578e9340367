#pragma once
// Asks a database for a table. What knows databases is another program, kxplot-db beside this one: a picture
// without a database starts without it.

#include "kxplot/options/databaserequest.h"

#include <kxgraph/table/Kxtable.h>

namespace kxplot {

/// Raises kx::Exception with what the database says, in one line.
kx::TKxTable ReadDatabase(const TDatabaseRequest& Request);

} // namespace kxplot
