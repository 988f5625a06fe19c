#include "SharedCore/EventTapManager/TextTyping.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QString>
#include <QTextBoundaryFinder>
#include <QThread>

#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <thread>

namespace sharedcore {

namespace {

// One text at a time.
class Turn
{
public:
    // Waits for it, but no longer than until a stop is requested.
    explicit Turn(const std::stop_token &stop)
    {
        std::unique_lock lock(mutex);
        isTaken_ = ended.wait(lock, stop, [] { return !isAnyTaken; });
        isAnyTaken = isAnyTaken || isTaken_;
    }
    Turn(const Turn &) = delete;
    Turn &operator=(const Turn &) = delete;
    ~Turn()
    {
        if (isTaken_) {
            const std::scoped_lock lock(mutex);
            isAnyTaken = false;
            ended.notify_one();
        }
    }

    [[nodiscard]] bool isTaken() const { return isTaken_; }

private:
    static inline std::mutex mutex; // of what follows
    static inline std::condition_variable_any ended;
    static inline bool isAnyTaken = false;

    bool isTaken_;
};

bool typeCharacter(platform::TextTyper &typer, std::u16string_view units)
{
    const bool isDown = typer.post({units, true});
    const bool isUp = typer.post({units, false});
    return isDown && isUp;
}

std::u16string_view unitsOf(const QString &text)
{
    const auto *units = reinterpret_cast<const char16_t *>(text.utf16()); // NOLINT
    return {units, static_cast<std::size_t>(text.size())};
}

bool typeCharacters(platform::TextTyper &typer, const QString &text, const Sleep &sleep,
                    const std::stop_token &stop)
{
    const auto units = unitsOf(text);
    QTextBoundaryFinder boundary(QTextBoundaryFinder::Grapheme, text);
    bool isWhole = true;
    for (std::size_t start = 0; start < units.size();) {
        if (!typer.isOpen() || stop.stop_requested()) {
            return false;
        }
        const auto end = static_cast<std::size_t>(boundary.toNextBoundary());
        isWhole = typeCharacter(typer, units.substr(start, end - start)) && isWhole;
        sleep(pauseAfterCharacter);
        start = end;
    }
    return typer.finish() && isWhole;
}

bool typeOnThisThread(const QString &text, platform::TypingServices &services, const Sleep &sleep,
                      const std::stop_token &stop)
{
    const Turn turn(stop);
    QString why;
    const auto typer = turn.isTaken() ? services.open(unitsOf(text), why, stop) : nullptr;
    return typer && typeCharacters(*typer, text, sleep, stop);
}

// The end of the application ends it too. From then on nothing of the thread may wait for a window of this
// program, since this thread, which reads for it, waits for that one.
bool typeBesideTheEventLoop(const QString &text, platform::TypingServices &services, const Sleep &sleep)
{
    QEventLoop loop;
    bool isWhole = false;
    std::jthread thread([&](const std::stop_token &stop) {
        isWhole = typeOnThisThread(text, services, sleep, stop);
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    thread.request_stop();
    thread.join();
    return isWhole;
}

bool isMainThread()
{
    const auto *application = QCoreApplication::instance();
    return application && application->thread() == QThread::currentThread();
}

} // namespace

bool typeText(std::string_view text)
{
    return typeText(text, platform::TypingServices::current(),
                    [](std::chrono::microseconds duration) { std::this_thread::sleep_for(duration); });
}

bool typeText(std::string_view text, platform::TypingServices &services, const Sleep &sleep)
{
    const auto decoded = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    if (decoded.isEmpty()) {
        return true;
    }
    return isMainThread() && services.typesIntoOwnWindow() ? typeBesideTheEventLoop(decoded, services, sleep)
                                                           : typeOnThisThread(decoded, services, sleep, {});
}

} // namespace sharedcore
