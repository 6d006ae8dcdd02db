#include "plist/PropertyList.hpp"

#include "plist/BinaryReader.hpp"
#include "plist/DecodingError.hpp"
#include "plist/XmlReader.hpp"

namespace vornix::plist {

Value readPropertyList(std::string_view bytes) {
    if (isBinaryPropertyList(bytes)) {
        return readBinary(bytes);
    }
    // "bplist" and two version characters: a binary format other than version 00.
    if (bytes.size() >= 8 && bytes.starts_with("bplist")) {
        throw DataCorrupted({}, "byte offset 6: unsupported binary property-list version \"" +
                                    std::string(bytes.substr(6, 2)) + "\"");
    }
    return readXml(bytes);
}

}  // namespace vornix::plist
