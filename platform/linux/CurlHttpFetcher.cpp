#include "platform/linux/CurlHttpFetcher.hpp"

#include <curl/curl.h>

#include <memory>
#include <mutex>

namespace vornix::platform::linux {

namespace {

struct Body {
    std::string bytes;
    std::size_t maxBytes;
    bool overflowed = false;
};

// libcurl's progress callback, which it calls at least once a second: a non-zero answer aborts.
int checkCancelled(void* data, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    const auto& isCancelled = *static_cast<const std::function<bool()>*>(data);
    return isCancelled && isCancelled() ? 1 : 0;
}

std::size_t appendBody(char* data, std::size_t size, std::size_t count, void* userData) {
    Body& body = *static_cast<Body*>(userData);
    const std::size_t length = size * count;
    if (body.bytes.size() + length > body.maxBytes) {
        body.overflowed = true;
        return 0;  // makes curl stop with CURLE_WRITE_ERROR
    }
    body.bytes.append(data, length);
    return length;
}

HttpFailure failureOf(CURLcode code, const Body& body) {
    switch (code) {
    case CURLE_OK:
        return HttpFailure::none;
    case CURLE_UNSUPPORTED_PROTOCOL:
        return HttpFailure::refused;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_COULDNT_CONNECT:
        return HttpFailure::unreachable;
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
        return HttpFailure::untrusted;
    case CURLE_OPERATION_TIMEDOUT:
        return HttpFailure::timedOut;
    case CURLE_FILESIZE_EXCEEDED:
        return HttpFailure::tooLarge;
    case CURLE_ABORTED_BY_CALLBACK:
        return HttpFailure::cancelled;
    case CURLE_WRITE_ERROR:
        return body.overflowed ? HttpFailure::tooLarge : HttpFailure::other;
    default:
        return HttpFailure::other;
    }
}

struct EasyCleanup {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};

}  // namespace

CurlHttpFetcher::CurlHttpFetcher() {
    static std::once_flag initialised;
    std::call_once(initialised, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

HttpResponse CurlHttpFetcher::fetch(const HttpRequest& request) {
    std::unique_ptr<CURL, EasyCleanup> handle(curl_easy_init());
    if (!handle) {
        return {HttpFailure::other, 0, "", "curl could not start a transfer"};
    }
    CURL* easy = handle.get();
    Body body{"", request.maxBytes};
    char error[CURL_ERROR_SIZE] = "";
    const auto milliseconds = static_cast<long>(request.timeoutSeconds * 1000.0);

    curl_easy_setopt(easy, CURLOPT_URL, request.url.c_str());
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, request.allowPlainHttp ? "http,https" : "https");
    curl_easy_setopt(easy, CURLOPT_REDIR_PROTOCOLS_STR, "https");
    curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(easy, CURLOPT_MAXREDIRS, 5L);
    curl_easy_setopt(easy, CURLOPT_SSL_VERIFYPEER, 1L);
    curl_easy_setopt(easy, CURLOPT_SSL_VERIFYHOST, 2L);
    curl_easy_setopt(easy, CURLOPT_TIMEOUT_MS, milliseconds);
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, milliseconds);
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(request.maxBytes));
    curl_easy_setopt(easy, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(easy, CURLOPT_USERAGENT, request.userAgent.c_str());
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, appendBody);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, &body);
    curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, error);
    curl_easy_setopt(easy, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(easy, CURLOPT_XFERINFOFUNCTION, checkCancelled);
    curl_easy_setopt(easy, CURLOPT_XFERINFODATA, &request.isCancelled);
    if (request.allowPlainHttp) {
        curl_easy_setopt(easy, CURLOPT_NOPROXY, "*");  // a loopback address is never reached through a proxy
    }

    const CURLcode code = curl_easy_perform(easy);
    long status = 0;
    curl_easy_getinfo(easy, CURLINFO_RESPONSE_CODE, &status);
    const HttpFailure failure = failureOf(code, body);
    if (failure != HttpFailure::none) {
        return {failure, status, "", *error ? error : curl_easy_strerror(code)};
    }
    return {failure, status, std::move(body.bytes), ""};
}

}  // namespace vornix::platform::linux
