// The line to an object that works on a thread of its own, for callers who wait for it on theirs.
#pragma once

#include <QMetaObject>
#include <QString>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace platform {

// Shared by the worker's thread and by those that ask it, so that it outlives whichever of them ends first.
// `Worker` is a QObject. Any thread.
template <class Worker> class WorkerLine : public std::enable_shared_from_this<WorkerLine<Worker>>
{
public:
    enum class State { closed, waiting, running };

    // The worker can be asked from now on, until hangUp(); it lives at least as long.
    void attach(Worker &worker)
    {
        const std::scoped_lock lock(lock_);
        worker_ = &worker;
    }

    // From now on nobody reaches the worker, and whoever waits for it goes on.
    void hangUp(const QString &obstacle)
    {
        const std::scoped_lock lock(lock_);
        worker_ = nullptr;
        state_ = State::closed;
        obstacle_ = obstacle;
        changed_.notify_all();
    }

    // What the worker says of itself.
    void tell(State state, const QString &obstacle = {})
    {
        const std::scoped_lock lock(lock_);
        if (worker_) {
            state_ = state;
            obstacle_ = obstacle;
            changed_.notify_all();
        }
    }

    // Has the worker do something on its thread and waits for the answer; false where it goes meanwhile.
    bool ask(std::function<bool(Worker &)> question)
    {
        const auto answer = std::make_shared<std::optional<bool>>();
        std::unique_lock lock(lock_);
        if (!worker_) {
            return false;
        }
        QMetaObject::invokeMethod(
            worker_,
            [line = this->shared_from_this(), worker = worker_, answer, question = std::move(question)] {
                line->take(*answer, question(*worker));
            },
            Qt::QueuedConnection);
        changed_.wait(lock, [&] { return answer->has_value() || !worker_; });
        return answer->value_or(false);
    }

    [[nodiscard]] bool isRunning()
    {
        const std::scoped_lock lock(lock_);
        return state_ == State::running;
    }

    // Waits while the worker does.
    [[nodiscard]] bool comesToRun(std::chrono::milliseconds patience)
    {
        std::unique_lock lock(lock_);
        changed_.wait_for(lock, patience, [this] { return state_ != State::waiting; });
        return state_ == State::running;
    }

    // Why it does not run.
    [[nodiscard]] QString obstacle()
    {
        const std::scoped_lock lock(lock_);
        return obstacle_;
    }

private:
    void take(std::optional<bool> &answer, bool value)
    {
        const std::scoped_lock lock(lock_);
        answer = value;
        changed_.notify_all();
    }

    std::mutex lock_; // of what follows, and of the answers
    std::condition_variable changed_;
    Worker *worker_ = nullptr;
    State state_ = State::closed;
    QString obstacle_;
};

} // namespace platform
