#include "plist/PropertyList.hpp"

#include "plist/BinaryReader.hpp"
#include "plist/XmlReader.hpp"

namespace vornix::plist {

Value readPropertyList(std::string_view bytes) {
    return isBinaryPropertyList(bytes) ? readBinary(bytes) : readXml(bytes);
}

}  // namespace vornix::plist
