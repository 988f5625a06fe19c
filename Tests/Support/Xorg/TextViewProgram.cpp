#include "Tests/Support/Xorg/TextViewProgram.h"

#include "Tests/Support/Eventually.h"

namespace testsupport {

namespace {

QString programOf(TextViewProgram::Toolkit toolkit)
{
    switch (toolkit) {
    case TextViewProgram::Toolkit::qtWidgets:
        return QStringLiteral(STIRRA_QT_WIDGETS_TEXT_VIEW);
    case TextViewProgram::Toolkit::qtQuick:
        return QStringLiteral(STIRRA_QT_QUICK_TEXT_VIEW);
    case TextViewProgram::Toolkit::gtk:
        return QStringLiteral(STIRRA_GTK_TEXT_VIEW);
    }
    return {};
}

} // namespace

TextViewProgram::TextViewProgram(const PrivateRuntime &runtime, Toolkit toolkit, double fraction)
    : process_(programOf(toolkit), {QString::number(fraction)}, runtime.environment())
{}

bool TextViewProgram::isReady()
{
    static_cast<void>(
        eventually([this] { return process_.standardOutput().endsWith('\n') || !process_.isRunning(); },
                   std::chrono::seconds(30)));
    return process_.standardOutput().startsWith("ready ");
}

std::vector<double> TextViewProgram::positions() const
{
    auto lines = process_.standardOutput().split('\n');
    lines.removeLast(); // what is not ended by a line feed is still being written
    std::vector<double> positions;
    for (const auto &line : lines) {
        positions.push_back(line.split(' ').last().toDouble());
    }
    return positions;
}

} // namespace testsupport
