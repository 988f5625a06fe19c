#include "Platform/Linux/Portal/PortalTyping.h"

#include "Platform/Linux/Typing/TypedSymbols.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <utility>

namespace platform {

namespace {

constexpr auto connectionName = "stirra-typing";

QString endOfProgram()
{
    return QStringLiteral("The program ends.");
}

} // namespace

// What happens on the thread.
class PortalTyping::Worker : public QObject
{
public:
    Worker(std::shared_ptr<WorkerLine<Worker>> line, RemoteDesktopToken token)
        : line_(std::move(line))
        , bus_(
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
        line_->tell(State::waiting, QStringLiteral("The desktop has not let the program type yet."));
        if (portal_.description()) {
            openSession();
        } else if (const auto absence = portal_.absence()) {
            line_->tell(State::closed, absence->reason);
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

private:
    using State = WorkerLine<Worker>::State;

    void portalAnswered()
    {
        if (portal_.description()) {
            openSession();
            return;
        }
        const auto absence = portal_.absence();
        line_->tell(State::closed, absence ? absence->reason : QStringLiteral("The portal does not answer."));
    }

    void openSession()
    {
        session_ = std::make_unique<RemoteDesktopSession>(bus_, *portal_.description(), token_.load());
        connect(session_.get(), &RemoteDesktopSession::started, this, [this](const QString &token) {
            if (session_->hasKeyboard()) {
                token_.save(token);
                line_->tell(State::running);
            } else {
                refuse();
            }
        });
        connect(session_.get(), &RemoteDesktopSession::ended, this, [this](RemoteDesktopSession::End end) {
            if (end == RemoteDesktopSession::End::refused) {
                refuse();
            } else {
                drop(QStringLiteral("The desktop closed the session."));
            }
        });
        session_->open();
    }

    // The user may grant the pointer alone. A token would restore such a grant without a question.
    void refuse()
    {
        isRefused_ = true;
        token_.save({});
        drop(QStringLiteral("The user does not let the program type."));
    }

    void drop(const QString &obstacle)
    {
        if (session_) {
            disconnect(session_.get(), nullptr, this, nullptr);
            session_.release()->deleteLater(); // NOLINT(bugprone-unused-return-value)
        }
        line_->tell(State::closed, obstacle);
    }

    std::shared_ptr<WorkerLine<Worker>> line_;
    QDBusConnection bus_;
    RemoteDesktopToken token_;
    RemoteDesktopPortal portal_;
    std::unique_ptr<RemoteDesktopSession> session_;
    bool isRefused_ = false;
};

class PortalTyping::Typer final : public TextTyper
{
public:
    explicit Typer(std::shared_ptr<WorkerLine<Worker>> line)
        : line_(std::move(line))
    {}

    bool post(const CharacterEvent &event) override
    {
        if (event.isDown) {
            pressed_ = event.units;
            return isOpen();
        }
        auto symbols = typedSymbols(event.units);
        if (std::exchange(pressed_, {}) != event.units || symbols.empty() || !isOpen()) {
            return false;
        }
        return line_->ask([symbols = std::move(symbols)](Worker &worker) { return worker.type(symbols); });
    }

    bool isOpen() const override { return line_->isRunning(); }
    bool finish() override { return isOpen(); } // the portal has answered each key

private:
    std::shared_ptr<WorkerLine<Worker>> line_;
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
    const auto line = startedLine();
    if (!line) {
        why = endOfProgram();
        return nullptr;
    }
    line->ask([](Worker &worker) {
        worker.ask();
        return true;
    });
    if (!line->comesToRun(patience_)) {
        why = line->obstacle();
        return nullptr;
    }
    return std::make_unique<Typer>(line);
}

// None once the application has ended, since nobody would end the thread.
std::shared_ptr<WorkerLine<PortalTyping::Worker>> PortalTyping::startedLine()
{
    const std::scoped_lock lock(starting_);
    if (!line_ && !isEnding_) {
        line_ = std::make_shared<WorkerLine<Worker>>();
        start();
    }
    return isEnding_ ? nullptr : line_;
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
        maker,
        [this] {
            auto *worker = new Worker(line_, token_);
            QObject::connect(&thread_, &QThread::finished, worker, &QObject::deleteLater);
            line_->attach(*worker);
        },
        Qt::BlockingQueuedConnection);
    maker->deleteLater();
}

void PortalTyping::stop()
{
    const std::scoped_lock lock(starting_);
    isEnding_ = true;
    if (line_) {
        line_->hangUp(endOfProgram());
    }
    thread_.quit();
    thread_.wait();
}

} // namespace platform
