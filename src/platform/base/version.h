#pragma once
// The version of the library, of kxplot and of the packages: this is its one place; the build reads it from
// here.

/// As text, "major.minor.patch".
#define KXGRAPH_VERSION "0.2.0"
