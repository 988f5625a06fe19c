#include "SharedUI/MenuComponents/NumberText.h"

#include "Tests/Support/QtPrinting.h"

#include <gmock/gmock.h>

#include <limits>

namespace sharedui {

namespace {

QString formatted(const char *format, double value)
{
    return NumberText::formatted(QString::fromUtf8(format), value);
}

TEST(NumberText, IsTheNumberInItsFormat)
{
    for (const auto &[format, expected] : {std::pair{"%.0f", "43"},
                                           {"%f", "42.600000"},
                                           {"%.1f bpm", "42.6 bpm"},
                                           {"%g", "42.6"},
                                           {"%lf", "42.600000"},
                                           {"%5.1f|", " 42.6|"},
                                           {"%-6.1f|", "42.6  |"},
                                           {"%+.2e", "+4.26e+01"},
                                           {"%06.1f", "0042.6"},
                                           {"%.f", "43"},
                                           {"100%% of %.0f", "100% of 43"},
                                           {"%.0f%%", "43%"},
                                           {"%.0f°", "43°"},
                                           {"% .1f", " 42.6"},
                                           {"%G", "42.6"}}) {
        EXPECT_EQ(formatted(format, 42.6), QString::fromUtf8(expected)) << format;
    }
}

TEST(NumberText, IsPlainWhereTheFormatIsNotForOneDouble)
{
    for (const auto *format :
         {"",        "no number", "%",   "%%",   "%d",   "%s",  "%n",     "%i items", "%.1f of %.1f",
          "%.1f %d", "%s %.1f",   "%*f", "%.*f", "%1$f", "%Lf", "%hf",    "%llf",     "%.1f%",
          "%.1f %",  "%c",        "%p",  "%5",   "%-",   "%.",  "%9999f", "%.9999f",  "% %f"}) {
        EXPECT_EQ(formatted(format, 42.6), QStringLiteral("43")) << format;
    }
    EXPECT_EQ(NumberText::formatted(QStringLiteral("%.1f") + QChar(0) + QStringLiteral("%s"), 42.6),
              QStringLiteral("43"));
}

TEST(NumberText, KnowsEveryNumber)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(formatted("%.0f", -0.4), QStringLiteral("-0"));
    EXPECT_EQ(formatted("%.0f", infinity), QStringLiteral("inf"));
    EXPECT_EQ(formatted("%.0f", -infinity), QStringLiteral("-inf"));
    EXPECT_EQ(formatted("%.0f", std::numeric_limits<double>::quiet_NaN()), QStringLiteral("nan"));
    EXPECT_EQ(formatted("%.0f", std::numeric_limits<double>::max()).size(), 309);
    EXPECT_EQ(formatted("%999.999f", 1).size(), 1001);
}

} // namespace

} // namespace sharedui
