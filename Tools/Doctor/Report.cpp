#include "Tools/Doctor/Report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace doctor {

namespace {

QString resultText(Result result)
{
    switch (result) {
    case Result::confirmed:
        return QStringLiteral("reset confirmed");
    case Result::notConfirmed:
        return QStringLiteral("not confirmed");
    case Result::noIdleClock:
        return QStringLiteral("no idle clock here");
    }
    return {};
}

QJsonValue textOrNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

QJsonObject json(const platform::SessionDescription &session)
{
    return {{QStringLiteral("kind"), session.kind},
            {QStringLiteral("desktop"), textOrNull(session.desktop)},
            {QStringLiteral("display"), textOrNull(session.display)}};
}

QJsonArray json(const std::vector<Backend> &backends)
{
    QJsonArray array;
    for (const auto &backend : backends) {
        array.append(QJsonObject{{QStringLiteral("name"), backend.name},
                                 {QStringLiteral("works"), backend.works},
                                 {QStringLiteral("reason"), textOrNull(backend.obstacle.reason)},
                                 {QStringLiteral("remedy"), textOrNull(backend.obstacle.remedy)}});
    }
    return array;
}

QJsonArray json(const std::vector<Action> &actions)
{
    QJsonArray array;
    for (const auto &action : actions) {
        array.append(QJsonObject{{QStringLiteral("name"), action.name},
                                 {QStringLiteral("result"), resultText(action.result)}});
    }
    return array;
}

} // namespace

bool Report::isConfirmed() const
{
    return !actions.empty() && std::ranges::all_of(actions, [](const Action &action) {
        return action.result == Result::confirmed;
    });
}

QByteArray reportJson(const Report &report)
{
    const QJsonObject object{{QStringLiteral("session"), json(report.session)},
                             {QStringLiteral("backends"), json(report.backends)},
                             {QStringLiteral("chosen"), textOrNull(report.chosen)},
                             {QStringLiteral("reason"), textOrNull(report.obstacle.reason)},
                             {QStringLiteral("remedy"), textOrNull(report.obstacle.remedy)},
                             {QStringLiteral("idleClock"), textOrNull(report.idleClock)},
                             {QStringLiteral("actions"), json(report.actions)},
                             {QStringLiteral("confirmed"), report.isConfirmed()}};
    return QJsonDocument(object).toJson();
}

} // namespace doctor
