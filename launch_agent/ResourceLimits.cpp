#include "launch_agent/ResourceLimits.hpp"

namespace vornix::launch_agent {

using Key = ResourceLimits::CodingKeys;

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

ResourceLimits::ResourceLimits(const plist::KeyedDecoder& decoder)
    : cpu(decoder.decodeIfPresent<std::int64_t>(codingKey(Key::cpu))),
      core(decoder.decodeIfPresent<std::int64_t>(codingKey(Key::core))),
      data(decoder.decodeIfPresent<std::int64_t>(codingKey(Key::data))),
      fileSize(decoder.decodeIfPresent<std::int64_t>(codingKey(Key::fileSize))),
      memoryLock(decoder.decodeIfPresent<std::int64_t>(codingKey(Key::memoryLock))),
      numberOfFiles(decoder.decodeIfPresent<std::int64_t>(codingKey(Key::numberOfFiles))),
      numberOfProcesses(decoder.decodeIfPresent<std::int64_t>(codingKey(Key::numberOfProcesses))),
      residentSetSize(decoder.decodeIfPresent<std::int64_t>(codingKey(Key::residentSetSize))),
      stack(decoder.decodeIfPresent<std::int64_t>(codingKey(Key::stack))) {}

void ResourceLimits::encode(plist::KeyedEncoder& encoder) const {
    encoder.encodeIfPresent(codingKey(Key::cpu), cpu);
    encoder.encodeIfPresent(codingKey(Key::core), core);
    encoder.encodeIfPresent(codingKey(Key::data), data);
    encoder.encodeIfPresent(codingKey(Key::fileSize), fileSize);
    encoder.encodeIfPresent(codingKey(Key::memoryLock), memoryLock);
    encoder.encodeIfPresent(codingKey(Key::numberOfFiles), numberOfFiles);
    encoder.encodeIfPresent(codingKey(Key::numberOfProcesses), numberOfProcesses);
    encoder.encodeIfPresent(codingKey(Key::residentSetSize), residentSetSize);
    encoder.encodeIfPresent(codingKey(Key::stack), stack);
}

}  // namespace vornix::launch_agent
