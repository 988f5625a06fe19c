#include "Tools/Doctor/Examination.h"

#include "Tools/Doctor/SingleWayPlatform.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <array>

namespace doctor {

namespace {

using namespace std::chrono_literals;
using stirra::StirraEngine;

constexpr auto patienceWithSystem = 5s;
constexpr auto patienceWithUser = 120s;   // who has to find and read the desktop's question
constexpr auto patienceForIdleness = 15s; // of somebody who is at the computer
constexpr auto patienceForReset = 2s;
constexpr auto patienceForAction = 5s;
constexpr auto pauseAfterAction = 300ms; // in which its second half is posted
constexpr double shortInterval = 0.05;   // seconds
constexpr auto lookInterval = 20ms;

constexpr std::array modes{StirraEngine::Mode::mouseJiggle, StirraEngine::Mode::keyPress,
                           StirraEngine::Mode::scroll};

platform::Obstacle nothingWorks()
{
    return {QStringLiteral("None of these ways works."),
            QStringLiteral("Remove what is in the way of one of them.")};
}

// Nothing but time has to pass.
bool never()
{
    return false;
}

} // namespace

bool waitInEventLoop(const std::function<bool()> &condition, std::chrono::milliseconds longest)
{
    const QDeadlineTimer deadline(longest);
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (condition() || deadline.hasExpired()) {
            loop.quit();
        }
    });
    look.start(lookInterval);
    if (!condition()) {
        loop.exec();
    }
    return condition();
}

Examination::Examination(platform::Diagnosis &diagnosis, Wait wait)
    : diagnosis_(diagnosis)
    , wait_(std::move(wait))
{}

Report Examination::run() const
{
    Report report;
    report.session = diagnosis_.session();
    platform::FallbackInputPoster::Candidate chosen;
    for (const auto &way : diagnosis_.inputPosters()) {
        report.backends.push_back(examine(way));
        const auto &backend = report.backends.back();
        if (way.isTried && report.chosen.isEmpty()) {
            report.chosen = backend.works ? way.name : QString();
            chosen = way.open;
        }
    }
    report.obstacle = report.chosen.isEmpty() ? nothingWorks() : platform::Obstacle();
    SingleWayPlatform platform(platform::Platform::current(), chosen);
    if (!report.chosen.isEmpty() && !isReady(platform.inputPoster())) {
        report.obstacle = platform.inputPoster().obstacle();
        report.chosen.clear();
    }
    performAll(report);
    return report;
}

Backend Examination::examine(const platform::NamedInputPoster &way) const
{
    Backend backend{way.name, false, {}};
    const auto poster = way.open(backend.obstacle);
    if (!poster) {
        return backend;
    }
    poster->probe();
    const bool isAnswered = wait_([&poster] { return !poster->isWaiting(); }, patienceWithSystem);
    backend.works = isAnswered && poster->isOpen();
    backend.obstacle = backend.works ? platform::Obstacle() : poster->obstacle();
    return backend;
}

bool Examination::isReady(platform::InputPoster &poster) const
{
    poster.prepare();
    wait_([&poster] { return poster.isReady() || !poster.isWaiting(); }, patienceWithUser);
    return poster.isReady();
}

void Examination::performAll(Report &report) const
{
    const auto clock = diagnosis_.openIdleClock();
    report.idleClock = clock ? clock->name() : QString();
    for (const auto mode : modes) {
        auto result = clock ? Result::notConfirmed : Result::noIdleClock;
        if (!report.chosen.isEmpty()) {
            result = clock ? perform(mode, *clock) : performUnseen(mode);
        }
        report.actions.push_back({StirraEngine::rawValue(mode), result});
    }
}

Result Examination::perform(StirraEngine::Mode mode, platform::IdleClock &clock) const
{
    if (!wait_([&clock] { return clock.isIdle(); }, patienceForIdleness)) {
        return Result::notConfirmed;
    }
    const bool isReset = performOnce(mode) && wait_([&clock] { return !clock.isIdle(); }, patienceForReset);
    wait_(never, pauseAfterAction);
    return isReset ? Result::confirmed : Result::notConfirmed;
}

Result Examination::performUnseen(StirraEngine::Mode mode) const
{
    performOnce(mode);
    wait_(never, pauseAfterAction);
    return Result::noIdleClock;
}

// The engine's own way, from its start to the first action.
bool Examination::performOnce(StirraEngine::Mode mode) const
{
    StirraEngine engine;
    engine.setMode(mode);
    engine.setIntervalSeconds(shortInterval);
    QObject::connect(&engine, &StirraEngine::totalJigglesChanged, &engine, [&engine] {
        if (engine.totalJiggles() == 1) {
            engine.stop();
        }
    });
    engine.start();
    return wait_([&engine] { return !engine.isActive(); }, patienceForAction);
}

} // namespace doctor
