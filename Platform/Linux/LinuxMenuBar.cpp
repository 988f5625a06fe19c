// What shows a program in the panel of a Linux desktop.
#include "Platform/Linux/StatusNotifier/NotifierStatusItem.h"
#include "Platform/Linux/X11/XCompositing.h"
#include "Platform/MenuBarServices.h"
#include "Platform/Platform.h"
#include "Platform/Qt/QtTemplateImage.h"

#include <QGuiApplication>

namespace platform {

namespace {

// The desktop has no place for items.
class NoStatusItem final : public StatusItem
{
public:
    StatusButton *button() override { return nullptr; }
    void setMenu(std::vector<StatusMenuItem> /*items*/) override {}
};

class LinuxMenuBar final : public MenuBarServices
{
public:
    bool becomeAccessory() override
    {
        if (!qGuiApp) {
            return false;
        }
        QGuiApplication::setQuitOnLastWindowClosed(false);
        Platform::current().setActivationPolicy(ActivationPolicy::accessory);
        return true;
    }

    std::shared_ptr<StatusItem> makeStatusItem(const StatusItemIdentity &identity) override
    {
        auto item = NotifierStatusItem::create(identity, Platform::current().appearance());
        return item ? item : std::make_shared<NoStatusItem>();
    }

    TemplateImage drawSymbol(std::string_view name, double side, const ImageSquare &place) override
    {
        return drawSymbolTemplate(QString::fromUtf8(name), side, place);
    }

    bool blendsWindows() override
    {
        return QGuiApplication::platformName() != QLatin1String("xcb") || isXComposited();
    }

    Scheduler &scheduler() override { return Platform::current().scheduler(); }
};

} // namespace

std::unique_ptr<MenuBarServices> makeNativeMenuBar()
{
    return std::make_unique<LinuxMenuBar>();
}

} // namespace platform
