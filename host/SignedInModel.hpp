#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vornix::host {

// The popover's account state, as the engine last reported it. A reference type: every copy of
// the popover's view shares one model. Each field is published: observers are told before a
// change takes effect, so that a view can schedule a fresh render of the new values.
class SignedInModel {
public:
    using Observer = std::function<void()>;

    // Keeps an observer registered while it lives.
    class Cancellable {
    public:
        Cancellable() = default;
        Cancellable(Cancellable&& other) noexcept;
        Cancellable& operator=(Cancellable&& other) noexcept;
        ~Cancellable();

        void cancel();

    private:
        friend class SignedInModel;
        struct Registry;
        Cancellable(std::weak_ptr<Registry> registry, std::uint64_t id) : registry_(std::move(registry)), id_(id) {}

        std::weak_ptr<Registry> registry_;
        std::uint64_t id_ = 0;
    };

    SignedInModel();
    SignedInModel(const SignedInModel&) = delete;
    SignedInModel& operator=(const SignedInModel&) = delete;

    bool signedIn() const { return signedIn_; }
    const std::string& email() const { return email_; }
    const std::string& appVersion() const { return appVersion_; }
    const std::string& port() const { return port_; }

    void setSignedIn(bool signedIn);
    void setEmail(std::string email);
    void setAppVersion(std::string appVersion);
    void setPort(std::string port);

    // Calls `observer` before every change of a field, including a write of the same value.
    [[nodiscard]] Cancellable objectWillChange(Observer observer);

private:
    void willChange();

    std::shared_ptr<Cancellable::Registry> observers_;
    bool signedIn_ = false;
    std::string email_;
    std::string appVersion_ = "0.0.0";
    std::string port_;
};

}  // namespace vornix::host
