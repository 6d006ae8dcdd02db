// vornix-info-plist OUTPUT EXECUTABLE URL_SCHEME MINIMUM_SYSTEM: writes the application bundle's
// Info.plist, at build time, with the project's own property-list writer. The version, the update
// feed and its signing key come from where the host itself takes them, so the bundle cannot disagree
// with the program; the lowest system is the build's deployment target.
#include <exception>
#include <fstream>
#include <iostream>
#include <string>

#include "app/macos/bundle/InfoPlist.hpp"
#include "base/Version.hpp"
#include "host/WebEndpoints.hpp"
#include "plist/XmlWriter.hpp"

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "usage: vornix-info-plist OUTPUT EXECUTABLE URL_SCHEME MINIMUM_SYSTEM\n";
        return 2;
    }
    const std::string output = argv[1];
    const vornix::macos_bundle::BundleFacts facts{
        .executable = argv[2],
        .version = std::string(vornix::base::hostVersion()),
        .urlScheme = argv[3],
        .minimumSystemVersion = argv[4],
        .updateFeed = vornix::host::WebEndpoints{}.updateFeed,
        .updatePublicKey = vornix::host::WebEndpoints{}.updatePublicKey,
    };
    std::string bytes;
    try {
        bytes = vornix::plist::writeXml(vornix::macos_bundle::infoPlist(facts));
    } catch (const std::exception& error) {
        std::cerr << "vornix-info-plist: " << error.what() << "\n";
        return 1;
    }
    std::ofstream file(output, std::ios::binary | std::ios::trunc);
    file << bytes;
    file.close();
    if (!file) {
        std::cerr << "vornix-info-plist: cannot write " << output << "\n";
        return 1;
    }
    return 0;
}
