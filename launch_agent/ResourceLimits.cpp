#include "launch_agent/ResourceLimits.hpp"

namespace vornix::launch_agent {

ResourceLimits::ResourceLimits(Limit cpu, Limit core, Limit data, Limit fileSize, Limit memoryLock, Limit numberOfFiles,
                               Limit numberOfProcesses, Limit residentSetSize, Limit stack)
    : cpu(cpu),
      core(core),
      data(data),
      fileSize(fileSize),
      memoryLock(memoryLock),
      numberOfFiles(numberOfFiles),
      numberOfProcesses(numberOfProcesses),
      residentSetSize(residentSetSize),
      stack(stack) {}

}  // namespace vornix::launch_agent
