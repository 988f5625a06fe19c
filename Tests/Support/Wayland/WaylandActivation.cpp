#include "Tests/Support/Wayland/WaylandActivation.h"

#include <xdg-activation-v1-client-protocol.h>

namespace testsupport {

namespace {

const xdg_activation_token_v1_listener tokenListener{
    [](void *text, xdg_activation_token_v1 *, const char *token) {
        *static_cast<QString *>(text) = QString::fromUtf8(token);
    }};

} // namespace

QString activationToken(const WaylandClient &client)
{
    if (!client.offers(xdg_activation_v1_interface.name)) {
        return {};
    }
    QString text;
    auto *activation = client.bind<xdg_activation_v1>(xdg_activation_v1_interface, 1);
    auto *token = xdg_activation_v1_get_activation_token(activation);
    xdg_activation_token_v1_add_listener(token, &tokenListener, &text);
    xdg_activation_token_v1_commit(token);
    client.sync();
    xdg_activation_token_v1_destroy(token);
    xdg_activation_v1_destroy(activation);
    return text;
}

} // namespace testsupport
