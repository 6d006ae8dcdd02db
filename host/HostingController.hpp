#pragma once

#include <memory>

#include "host/ContentView.hpp"
#include "host/SignedInModel.hpp"
#include "platform/PopoverView.hpp"

namespace vornix::host {

// Shows a ContentView in a popover's view: renders its body, renders again after every change of
// its state or its model, and hands the user's actions in the view to it.
class HostingController : public platform::PopoverViewEvents {
public:
    HostingController(ContentView rootView, platform::PopoverView& view);
    ~HostingController() override;
    HostingController(const HostingController&) = delete;
    HostingController& operator=(const HostingController&) = delete;

    const ContentView& rootView() const { return rootView_; }

    void buttonHovered(const std::string& hoverId, bool inside) override;
    void buttonClicked(const std::string& hoverId) override;
    void switchToggled(bool isOn) override;

private:
    void render();
    // The model tells before it changes: render once the change has been made, on the next turn of
    // the main queue, and only once however many fields change meanwhile.
    void scheduleRender();

    ContentView rootView_;
    platform::PopoverView& view_;
    std::shared_ptr<HostingController*> self_;
    bool renderScheduled_ = false;
    SignedInModel::Cancellable modelChanges_;
};

}  // namespace vornix::host
