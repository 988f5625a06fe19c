// A terminal on a headless sway that is typed into.
#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"
#include "Tests/Support/Wayland/PrivateSway.h"
#include "Tests/Support/Wayland/WaylandUser.h"

#include <QByteArray>
#include <QString>

#include <gtest/gtest.h>

#include <memory>

namespace sharedcore {

class FootTypingTest : public testing::Test
{
protected:
    void SetUp() override;

    // What the terminal's program has read.
    [[nodiscard]] QByteArray typed() const;
    [[nodiscard]] bool comesToHave(const QByteArray &text) const;

    // The terminal gets keys once it has drawn its window: until then the user tries.
    [[nodiscard]] bool takesKeysOf(testsupport::WaylandUser &user) const;

    // The exit status of the program that types.
    [[nodiscard]] int type(const QByteArray &text) const;

    testsupport::PrivateRuntime runtime_;
    std::unique_ptr<testsupport::PrivateSway> sway_;
    std::unique_ptr<testsupport::ChildProcess> foot_;

private:
    [[nodiscard]] QString file() const { return runtime_.path(QStringLiteral("typed")); }
};

} // namespace sharedcore
