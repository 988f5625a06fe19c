// The service that opens a link in the program that it is for.
#pragma once

#include <memory>
#include <string_view>

namespace platform {

// What a link to the page of the privacy settings begins with, before the page's name: Apple's published one.
// Other systems know it by this name too, and find the page of their own that comes closest.
inline constexpr std::string_view privacySettingsPrefix =
    "x-apple.systempreferences:com.apple.preference.security?";

// Main thread.
class LinkOpener
{
public:
    LinkOpener() = default;
    LinkOpener(const LinkOpener &) = delete;
    LinkOpener &operator=(const LinkOpener &) = delete;
    virtual ~LinkOpener() = default;

    // Returns at once. What becomes of it is not told: the user sees it. REQUIRES: `link` is a URL, in UTF-8.
    virtual void open(std::string_view link) = 0;

    // The one that is installed; where none is, the operating system's.
    [[nodiscard]] static LinkOpener &current();
};

// Makes `opener` the current one for as long as the installation lives; the one before comes back after it.
class LinkOpenerInstallation
{
public:
    explicit LinkOpenerInstallation(LinkOpener &opener);
    LinkOpenerInstallation(const LinkOpenerInstallation &) = delete;
    LinkOpenerInstallation &operator=(const LinkOpenerInstallation &) = delete;
    ~LinkOpenerInstallation();

private:
    LinkOpener *previous_;
};

// That of the operating system. REQUIRES: an application object lives when it is used.
[[nodiscard]] std::unique_ptr<LinkOpener> makeNativeLinkOpener();

} // namespace platform
