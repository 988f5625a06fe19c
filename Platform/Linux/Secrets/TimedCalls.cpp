#include "Platform/Linux/Secrets/TimedCalls.h"

#include <algorithm>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds timeToTakeBack(200);

// Shared with the call, which may outlive the wait for it.
using Result = std::shared_ptr<GlibPointer<GAsyncResult>>;

void keepResult(GObject * /*source*/, GAsyncResult *result, gpointer data)
{
    const std::unique_ptr<Result> kept(static_cast<Result *>(data));
    (*kept)->reset(static_cast<GAsyncResult *>(g_object_ref(result)));
}

gboolean doNothing(gpointer /*data*/)
{
    return G_SOURCE_REMOVE;
}

} // namespace

TimedCalls::TimedCalls(std::chrono::milliseconds patience)
    : context_(g_main_context_new())
    , cancellable_(g_cancellable_new())
    , deadline_(Clock::now() + patience)
{
    g_main_context_push_thread_default(context_.get());
}

TimedCalls::~TimedCalls()
{
    while (g_main_context_iteration(context_.get(), FALSE) != FALSE) {
    }
    g_main_context_pop_thread_default(context_.get());
}

void TimedCalls::extend(std::chrono::milliseconds patience)
{
    deadline_ = Clock::now() + patience;
}

GlibPointer<GAsyncResult> TimedCalls::run(const Start &start)
{
    if (isOver()) {
        return nullptr;
    }
    const auto result = std::make_shared<GlibPointer<GAsyncResult>>();
    start(cancellable_.get(), keepResult, new Result(result));
    const auto wakeUp = wakeUpAt(deadline_);
    const auto lastWakeUp = wakeUpAt(deadline_ + timeToTakeBack);
    while (!*result && Clock::now() < deadline_ + timeToTakeBack) {
        g_main_context_iteration(context_.get(), TRUE);
        if (!*result && isOver()) {
            g_cancellable_cancel(cancellable_.get());
        }
    }
    return std::move(*result);
}

GlibPointer<GSource> TimedCalls::wakeUpAt(Clock::time_point time) const
{
    const auto rest = std::chrono::ceil<std::chrono::milliseconds>(time - Clock::now());
    GlibPointer<GSource> source(
        g_timeout_source_new(static_cast<guint>(std::max<std::int64_t>(rest.count(), 0))));
    g_source_set_callback(source.get(), doNothing, nullptr, nullptr);
    g_source_attach(source.get(), context_.get());
    return source;
}

} // namespace platform
