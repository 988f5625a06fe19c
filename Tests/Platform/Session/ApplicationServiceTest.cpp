#include "Platform/Linux/Session/ApplicationService.h"

#include <QDBusMetaType>

#include <gmock/gmock.h>

namespace platform {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString token = QStringLiteral("the-token");
const QString waylandKey = QStringLiteral("activation-token");
const QString x11Key = QStringLiteral("desktop-startup-id");

class ApplicationServiceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QObject::connect(&service, &ApplicationService::activated,
                         [this](const QString &with) { tokens.push_back(with); });
        QObject::connect(&service, &ApplicationService::quitRequested, [this] { ++quits; });
    }

    QObject exported;
    ApplicationService service{&exported};
    std::vector<QString> tokens;
    int quits = 0;
};

} // namespace

TEST(PlatformDataTest, TheTokenOfEitherWindowSystemIsFound)
{
    EXPECT_EQ(activationTokenIn({}), QString());
    EXPECT_EQ(activationTokenIn({{x11Key, token}}), token);
    EXPECT_EQ(activationTokenIn({{waylandKey, token}}), token);
    EXPECT_EQ(activationTokenIn({{waylandKey, token}, {x11Key, QStringLiteral("other")}}), token);
    EXPECT_EQ(activationTokenIn({{waylandKey, QString()}, {x11Key, token}}), token);
}

TEST(PlatformDataTest, WhatIsNoTextIsNoToken)
{
    EXPECT_EQ(activationTokenIn({{x11Key, QStringList{token, token}}}), QString());
    EXPECT_EQ(activationTokenIn({{waylandKey, QVariant::fromValue(QVariantMap())}}), QString());
}

TEST(PlatformDataTest, ATokenIsPassedOnUnderBothNamesAndNoneUnderNone)
{
    EXPECT_EQ(platformDataWith(QString()), QVariantMap());
    const auto data = platformDataWith(token);
    EXPECT_EQ(data, (QVariantMap{{waylandKey, token}, {x11Key, token}}));
    EXPECT_EQ(activationTokenIn(data), token);
}

TEST_F(ApplicationServiceTest, ActivateAndOpenAskToShow)
{
    service.Activate({{x11Key, token}});
    service.Open({QStringLiteral("file:///tmp/a")}, {});
    EXPECT_THAT(tokens, ElementsAre(token, QString()));
    EXPECT_EQ(quits, 0);
}

TEST_F(ApplicationServiceTest, TheQuitActionAsksToQuitAndOthersDoNothing)
{
    service.ActivateAction(QStringLiteral("explode"), {}, {});
    EXPECT_EQ(quits, 0);
    service.ActivateAction(QStringLiteral("quit"), {}, {});
    EXPECT_EQ(quits, 1);
    EXPECT_THAT(tokens, IsEmpty());
}

} // namespace platform
