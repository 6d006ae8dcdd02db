#pragma once

#include "platform/HttpFetcher.hpp"

// The one entry point of the HTTP fetcher module, the shared object that carries libcurl and its
// TLS libraries. The host loads it only when it first fetches (see HttpFetcherModule), so that
// starting up maps none of them.
extern "C" {

// A new fetcher, which the caller owns and deletes through its virtual destructor.
vornix::platform::HttpFetcher* vornix_http_fetcher_make();

}

namespace vornix::platform::linux {

using MakeHttpFetcher = HttpFetcher*();
inline constexpr const char* makeHttpFetcherSymbol = "vornix_http_fetcher_make";

// The module's file name, in the host's modules folder.
inline constexpr const char* httpFetcherModuleFileName = "vornix-http-fetcher.so";

}  // namespace vornix::platform::linux
