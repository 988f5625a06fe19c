// What the doctor found.
#pragma once

#include "Platform/Diagnosis.h"

#include <QString>

#include <vector>

namespace doctor {

struct Backend
{
    QString name;
    bool works = false;
    platform::Obstacle obstacle; // where it does not

    bool operator==(const Backend &) const = default;
};

enum class Result { confirmed, notConfirmed, noIdleClock };

struct Action
{
    QString name;
    Result result = Result::notConfirmed;

    bool operator==(const Action &) const = default;
};

struct Report
{
    platform::SessionDescription session;
    std::vector<Backend> backends; // in the order in which they are asked
    QString chosen;                // the backend that posted; empty where none could
    platform::Obstacle obstacle;   // what is in the way where none could
    QString idleClock;             // empty where there is none
    std::vector<Action> actions;

    // All actions were done, and the idle clock was seen to start anew at each.
    [[nodiscard]] bool isConfirmed() const;
};

// For people. `isColoured` adds the escape sequences of terminals.
[[nodiscard]] QString reportText(const Report &report, bool isColoured);

// For scripts: an object as report.schema.json describes it, on lines of its own.
[[nodiscard]] QByteArray reportJson(const Report &report);

} // namespace doctor
