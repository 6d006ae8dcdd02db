#pragma once

#include <functional>

#include "platform/doubles/ManualMainQueue.hpp"

namespace vornix::platform::doubles {

// Runs the manual main queue's ready work until `done` holds, for work that other threads queue
// (a fetch finishing on a worker). Gives up after `seconds` of real time and returns false.
bool runUntil(ManualMainQueue& queue, const std::function<bool()>& done, double seconds = 10.0);

}  // namespace vornix::platform::doubles
