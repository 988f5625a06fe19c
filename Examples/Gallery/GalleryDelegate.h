// The gallery's life.
#pragma once

#include "Platform/Application.h"

#include <QQmlEngine>

namespace gallery {

// With "--menu-bar" among its arguments the gallery is in the panel only: it opens no window before the user
// asks for it, and none of its windows is in a list of running programs. Without a panel its user opens the
// program once more.
class GalleryDelegate final : public platform::ApplicationDelegate
{
public:
    GalleryDelegate();
    ~GalleryDelegate() override;

    void applicationDidFinishLaunching() override;
    void applicationReopened(const QString &activationToken) override;

private:
    void makeMenu();
    void showWindow(const QString &activationToken);

    const bool isInMenuBarOnly_;
    QQmlEngine engine_; // of all views: they show one heart
    std::unique_ptr<QObject> menu_;
    bool isPresented_ = false;
};

} // namespace gallery
