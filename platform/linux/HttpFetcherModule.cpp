#include "platform/linux/HttpFetcherModule.hpp"

#include <dlfcn.h>

#include "platform/linux/HttpFetcherModuleEntry.hpp"

namespace vornix::platform::linux {

HttpFetcherModule::HttpFetcherModule(std::filesystem::path file) : file_(std::move(file)) {}

HttpResponse HttpFetcherModule::fetch(const HttpRequest& request) {
    std::call_once(loading_, [this] { load(); });
    if (!fetcher_) {
        return {HttpFailure::other, 0, "", loadError_};
    }
    return fetcher_->fetch(request);
}

void HttpFetcherModule::load() {
    // The module stays mapped once loaded (RTLD_NODELETE): libcurl's TLS libraries register exit
    // handlers and keep global state, which must outlive any one fetcher.
    void* handle = ::dlopen(file_.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!handle) {
        loadError_ = "the HTTP module could not be loaded: " + std::string(::dlerror());
        return;
    }
    auto* make = reinterpret_cast<MakeHttpFetcher*>(::dlsym(handle, makeHttpFetcherSymbol));
    if (!make) {
        loadError_ = "the HTTP module " + file_.string() + " has no " + makeHttpFetcherSymbol;
    } else {
        fetcher_.reset(make());
    }
    ::dlclose(handle);
}

}  // namespace vornix::platform::linux
