#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/linux/tests/ChildProcess.hpp"

namespace vornix::platform::linux::testing {

// An HTTPS server on 127.0.0.1 whose certificate nobody signed: a python3 child serving one fixed
// body, with a key and certificate made by openssl in a temporary folder. Stops with the object.
class SelfSignedTlsServer {
public:
    SelfSignedTlsServer();
    ~SelfSignedTlsServer();
    SelfSignedTlsServer(const SelfSignedTlsServer&) = delete;
    SelfSignedTlsServer& operator=(const SelfSignedTlsServer&) = delete;

    std::string url() const { return "https://127.0.0.1:" + std::to_string(port_) + "/appcast.xml"; }

private:
    std::filesystem::path folder_;
    std::unique_ptr<ChildProcess> server_;
    std::uint16_t port_ = 0;
};

}  // namespace vornix::platform::linux::testing
