#include <iostream>
#include <string>
#include <vector>

#include "tool/ToolMain.hpp"

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    return vornix::tool::runTool(args, std::cin, std::cout, std::cerr);
}
