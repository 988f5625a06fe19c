#include "Tests/Fakes/MemoryObjectStore.h"

#include <algorithm>
#include <utility>

namespace fakes {

namespace {

using namespace platform;

class MemoryObjectStore final : public ObjectStore
{
public:
    MemoryObjectStore(std::shared_ptr<MemoryObjectFile> file, ObjectSchema schema)
        : file_(std::move(file))
        , schema_(std::move(schema))
    {}

    const ObjectSchema &schema() const override { return schema_; }

    SaveResult save(const ObjectChanges &changes) override
    {
        const auto status = answer(isSound(changes, schema_));
        return status == StoreStatus::done ? apply(changes) : SaveResult{status, {}};
    }

    FetchResult fetch(const ObjectQuery &query) override
    {
        const auto status = answer(isSound(query, schema_));
        return {status, status == StoreStatus::done ? rowsOf(query) : std::vector<ObjectRow>()};
    }

private:
    StoreStatus answer(bool isSoundCall) const
    {
        if (!isSoundCall) {
            return StoreStatus::invalid;
        }
        return file_->version > schema_.version ? StoreStatus::newer : file_->answer;
    }

    auto &rows(std::size_t entity) const { return file_->tables[schema_.entities[entity].name].rows; }

    SaveResult apply(const ObjectChanges &changes) const
    {
        SaveResult result{StoreStatus::done, {}};
        for (const auto &insertion : changes.insertions) {
            rows(insertion.entity)[insertion.row.key] = insertion.row.values;
        }
        for (const auto &update : changes.updates) {
            if (!apply(update)) {
                result.missing.push_back(update.key);
            }
        }
        for (const auto &deletion : changes.deletions) {
            rows(deletion.entity).erase(deletion.key);
        }
        ++file_->saveCount;
        return result;
    }

    bool apply(const ObjectUpdate &update) const
    {
        auto &table = rows(update.entity);
        const auto row = table.find(update.key);
        if (row == table.end()) {
            return update.values.empty();
        }
        for (const auto &[place, value] : update.values) {
            row->second[place] = value;
        }
        return true;
    }

    std::vector<ObjectRow> rowsOf(const ObjectQuery &query) const
    {
        std::vector<ObjectRow> found;
        for (const auto &[key, values] : rows(query.entity)) {
            if (matches(query, values)) {
                found.push_back({key, values});
            }
        }
        arrange(query, found);
        return found;
    }

    const std::shared_ptr<MemoryObjectFile> file_;
    const ObjectSchema schema_;
};

const Column *columnNamed(const std::string &name, const std::vector<Column> &columns)
{
    const auto column = std::ranges::find(columns, name, &Column::name);
    return column == columns.end() ? nullptr : &*column;
}

StoreStatus judge(const MemoryObjectFile::Table &table, const Entity &entity)
{
    for (const auto &column : table.columns) {
        const auto *expected = columnNamed(column.name, entity.columns);
        if (expected != nullptr &&
            (expected->type != column.type || expected->isOptional != column.isOptional)) {
            return StoreStatus::mismatched;
        }
    }
    const bool isKnown = std::ranges::all_of(table.columns, [&entity](const Column &column) {
        return columnNamed(column.name, entity.columns) != nullptr;
    });
    return isKnown ? StoreStatus::done : StoreStatus::newer;
}

StoreStatus judge(const MemoryObjectFile &file, const ObjectSchema &schema)
{
    auto status = file.version > schema.version ? StoreStatus::newer : StoreStatus::done;
    for (const auto &entity : schema.entities) {
        const auto table = file.tables.find(entity.name);
        if (status == StoreStatus::done && table != file.tables.end()) {
            status = judge(table->second, entity);
        }
    }
    return status;
}

void complete(MemoryObjectFile::Table &table, const Entity &entity)
{
    for (auto &row : table.rows) {
        std::vector<ColumnValue> values;
        for (const auto &column : entity.columns) {
            const auto *old = columnNamed(column.name, table.columns);
            values.push_back(old != nullptr ? row.second[static_cast<std::size_t>(old - table.columns.data())]
                                            : column.initialValue);
        }
        row.second = std::move(values);
    }
    table.columns = entity.columns;
}

} // namespace

OpenedObjectStore openMemoryObjectStore(const std::shared_ptr<MemoryObjectFile> &file,
                                        const ObjectSchema &schema)
{
    const auto status = isSound(schema) ? judge(*file, schema) : StoreStatus::invalid;
    if (status != StoreStatus::done) {
        return {status, nullptr};
    }
    for (const auto &entity : schema.entities) {
        complete(file->tables[entity.name], entity);
    }
    file->version = schema.version;
    return {StoreStatus::done, std::make_unique<MemoryObjectStore>(file, schema)};
}

} // namespace fakes
