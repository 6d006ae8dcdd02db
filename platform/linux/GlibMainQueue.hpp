#pragma once

#include <thread>

#include <glib.h>

#include "platform/MainQueue.hpp"

namespace vornix::platform::linux {

// The main queue on a GLib main context (the default one in the host, where GTK runs).
// Work is attached as a one-shot source, which GLib does thread-safely and which wakes the
// context; nothing polls, so an idle host sleeps until there is work. The thread that makes
// the queue is the main thread.
class GlibMainQueue : public MainQueue {
public:
    explicit GlibMainQueue(GMainContext* context = nullptr);
    ~GlibMainQueue() override;
    GlibMainQueue(const GlibMainQueue&) = delete;
    GlibMainQueue& operator=(const GlibMainQueue&) = delete;

    void async(Work work) override;
    void asyncAfter(double seconds, Work work) override;
    bool isMainThread() const override;

private:
    void attach(GSource* source, Work work);

    GMainContext* context_;
    std::thread::id mainThread_;
};

}  // namespace vornix::platform::linux
