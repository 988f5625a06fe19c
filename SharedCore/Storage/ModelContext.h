// Where persistent records are inserted, found, deleted and saved.
#pragma once

#include "Platform/ObjectStore.h"
#include "SharedCore/Storage/FetchDescriptor.h"
#include "SharedCore/Storage/PersistentModel.h"

#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace sharedcore {

using platform::StoreStatus;

template <class Model> struct FetchedRecords
{
    StoreStatus status = StoreStatus::failed;
    std::vector<std::shared_ptr<Model>> records; // empty unless the status is `done`
};

// Belongs to the thread that made it, with its records. Several contexts may share a store, or a file.
//
// As long as a record is held by somebody, the context gives the same object for the same row. It holds those
// that are not saved yet itself. Nothing reaches the disk before save(). That and fetch() wait for the disk:
// a program with a window that saves much at once does so on another thread, in a context with a store of its
// own on the same file; the window's context can fetch meanwhile.
class ModelContext
{
public:
    // REQUIRES: the store is there.
    explicit ModelContext(std::shared_ptr<platform::ObjectStore> store);
    ModelContext(const ModelContext &) = delete;
    ModelContext &operator=(const ModelContext &) = delete;
    // What was not saved is not saved; the records stand alone.
    ~ModelContext();

    // A record of another context, or of a class that the store's schema lacks, is a fatal error. One of this
    // context stays in it, and is not deleted if it was to be.
    void insert(const std::shared_ptr<PersistentModel> &record);

    // The record goes with the next save; one that was never saved goes now. A record of another context, or
    // of none, is left alone.
    void remove(PersistentModel &record);

    // The records with all changes of this context, saved or not. Takes over what others have saved: their
    // records' observers are told, and a property that was changed here and not saved yet keeps its value.
    template <class Model>
    [[nodiscard]] FetchedRecords<Model> fetch(const FetchDescriptor<Model> &descriptor = {});

    // There is something that save() would write or rollback() undo.
    [[nodiscard]] bool hasChanges() const;

    // Writes all changes, or none of them: unless the result is `done` they are kept for another try.
    // `invalid` says that a number is NaN, or a text too long. Only changed properties are written, so that
    // of two contexts that change one record each keeps its own properties, and the last to save a property
    // wins. A record that somebody else deleted meanwhile stays deleted.
    [[nodiscard]] StoreStatus save();

    // Undoes all that was not saved: values go back, and their observers are told; deleted records are back;
    // inserted ones stand alone, with their values.
    void rollback();

private:
    friend class PersistentModel;

    using Records = std::map<PersistentIdentifier, std::shared_ptr<PersistentModel>>;
    using Factory = std::function<std::shared_ptr<PersistentModel>(platform::ObjectRow)>;
    struct Found
    {
        StoreStatus status = StoreStatus::failed;
        std::vector<std::shared_ptr<PersistentModel>> records;
    };

    // Called by records.
    void noteChange(PersistentModel &record);
    void forget(const PersistentModel &record);

    Found find(std::string_view entityName, platform::ObjectQuery query, const Factory &factory);
    void mergeUnsaved(std::string_view entityName, const platform::ObjectQuery &query,
                      std::vector<platform::ObjectRow> &rows);
    std::shared_ptr<PersistentModel> recordOf(std::string_view entityName, platform::ObjectRow row,
                                              const Factory &factory);
    [[nodiscard]] bool isUnsaved(const PersistentIdentifier &identifier) const;
    [[nodiscard]] std::shared_ptr<PersistentModel> known(const PersistentIdentifier &identifier) const;

    [[nodiscard]] std::size_t placeOfEntity(std::string_view name) const;
    [[nodiscard]] platform::ObjectChanges changes() const;
    void settle(const std::vector<platform::ObjectKey> &missing);
    void attach(PersistentModel &record);
    void release(PersistentModel &record);
    static void detach(PersistentModel &record);

    const std::shared_ptr<platform::ObjectStore> store_;
    std::unordered_map<PersistentIdentifier, PersistentModel *> known_; // all records of the context
    Records inserted_;
    Records changed_;
    Records removed_;
};

template <class Model> FetchedRecords<Model> ModelContext::fetch(const FetchDescriptor<Model> &descriptor)
{
    const auto found = find(Model::entityName, descriptor.query(), [](platform::ObjectRow row) {
        return std::make_shared<Model>(BackingData(Model::entityName, std::move(row)));
    });
    FetchedRecords<Model> fetched{found.status, {}};
    fetched.records.reserve(found.records.size());
    for (const auto &record : found.records) {
        fetched.records.push_back(std::static_pointer_cast<Model>(record));
    }
    return fetched;
}

} // namespace sharedcore
