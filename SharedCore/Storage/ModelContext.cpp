#include "SharedCore/Storage/ModelContext.h"

#include "Foundation/FatalError.h"

#include <algorithm>
#include <set>
#include <utility>

namespace sharedcore {

using platform::ObjectRow;

ModelContext::ModelContext(std::shared_ptr<platform::ObjectStore> store)
    : store_(std::move(store))
{}

ModelContext::~ModelContext()
{
    for (const auto &entry : known_) {
        detach(*entry.second);
    }
}

void ModelContext::insert(const std::shared_ptr<PersistentModel> &record)
{
    const auto &identifier = record->persistentIdentifier();
    if (record->context_ == this) {
        if (removed_.erase(identifier) > 0) {
            noteChange(*record);
        }
        return;
    }
    if (record->context_ != nullptr || known_.contains(identifier)) {
        foundation::fatalError("A record that belongs to a context was inserted into another one");
    }
    if (placeOfEntity(identifier.entityName) == store_->schema().entities.size()) {
        foundation::fatalError("A record was inserted whose class is not registered in the store's schema");
    }
    record->isDeleted_ = false;
    attach(*record);
    inserted_.emplace_hint(inserted_.end(), identifier, record);
}

void ModelContext::remove(PersistentModel &record)
{
    if (record.context_ != this) {
        return;
    }
    const auto &identifier = record.persistentIdentifier();
    const auto kept = record.shared_from_this();
    if (inserted_.erase(identifier) > 0) {
        release(record);
        return;
    }
    changed_.erase(identifier);
    removed_.emplace(identifier, kept);
}

bool ModelContext::hasChanges() const
{
    return !inserted_.empty() || !removed_.empty() ||
           std::ranges::any_of(changed_, [](const auto &entry) { return entry.second->hasChanges(); });
}

StoreStatus ModelContext::save()
{
    if (!hasChanges()) {
        return StoreStatus::done;
    }
    const auto result = store_->save(changes());
    if (result.status == StoreStatus::done) {
        settle(result.missing);
    }
    return result.status;
}

void ModelContext::rollback()
{
    const auto inserted = std::exchange(inserted_, {});
    const auto changed = std::exchange(changed_, {});
    const auto removed = std::exchange(removed_, {});
    for (const auto &entry : inserted) {
        release(*entry.second);
    }
    for (const auto *records : {&changed, &removed}) {
        for (const auto &entry : *records) {
            entry.second->restore();
        }
    }
}

void ModelContext::noteChange(PersistentModel &record)
{
    const auto &identifier = record.persistentIdentifier();
    if (!inserted_.contains(identifier) && !removed_.contains(identifier)) {
        changed_.try_emplace(identifier, record.shared_from_this());
    }
}

void ModelContext::forget(const PersistentModel &record)
{
    const auto entry = known_.find(record.persistentIdentifier());
    if (entry != known_.end() && entry->second == &record) {
        known_.erase(entry);
    }
}

ModelContext::Found ModelContext::find(std::string_view entityName, platform::ObjectQuery query,
                                       const Factory &factory)
{
    query.entity = placeOfEntity(entityName);
    auto wider = query;
    if (wider.limit) { // as many as may be left out again
        *wider.limit += std::min(changed_.size() + removed_.size(), SIZE_MAX - *wider.limit);
    }
    auto fetched = store_->fetch(wider);
    if (fetched.status != StoreStatus::done) {
        return {fetched.status, {}};
    }
    mergeUnsaved(entityName, query, fetched.rows);
    Found found{StoreStatus::done, {}};
    found.records.reserve(fetched.rows.size());
    for (auto &row : fetched.rows) {
        found.records.push_back(recordOf(entityName, std::move(row), factory));
    }
    return found;
}

void ModelContext::mergeUnsaved(std::string_view entityName, const platform::ObjectQuery &query,
                                std::vector<ObjectRow> &rows)
{
    if (inserted_.empty() && changed_.empty() && removed_.empty()) {
        return;
    }
    for (const auto &row : rows) {
        if (const auto entry = changed_.find({entityName, row.key}); entry != changed_.end()) {
            std::shared_ptr(entry->second)->refresh(row.values);
        }
    }
    std::erase_if(rows, [&](const ObjectRow &row) { return isUnsaved({entityName, row.key}); });
    for (const auto *records : {&inserted_, &changed_}) {
        for (const auto &[identifier, record] : *records) {
            if (identifier.entityName == entityName && matches(query, record->backing_.values())) {
                rows.push_back({identifier.key, record->backing_.values()});
            }
        }
    }
    arrange(query, rows);
}

bool ModelContext::isUnsaved(const PersistentIdentifier &identifier) const
{
    return inserted_.contains(identifier) || changed_.contains(identifier) || removed_.contains(identifier);
}

std::shared_ptr<PersistentModel> ModelContext::recordOf(std::string_view entityName, ObjectRow row,
                                                        const Factory &factory)
{
    const PersistentIdentifier identifier{entityName, row.key};
    if (auto record = known(identifier)) {
        if (!isUnsaved(identifier)) {
            record->refresh(row.values);
        }
        return record;
    }
    auto record = factory(std::move(row));
    attach(*record);
    return record;
}

std::shared_ptr<PersistentModel> ModelContext::known(const PersistentIdentifier &identifier) const
{
    const auto entry = known_.find(identifier);
    return entry != known_.end() ? entry->second->weak_from_this().lock() : nullptr;
}

std::size_t ModelContext::placeOfEntity(std::string_view name) const
{
    const auto &entities = store_->schema().entities;
    const auto entity = std::ranges::find(entities, name, &platform::Entity::name);
    return static_cast<std::size_t>(entity - entities.begin());
}

platform::ObjectChanges ModelContext::changes() const
{
    platform::ObjectChanges changes;
    changes.insertions.reserve(inserted_.size());
    for (const auto &[identifier, record] : inserted_) {
        changes.insertions.push_back(
            {placeOfEntity(identifier.entityName), {identifier.key, record->backing_.values()}});
    }
    for (const auto &[identifier, record] : changed_) {
        if (record->hasChanges()) {
            changes.updates.push_back(
                {placeOfEntity(identifier.entityName), identifier.key, record->backing_.changes()});
        }
    }
    for (const auto &[identifier, record] : removed_) {
        changes.deletions.push_back({placeOfEntity(identifier.entityName), identifier.key});
    }
    return changes;
}

void ModelContext::settle(const std::vector<platform::ObjectKey> &missing)
{
    const auto inserted = std::exchange(inserted_, {});
    const auto changed = std::exchange(changed_, {});
    const auto removed = std::exchange(removed_, {});
    const std::set<platform::ObjectKey> gone(missing.begin(), missing.end());
    for (const auto *records : {&inserted, &changed}) {
        for (const auto &[identifier, record] : *records) {
            record->backing_.becomeStored();
            record->isDeleted_ = gone.contains(identifier.key);
        }
    }
    for (const auto &entry : removed) {
        entry.second->isDeleted_ = true;
    }
    for (const auto *records : {&changed, &removed}) {
        for (const auto &[identifier, record] : *records) {
            if (record->isDeleted_) {
                release(*record);
            }
        }
    }
}

void ModelContext::attach(PersistentModel &record)
{
    record.context_ = this;
    known_.insert_or_assign(record.persistentIdentifier(), &record);
}

void ModelContext::release(PersistentModel &record)
{
    forget(record);
    detach(record);
}

void ModelContext::detach(PersistentModel &record)
{
    record.context_ = nullptr;
    record.backing_.becomeTransient();
}

} // namespace sharedcore
