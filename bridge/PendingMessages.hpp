#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "bridge/Frame.hpp"

namespace vornix::bridge {

// Messages the host sends while no engine is connected, kept for the engine that connects
// next. Like the engine's own channel buffers, each channel keeps a bounded number of them and
// an overflowing channel loses its oldest; across channels the order of sending is kept.
class PendingMessages {
public:
    using ReplyHandler = std::function<void(const Bytes& reply)>;

    struct Message {
        std::string channel;
        Bytes payload;
        ReplyHandler onReply;
    };

    // The engine keeps one message per channel until a handler takes it; so does the bridge.
    static constexpr std::size_t defaultPerChannel = 1;

    explicit PendingMessages(std::size_t perChannel = defaultPerChannel);

    // Keeps `message`; returns the message it pushed out of its channel, if any.
    std::optional<Message> keep(Message message);
    // Everything kept, oldest first, leaving nothing behind.
    std::deque<Message> takeAll();

    std::size_t size() const { return messages_.size(); }
    std::size_t perChannel() const { return perChannel_; }

private:
    std::size_t perChannel_;
    std::deque<Message> messages_;
    std::map<std::string, std::size_t> countByChannel_;
};

}  // namespace vornix::bridge
