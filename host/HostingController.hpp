#pragma once

#include <memory>

#include "host/ContentView.hpp"
#include "host/SignedInModel.hpp"
#include "platform/MenuView.hpp"
#include "platform/PopoverView.hpp"

namespace vornix::host {

// Shows a ContentView in a popover's view: renders its body, renders again after every change of
// its state or its model, and hands the user's actions in the view to it. It can show the same
// view as a menu too, which then always holds what the popover shows.
class HostingController : public platform::PopoverViewEvents, public platform::MenuViewEvents {
public:
    HostingController(ContentView rootView, platform::PopoverView& view);
    ~HostingController() override;
    HostingController(const HostingController&) = delete;
    HostingController& operator=(const HostingController&) = delete;

    const ContentView& rootView() const { return rootView_; }

    // Renders the view in `menu` as well, from now on; the menu must outlive the controller.
    void showAlsoIn(platform::MenuView& menu);

    void buttonHovered(const std::string& hoverId, bool inside) override;
    void buttonClicked(const std::string& hoverId) override;
    void switchToggled(bool isOn) override;
    void menuItemClicked(const std::string& id) override;

private:
    void render();
    // The model tells before it changes: render once the change has been made, on the next turn of
    // the main queue, and only once however many fields change meanwhile.
    void scheduleRender();

    ContentView rootView_;
    platform::PopoverView& view_;
    platform::MenuView* menu_ = nullptr;
    std::shared_ptr<HostingController*> self_;
    bool renderScheduled_ = false;
    SignedInModel::Cancellable modelChanges_;
};

}  // namespace vornix::host
