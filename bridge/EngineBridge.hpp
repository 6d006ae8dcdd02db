#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>

#include "bridge/Frame.hpp"
#include "bridge/FrameReader.hpp"
#include "bridge/PendingMessages.hpp"

namespace vornix::bridge {

// The host's side of the development engine bridge, without the socket: it turns channel
// messages into frames and frames back into handler calls and replies, for one engine
// connection at a time. The backend owns the socket and hands over bytes in both directions.
//
// Every message gets an answer exactly once: the engine's reply, or an empty one (the engine's
// "not implemented") when the message was dropped from the pending ones or its engine went away.
class EngineBridge {
public:
    using ReplyHandler = PendingMessages::ReplyHandler;
    // Answers an engine's message once; later calls, and calls after that engine left, do nothing.
    using Reply = std::function<void(Bytes reply)>;
    using MessageHandler = std::function<void(const Bytes& message, Reply reply)>;
    using Writer = std::function<void(Bytes bytes)>;

    explicit EngineBridge(std::size_t pendingPerChannel = PendingMessages::defaultPerChannel);
    ~EngineBridge();
    EngineBridge(const EngineBridge&) = delete;
    EngineBridge& operator=(const EngineBridge&) = delete;

    // Sends `message` on `channel` now, or keeps it until an engine connects.
    void send(const std::string& channel, Bytes message, ReplyHandler onReply = {});
    // Handles the engine's messages on `channel`; an empty handler removes it. Messages on a
    // channel with no handler are answered with an empty reply.
    void setMessageHandler(const std::string& channel, MessageHandler handler);

    // An engine connected; `writer` puts bytes on its connection. The messages kept meanwhile
    // go out first, in the order they were sent.
    void connect(Writer writer);
    // The engine's connection closed: its unanswered messages get empty replies.
    void disconnect();
    bool connected() const;

    // Bytes from the engine. Throws FrameError on bytes that break the protocol; the caller then
    // closes the connection and calls disconnect(). Frames before the bad one are delivered.
    void receive(std::span<const std::uint8_t> bytes);

private:
    struct Connection;

    void write(const std::string& channel, Bytes message, ReplyHandler onReply);
    void handle(Frame frame);

    PendingMessages pending_;
    std::map<std::string, MessageHandler> handlers_;
    std::shared_ptr<Connection> connection_;
};

}  // namespace vornix::bridge
