#include "platform/linux/tests/SelfSignedTlsServer.hpp"

#include <cstdlib>
#include <stdexcept>

namespace vornix::platform::linux::testing {

namespace {

const char* const serverScript = R"(
import http.server, ssl, sys
class Handler(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        body = b'<rss><channel></channel></rss>'
        self.send_response(200)
        self.send_header('Content-Length', str(len(body)))
        self.end_headers()
        self.wfile.write(body)
    def log_message(self, *args):
        pass
server = http.server.HTTPServer(('127.0.0.1', 0), Handler)
context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
context.load_cert_chain(sys.argv[1], sys.argv[2])
server.socket = context.wrap_socket(server.socket, server_side=True)
print(server.server_address[1], flush=True)
server.serve_forever()
)";

}  // namespace

SelfSignedTlsServer::SelfSignedTlsServer() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vornix-tls-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("could not make a temporary folder");
    }
    folder_ = pattern;
    const std::string key = (folder_ / "key.pem").string();
    const std::string certificate = (folder_ / "certificate.pem").string();
    if (!runQuietly({"openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "1", "-subj", "/CN=127.0.0.1",
                     "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", key, "-out", certificate})) {
        throw std::runtime_error("openssl could not make a certificate");
    }
    server_ = std::make_unique<ChildProcess>(std::vector<std::string>{"python3", "-c", serverScript, certificate, key});
    const std::string port = server_->readLine();
    if (port.empty()) {
        throw std::runtime_error("the python3 TLS server did not start");
    }
    port_ = static_cast<std::uint16_t>(std::stoul(port));
}

SelfSignedTlsServer::~SelfSignedTlsServer() {
    server_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

}  // namespace vornix::platform::linux::testing
