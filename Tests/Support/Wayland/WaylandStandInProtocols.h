// How the stand-in compositor answers its clients.
#pragma once

#include "Tests/Support/Wayland/WaylandStandIn.h"

namespace testsupport {

// The data of each is the stand-in; they run on its thread.
void bindSeat(wl_client *client, void *standIn, std::uint32_t version, std::uint32_t id);
void bindPointers(wl_client *client, void *standIn, std::uint32_t version, std::uint32_t id);
void bindKeyboards(wl_client *client, void *standIn, std::uint32_t version, std::uint32_t id);

void bindOutput(wl_client *client, void *standIn, std::uint32_t version, std::uint32_t id);

} // namespace testsupport
