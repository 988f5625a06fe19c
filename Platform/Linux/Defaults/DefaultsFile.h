// Where the values of a domain lie. Any thread.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

// The name that the program goes by: the application's name, or that of the program's file where it has
// given itself none.
std::string applicationDomain();

// Whether a folder can have that name; see StorageServices::openSuite().
bool isDomainName(std::string_view name);

// $XDG_DATA_HOME/DOMAIN/defaults.sqlite, where the default of XDG_DATA_HOME is ~/.local/share. Empty where
// the user has no home.
std::filesystem::path defaultsFile(std::string_view domain);

} // namespace platform
