// SIGTERM, SIGINT and SIGHUP as an ordinary signal of the main loop.
#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace platform {

// One at a time. Main thread. The signals keep this effect until the object goes; then they end the process
// again.
class TerminationSignals final : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    void received();

private:
    void drain();

    int descriptor_;
    QSocketNotifier notifier_;
};

} // namespace platform
