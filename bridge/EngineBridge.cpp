#include "bridge/EngineBridge.hpp"

#include <string>

#include "bridge/FrameError.hpp"

namespace vornix::bridge {

struct EngineBridge::Connection {
    Writer writer;
    FrameReader reader;
    std::uint32_t nextId = 1;
    std::map<std::uint32_t, ReplyHandler> awaiting;
};

namespace {

void answerEmpty(const EngineBridge::ReplyHandler& onReply) {
    if (onReply) {
        onReply(Bytes{});
    }
}

}  // namespace

EngineBridge::EngineBridge(std::size_t pendingPerChannel) : pending_(pendingPerChannel) {}

EngineBridge::~EngineBridge() = default;

void EngineBridge::send(const std::string& channel, Bytes message, ReplyHandler onReply) {
    if (connection_) {
        write(channel, std::move(message), std::move(onReply));
        return;
    }
    if (auto dropped = pending_.keep({channel, std::move(message), std::move(onReply)})) {
        answerEmpty(dropped->onReply);
    }
}

void EngineBridge::setMessageHandler(const std::string& channel, MessageHandler handler) {
    if (handler) {
        handlers_[channel] = std::move(handler);
    } else {
        handlers_.erase(channel);
    }
}

void EngineBridge::connect(Writer writer) {
    disconnect();
    connection_ = std::make_shared<Connection>();
    connection_->writer = std::move(writer);
    for (auto& message : pending_.takeAll()) {
        write(message.channel, std::move(message.payload), std::move(message.onReply));
    }
}

void EngineBridge::disconnect() {
    if (!connection_) {
        return;
    }
    auto awaiting = std::move(connection_->awaiting);
    connection_.reset();
    for (auto& [id, onReply] : awaiting) {
        answerEmpty(onReply);
    }
}

bool EngineBridge::connected() const { return connection_ != nullptr; }

void EngineBridge::write(const std::string& channel, Bytes message, ReplyHandler onReply) {
    Connection& connection = *connection_;
    const std::uint32_t id = connection.nextId++;
    if (connection.nextId == 0) {
        connection.nextId = 1;
    }
    Bytes bytes = encodeFrame({FrameKind::message, id, channel, std::move(message)});
    connection.awaiting[id] = std::move(onReply);
    connection.writer(std::move(bytes));
}

void EngineBridge::receive(std::span<const std::uint8_t> bytes) {
    if (!connection_) {
        return;
    }
    std::shared_ptr<Connection> connection = connection_;
    connection->reader.feed(bytes);
    // A handler may end the connection; stop reading once it has.
    while (connection == connection_) {
        std::optional<Frame> frame = connection->reader.next();
        if (!frame) {
            return;
        }
        handle(std::move(*frame));
    }
}

void EngineBridge::handle(Frame frame) {
    if (frame.kind == FrameKind::reply) {
        auto awaiting = connection_->awaiting.find(frame.id);
        if (awaiting == connection_->awaiting.end()) {
            throw FrameError("reply " + std::to_string(frame.id) + " answers no message awaiting a reply");
        }
        ReplyHandler onReply = std::move(awaiting->second);
        connection_->awaiting.erase(awaiting);
        if (onReply) {
            onReply(frame.payload);
        }
        return;
    }

    std::weak_ptr<Connection> from = connection_;
    auto answered = std::make_shared<bool>(false);
    Reply reply = [from, answered, id = frame.id](Bytes payload) {
        auto connection = from.lock();
        if (!connection || *answered) {
            return;
        }
        *answered = true;
        connection->writer(encodeFrame({FrameKind::reply, id, {}, std::move(payload)}));
    };
    auto handler = handlers_.find(frame.channel);
    if (handler == handlers_.end()) {
        reply(Bytes{});
        return;
    }
    // A copy, so that a handler may replace itself while it runs.
    MessageHandler handle = handler->second;
    handle(frame.payload, std::move(reply));
}

}  // namespace vornix::bridge
