#include "host/HostingController.hpp"

#include "host/MenuModel.hpp"
#include "platform/MainQueue.hpp"

namespace vornix::host {

HostingController::HostingController(ContentView rootView, platform::PopoverView& view)
    : rootView_(std::move(rootView)), view_(view), self_(std::make_shared<HostingController*>(this)) {
    modelChanges_ = rootView_.model->objectWillChange([this] { scheduleRender(); });
    view_.setEvents(this);
    render();
}

HostingController::~HostingController() {
    view_.setEvents(nullptr);
    if (menu_) {
        menu_->setEvents(nullptr);
    }
}

void HostingController::showAlsoIn(platform::MenuView& menu) {
    menu_ = &menu;
    menu_->setEvents(this);
    render();
}

void HostingController::render() {
    const auto body = rootView_.body();
    view_.render(ContentView::layout(), body);
    if (menu_) {
        menu_->render(MenuModel::items(body));
    }
}

void HostingController::scheduleRender() {
    if (renderScheduled_) {
        return;
    }
    renderScheduled_ = true;
    platform::MainQueue::current().async([self = std::weak_ptr<HostingController*>(self_)] {
        if (auto alive = self.lock()) {
            (*alive)->renderScheduled_ = false;
            (*alive)->render();
        }
    });
}

void HostingController::buttonHovered(const std::string& hoverId, bool inside) {
    rootView_.hoverChanged(hoverId, inside);
    render();
}

void HostingController::buttonClicked(const std::string& hoverId) {
    rootView_.buttonPressed(hoverId);
    render();
}

void HostingController::switchToggled(bool isOn) {
    rootView_.launchOnLogin().setWrappedValue(isOn);
    render();
}

void HostingController::menuItemClicked(const std::string& id) { MenuModel::choose(id, rootView_.body(), *this); }

}  // namespace vornix::host
