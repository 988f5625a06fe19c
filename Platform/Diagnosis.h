// What the system can say of itself where posting input does not work.
#pragma once

#include "Platform/FallbackInputPoster.h"
#include "Platform/IdleClock.h"

#include <QString>

#include <memory>
#include <vector>

namespace platform {

// A way to post, with the name that trouble-shooting knows it by.
struct NamedInputPoster
{
    QString name;
    FallbackInputPoster::Candidate open;
    bool isTried = true; // false where trouble-shooting has left only another
};

struct SessionDescription
{
    QString kind;    // "x11", "wayland", or "none" where no display answers
    QString desktop; // the desktop's own name; empty where it names none
    QString display; // the display that was asked
};

// Main thread.
class Diagnosis
{
public:
    Diagnosis() = default;
    Diagnosis(const Diagnosis &) = delete;
    Diagnosis &operator=(const Diagnosis &) = delete;
    virtual ~Diagnosis() = default;

    [[nodiscard]] virtual SessionDescription session() = 0;
    // In the order in which Platform::inputPoster() asks those of them that it tries.
    [[nodiscard]] virtual std::vector<NamedInputPoster> inputPosters() = 0;
    // Nothing where the desktop has none that a program may read.
    [[nodiscard]] virtual std::unique_ptr<IdleClock> openIdleClock() = 0;
};

// That of the operating system.
[[nodiscard]] std::unique_ptr<Diagnosis> makeNativeDiagnosis();

} // namespace platform
