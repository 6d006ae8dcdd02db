#include "platform/linux/tests/SelfSignedTlsServer.hpp"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <vector>

extern char** environ;

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

pid_t spawn(const std::vector<std::string>& arguments, posix_spawn_file_actions_t* actions) {
    std::vector<char*> argv;
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    pid_t pid = -1;
    if (posix_spawnp(&pid, argv[0], actions, nullptr, argv.data(), environ) != 0) {
        throw std::runtime_error("could not start " + arguments[0]);
    }
    return pid;
}

int waitFor(pid_t pid) {
    int status = 0;
    ::waitpid(pid, &status, 0);
    return status;
}

}  // namespace

SelfSignedTlsServer::SelfSignedTlsServer() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vornix-tls-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("could not make a temporary folder");
    }
    folder_ = pattern;
    const std::string key = (folder_ / "key.pem").string();
    const std::string certificate = (folder_ / "certificate.pem").string();

    posix_spawn_file_actions_t quiet;
    posix_spawn_file_actions_init(&quiet);
    posix_spawn_file_actions_addopen(&quiet, 2, "/dev/null", O_WRONLY, 0);
    const int made = waitFor(spawn({"openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "1", "-subj",
                                    "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", key, "-out",
                                    certificate},
                                   &quiet));
    posix_spawn_file_actions_destroy(&quiet);
    if (!WIFEXITED(made) || WEXITSTATUS(made) != 0) {
        throw std::runtime_error("openssl could not make a certificate");
    }

    int output[2];
    if (::pipe(output) != 0) {
        throw std::runtime_error("no pipe");
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output[1], 1);
    posix_spawn_file_actions_addclose(&actions, output[0]);
    child_ = spawn({"python3", "-c", serverScript, certificate, key}, &actions);
    posix_spawn_file_actions_destroy(&actions);
    ::close(output[1]);

    FILE* reader = ::fdopen(output[0], "r");
    unsigned port = 0;
    const bool read = reader != nullptr && std::fscanf(reader, "%u", &port) == 1;
    if (reader != nullptr) {
        std::fclose(reader);
    }
    if (!read) {
        throw std::runtime_error("the python3 TLS server did not start");
    }
    port_ = static_cast<std::uint16_t>(port);
}

SelfSignedTlsServer::~SelfSignedTlsServer() {
    if (child_ > 0) {
        ::kill(child_, SIGTERM);
        waitFor(child_);
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

}  // namespace vornix::platform::linux::testing
