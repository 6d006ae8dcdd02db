#include "host/SignedInModel.hpp"

#include <algorithm>

namespace vornix::host {

struct SignedInModel::Cancellable::Registry {
    std::uint64_t nextId = 1;
    std::vector<std::pair<std::uint64_t, Observer>> observers;
};

SignedInModel::Cancellable::Cancellable(Cancellable&& other) noexcept
    : registry_(std::move(other.registry_)), id_(std::exchange(other.id_, 0)) {}

SignedInModel::Cancellable& SignedInModel::Cancellable::operator=(Cancellable&& other) noexcept {
    if (this != &other) {
        cancel();
        registry_ = std::move(other.registry_);
        id_ = std::exchange(other.id_, 0);
    }
    return *this;
}

SignedInModel::Cancellable::~Cancellable() { cancel(); }

void SignedInModel::Cancellable::cancel() {
    if (auto registry = registry_.lock()) {
        std::erase_if(registry->observers, [this](const auto& entry) { return entry.first == id_; });
    }
    registry_.reset();
    id_ = 0;
}

SignedInModel::SignedInModel() : observers_(std::make_shared<Cancellable::Registry>()) {}

SignedInModel::Cancellable SignedInModel::objectWillChange(Observer observer) {
    std::uint64_t id = observers_->nextId++;
    observers_->observers.emplace_back(id, std::move(observer));
    return Cancellable(observers_, id);
}

void SignedInModel::willChange() {
    // A copy, so that an observer may cancel itself or others while being told.
    auto observers = observers_->observers;
    for (auto& [id, observer] : observers) {
        observer();
    }
}

void SignedInModel::setSignedIn(bool signedIn) {
    willChange();
    signedIn_ = signedIn;
}

void SignedInModel::setEmail(std::string email) {
    willChange();
    email_ = std::move(email);
}

void SignedInModel::setAppVersion(std::string appVersion) {
    willChange();
    appVersion_ = std::move(appVersion);
}

void SignedInModel::setPort(std::string port) {
    willChange();
    port_ = std::move(port);
}

}  // namespace vornix::host
