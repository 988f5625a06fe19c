// The family in the font descriptions that desktops store.
#pragma once

#include <QString>

#include <functional>

namespace platform {

// The family in a description such as "Cantarell Bold 11" or "Noto Sans,10,-1,5,50,0,0,0,0,0": the longest
// run of words from the start for which `isFamily` is true. Empty where there is none.
[[nodiscard]] QString fontFamilyIn(const QString &description,
                                   const std::function<bool(const QString &)> &isFamily);

} // namespace platform
