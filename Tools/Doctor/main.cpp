// stirra-doctor: says which ways to keep this desktop's session active work, and proves it.

#include "Platform/Platform.h"
#include "Tools/Doctor/Examination.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <unistd.h>

#include <cstdio>

namespace {

constexpr int exitConfirmed = 0;
constexpr int exitNotConfirmed = 1;
constexpr int exitUsage = 2;

void print(std::FILE *file, const QByteArray &text)
{
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), file);
}

void describeOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Says which ways of posting input work on this desktop and what is in the way of the others.\n"
        "Then performs each of Stirra's actions once and watches the desktop's idle clock; leave mouse\n"
        "and keyboard alone meanwhile. STIRRA_INPUT_BACKEND forces a way, as it does for Stirra.\n\n"
        "Exit status: 0 every action reset the idle clock, 1 not so, 2 wrong usage."));
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Print this and exit.")});
    parser.addOption({QStringLiteral("json"), QStringLiteral("Print one JSON object, for scripts.")});
}

int examine(bool asJson)
{
    const auto platform = platform::makeNativePlatform();
    const platform::PlatformInstallation installation(*platform);
    const auto diagnosis = platform::makeNativeDiagnosis();
    const auto report = doctor::Examination(*diagnosis, doctor::waitInEventLoop).run();
    print(stdout, asJson ? doctor::reportJson(report)
                         : doctor::reportText(report, isatty(STDOUT_FILENO) == 1).toUtf8());
    return report.isConfirmed() ? exitConfirmed : exitNotConfirmed;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("stirra-doctor"));
    QCommandLineParser parser;
    describeOptions(parser);
    if (!parser.parse(QCoreApplication::arguments()) || !parser.positionalArguments().isEmpty()) {
        const auto error = parser.errorText();
        print(stderr, (error.isEmpty() ? QStringLiteral("There is nothing to name.") : error).toUtf8() +
                          "\nTry: stirra-doctor --help\n");
        return exitUsage;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        print(stdout, parser.helpText().toUtf8());
        return exitConfirmed;
    }
    return examine(parser.isSet(QStringLiteral("json")));
}
