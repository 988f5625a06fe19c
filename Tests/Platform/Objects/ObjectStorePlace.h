// Where an object store lies, so that it can be opened again and again, for tests that each kind of store has
// to pass.
#pragma once

#include "Platform/ObjectStore.h"
#include "Tests/Fakes/MemoryObjectStore.h"
#include "Tests/Support/TemporaryFolder.h"

#include <functional>
#include <memory>
#include <ostream>

namespace testsupport {

class ObjectStorePlace
{
public:
    ObjectStorePlace() = default;
    ObjectStorePlace(const ObjectStorePlace &) = delete;
    ObjectStorePlace &operator=(const ObjectStorePlace &) = delete;
    virtual ~ObjectStorePlace() = default;

    [[nodiscard]] virtual platform::OpenedObjectStore open(const platform::ObjectSchema &schema) = 0;
};

class MemoryPlace final : public ObjectStorePlace
{
public:
    platform::OpenedObjectStore open(const platform::ObjectSchema &schema) override
    {
        return fakes::openMemoryObjectStore(file_, schema);
    }

private:
    std::shared_ptr<fakes::MemoryObjectFile> file_ = std::make_shared<fakes::MemoryObjectFile>();
};

class FilePlace final : public ObjectStorePlace
{
public:
    platform::OpenedObjectStore open(const platform::ObjectSchema &schema) override
    {
        return platform::openObjectStore(path(), schema);
    }

    [[nodiscard]] std::filesystem::path folder() const { return folder_.path() / "history"; }
    [[nodiscard]] std::filesystem::path path() const { return folder() / "records.sqlite"; }

private:
    TemporaryFolder folder_;
};

// A kind of store, as a parameter of tests whose names end in its own.
struct ObjectStoreKind
{
    const char *name;
    std::function<std::unique_ptr<ObjectStorePlace>()> makePlace;

    friend std::ostream &operator<<(std::ostream &stream, const ObjectStoreKind &kind)
    {
        return stream << kind.name;
    }
};

inline std::vector<ObjectStoreKind> allObjectStoreKinds()
{
    return {{"Memory", [] { return std::make_unique<MemoryPlace>(); }},
            {"File", [] { return std::make_unique<FilePlace>(); }}};
}

} // namespace testsupport
