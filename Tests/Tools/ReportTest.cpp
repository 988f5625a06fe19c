#include "Tools/Doctor/Report.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

namespace doctor {

namespace {

using testing::HasSubstr;
using testing::Not;

Report report()
{
    Report report;
    report.session = {QStringLiteral("wayland"), QStringLiteral("sway"), QString()};
    report.backends = {{QStringLiteral("portal"), false, {QStringLiteral("Denied."), QStringLiteral("Ask.")}},
                       {QStringLiteral("uinput"), true, {}}};
    report.chosen = QStringLiteral("uinput");
    report.actions = {{QStringLiteral("Mouse Jiggle"), Result::confirmed},
                      {QStringLiteral("Key Press"), Result::notConfirmed},
                      {QStringLiteral("Scroll Pulse"), Result::noIdleClock}};
    return report;
}

std::string text(bool isColoured)
{
    return reportText(report(), isColoured).toStdString();
}

} // namespace

TEST(ReportTest, TheTextSaysWhatIsInTheWayAndWhatHelps)
{
    EXPECT_EQ(text(false), "Session\n"
                           "  kind            wayland\n"
                           "  desktop         sway\n"
                           "  display         none\n"
                           "\n"
                           "Ways to post input\n"
                           "  ✗ portal        no. Denied.\n"
                           "                  Ask.\n"
                           "  ✓ uinput        yes\n"
                           "\n"
                           "Actions\n"
                           "  posted through  uinput\n"
                           "  idle clock      none\n"
                           "  ✓ Mouse Jiggle  reset confirmed\n"
                           "  ✗ Key Press     not confirmed\n"
                           "  ? Scroll Pulse  no idle clock here\n");
}

TEST(ReportTest, ColoursAreForTerminals)
{
    EXPECT_THAT(text(false), Not(HasSubstr("\033")));
    EXPECT_THAT(text(true), HasSubstr("\033[32m✓\033[0m"));
}

TEST(ReportTest, WithoutAWayTheTextSaysWhy)
{
    auto shut = report();
    shut.chosen.clear();
    shut.obstacle = {QStringLiteral("Nothing works."), QStringLiteral("Mend it.")};
    EXPECT_THAT(
        reportText(shut, false).toStdString(),
        HasSubstr("posted through  none\n                  Nothing works.\n                  Mend it.\n"));
}

TEST(ReportTest, TheObjectLeavesNothingEmpty)
{
    const auto object = QJsonDocument::fromJson(reportJson(report())).object();
    EXPECT_EQ(object.value(QStringLiteral("chosen")).toString(), QStringLiteral("uinput"));
    EXPECT_TRUE(object.value(QStringLiteral("idleClock")).isNull());
    EXPECT_TRUE(object.value(QStringLiteral("session")).toObject().value(QStringLiteral("display")).isNull());
    EXPECT_FALSE(object.value(QStringLiteral("confirmed")).toBool(true));
}

TEST(ReportTest, IsConfirmedByEveryActionTogether)
{
    auto found = report();
    EXPECT_FALSE(found.isConfirmed());
    for (auto &action : found.actions) {
        action.result = Result::confirmed;
    }
    EXPECT_TRUE(found.isConfirmed());
    found.actions.clear();
    EXPECT_FALSE(found.isConfirmed());
}

} // namespace doctor
