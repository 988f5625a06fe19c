// A desktop whose ways to post and whose idle clock are in the test's hands.
#pragma once

#include "Platform/Diagnosis.h"

#include <functional>
#include <map>
#include <vector>

namespace fakes {

// What a way does, and what happened to it.
struct Way
{
    platform::Obstacle obstacle; // it does not open where there is one
    bool isAbsent = false;       // found out by a probe
    bool isRefused = false;      // by the user
    bool isSlow = false;         // never answers
    int probeCount = 0;
    int preparationCount = 0;
    std::vector<platform::InputEvent> posted;
};

class ScriptedWay final : public platform::InputPoster
{
public:
    ScriptedWay(Way &way, std::function<void()> onPost)
        : way_(way)
        , onPost_(std::move(onPost))
    {}

    void prepare() override { ++way_.preparationCount; }
    void probe() override { ++way_.probeCount; }
    std::optional<platform::PointerLocation> pointerLocation() override { return {{0, 0}}; }

    bool post(const platform::InputEvent &event) override
    {
        way_.posted.push_back(event);
        onPost_();
        return true;
    }

    bool isOpen() const override { return !(way_.isAbsent && way_.probeCount > 0); }
    bool isReady() const override { return isOpen() && !way_.isRefused && !way_.isSlow; }
    bool isWaiting() const override { return way_.isSlow; }

    platform::Obstacle obstacle() const override
    {
        return isReady() ? platform::Obstacle()
                         : platform::Obstacle{QStringLiteral("not ready"), QStringLiteral("answer")};
    }

private:
    Way &way_;
    std::function<void()> onPost_;
};

class FakeIdleClock final : public platform::IdleClock
{
public:
    explicit FakeIdleClock(const bool &isIdle)
        : isIdle_(isIdle)
    {}

    QString name() const override { return QStringLiteral("test clock"); }
    bool isIdle() override { return isIdle_; }

private:
    const bool &isIdle_;
};

class FakeDiagnosis final : public platform::Diagnosis
{
public:
    platform::SessionDescription session() override
    {
        return {QStringLiteral("x11"), QString(), QStringLiteral(":9")};
    }

    std::vector<platform::NamedInputPoster> inputPosters() override
    {
        std::vector<platform::NamedInputPoster> list;
        for (const auto &name : order) {
            list.push_back({name,
                            [this, name](platform::Obstacle &why) -> std::unique_ptr<platform::InputPoster> {
                                auto &way = ways[name];
                                why = way.obstacle;
                                if (why != platform::Obstacle()) {
                                    return nullptr;
                                }
                                return std::make_unique<ScriptedWay>(way, onPost);
                            },
                            forced.isEmpty() || forced == name});
        }
        return list;
    }

    std::unique_ptr<platform::IdleClock> openIdleClock() override
    {
        return hasClock ? std::make_unique<FakeIdleClock>(isIdle) : nullptr;
    }

    std::vector<QString> order;
    std::map<QString, Way> ways;
    QString forced;
    std::function<void()> onPost = [] {};
    bool hasClock = true;
    bool isIdle = true;
};

} // namespace fakes
