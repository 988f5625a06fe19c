#include "Platform/Linux/Sysfs/SysfsText.h"
#include "Platform/Linux/Sysfs/SysfsFile.h"
#include "Tests/Platform/Sysfs/Machine.h"

#include <gmock/gmock.h>

#include <clocale>

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
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    EXPECT_EQ(numberInText("0.5"), 0.5);
    std::setlocale(LC_NUMERIC, "C");
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
