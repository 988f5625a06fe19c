// The time texts of the action log, in the user's locale and zone.

#include "Tests/EndToEnd/Desktop.h"

#include <QRegularExpression>
#include <QTime>
#include <QTimeZone>

#include <gtest/gtest.h>

#include <cstdlib>

namespace endtoend {

namespace {

// The log's newest time text, after a start with this locale.
QString timeText(const QString &locale, const QString &zone)
{
    Desktop desktop;
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("LC_ALL"), locale);
    environment.insert(QStringLiteral("TZ"), zone);
    if (!desktop.isOpen()) {
        return {};
    }
    Stirra stirra(desktop, environment);
    if (!stirra.isUp() || !stirra.tree().press(QStringLiteral("Start")) ||
        !stirra.comesToShow(QStringLiteral("Stirra activated"))) {
        return {};
    }
    const auto texts = stirra.tree().texts();
    return texts.value(texts.indexOf(QStringLiteral("Stirra activated")) - 1);
}

// How far the time is from the present in the zone, round the clock.
int secondsFromNow(const QTime &time, const QByteArray &zone)
{
    constexpr int day = 24 * 3600;
    const auto now = QDateTime::currentDateTimeUtc().toTimeZone(QTimeZone(zone)).time();
    const int distance = std::abs(time.secsTo(now));
    return std::min(distance, day - distance);
}

} // namespace

TEST(LocaleTest, AGermanLogTellsHoursFrom0To23WithTwoDigits)
{
    const auto text = timeText(QStringLiteral("de_DE.UTF-8"), QStringLiteral("Asia/Kolkata"));

    EXPECT_TRUE(QRegularExpression(QStringLiteral("^\\d{2}:\\d{2}:\\d{2}$")).match(text).hasMatch())
        << qPrintable(text);
    EXPECT_LT(secondsFromNow(QTime::fromString(text, QStringLiteral("HH:mm:ss")), "Asia/Kolkata"), 60);
}

TEST(LocaleTest, AnAmericanLogTellsHoursFrom1To12AndTheHalfOfTheDay)
{
    const auto text = timeText(QStringLiteral("en_US.UTF-8"), QStringLiteral("America/New_York"));

    EXPECT_TRUE(
        QRegularExpression(QStringLiteral("^(\\d|1[012]):\\d{2}:\\d{2} (AM|PM)$")).match(text).hasMatch())
        << qPrintable(text);
    EXPECT_LT(secondsFromNow(QTime::fromString(text, QStringLiteral("h:mm:ss AP")), "America/New_York"), 60);
}

} // namespace endtoend
