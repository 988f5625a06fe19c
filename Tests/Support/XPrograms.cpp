#include "Tests/Support/XPrograms.h"

#include <xcb/res.h>

namespace testsupport {

namespace {

// One identifier that belongs to each connection of the process.
std::vector<std::uint32_t> connectionsOf(const XClient &x, pid_t pid)
{
    // An empty `client` asks for all of them.
    const xcb_res_client_id_spec_t all{0, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto reply =
        xAnswer(xcb_res_query_client_ids_reply, x.get(), xcb_res_query_client_ids(x.get(), 1, &all));
    std::vector<std::uint32_t> found;
    if (!reply) {
        return found;
    }
    for (auto values = xcb_res_query_client_ids_ids_iterator(reply.get()); values.rem > 0;
         xcb_res_client_id_value_next(&values)) {
        const auto *process = xcb_res_client_id_value_value(values.data);
        if (values.data->length >= sizeof *process && static_cast<pid_t>(*process) == pid) {
            found.push_back(values.data->spec.client);
        }
    }
    return found;
}

} // namespace

int endOtherConnections(const XClient &x, pid_t pid, xcb_window_t window)
{
    const auto mask = xcb_get_setup(x.get())->resource_id_mask; // the part that the client chooses
    int count = 0;
    for (const auto client : connectionsOf(x, pid)) {
        if ((client & ~mask) != (window & ~mask)) {
            xcb_kill_client(x.get(), client);
            ++count;
        }
    }
    x.sync();
    return count;
}

} // namespace testsupport
