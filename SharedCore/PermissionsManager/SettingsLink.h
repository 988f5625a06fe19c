// The link to a page of the system's privacy settings.
#pragma once

#include <string>
#include <string_view>

namespace sharedcore {

// The prefix, and the page's anchor directly after it. Any thread. Text that forms no URL is a fatal error:
// the anchors are the program's own.
[[nodiscard]] std::string settingsLink(std::string_view anchor);

} // namespace sharedcore
