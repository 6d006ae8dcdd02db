#include "platform/linux/EngineSocketServer.hpp"

#include <chrono>
#include <fstream>

#include <gio/gunixsocketaddress.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "bridge/FrameReader.hpp"

namespace vornix::platform::linux {
namespace {

namespace fs = std::filesystem;
using bridge::Bytes;
using bridge::Frame;
using bridge::FrameKind;

// A plain blocking client socket: the test engine.
class Engine {
public:
    explicit Engine(const fs::path& path) : fd_(socket(AF_UNIX, SOCK_STREAM, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::snprintf(address.sun_path, sizeof address.sun_path, "%s", path.c_str());
        connected_ = connect(fd_, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    }
    ~Engine() { close(fd_); }

    bool connected() const { return connected_; }
    void send(const Bytes& bytes) { ASSERT_EQ(::send(fd_, bytes.data(), bytes.size(), MSG_NOSIGNAL), static_cast<ssize_t>(bytes.size())); }
    int fd() const { return fd_; }

    // Reads what has arrived without blocking; false once the host closed the connection.
    bool pump() {
        std::uint8_t buffer[4096];
        for (;;) {
            const ssize_t got = recv(fd_, buffer, sizeof buffer, MSG_DONTWAIT);
            if (got == 0) {
                return false;
            }
            if (got < 0) {
                return true;
            }
            reader_.feed(std::span(buffer, static_cast<std::size_t>(got)));
            while (auto frame = reader_.next()) {
                frames.push_back(std::move(*frame));
            }
        }
    }

    std::vector<Frame> frames;

private:
    int fd_;
    bool connected_ = false;
    bridge::FrameReader reader_;
};

class EngineSocketServerTest : public ::testing::Test {
protected:
    EngineSocketServerTest() : context_(g_main_context_new()) {
        char pattern[] = "/tmp/vornix-bridge-XXXXXX";
        folder_ = mkdtemp(pattern);
        path_ = folder_ / "engine.sock";
    }
    ~EngineSocketServerTest() override {
        server_.reset();
        g_main_context_unref(context_);
        fs::remove_all(folder_);
    }

    void serve() { server_ = std::make_unique<EngineSocketServer>(bridge_, path_, context_); }

    // Turns the host's main context until `done` holds; the bound only keeps a broken server
    // from hanging the suite.
    template <class Condition>
    bool until(Condition done) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (!done()) {
            if (std::chrono::steady_clock::now() > deadline) {
                return false;
            }
            g_main_context_iteration(context_, FALSE);
            usleep(1000);
        }
        return true;
    }

    GMainContext* context_;
    fs::path folder_;
    fs::path path_;
    bridge::EngineBridge bridge_;
    std::unique_ptr<EngineSocketServer> server_;
};

TEST_F(EngineSocketServerTest, TheSocketFileOnlyItsOwnerMayUse) {
    serve();
    struct stat status {};
    ASSERT_EQ(stat(path_.c_str(), &status), 0);
    EXPECT_TRUE(S_ISSOCK(status.st_mode));
    EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST_F(EngineSocketServerTest, MessagesSentBeforeTheEngineConnectsArriveWhenItDoes) {
    serve();
    bridge_.send("com.vornix.os/custom_url_scheme", {1, 2, 3});
    Engine engine(path_);
    ASSERT_TRUE(engine.connected());
    ASSERT_TRUE(until([&] { return engine.pump() && engine.frames.size() == 1; }));
    EXPECT_EQ(engine.frames[0].channel, "com.vornix.os/custom_url_scheme");
    EXPECT_EQ(engine.frames[0].payload, (Bytes{1, 2, 3}));
}

TEST_F(EngineSocketServerTest, AnEngineCallIsHandledAndAnsweredOverTheSocket) {
    serve();
    bridge_.setMessageHandler("com.vornix.os/ui_interactions",
                              [](const Bytes& message, bridge::EngineBridge::Reply reply) { reply(message); });
    Engine engine(path_);
    ASSERT_TRUE(until([&] { return bridge_.connected(); }));
    engine.send(bridge::encodeFrame({FrameKind::message, 9, "com.vornix.os/ui_interactions", {4, 5}}));
    ASSERT_TRUE(until([&] { return engine.pump() && engine.frames.size() == 1; }));
    EXPECT_EQ(engine.frames[0], (Frame{FrameKind::reply, 9, "", {4, 5}}));
}

TEST_F(EngineSocketServerTest, ASecondEngineIsTurnedAwayWhileTheFirstIsConnected) {
    serve();
    Engine first(path_);
    ASSERT_TRUE(until([&] { return bridge_.connected(); }));
    Engine second(path_);
    ASSERT_TRUE(until([&] { return !second.pump(); }));
    EXPECT_TRUE(first.pump());
}

TEST_F(EngineSocketServerTest, AfterTheEngineLeavesTheNextOneIsServed) {
    serve();
    {
        Engine first(path_);
        ASSERT_TRUE(until([&] { return bridge_.connected(); }));
    }
    ASSERT_TRUE(until([&] { return !bridge_.connected(); }));
    bridge_.send("c", {7});
    Engine second(path_);
    ASSERT_TRUE(until([&] { return second.pump() && second.frames.size() == 1; }));
    EXPECT_EQ(second.frames[0].payload, Bytes{7});
}

TEST_F(EngineSocketServerTest, MalformedBytesCloseTheConnectionWithAMessageAndTheHostServesOn) {
    serve();
    Engine bad(path_);
    ASSERT_TRUE(until([&] { return bridge_.connected(); }));
    ::testing::internal::CaptureStderr();
    bad.send({7, 0, 0, 0, 9, 0, 0, 0, 0, 0, 0});
    ASSERT_TRUE(until([&] { return !bad.pump(); }));
    const std::string errors = ::testing::internal::GetCapturedStderr();
    EXPECT_THAT(errors, ::testing::HasSubstr("engine bridge: closing the engine's connection: frame kind 9"));
    EXPECT_FALSE(bridge_.connected());
    Engine good(path_);
    EXPECT_TRUE(until([&] { return bridge_.connected(); }));
}

TEST_F(EngineSocketServerTest, AStaleSocketLeftBehindIsTakenOver) {
    const int stale = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "%s", path_.c_str());
    ASSERT_EQ(bind(stale, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    close(stale);
    serve();
    Engine engine(path_);
    EXPECT_TRUE(until([&] { return bridge_.connected(); }));
}

TEST_F(EngineSocketServerTest, APathServedByAnotherHostIsRefused) {
    serve();
    bridge::EngineBridge other;
    EXPECT_THROW(EngineSocketServer(other, path_, context_), std::runtime_error);
}

TEST_F(EngineSocketServerTest, APathThatIsNotASocketIsRefusedAndKept) {
    std::ofstream(path_) << "notes";
    try {
        serve();
        FAIL() << "served a regular file's path";
    } catch (const std::runtime_error& error) {
        EXPECT_THAT(error.what(), ::testing::HasSubstr("is not a socket"));
    }
    EXPECT_TRUE(fs::is_regular_file(path_));
}

TEST_F(EngineSocketServerTest, TheSocketFileIsRemovedWhenTheServerEnds) {
    serve();
    server_.reset();
    EXPECT_FALSE(fs::exists(path_));
}

TEST_F(EngineSocketServerTest, LargeFramesCrossTheSocketWhole) {
    serve();
    Engine engine(path_);
    ASSERT_TRUE(until([&] { return bridge_.connected(); }));
    const Bytes big(3 * 1024 * 1024, 0x5A);
    bridge_.send("c", big);
    ASSERT_TRUE(until([&] { return engine.pump() && engine.frames.size() == 1; }));
    EXPECT_EQ(engine.frames[0].payload, big);
}

}  // namespace
}  // namespace vornix::platform::linux
