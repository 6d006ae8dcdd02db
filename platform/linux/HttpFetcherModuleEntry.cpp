#include "platform/linux/HttpFetcherModuleEntry.hpp"

#include "platform/linux/CurlHttpFetcher.hpp"

vornix::platform::HttpFetcher* vornix_http_fetcher_make() { return new vornix::platform::linux::CurlHttpFetcher(); }
