#include "Foundation/TimeText.h"

#include <unicode/dtptngen.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <cstdlib>
#include <ctime>
#include <memory>

namespace foundation {

namespace {

constexpr int secondsPerMinute = 60;
constexpr int secondsPerHour = 3600;

icu::Locale icuLocale(const char *posixName)
{
    return icu::Locale::createCanonical(posixName);
}

// The fields are formatted as UTC: the zone was applied when they were read from the clock.
std::unique_ptr<icu::SimpleDateFormat> makeFormat(const char *localeName)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto locale = icuLocale(localeName);
    const std::unique_ptr<icu::DateTimePatternGenerator> patterns(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status)) {
        return nullptr;
    }
    const auto pattern = patterns->getBestPattern(icu::UnicodeString("jms"), status);
    auto format = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
    if (U_FAILURE(status)) {
        return nullptr;
    }
    format->setTimeZone(*icu::TimeZone::getGMT());
    return format;
}

// The narrow no-break space that newer locale data puts before the day period has no glyph in many fonts.
QString withPlainSpaces(QString text)
{
    return text.replace(QChar(0x202F), QLatin1Char(' '));
}

QString formatted(const icu::SimpleDateFormat *format, int secondsOfDay)
{
    if (!format) {
        return QString::asprintf("%02d:%02d:%02d", secondsOfDay / secondsPerHour,
                                 secondsOfDay / secondsPerMinute % 60, secondsOfDay % 60);
    }
    icu::UnicodeString text;
    format->format(static_cast<UDate>(secondsOfDay) * U_MILLIS_PER_SECOND, text);
    return withPlainSpaces(QString::fromUtf16(text.getBuffer(), text.length()));
}

const char *timeLocaleName()
{
    for (const char *variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char *value = std::getenv(variable);
        if (value && *value) {
            return value;
        }
    }
    return "C";
}

int localSecondsOfDay(std::chrono::system_clock::time_point time)
{
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm fields{};
    tzset(); // localtime_r alone does not notice that the user moved to another zone
    localtime_r(&seconds, &fields);
    return fields.tm_hour * secondsPerHour + fields.tm_min * secondsPerMinute + fields.tm_sec;
}

} // namespace

QString timeOfDayText(int secondsOfDay, const char *localeName)
{
    return formatted(makeFormat(localeName).get(), secondsOfDay);
}

QString localTimeText(std::chrono::system_clock::time_point time)
{
    static const auto format = makeFormat(timeLocaleName());
    return formatted(format.get(), localSecondsOfDay(time));
}

} // namespace foundation
