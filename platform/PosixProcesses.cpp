#include "platform/PosixProcesses.hpp"

#include <stdexcept>
#include <system_error>
#include <vector>

#include "platform/ChildReaper.hpp"
#include "platform/FileDescriptor.hpp"
#include "platform/Spawn.hpp"

namespace vornix::platform {

namespace {

// Hands every child started so far to the reaper, however the pipeline ends.
class Children {
public:
    Children() = default;
    Children(const Children&) = delete;
    Children& operator=(const Children&) = delete;
    ~Children() {
        for (pid_t child : children_) {
            ChildReaper::shared().adopt(child);
        }
    }
    void add(pid_t child) { children_.push_back(child); }

private:
    std::vector<pid_t> children_;
};

}  // namespace

void PosixProcesses::launch(const Invocation& invocation) {
    ChildReaper::shared().adopt(spawnChild(invocation, {}));
}

std::string PosixProcesses::runPipeline(std::span<const Invocation> stages) {
    if (stages.empty()) {
        throw std::invalid_argument("a pipeline needs at least one tool");
    }
    Children children;
    FileDescriptor input;
    for (const Invocation& stage : stages) {
        Pipe output = makePipe();
        children.add(spawnChild(stage, {input.get(), output.write.get()}));
        // From here on only the child holds the write end, so the next reader sees the end of
        // the stream exactly when this tool (and whatever it started) has closed its output.
        input = std::move(output.read);
    }
    std::error_code error;
    std::string output = readToEnd(input, error);
    if (error) {
        throw std::system_error(error, "cannot read the output of " + stages.back().tool);
    }
    return output;
}

}  // namespace vornix::platform
