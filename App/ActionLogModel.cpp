#include "App/ActionLogModel.h"

#include <algorithm>

namespace stirra {

namespace {

using Entries = QList<ActionLogEntry>;

// How many entries of `wanted` come before those that `rows` begins with. Entries that look alike cannot be
// told apart, and need not be: the rows come out the same.
qsizetype newEntryCount(const Entries &rows, const Entries &wanted)
{
    for (qsizetype count = std::max<qsizetype>(0, wanted.size() - rows.size()); count < wanted.size();
         ++count) {
        const auto kept = wanted.size() - count;
        if (std::equal(wanted.begin() + count, wanted.end(), rows.begin(), rows.begin() + kept)) {
            return count;
        }
    }
    return wanted.size();
}

} // namespace

void ActionLogModel::setEngine(StirraEngine *engine)
{
    if (engine == engine_) {
        return;
    }
    if (engine_) {
        disconnect(engine_, nullptr, this, nullptr);
    }
    engine_ = engine;
    if (engine_) {
        connect(engine_, &StirraEngine::actionLogChanged, this, &ActionLogModel::follow);
    }
    Q_EMIT engineChanged();
    follow();
}

qsizetype ActionLogModel::entryCount() const
{
    return engine_ ? engine_->actionLog().size() : 0;
}

void ActionLogModel::follow()
{
    const auto wanted =
        engine_ ? engine_->actionLog().first(std::min<qsizetype>(entryCount(), limit_)) : Entries();
    insertAtTop(wanted.first(newEntryCount(rows_, wanted)));
    dropFromRow(wanted.size());
    Q_EMIT entryCountChanged();
}

void ActionLogModel::insertAtTop(const Entries &entries)
{
    if (entries.isEmpty()) {
        return;
    }
    beginInsertRows({}, 0, static_cast<int>(entries.size()) - 1);
    rows_ = entries + rows_;
    endInsertRows();
}

void ActionLogModel::dropFromRow(qsizetype row)
{
    if (row >= rows_.size()) {
        return;
    }
    beginRemoveRows({}, static_cast<int>(row), static_cast<int>(rows_.size()) - 1);
    rows_.resize(row);
    endRemoveRows();
}

int ActionLogModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ActionLogModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto &entry = rows_.at(index.row());
    switch (role) {
    case TimeTextRole:
        return entry.timeText;
    case MessageRole:
        return entry.message;
    default:
        return {};
    }
}

QHash<int, QByteArray> ActionLogModel::roleNames() const
{
    return {{TimeTextRole, "timeText"}, {MessageRole, "message"}};
}

} // namespace stirra
