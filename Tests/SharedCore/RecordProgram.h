// What RecordProgram and its tests agree on.
#pragma once

namespace recordprogram {

inline constexpr int itemsInBatch = 20;
inline constexpr int batchesKept = 3;

} // namespace recordprogram
