// The same figures on a Wayland compositor, sway without a screen.

#include "Benchmarks/ProcessFigures.h"
#include "Benchmarks/Sections.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/PrivateBus.h"
#include "Tests/Support/Wayland/PrivateSway.h"
#include "Tests/Support/Wayland/WaylandUser.h"

#include <QFileInfo>

#include <chrono>

namespace benchmarks {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr std::uint32_t tabKey = 15; // evdev codes
constexpr std::uint32_t spaceKey = 57;
constexpr auto settlingTime = 12s; // the first action comes after the time that is counted
constexpr auto countingTime = 15s;

QString besideThisProgram(const char *name)
{
    return QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget().section(QLatin1Char('/'), 0, -2) +
           QLatin1Char('/') + QLatin1String(name);
}

// A program on a session of its own.
class WaylandProgram
{
public:
    WaylandProgram(const char *program, const char *title)
        : bus_(runtime_)
        , sway_(runtime_)
        , window_(QStringLiteral("[title=\"^%1$\"] ").arg(QLatin1String(title)))
    {
        if (!sway_.isOpen() || !bus_.isOpen()) {
            throw NotMeasured("no private Wayland session");
        }
        // Without the window frame that the compositor draws anyway, for which all of OpenGL is loaded.
        runtime_.environment().insert(QStringLiteral("QT_WAYLAND_DISABLE_WINDOWDECORATION"),
                                      QStringLiteral("1"));
        user_.emplace(sway_.display(), testsupport::WaylandUser::keymapOfLayout("us"));
        process_.emplace(besideThisProgram(program), QStringList(), runtime_.environment());
        if (!testsupport::eventually([this] { return command("focus"); })) {
            throw NotMeasured(std::string(program) + " shows no window on Wayland");
        }
    }

    // Presses the button that comes first.
    void pressStart()
    {
        testsupport::letPass(500ms); // until the focus has come
        user_->type(tabKey);
        user_->type(spaceKey);
    }

    void closeWindow()
    {
        if (!command("kill") || !testsupport::eventually([this] { return !command("focus"); })) {
            throw NotMeasured("the window does not close on Wayland");
        }
    }

    void startCounting()
    {
        before_ = wakeUpsOf(process_->pid());
        countedFrom_ = Clock::now();
    }

    [[nodiscard]] double wakeUpsPerSecond() const
    {
        const std::chrono::duration<double> time = Clock::now() - countedFrom_;
        return static_cast<double>(wakeUpsBetween(before_, wakeUpsOf(process_->pid()))) / time.count();
    }

    [[nodiscard]] Memory memory() const { return memoryOf(process_->pid()); }

private:
    [[nodiscard]] bool command(const char *words) const
    {
        return sway_.command(window_ + QLatin1String(words));
    }

    testsupport::PrivateRuntime runtime_;
    testsupport::PrivateBus bus_;
    testsupport::PrivateSway sway_;
    std::optional<testsupport::WaylandUser> user_;
    QString window_;
    std::optional<testsupport::ChildProcess> process_;
    WakeUps before_;
    Clock::time_point countedFrom_;
};

} // namespace

std::vector<Row> waylandRows()
{
    WaylandProgram inactive(stirraProgram, "Stirra");
    WaylandProgram shown(stirraProgram, "Stirra");
    WaylandProgram closed(stirraProgram, "Stirra");
    WaylandProgram empty(emptyWindowProgram, "Empty");
    shown.pressStart();
    closed.pressStart();
    closed.closeWindow();
    testsupport::letPass(settlingTime);
    for (auto *program : {&inactive, &shown, &closed, &empty}) {
        program->startCounting();
    }
    testsupport::letPass(countingTime);
    return {
        ratioRow("Wayland: resident memory, inactive", inactive.memory().resident, empty.memory().resident,
                 "MB", 1.35),
        plainRow("Wayland: private memory (dirty)", figure(inactive.memory().privateDirty, "MB"),
                 figure(empty.memory().privateDirty, "MB")),
        limitRow("Wayland: wake-ups, inactive", inactive.wakeUpsPerSecond() * 20, 2, "in 20 s",
                 figure(empty.wakeUpsPerSecond() * 20, "in 20 s")),
        limitRow("Wayland: wake-ups, active and shown", shown.wakeUpsPerSecond(), 3, "/s"),
        limitRow("Wayland: wake-ups, active and closed", closed.wakeUpsPerSecond(), 1.5, "/s"),
    };
}

} // namespace benchmarks
