// The sections of the table. Each throws NotMeasured where it cannot be measured. Main thread.
#pragma once

#include "Benchmarks/Report.h"

namespace benchmarks {

class Desktop;

inline constexpr auto stirraProgram = "stirra";
inline constexpr auto emptyWindowProgram = "stirra-empty-window";

// Time to the first frame. REQUIRES: the desktop's windows are unmanaged.
[[nodiscard]] std::vector<Row> startUpRows(const Desktop &desktop);

// Frames and CPU time of the kit's components. Takes some 35 s. REQUIRES: the same.
[[nodiscard]] std::vector<Row> drawingRows(const Desktop &desktop);

// A beating heart in a panel, on a desktop of their own. Takes some 40 s.
[[nodiscard]] std::vector<Row> menuBarRows();

// Below: the calling process runs on a display of its own, with a Qt application object.

// How exact the engine's delays and timers are, with the native scheduler and poster. Takes some 25 s, and
// next to no CPU time.
[[nodiscard]] std::vector<Row> punctualityRows();
// Memory and wake-ups on a Wayland compositor. Takes some 30 s.
[[nodiscard]] std::vector<Row> waylandRows();
// CPU time of an action of each mode, posted to the display.
[[nodiscard]] std::vector<Row> actionCostRows();
// Memory and time of a million ticks, on a scheduler that is stepped by hand.
[[nodiscard]] std::vector<Row> longRunRows();
// Time of a save and a load of the preferences, beside QSettings. Takes some 10 s.
[[nodiscard]] std::vector<Row> storageRows();

// Saving and finding persistent records, 100,000 of them.
[[nodiscard]] std::vector<Row> recordRows();
// Listening to keys and to silence. Takes some 16 s.
[[nodiscard]] std::vector<Row> listeningRows();

// Decoding of an accelerometer's reports, a stream of them, and a lid's angle without a sensor. Takes some 12
// s.
[[nodiscard]] std::vector<Row> sensorRows();

} // namespace benchmarks
