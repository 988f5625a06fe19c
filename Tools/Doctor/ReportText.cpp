#include "Tools/Doctor/Report.h"

namespace doctor {

namespace {

constexpr int nameWidth = 14;

enum class Mark { good, bad, unknown };

// Writes lines in two columns, with or without colours.
class Writer
{
public:
    explicit Writer(bool isColoured)
        : isColoured_(isColoured)
    {}

    void heading(const QString &text) { text_ += QLatin1Char('\n') + painted(text, "1") + QLatin1Char('\n'); }

    void field(const QString &name, const QString &value)
    {
        text_ += QStringLiteral("  ") + name.leftJustified(nameWidth + 2) + value + QLatin1Char('\n');
    }

    void marked(Mark mark, const QString &name, const QString &value)
    {
        text_ += QStringLiteral("  ") + sign(mark) + QLatin1Char(' ') + name.leftJustified(nameWidth) +
                 value + QLatin1Char('\n');
    }

    void note(const QString &text)
    {
        text_ += QString(nameWidth + 4, QLatin1Char(' ')) + text + QLatin1Char('\n');
    }

    // Without the empty line before the first heading.
    [[nodiscard]] QString text() const { return text_.mid(1); }

private:
    [[nodiscard]] QString painted(const QString &text, const char *style) const
    {
        return isColoured_ ? QStringLiteral("\033[%1m%2\033[0m").arg(QLatin1String(style), text) : text;
    }

    [[nodiscard]] QString sign(Mark mark) const
    {
        switch (mark) {
        case Mark::good:
            return painted(QStringLiteral("✓"), "32");
        case Mark::bad:
            return painted(QStringLiteral("✗"), "31");
        case Mark::unknown:
            return painted(QStringLiteral("?"), "33");
        }
        return {};
    }

    bool isColoured_;
    QString text_;
};

QString orNone(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("none") : text;
}

void write(Writer &writer, const platform::SessionDescription &session)
{
    writer.heading(QStringLiteral("Session"));
    writer.field(QStringLiteral("kind"), session.kind);
    writer.field(QStringLiteral("desktop"), orNone(session.desktop));
    writer.field(QStringLiteral("display"), orNone(session.display));
}

void write(Writer &writer, const Backend &backend)
{
    if (backend.works) {
        writer.marked(Mark::good, backend.name, QStringLiteral("yes"));
        return;
    }
    writer.marked(Mark::bad, backend.name, QStringLiteral("no. ") + backend.obstacle.reason);
    writer.note(backend.obstacle.remedy);
}

void write(Writer &writer, const Action &action)
{
    switch (action.result) {
    case Result::confirmed:
        writer.marked(Mark::good, action.name, QStringLiteral("reset confirmed"));
        break;
    case Result::notConfirmed:
        writer.marked(Mark::bad, action.name, QStringLiteral("not confirmed"));
        break;
    case Result::noIdleClock:
        writer.marked(Mark::unknown, action.name, QStringLiteral("no idle clock here"));
        break;
    }
}

} // namespace

QString reportText(const Report &report, bool isColoured)
{
    Writer writer(isColoured);
    write(writer, report.session);
    writer.heading(QStringLiteral("Ways to post input"));
    for (const auto &backend : report.backends) {
        write(writer, backend);
    }
    writer.heading(QStringLiteral("Actions"));
    writer.field(QStringLiteral("posted through"), orNone(report.chosen));
    if (report.chosen.isEmpty()) {
        writer.note(report.obstacle.reason);
        writer.note(report.obstacle.remedy);
    }
    writer.field(QStringLiteral("idle clock"), orNone(report.idleClock));
    for (const auto &action : report.actions) {
        write(writer, action);
    }
    return writer.text();
}

} // namespace doctor
