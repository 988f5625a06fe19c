// The names under which the family's programs keep what they store. Changing one loses what users have
// stored.
#pragma once

#include <string_view>

namespace sharedcore {

// The family, in reverse-DNS form; also the service of a secret that names none.
inline constexpr std::string_view familyIdentifier = "org.stirra";

// The defaults that the family's programs share.
inline constexpr std::string_view applicationGroupIdentifier = "group.org.stirra";

} // namespace sharedcore
