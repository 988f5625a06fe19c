// Plain values in a database file.
#pragma once

#include "Platform/DefaultsStore.h"
#include "Platform/Linux/Sqlite/SqliteFile.h"

namespace platform {

// One table of keys and stored forms. A form that is damaged reads as nothing.
class SqliteDefaultsStore final : public DefaultsStore
{
public:
    // REQUIRES: the path is absolute.
    explicit SqliteDefaultsStore(std::filesystem::path file);

    std::optional<PropertyValue> value(std::string_view key) override;
    bool setValue(std::string_view key, const PropertyValue &value) override;
    bool remove(std::string_view key) override;

private:
    SqliteFile file_;
};

} // namespace platform
