// The status pipeline as the controller runs it (three tools started directly, joined by
// pipes) against the same pipeline handed to /bin/sh -c, in the same run, behind the same
// stand-in job manager.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "launch_agent/LaunchControl.hpp"
#include "launch_agent/tests/StandInJobManager.hpp"
#include "platform/PosixProcesses.hpp"
#include "platform/doubles/RedirectingProcesses.hpp"

namespace {

using vornix::launch_agent::AgentStatus;
using vornix::launch_agent::LaunchAgent;
using vornix::launch_agent::LaunchControl;
using vornix::launch_agent::testing::StandInJobManager;
using vornix::platform::Invocation;
using vornix::platform::PosixProcesses;
using vornix::platform::Processes;
using vornix::platform::ScopedPort;
using vornix::platform::doubles::RedirectingProcesses;

constexpr const char* label = "com.vornix.os.launch";

// A listing of a few hundred jobs, ours running.
std::string listing() {
    std::string text = "PID\tStatus\tLabel\n";
    for (int job = 0; job < 300; ++job) {
        text += "-\t0\tcom.example.job" + std::to_string(job) + "\n";
    }
    return text + "4242\t0\tcom.vornix.os.launch\n";
}

void statusThroughTheController(benchmark::State& state) {
    const StandInJobManager standIn(listing());
    PosixProcesses real;
    RedirectingProcesses processes(real, {{"/bin/launchctl", standIn.tool().string()}});
    ScopedPort<Processes> port(&processes);
    const LaunchAgent agent(label, "/usr/bin/true");
    for (auto _ : state) {
        const AgentStatus status = LaunchControl::shared().status(agent);
        if (status != AgentStatus::running(4242)) {
            state.SkipWithError("unexpected status");
            break;
        }
    }
}

void samePipelineThroughTheShell(benchmark::State& state) {
    const StandInJobManager standIn(listing());
    PosixProcesses processes;
    const std::vector<Invocation> shell{
        {"/bin/sh", {"-c", "'" + standIn.tool().string() + "' list | /usr/bin/grep " + label + " | /usr/bin/cut -f1"}}};
    for (auto _ : state) {
        if (processes.runPipeline(shell) != "4242\n") {
            state.SkipWithError("unexpected output");
            break;
        }
    }
}

// Wall-clock time, since the caller mostly waits for its children. On a shared machine run with
// --benchmark_enable_random_interleaving=true, so that both meet the same load, and compare medians.
void configure(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(0.3)->Repetitions(9)->ReportAggregatesOnly(true);
}

BENCHMARK(statusThroughTheController)->Apply(configure);
BENCHMARK(samePipelineThroughTheShell)->Apply(configure);

}  // namespace
