// The newest entries of the engine's log, as rows for a view.
#pragma once

#include "App/StirraEngine.h"

#include <QAbstractListModel>
#include <QPointer>

namespace stirra {

// Follows an engine's log row by row: a new entry inserts one row and drops one, so that a view keeps the
// rest. Main thread.
class ActionLogModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(stirra::StirraEngine *engine READ engine WRITE setEngine NOTIFY engineChanged REQUIRED)
    // The most rows that there are.
    Q_PROPERTY(int limit MEMBER limit_ CONSTANT)
    // Entries in the whole log.
    Q_PROPERTY(qsizetype entryCount READ entryCount NOTIFY entryCountChanged)

public:
    enum Role { TimeTextRole = Qt::UserRole, MessageRole };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] StirraEngine *engine() const { return engine_; }
    void setEngine(StirraEngine *engine);
    [[nodiscard]] qsizetype entryCount() const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void engineChanged();
    void entryCountChanged();

private:
    void follow();
    void insertAtTop(const QList<ActionLogEntry> &entries);
    void dropFromRow(qsizetype row);

    QPointer<StirraEngine> engine_;
    int limit_ = 15;
    QList<ActionLogEntry> rows_;
};

} // namespace stirra
