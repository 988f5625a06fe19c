#include "SharedUI/MenuComponents/NumberText.h"

#include <QRegularExpression>

#include <cstdio>
#include <string>

namespace sharedui {

namespace {

constexpr auto plainFormat = "%.0f";

// Nothing else ever reaches printf: what asks for other arguments would read memory that is none.
bool isForOneDouble(const QString &format)
{
    static const QRegularExpression pattern(QStringLiteral(
        R"(\A(?:[^%\x{0}]|%%)*%[-+ #0']*[0-9]{0,3}(?:\.[0-9]{0,3})?l?[aAeEfFgG](?:[^%\x{0}]|%%)*\z)"));
    return pattern.match(format).hasMatch();
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

// REQUIRES: the format is for one double.
std::string printed(const char *format, double value)
{
    const int length = std::snprintf(nullptr, 0, format, value);
    std::string text(static_cast<std::size_t>(length < 0 ? 0 : length), '\0');
    std::snprintf(text.data(), text.size() + 1, format, value);
    return text;
}

#pragma GCC diagnostic pop

} // namespace

QString NumberText::formatted(const QString &format, double value)
{
    const auto bytes = isForOneDouble(format) ? format.toUtf8() : QByteArray(plainFormat);
    return QString::fromStdString(printed(bytes.constData(), value));
}

} // namespace sharedui
