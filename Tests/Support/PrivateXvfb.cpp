#include "Tests/Support/PrivateXvfb.h"

#include "Tests/Support/Eventually.h"

namespace testsupport {

namespace {

QStringList serverArguments()
{
    return {QStringLiteral("-displayfd"), QStringLiteral("1"),           QStringLiteral("-screen"),
            QStringLiteral("0"),          QStringLiteral("1280x800x24"), QStringLiteral("-nolisten"),
            QStringLiteral("tcp"),        QStringLiteral("-noreset")};
}

} // namespace

PrivateXvfb::PrivateXvfb(PrivateRuntime &runtime, const QStringList &furtherArguments)
    : process_(std::make_unique<ChildProcess>(QStringLiteral("Xvfb"), serverArguments() + furtherArguments,
                                              runtime.environment()))
{
    static_cast<void>(
        eventually([this] { return process_->standardOutput().endsWith('\n') || !process_->isRunning(); },
                   std::chrono::seconds(30)));
    const auto number = process_->standardOutput().trimmed();
    if (!number.isEmpty()) {
        display_ = QLatin1Char(':') + QString::fromLatin1(number);
        runtime.environment().insert(QStringLiteral("DISPLAY"), display_);
    }
}

} // namespace testsupport
