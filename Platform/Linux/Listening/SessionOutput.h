// A screen of a Wayland session.
#pragma once

#include "Platform/Linux/Wayland/WaylandConnection.h"

#include <wayland-client-protocol.h>

#include <QRectF>

struct zxdg_output_manager_v1;
struct zxdg_output_v1;
struct zxdg_output_v1_listener;

namespace platform {

// Follows what the compositor tells of it. The connection's thread.
class SessionOutput
{
public:
    // The newest versions of the protocols that it speaks.
    static constexpr std::uint32_t newestVersion = 2; // the first with a scale
    static constexpr std::uint32_t newestLogicalVersion = 1;

    // `logicalOutputs` tells of scales that are no whole numbers, too; it may be null. REQUIRES: the output
    // was just bound.
    SessionOutput(WaylandObject<wl_output> output, zxdg_output_manager_v1 *logicalOutputs);
    SessionOutput(const SessionOutput &) = delete;
    SessionOutput &operator=(const SessionOutput &) = delete;

    [[nodiscard]] wl_output *get() const { return output_.get(); }
    // In the coordinates of the pointer; empty as long as it is not known.
    [[nodiscard]] QRectF area() const;

private:
    static const wl_output_listener listener;
    static const zxdg_output_v1_listener logicalListener;

    WaylandObject<wl_output> output_;
    WaylandObject<zxdg_output_v1> logicalOutput_;
    QRectF logicalArea_; // empty where the compositor does not tell
    QPoint place_;
    QSize size_;
    std::int32_t transform_ = WL_OUTPUT_TRANSFORM_NORMAL;
    std::int32_t scale_ = 1;
};

} // namespace platform
