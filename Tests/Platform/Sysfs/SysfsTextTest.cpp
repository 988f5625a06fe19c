#include "Platform/Linux/Sysfs/SysfsText.h"
#include "Platform/Linux/Sysfs/SysfsFile.h"
#include "Tests/Platform/Sysfs/Machine.h"
#include "Tests/Support/ChildProcess.h"

#include <gmock/gmock.h>

#include <clocale>
#include <cstdlib>
#include <fstream>

namespace platform {

namespace {

using testing::ElementsAre;

std::vector<double> tuple(std::string_view text, std::size_t count)
{
    std::vector<double> numbers(count);
    return numbersInText(text, numbers) ? numbers : std::vector<double>();
}

std::vector<std::string> names(const std::vector<std::filesystem::path> &paths)
{
    std::vector<std::string> result;
    for (const auto &path : paths) {
        result.push_back(path.filename());
    }
    return result;
}

constexpr auto localeName = "commas";

// A locale in the folder that has nothing but a decimal comma; what it lacks is warned of, but made.
bool makeLocaleWithCommas(const std::filesystem::path &folder)
{
    const auto source = folder / "source";
    std::ofstream(source)
        << "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n";
    testsupport::ChildProcess localedef(QStringLiteral("localedef"),
                                        {QStringLiteral("--force"), QStringLiteral("--no-archive"),
                                         QStringLiteral("-i"), QString::fromStdString(source.string()),
                                         QString::fromStdString((folder / localeName).string())},
                                        QProcessEnvironment::systemEnvironment());
    static_cast<void>(localedef.waitForExit(std::chrono::seconds(20)));
    return std::filesystem::exists(folder / localeName / "LC_NUMERIC");
}

} // namespace

TEST(SysfsText, ReadsTheKernelsNumbers)
{
    EXPECT_EQ(numberInText("-12\n"), -12);
    EXPECT_EQ(numberInText(" 0.000598 "), 0.000598);
    EXPECT_EQ(numberInText("1e3"), 1000);
}

TEST(SysfsText, ReadsNothingElse)
{
    for (const auto *const text :
         {"", "\n", "12 lux", "0x10", "1,5", "nan", "inf", "-infinity", "1e999", "--1", "+"}) {
        EXPECT_EQ(numberInText(text), std::nullopt) << text;
    }
}

TEST(SysfsText, ReadsNumbersInAnyLocale)
{
    const testsupport::TemporaryFolder folder;
    ASSERT_TRUE(makeLocaleWithCommas(folder.path()));
    setenv("LOCPATH", folder.path().c_str(), 1);                // NOLINT(concurrency-mt-unsafe)
    ASSERT_NE(std::setlocale(LC_NUMERIC, localeName), nullptr); // NOLINT(concurrency-mt-unsafe)
    EXPECT_EQ(std::strtod("0.5", nullptr), 0);
    EXPECT_EQ(numberInText("0.5"), 0.5);
    std::setlocale(LC_NUMERIC, "C"); // NOLINT(concurrency-mt-unsafe)
    unsetenv("LOCPATH");             // NOLINT(concurrency-mt-unsafe)
}

TEST(SysfsText, ReadsNumbersInParentheses)
{
    EXPECT_THAT(tuple("(4,-8,255)\n", 3), ElementsAre(4, -8, 255));
    EXPECT_THAT(tuple("( 4 , 8 )", 2), ElementsAre(4, 8));
}

TEST(SysfsText, ReadsNoOtherParentheses)
{
    for (const auto *const text : {"", "()", "(1)", "(1,2", "1,2)", "(1,2,3)", "(1;2)", "(1,)", "(,1)",
                                   "(1,2))", "((1,2)", "(1,2)x", "(nan,1)", "(", ")"}) {
        EXPECT_TRUE(tuple(text, 2).empty()) << text;
    }
}

TEST(SysfsText, EndsAtAZeroByte)
{
    EXPECT_EQ(trimmedText(std::string_view("Some Model\0\0", 12)), "Some Model");
    EXPECT_EQ(trimmedText(std::string_view("\0x", 2)), "");
}

TEST(SysfsFile, ReadsAtMostAPage)
{
    const Machine machine;
    const auto file = machine.write("long", std::string(10000, '1'));
    EXPECT_EQ(textOfFile(file)->size(), longestAttribute);
    EXPECT_EQ(textOfFile("/dev/zero")->size(), longestAttribute);
}

TEST(SysfsFile, ReadsNothingThatIsNoFile)
{
    const Machine machine;
    EXPECT_EQ(textOfFile(machine.root()), std::nullopt);
    EXPECT_EQ(textOfFile(machine.root() / "none"), std::nullopt);
    EXPECT_EQ(numberInFile(machine.root() / "none"), std::nullopt);
    EXPECT_EQ(textOfFile(testsupport::makeReportPipe(machine.root() / "pipe")), "");
}

TEST(SysfsFile, SortsByNumber)
{
    const Machine machine;
    for (const auto *const name :
         {"hidraw10", "hidraw9", "hidraw", "hidrawX", "hidraw1x", "hidraw-1", "other1", "hidraw0"}) {
        machine.write(name, "");
    }
    EXPECT_THAT(names(numberedPaths(machine.root() / "sys", "hidraw")),
                ElementsAre("hidraw0", "hidraw9", "hidraw10"));
    EXPECT_TRUE(numberedPaths(machine.root() / "none", "hidraw").empty());
}

} // namespace platform
