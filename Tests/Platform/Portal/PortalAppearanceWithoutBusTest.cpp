#include "Platform/Linux/Portal/PortalAppearance.h"

#include <QDBusConnection>
#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>

#include <chrono>

namespace platform {

TEST(PortalAppearanceWithoutBusTest, TheToolkitsPaletteDecidesAndNothingIsAwaited)
{
    ASSERT_FALSE(QDBusConnection::sessionBus().isConnected());
    const auto start = std::chrono::steady_clock::now();
    PortalAppearance appearance;
    appearance.awaitFirstAnswer();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_FALSE(appearance.values().isDark);
    EXPECT_EQ(appearance.values().accent, std::nullopt);

    const auto palette = QGuiApplication::palette();
    QPalette dark = palette;
    dark.setColor(QPalette::Window, QColor(20, 20, 20));
    QGuiApplication::setPalette(dark);
    QCoreApplication::processEvents();
    EXPECT_TRUE(appearance.values().isDark);
    QGuiApplication::setPalette(palette);
    QCoreApplication::processEvents();
    EXPECT_FALSE(appearance.values().isDark);
}

} // namespace platform
