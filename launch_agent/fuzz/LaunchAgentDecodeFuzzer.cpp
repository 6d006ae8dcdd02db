// Any bytes, read as a job file: a decode either fails with a DecodingError or gives a record
// whose XML form reads back to the same record (unless the writer refuses one of its strings).
//
// Not reached by design: the records' constructors from values given in code (launch_agent/*.cpp
// other than the decoding ones); in plist/KeyedCoding.*, the codings of reals, dates and data,
// which no job-file key uses, and the encoding errors for a null record or a value that is none
// of an enumeration's cases, which only a record built in code can hold.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "launch_agent/LaunchAgent.hpp"
#include "plist/PropertyList.hpp"

namespace {

using vornix::launch_agent::LaunchAgent;
namespace plist = vornix::plist;

std::shared_ptr<LaunchAgent> readAgent(std::string_view bytes) {
    return plist::decode<std::shared_ptr<LaunchAgent>>(bytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::shared_ptr<LaunchAgent> agent;
    try {
        agent = readAgent(std::string_view(reinterpret_cast<const char*>(data), size));
    } catch (const plist::DecodingError&) {
        return 0;
    }
    std::string written;
    try {
        written = plist::encode(*agent);
    } catch (const plist::EncodingError&) {
        return 0;
    }
    if (plist::encode(*readAgent(written)) != written) {
        std::abort();
    }
    return 0;
}
