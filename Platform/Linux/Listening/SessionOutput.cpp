#include "Platform/Linux/Listening/SessionOutput.h"

#include <xdg-output-unstable-v1-client-protocol.h>

namespace platform {

SessionOutput::SessionOutput(WaylandObject<wl_output> output, zxdg_output_manager_v1 *logicalOutputs)
    : output_(std::move(output))
{
    wl_output_add_listener(output_.get(), &listener, this);
    if (logicalOutputs) {
        logicalOutput_.reset(zxdg_output_manager_v1_get_xdg_output(logicalOutputs, output_.get()));
        zxdg_output_v1_add_listener(logicalOutput_.get(), &logicalListener, this);
    }
}

QRectF SessionOutput::area() const
{
    if (!logicalArea_.isEmpty()) {
        return logicalArea_;
    }
    const bool isOnItsSide = (transform_ & WL_OUTPUT_TRANSFORM_90) != 0;
    return {QPointF(place_), QSizeF(isOnItsSide ? size_.transposed() : size_) / scale_};
}

const wl_output_listener SessionOutput::listener{
    .geometry =
        [](void *self, wl_output * /*output*/, std::int32_t x, std::int32_t y, std::int32_t /*width*/,
           std::int32_t /*height*/, std::int32_t /*subpixel*/, const char * /*make*/, const char * /*model*/,
           std::int32_t transform) {
            auto &output = *static_cast<SessionOutput *>(self);
            output.place_ = {x, y};
            output.transform_ = transform;
        },
    .mode =
        [](void *self, wl_output * /*output*/, std::uint32_t flags, std::int32_t width, std::int32_t height,
           std::int32_t /*refresh*/) {
            if ((flags & WL_OUTPUT_MODE_CURRENT) != 0) {
                static_cast<SessionOutput *>(self)->size_ = {width, height};
            }
        },
    .done = [](void * /*self*/, wl_output * /*output*/) {},
    .scale =
        [](void *self, wl_output * /*output*/, std::int32_t factor) {
            static_cast<SessionOutput *>(self)->scale_ = factor > 0 ? factor : 1;
        },
    .name = nullptr,
    .description = nullptr,
};

const zxdg_output_v1_listener SessionOutput::logicalListener{
    .logical_position = [](void *self, zxdg_output_v1 * /*output*/, std::int32_t x,
                           std::int32_t y) { static_cast<SessionOutput *>(self)->logicalArea_.moveTo(x, y); },
    .logical_size =
        [](void *self, zxdg_output_v1 * /*output*/, std::int32_t width, std::int32_t height) {
            static_cast<SessionOutput *>(self)->logicalArea_.setSize(QSizeF(width, height));
        },
    .done = [](void * /*self*/, zxdg_output_v1 * /*output*/) {},
    .name = [](void * /*self*/, zxdg_output_v1 * /*output*/, const char * /*name*/) {},
    .description = [](void * /*self*/, zxdg_output_v1 * /*output*/, const char * /*description*/) {},
};

} // namespace platform
