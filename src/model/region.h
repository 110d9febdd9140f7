#pragma once

namespace brivane {

/// The decimal mark of the user's regional settings (LC_ALL, LC_NUMERIC, LANG of the environment):
/// "," or ".". A mark of any other kind, which no single-byte file could carry, gives ".". The
/// locale of the process is neither used nor changed.
char RegionalDecimalMark();

}  // namespace brivane
