// What the fuzz targets share: the check that ends a run, and records in guarded memory.
#pragma once

#include "core/device_mode.h"
#include "tests/support/guarded_buffer.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

/// Ends the run, and so keeps the input, when a property does not hold.
inline void Require(bool holds, const char* property) {
    if (!holds) {
        std::fprintf(stderr, "property broken: %s\n", property);
        std::abort();
    }
}

/// A record from arbitrary bytes in a block of just the size that it claims for itself (at least
/// what every record has), so that reading behind the claim is caught.
inline test::GuardedBuffer GuardedRecord(std::string bytes) {
    bytes.resize(std::max<size_t>(bytes.size(), kHeaderSize));
    WORD sizes[2];  // public and private
    std::memcpy(sizes, bytes.data() + offsetof(DEVMODEW, dmSize), sizeof(sizes));
    const size_t claimed = std::max<size_t>(size_t{sizes[0]} + sizes[1], kHeaderSize);
    // Records are aligned for their fields.
    return test::GuardedBuffer((claimed + 3) / 4 * 4, bytes);
}
