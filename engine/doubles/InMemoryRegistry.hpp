#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "engine/PluginRegistry.hpp"
#include "engine/doubles/InMemoryMessenger.hpp"

namespace vornix::engine::doubles {

// A registrar over a given messenger, for tests.
class InMemoryRegistrar : public PluginRegistrar {
public:
    explicit InMemoryRegistrar(BinaryMessenger& messenger) : messenger_(messenger) {}
    BinaryMessenger& messenger() override { return messenger_; }

private:
    BinaryMessenger& messenger_;
};

// An engine's plug-in registry for tests: one in-memory messenger shared by all its
// registrars (an engine has one messenger), one registrar per key, and a record of the keys
// asked for, in order. A test may withhold the registrar of a key to play a registry that
// has none to give.
class InMemoryRegistry : public PluginRegistry {
public:
    PluginRegistrar* registrarForPlugin(std::string_view key) override;

    void withhold(std::string_view key) { withheld_.insert(std::string(key)); }
    const std::vector<std::string>& requestedKeys() const { return requestedKeys_; }
    InMemoryMessenger& messenger() { return messenger_; }

private:
    InMemoryMessenger messenger_;
    std::map<std::string, std::unique_ptr<InMemoryRegistrar>, std::less<>> registrars_;
    std::set<std::string, std::less<>> withheld_;
    std::vector<std::string> requestedKeys_;
};

}  // namespace vornix::engine::doubles
