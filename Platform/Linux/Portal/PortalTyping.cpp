#include "Platform/Linux/Portal/PortalTyping.h"

#include "Platform/Linux/Typing/TypedSymbols.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr auto connectionName = "stirra-typing";

} // namespace

// What happens on the thread; the last three functions may be called from others.
class PortalTyping::Worker : public QObject
{
public:
    explicit Worker(RemoteDesktopToken token)
        : bus_(
              QDBusConnection::connectToBus(QDBusConnection::SessionBus, QString::fromLatin1(connectionName)))
        , token_(std::move(token))
        , portal_(bus_)
    {
        connect(&portal_, &RemoteDesktopPortal::answered, this, [this] { portalAnswered(); });
        connect(&portal_, &RemoteDesktopPortal::lost, this,
                [this] { drop(QStringLiteral("The portal ended.")); });
    }

    ~Worker() override
    {
        session_.reset();
        QDBusConnection::disconnectFromBus(QString::fromLatin1(connectionName));
    }

    // A session that is being opened, or runs, is left alone.
    void ask()
    {
        if (isRefused_ || session_ || portal_.isAsking()) {
            return;
        }
        tell(State::waiting, QStringLiteral("The desktop has not let the program type yet."));
        if (portal_.description()) {
            openSession();
        } else if (const auto absence = portal_.absence()) {
            tell(State::closed, absence->reason);
        } else {
            portal_.ask();
        }
    }

    [[nodiscard]] bool type(const std::vector<KeySymbol> &symbols)
    {
        for (const auto symbol : symbols) {
            if (!session_ || !session_->hasKeyboard()) {
                return false;
            }
            if (!session_->typeSymbolAndWait(static_cast<std::int32_t>(symbol))) {
                drop(QStringLiteral("The portal takes no keys any more."));
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] bool isRunning()
    {
        const std::scoped_lock lock(lock_);
        return state_ == State::running;
    }

    [[nodiscard]] bool comesToRun(std::chrono::milliseconds patience)
    {
        std::unique_lock lock(lock_);
        changed_.wait_for(lock, patience, [this] { return state_ != State::waiting; });
        return state_ == State::running;
    }

    [[nodiscard]] QString obstacle()
    {
        const std::scoped_lock lock(lock_);
        return obstacle_;
    }

private:
    enum class State { closed, waiting, running };

    void tell(State state, const QString &obstacle = {})
    {
        const std::scoped_lock lock(lock_);
        state_ = state;
        obstacle_ = obstacle;
        changed_.notify_all();
    }

    void portalAnswered()
    {
        if (portal_.description()) {
            openSession();
            return;
        }
        const auto absence = portal_.absence();
        tell(State::closed, absence ? absence->reason : QStringLiteral("The portal does not answer."));
    }

    void openSession()
    {
        session_ = std::make_unique<RemoteDesktopSession>(bus_, *portal_.description(), token_.load());
        connect(session_.get(), &RemoteDesktopSession::started, this, [this](const QString &token) {
            token_.save(token);
            tell(State::running);
        });
        connect(session_.get(), &RemoteDesktopSession::ended, this, [this](RemoteDesktopSession::End end) {
            isRefused_ = end == RemoteDesktopSession::End::refused;
            if (isRefused_) {
                token_.save({}); // it was not enough
            }
            drop(isRefused_ ? QStringLiteral("The user does not let the program type.")
                            : QStringLiteral("The desktop closed the session."));
        });
        session_->open();
    }

    void drop(const QString &obstacle)
    {
        if (session_) {
            disconnect(session_.get(), nullptr, this, nullptr);
            session_.release()->deleteLater(); // NOLINT(bugprone-unused-return-value)
        }
        tell(State::closed, obstacle);
    }

    QDBusConnection bus_;
    RemoteDesktopToken token_;
    RemoteDesktopPortal portal_;
    std::unique_ptr<RemoteDesktopSession> session_;
    bool isRefused_ = false;

    std::mutex lock_; // of what follows
    std::condition_variable changed_;
    State state_ = State::closed;
    QString obstacle_;
};

class PortalTyping::Typer final : public TextTyper
{
public:
    explicit Typer(Worker &worker)
        : worker_(worker)
    {}

    bool post(const CharacterEvent &event) override
    {
        if (event.isDown) {
            pressed_ = event.units;
            return isOpen();
        }
        const auto symbols = typedSymbols(event.units);
        if (std::exchange(pressed_, {}) != event.units || symbols.empty() || !isOpen()) {
            return false;
        }
        bool isTyped = false;
        QMetaObject::invokeMethod(
            &worker_, [&] { isTyped = worker_.type(symbols); }, Qt::BlockingQueuedConnection);
        return isTyped;
    }

    bool isOpen() const override { return worker_.isRunning(); }
    bool finish() override { return isOpen(); } // the portal has answered each key

private:
    Worker &worker_;
    std::u16string pressed_;
};

PortalTyping::PortalTyping(RemoteDesktopToken token, std::chrono::milliseconds patience)
    : token_(std::move(token))
    , patience_(patience)
{}

PortalTyping::~PortalTyping()
{
    stop();
}

QString PortalTyping::defaultTokenFile()
{
    return QFileInfo(RemoteDesktopToken::defaultFile()).path() + QStringLiteral("/typing-token");
}

std::unique_ptr<TextTyper> PortalTyping::open(QString &why)
{
    if (!QCoreApplication::instance()) {
        why = QStringLiteral("The portal needs a Qt application.");
        return nullptr;
    }
    const std::scoped_lock lock(starting_);
    if (!worker_) {
        start();
    }
    QMetaObject::invokeMethod(
        worker_, [this] { worker_->ask(); }, Qt::BlockingQueuedConnection);
    if (!worker_->comesToRun(patience_)) {
        why = worker_->obstacle();
        return nullptr;
    }
    return std::make_unique<Typer>(*worker_);
}

// The connection to the bus is to end before the library that has it.
void PortalTyping::start()
{
    QObject::connect(
        QCoreApplication::instance(), &QCoreApplication::aboutToQuit, &connections_, [this] { stop(); },
        Qt::DirectConnection);
    thread_.start();
    auto *maker = new QObject;
    maker->moveToThread(&thread_);
    QMetaObject::invokeMethod(
        maker, [this] { worker_ = new Worker(token_); }, Qt::BlockingQueuedConnection);
    QObject::connect(&thread_, &QThread::finished, worker_, &QObject::deleteLater);
    maker->deleteLater();
}

void PortalTyping::stop()
{
    thread_.quit();
    thread_.wait();
    worker_ = nullptr;
}

} // namespace platform
