#include "platform/linux/GlibMainQueue.hpp"

#include <cmath>
#include <limits>

namespace vornix::platform::linux {

namespace {

gboolean runOnce(gpointer data) {
    (*static_cast<MainQueue::Work*>(data))();
    return G_SOURCE_REMOVE;
}

void deleteWork(gpointer data) { delete static_cast<MainQueue::Work*>(data); }

// GLib counts timeouts in whole milliseconds; rounding up keeps "not before" true.
guint millisecondsNotBefore(double seconds) {
    if (!(seconds > 0.0)) {
        return 0;
    }
    const double milliseconds = std::ceil(seconds * 1000.0);
    constexpr double largest = std::numeric_limits<guint>::max();
    return milliseconds >= largest ? std::numeric_limits<guint>::max() : static_cast<guint>(milliseconds);
}

}  // namespace

GlibMainQueue::GlibMainQueue(GMainContext* context)
    : context_(g_main_context_ref(context ? context : g_main_context_default())),
      mainThread_(std::this_thread::get_id()) {}

GlibMainQueue::~GlibMainQueue() { g_main_context_unref(context_); }

void GlibMainQueue::async(Work work) { attach(g_idle_source_new(), std::move(work)); }

void GlibMainQueue::asyncAfter(double seconds, Work work) {
    attach(g_timeout_source_new(millisecondsNotBefore(seconds)), std::move(work));
}

bool GlibMainQueue::isMainThread() const { return std::this_thread::get_id() == mainThread_; }

void GlibMainQueue::attach(GSource* source, Work work) {
    // Both kinds at the default priority, so that queued work runs in the order it became due,
    // ahead of redrawing, as on the platforms' own main queues.
    g_source_set_priority(source, G_PRIORITY_DEFAULT);
    g_source_set_callback(source, runOnce, new Work(std::move(work)), deleteWork);
    g_source_attach(source, context_);
    g_source_unref(source);
}

}  // namespace vornix::platform::linux
