#include "bridge/PendingMessages.hpp"

#include <algorithm>
#include <utility>

namespace vornix::bridge {

PendingMessages::PendingMessages(std::size_t perChannel) : perChannel_(std::max<std::size_t>(perChannel, 1)) {}

std::optional<PendingMessages::Message> PendingMessages::keep(Message message) {
    std::optional<Message> dropped;
    std::size_t& count = countByChannel_[message.channel];
    if (count == perChannel_) {
        auto oldest = std::find_if(messages_.begin(), messages_.end(),
                                   [&](const Message& kept) { return kept.channel == message.channel; });
        dropped = std::move(*oldest);
        messages_.erase(oldest);
        --count;
    }
    ++count;
    messages_.push_back(std::move(message));
    return dropped;
}

std::deque<PendingMessages::Message> PendingMessages::takeAll() {
    countByChannel_.clear();
    return std::exchange(messages_, {});
}

}  // namespace vornix::bridge
