#include "launch_agent/LaunchAgent.hpp"

namespace vornix::launch_agent {

using Key = LaunchAgent::CodingKeys;

LaunchAgent::LaunchAgent(std::string label, std::vector<std::string> program) : label(std::move(label)) {
    if (program.size() == 1) {
        this->program = std::move(program.front());
    } else {
        programArguments = std::move(program);
    }
}

// Members are read one after another so that the first key in table order that fails is the
// one reported.
LaunchAgent::LaunchAgent(const plist::KeyedDecoder& decoder) {
    label = decoder.decode<std::string>(codingKey(Key::label));
    disabled = decoder.decodeIfPresent<bool>(codingKey(Key::disabled));
    enableGlobbing = decoder.decodeIfPresent<bool>(codingKey(Key::enableGlobbing));
    program = decoder.decodeIfPresent<std::string>(codingKey(Key::program));
    programArguments = decoder.decodeIfPresent<std::vector<std::string>>(codingKey(Key::programArguments));
    workingDirectory = decoder.decodeIfPresent<std::string>(codingKey(Key::workingDirectory));
    standardInPath = decoder.decodeIfPresent<std::string>(codingKey(Key::standardInPath));
    standardOutPath = decoder.decodeIfPresent<std::string>(codingKey(Key::standardOutPath));
    standardErrorPath = decoder.decodeIfPresent<std::string>(codingKey(Key::standardErrorPath));
    environmentVariables =
        decoder.decodeIfPresent<std::map<std::string, std::string>>(codingKey(Key::environmentVariables));
    runAtLoad = decoder.decodeIfPresent<bool>(codingKey(Key::runAtLoad));
    startInterval = decoder.decodeIfPresent<std::int64_t>(codingKey(Key::startInterval));
    startCalendarInterval =
        decoder.decodeIfPresent<std::shared_ptr<StartCalendarInterval>>(codingKey(Key::startCalendarInterval));
    startOnMount = decoder.decodeIfPresent<bool>(codingKey(Key::startOnMount));
    onDemand = decoder.decodeIfPresent<bool>(codingKey(Key::onDemand));
    keepAlive = decoder.decodeIfPresent<bool>(codingKey(Key::keepAlive));
    watchPaths = decoder.decodeIfPresent<std::vector<std::string>>(codingKey(Key::watchPaths));
    queueDirectories = decoder.decodeIfPresent<std::vector<std::string>>(codingKey(Key::queueDirectories));
    umask = decoder.decodeIfPresent<std::int64_t>(codingKey(Key::umask));
    sessionCreate = decoder.decodeIfPresent<bool>(codingKey(Key::sessionCreate));
    groupName = decoder.decodeIfPresent<std::string>(codingKey(Key::groupName));
    userName = decoder.decodeIfPresent<std::string>(codingKey(Key::userName));
    initGroups = decoder.decodeIfPresent<bool>(codingKey(Key::initGroups));
    rootDirectory = decoder.decodeIfPresent<std::string>(codingKey(Key::rootDirectory));
    launchOnlyOnce = decoder.decodeIfPresent<bool>(codingKey(Key::launchOnlyOnce));
    limitLoadToSessionType = decoder.decodeIfPresent<std::vector<std::string>>(codingKey(Key::limitLoadToSessionType));
    limitLoadToHosts = decoder.decodeIfPresent<std::vector<std::string>>(codingKey(Key::limitLoadToHosts));
    limitLoadFromHosts = decoder.decodeIfPresent<std::vector<std::string>>(codingKey(Key::limitLoadFromHosts));
    abandonProcessGroup = decoder.decodeIfPresent<bool>(codingKey(Key::abandonProcessGroup));
    enablePressuredExit = decoder.decodeIfPresent<bool>(codingKey(Key::enablePressuredExit));
    enableTransactions = decoder.decodeIfPresent<bool>(codingKey(Key::enableTransactions));
    exitTimeOut = decoder.decodeIfPresent<std::int64_t>(codingKey(Key::exitTimeOut));
    inetdCompatibility =
        decoder.decodeIfPresent<std::shared_ptr<launch_agent::inetdCompatibility>>(codingKey(Key::inetdCompatibility));
    hardResourceLimits = decoder.decodeIfPresent<std::shared_ptr<ResourceLimits>>(codingKey(Key::hardResourceLimits));
    softResourceLimits = decoder.decodeIfPresent<std::shared_ptr<ResourceLimits>>(codingKey(Key::softResourceLimits));
    timeOut = decoder.decodeIfPresent<std::int64_t>(codingKey(Key::timeOut));
    throttleInterval = decoder.decodeIfPresent<std::int64_t>(codingKey(Key::throttleInterval));
    machServices =
        decoder.decodeIfPresent<std::map<std::string, std::shared_ptr<MachService>>>(codingKey(Key::machServices));
    debug = decoder.decodeIfPresent<bool>(codingKey(Key::debug));
    waitForDebugger = decoder.decodeIfPresent<bool>(codingKey(Key::waitForDebugger));
    legacyTimers = decoder.decodeIfPresent<bool>(codingKey(Key::legacyTimers));
    lowPriorityIO = decoder.decodeIfPresent<bool>(codingKey(Key::lowPriorityIO));
    lowPriorityBackgroundIO = decoder.decodeIfPresent<bool>(codingKey(Key::lowPriorityBackgroundIO));
    nice.storeAsGiven(decoder.decodeIfPresent<std::int64_t>(codingKey(Key::nice)));
    processType = decoder.decodeIfPresent<ProcessType>(codingKey(Key::processType));
}

void LaunchAgent::encode(plist::KeyedEncoder& encoder) const {
    encoder.encode(codingKey(Key::label), label);
    encoder.encodeIfPresent(codingKey(Key::disabled), disabled);
    encoder.encodeIfPresent(codingKey(Key::enableGlobbing), enableGlobbing);
    encoder.encodeIfPresent(codingKey(Key::program), program);
    encoder.encodeIfPresent(codingKey(Key::programArguments), programArguments);
    encoder.encodeIfPresent(codingKey(Key::workingDirectory), workingDirectory);
    encoder.encodeIfPresent(codingKey(Key::standardInPath), standardInPath);
    encoder.encodeIfPresent(codingKey(Key::standardOutPath), standardOutPath);
    encoder.encodeIfPresent(codingKey(Key::standardErrorPath), standardErrorPath);
    encoder.encodeIfPresent(codingKey(Key::environmentVariables), environmentVariables);
    encoder.encodeIfPresent(codingKey(Key::runAtLoad), runAtLoad);
    encoder.encodeIfPresent(codingKey(Key::startInterval), startInterval);
    encoder.encodeIfPresent(codingKey(Key::startCalendarInterval), startCalendarInterval);
    encoder.encodeIfPresent(codingKey(Key::startOnMount), startOnMount);
    encoder.encodeIfPresent(codingKey(Key::onDemand), onDemand);
    encoder.encodeIfPresent(codingKey(Key::keepAlive), keepAlive);
    encoder.encodeIfPresent(codingKey(Key::watchPaths), watchPaths);
    encoder.encodeIfPresent(codingKey(Key::queueDirectories), queueDirectories);
    encoder.encodeIfPresent(codingKey(Key::umask), umask);
    encoder.encodeIfPresent(codingKey(Key::sessionCreate), sessionCreate);
    encoder.encodeIfPresent(codingKey(Key::groupName), groupName);
    encoder.encodeIfPresent(codingKey(Key::userName), userName);
    encoder.encodeIfPresent(codingKey(Key::initGroups), initGroups);
    encoder.encodeIfPresent(codingKey(Key::rootDirectory), rootDirectory);
    encoder.encodeIfPresent(codingKey(Key::launchOnlyOnce), launchOnlyOnce);
    encoder.encodeIfPresent(codingKey(Key::limitLoadToSessionType), limitLoadToSessionType);
    encoder.encodeIfPresent(codingKey(Key::limitLoadToHosts), limitLoadToHosts);
    encoder.encodeIfPresent(codingKey(Key::limitLoadFromHosts), limitLoadFromHosts);
    encoder.encodeIfPresent(codingKey(Key::abandonProcessGroup), abandonProcessGroup);
    encoder.encodeIfPresent(codingKey(Key::enablePressuredExit), enablePressuredExit);
    encoder.encodeIfPresent(codingKey(Key::enableTransactions), enableTransactions);
    encoder.encodeIfPresent(codingKey(Key::exitTimeOut), exitTimeOut);
    encoder.encodeIfPresent(codingKey(Key::inetdCompatibility), inetdCompatibility);
    encoder.encodeIfPresent(codingKey(Key::hardResourceLimits), hardResourceLimits);
    encoder.encodeIfPresent(codingKey(Key::softResourceLimits), softResourceLimits);
    encoder.encodeIfPresent(codingKey(Key::timeOut), timeOut);
    encoder.encodeIfPresent(codingKey(Key::throttleInterval), throttleInterval);
    encoder.encodeIfPresent(codingKey(Key::machServices), machServices);
    encoder.encodeIfPresent(codingKey(Key::debug), debug);
    encoder.encodeIfPresent(codingKey(Key::waitForDebugger), waitForDebugger);
    encoder.encodeIfPresent(codingKey(Key::legacyTimers), legacyTimers);
    encoder.encodeIfPresent(codingKey(Key::lowPriorityIO), lowPriorityIO);
    encoder.encodeIfPresent(codingKey(Key::lowPriorityBackgroundIO), lowPriorityBackgroundIO);
    encoder.encodeIfPresent(codingKey(Key::nice), nice);
    encoder.encodeIfPresent(codingKey(Key::processType), processType);
}

}  // namespace vornix::launch_agent
