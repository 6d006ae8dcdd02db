#include "host/ContentView.hpp"
namespace vornix::host {
ContentView::ContentView() : runAtLoad(false), model(std::make_shared<SignedInModel>()) {}
Binding<bool> ContentView::launchOnLogin() const { return runAtLoad.projectedValue(); }
}
